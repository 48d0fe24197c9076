#pragma once

#include "gui/platform/PixelBox.h"

#include <cstdint>
#include <span>
#include <vector>

namespace GUI {

struct PixelPoint {
    int x = 0;
    int y = 0;

    bool operator==(PixelPoint const&) const = default;
};

/// A place between pixels; whole numbers are the edges between them.
struct SmoothPoint {
    double x = 0;
    double y = 0;
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
    int y;
    int begin;
    int end;
    bool pen;
};

/// The pixels of a wide line, in columns or, if it is steep, in rows: those whose centres the pen covers.
/// Places along the runs are in parts of `one`, so that walking takes no rounding.
struct WideRuns {
    static constexpr int fraction = 24;
    static constexpr std::int64_t one = std::int64_t{1} << fraction;

    /// No run for a line without length. The last one is left out.
    WideRuns(SmoothPoint from, SmoothPoint to, double width);

    /// Visits each run with its first pixel and the one behind its last.
    template <class Visit> void Walk(Visit visit) const {
        std::int64_t begin = low;
        std::int64_t end = high;
        for (int run = first; run < last; ++run, begin += step, end += step)
            visit(run, static_cast<int>(begin >> fraction), static_cast<int>(end >> fraction));
    }

    bool isLevel = true;
    int first = 0;
    int last = 0;
    std::int64_t low = 0;
    std::int64_t high = 0;
    std::int64_t step = 0;
};

/// Draws exact figures pixel by pixel, out of boxes. Coordinates are the device's own pixels, colours are
/// 0xffRRGGBB.
///
/// It exists since the platform's painter decides for itself which end of a line it leaves out and where
/// an outline is.
class PixelSurface {
public:
    PixelSurface() = default;
    PixelSurface(PixelSurface const&) = default;
    PixelSurface& operator=(PixelSurface const&) = default;
    virtual ~PixelSurface() = default;

    virtual void FillBox(PixelBox box, std::uint32_t color) = 0;
    virtual void FillBoxes(std::span<PixelBox const> boxes, std::uint32_t color);
    /// The pen is a square of `size` pixels. Its upper left corner moves from the first point to the last,
    /// where nothing is drawn any more.
    virtual void Line(PixelPoint from, PixelPoint to, int size, std::uint32_t color, DashPattern& pattern);
    /// The middle of the pen goes from one place to the other; pixels count whose centres it covers. The last
    /// column, or row of a steep line, is left out.
    virtual void WideLine(SmoothPoint from, SmoothPoint to, double width, std::uint32_t color);
    /// A figure at (x, y).
    virtual void Figure(std::vector<FigureSpan> const& spans, int x, int y, std::uint32_t pen,
                        std::uint32_t brush);
    /// The pixels whose centres are inside a polygon, by the odd-even rule; points are corners of pixels.
    void Polygon(std::span<PixelPoint const> points, std::uint32_t color);

private:
    /// The pieces of the figure that is being drawn.
    std::vector<PixelBox> pieces_;
};

/// Visits the places of a line's pen by Bresenham's rule, from the first up to and without the last.
template <class Visit> void WalkLine(PixelPoint from, PixelPoint to, Visit visit) {
    int const dx = from.x < to.x ? to.x - from.x : from.x - to.x;
    int const dy = from.y < to.y ? from.y - to.y : to.y - from.y;
    int const stepX = from.x < to.x ? 1 : -1;
    int const stepY = from.y < to.y ? 1 : -1;
    // The error term: positive leans to x, negative to y.
    int error = dx + dy;
    PixelPoint at = from;
    for (int left = dx > -dy ? dx : -dy; left > 0; --left) {
        visit(at);
        int const doubled = 2 * error;
        if (doubled >= dy) {
            error += dy;
            at.x += stepX;
        }
        if (doubled <= dx) {
            error += dx;
            at.y += stepY;
        }
    }
}

} // namespace GUI
