#include "gui/charts/LabGraph.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/description/ElementRegistration.h"

#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute drawAxisKey{"DrawAxis", AttributeType::Flag, "No", "Whether the axes are drawn"};
constexpr Attribute attributeList[] = {drawAxisKey};

ElementRegistration<LabGraph, Graph> const registration({"LabGraph", "$Revision: 1.15.4.1 $", "GUI"},
                                                        attributeList);

/// The lightness of a sample that isn't there.
constexpr double hole = -1000;

void DrawStar(PlatformIndependentDeviceContext& context, LabGraphView::Place place, bool isSelected) {
    static RGBVector const black;
    static RGBVector const white(255, 255, 255);
    constexpr int outer = 6;
    constexpr int inner = 1;
    auto const line = [&](int x1, int y1, int x2, int y2) {
        context.DrawLine(ScaleMap::ToShort(place.x + x1), ScaleMap::ToShort(place.y + y1),
                         ScaleMap::ToShort(place.x + x2), ScaleMap::ToShort(place.y + y2));
    };
    context.SetPen(black, 1, PlatformIndependentDeviceContext::solid);
    line(0, -outer, 0, -inner);
    line(outer, 0, inner, 0);
    line(0, outer, 0, inner);
    line(-outer, 0, -inner, 0);
    if (!isSelected) return;
    context.SetPen(white, 1, PlatformIndependentDeviceContext::solid);
    context.SetBrush(white);
    context.FillRectangle(ScaleMap::ToShort(place.x - 1), ScaleMap::ToShort(place.y - 1),
                          ScaleMap::ToShort(place.x + 2), ScaleMap::ToShort(place.y + 2));
}

} // namespace

void LabGraph::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                          DialogDataSource* dataSource) {
    // The children are settings of this graph and no elements in it.
    settings_ = description;
    DescriptionTree own;
    static_cast<AttributeMap&>(own) = description;
    Graph::Initialize(parent, own, dataSource);
    SetDrawAxis(AttributeReader(description).FlagUnlessNo(drawAxisKey));
    SetGrid({});
}

long LabGraph::OnUpdate(Anything const& command) {
    ReadView();
    String const message = GetCommand(command);
    if (command.IsValid() && !(message == "Properties")) ReadSamples(message);
    return Graph::OnUpdate(command);
}

void LabGraph::ReadView() {
    Anything const name = GetValue("CurrentView");
    if (name.IsOfTypeString()) viewName_ = name.GetString();
    for (auto child = settings_.GetChildren(); child.IsValid(); ++child) {
        AttributeMap const& setting = *child.Current();
        AttributeReader const reader(setting);
        if (!(reader.Text(CommonAttributes::elementName) == viewName_)) continue;
        view_ = LabGraphView::Read(setting);
        if (reader.Has(CommonAttributes::backgroundBitmap))
            SetBackgroundBitmap(reader.Text(CommonAttributes::backgroundBitmap));
        break;
    }
    Anything const color = GetValue("BackgroundColor");
    if (color.IsValid()) SetBackgroundColor(RGBVector(color));
}

void LabGraph::ReadSamples(String const& message) {
    std::uint16_t first = 0;
    std::uint16_t last = 0;
    if (auto const range = UpdateMessage::Range::Parse(message)) {
        first = range->firstColumn;
        last = range->lastColumn;
    } else {
        Anything const begin = GetValue("FirstData");
        Anything const end = GetValue("LastData");
        if (!begin.IsValid() || !end.IsValid()) return;
        first = static_cast<std::uint16_t>(begin.GetShort());
        last = static_cast<std::uint16_t>(end.GetShort());
    }
    std::vector<Sample> samples(last >= first ? last - first + 1U : 0U);
    for (std::uint32_t number = first; number <= last; ++number) {
        Anything const answer = GetValue(String(static_cast<unsigned long>(number)));
        if (!answer.IsValid()) continue;
        auto const& values = answer.GetVectorOfAnythings();
        samples[number - first] = {values[0].GetDouble(), values[1].GetDouble(), values[2].GetDouble()};
    }
    samples_ = std::move(samples);
}

std::optional<LabGraph::Place> LabGraph::OnBar(double lightness) const {
    if (!(view_.lBegin <= lightness && lightness <= view_.lEnd)) return {};
    double const height = (lightness - view_.lBegin) * view_.lSize / (view_.lEnd - view_.lBegin);
    return Place{view_.lZero.x, ScaleMap::ToShort(view_.lZero.y - ScaleMap::ToShort(height + 0.5))};
}

std::optional<LabGraph::Place> LabGraph::OnPlane(double a, double b) const {
    if (!(std::sqrt(a * a + b * b) <= view_.xyRange)) return {};
    return Place{ScaleMap::ToShort(view_.xyZero.x + view_.xySize * a / view_.xyRange + 0.5),
                 ScaleMap::ToShort(view_.xyZero.y - view_.xySize * b / view_.xyRange + 0.5)};
}

String LabGraph::GetNumberTable() {
    NumberTable table;
    bool const isPlaneFirst = viewName_ == "CIEXYY";
    for (auto const& [first, second, third] : samples_)
        if ((isPlaneFirst ? third : first) != hole) table.Add(first).Add(second).Add(third).EndRow();
    return table.Take();
}

void LabGraph::OnPaint(PlatformIndependentDeviceContext& context) {
    Graph::OnPaint(context);
    if (view_.backgroundRadius > 0) {
        int const radius = view_.backgroundRadius;
        context.SetPen(GetBackgroundColor(), 1, PlatformIndependentDeviceContext::solid);
        context.SetBrush(GetBackgroundColor());
        context.FillEllipse(
            ScaleMap::ToShort(view_.xyZero.x - radius), ScaleMap::ToShort(view_.xyZero.y - radius),
            ScaleMap::ToShort(view_.xyZero.x + radius), ScaleMap::ToShort(view_.xyZero.y + radius));
    }
    long current = -1;
    try {
        Anything const slice = GetValue("CurrentSlice");
        if (slice.IsValid()) current = slice.GetShort();
    } catch (...) {
        Diagnostics::DropException("LabGraph::OnPaint: CurrentSlice");
    }
    Anything const show = GetValue("ShowLValue");
    bool const showsBar = show.IsValid() && show.GetBool();
    bool const isPlaneFirst = viewName_ == "CIEXYY";
    for (std::size_t i = 0; i < samples_.size(); ++i) {
        auto const& [first, second, third] = samples_[i];
        double lightness = isPlaneFirst ? third : first;
        double const a = isPlaneFirst ? first : second;
        double const b = isPlaneFirst ? second : third;
        if (lightness == hole) continue;
        // What a conversion gives for black.
        constexpr double almostNothing = -0.000001;
        if (almostNothing < lightness && lightness < 0) lightness = 0;
        bool const isSelected = static_cast<long>(i) == current;
        if (showsBar) {
            auto const place = OnBar(lightness);
            if (!place) continue;
            DrawStar(context, *place, isSelected);
        }
        if (auto const place = OnPlane(a, b)) DrawStar(context, *place, isSelected);
    }
}

} // namespace GUI
