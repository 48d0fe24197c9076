#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

namespace GUI::PlotText {

/// The font of ticks, titles, legends and read-outs in charts with axes along their edges.
inline void SelectFont(PlatformIndependentDeviceContext& context, bool isBold = false) {
    constexpr short height = -12;
    context.SetFont(height, 0, 0, "Noto Sans",
                    isBold ? PlatformIndependentDeviceContext::boldFont : short{0});
}

inline long WidthOf(PlatformIndependentDeviceContext& context, Utilities::String const& text) {
    long width = 0;
    long height = 0;
    context.GetTextExtent(text, width, height);
    return width;
}

/// As much of a text as fits, with an ellipsis behind what was cut off; empty if nothing does.
Utilities::String Fit(PlatformIndependentDeviceContext& context, Utilities::String const& text, long room);

} // namespace GUI::PlotText
