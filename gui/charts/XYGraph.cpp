#include "gui/charts/XYGraph.h"

#include "Diagnostics/Sink.h"
#include "core/creators/ComponentCreator.h"
#include "gui/charts/CurvePainter.h"
#include "gui/elements/Attributes.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

/// The part of a table that a data message names.
struct XYGraph::Range {
    std::uint16_t first = 0;
    std::uint16_t last = 0;
    std::uint16_t firstColumn = 0;
    std::uint16_t lastColumn = 0;

    /// Empty for a message that is no data message; throws `OutOfRangeException` for a faulty number.
    static std::optional<Range> Parse(String const& message) {
        if (message.FindSubstring(";", 0) < 0) return {};
        String const begin = message.GetToken(0, '-');
        String const end = message.GetTokenCount('-') > 1 ? message.GetToken(1, '-') : begin;
        return Range{begin.GetToken(0, ';').GetUnsignedShort(), end.GetToken(0, ';').GetUnsignedShort(),
                     begin.GetToken(1, ';').GetUnsignedShort(), end.GetToken(1, ';').GetUnsignedShort()};
    }
};

namespace {

Utilities::ComponentCreatorNormal<XYGraph> const creator({"XYGraph", "$Revision: 1.17 $", "GUI"});
AttributeTable const table("XYGraph", "Graph", {});

/// "r;g;b"
RGBVector CurveColor(String const& text) {
    auto const channel = [&text](long index) {
        return static_cast<unsigned char>(text.GetToken(index, ';').GetLong());
    };
    return {channel(0), channel(1), channel(2)};
}

String Key(char const* prefix, long number) { return String(prefix) + String(number); }

} // namespace

long XYGraph::OnUpdate(Anything const& command) {
    Graph::OnUpdate(command);
    String const message = command.IsOfTypeString() ? GetCommand(command.GetString()) : String();
    if (message == "Properties") {
        Anything const width = GetValue("LineWidth");
        if (width.IsValid()) lineWidth_ = static_cast<std::int16_t>(width.GetLong());
    } else if (auto const range = Range::Parse(message)) {
        ReadData(*range);
    }
    Repaint();
    return 0;
}

void XYGraph::ReadData(Range const& range) {
    curveNames_.Clear();
    curves_.Clear();
    Anything const names = GetValue("");
    if (names.IsValid())
        for (Anything const& name : names.GetVectorOfAnythings()) curveNames_.Append(name.GetString());

    std::uint32_t const announced = range.last >= range.first ? range.last - range.first + 1U : 0;
    for (std::uint32_t column = range.firstColumn; column <= range.lastColumn; ++column) {
        Anything const content = GetValue(String(static_cast<unsigned long>(column)));
        if (!content.IsValid()) continue;
        auto const& entries = content.GetVectorOfAnythings();
        std::uint32_t const given = entries.GetSize() == 0 ? 0 : entries.GetSize() - 1;
        // The message can't announce more than 65536 values; a source may give more.
        Curve values(std::max(announced, given));
        for (std::uint32_t i = 0; i < given; ++i) values[i] = entries[i + 1].GetDouble();
        curves_.Append(values);
        if (curveNames_.GetSize() < curves_.GetSize())
            curveNames_.Append(entries.GetSize() == 0 ? String() : entries[0].GetString());
    }

    double begin = GetXValueBegin();
    double step = GetDeltaXValue();
    Anything const newBegin = GetValue("ValueBegin");
    if (newBegin.IsValid()) begin = newBegin.GetDouble();
    Anything const newStep = GetValue("ValueStep");
    if (newStep.IsValid()) step = newStep.GetDouble();
    SetXValues(begin, step);
}

void XYGraph::OnPaint(PlatformIndependentDeviceContext& context) {
    Graph::OnPaint(context);
    long active = -1;
    try {
        Anything const value = GetValue("ActiveCurve");
        if (value.IsValid()) active = value.GetShort();
    } catch (...) {
        Diagnostics::DropException("XYGraph::OnPaint: ActiveCurve");
    }
    ScaleMap const map = GetScaleMap();
    auto const draw = [&](bool isActive) {
        long number = 0;
        for (auto curve = curves_.Begin(); curve.IsValid(); ++curve, ++number)
            if ((number == active) == isActive) DrawCurveNumber(context, map, number, curve.Current());
    };
    if (active != -1) draw(true);
    draw(false);
}

void XYGraph::DrawCurveNumber(PlatformIndependentDeviceContext& context, ScaleMap const& map, long number,
                              Curve const& curve) {
    // A data source that fails leaves its curve undrawn; the others are drawn.
    try {
        RGBVector color(255, 0, 0);
        Anything const colorText = GetValue(Key("CurveColor ", number));
        if (colorText.IsValid()) color = CurveColor(colorText.GetString());
        context.SetBrush(color);
        long width = lineWidth_;
        Anything const ownWidth = GetValue(Key("LineWidth ", number));
        if (ownWidth.IsValid()) width = ownWidth.GetLong();
        context.SetPen(color, width, PlatformIndependentDeviceContext::solid);
        DrawCurve(context, map, GetXValueBegin(), GetDeltaXValue(), {curve.begin(), curve.GetSize()});
    } catch (...) {
        Diagnostics::DropException("XYGraph::OnPaint: curve");
    }
}

String XYGraph::GetToolTipText(unsigned short x, unsigned short y) {
    double xValue = 0;
    double yValue = 0;
    PixelToValue(static_cast<short>(x), static_cast<short>(y), xValue, yValue);
    double const begin = GetXValueBegin();
    double const delta = GetDeltaXValue();
    double const quarter = delta / 4;
    double const item = std::trunc((xValue - begin + 0.5) / delta);
    auto const isNear = [quarter](double value, double target) {
        return value > target - quarter && value < target + quarter;
    };
    if (!(item >= 0) || !isNear(xValue, begin + item * delta)) return {};
    auto name = curveNames_.Begin();
    for (auto curve = curves_.Begin(); curve.IsValid() && name.IsValid(); ++curve, ++name) {
        Curve const& values = curve.Current();
        if (item >= values.GetSize()) continue;
        auto const index = static_cast<std::uint32_t>(item);
        if (!isNear(yValue, values[index])) continue;
        Anything const text =
            GetValue(Key("ToolTipText ", static_cast<long>(index) + 1) + " Curve " + name.Current());
        if (text.IsValid()) return text.GetString();
    }
    return {};
}

} // namespace GUI
