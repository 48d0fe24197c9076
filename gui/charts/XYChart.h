#pragma once

#include "gui/charts/Chart.h"

namespace GUI {

class Graph;

/// A chart of curves over a common X scale: an `XYGraph` within fixed margins, in which the numbers of
/// both scales are.
///
/// Attributes: "LineColor", "XScaleDrawLines", "XScaleGraduation", "YScaleDrawLines", "YScaleGraduation",
/// "Smooth" (handed on to the graph if they are there), "GraphColor" (255,255,255; the graph's background),
/// "NumbersAtLines" (No; with Yes the numbers are at the grid lines, which are multiples of their
/// distance, and at both ends of each scale; else they count from the first value, without the end). What
/// the graph asks of the data source it asks under the name "XYGraph"; messages to the chart's event
/// "OnUpdate" go on to it.
class XYChart : public Chart {
public:
    Diagnostics::String GetValueString() override { return "XYChart"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;

    /// Describes the graph by the chart's own attributes and creates it.
    virtual void BuildGraphDescription(AttributeMap const& attributes);

private:
    void DrawXNumbers(PlatformIndependentDeviceContext& context, Graph& graph) const;
    void DrawYNumbers(PlatformIndependentDeviceContext& context, Graph& graph) const;
    void DrawNumbersAtLines(PlatformIndependentDeviceContext& context, Graph& graph, bool isX) const;

    bool numbersAtLines_ = false;
};

} // namespace GUI
