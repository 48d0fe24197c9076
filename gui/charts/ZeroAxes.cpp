#include "gui/charts/ZeroAxes.h"

#include "gui/charts/ScaleMap.h"
#include "gui/charts/ScaleNumbers.h"

#include <algorithm>
#include <cmath>

namespace GUI {

namespace {

constexpr short fontHeight = 9;
/// Half of a tick, without its middle pixel.
constexpr int halfTick = 2;
/// Of numbers: from their lines, and from the pane's edges.
constexpr long toLine = 3;
constexpr long toEdge = 4;
constexpr long mostParts = 8;
/// Room that a number takes along an axis.
constexpr long roomAcross = 44;
constexpr long roomDown = 28;

short Short(double value) { return ScaleMap::ToShort(value); }

double StepFor(long pixels, double unit, long room) {
    return ScaleNumbers::NiceStep(static_cast<double>(pixels) / std::abs(unit),
                                  static_cast<int>(std::clamp(pixels / room, 1L, mostParts)));
}

} // namespace

void DrawZeroAxes(PlatformIndependentDeviceContext& context, ValuePlane const& plane, RGBVector const& color,
                  std::optional<RGBVector> const& gridColor) {
    auto const isUsable = [](double unit) { return std::isfinite(unit) && unit != 0; };
    if (plane.paneWidth < 1 || plane.paneHeight < 1 || !isUsable(plane.xUnit) || !isUsable(plane.yUnit))
        return;
    double xStep = StepFor(plane.paneWidth, plane.xUnit, roomAcross);
    double yStep = StepFor(plane.paneHeight, plane.yUnit, roomDown);
    if (std::abs(plane.xUnit) == std::abs(plane.yUnit)) xStep = yStep = std::max(xStep, yStep);

    context.SetFont(fontHeight, 0, 0, "Arial", 0);
    RGBVector const formerText = context.SetTextColor(color);
    auto const width = static_cast<double>(plane.paneWidth);
    auto const height = static_cast<double>(plane.paneHeight);
    auto const onX = ScaleNumbers::Multiples(context, -plane.originX / plane.xUnit,
                                             (width - plane.originX) / plane.xUnit, xStep);
    auto const onY = ScaleNumbers::Multiples(context, (plane.originY - height) / plane.yUnit,
                                             plane.originY / plane.yUnit, yStep);
    auto const place = [&](ScaleNumbers::Number const& number, bool isX) {
        return Short(isX ? plane.originX + number.value * plane.xUnit
                         : plane.originY - number.value * plane.yUnit);
    };
    if (gridColor) {
        context.SetPen(*gridColor, 1, PlatformIndependentDeviceContext::solid);
        for (auto const& number : onX)
            context.DrawLine(place(number, true), 0, place(number, true), Short(height));
        for (auto const& number : onY)
            context.DrawLine(0, place(number, false), Short(width), place(number, false));
    }
    context.SetPen(color, 1, PlatformIndependentDeviceContext::solid);
    short const axisX = Short(std::clamp(plane.originX, 0.0, width - 1));
    short const axisY = Short(std::clamp(plane.originY, 0.0, height - 1));
    context.DrawLine(0, axisY, Short(width), axisY);
    context.DrawLine(axisX, 0, axisX, Short(height));
    long lowest = plane.paneHeight;
    for (auto const& number : onX) {
        short const x = place(number, true);
        context.DrawLine(x, Short(axisY - halfTick), x, Short(axisY + halfTick + 1));
        long const left = x + toLine;
        long const top = plane.paneHeight - toEdge - number.height;
        if (left + number.width > plane.paneWidth || top < 0) continue;
        context.DrawText(Short(static_cast<double>(left)), Short(static_cast<double>(top)), number.text);
        lowest = top;
    }
    for (auto const& number : onY) {
        short const y = place(number, false);
        context.DrawLine(Short(axisX - halfTick), y, Short(axisX + halfTick + 1), y);
        long const top = y - number.height;
        if (top < 0 || y > lowest || toEdge + number.width > plane.paneWidth) continue;
        context.DrawText(toEdge, Short(static_cast<double>(top)), number.text);
    }
    context.SetTextColor(formerText);
}

} // namespace GUI
