#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <span>

namespace GUI {

/// The range of one child's size along the axis of its box, in pixels.
struct ChildLimits {
    float minimum = 0;
    float maximum = 0;
};

/// Shares `available` pixels among the children of a box, in order; `sizes` is as long as `limits`.
///
/// A child's maximum is its weight as well. Each child is offered `maximum / sum * available`, where the
/// sum is taken in single precision and counts a maximum above 1000000 as 1000000. The first child
/// whose offer, cut to whole unsigned pixels of 32 bits, is outside its limits gets that limit (the
/// maximum, if both are crossed), and the rest is shared again among the others. If no offer is outside,
/// all get theirs uncut. With a sum of weights below about 1 every offer is 0.
///
/// A negative offer counts as one near 4294967296, so that an over-full box gives its elastic children
/// their full maxima: boxes are laid out around that, it isn't to be corrected.
/// The sum of the weights of all children is the caller's, who may know it already.
void ShareSpace(float available, std::span<ChildLimits const> limits, float weightSum,
                std::span<float> sizes);

/// The sum of the weights, rounded to single precision at each addition, in order.
float SumOfWeights(std::span<ChildLimits const> limits);

/// A maximum above this counts as this in the sum.
inline constexpr std::uint32_t largestWeight = 1000000;
/// Sums of whole numbers up to this one are exact in single precision, in any order.
inline constexpr std::uint64_t exactSum = std::uint64_t{1} << 24U;

/// What a child of that maximum is offered of each pixel.
double ShareOfAPixel(float maximum, float weightSum);

/// A floating number of pixels as a 32-bit one: cut towards zero, reduced to its low 32 bits; 0 for
/// what no 64-bit integer holds.
template <std::floating_point Number> std::uint32_t TruncateToPixels(Number value) {
    constexpr auto limit = static_cast<Number>(9223372036854775808.0); // 2^63
    if (!(std::fabs(value) < limit)) return 0;
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
}

} // namespace GUI
