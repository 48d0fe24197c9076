#pragma once

#include "core/base/String.h"

#include <cstdint>

namespace GUI {

/// What assistive technology is told of a pane: what it is, its name in the user's language, and its state.
/// Place, focus and visibility are known to its window.
struct Accessible {
    enum class Role : std::uint8_t { Group, Graphic, Button, CheckBox, Tab, ListItem, Text };

    Role role = Role::Group;
    Utilities::String name;
    /// More than the name; for a measured colour its numbers and their condition.
    Utilities::String description;
    /// Whether a click on it does something. Pressed by assistive technology, it is clicked in its middle.
    bool isPressable = false;
    bool isEnabled = true;
    bool isPressed = false;
    bool isChecked = false;
    bool isSelected = false;
};

} // namespace GUI
