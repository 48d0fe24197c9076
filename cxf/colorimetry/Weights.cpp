#include "cxf/colorimetry/Weights.h"

#include "cxf/colorimetry/Illuminants.h"
#include "cxf/colorimetry/Lagrange.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace Norvelian::Tristim {

namespace {

constexpr std::size_t kNodes = (kGridSize - 1) / kBandStep + 1;
constexpr std::size_t kShortEnd = 504 - kGridFirst; // minimum of x bar between its lobes

/// Which nodes, every 10 nm from 360, take part in the value at a grid point, and how much: a quadratic in
/// the first and last interval, a cubic elsewhere.
LagrangeShares SharesAt(std::size_t grid) {
    std::size_t const interval = std::min(grid / kBandStep, kNodes - 2);
    bool const end = interval == 0 || interval == kNodes - 2;
    return SharesOf(static_cast<double>(grid) / kBandStep, interval == 0 ? 0 : interval - 1, end ? 3 : 4);
}

Bands Fold(std::array<double, kNodes> const& nodes) {
    Bands bands{};
    constexpr std::size_t below = (kBandFirst - kGridFirst) / kBandStep;
    for (std::size_t node = 0; node < kNodes; ++node) {
        std::size_t const band = std::clamp(node, below, below + kBands - 1) - below;
        bands[band] += nodes[node];
    }
    return bands;
}

/// The correction of values, carried over to the weights: what it takes from a neighbour's value, it takes
/// from the neighbour's weight.
void CorrectBandpass(Bands& bands) {
    constexpr double a = 0.083;
    Bands const before = bands;
    for (std::size_t band = 0; band < kBands; ++band) {
        bool const first = band == 0;
        bool const last = band + 1 == kBands;
        bands[band] = (1 + (first || last ? a : 2 * a)) * before[band];
        if (!first) bands[band] -= a * before[band - 1];
        if (!last) bands[band] -= a * before[band + 1];
    }
}

std::shared_ptr<WeightSet const> Derive(Viewing const& viewing) {
    GridSpectrum const power = IlluminantPower(viewing);
    auto const& matching = ColourMatching(viewing.observer);
    double scale = 0;
    for (std::size_t i = 0; i < kGridSize; ++i) scale += power[i] * matching[1][i];
    scale = 100 / scale;

    std::array<std::array<double, kNodes>, 3> nodes{};
    std::array<double, 3> white{};
    double shortLobe = 0;
    for (std::size_t i = 0; i < kGridSize; ++i) {
        LagrangeShares const shares = SharesAt(i);
        for (std::size_t c = 0; c < 3; ++c) {
            double const product = scale * power[i] * matching[c][i];
            white[c] += product;
            if (c == 0 && i < kShortEnd) shortLobe += product;
            for (std::size_t k = 0; k < shares.count; ++k)
                nodes[c][shares.first + k] += product * shares.share[k];
        }
    }
    auto weights = std::make_shared<WeightSet>();
    weights->x = Fold(nodes[0]);
    weights->y = Fold(nodes[1]);
    weights->z = Fold(nodes[2]);
    if (viewing.correctBandpass)
        for (Bands* const bands : {&weights->x, &weights->y, &weights->z}) CorrectBandpass(*bands);
    std::size_t place = 0;
    for (Bands const* const bands : {&weights->x, &weights->y, &weights->z})
        for (double const weight : *bands) weights->fast[place++] = static_cast<float>(weight);
    weights->white = {white[0], white[1], white[2]};
    weights->longShare = 1 - shortLobe / white[0];
    return weights;
}

struct Entry {
    Viewing viewing;
    std::shared_ptr<WeightSet const> weights;
};

} // namespace

XYZ IntegrateNative(std::span<double const> values, double first, double step, Viewing const& viewing) {
    GridSpectrum const power = IlluminantPower(viewing);
    auto const& matching = ColourMatching(viewing.observer);
    XYZ sum;
    double white = 0;
    for (std::size_t i = 0; i < kGridSize; ++i) {
        double const position = (kGridFirst + static_cast<double>(i) - first) / step;
        double const inside = std::clamp(position, 0.0, static_cast<double>(values.size() - 1));
        LagrangeShares const shares = CubicShares(inside, values.size());
        double value = 0;
        for (std::size_t k = 0; k < shares.count; ++k) value += shares.share[k] * values[shares.first + k];
        sum.x += power[i] * matching[0][i] * value;
        sum.y += power[i] * matching[1][i] * value;
        sum.z += power[i] * matching[2][i] * value;
        white += power[i] * matching[1][i];
    }
    return {100 * sum.x / white, 100 * sum.y / white, 100 * sum.z / white};
}

std::shared_ptr<WeightSet const> WeightsFor(Viewing const& viewing) {
    // Hosts use a handful of conditions; those with free parameters must not grow the store for ever.
    constexpr std::size_t limit = 64;
    static std::mutex mutex;
    static std::vector<Entry> entries;
    std::lock_guard const lock(mutex);
    for (Entry const& entry : entries)
        if (entry.viewing == viewing) return entry.weights;
    if (entries.size() == limit) entries.erase(entries.begin());
    entries.push_back({viewing, Derive(viewing)});
    return entries.back().weights;
}

} // namespace Norvelian::Tristim
