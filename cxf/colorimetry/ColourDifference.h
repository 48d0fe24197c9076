#pragma once

#include "cxf/colorimetry/DeltaE.h"
#include "cxf/conditions/NVColorVector.h"

#include <string>

namespace Norvelian::Tristim {

/// How far a sample is from its reference, with everything needed to quote the number.
struct ColourDifference {
    double total = 0; ///< by `formula`
    /// Components in CIE 1976 L*a*b*, sample minus reference: positive is lighter, redder, yellower, more
    /// chromatic; the hue difference is positive counter-clockwise.
    double lightness = 0;
    double a = 0;
    double b = 0;
    double chroma = 0;
    double hue = 0;
    /// As the vocabulary names it: "2000", "CMC", ...
    std::string formula;
    DeltaEWeights weights;
    /// What both colours hold under, with what was assumed and accepted.
    NVMeasureConditions conditions;

    /// The formula with its weights as they are quoted: "CIEDE2000", "CMC(2:1)", "CIE94 (1:1:1)".
    std::string GetFormulaText() const;
    /// "CIEDE2000 1.24: dL* 0.50, da* -1.00, db* 0.30, dC* 0.21, dH* -1.03; D50, 2°, ...".
    std::string GetText() const;
};

/// The difference by the formula of the conditions (default "CIELab"). The conditions may name an illuminant
/// and so on that both must have been computed for. Throws `TristimException` as `TristimService::GetDeltaE`
/// does.
ColourDifference DifferenceOf(NVColorVector const& reference, NVColorVector const& sample,
                              NVMeasureConditions const& conditions = {}, DeltaEWeights const& weights = {});

} // namespace Norvelian::Tristim
