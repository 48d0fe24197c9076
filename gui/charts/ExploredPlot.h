#pragma once

#include "gui/charts/PlotRange.h"
#include "gui/elements/ViewInput.h"
#include "gui/elements/description/Attributes.h"
#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

namespace GUI {

/// A plot whose user may look closer: the wheel zooms around the point under it, a drag with the mouse spans
/// a rubber band to be shown (one to the left goes back to the whole), and with Control moves what is shown;
/// on the keyboard plus, minus, arrows with Shift, and 0 or Home for the whole. What is shown is always
/// within the whole.
class ExploredPlot : public ViewInput {
public:
    static constexpr Attribute zoomAttribute{
        "Zoom", AttributeType::Flag, "No",
        "Wheel, rubber band and keys show a part; the data source knows it as \"View\""};
    /// The data source's value: a record of `PlotRange`, or an empty text for the whole.
    static constexpr char const* viewKey = "View";

    bool OnWheel(double steps, long x, long y) override;
    bool OnViewKey(ViewKey key) override;

protected:
    /// In pixels of the pane.
    struct PlotArea {
        double left = 0;
        double top = 0;
        double width = 0;
        double height = 0;
    };
    virtual PlotRange GetWholeRange() const = 0;
    virtual PlotArea GetPlotArea() const = 0;
    /// What can be shown of a part that was asked for.
    virtual PlotRange Adapt(PlotRange const& range) const { return range; }
    /// Another part is shown: repaints, and tells the data source.
    virtual void OnViewChanged() = 0;
    /// The rubber band has changed.
    virtual void OnBandChanged() = 0;

    void SetZoom(bool zoom) { zoom_ = zoom; }
    bool HasZoom() const { return zoom_; }
    PlotRange GetViewedRange() const { return view_ ? *view_ : GetWholeRange(); }
    bool ShowsPart() const { return view_.has_value(); }
    /// What the data source answered.
    void TakeView(Utilities::Anything const& value);
    Utilities::Anything GetView() const { return view_ ? view_->Write() : Utilities::Anything(""); }

    /// @name A drag of the mouse
    /// False if there is none, or it isn't meant for this.
    /// @{
    bool BeginDrag(bool pans, long x, long y);
    bool DragTo(long x, long y);
    bool EndDrag(long x, long y);
    bool IsDragging() const { return drag_.has_value(); }
    /// @}
    void DrawRubberBand(PlatformIndependentDeviceContext& context) const;

private:
    struct Drag {
        bool pans;
        long x;
        long y;
        long toX;
        long toY;
        PlotRange shown;
    };

    double ShareX(long x) const;
    double ShareY(long y) const;
    void Show(PlotRange const& range);
    void ShowWhole();

    bool zoom_ = false;
    std::optional<PlotRange> view_;
    std::optional<Drag> drag_;
};

} // namespace GUI
