#include "gui/charts/ZeroAxes.h"

#include "gui/charts/ScaleMap.h"
#include "gui/charts/ScaleNumbers.h"

#include <algorithm>
#include <cmath>

namespace GUI {

namespace {

constexpr short fontHeight = 9;
/// Half of a tick, without its middle pixel, and from an axis to the numbers beside it.
constexpr int halfTick = 2;
constexpr int toNumbers = 5;
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

void DrawZeroAxes(PlatformIndependentDeviceContext& context, ValuePlane const& plane,
                  RGBVector const& color) {
    auto const isUsable = [](double unit) { return std::isfinite(unit) && unit != 0; };
    if (plane.paneWidth < 1 || plane.paneHeight < 1 || !isUsable(plane.xUnit) || !isUsable(plane.yUnit))
        return;
    double xStep = StepFor(plane.paneWidth, plane.xUnit, roomAcross);
    double yStep = StepFor(plane.paneHeight, plane.yUnit, roomDown);
    if (std::abs(plane.xUnit) == std::abs(plane.yUnit)) xStep = yStep = std::max(xStep, yStep);

    context.SetPen(color, 1, PlatformIndependentDeviceContext::solid);
    context.SetFont(fontHeight, 0, 0, "Arial", 0);
    RGBVector const formerText = context.SetTextColor(color);
    auto const width = static_cast<double>(plane.paneWidth);
    auto const height = static_cast<double>(plane.paneHeight);
    short const axisX = Short(std::clamp(plane.originX, 0.0, width - 1));
    short const axisY = Short(std::clamp(plane.originY, 0.0, height - 1));
    context.DrawLine(0, axisY, Short(width), axisY);
    context.DrawLine(axisX, 0, axisX, Short(height));

    for (auto const& number : ScaleNumbers::Multiples(context, -plane.originX / plane.xUnit,
                                                      (width - plane.originX) / plane.xUnit, xStep)) {
        if (number.value == 0) continue;
        int const x = Short(plane.originX + number.value * plane.xUnit);
        context.DrawLine(Short(x), Short(axisY - halfTick), Short(x), Short(axisY + halfTick + 1));
        long const left = x - number.width / 2;
        long const below = axisY + toNumbers;
        long const top =
            below + number.height <= plane.paneHeight ? below : axisY - toNumbers - number.height;
        if (left < 0 || left + number.width > plane.paneWidth || top < 0) continue;
        context.DrawText(Short(static_cast<double>(left)), Short(static_cast<double>(top)), number.text);
    }
    for (auto const& number : ScaleNumbers::Multiples(context, (plane.originY - height) / plane.yUnit,
                                                      plane.originY / plane.yUnit, yStep)) {
        if (number.value == 0) continue;
        int const y = Short(plane.originY - number.value * plane.yUnit);
        context.DrawLine(Short(axisX - halfTick), Short(y), Short(axisX + halfTick + 1), Short(y));
        long const top = y - number.height / 2;
        long const leftOf = axisX - toNumbers - number.width;
        long const left = leftOf >= 0 ? leftOf : axisX + toNumbers;
        if (top < 0 || top + number.height > plane.paneHeight || left + number.width > plane.paneWidth)
            continue;
        context.DrawText(Short(static_cast<double>(left)), Short(static_cast<double>(top)), number.text);
    }
    context.SetTextColor(formerText);
}

} // namespace GUI
