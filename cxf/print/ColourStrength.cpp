#include "cxf/print/ColourStrength.h"

#include "cxf/colorimetry/Resolved.h"
#include "cxf/conditions/TristimException.h"

#include <string>

namespace Norvelian::Tristim {

namespace {

constexpr std::size_t kFirst = (400 - kBandFirst) / kBandStep;
constexpr std::size_t kLast = (700 - kBandFirst) / kBandStep;

double Absorption(NVSpectrum const& spectrum, std::size_t band) {
    double const r = static_cast<double>(spectrum.GetValues()[band]);
    if (!(r > 0))
        throw TristimException("K/S isn't defined for the reflectance " + std::to_string(r) + " at " +
                               std::to_string(kBandFirst + kBandStep * static_cast<int>(band)) + " nm");
    return (1 - r) * (1 - r) / (2 * r);
}

} // namespace

ColourStrength GetColourStrength(NVSpectrum const& standard, NVSpectrum const& sample,
                                 std::string_view accepted) {
    RequireComparable(standard.GetMeasureConditions(), sample.GetMeasureConditions(), accepted);
    if (standard.GetMeasureConditions().GetMeasureCondition(Vocabulary::Key::SpectrumType) != "Remission")
        throw TristimException("colour strength needs spectra of type Remission");
    double ofStandard = 0;
    double ofSample = 0;
    double highest = 0;
    std::size_t place = kFirst;
    for (std::size_t band = kFirst; band <= kLast; ++band) {
        double const here = Absorption(standard, band);
        ofStandard += here;
        ofSample += Absorption(sample, band);
        if (here <= highest) continue;
        highest = here;
        place = band;
    }
    if (!(highest > 0))
        throw TristimException("the standard absorbs nothing, so nothing is stronger than it");
    return {100 * Absorption(sample, place) / highest, 100 * ofSample / ofStandard,
            kBandFirst + kBandStep * static_cast<double>(place), standard.GetMeasureConditions()};
}

} // namespace Norvelian::Tristim
