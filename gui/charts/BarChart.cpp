#include "gui/charts/BarChart.h"

#include "gui/charts/BarGraph.h"
#include "gui/charts/EdgeAxes.h"
#include "gui/charts/GraphAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

namespace Keys = GraphAttributes;

constexpr Attribute baseLineKey{"BaseLine", AttributeType::Number, "0",
                                "Thickness of the base line in pixels"};
constexpr Attribute graphKeys[] = {Keys::justificationOnX, CommonAttributes::backgroundColor,
                                   Keys::lineColor,        Keys::xScaleDrawLines,
                                   Keys::xScaleGraduation, Keys::yScaleDrawLines,
                                   Keys::yScaleGraduation, Keys::thickLineGraduation,
                                   Keys::labels,           Keys::barFormat};
constexpr Attribute attributeList[] = {baseLineKey,
                                       Keys::justificationOnX,
                                       Keys::lineColor,
                                       Keys::xScaleDrawLines,
                                       Keys::xScaleGraduation,
                                       Keys::yScaleDrawLines,
                                       Keys::yScaleGraduation,
                                       Keys::thickLineGraduation,
                                       Keys::numbersAtLines,
                                       Keys::labels,
                                       Keys::barFormat};

ElementRegistration<BarChart, Pane> const registration({"BarChart", "$Revision: 1.26 $", "GUI"},
                                                       attributeList);

constexpr char const* graphName = "BarGraph";
/// Of a side without a ruler.
constexpr long sideMargin = 5;
/// What the side ruler adds to the room of both.
constexpr long sideRulerGrowth = 5;
/// From the end of a ruler's room to its line, its short and long ticks and its numbers.
constexpr long toLine = 5;
/// Above the plot of a graph with labels.
constexpr long labelledTop = 8;
constexpr long toShortTickTop = 8;
constexpr long toShortTickSide = 7;
constexpr long toLongTickTop = 11;
constexpr long toLongTickSide = 10;
constexpr long toNumbersTop = 24;
constexpr long toNumbersSide = 11;

RGBVector const black{ThemeRole::Axis, RGBVector()};
RGBVector const limitColor{ThemeRole::Fail, RGBVector(255, 0, 0)};

short Short(long value) { return ScaleMap::ToShort(static_cast<double>(value)); }

/// A number as a ruler shows it: from 100 on without decimals, and without those that are 0.
String NumberText(double value, int decimals) {
    if (std::abs(value) >= 100) return String(value, 0, '.');
    std::string text = String(value, decimals, '.').GetStdString();
    std::string const zeros = "." + std::string(static_cast<std::size_t>(decimals), '0');
    if (text.ends_with(zeros)) text.resize(text.size() - zeros.size());
    // Sums of steps that should be 0 may be below it.
    return text == "-0" ? "0" : text.c_str();
}

/// Visits the values of a ruler from its begin to its end, as many as can be told apart.
template <class Visit> void Walk(double low, double high, double step, Visit visit) {
    if (!(step > 0)) return;
    int count = 0;
    for (double value = std::trunc(low / step) * step; value <= high && count < Graph::maximalLines;
         value += step, ++count)
        visit(value);
}

} // namespace

void BarChart::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                          DialogDataSource* dataSource) {
    Chart::Initialize(parent, description, dataSource);
    numbersAtLines_ = AttributeReader(description).Flag(Keys::numbersAtLines);
    baseLine_ = AttributeReader(description).Text(baseLineKey).GetShort();
    BuildGraphDescription(description);
    OnUpdate("Properties");
}

