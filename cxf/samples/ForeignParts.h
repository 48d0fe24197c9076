#pragma once

#include <string>
#include <utility>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// What an XML element holds beyond the schema; kept so that it is there again when the file is written.
struct ForeignParts {
    std::vector<std::pair<std::string, std::string>> attributes;
    std::string children; ///< elements, comments and processing instructions as XML text

    bool IsEmpty() const { return attributes.empty() && children.empty(); }
    bool operator==(ForeignParts const&) const = default;
};

} // namespace Norvelian::ColorExchangeFormat
