#include "cxf/files/AttributeNotes.h"

#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/ConditionText.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <array>

namespace Norvelian::ColorExchangeFormat {

using namespace Tristim::Vocabulary;
using Kind = ReadNote::Kind;
using Notes = std::vector<std::pair<Kind, std::string>>;

namespace {

bool IsKnown(std::string const& key) {
    try {
        static_cast<void>(Tristim::TristimService::GetSupportedValues(key));
        return true;
    } catch (Tristim::TristimException const&) {
        return false;
    }
}

void NoteConditions(Notes& notes, Tristim::NVMeasureConditions const& conditions) {
    for (auto const& [key, by] : conditions.GetAssumptions())
        notes.emplace_back(Kind::Assumed, std::string(key)
                                              .append(" is ")
                                              .append(conditions.GetMeasureCondition(key))
                                              .append(", by ")
                                              .append(by));
    for (auto const& [key, value] : conditions.GetAll())
        if (!IsKnown(key)) notes.emplace_back(Kind::Skipped, "the condition " + key + " isn't known");
    static constexpr std::array<std::pair<Text, Text>, 4> parameters{
        {{Key::ColorTemperature, "Dxx"},
         {Key::FluorescentType, "F"},
         {Key::IlluminantName, "Userdefined"},
         {Key::UserIllumination, "Userdefined"}}};
    std::string const illumination = conditions.GetMeasureCondition(Key::Illumination);
    for (auto const& [parameter, owner] : parameters)
        if (!conditions.GetMeasureCondition(parameter).empty() && illumination != owner)
            notes.emplace_back(Kind::Contradiction, std::string(parameter) + " belongs to the illumination " +
                                                        owner + ", but it is " +
                                                        (illumination.empty() ? "unknown" : illumination));
}

} // namespace

Notes NotesOf(SampleAttribute const& attribute, bool extended) {
    Notes notes;
    Tristim::NVMeasureConditions const conditions = attribute.GetConditions().GetMeasureConditions();
    if (auto const* const spectrum = dynamic_cast<Spectrum const*>(&attribute)) {
        notes.emplace_back(Kind::Taken, "spectra, " + MeasurementText(conditions));
        std::string const done =
            Extensions::Cxf2NV(*spectrum).GetMeasureConditions().GetMeasureCondition(Key::Resampling);
        bool const repeated = done.find("end values repeated") != std::string::npos;
        if (!done.empty()) notes.emplace_back(extended && repeated ? Kind::Assumed : Kind::Converted, done);
    } else if (auto const* const colour = dynamic_cast<ColorVector const*>(&attribute)) {
        std::string const space = conditions.GetMeasureCondition(Key::ColorSpaceType);
        notes.emplace_back(Kind::Taken, space + " under " + ConditionText(conditions));
    } else {
        return notes;
    }
    NoteConditions(notes, conditions);
    return notes;
}

} // namespace Norvelian::ColorExchangeFormat
