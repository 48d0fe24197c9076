#include "cxf/colorimetry/Resolved.h"

#include "cxf/colorimetry/Batch.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Norvelian::Tristim {

using namespace Vocabulary;

namespace {

/// Conditions that a colour depends on beside its space.
constexpr std::array<Text, 7> kCompared{Key::Illumination, Key::Observer, Key::WhiteBase, Key::SpectrumType,
                                        Key::Filter,       Key::Geometry, Key::Backing};
/// Parameters of the illuminant and of the white base; they count where their condition does.
constexpr std::array<Text, 4> kOfIllumination{Key::ColorTemperature, Key::FluorescentType,
                                              Key::UserIllumination, Key::IlluminantName};

bool IsLight(std::string_view type) {
    return type == "Emission" || type == "AmbientLight" || type == "Flash";
}

XYZ Integrate(std::vector<float> const& values, WeightSet const& weights) {
    std::array<double, 3> xyz{};
    Batch::SpectraToXYZ(values, weights, std::span<double>(xyz));
    return {xyz[0], xyz[1], xyz[2]};
}

/// Whether the list of keys, separated by blanks, has this one.
bool Accepts(std::string_view accepted, std::string_view key) {
    while (!accepted.empty()) {
        std::string_view const word = accepted.substr(0, accepted.find(' '));
        if (word == key) return true;
        accepted.remove_prefix(std::min(accepted.size(), word.size() + 1));
    }
    return false;
}

/// A condition as messages name it: its value and how well it is known.
std::string Quoted(NVMeasureConditions const& conditions, Text key) {
    switch (conditions.GetState(key)) {
    case ConditionState::Unknown:
        return "unknown";
    case ConditionState::Assumed:
        return "\"" + conditions.GetMeasureCondition(key) + "\" (assumed)";
    case ConditionState::Stated:
        break;
    }
    return "\"" + conditions.GetMeasureCondition(key) + "\"";
}

/// What may be done about a difference that isn't one of two statements.
std::string Remedy(bool bothStated, std::string_view key) {
    if (bothStated) return {};
    return "; the condition " + std::string(Key::AcceptUnstated) + " \"" + std::string(key) + "\" allows it";
}

void CopyParameter(NVMeasureConditions& to, NVMeasureConditions const& from, Text key) {
    std::string const value = from.GetMeasureCondition(key);
    if (value.empty())
        to.Forget(key);
    else
        to.SetMeasureCondition(key, value);
}

/// A condition that isn't stated takes the value of another set, with its parameters.
void TakeOver(NVMeasureConditions& to, NVMeasureConditions const& from, Text key) {
    to.Assume(key, from.GetMeasureCondition(key), "accepted");
    if (std::string_view(key) == Key::Illumination)
        for (Text const parameter : kOfIllumination) CopyParameter(to, from, parameter);
    if (std::string_view(key) == Key::WhiteBase) CopyParameter(to, from, Key::PaperSpectrum);
}

/// A condition that can't be taken for another one: a stated one, and whatever this library computed with.
bool IsStated(NVMeasureConditions const& conditions, Text key) {
    ConditionState const state = conditions.GetState(key);
    return state == ConditionState::Stated ||
           (state == ConditionState::Assumed && !conditions.GetMeasureCondition(Key::Method).empty() &&
            conditions.GetAssumption(key) == kLibraryDefault);
}

/// Light at 45 degrees and eye at 0 measure what light at 0 and eye at 45 do (ISO 13655 allows both).
std::string Compared(NVMeasureConditions const& conditions, Text key) {
    std::string value = conditions.GetMeasureCondition(key);
    return std::string_view(key) == Key::Geometry && value == "0:45" ? "45:0" : value;
}

/// Physical conditions come from the measurement; asking for another one is a contradiction.
void TakePhysical(NVMeasureConditions& conditions, NVMeasureConditions const& measured, Text key,
                  std::span<Text const> values) {
    std::string const held = measured.GetMeasureCondition(key);
    std::string const asked = conditions.GetMeasureCondition(key);
    if (!asked.empty() && asked != held) {
        bool const stated = IsStated(measured, key);
        if (stated || !Accepts(conditions.GetMeasureCondition(Key::AcceptUnstated), key))
            throw TristimException("condition " + std::string(key) + " is asked to be \"" + asked +
                                   "\", but that of the spectrum is " + Quoted(measured, key) +
                                   Remedy(stated, key));
        conditions.Assume(key, asked, "accepted");
    } else if (!held.empty()) {
        std::string const by = measured.GetAssumption(key);
        if (by.empty())
            conditions.SetMeasureCondition(key, held);
        else
            conditions.Assume(key, held, by);
    }
    static_cast<void>(conditions.GetChoice(key, values, 0));
}

void AssumeIfUnknown(NVMeasureConditions& conditions, Text key, Text value) {
    if (conditions.GetState(key) == ConditionState::Unknown) conditions.Assume(key, value, kLibraryDefault);
}

} // namespace

