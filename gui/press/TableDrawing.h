#pragma once

#include "gui/charts/ScaleMap.h"
#include "gui/elements/PaintedPart.h"

#include <optional>

/// What both parts of the table's picture draw with.
namespace GUI::TableDrawing {

using Context = PlatformIndependentDeviceContext;

inline short Short(long value) { return ScaleMap::ToShort(static_cast<double>(value)); }

inline void UseColor(Context& context, RGBVector const& color, long width = 1) {
    context.SetBrush(color);
    context.SetPen(color, width, Context::solid);
}

inline void Line(Context& context, int x1, int y1, int x2, int y2) {
    context.DrawLine(Short(x1), Short(y1), Short(x2), Short(y2));
}

/// Whether a box is in the part that is painted.
inline bool Meets(std::optional<PaneBox> const& painted, long left, long top, long right, long bottom) {
    return !painted || painted->Meets({left, top, right, bottom});
}

} // namespace GUI::TableDrawing
