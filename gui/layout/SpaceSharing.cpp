#include "gui/layout/SpaceSharing.h"

#include <cmath>
#include <numeric>
#include <vector>

namespace GUI {

namespace {

/// 0.9999 in single precision, widened.
constexpr double smallestSum = 0.9998999834060669;

float Weight(float maximum) {
    constexpr auto largest = static_cast<float>(largestWeight);
    return maximum <= largest ? maximum : largest;
}

} // namespace

double ShareOfAPixel(float maximum, float weightSum) {
    bool const isWeighty = std::fabs(static_cast<double>(weightSum)) > smallestSum;
    return isWeighty ? static_cast<double>(maximum) / weightSum : 0.0;
}

float SumOfWeights(std::span<ChildLimits const> limits) {
    float sum = 0;
    for (ChildLimits const& child : limits) sum += Weight(child.maximum);
    return sum;
}

void ShareSpace(float available, std::span<ChildLimits const> limits, float weightSum,
                std::span<float> sizes) {
    // The children that still share, as positions in the box.
    std::vector<std::uint32_t> open(limits.size());
    std::iota(open.begin(), open.end(), 0U);
    // Offers to all that are open, and fixes the first that its offer would push outside its limits.
    auto const fixOne = [&] {
        for (auto child = open.begin(); child != open.end(); ++child) {
            auto const [minimum, maximum] = limits[*child];
            double const offer = ShareOfAPixel(maximum, weightSum) * available;
            auto const share = static_cast<float>(TruncateToPixels(offer));
            sizes[*child] = static_cast<float>(offer);
            if (!(share < minimum) && !(share > maximum)) continue;
            sizes[*child] = share > maximum ? maximum : minimum;
            available -= sizes[*child];
            open.erase(child);
            return true;
        }
        return false;
    };
    while (fixOne()) {
        weightSum = 0;
        for (std::uint32_t const child : open) weightSum += Weight(limits[child].maximum);
    }
}

} // namespace GUI