void BarChart::BuildGraphDescription(AttributeMap const& attributes) {
    AttributeReader const reader(attributes);
    auto const graph = DescribeGraph("BarGraph", graphName);
    (*graph)["Frame"] = "No";
    for (Attribute const& key : graphKeys)
        if (auto const found = attributes.Find(key.key); found.IsValid())
            (*graph)[key.key] = found.GetValue();

    isLabelled_ = reader.Flag(Keys::labels);
    if (isLabelled_) {
        // Scale and names are in the graph's own room.
        (*graph)[Keys::left.key] = String(EdgeAxes::leftRoom);
        (*graph)[Keys::bottom.key] = String(EdgeAxes::belowRoom);
        (*graph)[Keys::top.key] = String(labelledTop);
    }
    auto const isNone = [&reader](Attribute const& key) { return reader.Text(key) == "0"; };
    if (reader.Has(Keys::justificationOnX) && !isLabelled_) {
        bool const hasX = !(isNone(Keys::xScaleDrawLines) && isNone(Keys::xScaleGraduation));
        bool const hasY = !(isNone(Keys::yScaleDrawLines) && isNone(Keys::yScaleGraduation));
        justificationOnX_ = reader.Flag(Keys::justificationOnX);
        showTopRuler_ = justificationOnX_ ? hasX : hasY;
        showSideRuler_ = justificationOnX_ ? hasY : hasX;
    }

    auto const frame = Utilities::MakeSmart<DescriptionTree>();
    (*frame)["GUIElementType"] = "FrameBox";
    (*frame)["ElementName"] = "BarGraphFrameBox";
    // The side ruler's growth comes behind the upper margin: the upper ruler then is on the frame's edge.
    (*frame)["Top"] = String(showTopRuler_ ? rulerMargin_ : 0);
    (*frame)["Bottom"] = String(showTopRuler_ ? 0L : long{baseLine_});
    if (showSideRuler_) rulerMargin_ += sideRulerGrowth;
    (*frame)["Left"] = String(showSideRuler_ ? rulerMargin_ : sideMargin);
    (*frame)["Right"] = String(sideMargin);
    frame->AddChild(graph);

    GetGraphDescription() = DescriptionTree();
    GetGraphDescription().AddChild(frame);
    CreateChildren();
}

Anything BarChart::GetValue(String const& element, String const& name) {
    if (element == graphName && name == "WithFrame") return false;
    return Chart::GetValue(element, name);
}

long BarChart::OnUpdate(Anything const& command) {
    String const message = command.IsOfTypeString() ? command.GetString() : String();
    if (!command.IsValid() || message.FindSubstring("Properties", 0) >= 0) {
        FireCallback(graphName, "OnUpdate", command);
        return Chart::OnUpdate(command);
    }
    FireCallback(graphName, "OnUpdate", message + "|NoRepaint");
    ReadUpdate(command);
    Repaint();
    return 0;
}

BarGraph* BarChart::GetGraph() const {
    GUIElement const* const frame = GetFirstChild();
    if (!frame) return nullptr;
    auto const first = frame->GetChildrenList().Begin();
    return first.IsValid() ? dynamic_cast<BarGraph*>(first.Current().Get()) : nullptr;
}

BarChart::Ruler BarChart::GetRuler(BarGraph& graph, bool isX) const {
    Ruler ruler;
    double begin = 0;
    if (isX) {
        graph.GetXScale(ruler.low, ruler.high);
        graph.GetXGraduation(begin, ruler.ticks);
        graph.GetXDrawLines(begin, ruler.numbers);
    } else {
        graph.GetYScale(ruler.low, ruler.high);
        graph.GetYGraduation(begin, ruler.ticks);
        graph.GetYDrawLines(begin, ruler.numbers);
    }
    return ruler;
}

void BarChart::OnPaint(PlatformIndependentDeviceContext& context) {
    BarGraph* const graph = GetGraph();
    if (graph) graph->Repaint();
    Chart::OnPaint(context);
    context.SetBrush(black);
    context.SetPen(black, 2, PlatformIndependentDeviceContext::solid);
    context.SetFont(5, 0, 0, "MS Sans Serif", 0);
    if (!graph || isLabelled_) return;
    unsigned long width = 0;
    unsigned long height = 0;
    graph->GetSize(width, height);
    auto const graphWidth = static_cast<long>(width);
    auto const graphHeight = static_cast<long>(height);
    if (showTopRuler_) DrawTopRuler(context, GetRuler(*graph, justificationOnX_), graphWidth);
    unsigned long graphX = 0;
    unsigned long graphY = 0;
    if (numbersAtLines_) graph->GetPosition(graphX, graphY);
    auto const graphTop = static_cast<long>(graphY);
    if (showSideRuler_) DrawSideRuler(context, GetRuler(*graph, !justificationOnX_), graphTop, graphHeight);
    long const graphLeft = numbersAtLines_ ? static_cast<long>(graphX) : sideMargin;
    DrawLimitMarks(context, *graph, graphLeft, graphTop, graphWidth, graphHeight);
    if (baseLine_ > 0) DrawBaseLine(context);
}

