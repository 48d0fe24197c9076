#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace GUI {

/// A box of pixels with right and bottom outside.
struct PixelBox {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool IsEmpty() const { return left >= right || top >= bottom; }
    bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
};

/// On and off lengths of a broken line in pixels, and how far into the pattern it is. A solid line has
/// an off length of 0.
struct DashPattern {
    int on = 1;
    int off = 0;
    int phase = 0;
};

/// One row's piece of a figure: the pixels from `begin` up to `end`, with the pen or the brush.
struct FigureSpan {
    std::int16_t y;
    std::int16_t begin;
    std::int16_t end;
    bool pen;
};

/// Draws exact figures of one pixel's grain straight into 32-bit pixels.
///
/// It exists since the platform's painter decides for itself which end of a line it leaves out, and
/// spends most of its time on set-up when thousands of small figures are drawn. Coordinates are
/// relative to an origin; nothing is drawn outside the clip. Pixels are opaque, 0xffRRGGBB.
class RasterSurface {
public:
    /// `bits` is the pixel (0, 0) of the memory, `clip` is in its coordinates; the memory is not owned.
    RasterSurface(std::uint32_t* bits, std::ptrdiff_t pixelsPerRow, PixelBox clip, int originX, int originY)
        : bits_(bits), pixelsPerRow_(pixelsPerRow), clip_(clip), originX_(originX), originY_(originY) {}

    void FillBox(PixelBox box, std::uint32_t color);
    /// From the first point up to and without the last one.
    void Line(int x1, int y1, int x2, int y2, std::uint32_t color, DashPattern& pattern);
    /// A figure at (x, y).
    void Figure(std::vector<FigureSpan> const& spans, int x, int y, std::uint32_t pen, std::uint32_t brush);

private:
    std::uint32_t* Row(int y) const { return bits_ + y * pixelsPerRow_; }

    std::uint32_t* bits_;
    std::ptrdiff_t pixelsPerRow_;
    PixelBox clip_;
    int originX_;
    int originY_;
};

} // namespace GUI
