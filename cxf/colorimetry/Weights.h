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
/// With `Viewing::correctBandpass` the weights are for instruments whose bandpass is a triangle of 10 nm half
/// width that nothing has corrected yet (`Bandpass`). The sums stay what they are.
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

/// How weights take care of the instrument's bandpass. Published tables of corrected weights were made in two
/// ways, and each light follows the one of its table; those of A, C, D50, D65 and F11 are met within 0.002
/// (`data/verification/weights_10nm_bandpass_corrected.csv`).
///  - Triangles: the weights whose triangles add up to illuminant times observer with the least sum of
///    squares. For A, B, C, E and daylight, which have no lines.
///  - Neighbours: each spectrum value R(i) is thought replaced by -a R(i-1) + (1 + 2a) R(i) - a R(i+1), at
///    the ends (1 + a) R(0) - a R(1), with a = 0.083 (Stearns and Stearns, Color Res. Appl. 13 (1988) 257;
///    ASTM E2022), which is a change of the weights alone. For all others: lamps, indoor daylight,
///    illuminants of a host.
enum class Bandpass { Uncorrected, Triangles, Neighbours };
Bandpass BandpassOf(Viewing const& viewing);

/// The text of the method, as it is in the conditions of results.
char const* MethodOf(Bandpass bandpass);

/// Tristimulus values of a spectrum on a grid of its own, `first` and `step` in nm: interpolated to 1 nm by
/// Lagrange's cubic, its end values beyond its ends, times illuminant times observer, 360 to 830 nm. Y of the
/// perfect diffuser is 100. At least four values; the bandpass isn't corrected. Any thread.
XYZ IntegrateNative(std::span<double const> values, double first, double step, Viewing const& viewing);

/// The weights for a light of any spectrum: its power by 1 nm, 471 values from 360 to 830 nm.
std::shared_ptr<WeightSet const> DeriveWeights(std::span<double const> power, Observer observer,
                                               Bandpass bandpass);

/// The weights for a viewing condition; computed once for the standard ones and kept. Any thread.
std::shared_ptr<WeightSet const> WeightsFor(Viewing const& viewing);

} // namespace Norvelian::Tristim
