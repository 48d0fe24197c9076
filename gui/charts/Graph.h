#pragma once

#include "gui/charts/PlotRange.h"
#include "gui/charts/ScaleMap.h"
#include "gui/elements/Pane.h"

namespace GUI {

/// The inner element of a chart: a pane that owns the plot. It holds the ranges of two scales, turns
/// values into pixels, and draws the axes, the dotted grid and the graduation ticks; a concrete graph
/// draws its data over them. A graph writes no text.
///
/// Attributes: "LineColor" (0,0,0), "XScaleDrawLines", "XScaleGraduation", "YScaleDrawLines",
/// "YScaleGraduation" (each 0: none; distances of grid lines and of ticks in values), "JustificationOnX"
/// (Yes; No lets the X scale run from top to bottom), "Left", "Top", "Right", "Bottom" (each 0, margins
/// of the plot in pixels), "DrawAxis" (Yes).
///
/// Values asked of the data source under the element's name: "XValueBegin" and "DeltaXValue" once;
/// "XScaleBegin", "XScaleEnd", "YScaleBegin", "YScaleEnd", the four distances and "JustificationOnX" at
/// every update with the command "Properties". A graph is updated by its event "OnUpdate".
class Graph : public Pane {
public:
    static AttributesOf<Graph> const attributeTable;

    Diagnostics::String GetValueString() override { return "Graph"; }
    Accessible GetAccessible() override {
        Accessible told = Pane::GetAccessible();
        told.role = Accessible::Role::Graphic;
        return told;
    }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    /// Repaints, but for the command "Properties" and for messages that end in "|NoRepaint".
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;

    virtual void GetXScale(double& begin, double& end);
    virtual void GetYScale(double& begin, double& end);
    /// On X the numbers of a chart begin at the first data item, not at the scale's begin.
    virtual void GetXDrawLines(double& begin, double& step);
    virtual void GetYDrawLines(double& begin, double& step);
    virtual void GetXGraduation(double& begin, double& step);
    virtual void GetYGraduation(double& begin, double& step);
    /// See `ScaleMap`.
    virtual void ValueToPixel(double x, double y, short& px, short& py);
    virtual void PixelToValue(short px, short py, double& x, double& y);

    /// Lines and numbers beyond these can't be told apart any more and are left out.
    static constexpr int maximalLines = 65536;

protected:
    /// The scales at the pane's present size.
    ScaleMap GetScaleMap() const;
    /// By the data source's values.
    PlotRange GetScaleRange() const { return {xScaleBegin_, xScaleEnd_, yScaleBegin_, yScaleEnd_}; }
    /// What the plot shows of it.
    virtual PlotRange GetShownRange() const { return GetScaleRange(); }
    /// Of axes, grid and ticks.
    RGBVector const& GetLineColor() const { return lineColor_; }
    /// Whether the X scale runs from left to right.
    bool IsXHorizontal() const { return justificationOnX_; }
    bool DrawsAxis() const { return drawAxis_; }
    void SetDrawAxis(bool draw) { drawAxis_ = draw; }
    /// Distances of grid lines and of ticks; 0 for none.
    struct Grid {
        double xLines = 0;
        double yLines = 0;
        double xTicks = 0;
        double yTicks = 0;
    };
    Grid GetGrid() const {
        return {xScaleDrawLines_, yScaleDrawLines_, xScaleGraduation_, yScaleGraduation_};
    }
    void SetGrid(Grid const& grid) {
        xScaleDrawLines_ = grid.xLines;
        yScaleDrawLines_ = grid.yLines;
        xScaleGraduation_ = grid.xTicks;
        yScaleGraduation_ = grid.yTicks;
    }
    double GetXValueBegin() const { return xValueBegin_; }
    double GetDeltaXValue() const { return deltaXValue_; }
    void SetXValues(double begin, double delta) {
        xValueBegin_ = begin;
        deltaXValue_ = delta;
    }

private:
    void ReadAttributes(DescriptionTree const& description);
    void ReadProperties();
    void DrawAxes(PlatformIndependentDeviceContext& context, ScaleMap const& map) const;
    void DrawGrid(PlatformIndependentDeviceContext& context, ScaleMap const& map) const;
    void DrawXTicks(PlatformIndependentDeviceContext& context, ScaleMap const& map) const;
    void DrawYTicks(PlatformIndependentDeviceContext& context, ScaleMap const& map) const;

    double xScaleBegin_ = -50;
    double yScaleBegin_ = -25;
    double xScaleEnd_ = 200;
    double yScaleEnd_ = 100;
    double xValueBegin_ = 0;
    double deltaXValue_ = 0;
    bool justificationOnX_ = true;
    RGBVector lineColor_;
    double xScaleDrawLines_ = 10;
    double yScaleDrawLines_ = 10;
    double xScaleGraduation_ = 2;
    double yScaleGraduation_ = 2;
    double top_ = 0;
    double left_ = 0;
    double right_ = 0;
    double bottom_ = 0;
    bool drawAxis_ = true;
};

} // namespace GUI
