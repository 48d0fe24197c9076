#include "gui/charts/XYChart.h"

#include "gui/charts/Graph.h"
#include "gui/charts/GraphAttributes.h"
#include "gui/charts/ScaleNumbers.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

namespace Keys = GraphAttributes;

constexpr Attribute graphColor{"GraphColor", AttributeType::Colour, "255,255,255 panel",
                               "Background of the graph"};
constexpr Attribute attributeList[] = {Keys::lineColor,       Keys::xScaleDrawLines,  Keys::xScaleGraduation,
                                       Keys::yScaleDrawLines, Keys::yScaleGraduation, graphColor,
                                       Keys::numbersAtLines,  PatchAttributes::smooth};

ElementRegistration<XYChart, Pane> const registration({"XYChart", "$Revision: 1.13 $", "GUI"}, attributeList);

constexpr char const* graphName = "XYGraph";
/// The margins of the graph, which the numbers' places rest on.
constexpr char const* topMargin = "10";
constexpr char const* bottomMargin = "20";
constexpr char const* leftMargin = "35";
constexpr char const* rightMargin = "5";
constexpr double topPixels = 10;
constexpr double leftPixels = 35;
constexpr long xNumbersAboveBottom = 12;
constexpr short yNumbersLeft = 5;

} // namespace

void XYChart::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    Chart::Initialize(parent, description, dataSource);
    numbersAtLines_ = AttributeReader(description).Flag(Keys::numbersAtLines);
    BuildGraphDescription(description);
    OnUpdate("Properties");
}

void XYChart::BuildGraphDescription(AttributeMap const& attributes) {
    auto const graph = DescribeGraph("XYGraph", graphName);
    (*graph)["JustificationOnX"] = "Yes";
    AttributeReader const reader(attributes);
    for (Attribute const& key : {Keys::lineColor, Keys::xScaleDrawLines, Keys::xScaleGraduation,
                                 Keys::yScaleDrawLines, Keys::yScaleGraduation, PatchAttributes::smooth})
        if (reader.Has(key)) (*graph)[key.key] = reader.Text(key);
    (*graph)["BackgroundColor"] = reader.Text(graphColor);

    auto const frame = Utilities::MakeSmart<DescriptionTree>();
    (*frame)["GUIElementType"] = "FrameBox";
    // This exact text is what hosts know.
    (*frame)["ElementName"] = "abGraphFrameBox";
    (*frame)["Top"] = topMargin;
    (*frame)["Bottom"] = bottomMargin;
    (*frame)["Left"] = leftMargin;
    (*frame)["Right"] = rightMargin;
    frame->AddChild(graph);

    GetGraphDescription() = DescriptionTree();
    GetGraphDescription().AddChild(frame);
    CreateChildren();
}

long XYChart::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    FireCallback(graphName, "OnUpdate", command);
    ReadUpdate(command);
    Repaint();
    return 0;
}

void XYChart::OnPaint(PlatformIndependentDeviceContext& context) {
    Chart::OnPaint(context);
    static RGBVector const black{ThemeRole::Axis, RGBVector()};
    context.SetBrush(black);
    context.SetPen(black, 2, PlatformIndependentDeviceContext::solid);
    context.SetFont(8, 0, 0, "Arial", 0);
    GUIElement const* const frame = GetFirstChild();
    if (!frame) return;
    auto const first = frame->GetChildrenList().Begin();
    auto* const graph = first.IsValid() ? dynamic_cast<Graph*>(first.Current().Get()) : nullptr;
    if (!graph) return;
    if (numbersAtLines_) {
        DrawNumbersAtLines(context, *graph, true);
        DrawNumbersAtLines(context, *graph, false);
        return;
    }
    DrawXNumbers(context, *graph);
    DrawYNumbers(context, *graph);
}

