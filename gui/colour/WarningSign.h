#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

namespace GUI {

/// The sign on a field whose colour the screen can't show: the picture "Warnung" in a box of 20 by 15 pixels,
/// whose upper corners are painted over in the field's colour, so that a triangle remains.
namespace WarningSign {

/// From the place that the sign is for to its upper left corner.
inline constexpr int left = 10;
inline constexpr int above = 7 + 2;

/// Draws nothing for a colour that the screen can show.
inline void Draw(PlatformIndependentDeviceContext& context, short x, short y, RGBVector const& color) {
    constexpr int pairs = 9;
    constexpr int lowest = 12;
    if (color.IsInGamut()) return;
    context.DrawImage(x, y, "Warnung");
    context.SetPen(color, 1, PlatformIndependentDeviceContext::solid);
    auto const bottom = static_cast<short>(y + lowest);
    for (int i = 0; i < pairs; ++i) {
        context.DrawLine(static_cast<short>(x + 11 + i), y, static_cast<short>(x + 20), bottom);
        context.DrawLine(static_cast<short>(x + 8 - i), y, static_cast<short>(x - 1), bottom);
    }
}

} // namespace WarningSign

} // namespace GUI
