#include "gui/charts/XYGraph.h"

#include "Diagnostics/Sink.h"
#include "gui/charts/CurvePainter.h"
#include "gui/charts/EdgeAxes.h"
#include "gui/charts/GraphAttributes.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

namespace Keys = GraphAttributes;

constexpr Attribute attributeList[] = {PatchAttributes::smooth,
                                       Keys::axes,
                                       Keys::difference,
                                       Keys::band,
                                       Keys::cases,
                                       Keys::legend,
                                       Keys::cursor,
                                       Keys::live,
                                       Keys::valueFormat,
                                       Keys::xUnit,
                                       ExploredPlot::zoomAttribute};

ElementRegistration<XYGraph, Graph> const registration({"XYGraph", "$Revision: 1.17 $", "GUI"},
                                                       attributeList);

String Key(char const* prefix, long number) { return String(prefix) + String(number); }

} // namespace

void XYGraph::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    Graph::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);
    smooth_ = attributes.Flag(PatchAttributes::smooth);
    hasEdgeAxes_ = attributes.Text(Keys::axes) == "Edges";
    // The scales' own lines are enough.
    if (hasEdgeAxes_) SetFrame(false);
    isDifference_ = attributes.Flag(Keys::difference);
    hasCases_ = attributes.Flag(Keys::cases);
    hasLegend_ = attributes.Text(Keys::legend) == "Inside";
    hasCursor_ = attributes.Flag(Keys::cursor);
    isLive_ = attributes.Flag(Keys::live);
    String const band = attributes.Text(Keys::band);
    band_ = band == "Range" ? Band::Range : band == "Zero" ? Band::Zero : Band::None;
    valueFormat_ = attributes.Text(Keys::valueFormat);
    xUnit_ = attributes.Text(Keys::xUnit);
    SetZoom(attributes.Flag(zoomAttribute));
    ReadSettings();
}

long XYGraph::OnUpdate(Anything const& command) {
    String const message = GetCommand(command);
    // Differences are read as a whole: the standard's values aren't kept.
    if (isLive_ && !isDifference_)
        if (auto const range = UpdateMessage::Range::Parse(message); range && range->first > 1) {
            CallScope const call(*this);
            ReadUpdate(command);
            AddData(*range);
            return 0;
        }
    Graph::OnUpdate(command);
    if (message == "Properties") {
        Anything const width = GetValue("LineWidth");
        if (width.IsValid()) lineWidth_ = static_cast<std::int16_t>(width.GetLong());
    } else if (auto const range = UpdateMessage::Range::Parse(message)) {
        ReadData(*range);
    }
    ReadSettings();
    Repaint();
    return 0;
}

void XYGraph::ReadSettings() {
    CallScope const call(*this);
    if (hasLegend_ || hasCases_) {
        Anything const legend = GetValue("LegendCurves");
        legendIsChosen_ = legend.IsValid();
        legend_.clear();
        if (legendIsChosen_)
            for (Anything const& number : legend.GetVectorOfAnythings()) legend_.push_back(number.GetLong());
    }
    if (HasZoom()) TakeView(GetValue(viewKey));
    if (!hasCursor_) return;
    Anything const cursor = GetValue("Cursor");
    if (!cursor.IsValid()) return;
    bool const isNone = cursor.IsOfTypeString() && cursor.GetString().Length() == 0;
    cursor_ = isNone ? std::nullopt : ItemAt(cursor.GetDouble());
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
    if (isDifference_ || hasCases_ || band_ != Band::None) {
        Anything const standard = GetValue("StandardCurve");
        standard_ = standard.IsValid() ? standard.GetLong() : -1;
    }
    if (isDifference_) SubtractStandard(*data);
    data_ = data;
}

void XYGraph::AddData(UpdateMessage::Range const& range) {
    if (range.last < range.first) return;
    // A paint that is going on keeps what it has.
    if (data_.use_count() > 1) data_ = std::make_shared<Data>(*data_);
    String const numbers = String(";") + String(long{range.first}) + "-" + String(long{range.last});
    long column = 1;
    auto const data = data_;
    for (auto curve = data->curves.Begin(); curve.IsValid() && IsAttached(); ++curve, ++column) {
        if (column < range.firstColumn || column > range.lastColumn) continue;
        Anything const content = GetValue(String(column) + numbers);
        if (!content.IsValid()) continue;
        auto const& entries = content.GetVectorOfAnythings();
        Curve& values = curve.Current();
        if (values.size() < range.last) values.resize(range.last);
        for (std::uint32_t i = 1; i < std::min(entries.GetSize(), range.Count() + 1); ++i)
            values[range.first + i - 2U] = entries[i].GetDouble();
    }
    if (!IsAttached()) return;
    // What is drawn elsewhere by these values asks for the whole.
    bool const isLocal = !isDifference_ && band_ == Band::None && !hasLegend_ && !cursor_ && IsXHorizontal();
    if (isLocal)
        RepaintPart(*this, BoxOf(range.first - 1U, range.last - 1U));
    else
        Repaint();
}

void XYGraph::SubtractStandard(Data& data) const {
    Curve base;
    long number = 0;
    for (auto curve = data.curves.Begin(); curve.IsValid(); ++curve, ++number)
        if (number == standard_) base = curve.Current();
    for (auto curve = data.curves.Begin(); curve.IsValid(); ++curve)
        for (std::uint32_t i = 0; i < std::min(base.size(), curve.Current().size()); ++i)
            curve.Current()[i] -= base[i];
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
        longest = std::max(longest, static_cast<std::uint32_t>(curve.Current().size()));
    }
    table.EndRow();
    for (std::uint32_t i = 0; i < longest; ++i) {
        table.Add(GetXValueBegin() + i * GetDeltaXValue());
        for (auto curve = data_->curves.Begin(); curve.IsValid(); ++curve)
            if (i < curve.Current().size())
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
        if (item >= values.size()) continue;
        auto const index = static_cast<std::uint32_t>(item);
        if (!isNear(yValue, values[index])) continue;
        Anything const text =
            GetValue(Key("ToolTipText ", static_cast<long>(index) + 1) + " Curve " + name.Current());
        if (text.IsValid()) return text.GetString();
    }
    return {};
}

} // namespace GUI
