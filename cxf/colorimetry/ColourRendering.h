#pragma once

#include "cxf/colorimetry/Chromaticity.h"
#include "cxf/conditions/NVSpectrum.h"

#include <array>

namespace Norvelian::Tristim {

/// How a light shows colours, after CIE 13.3:1995: compared with a black body of its colour temperature, or
/// from 5000 K on with daylight.
struct ColourRendering {
    double general = 0;               ///< Ra, the mean of the first eight
    std::array<double, 14> special{}; ///< R1 to R14
    ColourTemperature temperature;
    /// False where the light is farther than 0.0054 from its reference, for which the method isn't meant.
    bool isValid = false;
};

/// Of a light's spectral power: 36 bands, linear between them. Throws `TristimException` for a spectrum that
/// isn't of light, and as `ColourTemperatureOf` does.
ColourRendering GetColourRendering(NVSpectrum const& light);
/// Of a known illuminant, by its full table.
ColourRendering GetColourRendering(Viewing const& illuminant);

} // namespace Norvelian::Tristim
