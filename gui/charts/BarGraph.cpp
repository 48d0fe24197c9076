#include "gui/charts/BarGraph.h"

#include "gui/charts/GraphAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute barWidthKey{"BarWidth", AttributeType::Number, "8", "Width of a bar in X values"};
constexpr Attribute positivLimitKey{"PositivLimit", AttributeType::Number, "5", "Upper limit"};
constexpr Attribute negativLimitKey{"NegativLimit", AttributeType::Number, "5",
                                    "Magnitude of the lower limit"};
constexpr Attribute showLimitKey{"ShowLimit", AttributeType::Flag, "No", "A red line at each limit"};
constexpr Attribute colorKey{"Color", AttributeType::Colour, "255,0,0", "Colour of bars beyond a limit"};
constexpr Attribute attributeList[] = {GraphAttributes::labels,
                                       GraphAttributes::barFormat,
                                       barWidthKey,
                                       positivLimitKey,
                                       negativLimitKey,
                                       showLimitKey,
                                       GraphAttributes::thickLineGraduation,
                                       colorKey};

ElementRegistration<BarGraph, Graph> const registration({"BarGraph", "$Revision: 1.24 $", "GUI"},
                                                        attributeList);

RGBVector const shadowColor(128, 128, 128);
RGBVector const bandColor{ThemeRole::Band, RGBVector(192, 192, 192)};
RGBVector const cellColor{ThemeRole::Grid, RGBVector(224, 224, 224)};
RGBVector const hatchColor{ThemeRole::Ink2, RGBVector(64, 64, 64)};
RGBVector const limitColor{ThemeRole::Fail, RGBVector(255, 0, 0)};
RGBVector const black{ThemeRole::Axis, RGBVector()};

/// The bars' pseudo-depth in pixels.
constexpr int depthX = 2;
constexpr int depthHalf = 1;
constexpr int depthY = 2;

short Short(int value) { return ScaleMap::ToShort(value); }

void UseColor(PlatformIndependentDeviceContext& context, RGBVector const& color) {
    context.SetPen(color, 1, PlatformIndependentDeviceContext::solid);
    context.SetBrush(color);
}

} // namespace

BarGraph::Place BarGraph::Scale::At(double x, double y) const {
    Place place;
    map.ToPixel(x, y, place.x, place.y);
    return place;
}

BarGraph::Box BarGraph::Scale::Between(Place const& a, Place const& b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

void BarGraph::Scale::DrawLine(PlatformIndependentDeviceContext& context, double x1, double y1, double x2,
                               double y2) const {
    Place const from = At(x1, y1);
    Place const to = At(x2, y2);
    context.DrawLine(from.x, from.y, to.x, to.y);
}

namespace {

/// Diagonal lines, whose ends walk along the left and lower edge and along the upper and right one.
template <class Box> void DrawHatch(PlatformIndependentDeviceContext& context, Box const& box) {
    constexpr int distance = 8;
    int const width = box.right - box.left;
    int const height = box.bottom - box.top;
    context.SetPen(hatchColor, 1, PlatformIndependentDeviceContext::solid);
    for (int way = distance; way < width + height; way += distance) {
        int const beyondLeft = std::max(way - height, 0);
        int const beyondTop = std::max(way - width, 0);
        context.DrawLine(Short(box.left + beyondLeft), Short(box.top + way - beyondLeft),
                         Short(box.left + way - beyondTop), Short(box.top + beyondTop));
    }
}

} // namespace

void BarGraph::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                          DialogDataSource* dataSource) {
    AttributeReader const attributes(description);
    barWidth_ = attributes.Number(barWidthKey);
    positivLimit_ = attributes.Number(positivLimitKey);
    negativLimit_ = attributes.Number(negativLimitKey);
    showLimit_ = attributes.Flag(showLimitKey);
    thickLineGraduation_ = attributes.Long(GraphAttributes::thickLineGraduation);
    // Until the attribute says otherwise, bars within their limits are as red as the others.
    barColor_ = barColorLight_ = attributes.Colour(colorKey);
    if (attributes.HasColour(colorKey)) SetColor(barColor_);
    isLabelled_ = attributes.Flag(GraphAttributes::labels);
    valueFormat_ = attributes.Text(GraphAttributes::barFormat);
    Graph::Initialize(parent, description, dataSource);
    if (attributes.Has(CommonAttributes::frame)) SetFrame(attributes.Flag(CommonAttributes::frame));
}

void BarGraph::SetColor(RGBVector const& color) {
    auto const lighter = [](unsigned char channel) {
        return static_cast<unsigned char>(channel + (255 - channel) / 2);
    };
    barColor_ = color;
    barColorLight_ = RGBVector(lighter(color.GetRed()), lighter(color.GetGreen()), lighter(color.GetBlue()));
}

void BarGraph::GetLimits(double& negative, double& positive) {
    negative = negativLimit_;
    positive = positivLimit_;
}

