#pragma once

#include "gui/elements/GUIElement.h"

namespace GUI {

/// One view of a `LabGraph`, as a child of it in the description: what its picture shows where. It draws
/// nothing; the graph reads the block. The attributes are listed beside `LabGraphView`.
class LabGraphSetting : public GUIElement {
public:
    Diagnostics::String GetValueString() override { return "LabGraphSetting"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    AttributeMap const& GetSetting() const { return setting_; }

private:
    AttributeMap setting_;
};

/// Where a `LabGraph` puts its marks on the picture behind it. Each attribute of a `LabGraphSetting` that is
/// absent gives the default.
struct LabGraphView {
    struct Place {
        short x = 0;
        short y = 0;
    };

    /// "XYZeroPos" (100,90): the pixel of a = b = 0. "LZeroPos" (20,160): the foot of the bar.
    Place xyZero{100, 90};
    Place lZero{20, 160};
    /// "XYSize" (80): pixels of "XYRange" (100), the chroma at the plane's edge.
    short xySize = 80;
    double xyRange = 100;
    /// "LSize" (100): pixels of the bar, from the first to the second lightness of "LRange" (0,100).
    short lSize = 100;
    double lBegin = 0;
    double lEnd = 100;
    /// "BackgroundRadius" (0): of a disc behind the plane's marks.
    short backgroundRadius = 0;

    /// Throws `OutOfRangeException` if a number can't be read.
    static LabGraphView Read(AttributeMap const& setting);
};

} // namespace GUI
