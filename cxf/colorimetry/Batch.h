#pragma once

#include "cxf/colorimetry/Weights.h"

#include <span>

/// Many colours at once, on contiguous arrays: what the objects call with one, and what charts and bulk
/// tools call with a million. Spectra are one behind the other, 36 values each; colours three. All throw
/// `TristimException` if the lengths of the arrays don't fit. Values aren't looked at: one that isn't finite
/// gives a result that isn't, too. Any thread.
namespace Norvelian::Tristim::Batch {

/// Tristimulus values, Y of the perfect diffuser 100. The float form is vectorised and good to 1e-6
/// relative; the double form sums in double.
void SpectraToXYZ(std::span<float const> spectra, WeightSet const& weights, std::span<float> xyz);
void SpectraToXYZ(std::span<float const> spectra, WeightSet const& weights, std::span<double> xyz);

/// L*a*b* relative to the perfect diffuser under the weights' illuminant; good to 2e-4 absolute
/// from -10 to 300 percent.
void SpectraToLab(std::span<float const> spectra, WeightSet const& weights, std::span<float> lab);

/// CIE 1976 L*a*b* from tristimulus values, in double.
void XYZToLab(std::span<double const> xyz, XYZ const& white, std::span<double> lab);

/// CIEDE2000 (ISO/CIE 11664-6) of pairs.
void DeltaE2000(std::span<double const> lab1, std::span<double const> lab2, std::span<double> result,
                double kL = 1, double kC = 1, double kH = 1);

} // namespace Norvelian::Tristim::Batch