XYZ Resolved::Reduce(NVSpectrum const& spectrum) const {
    if (!paper)
        throw TristimException("white base Paper needs the condition " + std::string(Key::PaperSpectrum));
    XYZ const absolute = Integrate(spectrum.GetValues(), *weights);
    XYZ const& white = weights->white;
    return {absolute.x * (white.x / paper->x), absolute.y * (white.y / paper->y),
            absolute.z * (white.z / paper->z)};
}

Resolved Resolve(NVMeasureConditions const& asked, NVMeasureConditions const& measured) {
    NVMeasureConditions conditions = asked;
    TakePhysical(conditions, measured, Key::SpectrumType, Value::SpectrumType);
    TakePhysical(conditions, measured, Key::Filter, Value::Filter);
    TakePhysical(conditions, measured, Key::Geometry, Value::Geometry);
    TakePhysical(conditions, measured, Key::Backing, Value::Backing);
    if (std::string const done = measured.GetMeasureCondition(Key::Resampling); !done.empty())
        conditions.SetMeasureCondition(Key::Resampling, done);
    Resolved resolved = Resolve(conditions);
    if (!resolved.paper)
        throw TristimException("white base Paper needs the condition " + std::string(Key::PaperSpectrum));
    resolved.conditions.SetMeasureCondition(Key::Method, MethodOf(BandpassOf(resolved.viewing)));
    return resolved;
}

Resolved Resolve(NVMeasureConditions const& given) {
    Resolved resolved;
    NVMeasureConditions& conditions = resolved.conditions;
    conditions = given;
    AssumeIfUnknown(conditions, Key::SpectrumType, Value::SpectrumType[0]);
    static_cast<void>(conditions.GetChoice(Key::SpectrumType, Value::SpectrumType, 0));
    static_cast<void>(conditions.GetChoice(Key::Filter, Value::Filter, 0));

    std::string const type = conditions.GetMeasureCondition(Key::SpectrumType);
    std::string const illumination = conditions.GetMeasureCondition(Key::Illumination);
    if (IsLight(type) && !illumination.empty() && illumination != "Emission")
        throw TristimException("a spectrum of type \"" + type + "\" can't be seen under illumination \"" +
                               illumination + "\"; expected Emission");
    // Light is its own illuminant, which is nothing to be assumed.
    if (IsLight(type)) conditions.SetMeasureCondition(Key::Illumination, "Emission");
    AssumeIfUnknown(conditions, Key::Illumination, "D50");
    AssumeIfUnknown(conditions, Key::Observer, Value::Observer[0]);
    resolved.viewing = ViewingOf(conditions);
    resolved.weights = WeightsFor(resolved.viewing);

    XYZ const& white = resolved.weights->white;
    if (!(white.x > 0 && white.y > 0 && white.z > 0))
        throw TristimException("the illumination has no light in some tristimulus value");
    AssumeIfUnknown(conditions, Key::WhiteBase, Value::WhiteBase[0]);
    auto base = static_cast<WhiteBase>(conditions.GetChoice(Key::WhiteBase, Value::WhiteBase, 0));
    auto const paper = conditions.GetBands(Key::PaperSpectrum);
    if (base == WhiteBase::Automatic) {
        base = paper ? WhiteBase::Paper : WhiteBase::Absolute;
        conditions.SetMeasureCondition(Key::WhiteBase, Value::WhiteBase[static_cast<std::size_t>(base)]);
    }
    if (base == WhiteBase::Absolute) {
        resolved.paper = white;
    } else if (paper) {
        resolved.paper = Integrate({paper->begin(), paper->end()}, *resolved.weights);
        if (!(resolved.paper->x > 0 && resolved.paper->y > 0 && resolved.paper->z > 0))
            throw TristimException("the paper spectrum has no light in some tristimulus value");
    }

    std::size_t const space = conditions.GetChoice(Key::ColorSpaceType, Value::ColorSpaceType, 0);
    resolved.space = static_cast<ColorSpace>(space);
    conditions.SetMeasureCondition(Key::ColorSpaceType, Value::ColorSpaceType[space]);
    std::size_t const form =
        conditions.GetChoice(Key::AbsoluteOrDeltaVector, Value::AbsoluteOrDeltaVector, 0);
    resolved.delta = form == 1;
    conditions.SetMeasureCondition(Key::AbsoluteOrDeltaVector, Value::AbsoluteOrDeltaVector[form]);
    return resolved;
}

