#include "tests/support/PixelCanvas.h"

#include <algorithm>
#include <cstdlib>

namespace TestSupport {

namespace {

std::uint32_t Rgb(GUI::RGBVector const& color) {
    return (std::uint32_t{color.GetRed()} << 16U) | (std::uint32_t{color.GetGreen()} << 8U) | color.GetBlue();
}

} // namespace

void PixelCanvas::Set(int x, int y, std::uint32_t color) {
    if (x >= 0 && x < width_ && y >= 0 && y < height_)
        pixels_[static_cast<std::size_t>(y) * width_ + x] = color;
}

void PixelCanvas::Stamp(int x, int y) {
    int const before = penWidth_ / 2;
    for (int row = y - before; row < y - before + penWidth_; ++row)
        for (int column = x - before; column < x - before + penWidth_; ++column) Set(column, row, penColor_);
}

void PixelCanvas::SetPen(GUI::RGBVector const& color, long width, long style) {
    penColor_ = Rgb(color);
    penWidth_ = std::max(1, static_cast<int>(width));
    hasPen_ = style != noPen;
}

void PixelCanvas::SetBrush(GUI::RGBVector const& color) { brushColor_ = Rgb(color); }

void PixelCanvas::MoveTo(short x, short y) {
    x_ = x;
    y_ = y;
}

void PixelCanvas::LineTo(short x, short y) {
    DrawLine(static_cast<short>(x_), static_cast<short>(y_), x, y);
    MoveTo(x, y);
}

void PixelCanvas::DrawLine(short x1, short y1, short x2, short y2) {
    int const dx = std::abs(x2 - x1);
    int const dy = -std::abs(y2 - y1);
    int error = dx + dy;
    for (int x = x1, y = y1; hasPen_ && (x != x2 || y != y2);) {
        Stamp(x, y);
        int const doubled = 2 * error;
        if (doubled >= dy) error += dy, x += x1 < x2 ? 1 : -1;
        if (doubled <= dx) error += dx, y += y1 < y2 ? 1 : -1;
    }
}

void PixelCanvas::DrawRectangle(short left, short top, short right, short bottom) {
    if (!hasPen_ || right <= left || bottom <= top) return;
    for (int x = left; x < right; ++x) Stamp(x, top), Stamp(x, bottom - 1);
    for (int y = top; y < bottom; ++y) Stamp(left, y), Stamp(right - 1, y);
}

void PixelCanvas::FillRectangle(short left, short top, short right, short bottom) {
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x) Set(x, y, brushColor_);
    DrawRectangle(left, top, right, bottom);
}

void PixelCanvas::Ellipse(int left, int top, int right, int bottom, bool filled) {
    // In half pixels: a pixel belongs to the ellipse if its centre does.
    double const rx = right - left;
    double const ry = bottom - top;
    auto const inside = [&](int x, int y) {
        double const dx = (2 * x + 1 - left - right) / rx;
        double const dy = (2 * y + 1 - top - bottom) / ry;
        return dx * dx + dy * dy <= 1;
    };
    for (int y = top; filled && y < bottom; ++y)
        for (int x = left; x < right; ++x)
            if (inside(x, y)) Set(x, y, brushColor_);
    for (int y = top; hasPen_ && y < bottom; ++y)
        for (int x = left; x < right; ++x)
            if (inside(x, y) &&
                !(inside(x - 1, y) && inside(x + 1, y) && inside(x, y - 1) && inside(x, y + 1)))
                Stamp(x, y);
}

void PixelCanvas::DrawEllipse(short left, short top, short right, short bottom) {
    Ellipse(left, top, right, bottom, false);
}
void PixelCanvas::FillEllipse(short left, short top, short right, short bottom) {
    Ellipse(left, top, right, bottom, true);
}

} // namespace TestSupport
