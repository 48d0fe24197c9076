#include "gui/charts/EdgeAxes.h"

#include "gui/charts/PlotText.h"
#include "gui/charts/ScaleMap.h"
#include "gui/charts/ScaleNumbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace GUI {

using Utilities::String;

namespace {

constexpr long tick = 5;
constexpr long toTick = 4;
constexpr long gap = 6;
constexpr long mostParts = 8;
/// What a number takes along an axis.
constexpr long roomAcross = 56;
constexpr long roomDown = 34;

RGBVector const axisColor{ThemeRole::Axis, RGBVector(92, 92, 92)};
RGBVector const gridColor{ThemeRole::Grid, RGBVector(222, 222, 222)};
RGBVector const captionColor{ThemeRole::Ink2, RGBVector(74, 74, 74)};

short Short(double value) { return ScaleMap::ToShort(value); }
short Short(long value) { return ScaleMap::ToShort(static_cast<double>(value)); }

double StepOf(double begin, double end, long pixels, bool isX) {
    long const parts = std::clamp(pixels / (isX ? roomAcross : roomDown), 1L, mostParts);
    return ScaleNumbers::NiceStep(std::abs(end - begin), static_cast<int>(parts));
}

/// A place on an axis, from its begin.
double Along(double value, double begin, double end, long pixels) {
    return (value - begin) / (end - begin) * static_cast<double>(pixels);
}

} // namespace

std::vector<double> EdgeAxes::Ticks(double begin, double end, long pixels, bool isX) {
    double const step = StepOf(begin, end, pixels, isX);
    if (!(step > 0)) return {};
    constexpr double tolerance = 1e-6;
    std::vector<double> values;
    double const first = std::ceil(std::min(begin, end) / step - tolerance);
    double const last = std::floor(std::max(begin, end) / step + tolerance);
    // Where steps are smaller than numbers of that size are apart, there are none.
    constexpr double most = 1000;
    if (!(last - first < most) || !(first + 1 > first)) return {};
    for (int i = 0; first + i <= last; ++i) values.push_back((first + i) * step + 0.0);
    return values;
}

void EdgeAxes::DrawGrid(PlatformIndependentDeviceContext& context, PlotRange const& range, long width,
                        long height) {
    context.SetPen(gridColor, 1, PlatformIndependentDeviceContext::solid);
    for (double const x : Ticks(range.xBegin, range.xEnd, width, true)) {
        short const place = Short(Along(x, range.xBegin, range.xEnd, width));
        context.DrawLine(place, 0, place, Short(height));
    }
    bool hasZero = false;
    auto const level = [&](double y) {
        short const place = Short(static_cast<double>(height) - Along(y, range.yBegin, range.yEnd, height));
        context.DrawLine(0, place, Short(width), place);
    };
    for (double const y : Ticks(range.yBegin, range.yEnd, height, false)) {
        hasZero = hasZero || (y == 0 && y != range.yBegin);
        level(y);
    }
    if (!hasZero) return;
    context.SetPen(axisColor, 1, PlatformIndependentDeviceContext::solid);
    level(0);
}

void EdgeAxes::DrawScales(PlatformIndependentDeviceContext& context, Box const& plot, PlotRange const& range,
                          long strip) {
    long const bottom = plot.top + plot.height;
    long const right = plot.left + plot.width;
    context.SetPen(axisColor, 1, PlatformIndependentDeviceContext::solid);
    context.DrawLine(Short(plot.left - 1), Short(bottom), Short(right), Short(bottom));
    PlotText::SelectFont(context);
    RGBVector const formerText = context.SetTextColor(captionColor);
    long const xStep = bottom + 1 + strip;
    long free = -gap;
    for (auto const& number : ScaleNumbers::Multiples(context, range.xBegin, range.xEnd,
                                                      StepOf(range.xBegin, range.xEnd, plot.width, true))) {
        double const along = Along(number.value, range.xBegin, range.xEnd, plot.width);
        short const place = Short(static_cast<double>(plot.left) + along);
        context.DrawLine(place, Short(xStep), place, Short(xStep + tick));
        long const left = place - number.width / 2;
        bool const isFree = range.xBegin < range.xEnd ? left >= free + gap : true;
        if (!isFree) continue;
        free = left + number.width;
        context.DrawText(Short(left), Short(xStep + tick), number.text);
    }
    context.SetTextColor(formerText);
    DrawLeftScale(context, plot, range);
}

