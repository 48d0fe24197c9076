#include "cxf/samples/SampleAttribute.h"

#include "cxf/colorimetry/Lagrange.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

using Tristim::kBandFirst;
using Tristim::kBands;
using Tristim::kBandStep;
using Tristim::TristimException;

namespace {

/// Wavelengths closer than this are one.
constexpr double kSameWavelength = 0.01;
constexpr double kLastBand = kBandFirst + kBandStep * (static_cast<double>(kBands) - 1);
/// What must have been measured before end values may be repeated: most of what the eye sees.
constexpr double kVisibleFirst = 400;
constexpr double kVisibleLast = 700;

/// How the 36 bands come from the values of one grid: for each band, which values take part and how much.
struct Resampling {
    double first = 0;
    double step = 0;
    std::size_t count = 0;
    std::array<std::vector<std::pair<std::size_t, double>>, kBands> shares;
    std::string done;
};

void AddShares(std::map<std::size_t, double>& to, double position, std::size_t count, double weight,
               bool cubic) {
    double const inside = std::clamp(position, 0.0, static_cast<double>(count - 1));
    double const nearest = std::round(inside);
    if (std::abs(inside - nearest) < 1e-6) {
        to[static_cast<std::size_t>(nearest)] += weight;
    } else if (cubic) {
        Tristim::LagrangeShares const shares = Tristim::CubicShares(inside, count);
        for (std::size_t k = 0; k < shares.count; ++k) to[shares.first + k] += weight * shares.share[k];
    } else {
        auto const below = static_cast<std::size_t>(inside);
        to[below] += weight * (1 - (inside - static_cast<double>(below)));
        to[below + 1] += weight * (inside - static_cast<double>(below));
    }
}

/// The band as an instrument with a triangular bandpass of 10 nm would have measured it. On a grid that 10 nm
/// are a multiple of, the values are weighted as they are (1, 2, 1 for 5 nm); other grids are taken as
/// linear between their values. Near an end of the spectrum the triangle is as wide as there are values on
/// both sides, so that a slope stays what it is.
void AddTriangle(std::map<std::size_t, double>& to, double position, double step, std::size_t count) {
    double const end = static_cast<double>(count - 1);
    double const half = std::min({kBandStep / step, position, end - position});
    double const ratio = kBandStep / step;
    bool const aligned =
        std::abs(ratio - std::round(ratio)) < 1e-6 && std::abs(position - std::round(position)) < 1e-6;
    double const stride = aligned ? 1 : half / 20;
    if (half < 1e-6 || stride <= 0) {
        AddShares(to, position, count, 1, true);
        return;
    }
    auto const places = static_cast<int>(std::ceil(half / stride - 1e-9));
    double sum = 0;
    for (int place = 0; place < places; ++place) sum += (place > 0 ? 2 : 1) * (1 - place * stride / half);
    for (int place = 0; place < places; ++place) {
        double const offset = place * stride;
        double const weight = (1 - offset / half) / sum;
        AddShares(to, position + offset, count, weight, false);
        if (place > 0) AddShares(to, position - offset, count, weight, false);
    }
}

Resampling MakeResampling(double first, double step, std::size_t count) {
    using Tristim::Numbers::Shortest;
    Resampling made{first, step, count, {}, {}};
    double const last = first + step * static_cast<double>(count - 1);
    bool const fine = step < kBandStep - 1e-6;
    bool interpolated = false;
    for (std::size_t band = 0; band < kBands; ++band) {
        double const wavelength = kBandFirst + kBandStep * static_cast<double>(band);
        double const position = std::clamp((wavelength - first) / step, 0.0, static_cast<double>(count - 1));
        bool const onValue = std::abs(position - std::round(position)) * step < kSameWavelength;
        std::map<std::size_t, double> shares;
        if (fine)
            AddTriangle(shares, onValue ? std::round(position) : position, step, count);
        else
            AddShares(shares, onValue ? std::round(position) : position, count, 1, true);
        interpolated = interpolated || !onValue;
        made.shares[band].assign(shares.begin(), shares.end());
    }
    auto const add = [&made](std::string const& text) {
        made.done += (made.done.empty() ? "" : ", ") + text;
    };
    if (fine)
        add("triangular bandpass of 10 nm over values by " + Shortest(step) + " nm");
    else if (interpolated)
        add("cubic Lagrange from " + Shortest(step) + " nm");
    bool const below = first > kBandFirst + kSameWavelength;
    bool const above = last < kLastBand - kSameWavelength;
    if (below || above)
        add("end values repeated" + (below ? " below " + Shortest(first) + " nm" : std::string()) +
            (below && above ? " and" : "") + (above ? " above " + Shortest(last) + " nm" : std::string()));
    if (last > kLastBand + kSameWavelength) add("nothing above 730 nm used");
    if (first < kBandFirst - kSameWavelength) add("nothing below 380 nm used");
    return made;
}

} // namespace

