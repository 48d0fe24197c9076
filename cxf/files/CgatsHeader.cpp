#include "cxf/files/CgatsHeader.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

using namespace Tristim::Vocabulary;

namespace {

constexpr std::array<std::string_view, 13> kConditionKeywords{
    "INSTRUMENTATION",       "MEASUREMENT_SOURCE", "MEASUREMENT_CONDITIONS",
    "MEASUREMENT_CONDITION", "WEIGHTING_FUNCTION", "COMPUTATIONAL_PARAMETER",
    "ILLUMINATION_NAME",     "ILLUMINATION",       "ILLUMINANT",
    "OBSERVER_ANGLE",        "OBSERVER",           "FILTER",
    "POLARIZATION"};

/// The words of every keyword that speaks of conditions, as capitals with single blanks between and around.
std::string ConditionWords(SampleSet const& header) {
    std::string words = " ";
    for (auto const& [key, value] : header.GetProperties()) {
        if (std::find(kConditionKeywords.begin(), kConditionKeywords.end(), key) == kConditionKeywords.end())
            continue;
        for (std::string const& text : {key, value}) {
            for (char const c : text) {
                bool const letter = std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '.';
                char const next =
                    letter ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : ' ';
                if (next != ' ' || words.back() != ' ') words += next;
            }
            if (words.back() != ' ') words += ' ';
        }
    }
    return words;
}

bool Has(std::string const& words, std::string_view phrase) {
    std::string whole(" ");
    whole.append(phrase).append(" ");
    return words.find(whole) != std::string::npos;
}

template <std::size_t N>
void SetFirst(Conditions& conditions, Text key, std::string const& words,
              std::array<std::pair<std::string_view, Text>, N> const& phrases) {
    for (auto const& [phrase, value] : phrases)
        if (Has(words, phrase)) {
            conditions.SetAttribute(key, value);
            return;
        }
}

/// Conditions that this library wrote as they are.
void TakeOwn(Conditions& conditions, SampleSet const& header, std::string_view group) {
    std::string const prefix = std::string(kConditionKeyword).append(group).append(".");
    for (auto const& [key, value] : header.GetProperties())
        if (key.starts_with(prefix))
            conditions.SetAttribute(key.substr(std::string_view(kConditionKeyword).size()), value);
}

} // namespace

Conditions CgatsSpectrumConditions(SampleSet const& header) {
    std::string const words = ConditionWords(header);
    Conditions conditions;
    SetFirst(conditions, Key::Filter, words,
             std::array<std::pair<std::string_view, Text>, 14>{{{"NO POLARISATION", "No"},
                                                                {"NO POLARIZATION", "No"},
                                                                {"M3", "Polarizer"},
                                                                {"FILTER POL", "Polarizer"},
                                                                {"FILTER POLARIZER", "Polarizer"},
                                                                {"POLARIZATION YES", "Polarizer"},
                                                                {"CROSS-POLARIZED", "Polarizer"},
                                                                {"M2", "UVCut"},
                                                                {"FILTER UVCUT", "UVCut"},
                                                                {"FILTER UV", "UVCut"},
                                                                {"M1", "D65"},
                                                                {"FILTER D65", "D65"},
                                                                {"FILTER NO", "No"},
                                                                {"M0", "No"}}});
    std::string const device = header.GetProperty("DEVICE_CLASS");
    if (device == "DISPLAY") conditions.SetAttribute(Key::SpectrumType, "Emission");
    if (Has(words, "TRANSMISSION") || Has(words, "TRANSMISSIVE"))
        conditions.SetAttribute(Key::SpectrumType, "Transmission");
    if (Has(words, "AMBIENT")) conditions.SetAttribute(Key::SpectrumType, "AmbientLight");
    TakeOwn(conditions, header, Group::Physical);
    return conditions;
}

Conditions CgatsColourConditions(SampleSet const& header, std::string const& space) {
    std::string words = ConditionWords(header);
    // A daylight filter on the instrument says nothing about the illuminant of the computation.
    if (auto const filter = words.find(" FILTER D65 "); filter != std::string::npos) words.erase(filter, 11);
    Conditions conditions = CgatsSpectrumConditions(header);
    std::string const type = conditions.GetAttribute(Key::SpectrumType, "Remission");
    bool const light = type == "Emission" || type == "AmbientLight" || type == "Flash";
    conditions.SetAttribute(Key::Illumination, light ? "Emission" : "D50");
    conditions.SetAttribute(Key::Observer, "TwoDegree");
    if (!light)
        SetFirst(conditions, Key::Illumination, words,
                 std::array<std::pair<std::string_view, Text>, 7>{{{"D50", "D50"},
                                                                   {"D65", "D65"},
                                                                   {"D55", "D55"},
                                                                   {"D75", "D75"},
                                                                   {"ILLUMINANT A", "A"},
                                                                   {"ILLUMINATION A", "A"},
                                                                   {"ILLUMINANT C", "C"}}});
    SetFirst(conditions, Key::Observer, words,
             std::array<std::pair<std::string_view, Text>, 6>{{{"10 DEGREE", "TenDegree"},
                                                               {"10DEGREE", "TenDegree"},
                                                               {"10 DEGREES", "TenDegree"},
                                                               {"OBSERVER 10", "TenDegree"},
                                                               {"OBSERVERANGLE 10", "TenDegree"},
                                                               {"OBSERVER ANGLE 10", "TenDegree"}}});
    TakeOwn(conditions, header, Group::Colorimetric);
    conditions.SetAttribute(Key::ColorSpaceType, space);
    conditions.SetAttribute(Key::AbsoluteOrDeltaVector, "AbsoluteVector");
    return conditions;
}

} // namespace Norvelian::ColorExchangeFormat
