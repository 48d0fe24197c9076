#pragma once

#include "gui/platform/PixelSurface.h"
#include "gui/platform/SmoothRaster.h"

#include <cstddef>

namespace GUI {

/// Draws straight into 32-bit pixels, since the platform's painter spends most of its time on set-up when
/// thousands of small figures are drawn. Nothing is drawn outside the clip.
class RasterSurface final : public PixelSurface {
public:
    /// `bits` is the pixel (0, 0) of the memory, which is not owned; the boxes of `clip` are in it and don't
    /// overlap.
    RasterSurface(std::uint32_t* bits, std::ptrdiff_t pixelsPerRow, std::vector<PixelBox> clip)
        : bits_(bits), pixelsPerRow_(pixelsPerRow), clip_(std::move(clip)) {}

    void FillBox(PixelBox box, std::uint32_t color) override;
    void Line(PixelPoint from, PixelPoint to, int size, std::uint32_t color, DashPattern& pattern) override;
    void WideLine(SmoothPoint from, SmoothPoint to, double width, std::uint32_t color) override;
    void Figure(std::vector<FigureSpan> const& spans, int x, int y, std::uint32_t pen,
                std::uint32_t brush) override;
    /// For figures with antialiasing; to be used while this lives.
    SmoothRaster GetSmooth() const { return {bits_, pixelsPerRow_, clip_}; }

private:
    std::uint32_t* Row(int y) const { return bits_ + y * pixelsPerRow_; }

    std::uint32_t* bits_;
    std::ptrdiff_t pixelsPerRow_;
    std::vector<PixelBox> clip_;
};

} // namespace GUI
