#pragma once

class QPainter;

namespace GUI {

/// What the platform's surfaces know of a picture: how to put it on a painter. The bitmap classes derive
/// from it beside `Bitmap`.
class Picture_PC {
public:
    virtual ~Picture_PC() = default;
    /// The whole picture with its top left corner at (x, y).
    virtual void DrawBitmap(long x, long y, QPainter& target) = 0;
};

} // namespace GUI
