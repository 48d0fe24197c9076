#pragma once

namespace ColourDesk {

inline constexpr char const* version = "0.1.0";

} // namespace ColourDesk
