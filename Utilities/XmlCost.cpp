#include "Utilities/XmlCost.h"

#include "Utilities/Limits.h"

namespace Utilities {

namespace {

/// The place of the occurrence that is one too many, or npos.
template <class Counts>
std::size_t FindBeyond(std::string_view text, char wanted, std::size_t most, Counts counts) {
    std::size_t found = 0;
    for (auto at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, at + 1))
        if (counts(at) && ++found > most) return at;
    return std::string_view::npos;
}

} // namespace

std::optional<XmlExcess> FindXmlExcess(std::string_view text, std::size_t elements, char const* elementsLimit,
                                       std::size_t attributes) {
    auto const begins = [text](std::size_t at) {
        char const next = at + 1 < text.size() ? text[at + 1] : '/';
        return next != '/' && next != '!' && next != '?';
    };
    if (auto const at = FindBeyond(text, '<', elements, begins); at != std::string_view::npos)
        return XmlExcess{at, Limits::Passed(elementsLimit, elements, "elements")};
    if (auto const at = FindBeyond(text, '=', attributes, [](std::size_t) { return true; });
        at != std::string_view::npos)
        return XmlExcess{at, Limits::Passed("attributes", attributes, "attributes")};
    return std::nullopt;
}

} // namespace Utilities
