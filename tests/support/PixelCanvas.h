#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <cstdint>
#include <vector>

namespace TestSupport {

/// A surface of pixels that follows the device context's conventions for solid lines, rectangles and
/// ellipses, so that two ways of drawing can be compared by their pictures. Text, images, arcs and
/// polygons leave no pixels.
class PixelCanvas : public GUI::PlatformIndependentDeviceContext {
public:
    PixelCanvas(int width, int height)
        : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * height, 0xFFFFFF) {}

    /// 0xRRGGBB by rows; white at first.
    std::vector<std::uint32_t> const& GetPixels() const { return pixels_; }
    std::uint32_t At(int x, int y) const { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }

    GUI::RGBVector SetBackgroundColor(GUI::RGBVector const& color) override { return color; }
    GUI::RGBVector SetTextColor(GUI::RGBVector const& color) override { return color; }
    void SetPen(GUI::RGBVector const& color, long width, long style) override;
    void SetBrush(GUI::RGBVector const& color) override;
    void SetFont(short, short, short, Utilities::String const&, short) override {}
    void MoveTo(short x, short y) override;
    void LineTo(short x, short y) override;
    void DrawLine(short x1, short y1, short x2, short y2) override;
    void DrawRectangle(short left, short top, short right, short bottom) override;
    void FillRectangle(short left, short top, short right, short bottom) override;
    void DrawEllipse(short left, short top, short right, short bottom) override;
    void FillEllipse(short left, short top, short right, short bottom) override;
    void DrawArc(short, short, short, float, float) override {}
    void FillPie(short, short, short, float, float) override {}
    void DrawPolygon(Points) override {}
    void FillPolygon(Points) override {}
    void DrawImage(short, short, Utilities::String const&) override {}
    void DrawText(short, short, Utilities::String const&) override {}
    void DrawPixels(short, short, short, short, std::span<std::uint32_t const>, long) override {}
    void GetTextExtent(Utilities::String const&, long& width, long& height) override { width = height = 0; }

private:
    void Set(int x, int y, std::uint32_t color);
    /// The pen's square around a point; the odd pixel of an even width is above and to the left.
    void Stamp(int x, int y);
    void Ellipse(int left, int top, int right, int bottom, bool filled);

    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
    std::uint32_t penColor_ = 0;
    int penWidth_ = 1;
    bool hasPen_ = true;
    std::uint32_t brushColor_ = 0;
    int x_ = 0;
    int y_ = 0;
};

} // namespace TestSupport
