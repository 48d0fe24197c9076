#pragma once

#include "gui/platform/RasterSurface.h"

#include <vector>

namespace GUI {

/// The pixels of an ellipse in a box of that size, from the box's corner: those whose centres lie inside the
/// ellipse that the box holds. The outline is what remains of it, or of one as much larger as the pen is
/// wider than a pixel, around an inside that is smaller by the pen's width on each side; the odd pixel of
/// an even width lies outside. `penWidth` 0 stands for no pen.
///
/// Figures are made once for each size and kept. The reference stays good until the next call.
std::vector<FigureSpan> const& EllipseFigure(int width, int height, int penWidth, bool filled);

} // namespace GUI
