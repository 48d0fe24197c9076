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

bool HoldsPen(PixelBox const& clip, PixelPoint at, int size) {
    return clip.Contains(at.x, at.y) && clip.Contains(at.x + size - 1, at.y + size - 1);
}

} // namespace

void RasterSurface::FillBox(PixelBox box, std::uint32_t color) {
    for (PixelBox const& clip : clip_) {
        int const left = std::max(box.left, clip.left);
        int const right = std::min(box.right, clip.right);
        int const top = std::max(box.top, clip.top);
        int const bottom = std::min(box.bottom, clip.bottom);
        if (left >= right) continue;
        std::uint32_t* row = Row(top) + left;
        for (int y = top; y < bottom; ++y, row += pixelsPerRow_) FillRow(row, right - left, color);
    }
}

void RasterSurface::Line(PixelPoint from, PixelPoint to, int size, std::uint32_t color,
                         DashPattern& pattern) {
    bool const inside =
        clip_.size() == 1 && HoldsPen(clip_.front(), from, size) && HoldsPen(clip_.front(), to, size);
    if (!inside || pattern.off != 0) {
        PixelSurface::Line(from, to, size, color, pattern);
        return;
    }
    // Curves are thousands of lines of a few pixels: no clipping and no boxes.
    bool const isLevel = std::abs(to.x - from.x) >= std::abs(to.y - from.y);
    int const shift = (isLevel ? to.x < from.x : to.y < from.y) ? size - 1 : 0;
    std::ptrdiff_t const across = isLevel ? pixelsPerRow_ : 1;
    std::uint32_t* const first = bits_ + (isLevel ? shift : shift * pixelsPerRow_);
    if (size == 1)
        WalkLine(from, to, [=, this](PixelPoint at) { first[at.y * pixelsPerRow_ + at.x] = color; });
    else
        WalkLine(from, to, [=, this](PixelPoint at) {
            std::uint32_t* pixel = first + at.y * pixelsPerRow_ + at.x;
            for (int i = 0; i < size; ++i, pixel += across) *pixel = color;
        });
}

void RasterSurface::WideLine(SmoothPoint from, SmoothPoint to, double width, std::uint32_t color) {
    WideRuns const runs(from, to, width);
    for (PixelBox const& clip : clip_) {
        int const begin = runs.isLevel ? clip.left : clip.top;
        int const end = runs.isLevel ? clip.right : clip.bottom;
        int const least = runs.isLevel ? clip.top : clip.left;
        int const most = runs.isLevel ? clip.bottom : clip.right;
        std::ptrdiff_t const along = runs.isLevel ? 1 : pixelsPerRow_;
        std::ptrdiff_t const across = runs.isLevel ? pixelsPerRow_ : 1;
        runs.Walk([&](int run, int low, int high) {
            if (run < begin || run >= end) return;
            int const last = std::min(high, most);
            std::uint32_t* pixel = bits_ + run * along + std::max(low, least) * across;
            for (int at = std::max(low, least); at < last; ++at, pixel += across) *pixel = color;
        });
    }
}

void RasterSurface::Figure(std::vector<FigureSpan> const& spans, int x, int y, std::uint32_t pen,
                           std::uint32_t brush) {
    for (PixelBox const& clip : clip_)
        for (FigureSpan const& span : spans) {
            int const row = y + span.y;
            if (row < clip.top || row >= clip.bottom) continue;
            int const begin = std::max(x + span.begin, clip.left);
            int const end = std::min(x + span.end, clip.right);
            std::uint32_t const color = span.pen ? pen : brush;
            std::uint32_t* const pixels = Row(row);
            for (int column = begin; column < end; ++column) pixels[column] = color;
        }
}

} // namespace GUI
