#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <vector>

namespace GUI::ScaleNumbers {

/// The smallest of 1, 2 and 5 times a power of ten that divides a range into at most that many parts; 0 for
/// a range that isn't a positive number.
double NiceStep(double range, int mostParts);

/// A number beside a scale, with the size of its text.
struct Number {
    double value = 0;
    Utilities::String text;
    long width = 0;
    long height = 0;
};

/// The multiples of a step between two ends, the ends among them, with as many decimals as the step and the
/// ends need (6 at most) and written as `NumberFormat` says; measured in the context's font. Empty if the
/// step isn't positive or gives more than 1000.
std::vector<Number> Multiples(PlatformIndependentDeviceContext& context, double begin, double end,
                              double step);
/// The same with both ends, whether they are multiples or not.
std::vector<Number> MultiplesAndEnds(PlatformIndependentDeviceContext& context, double begin, double end,
                                     double step);

} // namespace GUI::ScaleNumbers
