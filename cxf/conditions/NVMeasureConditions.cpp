#include "cxf/conditions/NVMeasureConditions.h"

#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <utility>

namespace Norvelian::Tristim {

using namespace Vocabulary;

std::shared_ptr<NVMeasureConditions::Data> const& NVMeasureConditions::Empty() {
    static auto const empty = std::make_shared<Data>();
    return empty;
}

NVMeasureConditions::Data& NVMeasureConditions::Own() {
    // Whoever is alone with the data may change them; the empty ones always have their first holder.
    if (data_.use_count() != 1) data_ = std::make_shared<Data>(*data_);
    return *data_;
}

void NVMeasureConditions::SetMeasureCondition(std::string const& key, std::string const& value) {
    auto const found = data_->values.find(key);
    bool const assumed = data_->assumed.contains(key);
    if (found != data_->values.end() && found->second == value && !assumed) return;
    Data& data = Own();
    data.values.insert_or_assign(key, value);
    if (assumed) data.assumed.erase(key);
}

void NVMeasureConditions::Assume(std::string const& key, std::string const& value, std::string const& by) {
    Data& data = Own();
    data.values.insert_or_assign(key, value);
    data.assumed.insert_or_assign(key, by);
}

void NVMeasureConditions::Forget(std::string const& key) {
    if (!data_->values.contains(key)) return;
    Data& data = Own();
    data.values.erase(key);
    data.assumed.erase(key);
}

std::string NVMeasureConditions::GetMeasureCondition(std::string_view key) const {
    auto const found = data_->values.find(key);
    return found == data_->values.end() ? std::string() : found->second;
}

ConditionState NVMeasureConditions::GetState(std::string_view key) const {
    auto const found = data_->values.find(key);
    if (found == data_->values.end() || found->second.empty()) return ConditionState::Unknown;
    return data_->assumed.contains(key) ? ConditionState::Assumed : ConditionState::Stated;
}

std::string NVMeasureConditions::GetAssumption(std::string_view key) const {
    auto const found = data_->assumed.find(key);
    return found == data_->assumed.end() ? std::string() : found->second;
}

std::size_t NVMeasureConditions::GetChoice(std::string_view key, std::span<Text const> values,
                                           std::size_t fallback) const {
    std::string const value = GetMeasureCondition(key);
    if (value.empty()) return fallback;
    auto const found = std::find(values.begin(), values.end(), std::string_view(value));
    if (found != values.end()) return static_cast<std::size_t>(found - values.begin());
    std::string allowed;
    for (Text const one : values) {
        if (!allowed.empty()) allowed += ", ";
        allowed += one;
    }
    throw TristimException("condition " + std::string(key) + " is \"" + value + "\"; expected one of " +
                           allowed);
}

std::string NVMeasureConditions::GetElementName(short index) const {
    Elements const& names = ElementNames[GetChoice(Key::ColorSpaceType, Value::ColorSpaceType, 0)];
    bool const delta = GetChoice(Key::AbsoluteOrDeltaVector, Value::AbsoluteOrDeltaVector, 0) == 1;
    auto const& row = delta ? names.delta : names.absolute;
    auto const place = static_cast<std::size_t>(index);
    if (index < 0 || place >= row.size() || !row[place])
        throw TristimException("colour space " + GetMeasureCondition(Key::ColorSpaceType) +
                               " has no element " + std::to_string(index));
    return row[place];
}

void NVMeasureConditions::SetBands(std::string const& key, Bands const& values) {
    std::string text;
    for (double const value : values) {
        if (!text.empty()) text += ' ';
        text += Numbers::Shortest(value);
    }
    SetMeasureCondition(key, text);
}

std::optional<Bands> NVMeasureConditions::GetBands(std::string_view key) const {
    auto const found = data_->values.find(key);
    if (found == data_->values.end() || found->second.empty()) return std::nullopt;
    std::string_view rest = found->second;
    Bands bands{};
    std::size_t count = 0;
    while (true) {
        auto const begin = rest.find_first_not_of(' ');
        if (begin == std::string_view::npos) break;
        auto const end = std::min(rest.find(' ', begin), rest.size());
        double value = 0;
        if (count == kBands || !Numbers::Parse(rest.substr(begin, end - begin), value)) {
            count = kBands + 1;
            break;
        }
        bands[count++] = value;
        rest.remove_prefix(end);
    }
    if (count != kBands)
        throw TristimException("condition " + std::string(key) +
                               " must be 36 finite numbers separated by blanks");
    return bands;
}

Viewing ViewingOf(NVMeasureConditions const& conditions) {
    Viewing viewing;
    viewing.illumination = static_cast<Illumination>(conditions.GetChoice(
        Key::Illumination, Value::Illumination, static_cast<std::size_t>(Illumination::D50)));
    viewing.observer = static_cast<Observer>(conditions.GetChoice(Key::Observer, Value::Observer, 0));
    viewing.correctBandpass = conditions.GetChoice(Key::Bandpass, Value::Bandpass, 0) == 1;
    if (viewing.illumination == Illumination::Dxx) {
        std::string const text = conditions.GetMeasureCondition(Key::ColorTemperature);
        if (!Numbers::Parse(text, viewing.temperature) || viewing.temperature < 4000 ||
            viewing.temperature > 25000)
            throw TristimException("illumination Dxx needs the condition " +
                                   std::string(Key::ColorTemperature) + " from 4000 to 25000 K; it is \"" +
                                   text + "\"");
    } else if (viewing.illumination == Illumination::F) {
        if (conditions.GetMeasureCondition(Key::FluorescentType).empty())
            throw TristimException("illumination F needs the condition " + std::string(Key::FluorescentType) +
                                   ", \"F1\" to \"FL3.15\"");
        viewing.fluorescent =
            1 + static_cast<int>(conditions.GetChoice(Key::FluorescentType, Value::FluorescentType, 0));
    } else if (viewing.illumination == Illumination::Userdefined) {
        viewing.user = conditions.GetBands(Key::UserIllumination);
        bool const named = !conditions.GetMeasureCondition(Key::IlluminantName).empty();
        if (!viewing.user && named)
            viewing.named = conditions.GetChoice(Key::IlluminantName, Value::IlluminantName, 0);
        if (!viewing.user && !named)
            throw TristimException("illumination Userdefined needs the condition " +
                                   std::string(Key::UserIllumination) + " or " + Key::IlluminantName);
    }
    return viewing;
}

} // namespace Norvelian::Tristim
