#include "cxf/colorimetry/Weights.h"

#include "cxf/colorimetry/Illuminants.h"
#include "cxf/colorimetry/Lagrange.h"

#include <algorithm>
#include <cstdlib>
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

using Nodes = std::array<double, kNodes>;

/// The correction of values, carried over to the weights: what it takes from a neighbour's value, it takes
/// from the neighbour's weight.
void CorrectByNeighbours(Nodes& nodes) {
    constexpr double a = 0.083;
    Nodes const before = nodes;
    for (std::size_t node = 0; node < kNodes; ++node) {
        bool const first = node == 0;
        bool const last = node + 1 == kNodes;
        nodes[node] = (1 + (first || last ? a : 2 * a)) * before[node];
        if (!first) nodes[node] -= a * before[node - 1];
        if (!last) nodes[node] -= a * before[node + 1];
    }
}

/// The nodes' triangles whose sum is nearest to a function on the grid: the normal equations of the least
/// squares have three diagonals.
Nodes FitTriangles(GridSpectrum const& wanted) {
    constexpr int half = kBandStep;
    auto const height = [](int off) { return 1 - std::abs(off) / static_cast<double>(half); };
    std::array<double, kNodes> diagonal{};
    std::array<double, kNodes> beside{}; // with the node behind
    Nodes right{};
    for (std::size_t node = 0; node < kNodes; ++node)
        for (int off = 1 - half; off < half; ++off) {
            auto const place = static_cast<std::ptrdiff_t>(node * half) + off;
            if (place < 0 || place >= static_cast<std::ptrdiff_t>(kGridSize)) continue;
            diagonal[node] += height(off) * height(off);
            if (off > 0) beside[node] += height(off) * height(half - off);
            right[node] += height(off) * wanted[static_cast<std::size_t>(place)];
        }
    for (std::size_t node = 1; node < kNodes; ++node) {
        double const share = beside[node - 1] / diagonal[node - 1];
        diagonal[node] -= share * beside[node - 1];
        right[node] -= share * right[node - 1];
    }
    Nodes fit{};
    for (std::size_t node = kNodes; node-- > 0;) {
        double const behind = node + 1 < kNodes ? beside[node] * fit[node + 1] : 0;
        fit[node] = (right[node] - behind) / diagonal[node];
    }
    // A node's weight is the area of its triangle; those at the ends have one half.
    for (std::size_t node = 0; node < kNodes; ++node) {
        bool const end = node == 0 || node + 1 == kNodes;
        fit[node] *= end ? (half + 1) / 2.0 : half;
    }
    return fit;
}

struct Entry {
    Viewing viewing;
    std::shared_ptr<WeightSet const> weights;
};

} // namespace

Bandpass BandpassOf(Viewing const& viewing) {
    if (!viewing.correctBandpass) return Bandpass::Uncorrected;
    switch (viewing.illumination) {
    case Illumination::F:
    case Illumination::Emission:
        return Bandpass::Neighbours;
    case Illumination::Userdefined:
        // Equal energy is the first of the names.
        return viewing.named == 0U ? Bandpass::Triangles : Bandpass::Neighbours;
    default:
        return Bandpass::Triangles;
    }
}

char const* MethodOf(Bandpass bandpass) {
    switch (bandpass) {
    case Bandpass::Triangles:
        return "least squares of triangles of 10 nm to CIE 1 nm and 5 nm tables (2019), which corrects that "
               "bandpass, 380-730/10 nm, ends folded";
    case Bandpass::Neighbours:
        return "ASTM E2022 from CIE 1 nm and 5 nm tables (2019), bandpass of 10 nm corrected after Stearns "
               "and "
               "Stearns, 380-730/10 nm, ends folded";
    case Bandpass::Uncorrected:
        break;
    }
    return "ASTM E2022 from CIE 1 nm and 5 nm tables (2019), no bandpass correction, 380-730/10 nm, ends "
           "folded";
}

std::shared_ptr<WeightSet const> DeriveWeights(std::span<double const> power, Observer observer,
                                               Bandpass bandpass) {
    auto const& matching = ColourMatching(observer);
    double scale = 0;
    for (std::size_t i = 0; i < kGridSize; ++i) scale += power[i] * matching[1][i];
    scale = 100 / scale;

    std::array<GridSpectrum, 3> products{};
    std::array<Nodes, 3> nodes{};
    std::array<double, 3> white{};
    double shortLobe = 0;
    for (std::size_t i = 0; i < kGridSize; ++i) {
        LagrangeShares const shares = SharesAt(i);
        for (std::size_t c = 0; c < 3; ++c) {
            double const product = products[c][i] = scale * power[i] * matching[c][i];
            white[c] += product;
            if (c == 0 && i < kShortEnd) shortLobe += product;
            for (std::size_t k = 0; k < shares.count; ++k)
                nodes[c][shares.first + k] += product * shares.share[k];
        }
    }
    for (std::size_t c = 0; c < 3; ++c) {
        if (bandpass == Bandpass::Triangles) nodes[c] = FitTriangles(products[c]);
        if (bandpass == Bandpass::Neighbours) CorrectByNeighbours(nodes[c]);
    }
    auto weights = std::make_shared<WeightSet>();
    weights->x = Fold(nodes[0]);
    weights->y = Fold(nodes[1]);
    weights->z = Fold(nodes[2]);
    std::size_t place = 0;
    for (Bands const* const bands : {&weights->x, &weights->y, &weights->z})
        for (double const weight : *bands) weights->fast[place++] = static_cast<float>(weight);
    weights->white = {white[0], white[1], white[2]};
    weights->longShare = 1 - shortLobe / white[0];
    return weights;
}

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
    entries.push_back(
        {viewing, DeriveWeights(IlluminantPower(viewing), viewing.observer, BandpassOf(viewing))});
    return entries.back().weights;
}

} // namespace Norvelian::Tristim
