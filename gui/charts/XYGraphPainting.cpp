// The picture of an XYGraph: ground, bands, curves, legend, cursor.
#include "Diagnostics/Sink.h"
#include "gui/charts/CurveBands.h"
#include "gui/charts/CurvePainter.h"
#include "gui/charts/EdgeAxes.h"
#include "gui/charts/PlotCursor.h"
#include "gui/charts/XYGraph.h"
#include "gui/elements/drawing/NumberFormat.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

RGBVector const standardColor{ThemeRole::Standard, RGBVector(168, 168, 168)};
RGBVector const bandColor{ThemeRole::Band, RGBVector(228, 228, 228)};
RGBVector const inkColor{ThemeRole::Ink, RGBVector(22, 22, 22)};
constexpr long standardWidth = 5;
/// Curves in one read-out.
constexpr std::size_t mostRows = 6;

/// "r;g;b"
RGBVector CurveColor(String const& text) {
    auto const channel = [&text](long index) {
        return static_cast<unsigned char>(text.GetToken(index, ';').GetLong());
    };
    return {channel(0), channel(1), channel(2)};
}

String Key(char const* prefix, long number) { return String(prefix) + String(number); }

/// L* of a colour of sRGB.
double LightnessOf(RGBVector const& color) {
    auto const light = [](unsigned char channel) {
        double const share = channel / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    double const y =
        0.2126 * light(color.GetRed()) + 0.7152 * light(color.GetGreen()) + 0.0722 * light(color.GetBlue());
    constexpr double linearBelow = 216.0 / 24389;
    return y <= linearBelow ? y * 24389 / 27 : 116 * std::cbrt(y) - 16;
}

} // namespace

void XYGraph::OnPaint(PlatformIndependentDeviceContext& context) {
    CallScope const call(*this);
    DrawGround(context);
    long active = -1;
    try {
        Anything const value = GetValue("ActiveCurve");
        if (value.IsValid()) active = value.GetShort();
    } catch (...) {
        Diagnostics::DropException("XYGraph::OnPaint: ActiveCurve");
    }
    ScaleMap const map = GetScaleMap();
    // What is asked of the data source in between may bring new data.
    auto const data = data_;
    if (smooth_) context.SetSmooth(true);
    if (band_ != Band::None) DrawBands(context, map, *data);
    DrawCurves(context, map, *data, active);
    if (smooth_) context.SetSmooth(false);
    if (hasLegend_) DrawLegend(context, map, *data);
    if (hasCursor_ && cursor_) DrawCursor(context, map, *data, active);
    DrawRubberBand(context);
}

void XYGraph::DrawGround(PlatformIndependentDeviceContext& context) {
    if (!hasEdgeAxes_) return Graph::OnPaint(context);
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): the axes of the base class are left out
    Pane::OnPaint(context);
    PlotArea const area = GetPlotArea();
    EdgeAxes::DrawGrid(context, GetShownRange(), std::lround(area.width), std::lround(area.height));
}

void XYGraph::DrawBands(PlatformIndependentDeviceContext& context, ScaleMap const& map,
                        Data const& data) const {
    context.SetBrush(bandColor);
    context.SetPen(bandColor, 1, PlatformIndependentDeviceContext::noPen);
    auto const fill = [&](std::span<double const> lower, std::span<double const> upper) {
        FillBetween(context, map, GetXValueBegin(), GetDeltaXValue(), lower, upper);
    };
    CurveEnvelope envelope;
    long number = 0;
    for (auto curve = data.curves.Begin(); curve.IsValid(); ++curve, ++number) {
        if (number == standard_) continue;
        std::span<double const> const values = curve.Current();
        if (band_ == Band::Range)
            envelope.Add(values);
        else
            fill(std::vector<double>(values.size()), values);
    }
    fill(envelope.lowest, envelope.highest);
}

void XYGraph::DrawCurves(PlatformIndependentDeviceContext& context, ScaleMap const& map, Data const& data,
                         long active) {
    auto const draw = [&](auto isMeant) {
        long number = 0;
        for (auto curve = data.curves.Begin(); curve.IsValid(); ++curve, ++number)
            if (isMeant(number))
                DrawCurveNumber(context, map, number, curve.Current(), hasCases_ && number == active);
    };
    long const standard = standard_;
    if (standard >= 0 && !isDifference_) draw([&](long number) { return number == standard; });
    if (active != -1 && !hasCases_) draw([&](long number) { return number == active && number != standard; });
    draw([&](long number) { return number != active && number != standard; });
    if (active != -1 && hasCases_) draw([&](long number) { return number == active && number != standard; });
}

