#include "gui/charts/Graph.h"

#include "gui/charts/GraphAttributes.h"

namespace GUI {

using Utilities::Anything;

namespace {

namespace Keys = GraphAttributes;

constexpr Attribute attributeList[] = {Keys::lineColor,
                                       Keys::xScaleDrawLines,
                                       Keys::xScaleGraduation,
                                       Keys::yScaleDrawLines,
                                       Keys::yScaleGraduation,
                                       Keys::justificationOnX,
                                       Keys::left,
                                       Keys::top,
                                       Keys::right,
                                       Keys::bottom,
                                       Keys::drawAxis};
/// A text that holds a number; an empty one leaves the field, no answer gives the default.
void TakeText(Anything const& value, double defaultValue, double& field) {
    if (!value.IsValid())
        field = defaultValue;
    else if (!value.IsOfTypeString() || value.GetString().Length() != 0)
        field = value.GetDouble();
}

/// Walks by repeated addition of the step, as long as `isInside` holds.
template <class Inside, class Visit> void Walk(double first, double step, Inside isInside, Visit visit) {
    int lines = 0;
    for (double value = first; isInside(value) && lines < Graph::maximalLines; value += step, ++lines)
        visit(value);
}

} // namespace

AttributesOf<Graph> const Graph::attributeTable("Graph", &Pane::attributeTable, attributeList);

void Graph::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                       DialogDataSource* dataSource) {
    Pane::Initialize(parent, description, dataSource);
    if (GetBackgroundBitmap().Length() == 0) SetFrame(true);
    ReadAttributes(description);
    TakeText(GetValue("XValueBegin"), 0, xValueBegin_);
    TakeText(GetValue("DeltaXValue"), 1, deltaXValue_);
    RegisterOnUpdate();
    OnUpdate("Properties");
}

void Graph::ReadAttributes(DescriptionTree const& description) {
    AttributeReader const attributes(description);
    lineColor_ = attributes.Colour(Keys::lineColor);
    xScaleDrawLines_ = attributes.Number(Keys::xScaleDrawLines);
    xScaleGraduation_ = attributes.Number(Keys::xScaleGraduation);
    yScaleDrawLines_ = attributes.Number(Keys::yScaleDrawLines);
    yScaleGraduation_ = attributes.Number(Keys::yScaleGraduation);
    justificationOnX_ = attributes.FlagUnlessNo(Keys::justificationOnX);
    if (attributes.Text(Keys::left).Length() != 0) left_ = attributes.Number(Keys::left);
    if (attributes.Text(Keys::top).Length() != 0) top_ = attributes.Number(Keys::top);
    if (attributes.Text(Keys::right).Length() != 0) right_ = attributes.Number(Keys::right);
    if (attributes.Text(Keys::bottom).Length() != 0) bottom_ = attributes.Number(Keys::bottom);
    drawAxis_ = attributes.FlagUnlessNo(Keys::drawAxis);
}

long Graph::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    // Here the suffix counts only behind a command.
    bool repaint = !HasNoRepaint(command) || GetCommand(command).Length() == 0;
    ReadUpdate(command);
    if (GetCommand(command) == "Properties") {
        repaint = false;
        ReadProperties();
    }
    if (repaint) Repaint();
    return 0;
}

void Graph::ReadProperties() {
    auto const take = [this](char const* key, double& field) {
        Anything const value = GetValue(key);
        if (value.IsValid()) field = value.GetDouble();
    };
    take("XScaleBegin", xScaleBegin_);
    take("XScaleEnd", xScaleEnd_);
    take("YScaleBegin", yScaleBegin_);
    take("YScaleEnd", yScaleEnd_);
    take("XScaleDrawLines", xScaleDrawLines_);
    take("YScaleDrawLines", yScaleDrawLines_);
    take("XScaleGraduation", xScaleGraduation_);
    take("YScaleGraduation", yScaleGraduation_);
    Anything const justification = GetValue("JustificationOnX");
    if (justification.IsValid()) justificationOnX_ = justification.GetBool();
}

void Graph::GetXScale(double& begin, double& end) {
    PlotRange const range = GetShownRange();
    begin = range.xBegin;
    end = range.xEnd;
}
void Graph::GetYScale(double& begin, double& end) {
    PlotRange const range = GetShownRange();
    begin = range.yBegin;
    end = range.yEnd;
}
void Graph::GetXDrawLines(double& begin, double& step) {
    begin = xValueBegin_;
    step = xScaleDrawLines_;
}
void Graph::GetYDrawLines(double& begin, double& step) {
    begin = GetShownRange().yBegin;
    step = yScaleDrawLines_;
}
void Graph::GetXGraduation(double& begin, double& step) {
    begin = GetShownRange().xBegin;
    step = xScaleGraduation_;
}
void Graph::GetYGraduation(double& begin, double& step) {
    begin = GetShownRange().yBegin;
    step = yScaleGraduation_;
}

void Graph::ValueToPixel(double x, double y, short& px, short& py) { GetScaleMap().ToPixel(x, y, px, py); }
void Graph::PixelToValue(short px, short py, double& x, double& y) { GetScaleMap().ToValue(px, py, x, y); }

