#pragma once

#include "gui/charts/Graph.h"
#include "gui/charts/UpdateMessage.h"
#include "gui/elements/NumberTable.h"

#include <cstdint>
#include <memory>

namespace GUI {

/// A graph of curves over a common X scale, each a list of Y values at equidistant X positions.
///
/// Values asked of the data source under the element's name, beyond `Graph`'s:
/// - at a data update: "" (vector of the curves' names), a column's number as text (vector: the curve's
///   name, then its values as numbers or numeric text), "ValueBegin" and "ValueStep" (the X position of
///   the first value and the distance between two);
/// - at the command "Properties": "LineWidth";
/// - at each paint: "ActiveCurve" (drawn first, beneath the others), and for each curve, counted from 0,
///   "CurveColor 0" ("r;g;b", red if there is none) and "LineWidth 0";
/// - for a tool tip: "ToolTipText 1 Curve " and the curve's name, where items count from 1.
///
/// A data message is "first;firstColumn-last;lastColumn" or "first;column". Each curve gets `last -
/// first + 1` values; one that the data source gives more values for is as long as these. A message that
/// is neither this nor a command leaves the data as they are. Every update repaints.
///
/// Attributes beyond `Graph`'s: "Smooth" (No; curves with antialiasing).
class XYGraph : public Graph, public SupportsNumberTable {
public:
    Diagnostics::String GetValueString() override { return "XYGraph"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    /// The item within a quarter of the item distance of the point, in both values.
    Utilities::String GetToolTipText(unsigned short x, unsigned short y) override;
    /// A column of X values, and one for each curve.
    Utilities::String GetNumberTable() override;

private:
    using Curve = Utilities::Vector<double>;
    struct Data {
        Utilities::List<Utilities::String> names;
        Utilities::List<Curve> curves;
    };

    void ReadData(UpdateMessage::Range const& range);
    void DrawCurveNumber(PlatformIndependentDeviceContext& context, ScaleMap const& map, long number,
                         Curve const& curve);

    std::int16_t lineWidth_ = 1;
    bool smooth_ = false;
    /// Replaced as a whole when all of it has been read.
    std::shared_ptr<Data const> data_ = std::make_shared<Data>();
};

} // namespace GUI
