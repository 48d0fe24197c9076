#include "gui/platform/PixelSurface.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace GUI {

void PixelSurface::FillBoxes(std::span<PixelBox const> boxes, std::uint32_t color) {
    for (PixelBox const& box : boxes) FillBox(box, color);
}

void PixelSurface::Line(PixelPoint from, PixelPoint to, int size, std::uint32_t color, DashPattern& pattern) {
    bool const isLevel = std::abs(to.x - from.x) >= std::abs(to.y - from.y);
    // A pen that moves backward leaves out its own far side at the end, and has it at the beginning.
    int const shift = (isLevel ? to.x < from.x : to.y < from.y) ? size - 1 : 0;
    int const period = pattern.on + pattern.off;
    pieces_.clear();
    PixelBox run;
    auto const flush = [&] {
        if (!run.IsEmpty()) pieces_.push_back(run);
        run = {};
    };
    WalkLine(from, to, [&](PixelPoint at) {
        bool const on = pattern.off == 0 || pattern.phase < pattern.on;
        if (++pattern.phase >= period) pattern.phase = 0;
        if (!on) {
            flush();
            return;
        }
        PixelBox const next = isLevel ? PixelBox{at.x + shift, at.y, at.x + shift + 1, at.y + size}
                                      : PixelBox{at.x, at.y + shift, at.x + size, at.y + shift + 1};
        bool const goesOn = !run.IsEmpty() && (isLevel ? next.top == run.top : next.left == run.left);
        if (!goesOn) {
            flush();
            run = next;
            return;
        }
        run = {std::min(run.left, next.left), std::min(run.top, next.top), std::max(run.right, next.right),
               std::max(run.bottom, next.bottom)};
    });
    flush();
    FillBoxes(pieces_, color);
}

WideRuns::WideRuns(SmoothPoint from, SmoothPoint to, double width) {
    double const dx = to.x - from.x;
    double const dy = to.y - from.y;
    isLevel = std::abs(dx) >= std::abs(dy);
    if (isLevel ? dx == 0 : dy == 0) return;
    double const begin = isLevel ? from.x : from.y;
    double const end = isLevel ? to.x : to.y;
    double const slope = isLevel ? dy / dx : dx / dy;
    double const half = width * std::sqrt(1 + slope * slope) / 2;
    // The run in which the line begins belongs to it, the one in which it ends to the next line.
    int const backward = end < begin ? 1 : 0;
    first = static_cast<int>(std::floor(std::min(begin, end))) + backward;
    last = static_cast<int>(std::floor(std::max(begin, end))) + backward;
    double const middle = (isLevel ? from.y : from.x) + (first + 0.5 - begin) * slope;
    auto const fixed = [](double value) { return static_cast<std::int64_t>(std::floor(value * one)); };
    // From a centre's place upward to the next centre.
    low = fixed(middle - half - 0.5) + one - 1;
    high = fixed(middle + half - 0.5) + one - 1;
    step = fixed(slope + 0.5 / one);
}

void PixelSurface::WideLine(SmoothPoint from, SmoothPoint to, double width, std::uint32_t color) {
    pieces_.clear();
    WideRuns const runs(from, to, width);
    runs.Walk([&](int run, int low, int high) {
        PixelBox const box =
            runs.isLevel ? PixelBox{run, low, run + 1, high} : PixelBox{low, run, high, run + 1};
        PixelBox* const before = pieces_.empty() ? nullptr : &pieces_.back();
        if (before && runs.isLevel && before->top == low && before->bottom == high)
            before->right = box.right;
        else if (before && !runs.isLevel && before->left == low && before->right == high)
            before->bottom = box.bottom;
        else
            pieces_.push_back(box);
    });
    FillBoxes(pieces_, color);
}

void PixelSurface::Figure(std::vector<FigureSpan> const& spans, int x, int y, std::uint32_t pen,
                          std::uint32_t brush) {
    for (FigureSpan const& span : spans)
        FillBox({x + span.begin, y + span.y, x + span.end, y + span.y + 1}, span.pen ? pen : brush);
}

void PixelSurface::Polygon(std::span<PixelPoint const> points, std::uint32_t color) {
    if (points.empty()) return;
    auto const [highest, lowest] = std::minmax_element(
        points.begin(), points.end(), [](PixelPoint const& a, PixelPoint const& b) { return a.y < b.y; });
    pieces_.clear();
    std::vector<double> crossings;
    for (int y = highest->y; y < lowest->y; ++y) {
        crossings.clear();
        double const middle = y + 0.5;
        PixelPoint before = points.back();
        for (PixelPoint const& point : points) {
            if ((before.y <= y) != (point.y <= y))
                crossings.push_back(before.x +
                                    (middle - before.y) * (point.x - before.x) / (point.y - before.y));
            before = point;
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            PixelBox const run{static_cast<int>(std::ceil(crossings[i] - 0.5)), y,
                               static_cast<int>(std::ceil(crossings[i + 1] - 0.5)), y + 1};
            if (!run.IsEmpty()) pieces_.push_back(run);
        }
    }
    FillBoxes(pieces_, color);
}

} // namespace GUI
