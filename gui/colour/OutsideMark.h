#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <algorithm>

namespace GUI {

/// The mark of a selected colour that is beside it: a gap, a white and a black line. One of the two can
/// be seen on any ground, and nothing is on the colour.
struct OutsideMark {
    /// Of each line, in pixels; 0 where there is no room for the mark.
    int tone = 2;
    int gap = 2;

    /// From the mark's outer edge to the colour.
    int Room() const { return 2 * tone + gap; }

    /// Takes at most a quarter of a small patch on each side.
    static OutsideMark Within(long size) {
        OutsideMark mark;
        int const most = static_cast<int>(std::clamp(size / 4, 0L, long{mark.Room()}));
        if (most < 2) return {0, 0};
        mark.tone = std::max(most / 3, 1);
        mark.gap = most - 2 * mark.tone;
        return mark;
    }

    /// Along the inside of a box, round or as a rectangle.
    void Draw(PlatformIndependentDeviceContext& context, short left, short top, short right, short bottom,
              bool isRound) const {
        if (tone == 0) return;
        // The odd pixel of an even pen is outside an ellipse on every side, but before the left and
        // upper sides of a rectangle alone.
        int const before = tone / 2;
        int const behind = isRound ? before : (tone - 1) / 2;
        int inset = 0;
        for (RGBVector const& color : {RGBVector(0, 0, 0), RGBVector(255, 255, 255)}) {
            context.SetPen(color, tone, PlatformIndependentDeviceContext::solid);
            auto const x1 = static_cast<short>(left + inset + before);
            auto const y1 = static_cast<short>(top + inset + before);
            auto const x2 = static_cast<short>(right - inset - behind);
            auto const y2 = static_cast<short>(bottom - inset - behind);
            if (isRound)
                context.DrawEllipse(x1, y1, x2, y2);
            else
                context.DrawRectangle(x1, y1, x2, y2);
            inset += tone;
        }
    }
};

} // namespace GUI
