#pragma once

#include "gui/charts/Chart.h"

namespace GUI {

class BarGraph;

/// A chart of bars: a `BarGraph` with up to two rulers beside it and red marks at its limits.
///
/// Attributes: "BaseLine" (0; thickness in pixels of a line at the foot), "JustificationOnX" (Yes; No turns
/// the bars over; only if it is there the chart has rulers), "LineColor", "BackgroundColor",
/// "XScaleDrawLines", "XScaleGraduation", "YScaleDrawLines", "YScaleGraduation" (0 each; distances of numbers
/// and of ticks on the rulers, handed on to the graph; a scale for which both are 0 has no ruler),
/// "ThickLineGraduation", "NumbersAtLines" (No; with Yes the side ruler and the limit marks are beside the
/// graph wherever it is, and an X scale runs downward as the bars do; else they count from the chart's
/// upper edge, and upward). A distance of numbers that isn't positive writes none. "Labels" (No; names,
/// values and verdicts in words, see `BarGraph`; there are no rulers then) and "ValueFormat" go on to the
/// graph. What the graph asks of the data source it asks under the name "BarGraph".
class BarChart : public Chart {
public:
    Diagnostics::String GetValueString() override { return "BarChart"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    /// One update of the chart is one repaint of chart and graph.
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    /// The graph has no frame.
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;

    /// Describes the graph by the chart's own attributes and creates it.
    virtual void BuildGraphDescription(AttributeMap const& attributes);

protected:
    using Chart::GetValue;

private:
    /// A scale as a ruler shows it.
    struct Ruler {
        double low = 0;
        double high = 0;
        double ticks = 0;
        double numbers = 0;
    };

    BarGraph* GetGraph() const;
    Ruler GetRuler(BarGraph& graph, bool isX) const;
    void DrawTopRuler(PlatformIndependentDeviceContext& context, Ruler const& ruler, long graphWidth) const;
    void DrawSideRuler(PlatformIndependentDeviceContext& context, Ruler const& ruler, long graphTop,
                       long graphHeight) const;
    void DrawLimitMarks(PlatformIndependentDeviceContext& context, BarGraph& graph, long graphLeft,
                        long graphTop, long graphWidth, long graphHeight) const;
    void DrawBaseLine(PlatformIndependentDeviceContext& context) const;

    long rulerMargin_ = 25;
    bool showSideRuler_ = false;
    bool showTopRuler_ = false;
    bool justificationOnX_ = true;
    short baseLine_ = 0;
    bool numbersAtLines_ = false;
    bool isLabelled_ = false;
};

} // namespace GUI
