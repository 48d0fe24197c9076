// Figures with antialiasing, written straight into the pixels. Without reachable memory the platform's
// painter draws them.
#include "gui/platform/Color_PC.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>

namespace GUI {

namespace {

constexpr double pi = std::numbers::pi;
using Contour = std::vector<SmoothPoint>;

/// A part of a circle or ellipse as a contour whose chords are nowhere further from it than can be seen.
/// Angles are radians, counter-clockwise on the screen.
void AddArc(Contour& contour, SmoothPoint center, double a, double b, double start, double sweep) {
    constexpr double farthestFromArc = 0.03;
    double const radius = std::max({a, b, farthestFromArc});
    double const step = 2 * std::acos(1 - farthestFromArc / std::max(radius, 2 * farthestFromArc));
    int const steps = std::max(static_cast<int>(std::ceil(std::abs(sweep) / step)), 1);
    // The next point is the last one turned by a fixed angle.
    double const sine = std::sin(sweep / steps);
    double const cosine = std::cos(sweep / steps);
    double x = std::cos(start);
    double y = std::sin(start);
    for (int i = 0; i <= steps; ++i) {
        contour.push_back({center.x + a * x, center.y - b * y});
        double const turned = x * cosine - y * sine;
        y = y * cosine + x * sine;
        x = turned;
    }
}

/// A sector whose three sides are moved outward by `away`; inward if that is negative. Empty if nothing is
/// left.
Contour Sector(SmoothPoint center, double radius, double start, double sweep, double away) {
    Contour contour;
    double const outer = radius + away;
    if (outer <= std::abs(away)) return contour;
    // Where a side that is moved meets the circle, as an angle beside the side's own.
    double const shift = std::asin(away / outer);
    double const half = sweep / 2;
    double const corner = -away / std::sin(half);
    if (corner >= outer * std::cos(half)) {
        bool const isThin = half < pi / 2;
        if (isThin && corner >= outer) return contour;
    }
    AddArc(contour, center, outer, outer, start - shift, sweep + 2 * shift);
    auto const beside = [&](double angle) {
        contour.push_back(
            {center.x + std::abs(away) * std::cos(angle), center.y - std::abs(away) * std::sin(angle)});
    };
    if (away > 0 && half < pi / 2) {
        // The pen is round in the corner, which would be far behind the center in a thin slice.
        beside(start + sweep + pi / 2);
        beside(start + half + pi);
        beside(start - pi / 2);
    } else {
        double const middle = start + half;
        contour.push_back({center.x + corner * std::cos(middle), center.y - corner * std::sin(middle)});
    }
    return contour;
}

void Reverse(Contour& contour) { std::reverse(contour.begin(), contour.end()); }

struct SmoothEllipse {
    SmoothRaster::Figure whole;
    SmoothRaster::Figure outline;
};

/// Of a box and a pen inside it. Spots come in runs of one size: the last figures are kept.
SmoothEllipse const& EllipseOf(int width, int height, int pen) {
    constexpr std::size_t most = 64;
    static std::map<std::array<int, 3>, SmoothEllipse> known;
    std::array<int, 3> const key{width, height, pen};
    if (auto const found = known.find(key); found != known.end()) return found->second;
    if (known.size() >= most) known.clear();
    SmoothEllipse& ellipse = known[key];
    SmoothPoint const center{width / 2.0, height / 2.0};
    Contour outer;
    AddArc(outer, center, center.x, center.y, 0, 2 * pi);
    SmoothRaster raster(nullptr, 0, {});
    raster.AddContour(outer);
    ellipse.whole = raster.TakeFigure();
    raster.AddContour(outer);
    if (pen < center.x && pen < center.y) {
        Contour inner;
        AddArc(inner, center, center.x - pen, center.y - pen, 0, 2 * pi);
        Reverse(inner);
        raster.AddContour(inner);
    }
    ellipse.outline = raster.TakeFigure();
    return ellipse;
}

} // namespace

bool PlatformIndependentDeviceContext_PC::IsSmooth() {
    if (!smooth_ || !Pixels() || !raster_) return false;
    return penStyle_ == solid || penStyle_ == noPen;
}

double PlatformIndependentDeviceContext_PC::PenBreadth() const { return HasPen() ? PenSize() : 0; }

SmoothPoint PlatformIndependentDeviceContext_PC::OnDevice(QPoint at) const {
    return {static_cast<double>(grid_.X(at.x())), static_cast<double>(grid_.Y(at.y()))};
}

SmoothPoint PlatformIndependentDeviceContext_PC::PenMiddleOnDevice(QPoint at) const {
    SmoothPoint const corner = OnDevice(at);
    // The odd pixel of a pen begins at the place; the others are on both sides.
    double const middle = penWidth_ % 2 != 0 ? grid_.Thickness(1) / 2.0 : 0;
    return {corner.x + middle, corner.y + middle};
}

bool PlatformIndependentDeviceContext_PC::DrawSmoothLines(std::span<QPoint const> points) {
    if (!IsSmooth()) return false;
    SmoothRaster const raster = raster_->GetSmooth();
    std::uint32_t const color = ToPixel(penColor_);
    SmoothPoint from = PenMiddleOnDevice(points.front());
    for (QPoint const& point : points.subspan(1)) {
        SmoothPoint const to = PenMiddleOnDevice(point);
        raster.Line(from, to, PenBreadth(), color);
        from = to;
    }
    return true;
}

bool PlatformIndependentDeviceContext_PC::DrawSmoothEllipse(short left, short top, short right, short bottom,
                                                            bool filled) {
    if (!IsSmooth()) return false;
    // As without antialiasing: the odd pixel of an even pen is outside on every side.
    long const before = HasPen() ? penWidth_ / 2 : 0;
    SmoothPoint const corner =
        OnDevice(QPoint(static_cast<int>(left - before), static_cast<int>(top - before)));
    SmoothPoint const end =
        OnDevice(QPoint(static_cast<int>(right + before), static_cast<int>(bottom + before)));
    SmoothRaster const raster = raster_->GetSmooth();
    auto const x = static_cast<int>(corner.x);
    auto const y = static_cast<int>(corner.y);
    int const pen = HasPen() ? PenSize() : 0;
    bool const isOneColor = filled && (!HasPen() || penColor_ == brushColor_);
    auto const& [whole, outline] =
        EllipseOf(static_cast<int>(end.x) - x, static_cast<int>(end.y) - y, isOneColor ? 0 : pen);
    if (filled) raster.Draw(whole, x, y, ToPixel(brushColor_));
    if (!isOneColor) raster.Draw(outline, x, y, ToPixel(penColor_));
    return true;
}

bool PlatformIndependentDeviceContext_PC::DrawSmoothArc(QPoint center, short radius, double startAngle,
                                                        double sweepAngle) {
    if (!IsSmooth()) return false;
    SmoothPoint const middle = OnDevice(center);
    double const onDevice = radius * grid_.scale;
    double const half = PenBreadth() / 2;
    double const start = startAngle * pi / 180;
    double const sweep = std::clamp(sweepAngle * pi / 180, -2 * pi, 2 * pi);
    Contour band;
    AddArc(band, middle, onDevice + half, onDevice + half, start, sweep);
    if (onDevice > half) AddArc(band, middle, onDevice - half, onDevice - half, start + sweep, -sweep);
    SmoothRaster raster = raster_->GetSmooth();
    raster.AddContour(band);
    raster.Fill(ToPixel(penColor_));
    return true;
}

bool PlatformIndependentDeviceContext_PC::FillSmoothPie(QPoint center, short radius, double startAngle,
                                                        double sweepAngle) {
    if (!IsSmooth()) return false;
    SmoothPoint const middle = OnDevice(center);
    double const onDevice = radius * grid_.scale;
    double const half = PenBreadth() / 2;
    double start = startAngle * pi / 180;
    double sweep = sweepAngle * pi / 180;
    if (sweep < 0) {
        start += sweep;
        sweep = -sweep;
    }
    // A full circle has no radii to outline.
    auto const sector = [&](double away) {
        Contour contour;
        if (sweep < 2 * pi)
            contour = Sector(middle, onDevice, start, sweep, away);
        else if (onDevice + away > 0)
            AddArc(contour, middle, onDevice + away, onDevice + away, 0, 2 * pi);
        return contour;
    };
    if (sweep == 0) return true;
    SmoothRaster raster = raster_->GetSmooth();
    Contour const whole = sector(half);
    bool const isOneColor = !HasPen() || penColor_ == brushColor_;
    if (!isOneColor) {
        raster.AddContour(sector(0));
        raster.Fill(ToPixel(brushColor_));
    }
    raster.AddContour(whole);
    if (!isOneColor) {
        Contour inner = sector(-half);
        Reverse(inner);
        raster.AddContour(inner);
    }
    raster.Fill(ToPixel(HasPen() ? penColor_ : brushColor_));
    return true;
}

bool PlatformIndependentDeviceContext_PC::FillSmoothPolygon(std::span<QPoint const> corners) {
    if (!IsSmooth()) return false;
    Contour contour;
    for (QPoint const& corner : corners) contour.push_back(OnDevice(corner));
    SmoothRaster raster = raster_->GetSmooth();
    raster.AddContour(contour);
    raster.Fill(ToPixel(brushColor_));
    return true;
}

} // namespace GUI
