#pragma once

#include <cstddef>
#include <string_view>

namespace Utilities {

/// Length of the well-formed UTF-8 sequence that begins at the first of these bytes, from 1 to 4; 0 if
/// none does. Overlong forms, surrogates and numbers above 0x10FFFF aren't well-formed.
std::size_t Utf8SequenceLength(std::string_view bytes);

/// The nearest position at or behind `position` that is within no well-formed UTF-8 sequence of the
/// text, so that cutting there leaves no half character behind.
std::size_t Utf8BoundaryAtOrBehind(std::string_view text, std::size_t position);

} // namespace Utilities
