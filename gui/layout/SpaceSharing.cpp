#include "gui/layout/SpaceSharing.h"

#include <cmath>
#include <numeric>
#include <vector>

namespace GUI {

namespace {

constexpr float largestWeight = 1000000.0F;
/// 0.9999 in single precision, widened.
constexpr double smallestSum = 0.9998999834060669;

float Weight(float maximum) { return maximum <= largestWeight ? maximum : largestWeight; }

double Offer(float maximum, float weightSum, float available) {
    return static_cast<double>(maximum) / weightSum * available;
}

/// Whether the offer fixes the child, and if so at which size.
bool IsFixed(double offer, ChildLimits const& limits, float& size) {
    auto const share = static_cast<float>(TruncateToPixels(offer));
    bool fixed = false;
    if (share < limits.minimum) {
        size = limits.minimum;
        fixed = true;
    }
    if (share > limits.maximum) {
        size = limits.maximum;
        fixed = true;
    }
    return fixed;
}

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

/// One round among the open children: fixes the first that lies outside its limits and returns its
/// place among them, or gives all their offers and returns their count.
std::size_t ShareOnce(float available, std::span<ChildLimits const> limits,
                      std::span<std::uint32_t const> open, std::span<float> sizes) {
    float weightSum = 0;
    for (std::uint32_t const child : open) weightSum += Weight(limits[child].maximum);
    bool const weighty = std::fabs(static_cast<double>(weightSum)) > smallestSum;
    for (std::size_t place = 0; place < open.size(); ++place) {
        std::uint32_t const child = open[place];
        double const offer = weighty ? Offer(limits[child].maximum, weightSum, available) : 0.0;
        if (IsFixed(offer, limits[child], sizes[child])) return place;
        sizes[child] = static_cast<float>(offer);
    }
    return open.size();
}

} // namespace

void ShareSpace(float available, std::span<ChildLimits const> limits, std::span<float> sizes) {
    // Most boxes have no child to fix, and then no list of the open ones is needed.
    float weightSum = 0;
    for (ChildLimits const& child : limits) weightSum += Weight(child.maximum);
    bool const weighty = std::fabs(static_cast<double>(weightSum)) > smallestSum;
    std::size_t place = 0;
    for (; place < limits.size(); ++place) {
        double const offer = weighty ? Offer(limits[place].maximum, weightSum, available) : 0.0;
        if (IsFixed(offer, limits[place], sizes[place])) break;
        sizes[place] = static_cast<float>(offer);
    }
    if (place == limits.size()) return;

    OpenChildren open(limits.size());
    do {
        available -= sizes[open.Get()[place]];
        open.Remove(place);
        place = ShareOnce(available, limits, open.Get(), sizes);
    } while (place < open.Get().size());
}

} // namespace GUI