CurveLook XYGraph::AskLook(long number) {
    CurveLook look;
    look.color = RGBVector(255, 0, 0);
    Anything const colorText = GetValue(Key("CurveColor ", number));
    if (colorText.IsValid()) look.color = CurveColor(colorText.GetString());
    look.width = lineWidth_;
    Anything const ownWidth = GetValue(Key("LineWidth ", number));
    if (ownWidth.IsValid()) look.width = ownWidth.GetLong();
    if (number == standard_) {
        look.color = standardColor;
        look.width = standardWidth;
    }
    return look;
}

void XYGraph::AddCase(CurveLook& look, bool isActive, RGBVector const& ground) const {
    constexpr double leastContrast = 22;
    if (isActive) {
        look.caseColor = inkColor;
        look.caseWidth = look.width + 2;
    } else if (hasCases_ && std::abs(LightnessOf(look.color) - LightnessOf(ground)) < leastContrast) {
        look.caseColor = standardColor;
        look.caseWidth = look.width + 1;
    }
}

void XYGraph::DrawCurveNumber(PlatformIndependentDeviceContext& context, ScaleMap const& map, long number,
                              Curve const& curve, bool isActive) {
    // A data source that fails leaves its curve undrawn; the others are drawn.
    try {
        CurveLook look = AskLook(number);
        if (hasCases_) {
            RGBVector const& ground = GetBackgroundColor();
            AddCase(look, isActive, context.GetTheme() ? context.GetTheme()->Resolve(ground) : ground);
        }
        auto const [first, count] = PaintedValues(context, map, curve.size());
        std::span<double const> const values = std::span(curve).subspan(first, count);
        auto const draw = [&, from = first](RGBVector const& color, long width) {
            context.SetPen(color, width, PlatformIndependentDeviceContext::solid);
            DrawCurve(context, map, GetXValueBegin(), GetDeltaXValue(), values, from);
        };
        if (look.caseWidth > 0) draw(look.caseColor, look.caseWidth);
        context.SetBrush(look.color);
        draw(look.color, look.width);
    } catch (...) {
        Diagnostics::DropException("XYGraph::OnPaint: curve");
    }
}

PaneBox XYGraph::BoxOf(std::uint32_t first, std::uint32_t last) const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    // From the value before; a pen and rounded edges go beyond.
    constexpr long room = 8;
    ScaleMap const map = GetScaleMap();
    long const begin = map.AlongX(XOf(first > 0 ? first - 1 : 0));
    long const end = map.AlongX(XOf(last));
    return {std::min(begin, end) - room, 0, std::max(begin, end) + room, static_cast<long>(height)};
}

std::pair<std::size_t, std::size_t> XYGraph::PaintedValues(PlatformIndependentDeviceContext const& context,
                                                           ScaleMap const& map, std::size_t count) const {
    auto const* const part = dynamic_cast<PaintedPart const*>(&context);
    auto const box = part ? part->GetPaintedBox() : std::nullopt;
    double const perPixel = (map.xEnd - map.xBegin) / map.width / GetDeltaXValue();
    if (!box || !map.xIsHorizontal || !(perPixel > 0)) return {0, count};
    // A line's pen reaches into the part from beside it.
    constexpr double room = 12;
    double const zero = (map.xBegin - GetXValueBegin()) / GetDeltaXValue();
    // A data source may say anything.
    if (!std::isfinite(zero) || !std::isfinite(perPixel)) return {0, count};
    auto const number = [&](double pixel) {
        double const at = zero + (pixel - map.left) * perPixel;
        return static_cast<std::size_t>(std::clamp(at, 0.0, static_cast<double>(count)));
    };
    std::size_t first = number(static_cast<double>(box->left) - room);
    std::size_t last = number(static_cast<double>(box->right) + room);
    // The lines over both edges of the part.
    first -= std::min<std::size_t>(first, 1);
    last = std::min(last + 2, count);
    return {first, last - first};
}

// ------------------------------------------------------------------ legend