namespace {

/// A result knows a condition no better than the less certain of its two colours.
void Weaken(NVMeasureConditions& one, NVMeasureConditions const& other, Text key) {
    if (one.GetState(key) == ConditionState::Stated && other.GetState(key) == ConditionState::Assumed)
        one.Assume(key, one.GetMeasureCondition(key), other.GetAssumption(key));
}

} // namespace

void Reconcile(NVMeasureConditions& first, NVMeasureConditions& second, std::string_view accepted) {
    for (Text const key : kCompared) {
        if (Compared(first, key) == Compared(second, key)) {
            Weaken(first, second, key);
            Weaken(second, first, key);
            continue;
        }
        bool const bothStated = IsStated(first, key) && IsStated(second, key);
        if (bothStated || !Accepts(accepted, key))
            throw TristimException("conditions can't be mixed: " + std::string(key) + " is " +
                                   Quoted(first, key) + " in the first colour and " + Quoted(second, key) +
                                   " in the second" + Remedy(bothStated, key));
        bool const fromSecond =
            IsStated(second, key) || (!IsStated(first, key) && first.GetMeasureCondition(key).empty());
        if (fromSecond)
            TakeOver(first, second, key);
        else
            TakeOver(second, first, key);
    }
    auto const same = [&](Text key) {
        std::string const one = first.GetMeasureCondition(key);
        std::string const other = second.GetMeasureCondition(key);
        if (one == other) return;
        throw TristimException("conditions can't be mixed: " + std::string(key) + " is \"" + one +
                               "\" in the first colour and \"" + other + "\" in the second");
    };
    for (Text const key : kOfIllumination) same(key);
    same(Key::PaperSpectrum);
}

void RequireComparable(NVMeasureConditions first, NVMeasureConditions second, std::string_view accepted) {
    Reconcile(first, second, accepted);
}

void Adopt(NVMeasureConditions& held, NVMeasureConditions const& asked) {
    std::string const accepted = asked.GetMeasureCondition(Key::AcceptUnstated);
    for (Text const key : kCompared) {
        std::string const wanted = Compared(asked, key);
        if (wanted.empty() || wanted == Compared(held, key) || wanted == "Automatic") continue;
        bool const stated = IsStated(held, key);
        if (stated || !Accepts(accepted, key))
            throw TristimException("condition " + std::string(key) + " is asked to be \"" + wanted +
                                   "\", but that of the colour is " + Quoted(held, key) +
                                   Remedy(stated, key));
        TakeOver(held, asked, key);
    }
    auto const same = [&](Text key) {
        std::string const wanted = asked.GetMeasureCondition(key);
        if (wanted.empty() || wanted == held.GetMeasureCondition(key)) return;
        throw TristimException("condition " + std::string(key) + " is asked to be \"" + wanted +
                               "\", but the colour was computed for \"" + held.GetMeasureCondition(key) +
                               "\"");
    };
    for (Text const key : kOfIllumination) same(key);
    same(Key::PaperSpectrum);
    if (!accepted.empty()) held.SetMeasureCondition(Key::AcceptUnstated, accepted);
}

} // namespace Norvelian::Tristim
