#include "gui/platform/RasterSurface.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace GUI {

namespace {

/// In blocks of four pixels, the last of which overlaps the one before: boxes are often narrow, and what
/// compilers make of `std::fill` spends more on the ends than on the pixels.
void FillRow(std::uint32_t* pixels, int count, std::uint32_t color) {
    if (count < 4) {
        std::fill_n(pixels, count, color);
        return;
    }
    std::uint32_t const block[4] = {color, color, color, color};
    for (int at = 0; at + 4 < count; at += 4) std::memcpy(pixels + at, block, sizeof(block));
    std::memcpy(pixels + count - 4, block, sizeof(block));
}

} // namespace

void RasterSurface::FillBox(PixelBox box, std::uint32_t color) {
    int const left = std::max(box.left + originX_, clip_.left);
    int const right = std::min(box.right + originX_, clip_.right);
    int const top = std::max(box.top + originY_, clip_.top);
    int const bottom = std::min(box.bottom + originY_, clip_.bottom);
    if (left >= right) return;
    std::uint32_t* row = Row(top) + left;
    for (int y = top; y < bottom; ++y, row += pixelsPerRow_) FillRow(row, right - left, color);
}

void RasterSurface::Line(int x1, int y1, int x2, int y2, std::uint32_t color, DashPattern& pattern) {
    int x = x1 + originX_;
    int y = y1 + originY_;
    int const endX = x2 + originX_;
    int const endY = y2 + originY_;
    int const dx = std::abs(endX - x);
    int const dy = -std::abs(endY - y);
    int const stepX = x < endX ? 1 : -1;
    int const stepY = y < endY ? 1 : -1;
    int const length = std::max(dx, -dy);
    int const period = pattern.on + pattern.off;
    bool const inside = clip_.Contains(x, y) && clip_.Contains(endX, endY);
    // Bresenham's error term: positive leans to x, negative to y.
    int error = dx + dy;
    if (inside && pattern.off == 0) {
        std::uint32_t* pixel = Row(y) + x;
        std::ptrdiff_t const rowStep = stepY * pixelsPerRow_;
        for (int i = 0; i < length; ++i) {
            *pixel = color;
            int const doubled = 2 * error;
            if (doubled >= dy) {
                error += dy;
                pixel += stepX;
            }
            if (doubled <= dx) {
                error += dx;
                pixel += rowStep;
            }
        }
        return;
    }
    for (int i = 0; i < length; ++i) {
        if (pattern.phase < pattern.on && clip_.Contains(x, y)) Row(y)[x] = color;
        if (++pattern.phase >= period) pattern.phase = 0;
        int const doubled = 2 * error;
        if (doubled >= dy) {
            error += dy;
            x += stepX;
        }
        if (doubled <= dx) {
            error += dx;
            y += stepY;
        }
    }
}

void RasterSurface::Figure(std::vector<FigureSpan> const& spans, int x, int y, std::uint32_t pen,
                           std::uint32_t brush) {
    int const originX = x + originX_;
    int const originY = y + originY_;
    for (FigureSpan const& span : spans) {
        int const row = originY + span.y;
        if (row < clip_.top || row >= clip_.bottom) continue;
        int const begin = std::max(originX + span.begin, clip_.left);
        int const end = std::min(originX + span.end, clip_.right);
        std::uint32_t const color = span.pen ? pen : brush;
        std::uint32_t* const pixels = Row(row);
        for (int column = begin; column < end; ++column) pixels[column] = color;
    }
}

} // namespace GUI
