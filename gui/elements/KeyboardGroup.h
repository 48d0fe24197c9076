#pragma once

#include <cstdint>

namespace GUI {

class Pane;

/// Keys that go through a group of panes.
enum class NavigationKey : std::uint8_t { Left, Right, Up, Down, Home, End };

/// An element whose panes are one stop for Tab, with the arrow keys among them: a strip of tabs, a row of
/// tools. The window asks the nearest such element around the pane that has the keyboard focus, or that Tab
/// would come to.
class KeyboardGroup {
public:
    virtual ~KeyboardGroup() = default;
    /// False leaves the key to the window. The group gives the focus to another of its panes.
    virtual bool OnNavigationKey(NavigationKey key, Pane& focused) = 0;
    /// Whether Tab stops at this pane; it passes over the others.
    virtual bool IsTabStop(Pane& pane) = 0;
};

} // namespace GUI
