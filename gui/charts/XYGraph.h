#pragma once

#include "gui/charts/CurveLook.h"
#include "gui/charts/ExploredPlot.h"
#include "gui/charts/Graph.h"
#include "gui/charts/UpdateMessage.h"
#include "gui/elements/NumberTable.h"
#include "gui/elements/PaintedPart.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

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
/// Attributes beyond `Graph`'s: "Smooth" (No; curves with antialiasing), "Axes" (Zero; with Edges a solid
/// grid at round values, and no axes or ticks), "Difference" (No; each curve less the standard's, with the
/// standard itself left out), "Band" (No; "Range" fills what is between the lowest and highest value of the
/// curves, "Zero" what is between each curve and zero), "Cases" (No; the active curve is on top in a case of
/// ink, and a curve that the ground would hide has one in the standard's tone), "Legend" (No; "Inside" where
/// the fewest values are), "Zoom" and "Cursor" (No; see `ExploredPlot` and below), "ValueFormat"
/// (Reflectance; of values in the read-out, a name of `NumberFormat`), "XUnit" (nm; behind positions in it).
///
/// Of the data source for these: at each update "StandardCurve" (the number of the standard, drawn wide
/// beneath all), "LegendCurves" (vector of the numbers of the curves in the legend; all of them), "View" and
/// "Cursor" (the X position of the cursor, an empty text for none).
///
/// With "Live" (No) a data message whose first number is beyond 1 adds values to the curves, or replaces
/// these: "first;column-last;column" asks for each column under "column;first-last" (vector: the name, then
/// the values from `first` to `last`, counted from 1). Only the part of the plot that they are in is painted.
/// A shift of 30 000 values in one plot costs no more a value than the first ones.
///
/// The cursor is a line at the value under the mouse, or moved by the arrow keys, with a read-out of each
/// curve there; of more than six curves that of the one nearest to the mouse, or the next one by Up and Down.
/// Escape, or the mouse that leaves, takes it away. The data source is told "Cursor" and "View".
class XYGraph : public Graph, public SupportsNumberTable, public ExploredPlot {
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
    void GetXDrawLines(double& begin, double& step) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;
    bool OnMouseMove(long x, long y) override;
    bool OnLeftButtonUp(long x, long y) override;
    bool OnMouseLeave() override;
    bool OnViewKey(ViewKey key) override;
    /// Of the curves that the legend has. Asks the data source.
    std::vector<CurveLook> GetLegend();
    PlotRange GetShownRange() const override { return GetViewedRange(); }

protected:
    PlotRange GetWholeRange() const override { return GetScaleRange(); }
    PlotArea GetPlotArea() const override;
    void OnViewChanged() override;
    void OnBandChanged() override { Repaint(); }

private:
    enum class Band : std::uint8_t { None, Range, Zero };
    using Curve = std::vector<double>;
    struct Data {
        Utilities::List<Utilities::String> names;
        Utilities::List<Curve> curves;
    };

    void ReadData(UpdateMessage::Range const& range);
    void AddData(UpdateMessage::Range const& range);
    /// Around the values from one number to another, counted from 0.
    PaneBox BoxOf(std::uint32_t first, std::uint32_t last) const;
    /// The part of a curve that is painted, as its first number and its length.
    std::pair<std::size_t, std::size_t> PaintedValues(PlatformIndependentDeviceContext const& context,
                                                      ScaleMap const& map, std::size_t count) const;
    void ReadSettings();
    void SubtractStandard(Data& data) const;
    CurveLook AskLook(long number);
    /// Its case, in a graph that has such.
    void AddCase(CurveLook& look, bool isActive, RGBVector const& ground) const;
    void DrawGround(PlatformIndependentDeviceContext& context);
    void DrawBands(PlatformIndependentDeviceContext& context, ScaleMap const& map, Data const& data) const;
    void DrawCurves(PlatformIndependentDeviceContext& context, ScaleMap const& map, Data const& data,
                    long active);
    void DrawCurveNumber(PlatformIndependentDeviceContext& context, ScaleMap const& map, long number,
                         Curve const& curve, bool isActive);
    void DrawLegend(PlatformIndependentDeviceContext& context, ScaleMap const& map, Data const& data);
    void DrawCursor(PlatformIndependentDeviceContext& context, ScaleMap const& map, Data const& data,
                    long active);
    /// Values of the longest curve.
    std::uint32_t GetLength() const;
    double XOf(std::uint32_t item) const { return GetXValueBegin() + item * GetDeltaXValue(); }
    void SetCursor(std::optional<std::uint32_t> item);
    void FollowMouse(long x, long y);
    std::optional<std::uint32_t> ItemAt(double x) const;

    std::int16_t lineWidth_ = 1;
    bool smooth_ = false;
    bool hasEdgeAxes_ = false;
    bool isDifference_ = false;
    bool hasCases_ = false;
    bool hasLegend_ = false;
    bool hasCursor_ = false;
    bool isLive_ = false;
    Band band_ = Band::None;
    Utilities::String valueFormat_;
    Utilities::String xUnit_;
    long standard_ = -1;
    std::vector<long> legend_;
    bool legendIsChosen_ = false;
    std::optional<std::uint32_t> cursor_;
    /// That the read-out is of, where there are many.
    long readCurve_ = -1;
    /// Replaced as a whole when all of it has been read, or added to while nobody else holds it.
    std::shared_ptr<Data> data_ = std::make_shared<Data>();
};

} // namespace GUI
