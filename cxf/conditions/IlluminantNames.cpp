#include "cxf/conditions/IlluminantNames.h"

#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"

#include <array>
#include <utility>

namespace Norvelian::Tristim {

using namespace Vocabulary;

namespace {

/// Trade names, and words for lights; without blanks and hyphens. The lamps behind FL10 to FL12 are named in
/// CIE 15's description of these illuminants as three-band lamps of 5000, 4000 and 3000 K.
constexpr std::array<std::pair<std::string_view, std::string_view>, 14> kAliases{{{"TL84", "F11"},
                                                                                  {"TL85", "F10"},
                                                                                  {"TL83", "F12"},
                                                                                  {"U30", "F12"},
                                                                                  {"UL30", "F12"},
                                                                                  {"CWF", "F2"},
                                                                                  {"CWF2", "F2"},
                                                                                  {"COOLWHITE", "F2"},
                                                                                  {"WWF", "F4"},
                                                                                  {"WARMWHITE", "F4"},
                                                                                  {"INCA", "A"},
                                                                                  {"INCANDESCENT", "A"},
                                                                                  {"TUNGSTEN", "A"},
                                                                                  {"EQUALENERGY", "E"}}};
/// Lights of cabinets and dealers without a published table here.
constexpr std::array<std::string_view, 9> kWithoutTable{"HORIZON", "HZ",    "U35",   "UL35", "UL3500",
                                                        "TL830",   "TL835", "TL840", "SPL35"};

std::string Normalised(std::string_view name) {
    std::string result;
    for (char const c : name) {
        if (c == ' ' || c == '-' || c == '_' || c == '.') continue;
        result += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return result;
}

NVMeasureConditions Illuminant(Text illumination) {
    NVMeasureConditions conditions;
    conditions.SetMeasureCondition(Key::Illumination, illumination);
    return conditions;
}

/// "D" and a nominal temperature in hundreds or units of kelvin.
std::optional<NVMeasureConditions> FindDaylight(std::string_view digits) {
    if (digits.ends_with('K') && digits.size() > 4) digits.remove_suffix(1);
    double number = 0;
    if (digits.size() < 2 || digits.front() == '+' || !Numbers::Parse(digits, number)) return std::nullopt;
    double const nominal = digits.size() < 4 ? 100 * number : number;
    for (auto const& [kelvin, name] : std::initializer_list<std::pair<double, Text>>{
             {5000, "D50"}, {5500, "D55"}, {6500, "D65"}, {7500, "D75"}})
        if (nominal == kelvin) return Illuminant(name);
    double const kelvin = nominal * 1.4388 / 1.4380;
    if (kelvin < 4000 || kelvin > 25000) return std::nullopt;
    NVMeasureConditions conditions = Illuminant("Dxx");
    conditions.SetMeasureCondition(Key::ColorTemperature, Numbers::Shortest(kelvin));
    return conditions;
}

} // namespace

std::optional<NVMeasureConditions> FindIlluminant(std::string_view name) {
    std::string key = Normalised(name);
    for (auto const& [alias, meant] : kAliases)
        if (key == alias) key = meant;
    for (std::string_view const known : kWithoutTable)
        if (key == known)
            throw TristimException("the light \"" + std::string(name) +
                                   "\" is known, but no published table of it is at hand");
    for (Text const simple : {"A", "B", "C"})
        if (key == simple) return Illuminant(simple);
    for (Text const fluorescent : Value::FluorescentType) {
        std::string const plain = Normalised(fluorescent);
        // Some programs write two digits: F02.
        if (key != plain && key != "FL" + plain.substr(1) && key != "F0" + plain.substr(1) &&
            key != "FL0" + plain.substr(1))
            continue;
        NVMeasureConditions conditions = Illuminant("F");
        conditions.SetMeasureCondition(Key::FluorescentType, fluorescent);
        return conditions;
    }
    for (Text const named : Value::IlluminantName) {
        if (key != Normalised(named)) continue;
        NVMeasureConditions conditions = Illuminant("Userdefined");
        conditions.SetMeasureCondition(Key::IlluminantName, named);
        return conditions;
    }
    if (key.starts_with('D')) return FindDaylight(std::string_view(key).substr(1));
    return std::nullopt;
}

NVMeasureConditions Under(std::string_view illuminant, int observerDegrees) {
    auto found = FindIlluminant(illuminant);
    if (!found)
        throw TristimException("there is no illuminant \"" + std::string(illuminant) + "\"; known are " +
                               KnownIlluminants());
    if (observerDegrees != 2 && observerDegrees != 10)
        throw TristimException("there is no observer of " + std::to_string(observerDegrees) +
                               " degrees; known are 2 and 10");
    found->SetMeasureCondition(Key::Observer, observerDegrees == 2 ? "TwoDegree" : "TenDegree");
    return *found;
}

std::string KnownIlluminants() {
    return "A, B, C, E, D50, D55, D65, D75, D40 to D250, F1 to F12, FL3.1 to FL3.15, TL83, TL84, TL85, CWF, "
           "LED-B1 to "
           "LED-B5, LED-BH1, LED-RGB1, LED-V1, LED-V2, ID50, ID65, HP1 to HP5";
}

} // namespace Norvelian::Tristim
