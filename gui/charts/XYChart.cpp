#include "gui/charts/XYChart.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/charts/EdgeAxes.h"
#include "gui/charts/GraphAttributes.h"
#include "gui/charts/ScaleNumbers.h"
#include "gui/charts/XYGraph.h"
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
constexpr Attribute attributeList[] = {Keys::lineColor,
                                       Keys::xScaleDrawLines,
                                       Keys::xScaleGraduation,
                                       Keys::yScaleDrawLines,
                                       Keys::yScaleGraduation,
                                       graphColor,
                                       Keys::numbersAtLines,
                                       PatchAttributes::smooth,
                                       Keys::axes,
                                       Keys::xTitle,
                                       Keys::yTitle,
                                       Keys::spectrum,
                                       Keys::legend,
                                       Keys::difference,
                                       Keys::band,
                                       Keys::cases,
                                       Keys::cursor,
                                       Keys::live,
                                       Keys::valueFormat,
                                       Keys::xUnit,
                                       ExploredPlot::zoomAttribute};
/// That go on to the graph if they are there.
constexpr Attribute graphKeys[] = {Keys::lineColor,
                                   Keys::xScaleDrawLines,
                                   Keys::xScaleGraduation,
                                   Keys::yScaleDrawLines,
                                   Keys::yScaleGraduation,
                                   PatchAttributes::smooth,
                                   Keys::axes,
                                   Keys::legend,
                                   Keys::difference,
                                   Keys::band,
                                   Keys::cases,
                                   Keys::cursor,
                                   Keys::valueFormat,
                                   Keys::xUnit,
                                   ExploredPlot::zoomAttribute,
                                   Keys::live};

ElementRegistration<XYChart, Pane> const registration({"XYChart", "$Revision: 1.13 $", "GUI"}, attributeList);

constexpr char const* graphName = "XYGraph";
constexpr long xNumbersAboveBottom = 12;
constexpr short yNumbersLeft = 5;
/// Right of a plot whose scales are along its edges; of a legend beside it, and its distance.
constexpr long edgeRight = 16;
constexpr long legendRoom = 120;
constexpr long legendGap = 8;

} // namespace

void XYChart::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    Chart::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);
    numbersAtLines_ = attributes.Flag(Keys::numbersAtLines);
    hasEdgeAxes_ = attributes.Text(Keys::axes) == "Edges";
    isLive_ = attributes.Flag(Keys::live);
    hasSpectrum_ = attributes.Flag(Keys::spectrum);
    hasLegend_ = attributes.Text(Keys::legend) == "Beside";
    xTitle_ = attributes.Text(Keys::xTitle);
    yTitle_ = attributes.Text(Keys::yTitle);
    SetMargins();
    BuildGraphDescription(description);
    OnUpdate("Properties");
}

void XYChart::SetMargins() {
    if (hasEdgeAxes_) {
        margins_.left = EdgeAxes::leftRoom;
        margins_.right = edgeRight;
        margins_.bottom = EdgeAxes::belowRoom;
    }
    if (hasSpectrum_) margins_.bottom += EdgeAxes::stripRoom;
    if (xTitle_.Length() != 0) margins_.bottom += EdgeAxes::titleRoom;
    if (yTitle_.Length() != 0) margins_.top += EdgeAxes::titleRoom;
    if (hasLegend_) margins_.right += legendRoom;
}

void XYChart::BuildGraphDescription(AttributeMap const& attributes) {
    auto const graph = DescribeGraph("XYGraph", graphName);
    (*graph)["JustificationOnX"] = "Yes";
    AttributeReader const reader(attributes);
    for (Attribute const& key : graphKeys)
        if (reader.Has(key)) (*graph)[key.key] = reader.Text(key);
    // Who works with keys has to come there.
    if (reader.Flag(Keys::cursor) || reader.Flag(ExploredPlot::zoomAttribute))
        (*graph)[CommonAttributes::selectable.key] = "Yes";
    (*graph)["BackgroundColor"] = reader.Text(graphColor);

    auto const frame = Utilities::MakeSmart<DescriptionTree>();
    (*frame)["GUIElementType"] = "FrameBox";
    // This exact text is what hosts know.
    (*frame)["ElementName"] = "abGraphFrameBox";
    (*frame)["Top"] = String(margins_.top);
    (*frame)["Bottom"] = String(margins_.bottom);
    (*frame)["Left"] = String(margins_.left);
    (*frame)["Right"] = String(margins_.right);
    frame->AddChild(graph);

    GetGraphDescription() = DescriptionTree();
    GetGraphDescription().AddChild(frame);
    CreateChildren();
}

long XYChart::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    FireCallback(graphName, "OnUpdate", command);
    ReadUpdate(command);
    // Values that are added change nothing around the graph.
    auto const range = isLive_ ? UpdateMessage::Range::Parse(GetCommand(command)) : std::nullopt;
    if (!range || range->first <= 1) Repaint();
    return 0;
}

