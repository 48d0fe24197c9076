#pragma once

#include "core/base/String.h"

#include <cstdint>
#include <optional>

namespace GUI {

/// What the update messages of charts say beyond the rules of all panes.
namespace UpdateMessage {

/// The part of a table that a data message names: "first;firstColumn-last;lastColumn", or "first;column" for
/// both ends.
struct Range {
    std::uint16_t first = 0;
    std::uint16_t last = 0;
    std::uint16_t firstColumn = 0;
    std::uint16_t lastColumn = 0;

    /// Of values in a column; 0 if the message has its ends in the wrong order.
    std::uint32_t Count() const { return last >= first ? last - first + 1U : 0; }

    /// Empty for a message that is no data message; throws `OutOfRangeException` for a faulty number.
    static std::optional<Range> Parse(Utilities::String const& message);
};

/// The number of a row or column asked for under a key: 0 for any key that isn't a whole number, since a
/// graph asks for its settings under the same element name ("XScaleDrawLines").
std::uint16_t RowNumber(Utilities::String const& key);

} // namespace UpdateMessage

} // namespace GUI
