#include "gui/platform/EllipseFigure.h"

#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <utility>

namespace GUI {

namespace {

struct Stretch {
    int begin = 0;
    int end = 0;
};

/// The pixels of one row whose centres are inside the ellipse of a box.
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

std::vector<FigureSpan> MakeFigure(int width, int height, int penSize, bool filled) {
    PixelBox const outer{0, 0, width, height};
    PixelBox const inner{penSize, penSize, width - penSize, height - penSize};
    std::vector<FigureSpan> spans;
    auto const add = [&spans](int y, int begin, int end, bool pen) {
        if (begin < end) spans.push_back({y, begin, end, pen});
    };
    for (int y = outer.top; y < outer.bottom; ++y) {
        Stretch const whole = Row(outer, y);
        Stretch const inside = Row(inner, y);
        if (inside.begin >= inside.end) {
            add(y, whole.begin, whole.end, penSize != 0);
            continue;
        }
        add(y, whole.begin, inside.begin, true);
        if (filled) add(y, inside.begin, inside.end, false);
        add(y, inside.end, whole.end, true);
    }
    return spans;
}

} // namespace

std::vector<FigureSpan> const& EllipseFigure(int width, int height, int penSize, bool filled) {
    static std::unordered_map<std::uint64_t, std::vector<FigureSpan>> figures;
    // Spots come in runs of one size.
    static std::uint64_t lastKey = ~std::uint64_t{0};
    static std::vector<FigureSpan> const* last = nullptr;
    auto const key = static_cast<std::uint64_t>(width) << 40U | static_cast<std::uint64_t>(height) << 20U |
                     static_cast<std::uint64_t>(penSize) << 1U | static_cast<std::uint64_t>(filled);
    if (last && key == lastKey) return *last;
    auto found = figures.find(key);
    if (found == figures.end()) {
        // Windows that are resized ask for many sizes once.
        constexpr std::size_t mostSpans = 500000;
        static std::size_t spans = 0;
        auto figure = MakeFigure(width, height, penSize, filled);
        spans += figure.size();
        if (spans > mostSpans) {
            figures.clear();
            spans = figure.size();
        }
        found = figures.emplace(key, std::move(figure)).first;
    }
    lastKey = key;
    last = &found->second;
    return *last;
}

} // namespace GUI
