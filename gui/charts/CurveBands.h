#pragma once

#include "gui/charts/ScaleMap.h"
#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <span>
#include <vector>

namespace GUI {

/// The lowest and the highest value of some curves at each position; what is no number isn't counted, and
/// where there is nothing to count both are no number.
struct CurveEnvelope {
    std::vector<double> lowest;
    std::vector<double> highest;

    void Add(std::span<double const> values);
};

/// Fills what is between two curves over equidistant positions with the selected brush, without an outline;
/// a position where one of them is no number interrupts it.
void FillBetween(PlatformIndependentDeviceContext& context, ScaleMap const& map, double xBegin, double xStep,
                 std::span<double const> lower, std::span<double const> upper);

} // namespace GUI
