#pragma once

#include <algorithm>

namespace GUI {

/// A box of pixels; right and bottom are outside.
struct PixelBox {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool IsEmpty() const { return right <= left || bottom <= top; }
    int GetWidth() const { return right - left; }
    int GetHeight() const { return bottom - top; }
    bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
    bool Contains(PixelBox const& other) const {
        return other.left >= left && other.right <= right && other.top >= top && other.bottom <= bottom;
    }
    bool Meets(PixelBox const& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    PixelBox Intersected(PixelBox const& other) const {
        PixelBox const common{std::max(left, other.left), std::max(top, other.top),
                              std::min(right, other.right), std::min(bottom, other.bottom)};
        return common.IsEmpty() ? PixelBox() : common;
    }
    bool operator==(PixelBox const&) const = default;
};

} // namespace GUI
