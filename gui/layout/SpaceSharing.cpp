#include "gui/layout/SpaceSharing.h"

#include <algorithm>
#include <bit>
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

/// What a child gets of each pixel.
double Fraction(float maximum, float weightSum) {
    bool const isWeighty = std::fabs(static_cast<double>(weightSum)) > smallestSum;
    return isWeighty ? static_cast<double>(maximum) / weightSum : 0.0;
}

/// What a child is offered, and that cut to whole pixels. Children of one box mostly have the same
/// maximum, and so the same offer: it is worked out when the maximum changes.
class Offer {
public:
    Offer(float weightSum, float available) : weightSum_(weightSum), available_(available) {}

    /// Makes the offer for a child and says whether it fixes it.
    bool IsOutside(ChildLimits const& limits) {
        auto const maximum = std::bit_cast<std::uint32_t>(limits.maximum);
        if (maximum != maximum_) {
            maximum_ = maximum;
            MakeFor(limits.maximum);
        }
        return share_ < limits.minimum || isAboveMaximum_;
    }
    float GetSize() const { return size_; }
    /// The limit at which the child is fixed; the maximum, if both are crossed.
    float GetLimit(ChildLimits const& limits) const {
        return isAboveMaximum_ ? limits.maximum : limits.minimum;
    }

private:
    void MakeFor(float maximum) {
        double const offer = Fraction(maximum, weightSum_) * available_;
        size_ = static_cast<float>(offer);
        share_ = static_cast<float>(TruncateToPixels(offer));
        isAboveMaximum_ = share_ > maximum;
    }

    float weightSum_;
    float available_;
    /// The bits of the maximum that the offer is for; at first those of no number that arithmetic gives.
    std::uint32_t maximum_ = 0xFFFFFFFF;
    float size_ = 0;
    float share_ = 0;
    bool isAboveMaximum_ = false;
};

/// The children that still share, as positions in the box.
class OpenChildren {
public:
    explicit OpenChildren(std::size_t count) : positions_(count) {
        std::iota(positions_.begin(), positions_.end(), 0U);
    }
    std::span<std::uint32_t const> Get() const { return positions_; }
    void Remove(std::size_t place) {
        positions_.erase(positions_.begin() + static_cast<std::ptrdiff_t>(place));
    }

private:
    std::vector<std::uint32_t> positions_;
};

/// One round among `count` children, of which `at` gives the positions: fixes the first that lies outside
/// its limits and returns its place among them, or gives all their offers and returns their count.
template <class At>
std::size_t ShareOnce(float available, std::span<ChildLimits const> limits, float weightSum,
                      std::span<float> sizes, std::size_t count, At const& at) {
    Offer offer(weightSum, available);
    for (std::size_t place = 0; place < count; ++place) {
        ChildLimits const& child = limits[at(place)];
        if (offer.IsOutside(child)) {
            sizes[at(place)] = offer.GetLimit(child);
            return place;
        }
        sizes[at(place)] = offer.GetSize();
    }
    return count;
}

} // namespace

float SumOfWeights(std::span<ChildLimits const> limits) {
    float sum = 0;
    for (ChildLimits const& child : limits) sum += Weight(child.maximum);
    return sum;
}

void ShareSpace(float available, std::span<ChildLimits const> limits, float weightSum,
                std::span<float> sizes) {
    // Most boxes have no child to fix, and then no list of the open ones is needed.
    std::size_t place = ShareOnce(available, limits, weightSum, sizes, limits.size(),
                                  [](std::size_t position) { return position; });
    if (place == limits.size()) return;

    OpenChildren open(limits.size());
    do {
        available -= sizes[open.Get()[place]];
        open.Remove(place);
        weightSum = 0;
        for (std::uint32_t const child : open.Get()) weightSum += Weight(limits[child].maximum);
        place = ShareOnce(available, limits, weightSum, sizes, open.Get().size(),
                          [&open](std::size_t position) { return open.Get()[position]; });
    } while (place < open.Get().size());
}

LimitsSummary Summarise(std::span<ChildLimits const> limits, float weightSum) {
    LimitsSummary summary;
    summary.weightSum = weightSum;
    summary.areEven = !limits.empty();
    for (ChildLimits const& child : limits) {
        summary.areEven = summary.areEven && child.maximum == limits.front().maximum;
        summary.maximum = child.maximum;
        summary.largestMinimum = std::max(summary.largestMinimum, child.minimum);
    }
    summary.fraction = Fraction(summary.maximum, weightSum);
    return summary;
}

bool ShareEvenly(float available, LimitsSummary const& summary, float& size) {
    double const offer = summary.fraction * available;
    auto const share = static_cast<float>(TruncateToPixels(offer));
    size = static_cast<float>(offer);
    return summary.areEven && !(share < summary.largestMinimum) && !(share > summary.maximum);
}

} // namespace GUI
