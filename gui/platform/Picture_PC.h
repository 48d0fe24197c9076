#pragma once

class QColor;
class QPainter;

namespace GUI {

/// What the platform's surfaces know of a picture: how to put it on a painter. The bitmap classes derive
/// from it beside `Bitmap`.
class Picture_PC {
public:
    virtual ~Picture_PC() = default;
    /// The whole picture with its top left corner at (x, y).
    virtual void DrawBitmap(long x, long y, QPainter& target) = 0;
    /// The same, where a picture of one tone, such as an icon, has that of the texts around it.
    virtual void DrawInTone(long x, long y, QPainter& target, QColor const& /*tone*/) {
        DrawBitmap(x, y, target);
    }
};

} // namespace GUI
