// Language files: the key file and one language, split at the first byte 0xFF.

#include "core/base/Exceptions.h"
#include "services/LanguageFiles.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static Tests::TemporaryDirectory const directory;
    std::string const input(reinterpret_cast<char const*>(data), size);
    auto const split = std::min(input.find('\xFF'), input.size());
    Tests::WriteFile(directory / "Languages/Languages.key", input.substr(0, split));
    Tests::WriteFile(directory / "Languages/Test.lang", input.substr(std::min(split + 1, input.size())));
    Utilities::LanguageFiles files;
    try {
        files.Read(
            *Utilities::Directory::NewInstance(Utilities::Directory::anyDirectory, directory.GetPath()));
    } catch (Norvelian::Utilities::Exceptions::ResourceNotAvailableException const&) {
        return 0;
    }
    for (auto const& [name, texts] : files.GetLanguages())
        for (std::size_t i = 0; i < texts.GetCount(); ++i) {
            auto const text = texts.Get(i);
            auto const found = texts.Find(Utilities::String(text.key));
            if (!found || found->translation != text.translation) std::abort();
        }
    return 0;
}
