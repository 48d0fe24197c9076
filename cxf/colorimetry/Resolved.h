#pragma once

#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/colorimetry/Weights.h"
#include "cxf/conditions/NVSpectrum.h"

#include <memory>

namespace Norvelian::Tristim {

/// Conditions with every default written out and checked, and what is computed from them once.
struct Resolved {
    NVMeasureConditions conditions;
    Viewing viewing;
    std::shared_ptr<WeightSet const> weights;
    XYZ paper; ///< tristimulus values of the white base under the illuminant
    ColorSpace space = ColorSpace::CIELab;
    bool delta = false;

    Reference ReferenceOf() const { return {weights->white, weights->longShare}; }
    /// Tristimulus values of a spectrum, relative to the white base.
    XYZ Reduce(NVSpectrum const& spectrum) const;
};

/// `stated` are the conditions asked for, `physical` those of the measurement. Throws if they contradict
/// each other.
Resolved Resolve(NVMeasureConditions const& stated, NVMeasureConditions const& physical);

/// Throws `TristimException`, naming the condition and both values, if colours under these conditions
/// can't be compared: illuminant, observer, white base, spectrum type and filter must agree.
void RequireComparable(NVMeasureConditions const& first, NVMeasureConditions const& second);

} // namespace Norvelian::Tristim
