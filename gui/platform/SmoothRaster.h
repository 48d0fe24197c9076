#pragma once

#include "gui/platform/PixelSurface.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace GUI {

/// Draws with antialiasing straight into 32-bit pixels: each pixel takes the share of the colour that the
/// figure covers of it. Nothing is drawn outside the clip.
///
/// The platform's painter spends most of its time on making outlines of lines and on set-up; lines here are
/// runs across the pen, and figures are spans between the touched pixels of a row.
class SmoothRaster {
public:
    SmoothRaster(std::uint32_t* bits, std::ptrdiff_t pixelsPerRow, std::span<PixelBox const> clip)
        : bits_(bits), pixelsPerRow_(pixelsPerRow), clip_(clip) {}

    /// The pen's middle goes from one place to the other. The last column, or row of a steep line, is left
    /// out, so that the lines of a curve meet without a pixel drawn twice.
    void Line(SmoothPoint from, SmoothPoint to, double width, std::uint32_t color) const;

    /// A closed contour of the figure that `Fill` will draw. Contours that turn the other way are holes;
    /// where those of one direction overlap, the figure is their union.
    void AddContour(std::span<SmoothPoint const> points);
    void Fill(std::uint32_t color);

    /// A stretch of a row of which a figure covers the same share everywhere, in parts of 256.
    struct Run {
        int y;
        int begin;
        int end;
        std::uint32_t share;
    };
    using Figure = std::vector<Run>;
    /// What `Fill` would draw without a clip, to be drawn many times.
    Figure TakeFigure();
    void Draw(Figure const& figure, int x, int y, std::uint32_t color) const;

private:
    template <class Visitor> void Visit(PixelBox const& clip, Visitor visitor) const;
    std::uint32_t* Row(int y) const { return bits_ + y * pixelsPerRow_; }

    std::uint32_t* bits_;
    std::ptrdiff_t pixelsPerRow_;
    std::span<PixelBox const> clip_;

    struct Edge {
        SmoothPoint from;
        SmoothPoint to;
    };
    std::vector<Edge> edges_;
};

} // namespace GUI
