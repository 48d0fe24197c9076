#include "cxf/conditions/ConditionText.h"

#include "cxf/conditions/Numbers.h"

#include <array>
#include <cmath>
#include <utility>

namespace Norvelian::Tristim {

using namespace Vocabulary;

namespace {

std::string WithState(NVMeasureConditions const& conditions, Text key, std::string text, Text name) {
    switch (conditions.GetState(key)) {
    case ConditionState::Unknown:
        return std::string(name) + " unknown";
    case ConditionState::Assumed:
        return text + " (assumed)";
    case ConditionState::Stated:
        break;
    }
    return text;
}

/// The measurement conditions M0 to M3 of ISO 13655; other filters by their own name.
std::string FilterText(std::string const& filter) {
    static constexpr std::array<std::pair<Text, Text>, 4> names{
        {{"No", "M0"}, {"D65", "M1"}, {"UVCut", "M2"}, {"Polarizer", "M3"}}};
    for (auto const& [value, name] : names)
        if (filter == value) return name;
    return "filter " + filter;
}

} // namespace

std::string IlluminantText(NVMeasureConditions const& conditions) {
    std::string value = conditions.GetMeasureCondition(Key::Illumination);
    if (value == "F") return conditions.GetMeasureCondition(Key::FluorescentType);
    if (value == "Dxx") {
        double kelvin = 0;
        if (!Numbers::Parse(conditions.GetMeasureCondition(Key::ColorTemperature), kelvin)) return value;
        return "daylight of " + std::to_string(std::lround(kelvin)) + " K";
    }
    if (value == "Userdefined") {
        std::string const name = conditions.GetMeasureCondition(Key::IlluminantName);
        return name.empty() ? "own illuminant" : name;
    }
    return value == "Emission" ? "emission" : value;
}

std::string ViewingText(NVMeasureConditions const& conditions) {
    std::string const observer = conditions.GetMeasureCondition(Key::Observer);
    return WithState(conditions, Key::Illumination, IlluminantText(conditions), "illuminant") + ", " +
           WithState(conditions, Key::Observer, observer == "TenDegree" ? "10\u00B0" : "2\u00B0", "observer");
}

std::string ConditionText(NVMeasureConditions const& conditions) {
    std::string text = ViewingText(conditions);
    std::string const base = conditions.GetMeasureCondition(Key::WhiteBase);
    if (base == "Paper") text += ", " + WithState(conditions, Key::WhiteBase, "relative to the paper", "");
    text += ", " + MeasurementText(conditions);
    if (std::string const done = conditions.GetMeasureCondition(Key::Resampling); !done.empty())
        text += "; " + done;
    if (std::string const keys = conditions.GetMeasureCondition(Key::AcceptUnstated); !keys.empty())
        text += "; accepted though not stated: " + keys;
    return text;
}

std::string MeasurementText(NVMeasureConditions const& conditions) {
    std::string text =
        WithState(conditions, Key::Filter, FilterText(conditions.GetMeasureCondition(Key::Filter)), "filter");
    text += ", " +
            WithState(conditions, Key::Geometry, conditions.GetMeasureCondition(Key::Geometry), "geometry");
    std::string backing = conditions.GetMeasureCondition(Key::Backing);
    if (!backing.empty()) backing[0] = static_cast<char>(backing[0] - 'A' + 'a');
    return text + ", " + WithState(conditions, Key::Backing, backing + " backing", "backing");
}

} // namespace Norvelian::Tristim
