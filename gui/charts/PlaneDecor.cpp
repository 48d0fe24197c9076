#include "gui/charts/PlaneDecor.h"

#include "gui/charts/ScaleMap.h"
#include "gui/colour/HostScreen.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace GUI {

using Utilities::Anything;

namespace {

constexpr double pi = std::numbers::pi;
/// Lines and rings beyond these can't be told apart.
constexpr int mostRings = 100;
constexpr int mostHueLines = 360;

RGBVector const gridColor{ThemeRole::GridSurround, RGBVector(180, 180, 180)};
RGBVector const edgeColor{ThemeRole::Ink2, RGBVector(74, 74, 74)};
RGBVector const traceColor{ThemeRole::Ink3, RGBVector(140, 140, 140)};

struct Pixel {
    short x;
    short y;
};

Pixel ToPixel(ValuePlane const& plane, double x, double y) {
    return {ScaleMap::ToShort(plane.originX + x * plane.xUnit),
            ScaleMap::ToShort(plane.originY - y * plane.yUnit)};
}

} // namespace

void PlaneDecor::ReadAttributes(AttributeMap const& description) {
    AttributeReader const reader(description);
    rings_ = reader.Number(ringsAttribute);
    hueLines_ = reader.Number(hueLinesAttribute);
    hasGamutEdge_ = reader.Flag(gamutEdgeAttribute);
    if (hasGamutEdge_) FindGamutEdge();
}

void PlaneDecor::TakeGamutLightness(Anything const& value) {
    if (!value.IsValid() || !hasGamutEdge_) return;
    double const lightness = value.GetDouble();
    if (!(lightness >= 0 && lightness <= 100) || lightness == gamutLightness_) return;
    gamutLightness_ = lightness;
    FindGamutEdge();
}

void PlaneDecor::TakeTrace(Anything const& value) {
    if (!value.IsValid()) return;
    std::vector<Point> trace;
    for (Anything const& point : value.GetVectorOfAnythings()) {
        auto const& record = point.GetMapOfAnythings();
        auto const x = record.Find("XValue");
        auto const y = record.Find("YValue");
        if (x.IsValid() && y.IsValid())
            trace.emplace_back(x.GetValue().GetDouble(), y.GetValue().GetDouble());
    }
    trace_ = std::move(trace);
}

void PlaneDecor::FindGamutEdge() {
    auto screen = FindHostScreen();
    if (screen.IsNull()) screen = Utilities::MakeSmart<Tintorium::ScreenRGB>();
    // In each direction the last chroma before the first one that the screen can't show, by halving.
    constexpr std::size_t directions = 120;
    constexpr int halvings = 12;
    constexpr double farthest = 200;
    std::vector<double> near(directions);
    std::vector<double> far(directions, farthest);
    std::vector<double> lab(3 * directions);
    std::vector<Norvelian::ColorExchangeFormat::ScreenColour> shown(directions);
    auto const angle = [](std::size_t i) { return 2 * pi * static_cast<double>(i) / directions; };
    for (int round = 0; round < halvings; ++round) {
        for (std::size_t i = 0; i < directions; ++i) {
            double const chroma = (near[i] + far[i]) / 2;
            lab[3 * i] = gamutLightness_;
            lab[3 * i + 1] = chroma * std::cos(angle(i));
            lab[3 * i + 2] = chroma * std::sin(angle(i));
        }
        screen->GetTransform().Convert(lab, shown);
        for (std::size_t i = 0; i < directions; ++i)
            (shown[i].IsInGamut() ? near : far)[i] = (near[i] + far[i]) / 2;
    }
    edge_.clear();
    for (std::size_t i = 0; i < directions; ++i)
        edge_.emplace_back(near[i] * std::cos(angle(i)), near[i] * std::sin(angle(i)));
}

void PlaneDecor::Draw(PlatformIndependentDeviceContext& context, ValuePlane const& plane) const {
    auto const isUsable = [](double unit) { return std::isfinite(unit) && unit != 0; };
    if (!isUsable(plane.xUnit) || !isUsable(plane.yUnit)) return;
    // The corner that is farthest from zero.
    double const across =
        std::max(std::abs(plane.originX), std::abs(static_cast<double>(plane.paneWidth) - plane.originX));
    double const down =
        std::max(std::abs(plane.originY), std::abs(static_cast<double>(plane.paneHeight) - plane.originY));
    double const farthest = std::hypot(across / plane.xUnit, down / plane.yUnit);
    context.SetPen(gridColor, 1, PlatformIndependentDeviceContext::solid);
    if (rings_ > 0) DrawRings(context, plane, farthest);
    if (hueLines_ > 0) DrawHueLines(context, plane, farthest);
    if (!edge_.empty()) {
        context.SetPen(edgeColor, 1, PlatformIndependentDeviceContext::solid);
        Pixel const last = ToPixel(plane, edge_.back().first, edge_.back().second);
        context.MoveTo(last.x, last.y);
        for (Point const& point : edge_) {
            Pixel const place = ToPixel(plane, point.first, point.second);
            context.LineTo(place.x, place.y);
        }
    }
    if (!trace_.empty()) DrawTrace(context, plane);
}

void PlaneDecor::DrawRings(PlatformIndependentDeviceContext& context, ValuePlane const& plane,
                           double farthest) const {
    for (int i = 1; i <= mostRings && i * rings_ <= farthest; ++i) {
        Pixel const upperLeft = ToPixel(plane, -i * rings_, i * rings_);
        Pixel const lowerRight = ToPixel(plane, i * rings_, -i * rings_);
        context.DrawEllipse(std::min(upperLeft.x, lowerRight.x), std::min(upperLeft.y, lowerRight.y),
                            ScaleMap::ToShort(std::max(upperLeft.x, lowerRight.x) + 1),
                            ScaleMap::ToShort(std::max(upperLeft.y, lowerRight.y) + 1));
    }
}

void PlaneDecor::DrawHueLines(PlatformIndependentDeviceContext& context, ValuePlane const& plane,
                              double farthest) const {
    Pixel const zero = ToPixel(plane, 0, 0);
    for (int i = 0; i < mostHueLines && i * hueLines_ < 360; ++i) {
        double const angle = i * hueLines_ * pi / 180;
        Pixel const end = ToPixel(plane, farthest * std::cos(angle), farthest * std::sin(angle));
        context.DrawLine(zero.x, zero.y, end.x, end.y);
    }
}

void PlaneDecor::DrawTrace(PlatformIndependentDeviceContext& context, ValuePlane const& plane) const {
    constexpr int radius = 3;
    context.SetPen(traceColor, 1, PlatformIndependentDeviceContext::solid);
    context.SetBrush(traceColor);
    bool isFirst = true;
    for (Point const& point : trace_) {
        Pixel const place = ToPixel(plane, point.first, point.second);
        if (isFirst)
            context.MoveTo(place.x, place.y);
        else
            context.LineTo(place.x, place.y);
        isFirst = false;
    }
    for (Point const& point : trace_) {
        Pixel const place = ToPixel(plane, point.first, point.second);
        context.FillEllipse(ScaleMap::ToShort(place.x - radius), ScaleMap::ToShort(place.y - radius),
                            ScaleMap::ToShort(place.x + radius), ScaleMap::ToShort(place.y + radius));
    }
}

} // namespace GUI
