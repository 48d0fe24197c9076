#include "cxf/colorimetry/Illuminants.h"

#include "cxf/colorimetry/Lagrange.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <cmath>

namespace Norvelian::Tristim {

namespace {

double RoundedTo3(double value) { return std::round(value * 1000) / 1000; }

/// CIE 15, daylight of a correlated colour temperature between 4000 and 25000 K.
GridSpectrum Daylight(double kelvin) {
    double const t = 1000 / kelvin;
    double const x = kelvin <= 7000 ? ((-4.6070 * t + 2.9678) * t + 0.09911) * t + 0.244063
                                    : ((-2.0064 * t + 1.9018) * t + 0.24748) * t + 0.237040;
    double const y = (-3.000 * x + 2.870) * x - 0.275;
    double const m = 0.0241 + 0.2562 * x - 0.7341 * y;
    double const m1 = RoundedTo3((-1.3515 - 1.7703 * x + 5.9114 * y) / m);
    double const m2 = RoundedTo3((0.0300 - 31.4424 * x + 30.0717 * y) / m);
    GridSpectrum grid = OnGrid(Tables::CieDaylight, 1);
    GridSpectrum const s1 = OnGrid(Tables::CieDaylight, 2);
    GridSpectrum const s2 = OnGrid(Tables::CieDaylight, 3);
    for (std::size_t i = 0; i < kGridSize; ++i) grid[i] += m1 * s1[i] + m2 * s2[i];
    return grid;
}

GridSpectrum UserDefined(Bands const& bands) {
    if (!std::any_of(bands.begin(), bands.end(), [](double power) { return power > 0; }) ||
        std::any_of(bands.begin(), bands.end(), [](double power) { return power < 0; }))
        throw TristimException(
            "a user-defined illuminant needs power in some band and a negative one in none");
    GridSpectrum grid{};
    for (std::size_t i = 0; i < kGridSize; ++i) {
        double const position = (kGridFirst + static_cast<double>(i) - kBandFirst) / kBandStep;
        double const inside = std::clamp(position, 0.0, static_cast<double>(kBands - 1));
        auto const band = std::min(static_cast<std::size_t>(inside), kBands - 2);
        double const share = inside - static_cast<double>(band);
        grid[i] = (1 - share) * bands[band] + share * bands[band + 1];
    }
    return grid;
}

/// In the order of `Vocabulary::Value::IlluminantName`.
GridSpectrum Named(std::size_t place) {
    if (place == 0) {
        GridSpectrum equal{};
        equal.fill(1);
        return equal;
    }
    if (place <= 9) return OnGrid(Tables::CieLed, place);
    if (place == 10) return OnGrid(Tables::CieIndoor50, 1);
    if (place == 11) return OnGrid(Tables::CieIndoor65, 1);
    return OnGrid(Tables::CieDischarge, place - 11);
}

} // namespace

// On a row its value is exact, so a table by 1 nm is taken as it is.
GridSpectrum OnGrid(Tables::NumberTable const& table, std::size_t column) {
    GridSpectrum grid{};
    for (std::size_t i = 0; i < kGridSize; ++i) {
        double const position = (kGridFirst + static_cast<double>(i) - table.First()) / table.Step();
        if (position < 0 || position > static_cast<double>(table.rows - 1)) continue;
        LagrangeShares const shares = CubicShares(position, table.rows);
        for (std::size_t k = 0; k < shares.count; ++k)
            grid[i] += shares.share[k] * table.At(shares.first + k, column);
    }
    return grid;
}

GridSpectrum IlluminantPower(Viewing const& viewing) {
    switch (viewing.illumination) {
    case Illumination::A:
        return OnGrid(Tables::CieA, 1);
    case Illumination::B:
        return OnGrid(Tables::CieB, 1);
    case Illumination::C:
        return OnGrid(Tables::CieC, 1);
    case Illumination::D50:
        return OnGrid(Tables::CieD50, 1);
    case Illumination::D55:
        return OnGrid(Tables::CieD55, 1);
    case Illumination::D65:
        return OnGrid(Tables::CieD65, 1);
    case Illumination::D75:
        return OnGrid(Tables::CieD75, 1);
    case Illumination::Dxx:
        return Daylight(viewing.temperature);
    case Illumination::F:
        return OnGrid(Tables::CieFluorescent, static_cast<std::size_t>(viewing.fluorescent));
    case Illumination::Userdefined:
        if (viewing.user) return UserDefined(*viewing.user);
        if (viewing.named) return Named(*viewing.named);
        break;
    case Illumination::Emission: {
        GridSpectrum equal{};
        equal.fill(1);
        return equal;
    }
    }
    throw TristimException("the user-defined illuminant has no spectrum");
}

std::array<GridSpectrum, 3> const& ColourMatching(Observer observer) {
    auto const load = [](Tables::NumberTable const& table) {
        return std::array{OnGrid(table, 1), OnGrid(table, 2), OnGrid(table, 3)};
    };
    static std::array<GridSpectrum, 3> const two = load(Tables::CieObserver2);
    static std::array<GridSpectrum, 3> const ten = load(Tables::CieObserver10);
    return observer == Observer::TwoDegree ? two : ten;
}

XYZ WhiteOf(GridSpectrum const& power, Observer observer) {
    auto const& matching = ColourMatching(observer);
    XYZ sum;
    for (std::size_t i = 0; i < kGridSize; ++i) {
        sum.x += power[i] * matching[0][i];
        sum.y += power[i] * matching[1][i];
        sum.z += power[i] * matching[2][i];
    }
    return {100 * sum.x / sum.y, 100, 100 * sum.z / sum.y};
}

} // namespace Norvelian::Tristim
