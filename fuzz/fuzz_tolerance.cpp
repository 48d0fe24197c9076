#include "cxf/files/FileException.h"
#include "cxf/tolerance/ToleranceFile.h"
#include "fuzz/SampleFuzz.h"

#include <cstdint>

/// A tolerance set that can be read is the same after it was written.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string_view const text(reinterpret_cast<char const*>(data), size);
    try {
        std::string const written = Fuzz::Cxf::FormatToleranceSet(Fuzz::Cxf::ParseToleranceSet(text, "fuzz"));
        try {
            Fuzz::Require(Fuzz::Cxf::FormatToleranceSet(Fuzz::Cxf::ParseToleranceSet(written, "again")) ==
                              written,
                          "written, read and written again it is the same");
        } catch (Fuzz::Cxf::FileException const&) {
            Fuzz::Require(false, "what was written can be read");
        }
    } catch (Fuzz::Cxf::FileException const& failure) {
        Fuzz::Require(std::string_view(failure.what()).starts_with("fuzz:"), "a message names the file");
    }
    return 0;
}
