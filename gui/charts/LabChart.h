#pragma once

#include "gui/charts/Chart.h"
#include "gui/charts/LabColorSpaces.h"
#include "gui/elements/NumberTable.h"

#include <cstdint>
#include <vector>

namespace GUI {

class CrossGraph;

/// A colour space as a plane of chromaticity beside a bar of lightness, with captions over them: two
/// `CrossGraph` elements, "abGraph" and "LGraph". `LabColorSpaces` tells what they show of each space; polar
/// values become rectangular ones. Some spaces have no plots: both are crossed out.
///
/// Attributes: "ColorSpace" (CIELab), "ZoomFactor" (100, in percent; the first update replaces it by the
/// space's), "Smooth" (No; crosses with antialiasing), and those of `PlaneDecor`, for the plane of CIELab.
///
/// Values asked of the data source under the element's name: at the command "Properties" "ColorScale" (the
/// colour space; an unknown one throws `OutOfRangeException`, and the one before stays) and
/// "Tolerance" (a record of `ToleranceContour`, drawn in the plane of CIELab), and at a data update
/// a row's number as text (vector: a name, then the three values as numbers or numeric text). For tool tips
/// the graphs' keys with " ab" or " L" behind them.
///
/// A data message is "a;first-c;last" or "a;number": rows from `first` to `last`, which have to begin at 1.
/// They go to the bar if a is 1, and to the plane unless c is.
class LabChart : public Chart, public SupportsNumberTable {
public:
    Diagnostics::String GetValueString() override { return "LabChart"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    void CreateChildren() override;
    /// Answers for its graphs; asks its own data source for others.
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;

    /// The plots; null before they are created.
    virtual Utilities::SmartPointer<CrossGraph> GetAbGraph();
    virtual Utilities::SmartPointer<CrossGraph> GetLGraph();
    virtual void BuildColorSpaceTable();
    /// The rows with their names, under the name of the colour space.
    Utilities::String GetNumberTable() override;

protected:
    using Chart::GetValue;

private:
    LabColorSpaces::Settings const& GetSettings() const { return colorSpaceTable_[colorSpace_]; }
    /// The number of a setting at the present zoom.
    double GetScaled(char const* setting) const;
    Utilities::SmartPointer<CrossGraph> GetPlot(bool isPlane) const;
    Utilities::Anything GetPlaneValue(Utilities::String const& name);
    Utilities::Anything GetBarValue(Utilities::String const& name);
    /// A row's pair of values for a plot; invalid for a key that names no row and for a row without values.
    Utilities::Anything GetPair(Utilities::String const& name, bool isPlane) const;
    void ReadProperties();
    void ReadRows(Utilities::String const& message);

    LabColorSpaces::Table colorSpaceTable_;
    Utilities::String colorSpace_ = "CIELab";
    std::vector<Utilities::Anything> rows_;
    std::uint32_t zoomFactor_ = 100;
    bool smooth_ = false;
    /// Attributes that go on to the plane.
    AttributeMap decor_;
};

} // namespace GUI