void EdgeAxes::DrawLeftScale(PlatformIndependentDeviceContext& context, Box const& plot,
                             PlotRange const& range) {
    long const bottom = plot.top + plot.height;
    context.SetPen(axisColor, 1, PlatformIndependentDeviceContext::solid);
    context.DrawLine(Short(plot.left - 1), Short(plot.top), Short(plot.left - 1), Short(bottom + 1));
    PlotText::SelectFont(context);
    RGBVector const formerText = context.SetTextColor(captionColor);
    long lowest = bottom + roomDown;
    for (auto const& number : ScaleNumbers::Multiples(context, range.yBegin, range.yEnd,
                                                      StepOf(range.yBegin, range.yEnd, plot.height, false))) {
        double const along = Along(number.value, range.yBegin, range.yEnd, plot.height);
        short const place = Short(static_cast<double>(bottom) - along);
        context.DrawLine(Short(plot.left - 1 - tick), place, Short(plot.left - 1), place);
        long const top = place - number.height / 2;
        bool const isFree = range.yBegin < range.yEnd ? top + number.height <= lowest : true;
        if (!isFree) continue;
        lowest = top;
        context.DrawText(Short(plot.left - 1 - tick - toTick - number.width), Short(top), number.text);
    }
    context.SetTextColor(formerText);
}

void EdgeAxes::DrawTitles(PlatformIndependentDeviceContext& context, Box const& plot, long paneWidth,
                          String const& xTitle, String const& yTitle, long strip) {
    PlotText::SelectFont(context);
    RGBVector const formerText = context.SetTextColor(captionColor);
    if (String const title = PlotText::Fit(context, yTitle, paneWidth); title.Length() != 0)
        context.DrawText(0, 0, title);
    if (String const title = PlotText::Fit(context, xTitle, paneWidth); title.Length() != 0) {
        long const width = PlotText::WidthOf(context, title);
        long const left = std::clamp(plot.left + (plot.width - width) / 2, 0L, paneWidth - width);
        context.DrawText(Short(left), Short(plot.top + plot.height + strip + belowRoom), title);
    }
    context.SetTextColor(formerText);
}

// ------------------------------------------------------------------ the visible spectrum

namespace {

/// A bell with another width on each side.
double Bell(double x, double middle, double below, double above) {
    double const share = (x - middle) / (x < middle ? below : above);
    return std::exp(-share * share / 2);
}

std::uint32_t SpectrumColor(double nm) {
    double const x = 1.056 * Bell(nm, 599.8, 37.9, 31.0) + 0.362 * Bell(nm, 442.0, 16.0, 26.7) -
                     0.065 * Bell(nm, 501.1, 20.4, 26.2);
    double const y = 0.821 * Bell(nm, 568.8, 46.9, 40.5) + 0.286 * Bell(nm, 530.9, 16.3, 31.1);
    double const z = 1.217 * Bell(nm, 437.0, 11.8, 36.0) + 0.681 * Bell(nm, 459.0, 26.0, 13.8);
    // To linear sRGB, IEC 61966-2-1.
    std::array<double, 3> light{3.2406 * x - 1.5372 * y - 0.4986 * z, -0.9689 * x + 1.8758 * y + 0.0415 * z,
                                0.0557 * x - 0.2040 * y + 1.0570 * z};
    double const lowest = std::min(*std::min_element(light.begin(), light.end()), 0.0);
    for (double& channel : light) channel -= lowest;
    constexpr double usual = 1.6;
    double const highest = std::max(*std::max_element(light.begin(), light.end()), usual);
    std::uint32_t color = 0;
    for (double const channel : light) {
        double const share = channel / highest;
        double const device = share <= 0.0031308 ? 12.92 * share : 1.055 * std::pow(share, 1 / 2.4) - 0.055;
        color = color << 8U | static_cast<std::uint32_t>(std::lround(255 * device));
    }
    return color;
}

} // namespace

std::vector<std::uint32_t> SpectrumStrip(double begin, double end, std::size_t count) {
    constexpr double firstVisible = 360;
    constexpr double lastVisible = 830;
    constexpr std::uint32_t grey = 0x808080;
    std::vector<std::uint32_t> colors(count, grey);
    for (std::size_t i = 0; i < count; ++i) {
        double const nm = begin + (end - begin) * (static_cast<double>(i) + 0.5) / static_cast<double>(count);
        if (nm >= firstVisible && nm <= lastVisible) colors[i] = SpectrumColor(nm);
    }
    return colors;
}

} // namespace GUI
