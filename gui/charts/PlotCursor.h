#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <vector>

namespace GUI {

/// A read-out: a heading, and names with their values, in a box beside a place of a plot.
struct PlotReadOut {
    struct Row {
        Utilities::String name;
        Utilities::String value;
    };

    Utilities::String heading;
    std::vector<Row> rows;

    /// To the right of the column, or to its left where there is more room; names are cut off before values.
    void Draw(PlatformIndependentDeviceContext& context, long column, long top, long plotWidth,
              long plotHeight) const;
};

/// A line over the whole height of a plot.
void DrawCursorLine(PlatformIndependentDeviceContext& context, short column, long plotHeight);
/// A ring around a point of a curve.
void DrawCursorRing(PlatformIndependentDeviceContext& context, short x, short y);

} // namespace GUI