void XYChart::OnPaint(PlatformIndependentDeviceContext& context) {
    Chart::OnPaint(context);
    static RGBVector const black{ThemeRole::Axis, RGBVector()};
    context.SetBrush(black);
    context.SetPen(black, 2, PlatformIndependentDeviceContext::solid);
    context.SetFont(8, 0, 0, "Arial", 0);
    auto* const graph = GetGraph();
    if (!graph) return;
    if (hasEdgeAxes_ || hasSpectrum_ || hasLegend_ || xTitle_.Length() + yTitle_.Length() != 0)
        DrawSurroundings(context, *graph);
    if (hasEdgeAxes_ || !IsAttached()) return;
    if (numbersAtLines_) {
        DrawNumbersAtLines(context, *graph, true);
        DrawNumbersAtLines(context, *graph, false);
        return;
    }
    DrawXNumbers(context, *graph);
    DrawYNumbers(context, *graph);
}

XYGraph* XYChart::GetGraph() const {
    GUIElement const* const frame = GetFirstChild();
    if (!frame) return nullptr;
    auto const first = frame->GetChildrenList().Begin();
    return first.IsValid() ? dynamic_cast<XYGraph*>(first.Current().Get()) : nullptr;
}

void XYChart::DrawSurroundings(PlatformIndependentDeviceContext& context, XYGraph& graph) {
    CallScope const call(graph);
    unsigned long paneWidth = 0;
    unsigned long paneHeight = 0;
    GetSize(paneWidth, paneHeight);
    unsigned long width = 0;
    unsigned long height = 0;
    graph.GetSize(width, height);
    EdgeAxes::Box const plot{margins_.left, margins_.top, static_cast<long>(width),
                             static_cast<long>(height)};
    PlotRange const range = graph.GetShownRange();
    long const strip = hasSpectrum_ ? EdgeAxes::stripRoom : 0;
    short const bottom = ScaleMap::ToShort(static_cast<double>(plot.top + plot.height));
    if (hasEdgeAxes_) EdgeAxes::DrawScales(context, plot, range, strip);
    if (hasSpectrum_ && width != 0) {
        auto const colors = SpectrumStrip(range.xBegin, range.xEnd, width);
        context.DrawPixels(static_cast<short>(plot.left), static_cast<short>(bottom + 1),
                           static_cast<short>(plot.left + plot.width),
                           static_cast<short>(bottom + 1 + EdgeAxes::stripRoom), colors, plot.width);
    }
    auto const translate = [](String const& key) {
        return key.Length() == 0 ? key : Utilities::LanguageServiceInterface::GetTranslation(key);
    };
    EdgeAxes::DrawTitles(context, plot, static_cast<long>(paneWidth), translate(xTitle_), translate(yTitle_),
                         strip);
    if (!hasLegend_) return;
    ChartLegend const legend(graph.GetLegend());
    if (IsAttached())
        legend.Draw(context, static_cast<long>(paneWidth) - legendRoom + legendGap, plot.top,
                    legendRoom - legendGap, plot.height);
}

void XYChart::SetValue(String const& element, String const& name, Anything const& value) {
    CallScope const call(*this);
    if (GetDataSource()) GetDataSource()->SetValue(element, name, value);
    // The numbers are those of what is shown.
    if (IsAttached() && name == ExploredPlot::viewKey) Repaint();
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
    auto const leftOf = static_cast<double>(margins_.left);
    auto const topOf = static_cast<double>(margins_.top);
    std::vector<std::pair<long, long>> taken;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        std::size_t const number = i == 0 ? 0 : i == 1 ? numbers.size() - 1 : i - 1;
        auto const& [value, text, width, height] = numbers[number];
        long const length = isX ? width : height;
        auto const room = static_cast<long>(isX ? chartWidth : chartHeight);
        double const share = (value - low) / (high - low);
        double const place = isX ? leftOf + static_cast<double>(graphWidth) * share
                                 : topOf + static_cast<double>(graphHeight) * (1 - share);
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
            context.DrawText(ScaleMap::ToShort(leftOf - gap - static_cast<double>(width)),
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
        double const place =
            static_cast<double>(width) * (value - low) / (high - low) + static_cast<double>(margins_.left);
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
        double const place =
            graphHeight + static_cast<double>(margins_.top) - graphHeight * value / (high - low);
        String const text(value, 1, '.');
        long textWidth = 0;
        long textHeight = 0;
        context.GetTextExtent(text, textWidth, textHeight);
        long const y = ScaleMap::ToShort(place) - textHeight / 2;
        context.DrawText(yNumbersLeft, ScaleMap::ToShort(static_cast<double>(y)), text);
    }
}

} // namespace GUI