ScaleMap Graph::GetScaleMap() const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    ScaleMap map;
    PlotRange const range = GetShownRange();
    map.xBegin = range.xBegin;
    map.xEnd = range.xEnd;
    map.yBegin = range.yBegin;
    map.yEnd = range.yEnd;
    map.left = left_;
    map.top = top_;
    map.width = static_cast<double>(width) - left_ - right_;
    map.height = static_cast<double>(height) - top_ - bottom_;
    map.xIsHorizontal = justificationOnX_;
    return map;
}

namespace {

/// A line between two points of the scale.
void DrawValueLine(PlatformIndependentDeviceContext& context, ScaleMap const& map, double x1, double y1,
                   double x2, double y2) {
    short left = 0;
    short top = 0;
    short right = 0;
    short bottom = 0;
    map.ToPixel(x1, y1, left, top);
    map.ToPixel(x2, y2, right, bottom);
    context.DrawLine(left, top, right, bottom);
}

} // namespace

void Graph::OnPaint(PlatformIndependentDeviceContext& context) {
    Pane::OnPaint(context);
    ScaleMap const map = GetScaleMap();
    context.SetPen(lineColor_, 5, PlatformIndependentDeviceContext::solid);
    if (drawAxis_) DrawAxes(context, map);
    context.SetPen(lineColor_, 1, PlatformIndependentDeviceContext::dotted);
    DrawGrid(context, map);
    context.SetPen(lineColor_, 1, PlatformIndependentDeviceContext::solid);
    if (xScaleGraduation_ > 0) DrawXTicks(context, map);
    if (yScaleGraduation_ > 0) DrawYTicks(context, map);
}

void Graph::DrawAxes(PlatformIndependentDeviceContext& context, ScaleMap const& map) const {
    if (map.yBegin <= 0 && 0 < map.yEnd) DrawValueLine(context, map, map.xBegin, 0, map.xEnd, 0);
    if (map.xBegin <= 0 && 0 < map.xEnd) DrawValueLine(context, map, 0, map.yBegin, 0, map.yEnd);
}

void Graph::DrawGrid(PlatformIndependentDeviceContext& context, ScaleMap const& map) const {
    // The axes are at zero, so the walks leave it out. On X the positive side comes first, on Y the other.
    auto const vertical = [&](double x) { DrawValueLine(context, map, x, map.yBegin, x, map.yEnd); };
    auto const horizontal = [&](double y) { DrawValueLine(context, map, map.xBegin, y, map.xEnd, y); };
    double const xStep = xScaleDrawLines_;
    double const yStep = yScaleDrawLines_;
    if (xStep > 0) {
        Walk(
            xStep, xStep, [&map](double x) { return x < map.xEnd; }, vertical);
        Walk(
            -xStep, -xStep, [&map](double x) { return x > map.xBegin; }, vertical);
    }
    if (yStep > 0) {
        Walk(
            -yStep, -yStep, [&map](double y) { return y > map.yBegin; }, horizontal);
        Walk(
            yStep, yStep, [&map](double y) { return y < map.yEnd; }, horizontal);
    }
}

void Graph::DrawXTicks(PlatformIndependentDeviceContext& context, ScaleMap const& map) const {
    double const step = xScaleGraduation_;
    double const half = yScaleDrawLines_ > 0 ? yScaleDrawLines_ / 10 : (map.yEnd - map.yBegin) / 50;
    Walk(
        step, step, [&map](double x) { return x < map.xEnd; },
        [&](double x) {
            short x1 = 0;
            short y1 = 0;
            short x2 = 0;
            short y2 = 0;
            map.ToPixel(x, half, x1, y1);
            map.ToPixel(x, -half, x2, y2);
            // Short ticks on the positive side alone are lengthened at both ends.
            constexpr short shortest = 4;
            constexpr short extension = 3;
            if (map.xIsHorizontal && y2 - y1 <= shortest) {
                y1 = ScaleMap::ToShort(y1 - extension);
                y2 = ScaleMap::ToShort(y2 + extension);
            } else if (!map.xIsHorizontal && x1 - x2 <= shortest) {
                x1 = ScaleMap::ToShort(x1 + extension);
                x2 = ScaleMap::ToShort(x2 - extension);
            }
            context.DrawLine(x1, y1, x2, y2);
        });
    // This walk begins on the positive side once more and goes over zero.
    Walk(
        step, -step, [&map](double x) { return x > map.xBegin; },
        [&](double x) { DrawValueLine(context, map, x, half, x, -half); });
}

void Graph::DrawYTicks(PlatformIndependentDeviceContext& context, ScaleMap const& map) const {
    double const step = yScaleGraduation_;
    double const half = xScaleDrawLines_ > 0 ? xScaleDrawLines_ / 10 : (map.xEnd - map.xBegin) / 50;
    auto const tick = [&](double y) { DrawValueLine(context, map, half, y, -half, y); };
    Walk(
        step, -step, [&map](double y) { return y > map.yBegin; }, tick);
    Walk(
        step, step, [&map](double y) { return y < map.yEnd; }, tick);
}

} // namespace GUI