long BarGraph::OnUpdate(Anything const& command) {
    Graph::OnUpdate(command);
    String const message = command.IsOfTypeString() ? command.GetString() : String();
    if (!command.IsValid() || message.FindSubstring("Properties", 0) >= 0) {
        ReadProperties();
        return 0;
    }
    if (auto const range = UpdateMessage::Range::Parse(GetCommand(message))) ReadBars(*range);
    if (!HasNoRepaint(message)) Repaint();
    return 0;
}

void BarGraph::ReadProperties() {
    auto const take = [this](char const* key, double& field) {
        Anything const value = GetValue(key);
        if (value.IsValid()) field = value.GetDouble();
    };
    take("BarWidth", barWidth_);
    take("PositivLimit", positivLimit_);
    take("NegativLimit", negativLimit_);
    Anything const show = GetValue("ShowLimit");
    if (show.IsValid()) showLimit_ = show.GetLong() > 0;
    Anything const color = GetValue("Color");
    if (color.IsValid()) SetColor(RGBVector(color));
}

void BarGraph::ReadBars(UpdateMessage::Range const& range) {
    auto bars = bars_;
    String title = title_;
    bars.resize(range.Count());
    Anything const column = GetValue(String(static_cast<unsigned long>(range.firstColumn)));
    if (column.IsValid()) {
        auto const& entries = column.GetVectorOfAnythings();
        if (entries.GetSize() > bars.size() + 1)
            throw Norvelian::Utilities::Exceptions::OutOfRangeException("vector index >= vector size");
        if (entries.GetSize() != 0 && entries[0].IsValid()) title = entries[0].GetString();
        for (std::uint32_t i = 1; i < entries.GetSize(); ++i) {
            bool const isMissing = !entries[i].IsValid();
            bars[i - 1] = {isMissing ? 0 : entries[i].GetDouble(), isMissing};
        }
    }
    double begin = GetXValueBegin();
    double step = GetDeltaXValue();
    Anything const newBegin = GetValue("ValueBegin");
    if (newBegin.IsValid()) begin = newBegin.GetDouble();
    Anything const newStep = GetValue("ValueStep");
    if (newStep.IsValid()) step = newStep.GetDouble();
    SetXValues(begin, step);
    bars_ = std::move(bars);
    title_ = title;
    if (isLabelled_) ReadLabels();
}

BarGraph::Scale BarGraph::GetScale() {
    Scale scale;
    scale.map = GetScaleMap();
    GetXScale(scale.xBegin, scale.xEnd);
    GetYScale(scale.yBegin, scale.yEnd);
    return scale;
}

void BarGraph::OnPaint(PlatformIndependentDeviceContext& context) {
    if (isLabelled_) return PaintLabelled(context);
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): contracted, the grid of the base class is left out
    Pane::OnPaint(context);
    Scale const scale = GetScale();
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) DrawBands(context, scale, bar);
    if (thickLineGraduation_ > 0) DrawThickLines(context, scale);

    context.SetPen(GetLineColor(), 5, PlatformIndependentDeviceContext::solid);
    if (scale.yBegin <= 0 && 0 <= scale.yEnd) scale.DrawLine(context, scale.xBegin, 0, scale.xEnd, 0);
    if (scale.xBegin < 0 && 0 < scale.xEnd) scale.DrawLine(context, 0, scale.yBegin, 0, scale.yEnd);
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) DrawBar(context, scale, bar);
    if (showLimit_) DrawLimits(context, scale);
}

void BarGraph::DrawBands(PlatformIndependentDeviceContext& context, Scale const& scale,
                         std::size_t bar) const {
    double const x = XOf(bar);
    double const half = GetDeltaXValue() / 2;
    double const quarter = (GetDeltaXValue() + barWidth_) / 4;
    auto const fill = [&](RGBVector const& color, double halfWidth, double from, double to) {
        Box const box = scale.Between(x - halfWidth, from, x + halfWidth, to);
        UseColor(context, color);
        context.FillRectangle(box.left, box.top, Short(box.right + 1), Short(box.bottom + 1));
        return box;
    };
    fill(cellColor, half, -negativLimit_, positivLimit_);
    fill(bandColor, quarter, -negativLimit_, positivLimit_);
    Box const band = fill(bandColor, quarter, -negativLimit_, positivLimit_);
    fill(cellColor, quarter, -negativLimit_, scale.yBegin);
    fill(cellColor, quarter, positivLimit_, scale.yEnd);
    if (bars_[bar].isMissing) DrawHatch(context, band);
}

void BarGraph::DrawThickLines(PlatformIndependentDeviceContext& context, Scale const& scale) const {
    double const half = GetDeltaXValue() / 2;
    context.SetPen(black, 1, PlatformIndependentDeviceContext::solid);
    scale.DrawLine(context, XOf(0) - half, scale.yBegin, XOf(0) - half, scale.yEnd);
    double const last = XOf(bars_.size()) - half;
    Place const from = scale.At(last, scale.yBegin);
    Place const to = scale.At(last, scale.yEnd);
    context.DrawLine(from.x, from.y, Short(to.x - 1), Short(to.y - 1));
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) {
        if ((bar + 1) % static_cast<std::size_t>(thickLineGraduation_) != 0) continue;
        double const x = XOf(bar) + half;
        scale.DrawLine(context, x, scale.yBegin, x, scale.yEnd);
    }
}

