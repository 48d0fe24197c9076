#pragma once

#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/colorimetry/DeltaE.h"
#include "cxf/colorimetry/Weights.h"
#include "cxf/conditions/NVColorVector.h"
#include "cxf/conditions/NVSpectrum.h"

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace Norvelian::Tristim {

/// Conditions with every default written out and checked, and what is computed from them once.
struct Resolved {
    NVMeasureConditions conditions;
    Viewing viewing;
    std::shared_ptr<WeightSet const> weights;
    /// Tristimulus values of the white base under the illuminant; that of a colour read from a file may be
    /// a paper that nobody measured.
    std::optional<XYZ> paper;
    ColorSpace space = ColorSpace::CIELab;
    bool delta = false;

    Reference ReferenceOf() const { return {weights->white, weights->longShare}; }
    /// Tristimulus values of a spectrum, relative to the white base. Throws if the base is a paper without a
    /// spectrum.
    XYZ Reduce(NVSpectrum const& spectrum) const;
};

/// The conditions of a computation: `asked` completed by those of the measurement. Throws if they contradict
/// each other, and if something is asked that nobody stated of the measurement, unless the condition
/// `Key::AcceptUnstated` names it. What neither says is assumed, and marked so.
Resolved Resolve(NVMeasureConditions const& asked, NVMeasureConditions const& measured);
/// The conditions of a colour that was computed already.
Resolved Resolve(NVMeasureConditions const& conditions);

/// Two colours under the same conditions.
struct ResolvedPair {
    Resolved resolved;
    XYZ reference;
    XYZ sample;
    /// The two as they were given, if both were in CIELab.
    std::optional<std::pair<Lab, Lab>> lab;
};
double DeltaEOf(ResolvedPair const& pair, DeltaEFormula formula, DeltaEWeights const& weights);
/// The tristimulus values of two vectors whose conditions agree with each other and with what is asked for.
ResolvedPair ReducePair(NVColorVector const& reference, NVColorVector const& sample,
                        NVMeasureConditions const& conditions);

/// Makes two sets of conditions agree on everything that a colour depends on: illuminant, observer, white
/// base with their parameters, spectrum type, filter, geometry and backing. The same value, or none in both,
/// agrees. Throws `TristimException`, naming the condition and both values, if two stated ones differ. Where
/// one is assumed or unknown it must be among the keys of `accepted`; it takes the other one's value then and
/// is marked as assumed.
void Reconcile(NVMeasureConditions& first, NVMeasureConditions& second, std::string_view accepted);
/// `Reconcile` for callers that need only the check.
void RequireComparable(NVMeasureConditions first, NVMeasureConditions second, std::string_view accepted = {});

/// Makes a colour's conditions those asked for where that is allowed: stated ones can't change.
void Adopt(NVMeasureConditions& held, NVMeasureConditions const& asked);

} // namespace Norvelian::Tristim
