#include "gui/charts/CrossGraph.h"

#include "gui/charts/GraphAttributes.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute attributeList[] = {GraphAttributes::colorBarType, PatchAttributes::smooth,
                                       PlaneDecor::ringsAttribute, PlaneDecor::hueLinesAttribute,
                                       PlaneDecor::gamutEdgeAttribute};

ElementRegistration<CrossGraph, Graph> const registration({"CrossGraph", "$Revision: 1.11 $", "GUI"},
                                                          attributeList);

/// Of a cross, from its middle to its ends; and around a point that a tool tip tells of.
constexpr int crossArm = 6;
constexpr int reach = 5;
constexpr unsigned long barThickness = 5;

short Short(long value) { return ScaleMap::ToShort(static_cast<double>(value)); }

} // namespace

void CrossGraph::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    Graph::Initialize(parent, description, dataSource);
    SetFrame(false);
    colorBarType_ = AttributeReader(description).Text(GraphAttributes::colorBarType);
    smooth_ = AttributeReader(description).Flag(PatchAttributes::smooth);
    decor_.ReadAttributes(description);
    OnUpdate("Properties");
}

long CrossGraph::OnUpdate(Anything const& command) {
    Graph::OnUpdate(command);
    String const message = GetCommand(command);
    if (message == "Properties") {
        Anything const type = GetValue(GraphAttributes::colorBarType.key);
        if (type.IsValid()) colorBarType_ = type.GetString();
        tolerance_ = ToleranceContour(GetValue("Tolerance"));
        if (decor_.HasGamutEdge()) decor_.TakeGamutLightness(GetValue(PlaneDecor::gamutLightnessKey));
        decor_.TakeTrace(GetValue(PlaneDecor::traceKey));
    } else {
        ReadPoints(UpdateMessage::Range::Parse(message).value_or(UpdateMessage::Range{}));
    }
    Repaint();
    return 0;
}

void CrossGraph::ReadPoints(UpdateMessage::Range const& range) {
    std::uint32_t const first = range.firstColumn;
    std::uint32_t const last = range.lastColumn;
    std::vector<Point> points(last >= first ? last - first + 1 : 0);
    for (std::uint32_t number = first; number <= last; ++number) {
        Anything const answer = GetValue(String(static_cast<unsigned long>(number)));
        if (!answer.IsValid()) continue;
        if (number == 0 || number > points.size())
            throw Norvelian::Utilities::Exceptions::OutOfRangeException("vector index >= vector size");
        auto const& pair = answer.GetVectorOfAnythings();
        points[number - 1] = {pair[0].GetDouble(), pair[1].GetDouble()};
    }
    points_ = std::move(points);
}

void CrossGraph::OnPaint(PlatformIndependentDeviceContext& context) {
    static RGBVector const crossedOut(32, 32, 32);
    Graph::OnPaint(context);
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    if (colorBarType_ == "NoGraph") {
        short const right = Short(static_cast<long>(width) - 1);
        short const bottom = Short(static_cast<long>(height));
        context.SetPen(crossedOut, 1, PlatformIndependentDeviceContext::solid);
        context.DrawLine(0, 0, right, bottom);
        context.DrawLine(0, bottom, right, 0);
        return;
    }
    context.SetPen(GetLineColor(), 1, PlatformIndependentDeviceContext::solid);
    DrawBars(context);
    if (smooth_) context.SetSmooth(true);
    ScaleMap const map = GetScaleMap();
    if (!decor_.IsEmpty()) {
        double const xUnit = map.width / (map.xEnd - map.xBegin);
        double const yUnit = map.height / (map.yEnd - map.yBegin);
        decor_.Draw(context, {static_cast<long>(width), static_cast<long>(height),
                              map.left - map.xBegin * xUnit, map.top + map.yEnd * yUnit, xUnit, yUnit});
        context.SetPen(GetLineColor(), 1, PlatformIndependentDeviceContext::solid);
    }
    tolerance_.Draw(context, [&map](ToleranceContour::Point const& point) {
        short x = 0;
        short y = 0;
        map.ToPixel(point.first, point.second, x, y);
        return std::pair(x, y);
    });
    context.SetPen(GetLineColor(), 3, PlatformIndependentDeviceContext::solid);
    for (Point const& point : points_) {
        short x = 0;
        short y = 0;
        map.ToPixel(point.x, point.y, x, y);
        short const left = Short(x - crossArm);
        short const right = Short(x + crossArm);
        short const top = Short(y - crossArm);
        short const bottom = Short(y + crossArm);
        context.DrawLine(left, top, right, bottom);
        context.DrawLine(right, top, left, bottom);
    }
}

void CrossGraph::DrawBars(PlatformIndependentDeviceContext& context) const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    // Along the middle three fifths of each edge.
    auto const bar = [&context](RGBVector const& color, unsigned long left, unsigned long top,
                                unsigned long right, unsigned long bottom) {
        context.SetBrush(color);
        context.FillRectangle(static_cast<short>(left), static_cast<short>(top), static_cast<short>(right),
                              static_cast<short>(bottom));
    };
    if (colorBarType_ == "ab") {
        bar(RGBVector(0, 255, 0), 0, height / 5, barThickness, 4 * height / 5);
        bar(RGBVector(255, 0, 0), width - barThickness, height / 5, width, 4 * height / 5);
        bar(RGBVector(255, 255, 0), width / 5, 0, 4 * width / 5, barThickness);
        bar(RGBVector(0, 0, 255), width / 5, height - barThickness, 4 * width / 5, height);
    } else if (colorBarType_ == "L") {
        bar(RGBVector(255, 255, 255), width / 5, 0, 4 * width / 5, barThickness);
        bar(RGBVector(0, 0, 0), width / 5, height - barThickness, 4 * width / 5, height);
    }
}

String CrossGraph::GetNumberTable() {
    NumberTable table;
    table.Add("x").Add("y").EndRow();
    for (Point const& point : points_) table.Add(point.x).Add(point.y).EndRow();
    return table.Take();
}

String CrossGraph::GetToolTipText(unsigned short x, unsigned short y) {
    double right = 0;
    double lower = 0;
    double left = 0;
    double upper = 0;
    // Values fall as pixels rise: the lower Y comes with the higher X.
    PixelToValue(Short(long{x} + reach), Short(long{y} + reach), right, lower);
    PixelToValue(Short(long{x} - reach), Short(long{y} - reach), left, upper);
    auto const points = points_;
    for (std::size_t i = 0; i < points.size(); ++i) {
        Point const& point = points[i];
        if (!(left < point.x && point.x < right && lower < point.y && point.y < upper)) continue;
        Anything const text = GetValue(String("ToolTipText ") + String(static_cast<unsigned long>(i + 1)));
        if (text.IsValid()) return text.GetString();
    }
    return {};
}

} // namespace GUI
