// Settings files: reading anything, and editing it without harm to what is beside the edited line.

#include "services/IniText.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace Utilities::IniText;
    // Section, key and value are before the text, each with its length.
    std::string_view rest(reinterpret_cast<char const*>(data), size);
    auto const take = [&rest] {
        if (rest.empty()) return std::string_view();
        auto const length = static_cast<unsigned char>(rest.front()) % 16U;
        auto const part = rest.substr(1, length);
        rest.remove_prefix(1 + part.size());
        return part;
    };
    auto const section = take();
    auto const key = take();
    auto const value = take();
    static_cast<void>(FindValue(rest, section, key));
    auto const edited = WithValue(rest, section, key, value);
    if (!edited) return 0;
    auto const readBack = FindValue(*edited, section, key);
    Require(readBack.has_value());
    // A line break becomes a blank, everything else comes back as it was.
    if (value.find_first_of("\r\n") == std::string_view::npos) Require(*readBack == value);
    Require(WithValue(*edited, section, key, value) == edited);
    return 0;
}