void BarChart::DrawTopRuler(PlatformIndependentDeviceContext& context, Ruler const& ruler,
                            long graphWidth) const {
    unsigned long chartWidth = 0;
    unsigned long chartHeight = 0;
    GetSize(chartWidth, chartHeight);
    long const begin = showSideRuler_ ? rulerMargin_ : sideMargin;
    short const line = Short(rulerMargin_ - toLine);
    auto const place = [&](double value) {
        return ScaleMap::ToShort(static_cast<double>(begin) + (value - ruler.low) *
                                                                  static_cast<double>(graphWidth) /
                                                                  (ruler.high - ruler.low));
    };
    context.SetPen(black, 1, PlatformIndependentDeviceContext::solid);
    context.DrawLine(Short(begin), line, Short(begin + graphWidth), line);
    Walk(ruler.low, ruler.high, ruler.ticks, [&](double value) {
        context.DrawLine(place(value), line, place(value), Short(rulerMargin_ - toShortTickTop));
    });
    Walk(ruler.low, ruler.high, ruler.numbers, [&](double value) {
        context.DrawLine(place(value), line, place(value), Short(rulerMargin_ - toLongTickTop));
        String const text = NumberText(value, 2);
        long width = 0;
        long height = 0;
        context.GetTextExtent(text, width, height);
        long const centred = place(value) - width / 2;
        long const left = std::max(std::min(centred, static_cast<long>(chartWidth) - width), 0L);
        context.DrawText(Short(left), Short(rulerMargin_ - toNumbersTop), text);
    });
}

void BarChart::DrawSideRuler(PlatformIndependentDeviceContext& context, Ruler const& ruler, long graphTop,
                             long graphHeight) const {
    unsigned long chartWidth = 0;
    unsigned long chartHeight = 0;
    GetSize(chartWidth, chartHeight);
    short const line = Short(rulerMargin_ - toLine);
    auto const length = static_cast<double>(graphHeight);
    // An X scale runs downward.
    bool const isDownward = numbersAtLines_ && !justificationOnX_;
    auto const place = [&](double value) {
        double const way = (isDownward ? ruler.high - value : value - ruler.low) * length;
        return ScaleMap::ToShort(static_cast<double>(graphTop) + length - way / (ruler.high - ruler.low));
    };
    context.SetPen(black, 1, PlatformIndependentDeviceContext::solid);
    context.DrawLine(line, Short(graphTop + graphHeight), line, Short(graphTop));
    Walk(ruler.low, ruler.high, ruler.ticks, [&](double value) {
        context.DrawLine(line, place(value), Short(rulerMargin_ - toShortTickSide), place(value));
    });
    Walk(ruler.low, ruler.high, ruler.numbers, [&](double value) {
        context.DrawLine(line, place(value), Short(rulerMargin_ - toLongTickSide), place(value));
        String const text = NumberText(value, 1);
        long width = 0;
        long height = 0;
        context.GetTextExtent(text, width, height);
        long const centred = place(value) - height / 2;
        long const top = std::max(std::min(centred, static_cast<long>(chartHeight) - height), 0L);
        context.DrawText(Short(rulerMargin_ - toNumbersSide - width), Short(top), text);
    });
}

void BarChart::DrawLimitMarks(PlatformIndependentDeviceContext& context, BarGraph& graph, long graphLeft,
                              long graphTop, long graphWidth, long graphHeight) const {
    double negative = 0;
    double positive = 0;
    graph.GetLimits(negative, positive);
    double low = 0;
    double high = 0;
    graph.GetYScale(low, high);
    context.SetPen(limitColor, 1, PlatformIndependentDeviceContext::solid);
    for (double const limit : {-negative, positive}) {
        double const share = (limit - low) / (high - low);
        if (justificationOnX_) {
            auto const length = static_cast<double>(graphHeight);
            short const row = ScaleMap::ToShort(static_cast<double>(graphTop) + length - share * length);
            context.DrawLine(0, row, Short(rulerMargin_), row);
        } else {
            short const column =
                ScaleMap::ToShort(static_cast<double>(graphLeft) + share * static_cast<double>(graphWidth));
            context.DrawLine(column, 0, column, Short(rulerMargin_));
        }
    }
}

void BarChart::DrawBaseLine(PlatformIndependentDeviceContext& context) const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    context.SetPen(black, baseLine_, PlatformIndependentDeviceContext::solid);
    if (justificationOnX_) {
        short const y = Short(static_cast<long>(height) - baseLine_ + 1);
        context.DrawLine(0, y, Short(static_cast<long>(width)), y);
    } else {
        context.DrawLine(0, 0, 0, Short(static_cast<long>(height)));
    }
}

} // namespace GUI
