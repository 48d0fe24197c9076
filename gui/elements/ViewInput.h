#pragma once

#include <cstdint>

namespace GUI {

/// What a key does to the part of its data that a pane shows.
enum class ViewKey : std::uint8_t {
    Left, ///< arrows: a step of the cursor
    Right,
    Up,
    Down,
    PanLeft, ///< arrows with Shift
    PanRight,
    PanUp,
    PanDown,
    ZoomIn,  ///< plus
    ZoomOut, ///< minus
    Whole,   ///< 0 and Home
    Leave    ///< Escape
};

/// A pane that can show a part of its data: it gets the mouse wheel, and the keys above while it has the
/// keyboard focus.
class ViewInput {
public:
    virtual ~ViewInput() = default;
    /// `steps` are notches of the wheel, positive away from the user, at a point of the pane. False leaves
    /// the wheel to whatever is around.
    virtual bool OnWheel(double steps, long x, long y) = 0;
    /// False leaves the key to the window.
    virtual bool OnViewKey(ViewKey key) = 0;
};

} // namespace GUI
