#include "gui/charts/CurveBands.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace GUI {

void CurveEnvelope::Add(std::span<double const> values) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (values.size() > lowest.size()) {
        lowest.resize(values.size(), none);
        highest.resize(values.size(), none);
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        // These two give the other one if one is no number.
        lowest[i] = std::fmin(lowest[i], values[i]);
        highest[i] = std::fmax(highest[i], values[i]);
    }
}

void FillBetween(PlatformIndependentDeviceContext& context, ScaleMap const& map, double xBegin, double xStep,
                 std::span<double const> lower, std::span<double const> upper) {
    std::size_t const count = std::min(lower.size(), upper.size());
    auto const isThere = [&](std::size_t i) { return std::isfinite(lower[i]) && std::isfinite(upper[i]); };
    for (std::size_t begin = 0; begin < count;) {
        std::size_t end = begin;
        while (end < count && isThere(end)) ++end;
        auto const length = static_cast<std::uint32_t>(end - begin);
        if (length > 1) {
            PlatformIndependentDeviceContext::Points corners(2 * length);
            for (std::uint32_t i = 0; i < length; ++i) {
                double const x = xBegin + static_cast<double>(begin + i) * xStep;
                short px = 0;
                short py = 0;
                map.ToPixel(x, lower[begin + i], px, py);
                corners[i] = {px, py};
                map.ToPixel(x, upper[begin + i], px, py);
                corners[2 * length - 1 - i] = {px, py};
            }
            context.FillPolygon(corners);
        }
        begin = std::max(end, begin + 1);
    }
}

} // namespace GUI
