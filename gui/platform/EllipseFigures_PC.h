#pragma once

#include "gui/platform/RasterSurface.h"

#include <vector>

namespace GUI {

/// The pixels of a small ellipse, as the platform's painter draws it without antialiasing: made once
/// for each size and kept, so that thousands of spots cost no more than their pixels.
/// `penWidth` 0 stands for no pen. Null for sizes above `maximalFigureSize`.
std::vector<FigureSpan> const* EllipseFigure(int width, int height, int penWidth, bool filled);

constexpr int maximalFigureSize = 64;

} // namespace GUI
