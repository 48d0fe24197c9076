#include "cxf/samples/SampleAttribute.h"

#include "cxf/colorimetry/Lagrange.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <cmath>

namespace Norvelian::ColorExchangeFormat {

using Tristim::kBandFirst;
using Tristim::kBands;
using Tristim::kBandStep;
using Tristim::TristimException;

namespace {

/// Wavelengths closer than this are one.
constexpr double kSameWavelength = 0.01;

double Interpolate(std::vector<double> const& values, double position) {
    Tristim::LagrangeShares const shares = Tristim::CubicShares(position, values.size());
    double result = 0;
    for (std::size_t k = 0; k < shares.count; ++k) result += shares.share[k] * values[shares.first + k];
    return result;
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
    double const lastBand = kBandFirst + kBandStep * (static_cast<double>(kBands) - 1);
    bool const missing =
        spectrum.GetFirst() > kBandFirst + kSameWavelength || spectrum.GetLast() < lastBand - kSameWavelength;
    if (missing && !spectrum.MayExtrapolate())
        throw TristimException(
            "the spectrum reaches from " + Tristim::Numbers::Shortest(spectrum.GetFirst()) + " to " +
            Tristim::Numbers::Shortest(spectrum.GetLast()) + " nm; expected 380 to 730 nm");

    std::vector<float> bands(kBands);
    bool interpolated = false;
    auto const end = static_cast<double>(values.size() - 1);
    for (std::size_t band = 0; band < kBands; ++band) {
        double const wavelength = kBandFirst + kBandStep * static_cast<double>(band);
        double const position = std::clamp((wavelength - spectrum.GetFirst()) / spectrum.GetStep(), 0.0, end);
        double const nearest = std::round(position);
        bool const onValue = std::abs(position - nearest) * spectrum.GetStep() < kSameWavelength;
        interpolated = interpolated || !onValue;
        bands[band] = static_cast<float>(onValue ? values[static_cast<std::size_t>(nearest)]
                                                 : Interpolate(values, position));
    }
    Tristim::NVMeasureConditions conditions = spectrum.GetConditions().GetMeasureConditions();
    std::string done;
    if (interpolated) done = "cubic Lagrange from " + Tristim::Numbers::Shortest(spectrum.GetStep()) + " nm";
    if (missing) done += std::string(done.empty() ? "" : ", ") + "end values repeated";
    if (!done.empty()) conditions.SetMeasureCondition(Tristim::Vocabulary::Key::Resampling, done);
    return Tristim::NVSpectrum(std::move(bands), std::move(conditions));
}

Tristim::NVSpectrum Cxf2NV(SampleAttribute const& attribute) {
    if (auto const* const spectrum = dynamic_cast<Spectrum const*>(&attribute)) return Cxf2NV(*spectrum);
    throw TristimException("an attribute of type " + attribute.GetType() + " is no spectrum");
}

} // namespace Extensions

} // namespace Norvelian::ColorExchangeFormat