Spectrum::Spectrum(double first, double step, std::vector<double> values, Conditions conditions,
                   bool extrapolate)
    : SampleAttribute(std::move(conditions)), first_(first), step_(step), values_(std::move(values)),
      extrapolate_(extrapolate) {
    if (values_.size() < 4)
        throw TristimException("a spectrum needs at least 4 values; got " + std::to_string(values_.size()));
    if (!(step > 0) || !std::isfinite(step) || !std::isfinite(first))
        throw TristimException("a spectrum needs a first wavelength and a positive step");
    if (!std::all_of(values_.begin(), values_.end(), [](double value) { return std::isfinite(value); }))
        throw TristimException("a spectrum's value is not a finite number");
}

namespace Extensions {

Tristim::NVSpectrum Cxf2NV(Spectrum const& spectrum) {
    std::vector<double> const& values = spectrum.GetValues();
    bool const missing = spectrum.GetFirst() > kBandFirst + kSameWavelength ||
                         spectrum.GetLast() < kLastBand - kSameWavelength;
    bool const visible = spectrum.GetFirst() < kVisibleFirst + kSameWavelength &&
                         spectrum.GetLast() > kVisibleLast - kSameWavelength;
    if (missing && !(spectrum.MayExtrapolate() && visible))
        throw TristimException(
            "the spectrum reaches from " + Tristim::Numbers::Shortest(spectrum.GetFirst()) + " to " +
            Tristim::Numbers::Shortest(spectrum.GetLast()) + " nm; expected " +
            (spectrum.MayExtrapolate() ? "at least 400 to 700 nm, which can be extended" : "380 to 730 nm"));

    // All spectra of a file are on the same grid.
    thread_local Resampling resampling;
    if (resampling.first != spectrum.GetFirst() || resampling.step != spectrum.GetStep() ||
        resampling.count != values.size())
        resampling = MakeResampling(spectrum.GetFirst(), spectrum.GetStep(), values.size());
    std::vector<float> bands(kBands);
    for (std::size_t band = 0; band < kBands; ++band) {
        double value = 0;
        for (auto const& [place, share] : resampling.shares[band]) value += share * values[place];
        bands[band] = static_cast<float>(value);
    }
    Tristim::NVMeasureConditions conditions = spectrum.GetConditions().GetMeasureConditions();
    if (!resampling.done.empty())
        conditions.SetMeasureCondition(Tristim::Vocabulary::Key::Resampling, resampling.done);
    return Tristim::NVSpectrum(std::move(bands), std::move(conditions));
}

Tristim::NVSpectrum Cxf2NV(SampleAttribute const& attribute) {
    if (auto const* const spectrum = dynamic_cast<Spectrum const*>(&attribute)) return Cxf2NV(*spectrum);
    throw TristimException("an attribute of type " + attribute.GetType() + " is no spectrum");
}

} // namespace Extensions

} // namespace Norvelian::ColorExchangeFormat
