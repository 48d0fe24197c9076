#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Utilities {

/// Where an XML text passes a limit, and what is said of it.
struct XmlExcess {
    std::size_t offset = 0;
    std::string reason;
};

/// Whether a text has more elements or attributes than these, told before anything is built of it. Everything
/// that looks like the begin of an element or an attribute counts, in comments too. `elementsLimit` is the
/// limit's name.
std::optional<XmlExcess> FindXmlExcess(std::string_view text, std::size_t elements, char const* elementsLimit,
                                       std::size_t attributes);

} // namespace Utilities