void XYChart::DrawNumbersAtLines(PlatformIndependentDeviceContext& context, Graph& graph, bool isX) const {
    unsigned long chartWidth = 0;
    unsigned long chartHeight = 0;
    GetSize(chartWidth, chartHeight);
    unsigned long graphWidth = 0;
    unsigned long graphHeight = 0;
    graph.GetSize(graphWidth, graphHeight);
    double low = 0;
    double high = 0;
    double begin = 0;
    double step = 0;
    if (isX) {
        graph.GetXScale(low, high);
        graph.GetXDrawLines(begin, step);
    } else {
        graph.GetYScale(low, high);
        graph.GetYDrawLines(begin, step);
    }
    auto const numbers = ScaleNumbers::MultiplesAndEnds(context, low, high, step);
    // The numbers of the ends come first, since the others make room for them.
    constexpr long gap = 4;
    std::vector<std::pair<long, long>> taken;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        std::size_t const number = i == 0 ? 0 : i == 1 ? numbers.size() - 1 : i - 1;
        auto const& [value, text, width, height] = numbers[number];
        long const length = isX ? width : height;
        auto const room = static_cast<long>(isX ? chartWidth : chartHeight);
        double const share = (value - low) / (high - low);
        double const place = isX ? leftPixels + static_cast<double>(graphWidth) * share
                                 : topPixels + static_cast<double>(graphHeight) * (1 - share);
        long const centred = ScaleMap::ToShort(place) - length / 2;
        long const at = std::max(std::min(centred, room - length), 0L);
        bool const isFree = std::none_of(taken.begin(), taken.end(), [&](auto const& other) {
            return at < other.second + gap && other.first < at + length + gap;
        });
        if (!isFree) continue;
        taken.emplace_back(at, at + length);
        if (isX)
            context.DrawText(static_cast<short>(at),
                             ScaleMap::ToShort(static_cast<double>(chartHeight) - xNumbersAboveBottom), text);
        else
            context.DrawText(ScaleMap::ToShort(leftPixels - gap - static_cast<double>(width)),
                             static_cast<short>(at), text);
    }
}

void XYChart::DrawXNumbers(PlatformIndependentDeviceContext& context, Graph& graph) const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    auto const y = static_cast<short>(static_cast<long>(height) - xNumbersAboveBottom);
    graph.GetSize(width, height);
    double low = 0;
    double high = 0;
    graph.GetXScale(low, high);
    double value = 0;
    double step = 0;
    graph.GetXDrawLines(value, step);
    for (int count = 0; value < high && step > 0 && count < Graph::maximalLines; value += step, ++count) {
        double const place = static_cast<double>(width) * (value - low) / (high - low) + leftPixels;
        // The comparison isn't on the absolute value: negative numbers keep their decimal.
        String const text(value, value >= 100 ? 0 : 1, '.');
        long textWidth = 0;
        long textHeight = 0;
        context.GetTextExtent(text, textWidth, textHeight);
        long const x = ScaleMap::ToShort(place) - textWidth / 2;
        context.DrawText(ScaleMap::ToShort(static_cast<double>(x)), y, text);
    }
}

void XYChart::DrawYNumbers(PlatformIndependentDeviceContext& context, Graph& graph) const {
    unsigned long width = 0;
    unsigned long height = 0;
    graph.GetSize(width, height);
    auto const graphHeight = static_cast<double>(height);
    double low = 0;
    double high = 0;
    graph.GetYScale(low, high);
    double value = 0;
    double step = 0;
    graph.GetYDrawLines(value, step);
    for (int count = 0; value < high && step > 0 && count < Graph::maximalLines; value += step, ++count) {
        // Of the value, not of its distance from the begin: right for scales that begin at 0.
        double const place = graphHeight + topPixels - graphHeight * value / (high - low);
        String const text(value, 1, '.');
        long textWidth = 0;
        long textHeight = 0;
        context.GetTextExtent(text, textWidth, textHeight);
        long const y = ScaleMap::ToShort(place) - textHeight / 2;
        context.DrawText(yNumbersLeft, ScaleMap::ToShort(static_cast<double>(y)), text);
    }
}

} // namespace GUI
