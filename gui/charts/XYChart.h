#pragma once

#include "gui/charts/Chart.h"

namespace GUI {

class Graph;
class XYGraph;

/// A chart of curves over a common X scale: an `XYGraph` within fixed margins, in which the numbers of
/// both scales are.
///
/// Attributes: "LineColor", "XScaleDrawLines", "XScaleGraduation", "YScaleDrawLines", "YScaleGraduation",
/// "Smooth" (handed on to the graph if they are there), "GraphColor" (255,255,255; the graph's background),
/// "NumbersAtLines" (No; with Yes the numbers are at the grid lines, which are multiples of their
/// distance, and at both ends of each scale; else they count from the first value, without the end). What
/// the graph asks of the data source it asks under the name "XYGraph"; messages to the chart's event
/// "OnUpdate" go on to it, and what the graph tells goes on to the data source.
///
/// Further attributes: "Axes" (Zero; with Edges scales with ticks and numbers along the left and lower edge,
/// at round values of what is shown, in place of the numbers above), "XTitle", "YTitle" (none; with units,
/// keys of the language service), "Spectrum" (No; a strip in the colours of the wavelengths under the X
/// scale), "Legend" (No; "Beside" the graph, or "Inside" it), and what goes on to the graph: "Difference",
/// "Band", "Cases", "Cursor", "Zoom", "Live", "ValueFormat", "XUnit"; see `XYGraph`. They widen the margins
/// as far as they need room.
class XYChart : public Chart {
public:
    Diagnostics::String GetValueString() override { return "XYChart"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;

    /// Describes the graph by the chart's own attributes and creates it.
    virtual void BuildGraphDescription(AttributeMap const& attributes);
    void SetValue(Utilities::String const& element, Utilities::String const& name,
                  Utilities::Anything const& value) override;

private:
    /// Of the graph, which the numbers' places rest on.
    struct Margins {
        long left = 35;
        long top = 10;
        long right = 5;
        long bottom = 20;
    };

    void SetMargins();
    XYGraph* GetGraph() const;
    void DrawSurroundings(PlatformIndependentDeviceContext& context, XYGraph& graph);
    void DrawXNumbers(PlatformIndependentDeviceContext& context, Graph& graph) const;
    void DrawYNumbers(PlatformIndependentDeviceContext& context, Graph& graph) const;
    void DrawNumbersAtLines(PlatformIndependentDeviceContext& context, Graph& graph, bool isX) const;

    bool numbersAtLines_ = false;
    bool hasEdgeAxes_ = false;
    bool hasSpectrum_ = false;
    bool isLive_ = false;
    bool hasLegend_ = false;
    Utilities::String xTitle_;
    Utilities::String yTitle_;
    Margins margins_;
};

} // namespace GUI
