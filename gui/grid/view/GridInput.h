#pragma once

#include <cstdint>

namespace GUI {

enum class GridKey : std::uint8_t {
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    PageUp,
    PageDown,
    Tab,
    Enter,
    Escape,
    Edit,
    Space,
    Delete,
    Copy,
    Cut,
    Paste,
    Undo,
    Redo,
    SelectAll
};

struct GridModifiers {
    bool shift = false;
    bool control = false;
};

enum class GridCursor : std::uint8_t { Arrow, Columns, Rows };

} // namespace GUI