void BarGraph::DrawBar(PlatformIndependentDeviceContext& context, Scale const& scale, std::size_t bar) const {
    double const value = bars_[bar].value;
    // Neither nothing nor what is no number.
    if (!(value < 0) && !(value > 0)) return;
    constexpr int darkBelow = 200;
    bool const isBeyond = value < -negativLimit_ || value > positivLimit_;
    bool const isDark = barColor_.GetRed() + barColor_.GetGreen() + barColor_.GetBlue() < darkBelow;
    RGBVector const shadow = isBeyond && !isDark ? black : shadowColor;
    RGBVector const face = isBeyond ? barColor_ : barColorLight_;
    double const x = XOf(bar);
    if (!(scale.yBegin < value && value < scale.yEnd)) {
        DrawTornBar(context, scale, x, barWidth_, value > 0 ? scale.yEnd : scale.yBegin, shadow, face);
        return;
    }
    Place const first = scale.At(x - barWidth_ / 2, 0);
    Place const second = scale.At(x + barWidth_ / 2, value);
    int const shadowX = scale.map.xIsHorizontal ? -depthY : depthY;
    Box const shade = Scale::Between({Short(first.x + shadowX - depthHalf), Short(first.y + depthX)},
                                     {Short(second.x + shadowX + 1), Short(second.y + depthX)});
    Box const box = Scale::Between(first, second);
    UseColor(context, shadow);
    context.FillRectangle(shade.left, shade.top, shade.right, shade.bottom);
    UseColor(context, face);
    context.FillRectangle(box.left, box.top, box.right, box.bottom);
}

void BarGraph::DrawTornBar(PlatformIndependentDeviceContext& context, Scale const& scale, double x,
                           double width, double end, RGBVector const& shadow, RGBVector const& face) const {
    struct Corner {
        bool isRight;
        double share;
    };
    static constexpr Corner pieces[3][4] = {{{false, 1.0}, {true, 0.95}, {true, 0.85}, {false, 0.9}},
                                            {{false, 0.85}, {true, 0.8}, {true, 0.7}, {false, 0.75}},
                                            {{false, 0.7}, {true, 0.65}, {true, 0}, {false, 0}}};
    using Points = PlatformIndependentDeviceContext::Points;
    std::array<Points, 3> shadows;
    std::array<Points, 3> faces;
    bool const isHorizontal = scale.map.xIsHorizontal;
    for (std::size_t piece = 0; piece < 3; ++piece) {
        shadows[piece].Resize(4);
        faces[piece].Resize(4);
        for (std::uint32_t i = 0; i < 4; ++i) {
            Corner const& corner = pieces[piece][i];
            Place const place = scale.At(corner.isRight ? x + width / 2 : x - width / 2, end * corner.share);
            shadows[piece][i] = {place.x + (isHorizontal ? -depthY : depthY) - depthHalf,
                                 place.y + depthX - depthHalf};
            // The shadow falls to the left of upright bars and below level ones; the other side gives way.
            faces[piece][i] = {place.x - (isHorizontal && corner.isRight ? depthHalf : 0),
                               place.y - (!isHorizontal && !corner.isRight ? depthHalf : 0)};
        }
    }
    UseColor(context, shadow);
    for (Points const& piece : shadows) context.FillPolygon(piece);
    UseColor(context, face);
    for (Points const& piece : faces) context.FillPolygon(piece);
}

void BarGraph::DrawLimits(PlatformIndependentDeviceContext& context, Scale const& scale) const {
    context.SetPen(limitColor, 1, PlatformIndependentDeviceContext::solid);
    for (double const limit : {positivLimit_, -negativLimit_})
        if (scale.yBegin <= limit && limit < scale.yEnd)
            scale.DrawLine(context, scale.xBegin, limit, scale.xEnd, limit);
}

String BarGraph::GetNumberTable() {
    if (bars_.empty()) return {};
    NumberTable table;
    table.Add("").Add(title_).EndRow();
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) {
        constexpr double none = std::numeric_limits<double>::quiet_NaN();
        table.Add(XOf(bar)).Add(bars_[bar].isMissing ? none : bars_[bar].value).EndRow();
    }
    return table.Take();
}

String BarGraph::GetToolTipText(unsigned short x, unsigned short y) {
    double xValue = 0;
    double yValue = 0;
    PixelToValue(static_cast<short>(isLabelled_ ? x - std::lround(GetScaleMap().left) : x),
                 static_cast<short>(y), xValue, yValue);
    double const bar = std::trunc((xValue - GetXValueBegin() + 0.5) / GetDeltaXValue());
    double const middle = GetXValueBegin() + bar * GetDeltaXValue();
    bool const isInside = middle - barWidth_ / 2 < xValue && xValue < middle + barWidth_ / 2;
    // Written so that what is no number is outside.
    if (!isInside || !(std::abs(bar) <= 65536)) return {};
    Anything const text = GetValue(String("ToolTipText ") + String(static_cast<long>(bar) + 1));
    return text.IsOfTypeString() ? text.GetString() : String();
}

} // namespace GUI
