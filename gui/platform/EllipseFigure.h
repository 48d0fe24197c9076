#pragma once

#include "gui/platform/PixelSurface.h"

#include <vector>

namespace GUI {

/// The pixels of an ellipse that fills a box of that size, from the box's corner: those whose centres are
/// inside it. Its outline is what remains around an inside that is smaller by the pen's size on each side;
/// a size of 0 means no pen.
///
/// Figures are made once for each size and kept. The reference stays good until the next call.
std::vector<FigureSpan> const& EllipseFigure(int width, int height, int penSize, bool filled);

} // namespace GUI
