#pragma once

#include <cstdint>

namespace GUI {

/// The modifier key of a click.
enum class KeyState : std::uint8_t { None, Control, Shift };

/// What a drop does with what is dropped.
enum class DropEffect : std::uint8_t { None, Copy, Move };

} // namespace GUI
