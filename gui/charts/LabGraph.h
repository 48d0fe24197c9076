#pragma once

#include "gui/charts/Graph.h"
#include "gui/charts/LabGraphSetting.h"
#include "gui/charts/UpdateMessage.h"
#include "gui/elements/NumberTable.h"

#include <optional>
#include <vector>

namespace GUI {

/// Samples as star marks on a picture of a colour plane and a lightness bar, which is the pane's background.
/// Where both are in the picture is told by `LabGraphSetting` children, one for each view.
///
/// Attributes beyond `Graph`'s: "DrawAxis" (No). The scale and the grid of `Graph` are not used.
///
/// Values asked of the data source under the element's name: at each update "CurrentView" (the name of the
/// view's setting; "CIEXYY" also turns the order of coordinates) and "BackgroundColor"; at a data update a
/// sample's number as text (vector of its coordinates: lightness, a, b; in "CIEXYY" a, b, lightness), and
/// "FirstData" and "LastData" if the message names no samples; at each paint "CurrentSlice" (the highlighted
/// sample, counted from 0) and "ShowLValue" (No; marks on the bar).
///
/// A data message is "a;first-b;last" or "a;number". A lightness of -1000 leaves a sample out, and so does a
/// place outside the bar or the plane.
class LabGraph : public Graph, public SupportsNumberTable {
public:
    Diagnostics::String GetValueString() override { return "LabGraph"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    /// The coordinates in their order.
    Utilities::String GetNumberTable() override;

private:
    struct Sample {
        double first = 0;
        double second = 0;
        double third = 0;
    };
    using Place = LabGraphView::Place;

    void ReadView();
    void ReadSamples(Utilities::String const& message);
    /// Empty outside the bar or the plane.
    std::optional<Place> OnBar(double lightness) const;
    std::optional<Place> OnPlane(double a, double b) const;

    DescriptionTree settings_;
    Utilities::String viewName_;
    LabGraphView view_;
    std::vector<Sample> samples_;
};

} // namespace GUI
