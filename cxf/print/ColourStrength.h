#pragma once

#include "cxf/conditions/NVSpectrum.h"

#include <string_view>

namespace Norvelian::Tristim {

/// How strong a colouring is beside a standard, in percent, by K/S = (1 - R)^2 / (2 R) after Kubelka and Munk
/// (surface reflection isn't taken off).
struct ColourStrength {
    double atMaximum = 0;           ///< ratio of K/S where the standard absorbs most
    double apparent = 0;            ///< ratio of the sums of K/S over 400 to 700 nm
    double wavelength = 0;          ///< nm, of the standard's highest K/S there
    NVMeasureConditions conditions; ///< those of the standard
};

/// Throws `TristimException` for spectra that aren't reflectances, that can't be compared, or that are zero
/// or below somewhere, and for a standard that absorbs nothing. `accepted` as in `Key::AcceptUnstated`.
ColourStrength GetColourStrength(NVSpectrum const& standard, NVSpectrum const& sample,
                                 std::string_view accepted = {});

} // namespace Norvelian::Tristim
