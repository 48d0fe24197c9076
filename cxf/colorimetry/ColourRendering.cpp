#include "cxf/colorimetry/ColourRendering.h"

#include "cxf/colorimetry/Illuminants.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace Norvelian::Tristim {

namespace {

/// From here on the reference is daylight (CIE 13.3).
constexpr double kDaylightFrom = 5000;
constexpr double kFarthest = 0.0054;

struct Uv {
    double u;
    double v;
};
Uv UvOf(XYZ const& xyz) {
    double const sum = xyz.x + 15 * xyz.y + 3 * xyz.z;
    return {4 * xyz.x / sum, 6 * xyz.y / sum};
}

/// Tristimulus values of a surface under a light, Y of the white 100.
XYZ Seen(GridSpectrum const& power, GridSpectrum const* surface) {
    auto const& matching = ColourMatching(Observer::TwoDegree);
    XYZ sum;
    double white = 0;
    for (std::size_t i = 0; i < kGridSize; ++i) {
        double const light = power[i] * (surface ? (*surface)[i] : 1);
        sum.x += light * matching[0][i];
        sum.y += light * matching[1][i];
        sum.z += light * matching[2][i];
        white += power[i] * matching[1][i];
    }
    return {100 * sum.x / white, 100 * sum.y / white, 100 * sum.z / white};
}

GridSpectrum ReferenceOf(double kelvin) {
    if (kelvin >= kDaylightFrom)
        return IlluminantPower({.illumination = Illumination::Dxx, .temperature = std::min(kelvin, 25000.0)});
    GridSpectrum power{};
    for (std::size_t i = 0; i < kGridSize; ++i) {
        double const nm = kGridFirst + static_cast<double>(i);
        power[i] = std::pow(560 / nm, 5) / std::expm1(1.4388e7 / (nm * kelvin));
    }
    return power;
}

ColourRendering RenderingOf(GridSpectrum const& power) {
    ColourRendering result;
    XYZ const light = Seen(power, nullptr);
    result.temperature = ColourTemperatureOf(light);
    GridSpectrum const reference = ReferenceOf(result.temperature.kelvin);
    auto const c = [](Uv const& uv) { return (4 - uv.u - 10 * uv.v) / uv.v; };
    auto const d = [](Uv const& uv) { return (1.708 * uv.v + 0.404 - 1.481 * uv.u) / uv.v; };
    Uv const test = UvOf(light);
    Uv const wanted = UvOf(Seen(reference, nullptr));
    result.isValid = std::hypot(test.u - wanted.u, test.v - wanted.v) <= kFarthest;
    for (std::size_t sample = 0; sample < result.special.size(); ++sample) {
        GridSpectrum const surface = OnGrid(Tables::CieRenderingSamples, sample + 1);
        XYZ const one = Seen(reference, &surface);
        XYZ const other = Seen(power, &surface);
        Uv const here = UvOf(other);
        // The eye's adaptation from the test light to the reference, in the coordinates of Judd.
        double const shareC = c(wanted) / c(test) * c(here);
        double const shareD = d(wanted) / d(test) * d(here);
        double const divisor = 16.518 + 1.481 * shareC - shareD;
        Uv const adapted{(10.872 + 0.404 * shareC - 4 * shareD) / divisor, 5.520 / divisor};
        Uv const there = UvOf(one);
        double const w1 = 25 * std::cbrt(one.y) - 17;
        double const w2 = 25 * std::cbrt(other.y) - 17;
        double const du = 13 * (w1 * (there.u - wanted.u) - w2 * (adapted.u - wanted.u));
        double const dv = 13 * (w1 * (there.v - wanted.v) - w2 * (adapted.v - wanted.v));
        result.special[sample] = 100 - 4.6 * std::hypot(w1 - w2, du, dv);
    }
    for (std::size_t sample = 0; sample < 8; ++sample) result.general += result.special[sample] / 8;
    return result;
}

} // namespace

ColourRendering GetColourRendering(Viewing const& illuminant) {
    return RenderingOf(IlluminantPower(illuminant));
}

ColourRendering GetColourRendering(NVSpectrum const& light) {
    std::string const type = light.GetMeasureConditions().GetMeasureCondition(Vocabulary::Key::SpectrumType);
    if (type != "Emission" && type != "AmbientLight" && type != "Flash")
        throw TristimException("a spectrum of type \"" + type + "\" isn't light and renders no colours");
    Bands bands{};
    for (std::size_t band = 0; band < kBands; ++band)
        bands[band] = std::max(0.0, static_cast<double>(light.GetValues()[band]));
    return RenderingOf(IlluminantPower({.illumination = Illumination::Userdefined, .user = bands}));
}

} // namespace Norvelian::Tristim
