#include "cxf/colorimetry/Resolved.h"

#include "cxf/colorimetry/Batch.h"
#include "cxf/conditions/TristimException.h"

#include <array>
#include <initializer_list>
#include <utility>

namespace Norvelian::Tristim {

using namespace Vocabulary;

namespace {

/// Conditions that a colour depends on beside its space, with their defaults.
constexpr std::array<std::pair<Text, Text>, 5> kCompared{{{Key::Illumination, "D50"},
                                                          {Key::Observer, "TwoDegree"},
                                                          {Key::WhiteBase, "Absolute"},
                                                          {Key::SpectrumType, "Remission"},
                                                          {Key::Filter, "No"}}};
/// Parameters of these, compared as they are.
constexpr std::array<Text, 4> kParameters{Key::ColorTemperature, Key::FluorescentType, Key::UserIllumination,
                                          Key::PaperSpectrum};

bool IsLight(std::string_view type) {
    return type == "Emission" || type == "AmbientLight" || type == "Flash";
}

XYZ Integrate(std::vector<float> const& values, WeightSet const& weights) {
    std::array<double, 3> xyz{};
    Batch::SpectraToXYZ(values, weights, std::span<double>(xyz));
    return {xyz[0], xyz[1], xyz[2]};
}

/// Physical conditions come from the measurement; stating another one is a contradiction.
void TakePhysical(NVMeasureConditions& conditions, NVMeasureConditions const& physical, Text key,
                  Text fallback, std::span<Text const> values) {
    std::string measured = physical.GetMeasureCondition(key);
    std::string const stated = conditions.GetMeasureCondition(key);
    if (measured.empty()) measured = stated.empty() ? fallback : stated;
    if (!stated.empty() && stated != measured)
        throw TristimException("condition " + std::string(key) + " is asked to be \"" + stated +
                               "\", but the spectrum was measured with \"" + measured + "\"");
    conditions.SetMeasureCondition(key, measured);
    static_cast<void>(conditions.GetChoice(key, values, 0));
}

} // namespace

XYZ Resolved::Reduce(NVSpectrum const& spectrum) const {
    XYZ const absolute = Integrate(spectrum.GetValues(), *weights);
    XYZ const& white = weights->white;
    return {absolute.x * (white.x / paper.x), absolute.y * (white.y / paper.y),
            absolute.z * (white.z / paper.z)};
}

Resolved Resolve(NVMeasureConditions const& stated, NVMeasureConditions const& physical) {
    Resolved resolved;
    NVMeasureConditions& conditions = resolved.conditions;
    conditions = stated;
    TakePhysical(conditions, physical, Key::SpectrumType, Value::SpectrumType[0], Value::SpectrumType);
    TakePhysical(conditions, physical, Key::Filter, Value::Filter[0], Value::Filter);

    std::string const type = conditions.GetMeasureCondition(Key::SpectrumType);
    std::string const illumination = conditions.GetMeasureCondition(Key::Illumination);
    if (IsLight(type) && !illumination.empty() && illumination != "Emission")
        throw TristimException("a spectrum of type \"" + type + "\" can't be seen under illumination \"" +
                               illumination + "\"; expected Emission");
    if (illumination.empty())
        conditions.SetMeasureCondition(Key::Illumination, IsLight(type) ? "Emission" : "D50");
    resolved.viewing = ViewingOf(conditions);
    resolved.weights = WeightsFor(resolved.viewing);
    conditions.SetMeasureCondition(Key::Observer,
                                   Value::Observer[static_cast<std::size_t>(resolved.viewing.observer)]);

    resolved.paper = resolved.weights->white;
    if (!(resolved.paper.x > 0 && resolved.paper.y > 0 && resolved.paper.z > 0))
        throw TristimException("the illumination has no light in some tristimulus value");
    auto base = static_cast<WhiteBase>(conditions.GetChoice(Key::WhiteBase, Value::WhiteBase, 0));
    auto const paper = conditions.GetBands(Key::PaperSpectrum);
    if (base == WhiteBase::Automatic) base = paper ? WhiteBase::Paper : WhiteBase::Absolute;
    if (base == WhiteBase::Paper) {
        if (!paper)
            throw TristimException("white base Paper needs the condition " + std::string(Key::PaperSpectrum));
        resolved.paper = Integrate({paper->begin(), paper->end()}, *resolved.weights);
        if (!(resolved.paper.x > 0 && resolved.paper.y > 0 && resolved.paper.z > 0))
            throw TristimException("the paper spectrum has no light in some tristimulus value");
    }
    conditions.SetMeasureCondition(Key::WhiteBase, Value::WhiteBase[static_cast<std::size_t>(base)]);

    std::size_t const space = conditions.GetChoice(Key::ColorSpaceType, Value::ColorSpaceType, 0);
    resolved.space = static_cast<ColorSpace>(space);
    conditions.SetMeasureCondition(Key::ColorSpaceType, Value::ColorSpaceType[space]);
    std::size_t const form =
        conditions.GetChoice(Key::AbsoluteOrDeltaVector, Value::AbsoluteOrDeltaVector, 0);
    resolved.delta = form == 1;
    conditions.SetMeasureCondition(Key::AbsoluteOrDeltaVector, Value::AbsoluteOrDeltaVector[form]);
    conditions.SetMeasureCondition(Key::Method, kMethod);
    return resolved;
}

void RequireComparable(NVMeasureConditions const& first, NVMeasureConditions const& second) {
    auto const differ = [](std::string const& key, std::string const& one, std::string const& other) {
        if (one == other) return;
        throw TristimException("conditions can't be mixed: " + key + " is \"" + one +
                               "\" in the first colour and \"" + other + "\" in the second");
    };
    auto const valueOr = [](NVMeasureConditions const& conditions, Text key, Text fallback) {
        std::string const value = conditions.GetMeasureCondition(key);
        return value.empty() ? std::string(fallback) : value;
    };
    for (auto const& [key, fallback] : kCompared)
        differ(key, valueOr(first, key, fallback), valueOr(second, key, fallback));
    for (Text const key : kParameters)
        differ(key, first.GetMeasureCondition(key), second.GetMeasureCondition(key));
}

} // namespace Norvelian::Tristim
