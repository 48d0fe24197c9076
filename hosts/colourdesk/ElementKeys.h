#pragma once

#include "core/base/String.h"

namespace ColourDesk {

inline bool StartsWith(Utilities::String const& text, char const* beginning) {
    return text.FindSubstring(beginning, 0) == 0;
}

/// The number behind a prefix.
inline long NumberBehind(Utilities::String const& text, char const* prefix) {
    return text.Mid(Utilities::String(prefix).Length(), text.Length()).GetLong();
}

} // namespace ColourDesk