std::vector<CurveLook> XYGraph::GetLegend() {
    CallScope const call(*this);
    auto const data = data_;
    std::vector<long> numbers = legend_;
    if (!legendIsChosen_)
        for (std::uint32_t i = 0; i < data->curves.GetSize(); ++i) numbers.push_back(static_cast<long>(i));
    std::vector<CurveLook> looks;
    for (long const wanted : numbers) {
        if (isDifference_ && wanted == standard_) continue;
        auto name = data->names.Begin();
        for (long number = 0; name.IsValid() && number < wanted; ++number) ++name;
        if (wanted < 0 || !name.IsValid()) continue;
        try {
            CurveLook look = AskLook(wanted);
            AddCase(look, false, GetBackgroundColor());
            look.name = name.Current();
            looks.push_back(look);
        } catch (...) {
            // As its curve, which isn't drawn either.
            Diagnostics::DropException("XYGraph: legend");
        }
    }
    return looks;
}

void XYGraph::DrawLegend(PlatformIndependentDeviceContext& context, ScaleMap const& map, Data const& data) {
    ChartLegend const legend(GetLegend());
    if (legend.IsEmpty() || !IsAttached()) return;
    PlotArea const area = GetPlotArea();
    constexpr long margin = 10;
    long const width = legend.MeasureWidth(context, std::lround(area.width) / 2);
    long const height = legend.GetHeight(std::lround(area.height) - 2 * margin);
    if (width <= 0 || height <= 0) return;
    long const right = std::lround(area.width) - margin - width;
    long const bottom = std::lround(area.height) - margin - height;
    // Where the fewest values are.
    constexpr long none = -1;
    long best = none;
    std::pair<long, long> place;
    for (auto const& corner : {std::pair(right, margin), std::pair(margin, margin), std::pair(right, bottom),
                               std::pair(margin, bottom)}) {
        long covered = 0;
        for (auto curve = data.curves.Begin(); curve.IsValid(); ++curve)
            for (std::uint32_t i = 0; i < curve.Current().size(); ++i) {
                short x = 0;
                short y = 0;
                map.ToPixel(XOf(i), curve.Current()[i], x, y);
                bool const isUnder = x >= corner.first - margin && x <= corner.first + width + margin &&
                                     y >= corner.second - margin && y <= corner.second + height + margin;
                covered += isUnder ? 1 : 0;
            }
        if (best != none && covered >= best) continue;
        best = covered;
        place = corner;
    }
    legend.Draw(context, place.first, place.second, width, height);
}

// ------------------------------------------------------------------ cursor

void XYGraph::DrawCursor(PlatformIndependentDeviceContext& context, ScaleMap const& map, Data const& data,
                         long active) {
    std::uint32_t const item = *cursor_;
    double const x = XOf(item);
    PlotArea const area = GetPlotArea();
    auto const height = std::lround(area.height);
    DrawCursorLine(context, map.AlongX(x), height);
    auto const format = NumberFormat::Find(valueFormat_).value_or(NumberFormat{4});
    PlotReadOut readOut;
    constexpr short decimals = 6;
    std::string position = String(x, decimals, '.').GetStdString();
    position.erase(position.find_last_not_of('0') + 1);
    if (position.ends_with('.')) position.pop_back();
    readOut.heading = String(position) + " " + xUnit_;
    bool const hasAll = data.curves.GetSize() <= mostRows;
    long const single = readCurve_ >= 0 ? readCurve_ : active;
    if (smooth_) context.SetSmooth(true);
    long number = 0;
    auto name = data.names.Begin();
    for (auto curve = data.curves.Begin(); curve.IsValid(); ++curve, ++number) {
        String const title = name.IsValid() ? name.Current() : String();
        if (name.IsValid()) ++name;
        if ((!hasAll && number != single) || item >= curve.Current().size()) continue;
        if (isDifference_ && number == standard_) continue;
        double const value = curve.Current()[item];
        readOut.rows.push_back({title, format.Write(value)});
        if (std::isfinite(value)) DrawCursorRing(context, map.AlongX(x), map.AlongY(value));
    }
    if (smooth_) context.SetSmooth(false);
    constexpr long top = 12;
    readOut.Draw(context, map.AlongX(x), top, std::lround(area.width), height);
}

} // namespace GUI
