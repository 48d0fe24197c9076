#pragma once

#include "cxf/conditions/Viewing.h"

namespace Norvelian::Tristim {

/// The wavelength whose light, mixed with the white, has a colour's chromaticity (CIE 15).
struct DominantWavelength {
    /// nm; for purples, whose ray from the white meets the line between the ends of the spectrum, the
    /// wavelength on the other side, and `isComplementary`.
    double wavelength = 0;
    bool isComplementary = false;
    /// Distance from the white over that of the spectrum or the purple line, 0 to 1.
    double excitationPurity = 0;
};
/// Throws `TristimException` for the white's own chromaticity, which has no direction, and for a colour or
/// white without light.
DominantWavelength DominantWavelengthOf(XYZ const& colour, XYZ const& white, Observer observer);

/// The temperature of the black body whose chromaticity is nearest in u, v of 1960 (CIE 15), and the
/// distance: positive above the locus, on the green side.
struct ColourTemperature {
    double kelvin = 0;
    double duv = 0;
};
/// From tristimulus values of the 2 degree observer; from 1000 to 100 000 K. Throws `TristimException` for
/// colours that are more than 0.05 away, which have none, and without light.
ColourTemperature ColourTemperatureOf(XYZ const& light);

} // namespace Norvelian::Tristim
