#pragma once

#include "cxf/conditions/Viewing.h"

#include <array>
#include <memory>
#include <span>

namespace Norvelian::Tristim {

/// Weights that turn 36 bands into tristimulus values: X is the sum of value i times `x[i]`, and so on.
///
/// Derived by the method of ASTM E2022 from the CIE 1 nm tables of 2019 (observers, A, D50, D65) and
/// 5 nm tables (the other illuminants): the spectrum is interpolated to 1 nm by Lagrange's formula,
/// cubic inside and quadratic in the first and last interval of 360 to 830 nm, times illuminant times
/// observer. Weights below 380 nm are added to that of 380, those
/// above 730 nm to that of 730. Y of the perfect diffuser is 100.
///
/// With `Viewing::correctBandpass` the weights undo a triangular bandpass of 10 nm: each band's spectrum
/// value is thought replaced by -a R(i-1) + (1 + 2a) R(i) - a R(i+1), at the ends (1 + a) R(0) - a R(1), with
/// a = 0.083 (Stearns and Stearns, Color Res. Appl. 13 (1988) 257), which is a change of the weights alone.
/// The sums stay what they are.
struct WeightSet {
    Bands x;
    Bands y;
    Bands z;
    /// The same as float, one row behind the other, for the kernels.
    std::array<float, 3 * kBands> fast;
    /// The perfect diffuser; the sum over 1 nm, which is also the sum of the weights.
    XYZ white;
    /// Share of Xn that the long-wave lobe of x bar has (above 504 nm); see `RxRyRz` in `ColorSpaces.h`.
    double longShare;
};

/// Texts of the method, as they stand in the conditions of results.
inline constexpr char const* kCorrectedMethod =
    "ASTM E2022 from CIE 1 nm and 5 nm tables (2019), bandpass of 10 nm corrected after Stearns and Stearns, "
    "380-730/10 nm, ends folded";
inline constexpr char const* kMethod =
    "ASTM E2022 from CIE 1 nm and 5 nm tables (2019), no bandpass correction, 380-730/10 nm, ends folded";

/// Tristimulus values of a spectrum on a grid of its own, `first` and `step` in nm: interpolated to 1 nm by
/// Lagrange's cubic, its end values beyond its ends, times illuminant times observer, 360 to 830 nm. Y of the
/// perfect diffuser is 100. At least four values; the bandpass isn't corrected. Any thread.
XYZ IntegrateNative(std::span<double const> values, double first, double step, Viewing const& viewing);

/// The weights for a viewing condition; computed once for the standard ones and kept. Any thread.
std::shared_ptr<WeightSet const> WeightsFor(Viewing const& viewing);

} // namespace Norvelian::Tristim
