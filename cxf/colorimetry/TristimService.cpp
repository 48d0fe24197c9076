#include "cxf/colorimetry/TristimService.h"

#include "cxf/colorimetry/DeltaE.h"
#include "cxf/colorimetry/Resolved.h"
#include "cxf/conditions/TristimException.h"

#include <array>
#include <cmath>
#include <span>
#include <utility>

namespace Norvelian::Tristim {

using namespace Vocabulary;

namespace {

NVColorVector VectorOf(ColorSpace space, Elements4 const& elements, NVMeasureConditions const& conditions) {
    return {{elements.begin(), elements.begin() + static_cast<std::ptrdiff_t>(ElementCount(space))},
            conditions};
}

/// A vector's colour and what it was computed for.
struct Colour {
    Resolved resolved;
    XYZ xyz;
};
/// What the vector was computed for; device values and differences throw.
NVMeasureConditions ConditionsOf(NVColorVector const& vector) {
    // The amounts of ink or light that a device was sent don't say what came out; what this service computed
    // itself names its illuminant.
    NVMeasureConditions const& held = vector.GetMeasureConditions();
    std::string const space = held.GetMeasureCondition(Key::ColorSpaceType);
    bool const viewed = held.GetState(Key::Illumination) != ConditionState::Unknown;
    if (!viewed && (space == "RGB" || space == "CMYK"))
        throw TristimException("device values of " + space + " have no colour without a viewing condition");
    Resolved const resolved = Resolve(held);
    if (resolved.delta) throw TristimException("a difference of two colours isn't a colour");
    return resolved.conditions;
}
Colour ColourOf(NVColorVector const& vector, NVMeasureConditions const& conditions) {
    Resolved resolved = Resolve(conditions);
    Elements4 elements{};
    for (std::size_t i = 0; i < vector.GetExactValues().size(); ++i) elements[i] = vector.GetExactValues()[i];
    XYZ const xyz = ToXYZ(resolved.space, elements, resolved.ReferenceOf());
    return {std::move(resolved), xyz};
}

NVColorVector DeltaOf(XYZ const& reference, XYZ const& sample, Resolved const& resolved) {
    Reference const white = resolved.ReferenceOf();
    NVMeasureConditions conditions = resolved.conditions;
    conditions.SetMeasureCondition(Key::AbsoluteOrDeltaVector, Value::AbsoluteOrDeltaVector[1]);
    Elements4 const one = FromXYZ(resolved.space, reference, white);
    Elements4 const other = FromXYZ(resolved.space, sample, white);
    return VectorOf(resolved.space, Difference(resolved.space, one, other, white), conditions);
}

DeltaEWeights WeightsOf(float first, float second, float third) {
    return {static_cast<double>(first), static_cast<double>(second), static_cast<double>(third)};
}

/// The result of two colours says of both how they were resampled and computed.
void NoteOrigin(NVMeasureConditions& result, NVMeasureConditions const& reference,
                NVMeasureConditions const& sample) {
    for (Text const key : {Key::Resampling, Key::Method}) {
        std::string const one = reference.GetMeasureCondition(key);
        std::string const other = sample.GetMeasureCondition(key);
        auto const named = [](std::string const& text) { return text.empty() ? std::string("none") : text; };
        if (one != other)
            result.SetMeasureCondition(key, "reference: " + named(one) + "; sample: " + named(other));
        else if (!one.empty())
            result.SetMeasureCondition(key, one);
    }
}

/// Two spectra under the same conditions.
ResolvedPair ReducePair(NVSpectrum const& reference, NVSpectrum const& sample,
                        NVMeasureConditions const& conditions) {
    NVMeasureConditions one = reference.GetMeasureConditions();
    NVMeasureConditions other = sample.GetMeasureConditions();
    Reconcile(one, other, conditions.GetMeasureCondition(Key::AcceptUnstated));
    Resolved resolved = Resolve(conditions, one);
    NoteOrigin(resolved.conditions, one, other);
    XYZ const first = resolved.Reduce(reference);
    XYZ const second = resolved.Reduce(sample);
    return {std::move(resolved), first, second, std::nullopt};
}

} // namespace

ResolvedPair ReducePair(NVColorVector const& reference, NVColorVector const& sample,
                        NVMeasureConditions const& conditions) {
    NVMeasureConditions one = ConditionsOf(reference);
    NVMeasureConditions other = ConditionsOf(sample);
    Reconcile(one, other, conditions.GetMeasureCondition(Key::AcceptUnstated));
    Adopt(one, conditions);
    Adopt(other, conditions);
    Colour first = ColourOf(reference, one);
    Colour const second = ColourOf(sample, other);
    NoteOrigin(first.resolved.conditions, one, other);
    ResolvedPair pair{std::move(first.resolved), first.xyz, second.xyz, std::nullopt};
    // Formulas that change branch at a hue or lightness must not see what a way through X, Y, Z rounds.
    auto const labOf = [](NVColorVector const& vector) {
        auto const& values = vector.GetExactValues();
        return Lab{values[0], values[1], values[2]};
    };
    if (pair.resolved.space == ColorSpace::CIELab && second.resolved.space == ColorSpace::CIELab)
        pair.lab = {labOf(reference), labOf(sample)};
    return pair;
}

double DeltaEOf(ResolvedPair const& pair, DeltaEFormula formula, DeltaEWeights const& weights) {
    if (pair.lab && IsOfLab(formula)) return DeltaE(formula, pair.lab->first, pair.lab->second, weights);
    return DeltaE(formula, pair.reference, pair.sample, pair.resolved.weights->white, weights);
}

NVColorVector TristimService::GetVector(NVSpectrum const& spectrum, NVMeasureConditions const& conditions) {
    Resolved const resolved = Resolve(conditions, spectrum.GetMeasureConditions());
    if (resolved.delta)
        throw TristimException("a DeltaVector needs a reference and a sample; got one spectrum");
    Elements4 const elements = FromXYZ(resolved.space, resolved.Reduce(spectrum), resolved.ReferenceOf());
    return VectorOf(resolved.space, elements, resolved.conditions);
}

NVColorVector TristimService::GetDeltaVector(NVSpectrum const& reference, NVSpectrum const& sample,
                                             NVMeasureConditions const& conditions) {
    ResolvedPair const pair = ReducePair(reference, sample, conditions);
    return DeltaOf(pair.reference, pair.sample, pair.resolved);
}

NVColorVector TristimService::GetDeltaVector(NVColorVector const& reference, NVColorVector const& sample,
                                             NVMeasureConditions const& conditions) {
    ResolvedPair pair = ReducePair(reference, sample, conditions);
    if (!conditions.GetMeasureCondition(Key::ColorSpaceType).empty()) {
        std::size_t const space = conditions.GetChoice(Key::ColorSpaceType, Value::ColorSpaceType, 0);
        pair.resolved.space = static_cast<ColorSpace>(space);
        pair.resolved.conditions.SetMeasureCondition(Key::ColorSpaceType, Value::ColorSpaceType[space]);
    }
    return DeltaOf(pair.reference, pair.sample, pair.resolved);
}

float TristimService::GetDeltaE(NVSpectrum const& reference, NVSpectrum const& sample,
                                NVMeasureConditions const& conditions, float weight1, float weight2,
                                float weight3) {
    ResolvedPair const pair = ReducePair(reference, sample, conditions);
    return static_cast<float>(DeltaEOf(pair, FormulaOf(conditions), WeightsOf(weight1, weight2, weight3)));
}

float TristimService::GetDeltaE(NVColorVector const& reference, NVColorVector const& sample,
                                NVMeasureConditions const& conditions, float weight1, float weight2,
                                float weight3) {
    ResolvedPair const pair = ReducePair(reference, sample, conditions);
    return static_cast<float>(DeltaEOf(pair, FormulaOf(conditions), WeightsOf(weight1, weight2, weight3)));
}

NVColorVector TristimService::Convert(NVColorVector const& vector, NVMeasureConditions const& conditions) {
    NVMeasureConditions held = ConditionsOf(vector);
    Adopt(held, conditions);
    Colour const colour = ColourOf(vector, held);
    NVMeasureConditions target = colour.resolved.conditions;
    std::size_t const space = conditions.GetChoice(Key::ColorSpaceType, Value::ColorSpaceType, 0);
    target.SetMeasureCondition(Key::ColorSpaceType, Value::ColorSpaceType[space]);
    auto const wanted = static_cast<ColorSpace>(space);
    return VectorOf(wanted, FromXYZ(wanted, colour.xyz, colour.resolved.ReferenceOf()), target);
}

std::vector<std::string> TristimService::GetSupportedValues(std::string const& key) {
    static std::array<std::pair<std::string_view, std::span<Text const>>, 19> const tables{{
        {Key::Illumination, Value::Illumination},
        {Key::Observer, Value::Observer},
        {Key::WhiteBase, Value::WhiteBase},
        {Key::DensityStandard, Value::DensityStandard},
        {Key::DensityFilterMode, Value::DensityFilterMode},
        {Key::Filter, Value::Filter},
        {Key::NumberOfDataPointsSpectrum, Value::NumberOfDataPointsSpectrum},
        {Key::WavelengthSpectrumMax, Value::WavelengthSpectrumMax},
        {Key::WavelengthSpectrumMin, Value::WavelengthSpectrumMin},
        {Key::SpectrumType, Value::SpectrumType},
        {Key::Geometry, Value::Geometry},
        {Key::Backing, Value::Backing},
        {Key::ColorSpaceType, Value::ColorSpaceType},
        {Key::AbsoluteOrDeltaVector, Value::AbsoluteOrDeltaVector},
        {Key::DeltaEFormula, Value::DeltaEFormula},
        {Key::FluorescentType, Value::FluorescentType},
        {Key::IlluminantName, Value::IlluminantName},
        {Key::Bandpass, Value::Bandpass},
        {Key::Integration, Value::Integration},
    }};
    for (auto const& [name, values] : tables)
        if (name == key) return {values.begin(), values.end()};
    for (Text const free : {Key::ColorTemperature, Key::UserIllumination, Key::PaperSpectrum,
                            Key::UserFilterBlack, Key::UserFilterCyan, Key::UserFilterMagenta,
                            Key::UserFilterYellow, Key::Method, Key::Resampling, Key::AcceptUnstated})
        if (key == free) return {};
    throw TristimException("there is no condition \"" + key + "\"");
}

} // namespace Norvelian::Tristim
