#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <optional>

namespace GUI {

/// A plane of values on a pane: where its zero is and how long a unit is, in pixels. X grows to the right
/// and Y upward; a negative unit turns its axis over.
struct ValuePlane {
    long paneWidth = 0;
    long paneHeight = 0;
    double originX = 0;
    double originY = 0;
    double xUnit = 0;
    double yUnit = 0;
};

/// Draws the two axes through zero, or along the pane's edge where zero is outside, with ticks at steps of
/// 1, 2 or 5 times a power of ten, and with a grid of lines at these steps if there is a colour for it. Steps
/// are the same on both axes if the units are. The numbers are along the left and lower edge, each beside
/// its line, where data seldom are; those that have no room are left out.
void DrawZeroAxes(PlatformIndependentDeviceContext& context, ValuePlane const& plane, RGBVector const& color,
                  std::optional<RGBVector> const& gridColor);

} // namespace GUI
