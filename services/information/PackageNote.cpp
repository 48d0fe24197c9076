#include "services/information/PackageNote.h"

#include <optional>

namespace InformationServices {

namespace {

/// The quoted text that comes next, which is taken off.
std::optional<std::string> TakeText(std::string_view& rest) {
    std::size_t const start = rest.find('"');
    if (start == std::string_view::npos) return {};
    rest.remove_prefix(start + 1);
    std::string text;
    while (!rest.empty() && rest.front() != '"') {
        if (rest.front() == '\\') rest.remove_prefix(1);
        if (rest.empty()) break;
        text += rest.front();
        rest.remove_prefix(1);
    }
    if (rest.empty()) return {};
    rest.remove_prefix(1);
    return text;
}

} // namespace

std::string FindInPackageNote(std::string_view note, std::string_view key) {
    for (;;) {
        auto const name = TakeText(note);
        auto const value = name ? TakeText(note) : std::nullopt;
        if (!value) return {};
        if (*name == key) return *value;
    }
}

} // namespace InformationServices
