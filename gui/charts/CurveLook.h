#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <utility>
#include <vector>

namespace GUI {

/// How a curve is drawn, and what it is called.
struct CurveLook {
    Utilities::String name;
    RGBVector color;
    long width = 1;
    /// Around the curve, to tell it from the ground; 0 for none.
    RGBVector caseColor;
    long caseWidth = 0;
};

/// Names beside short samples of the curves, from a place downward. Names that are too long for the room are
/// cut off; where there is no room for all, the last row says how many more there are.
class ChartLegend {
public:
    explicit ChartLegend(std::vector<CurveLook> looks) : looks_(std::move(looks)) {}

    bool IsEmpty() const { return looks_.empty(); }
    static constexpr long rowHeight = 18;
    /// At most `most`.
    long MeasureWidth(PlatformIndependentDeviceContext& context, long most) const;
    long GetHeight(long most) const;
    void Draw(PlatformIndependentDeviceContext& context, long left, long top, long width, long height) const;

private:
    std::vector<CurveLook> looks_;
};

} // namespace GUI
