// Bars with their names, values and verdicts.
#include "gui/charts/BarGraph.h"
#include "gui/charts/EdgeAxes.h"
#include "gui/charts/PlotText.h"
#include "gui/elements/drawing/NumberFormat.h"
#include "gui/elements/drawing/VerdictSign.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

/// Of the room that a bar has: half of its band, and half of the bar.
constexpr double halfBand = 0.4;
constexpr double halfBar = 0.16;
constexpr long toText = 3;
constexpr short signSize = 12;
constexpr long toSign = 4;
constexpr long limitPen = 2;

RGBVector const bandColor{ThemeRole::Band, RGBVector(228, 228, 228)};
RGBVector const axisColor{ThemeRole::Axis, RGBVector(92, 92, 92)};
RGBVector const gridColor{ThemeRole::Grid, RGBVector(222, 222, 222)};
RGBVector const inkColor{ThemeRole::Ink, RGBVector(22, 22, 22)};
RGBVector const failColor{ThemeRole::Fail, RGBVector(179, 38, 30)};

short Short(long value) { return ScaleMap::ToShort(static_cast<double>(value)); }

} // namespace

void BarGraph::ReadLabels() {
    std::vector<String> names;
    if (Anything const answer = GetValue("Names"); answer.IsValid())
        for (Anything const& name : answer.GetVectorOfAnythings()) names.push_back(name.GetString());
    std::vector<Limits> limits;
    if (Anything const answer = GetValue("Limits"); answer.IsValid())
        for (Anything const& entry : answer.GetVectorOfAnythings()) {
            Limits own{-negativLimit_, positivLimit_, {}};
            auto const& record = entry.GetMapOfAnythings();
            if (auto const lower = record.Find("Lower"); lower.IsValid())
                own.lower = lower.GetValue().GetDouble();
            if (auto const upper = record.Find("Upper"); upper.IsValid())
                own.upper = upper.GetValue().GetDouble();
            if (auto const warning = record.Find("Warning"); warning.IsValid())
                own.warning = warning.GetValue().GetDouble();
            limits.push_back(own);
        }
    names_ = std::move(names);
    limits_ = std::move(limits);
}

BarGraph::Limits BarGraph::LimitsOf(std::size_t bar) const {
    return bar < limits_.size() ? limits_[bar] : Limits{-negativLimit_, positivLimit_, {}};
}

void BarGraph::PaintLabelled(PlatformIndependentDeviceContext& context) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): the grid of the base class is left out
    Pane::OnPaint(context);
    Scale const scale = GetScale();
    EdgeAxes::Box const plot{std::lround(scale.map.left), std::lround(scale.map.top),
                             std::lround(scale.map.width), std::lround(scale.map.height)};
    if (plot.width <= 0 || plot.height <= 0) return;
    auto const level = [&](double value) {
        short const row = scale.map.AlongY(value);
        context.DrawLine(Short(plot.left), row, Short(plot.left + plot.width), row);
    };
    context.SetPen(gridColor, 1, PlatformIndependentDeviceContext::solid);
    for (double const value : EdgeAxes::Ticks(scale.yBegin, scale.yEnd, plot.height, false)) level(value);
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) {
        double const x = XOf(bar);
        double const half = GetDeltaXValue() * halfBand;
        auto const [lower, upper, warning] = LimitsOf(bar);
        auto const inside = [&](double value) { return std::clamp(value, scale.yBegin, scale.yEnd); };
        Box const band = scale.Between(x - half, inside(lower), x + half, inside(upper));
        context.SetBrush(bandColor);
        context.SetPen(bandColor, 1, PlatformIndependentDeviceContext::noPen);
        context.FillRectangle(band.left, band.top, band.right, band.bottom);
        context.SetPen(axisColor, limitPen, PlatformIndependentDeviceContext::solid);
        for (double const limit : {lower, upper})
            if (inside(limit) == limit) scale.DrawLine(context, x - half, limit, x + half, limit);
    }
    context.SetPen(axisColor, 1, PlatformIndependentDeviceContext::solid);
    if (scale.yBegin <= 0 && 0 <= scale.yEnd) level(0);
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) DrawLabelledBar(context, scale, bar);
    EdgeAxes::DrawLeftScale(context, plot, {0, 1, scale.yBegin, scale.yEnd});
}

