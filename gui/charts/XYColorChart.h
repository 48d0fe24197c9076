#pragma once

#include "gui/charts/ExploredPlot.h"
#include "gui/charts/PlaneDecor.h"
#include "gui/charts/ToleranceContour.h"
#include "gui/colour/ColorSpots.h"
#include "gui/elements/NumberTable.h"
#include "gui/elements/Pane.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace GUI {

/// A pane of coloured spots at free (x, y) positions over a background picture, one of them selected.
/// It is neither a `Chart` nor a `Graph`.
///
/// Attributes: "SpotSize" (4, a spot's radius in pixels), "BackgroundBitmap" (stem of the picture's name),
/// "Isotropic" (No; with Yes one unit is as long on both axes, and the longer side of the pane shows more
/// than its range), "ZeroAxes" (No; axes through zero with ticks and numbers, beneath the spots),
/// "LineColor" (92,92,92; of these axes), "GridColor" (none; of lines at their numbers), "MarkOutside" (No;
/// with Yes the selected spot is on top with two rings around it, instead of a white outline), "Smooth" (No;
/// spots with antialiasing), "Zoom" (No; see `ExploredPlot`), "Cursor" (No; a read-out of the spot under the
/// mouse, by the first line of its tool tip and its values; on the keyboard the arrows tell a click on the
/// next or the former spot), "ValueFormat" (Lab; of values in the read-out), "XName", "YName" (a*, b*; in
/// it), and those of `PlaneDecor`, whose values are asked for at each update.
///
/// Values asked of the data source under the element's name: "BackgroundBitmapExtension" (appended to the
/// stem), "NrOfPatches", "XValueBegin", "XValueEnd", "YValueBegin", "YValueEnd" (the ranges, as short), at
/// "Tolerance" (a record of `ToleranceContour`, drawn beneath the spots of a chart whose axes are a* and b*),
/// at each paint "SelectedSample", and for a tool tip "ToolTipText " with the number, counted from 0, of the
/// topmost spot under the point. Under the element name "Patch" with a spot's number: "Data", a map of
/// "Color", "XValue" and "YValue".
///
/// A click is told to the data source as "Click", a map of "x" and "y" in values, and passed on. The
/// event "SelectSample" of the element "ColorChart" repaints; "OnUpdate" reads everything again.
class XYColorChart : public Pane, public SupportsNumberTable, public ExploredPlot {
public:
    ~XYColorChart() override;
    Diagnostics::String GetValueString() override { return "XYColorChart"; }
    Accessible GetAccessible() override {
        Accessible told = Pane::GetAccessible();
        told.role = Accessible::Role::Graphic;
        return told;
    }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;
    bool OnMouseMove(long x, long y) override;
    bool OnLeftButtonUp(long x, long y) override;
    bool OnMouseLeave() override;
    bool OnViewKey(ViewKey key) override;
    Utilities::String GetToolTipText(unsigned short x, unsigned short y) override;
    /// A map of "ElementName" and "CurrentRegion".
    Utilities::Anything GetPropertyInspectorData() override;
    Utilities::String GetNumberTable() override { return WriteColorSpots(spots_); }

protected:
    void OnDetach() override;
    PlotRange GetWholeRange() const override;
    PlotArea GetPlotArea() const override;
    PlotRange Adapt(PlotRange const& range) const override;
    void OnViewChanged() override;
    void OnBandChanged() override { Repaint(); }

private:
    using Spot = ColorSpot;
    struct Pixel {
        short x = 0;
        short y = 0;
    };
    /// The ranges at the pane's present size; `width` and `height` are what the ranges take of it.
    struct Places {
        double originX = 0;
        double originY = 0;
        double xRange = 0;
        double yRange = 0;
        double width = 0;
        double height = 0;
        double paneWidth = 0;
        double paneHeight = 0;

        Pixel Of(Spot const& spot) const;
    };

    long OnSelectSample(Utilities::Anything const& argument);
    Places GetPlaces() const { return GetPlaces(ShowsPart() ? GetViewedRange() : GetRange()); }
    Places GetPlaces(PlotRange const& range) const;
    PlotRange GetRange() const { return {xValueBegin_, xValueEnd_, yValueBegin_, yValueEnd_}; }
    long AskSelected();
    /// The topmost spot at a point; -1 for none. Asks which one is selected.
    long FindSpot(long x, long y);
    void DrawReadOut(PlatformIndependentDeviceContext& context, Places const& places);
    void DrawSpot(PlatformIndependentDeviceContext& context, Spot const& spot, Pixel place) const;
    void DrawMarked(PlatformIndependentDeviceContext& context, Places const& places, long selected) const;
    /// Leaves out spots that a later one at the same pixel covers; fills `visible_`.
    void FindVisible(Places const& places, long selected);

    OwnedCallback<XYColorChart> onSelectSample_{this, &XYColorChart::OnSelectSample};
    double xValueBegin_ = -100;
    double xValueEnd_ = 100;
    double yValueBegin_ = -100;
    double yValueEnd_ = 100;
    std::vector<Spot> spots_;
    ToleranceContour tolerance_;
    PlaneDecor decor_;
    bool hasCursor_ = false;
    Utilities::String valueFormat_;
    Utilities::String xName_;
    Utilities::String yName_;
    /// Under the mouse; -1 for none.
    long pointed_ = -1;
    std::uint16_t spotSize_ = 4;
    bool isIsotropic_ = false;
    bool hasZeroAxes_ = false;
    bool marksOutside_ = false;
    bool smooth_ = false;
    RGBVector lineColor_;
    std::optional<RGBVector> gridColor_;
    Utilities::String backgroundBitmap_;

    /// Kept from paint to paint, so that painting allocates nothing.
    struct VisibleSpot {
        std::uint32_t number;
        Pixel place;
    };
    std::vector<VisibleSpot> visible_;
    std::vector<std::uint64_t> taken_;
};

} // namespace GUI
