#pragma once

#include "cxf/colorimetry/Tables.h"
#include "cxf/conditions/Viewing.h"

#include <array>
#include <cstddef>

namespace Norvelian::Tristim {

/// A spectral function on the 1 nm grid of the CIE observers, 360 to 830 nm.
constexpr int kGridFirst = 360;
constexpr std::size_t kGridSize = 471;
using GridSpectrum = std::array<double, kGridSize>;

/// The relative spectral power of an illuminant on the 1 nm grid. Tables by 5 nm are interpolated by
/// Lagrange's cubic, as the weights of ASTM E308 were: linear interpolation flattens the blue maximum of
/// illuminant C and misses its white point by 0.06. Outside of its table an illuminant is zero. `Dxx` is
/// daylight of the temperature in `viewing` after CIE 15: the chromaticity locus, M1 and M2 rounded to three
/// decimals, then S0 + M1 S1 + M2 S2. A user-defined illuminant is linear between its 36 bands and keeps its
/// end values beyond them. `Emission` is the equal-energy function, since an emission spectrum carries its
/// own light.
GridSpectrum IlluminantPower(Viewing const& viewing);

/// A table's column on the grid: Lagrange's cubic through the four nearest rows, zero outside.
GridSpectrum OnGrid(Tables::NumberTable const& table, std::size_t column);

/// Colour-matching functions on the 1 nm grid: x, y, z bar.
std::array<GridSpectrum, 3> const& ColourMatching(Observer observer);

/// Tristimulus values of a spectral power by summing over 1 nm, Y = 100.
XYZ WhiteOf(GridSpectrum const& power, Observer observer);

} // namespace Norvelian::Tristim
