// Lines of the device context.
#include "gui/platform/Color_PC.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace GUI {

namespace {

bool IsLevel(QPoint from, QPoint to) { return from.y() == to.y(); }
bool IsParallelToAxis(QPoint from, QPoint to) { return IsLevel(from, to) || from.x() == to.x(); }

} // namespace

void PlatformIndependentDeviceContext_PC::MoveTo(short x, short y) {
    FlushLines();
    lines_.assign(1, QPoint(x, y));
}

void PlatformIndependentDeviceContext_PC::LineTo(short x, short y) {
    if (lines_.empty()) lines_.emplace_back(0, 0);
    lines_.emplace_back(x, y);
}

void PlatformIndependentDeviceContext_PC::FlushLines() {
    if (lines_.size() > 1 && HasPen()) DrawLines(lines_);
    // The current position stays where the last line ended.
    if (lines_.size() > 1) lines_.erase(lines_.begin(), lines_.end() - 1);
}

void PlatformIndependentDeviceContext_PC::DrawLine(short x1, short y1, short x2, short y2) {
    FlushLines();
    if (!HasPen() || (x1 == x2 && y1 == y2)) return;
    QPoint const ends[] = {{x1, y1}, {x2, y2}};
    DrawLines(ends);
}

void PlatformIndependentDeviceContext_PC::DrawLines(std::span<QPoint const> points) {
    long const stroke = StrokeWidth(penWidth_, penStyle_);
    if (stroke != penWidth_) {
        long const width = std::exchange(penWidth_, stroke);
        DrawStroke(points);
        penWidth_ = width;
    } else {
        DrawStroke(points);
    }
}

void PlatformIndependentDeviceContext_PC::DrawStroke(std::span<QPoint const> points) {
    PixelSurface* const pixels = Pixels();
    bool const isStraight = points.size() == 2 && IsParallelToAxis(points[0], points[1]);
    if (!isStraight && DrawSmoothLines(points)) return;
    if (pixels && IsThinPen() && (isStraight || !smooth_)) {
        DashPattern pattern = NewPattern();
        std::uint32_t const color = ToPixel(penColor_);
        int const size = PenSize();
        PixelPoint from{grid_.X(points[0].x()), grid_.Y(points[0].y())};
        for (QPoint const& point : points.subspan(1)) {
            PixelPoint const to{grid_.X(point.x()), grid_.Y(point.y())};
            pixels->Line(from, to, size, color, pattern);
            from = to;
        }
        return;
    }
    if (pixels && isStraight && penStyle_ == solid) {
        DrawWideLine(*pixels, points[0], points[1]);
        return;
    }
    if (pixels && penStyle_ == solid && !smooth_) {
        DrawWideLines(*pixels, points);
        return;
    }
    QPainter& painter = PainterWithPen(Qt::RoundJoin, false);
    std::vector<QPointF> middles;
    middles.reserve(points.size());
    for (QPoint const& point : points) middles.push_back(PenMiddle(point));
    if (isStraight && !HasGrid()) {
        // From edge to edge, as a pen without an end of its own draws it.
        bool const isLevel = IsLevel(points[0], points[1]);
        for (std::size_t i = 0; i < 2; ++i)
            (isLevel ? middles[i].rx() : middles[i].ry()) = isLevel ? points[i].x() : points[i].y();
    }
    painter.drawPolyline(middles.data(), static_cast<int>(middles.size()));
}

void PlatformIndependentDeviceContext_PC::DrawWideLines(PixelSurface& pixels,
                                                        std::span<QPoint const> points) {
    std::uint32_t const color = ToPixel(penColor_);
    int const size = PenSize();
    SmoothPoint from = PenMiddleOnDevice(points.front());
    bool wasLevel = false;
    for (std::size_t i = 1; i < points.size(); ++i) {
        SmoothPoint const to = PenMiddleOnDevice(points[i]);
        bool const isLevel = std::abs(to.x - from.x) >= std::abs(to.y - from.y);
        // Runs across the pen leave a notch where they turn from columns to rows.
        if (i > 1 && isLevel != wasLevel) {
            int const left = DeviceGrid::Nearest(from.x - size / 2.0);
            int const top = DeviceGrid::Nearest(from.y - size / 2.0);
            pixels.FillBox({left, top, left + size, top + size}, color);
        }
        pixels.WideLine(from, to, size, color);
        from = to;
        wasLevel = isLevel;
    }
}

void PlatformIndependentDeviceContext_PC::DrawWideLine(PixelSurface& pixels, QPoint from, QPoint to) {
    long const before = penWidth_ / 2;
    int const size = PenSize();
    int const step = grid_.Thickness(1);
    // The ends are those of a pen of one pixel.
    auto const ends = [step](int first, int last) {
        return first < last ? std::pair(first, last) : std::pair(last + step, first + step);
    };
    if (IsLevel(from, to)) {
        auto const [left, right] = ends(grid_.X(from.x()), grid_.X(to.x()));
        int const top = grid_.Y(from.y() - before);
        pixels.FillBox({left, top, right, top + size}, ToPixel(penColor_));
    } else {
        auto const [top, bottom] = ends(grid_.Y(from.y()), grid_.Y(to.y()));
        int const left = grid_.X(from.x() - before);
        pixels.FillBox({left, top, left + size, bottom}, ToPixel(penColor_));
    }
}

} // namespace GUI
