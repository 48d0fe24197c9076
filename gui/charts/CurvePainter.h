#pragma once

#include "gui/charts/ScaleMap.h"
#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <span>

namespace GUI {

/// Draws values at equidistant positions on the X scale as one line, with the context's pen: `MoveTo`
/// the first, `LineTo` each later one.
///
/// Where many values fall on one column of pixels (one row, if the X scale runs downward), that column
/// is drawn through its first, lowest, highest and last value alone. The picture is the same: the lines
/// between values of one column cover all pixels between its lowest and its highest, whatever is
/// between, and since a map is monotone the extreme values have the extreme pixels. The last column is
/// drawn whole, as nothing follows it that would set the pixel that a line leaves out.
///
/// `first` is the number of the first value, whose position is `xBegin + first * xStep`.
void DrawCurve(PlatformIndependentDeviceContext& context, ScaleMap const& map, double xBegin, double xStep,
               std::span<double const> values, std::size_t first = 0);

} // namespace GUI
