#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

namespace Norvelian::Tristim {

/// Lagrange's formula on equally spaced values: the value at a position is the sum of value `first + i` times
/// `share[i]`, over `count` values. On a value its share is one and the others' zero.
struct LagrangeShares {
    std::size_t first;
    std::size_t count;
    std::array<double, 4> share;
};

/// Shares of `count` values, at most four, from `first`; the position counts in steps from value 0.
inline LagrangeShares SharesOf(double position, std::size_t first, std::size_t count) {
    LagrangeShares shares{first, count, {}};
    for (std::size_t i = 0; i < count; ++i) {
        shares.share[i] = 1;
        for (std::size_t j = 0; j < count; ++j)
            if (j != i)
                shares.share[i] *= (position - static_cast<double>(first + j)) /
                                   (static_cast<double>(i) - static_cast<double>(j));
    }
    return shares;
}

/// The cubic through the four nearest of `size` values, which are at least four.
inline LagrangeShares CubicShares(double position, std::size_t size) {
    auto const row = static_cast<std::size_t>(position);
    return SharesOf(position, std::clamp<std::size_t>(row, 1, size - 3) - 1, 4);
}

} // namespace Norvelian::Tristim
