#pragma once

#include "gui/charts/Graph.h"
#include "gui/charts/PlaneDecor.h"
#include "gui/charts/ToleranceContour.h"
#include "gui/charts/UpdateMessage.h"
#include "gui/elements/NumberTable.h"

#include <vector>

namespace GUI {

/// A graph that marks points with diagonal crosses, and can have coloured bars along its edges.
///
/// Attributes beyond `Graph`'s: "ColorBarType" (No; "ab" has green, red, yellow and blue bars on the left,
/// right, upper and lower edge, "L" a white and a black one above and below, "NoGraph" crosses the plot out),
/// "Smooth" (No; crosses with antialiasing), and those of `PlaneDecor`, whose values are asked for at the
/// command "Properties".
///
/// Values asked of the data source under the element's name: at the command "Properties" "ColorBarType" and
/// "Tolerance" (a record of `ToleranceContour`, drawn beneath the crosses of a plane of a* and b*); at
/// any other update a point's number as text (vector of its X and Y, as numbers or numeric text), for a tool
/// tip "ToolTipText " and the point's number, counted from 1.
///
/// A data message is "a;first-b;last" or "a;number". Points count from 1: the message's first number says
/// where reading begins, and the graph then has `last - first + 1` points. A message of neither form leaves
/// one point at (0, 0). A point whose number is beyond throws `OutOfRangeException`. Every update repaints.
class CrossGraph : public Graph, public SupportsNumberTable {
public:
    Diagnostics::String GetValueString() override { return "CrossGraph"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    /// The first point within 5 pixels, in both values, that has a text.
    Utilities::String GetToolTipText(unsigned short x, unsigned short y) override;
    Utilities::String GetNumberTable() override;

private:
    struct Point {
        double x = 0;
        double y = 0;
    };

    void ReadPoints(UpdateMessage::Range const& range);
    void DrawBars(PlatformIndependentDeviceContext& context) const;

    Utilities::String colorBarType_ = "No";
    bool smooth_ = false;
    std::vector<Point> points_;
    ToleranceContour tolerance_;
    PlaneDecor decor_;
};

} // namespace GUI
