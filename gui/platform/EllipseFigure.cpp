#include "gui/platform/EllipseFigure.h"

#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace GUI {

namespace {

struct Stretch {
    int begin = 0;
    int end = 0;
};

/// The pixels of one row whose centres lie inside the ellipse of a box.
Stretch Row(PixelBox const& box, int y) {
    double const a = (box.right - box.left) / 2.0;
    double const b = (box.bottom - box.top) / 2.0;
    if (a <= 0 || y < box.top || y >= box.bottom) return {};
    double const centre = box.left + a;
    double const fromCentre = (y + 0.5 - (box.top + b)) / b;
    double const half = a * std::sqrt(1 - fromCentre * fromCentre);
    return {static_cast<int>(std::ceil(centre - half - 0.5)),
            static_cast<int>(std::floor(centre + half - 0.5)) + 1};
}

std::vector<FigureSpan> MakeFigure(int width, int height, int penWidth, bool filled) {
    int const margin = penWidth / 2;
    PixelBox const outer{-margin, -margin, width + margin, height + margin};
    PixelBox const inner{outer.left + penWidth, outer.top + penWidth, outer.right - penWidth,
                         outer.bottom - penWidth};
    std::vector<FigureSpan> spans;
    auto const add = [&spans](int y, int begin, int end, bool pen) {
        if (begin < end)
            spans.push_back({static_cast<std::int16_t>(y), static_cast<std::int16_t>(begin),
                             static_cast<std::int16_t>(end), pen});
    };
    for (int y = outer.top; y < outer.bottom; ++y) {
        Stretch const whole = Row(outer, y);
        Stretch const inside = Row(inner, y);
        if (inside.begin >= inside.end) {
            add(y, whole.begin, whole.end, penWidth != 0);
            continue;
        }
        add(y, whole.begin, inside.begin, true);
        if (filled) add(y, inside.begin, inside.end, false);
        add(y, inside.end, whole.end, true);
    }
    return spans;
}

} // namespace

std::vector<FigureSpan> const& EllipseFigure(int width, int height, int penWidth, bool filled) {
    static std::unordered_map<std::uint64_t, std::vector<FigureSpan>> figures;
    // Spots come in runs of one size.
    static std::uint64_t lastKey = ~std::uint64_t{0};
    static std::vector<FigureSpan> const* last = nullptr;
    auto const key = static_cast<std::uint64_t>(width) << 40U | static_cast<std::uint64_t>(height) << 20U |
                     static_cast<std::uint64_t>(penWidth) << 1U | static_cast<std::uint64_t>(filled);
    if (last && key == lastKey) return *last;
    // Windows that are resized ask for many sizes once.
    constexpr std::size_t most = 500;
    if (figures.size() >= most) figures.clear();
    auto found = figures.find(key);
    if (found == figures.end())
        found = figures.emplace(key, MakeFigure(width, height, penWidth, filled)).first;
    lastKey = key;
    last = &found->second;
    return *last;
}

} // namespace GUI