void BarGraph::DrawLabelledBar(PlatformIndependentDeviceContext& context, Scale const& scale,
                               std::size_t bar) const {
    auto const [value, isMissing] = bars_[bar];
    bool const isKnown = !isMissing && std::isfinite(value);
    auto const [lower, upper, warning] = LimitsOf(bar);
    bool const isBeyond = isKnown && (value < lower || value > upper);
    bool const isMarginal = isKnown && !isBeyond && warning && std::abs(value) > *warning;
    RGBVector const face = isBeyond ? failColor : inkColor;
    double const x = XOf(bar);
    double const half = GetDeltaXValue() * halfBar;
    double const shown = isKnown ? std::clamp(value, scale.yBegin, scale.yEnd) : 0;
    if (isKnown && shown != value) {
        DrawTornBar(context, scale, x, 2 * half, shown, bandColor, face);
    } else {
        Box const box = scale.Between(x - half, 0, x + half, shown);
        context.SetBrush(face);
        context.SetPen(face, 1, PlatformIndependentDeviceContext::noPen);
        context.FillRectangle(box.left, box.top, box.right, box.bottom);
    }
    // Texts keep to the bar's own room.
    double const side = GetDeltaXValue() / 2;
    long const from = std::min(scale.map.AlongX(x - side), scale.map.AlongX(x + side));
    long const room = std::abs(scale.map.AlongX(x + side) - scale.map.AlongX(x - side)) - toText;
    long const middle = scale.map.AlongX(x);
    RGBVector const formerText = context.SetTextColor(inkColor);
    bool const hasSign = isBeyond || isMarginal;
    PlotText::SelectFont(context, hasSign);
    String const number =
        NumberFormat::Find(valueFormat_).value_or(NumberFormat{}).Write(isKnown ? value : std::nan(""));
    long width = 0;
    long height = 0;
    context.GetTextExtent(number, width, height);
    // The sign is behind the value, or where that has no room between value and bar.
    bool const isBeside = width + toSign + signSize <= room;
    long const both =
        hasSign ? isBeside ? width + toSign + signSize : std::max(width, long{signSize}) : width;
    long const tall = hasSign && !isBeside ? height + signSize : height;
    // Beyond the bar's end, or on the other side of zero where the plot ends.
    long const end = scale.map.AlongY(shown);
    long const bottom = std::lround(scale.map.top + scale.map.height);
    bool const hasEndRoom = shown < 0 ? end + toText + tall <= bottom : end - toText - tall >= 0;
    long const beside = hasEndRoom ? end : scale.map.AlongY(std::clamp(0.0, scale.yBegin, scale.yEnd));
    bool const isBelow = (shown < 0) == hasEndRoom;
    long const top =
        std::clamp(isBelow ? beside + toText : beside - toText - tall, 0L, std::max(bottom - tall, 0L));
    VerdictKind const kind = isBeyond ? VerdictKind::Fail : VerdictKind::Marginal;
    auto const sign = [&](long left, long signTop) {
        if (hasSign)
            DrawVerdictSign(context, kind, VerdictTones::Of(kind), Short(left), Short(signTop), signSize);
    };
    if (both <= room && isBeside) {
        long const left = std::clamp(middle - width / 2, from, from + room - both);
        context.DrawText(Short(left), Short(top), number);
        sign(left + width + toSign, top + (height - signSize) / 2);
    } else if (both <= room) {
        bool const isSignFirst = hasSign && isBelow;
        context.DrawText(Short(middle - width / 2), Short(isSignFirst ? top + signSize : top), number);
        sign(middle - signSize / 2, isSignFirst ? top : top + height);
    } else if (signSize <= room) {
        sign(middle - signSize / 2, isBelow ? top : top + tall - signSize);
    }
    PlotText::SelectFont(context, true);
    if (String const name = bar < names_.size() ? PlotText::Fit(context, names_[bar], room) : String();
        name.Length() != 0)
        context.DrawText(Short(middle - PlotText::WidthOf(context, name) / 2),
                         Short(std::lround(scale.map.top + scale.map.height) + toText), name);
    context.SetTextColor(formerText);
}

} // namespace GUI
