#include "gui/charts/XYGraph.h"

#include "Diagnostics/Sink.h"
#include "gui/charts/CurvePainter.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute attributeList[] = {PatchAttributes::smooth};

ElementRegistration<XYGraph, Graph> const registration({"XYGraph", "$Revision: 1.17 $", "GUI"},
                                                       attributeList);

/// "r;g;b"
RGBVector CurveColor(String const& text) {
    auto const channel = [&text](long index) {
        return static_cast<unsigned char>(text.GetToken(index, ';').GetLong());
    };
    return {channel(0), channel(1), channel(2)};
}

String Key(char const* prefix, long number) { return String(prefix) + String(number); }

} // namespace

void XYGraph::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    Graph::Initialize(parent, description, dataSource);
    smooth_ = AttributeReader(description).Flag(PatchAttributes::smooth);
}

long XYGraph::OnUpdate(Anything const& command) {
    Graph::OnUpdate(command);
    String const message = GetCommand(command);
    if (message == "Properties") {
        Anything const width = GetValue("LineWidth");
        if (width.IsValid()) lineWidth_ = static_cast<std::int16_t>(width.GetLong());
    } else if (auto const range = UpdateMessage::Range::Parse(message)) {
        ReadData(*range);
    }
    Repaint();
    return 0;
}

void XYGraph::ReadData(UpdateMessage::Range const& range) {
    auto const data = std::make_shared<Data>();
    Anything const names = GetValue("");
    if (names.IsValid())
        for (Anything const& name : names.GetVectorOfAnythings()) data->names.Append(name.GetString());

    for (std::uint32_t column = range.firstColumn; column <= range.lastColumn; ++column) {
        Anything const content = GetValue(String(static_cast<unsigned long>(column)));
        if (!content.IsValid()) continue;
        auto const& entries = content.GetVectorOfAnythings();
        std::uint32_t const given = entries.GetSize() == 0 ? 0 : entries.GetSize() - 1;
        // The message can't announce more than 65536 values; a source may give more.
        Curve values(std::max(range.Count(), given));
        for (std::uint32_t i = 0; i < given; ++i) values[i] = entries[i + 1].GetDouble();
        data->curves.Append(values);
        if (data->names.GetSize() < data->curves.GetSize())
            data->names.Append(entries.GetSize() == 0 ? String() : entries[0].GetString());
    }

    double begin = GetXValueBegin();
    double step = GetDeltaXValue();
    Anything const newBegin = GetValue("ValueBegin");
    if (newBegin.IsValid()) begin = newBegin.GetDouble();
    Anything const newStep = GetValue("ValueStep");
    if (newStep.IsValid()) step = newStep.GetDouble();
    SetXValues(begin, step);
    data_ = data;
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
    // What is asked of the data source in between may bring new data.
    auto const data = data_;
    if (smooth_) context.SetSmooth(true);
    auto const draw = [&](bool isActive) {
        long number = 0;
        for (auto curve = data->curves.Begin(); curve.IsValid(); ++curve, ++number)
            if ((number == active) == isActive) DrawCurveNumber(context, map, number, curve.Current());
    };
    if (active != -1) draw(true);
    draw(false);
    if (smooth_) context.SetSmooth(false);
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

String XYGraph::GetNumberTable() {
    if (data_->curves.GetSize() == 0) return {};
    NumberTable table;
    table.Add("");
    std::uint32_t longest = 0;
    auto name = data_->names.Begin();
    for (auto curve = data_->curves.Begin(); curve.IsValid(); ++curve) {
        table.Add(name.IsValid() ? name.Current() : String());
        if (name.IsValid()) ++name;
        longest = std::max(longest, curve.Current().GetSize());
    }
    table.EndRow();
    for (std::uint32_t i = 0; i < longest; ++i) {
        table.Add(GetXValueBegin() + i * GetDeltaXValue());
        for (auto curve = data_->curves.Begin(); curve.IsValid(); ++curve)
            if (i < curve.Current().GetSize())
                table.Add(curve.Current()[i]);
            else
                table.Add("");
        table.EndRow();
    }
    return table.Take();
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
    auto const data = data_;
    auto name = data->names.Begin();
    for (auto curve = data->curves.Begin(); curve.IsValid() && name.IsValid(); ++curve, ++name) {
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
