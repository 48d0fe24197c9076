#include "fuzz/SampleFuzz.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Fuzz::ReadAndWrite({reinterpret_cast<char const*>(data), size}, Fuzz::Cxf::SampleFormat::Xml);
    return 0;
}
