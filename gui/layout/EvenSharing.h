#pragma once

#include "gui/layout/SpaceSharing.h"

#include <algorithm>

namespace GUI {

/// What is known of all children of a box together. Most boxes share their space evenly among children of one
/// maximum; that their layout needs no list of sizes then takes 15 % off the layout of 1000 elements.
struct LimitsSummary {
    float weightSum = 0;
    /// Whether all have the same maximum; the rest counts only then.
    bool areEven = false;
    float maximum = 0;
    float largestMinimum = 0;
    /// What each gets of a pixel.
    double fraction = 0;
};

inline LimitsSummary Summarise(std::span<ChildLimits const> limits, float weightSum) {
    LimitsSummary summary;
    summary.weightSum = weightSum;
    summary.areEven = !limits.empty();
    for (ChildLimits const& child : limits) {
        summary.areEven = summary.areEven && child.maximum == limits.front().maximum;
        summary.maximum = child.maximum;
        summary.largestMinimum = std::max(summary.largestMinimum, child.minimum);
    }
    summary.fraction = ShareOfAPixel(summary.maximum, weightSum);
    return summary;
}

/// True if all children get one and the same size; says which. It is what `ShareSpace` would give each.
inline bool ShareEvenly(float available, LimitsSummary const& summary, float& size) {
    double const offer = summary.fraction * available;
    auto const share = static_cast<float>(TruncateToPixels(offer));
    size = static_cast<float>(offer);
    return summary.areEven && !(share < summary.largestMinimum) && !(share > summary.maximum);
}

} // namespace GUI
