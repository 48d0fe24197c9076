#pragma once

#include "gui/charts/Chart.h"

namespace GUI {

class Graph;

/// A chart of curves over a common X scale: an `XYGraph` within fixed margins, in which the numbers of
/// both scales stand.
///
/// Attributes: "LineColor", "XScaleDrawLines", "XScaleGraduation", "YScaleDrawLines", "YScaleGraduation"
/// (handed on to the graph if they are there), "GraphColor" (255,255,255; the graph's background). What
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
};

} // namespace GUI
