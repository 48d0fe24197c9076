#pragma once

#include "gui/charts/Graph.h"
#include "gui/charts/UpdateMessage.h"
#include "gui/elements/NumberTable.h"

#include <optional>
#include <vector>

namespace GUI {

/// A row of bars, one for each value, over a pale band that shows the tolerance of each. A value that leaves
/// the scale is shown as a torn bar of three pieces. The grid of `Graph` is not drawn.
///
/// Attributes beyond `Graph`'s: "BarWidth" (8, in X values), "PositivLimit" and "NegativLimit" (5; the lower
/// limit is the negative of the latter), "ShowLimit" (No; a red line at each limit), "ThickLineGraduation"
/// (0; a separating line behind every so many bars), "Color" (255,0,0; of bars beyond a limit, and halfway to
/// white of the others).
///
/// Values asked of the data source under the element's name:
/// - at a data update: the column's number as text (vector: the title, then the values as numbers or numeric
///   text; an invalid entry is a missing value, and its band is hatched), "ValueBegin" and "ValueStep" (the X
///   position of the first bar and the distance between two);
/// - at the command "Properties", or without a message: "BarWidth", "PositivLimit", "NegativLimit",
/// "ShowLimit"
///   (a number, positive for yes) and "Color";
/// - for a tool tip "ToolTipText " and the bar's number, counted from 1.
///
/// With the attribute "Labels" (No) the picture is another one: a scale at the left edge with a grid at round
/// values, a band from limit to limit behind each bar, and its name below and its value beside its end. A bar
/// beyond its limits carries the sign of a failure, one beyond its warning that of a marginal value, and
/// their values are bold; a missing one is written as such. "ValueFormat" (Difference) is a name of
/// `NumberFormat`. Of the data source at a data update: "Names" (vector of texts), "Limits" (vector of maps
/// of "Lower" and "Upper", by default those of all bars, and "Warning", a magnitude).
///
/// A data message is "first;column-last;other" or "first;column"; it announces `last - first + 1` bars. More
/// values than announced throw `OutOfRangeException`, and what was there stays.
class BarGraph : public Graph, public SupportsNumberTable {
public:
    Diagnostics::String GetValueString() override { return "BarGraph"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    /// Of the bar that is as wide as the point's X value is near.
    Utilities::String GetToolTipText(unsigned short x, unsigned short y) override;

    /// The lower limit is given as a magnitude.
    virtual void GetLimits(double& negative, double& positive);
    /// A column of X values, and one of the bars' values.
    Utilities::String GetNumberTable() override;

private:
    struct Bar {
        double value = 0;
        bool isMissing = false;
    };
    struct Place {
        short x = 0;
        short y = 0;
    };
    /// Corners in pixels, sorted.
    struct Box {
        short left = 0;
        short top = 0;
        short right = 0;
        short bottom = 0;
    };
    /// The scales of one paint.
    struct Scale {
        ScaleMap map;
        double xBegin = 0;
        double xEnd = 0;
        double yBegin = 0;
        double yEnd = 0;

        Place At(double x, double y) const;
        static Box Between(Place const& a, Place const& b);
        Box Between(double x1, double y1, double x2, double y2) const {
            return Between(At(x1, y1), At(x2, y2));
        }
        void DrawLine(PlatformIndependentDeviceContext& context, double x1, double y1, double x2,
                      double y2) const;
    };

    void SetColor(RGBVector const& color);
    void ReadProperties();
    void ReadBars(UpdateMessage::Range const& range);
    double XOf(std::size_t bar) const {
        return static_cast<double>(bar) * GetDeltaXValue() + GetXValueBegin();
    }
    Scale GetScale();
    void DrawBands(PlatformIndependentDeviceContext& context, Scale const& scale, std::size_t bar) const;
    void DrawThickLines(PlatformIndependentDeviceContext& context, Scale const& scale) const;
    void DrawBar(PlatformIndependentDeviceContext& context, Scale const& scale, std::size_t bar) const;
    void DrawTornBar(PlatformIndependentDeviceContext& context, Scale const& scale, double x, double width,
                     double end, RGBVector const& shadow, RGBVector const& face) const;
    void DrawLimits(PlatformIndependentDeviceContext& context, Scale const& scale) const;

    struct Limits {
        double lower = 0;
        double upper = 0;
        std::optional<double> warning;
    };

    void ReadLabels();
    Limits LimitsOf(std::size_t bar) const;
    void PaintLabelled(PlatformIndependentDeviceContext& context);
    void DrawLabelledBar(PlatformIndependentDeviceContext& context, Scale const& scale,
                         std::size_t bar) const;

    bool isLabelled_ = false;
    Utilities::String valueFormat_;
    std::vector<Utilities::String> names_;
    std::vector<Limits> limits_;
    RGBVector barColor_;
    RGBVector barColorLight_;
    double barWidth_ = 8;
    double positivLimit_ = 5;
    double negativLimit_ = 5;
    bool showLimit_ = false;
    long thickLineGraduation_ = 0;
    std::vector<Bar> bars_;
    Utilities::String title_;
};

} // namespace GUI
