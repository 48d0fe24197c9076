#include "cxf/files/ConditionWords.h"

#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/IlluminantNames.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

using namespace Tristim::Vocabulary;
using Tristim::TristimException;

namespace {

using Meaning = std::pair<std::string_view, Text>;

constexpr std::array<Meaning, 13> kObservers{{{"2", "TwoDegree"},
                                              {"2.0", "TwoDegree"},
                                              {"02", "TwoDegree"},
                                              {"TWO", "TwoDegree"},
                                              {"TWODEGREE", "TwoDegree"},
                                              {"1931", "TwoDegree"},
                                              {"CIE1931", "TwoDegree"},
                                              {"10", "TenDegree"},
                                              {"10.0", "TenDegree"},
                                              {"TEN", "TenDegree"},
                                              {"TENDEGREE", "TenDegree"},
                                              {"1964", "TenDegree"},
                                              {"CIE1964", "TenDegree"}}};
constexpr std::array<Meaning, 28> kFilters{{{"M0", "No"},
                                            {"M1", "D65"},
                                            {"M2", "UVCut"},
                                            {"M3", "Polarizer"},
                                            {"POL", "Polarizer"},
                                            {"POLARIZER", "Polarizer"},
                                            {"POLARISER", "Polarizer"},
                                            {"POLARIZED", "Polarizer"},
                                            {"POLARISED", "Polarizer"},
                                            {"POLFILTER", "Polarizer"},
                                            {"POLARIZATION", "Polarizer"},
                                            {"POLARISATION", "Polarizer"},
                                            {"CROSSPOLARIZED", "Polarizer"},
                                            {"CROSSPOLARISED", "Polarizer"},
                                            {"UVCUT", "UVCut"},
                                            {"UVFILTER", "UVCut"},
                                            {"UVEXCLUDED", "UVCut"},
                                            {"UVEX", "UVCut"},
                                            {"UVEXCL", "UVCut"},
                                            {"UVBLOCK", "UVCut"},
                                            {"UNPOLARIZED", "No"},
                                            {"UNPOLARISED", "No"},
                                            {"NOFILTER", "No"},
                                            {"UNFILTERED", "No"},
                                            {"CUSTOM", "Custom"},
                                            {"LASTSELECTABLE", "LastSelectable"},
                                            {"CALIBRATIONCHECK", "CalibrationCheck"},
                                            {"ND0", "ND0"}}};
/// Words that only the value of a filter's own keyword may mean so.
constexpr std::array<Meaning, 7> kBareFilters{{{"NO", "No"},
                                               {"NONE", "No"},
                                               {"OFF", "No"},
                                               {"D65", "D65"},
                                               {"UV", "UVCut"},
                                               {"UVC", "UVCut"},
                                               {"CROSS", "Polarizer"}}};
/// With "/" for ":"; light at 45 degrees comes from all around (a, c) or from one side (x).
constexpr std::array<Meaning, 10> kGeometries{{{"45/0", "45:0"},
                                               {"45A/0", "45:0"},
                                               {"45C/0", "45:0"},
                                               {"45X/0", "45:0"},
                                               {"0/45", "0:45"},
                                               {"0/45A", "0:45"},
                                               {"0/45C", "0:45"},
                                               {"0/45X", "0:45"},
                                               {"D/0", "d:0"},
                                               {"0/D", "d:0"}}};
constexpr std::array<Meaning, 14> kSpheres{{{"SCI", "d:8i"},
                                            {"SPIN", "d:8i"},
                                            {"RSIN", "d:8i"},
                                            {"DI/8", "d:8i"},
                                            {"8/DI", "d:8i"},
                                            {"D/8I", "d:8i"},
                                            {"SPECULARINCLUDED", "d:8i"},
                                            {"SCE", "d:8e"},
                                            {"SPEX", "d:8e"},
                                            {"RSEX", "d:8e"},
                                            {"DE/8", "d:8e"},
                                            {"8/DE", "d:8e"},
                                            {"D/8E", "d:8e"},
                                            {"SPECULAREXCLUDED", "d:8e"}}};
constexpr std::array<Meaning, 8> kBackings{{{"BLACK", "Black"},
                                            {"BB", "Black"},
                                            {"WB", "White"},
                                            {"BLK", "Black"},
                                            {"WHITE", "White"},
                                            {"WHT", "White"},
                                            {"SELF", "Self"},
                                            {"OWN", "Self"}}};
constexpr std::array<Meaning, 7> kWhiteBases{{{"ABS", "Absolute"},
                                              {"ABSOLUTE", "Absolute"},
                                              {"DIFFUSER", "Absolute"},
                                              {"PAPER", "Paper"},
                                              {"SUBSTRATE", "Paper"},
                                              {"RELATIVE", "Paper"},
                                              {"PAP", "Paper"}}};
constexpr std::array<Meaning, 14> kTypes{{{"REFLECTANCE", "Remission"},
                                          {"REFLECTION", "Remission"},
                                          {"REFLECTIVE", "Remission"},
                                          {"REFLECTIVITY", "Remission"},
                                          {"REMISSION", "Remission"},
                                          {"TRANSMISSION", "Transmission"},
                                          {"TRANSMISSIVE", "Transmission"},
                                          {"TRANSMITTANCE", "Transmission"},
                                          {"EMISSION", "Emission"},
                                          {"EMISSIVE", "Emission"},
                                          {"DISPLAY", "Emission"},
                                          {"AMBIENT", "AmbientLight"},
                                          {"AMBIENTLIGHT", "AmbientLight"},
                                          {"FLASH", "Flash"}}};
/// Words around a statement that say nothing by themselves.
constexpr std::array<std::string_view, 40> kFillers{"CIE",          "ILLUMINANT",
                                                    "ILLUMINATION", "ILLUM",
                                                    "STANDARD",     "STD",
                                                    "OBSERVER",     "OBS",
                                                    "ANGLE",        "DEG",
                                                    "DEGREE",       "DEGREES",
                                                    "FIELD",        "FILTER",
                                                    "BACKING",      "GEOMETRY",
                                                    "DAYLIGHT",     "LIGHT",
                                                    "SOURCE",       "MEASUREMENT",
                                                    "CONDITION",    "AND",
                                                    "OF",           "WITH",
                                                    "BASE",         "ISO",
                                                    "13655",        "SUPPLEMENTARY",
                                                    "MATERIAL",     "MODE",
                                                    "COLORIMETRIC", "WEIGHTS",
                                                    "GEOMETRIC",    "MODEL",
                                                    "NORMLICHT",    "NORMLICHTART",
                                                    "LICHTART",     "NORMALBEOBACHTER",
                                                    "BEOBACHTER",   "GRAD"};

bool IsIn(std::span<std::string_view const> words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}
Text MeaningOf(std::span<Meaning const> meanings, std::string_view word) {
    for (auto const& [name, value] : meanings)
        if (name == word) return value;
    return nullptr;
}

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether a text ends in the second half of a geometry ("45/0", "d:8").
bool EndsInGeometry(std::string_view text) {
    for (std::string_view const end : {"/0", "/8", "/45", ":0", ":8", ":45"})
        if (text.ends_with(end)) return true;
    return false;
}
/// Whether a geometry goes on behind a degree sign: "45°/0°", "45°a:0°".
bool GeometryGoesOn(std::string_view rest) {
    if (!rest.empty() && std::string_view("aAcCxX").find(rest.front()) != std::string_view::npos)
        rest.remove_prefix(1);
    return !rest.empty() && (rest.front() == '/' || rest.front() == ':');
}

/// Cuts a value into words. A degree sign becomes the word DEG, but nothing within a geometry; ":" of a
/// geometry becomes "/"; digits part from letters behind them.
std::vector<std::string> WordsOf(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        auto const byte = static_cast<unsigned char>(value[i]);
        bool const utf8 = byte == 0xC2 && i + 1 < value.size() &&
                          (static_cast<unsigned char>(value[i + 1]) == 0xB0 ||
                           static_cast<unsigned char>(value[i + 1]) == 0xBA);
        if (utf8 || byte == 0xB0 || byte == 0xBA) {
            i += utf8 ? 1 : 0;
            if (!EndsInGeometry(text) && !GeometryGoesOn(value.substr(i + 1))) text += " DEG ";
        } else {
            text += Upper(value[i]);
        }
    }
    std::vector<std::string> words;
    std::string word;
    auto const end = [&] {
        if (!word.empty()) words.push_back(std::exchange(word, {}));
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const c = text[i];
        if (std::string_view(" \t,;()[]_-=\"'|+").find(c) != std::string_view::npos) {
            end();
        } else if ((c == '/' || c == ':')) {
            // "45/0" and "d/8" are one word, "D65/10" two.
            static constexpr std::array<std::string_view, 9> geometry{"45", "45A", "45C", "45X", "0",
                                                                      "8",  "D",   "DI",  "DE"};
            if (IsIn(geometry, word))
                word += '/';
            else
                end();
        } else {
            // "10deg", but not "45a/0" and "2.5Y".
            if (!word.empty() && std::all_of(word.begin(), word.end(), IsDigit) && c == 'D' &&
                text.compare(i, 3, "DEG") == 0)
                end();
            word += c;
        }
    }
    end();
    // Names in two words.
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        std::string const joined = words[i] + words[i + 1];
        bool const lamp = words[i] == "LED" || words[i] == "TL" || words[i] == "FL3" || words[i] == "COOL" ||
                          words[i] == "WARM" || words[i] == "EQUAL" || words[i] == "D" || words[i] == "F" ||
                          words[i] == "FL" || words[i] == "ID" || words[i] == "HP";
        bool const filter =
            words[i] == "UV" || words[i] == "CROSS" || (words[i] == "NO" && words[i + 1] == "FILTER");
        bool const gloss = words[i] == "SPECULAR";
        bool const observer = (words[i] == "TWO" || words[i] == "TEN") && words[i + 1] == "DEGREE";
        bool const sphere = words[i] == "D/8" || words[i] == "8/D";
        if (sphere && (words[i + 1] == "SCI" || words[i + 1] == "SCE" || words[i + 1] == "SPIN" ||
                       words[i + 1] == "SPEX" || words[i + 1] == "SPECULAR"))
            words.erase(words.begin() + static_cast<std::ptrdiff_t>(i--));
        else if (observer || (lamp && Tristim::FindIlluminant(joined)) ||
                 (filter && MeaningOf(kFilters, joined)) || (gloss && MeaningOf(kSpheres, joined))) {
            words[i] = joined;
            words.erase(words.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        }
    }
    return words;
}

/// Takes the words of one value one by one.
class Parser {
public:
    Parser(std::string_view value, unsigned about, bool loose)
        : words_(WordsOf(value)), value_(value), about_(about), loose_(loose) {}

    ConditionWords Run() {
        static constexpr std::array<std::string_view, 6> negations{"NO",  "NOT",  "WITHOUT",
                                                                   "NON", "OHNE", "SANS"};
        bool const negated = std::any_of(words_.begin(), words_.end(),
                                         [](std::string const& word) { return IsIn(negations, word); });
        if (loose_ && negated) {
            result_.unknown = words_;
            return std::move(result_);
        }
        for (place_ = 0; place_ < words_.size(); ++place_)
            if (!Take(words_[place_]) && !IsIn(kFillers, words_[place_]))
                result_.unknown.push_back(words_[place_]);
        return std::move(result_);
    }

private:
    bool Take(std::string const& word);
    bool TakeIlluminant(std::string const& word);
    bool TakeFrom(unsigned about, Text key, std::span<Meaning const> meanings, std::string const& word) {
        if (!(about_ & about)) return false;
        Text const meaning = MeaningOf(meanings, word);
        if (!meaning) return false;
        Set(key, meaning);
        return true;
    }
    void Set(Text key, std::string const& value) {
        std::string const before = result_.found.GetAttribute(key, "");
        if (!before.empty() && before != value)
            throw TristimException("\"" + std::string(value_) + "\" names both " + before + " and " + value);
        result_.found.SetAttribute(key, value);
    }
    bool Follows(std::string_view word) const {
        return place_ + 1 < words_.size() && words_[place_ + 1] == word;
    }
    bool FollowsDegree() const { return Follows("DEG") || Follows("DEGREE") || Follows("DEGREES"); }
    bool Behind(std::string_view word) const { return place_ > 0 && words_[place_ - 1] == word; }

    std::vector<std::string> words_;
    std::string_view value_;
    unsigned about_;
    bool loose_;
    std::size_t place_ = 0;
    ConditionWords result_;
};

bool Parser::TakeIlluminant(std::string const& word) {
    if (!(about_ & ConditionWords::Illuminant)) return false;
    // Single letters and short numbers are too common in sentences.
    bool const named = Behind("ILLUMINANT") || Behind("ILLUMINATION") || Behind("ILLUM");
    if (loose_ && word.size() < 3 && !named) return false;
    auto const illuminant = Tristim::FindIlluminant(word);
    if (!illuminant) return false;
    for (auto const& [key, value] : illuminant->GetAll()) Set(key.c_str(), value);
    return true;
}

bool Parser::Take(std::string const& word) {
    if ((about_ & ConditionWords::Observer) &&
        (!loose_ || FollowsDegree() || word == "1931" || word == "1964" || Behind("OBSERVER") ||
         Behind("ANGLE") || Behind("OBSERVERANGLE")))
        if (TakeFrom(ConditionWords::Observer, Key::Observer, kObservers, word)) return true;
    if (about_ & ConditionWords::Polarisation) {
        static constexpr std::array<std::string_view, 6> yes{"YES", "ON", "TRUE", "CROSS", "IN", "1"};
        // Without a polariser the filter may still be any of the others.
        static constexpr std::array<std::string_view, 9> no{
            "NO", "NONE", "OFF", "FALSE", "OUT", "0", "UNPOLARIZED", "UNPOLARISED", "NOFILTER"};
        if (IsIn(no, word)) return true;
        if (IsIn(yes, word)) {
            Set(Key::Filter, "Polarizer");
            return true;
        }
    }
    // "UV included" isn't a cut, and "no UV" may be one.
    bool const bare = std::count_if(words_.begin(), words_.end(),
                                    [](std::string const& one) { return !IsIn(kFillers, one); }) == 1;
    if (!loose_ && about_ == ConditionWords::Filter && bare &&
        TakeFrom(ConditionWords::Filter, Key::Filter, kBareFilters, word))
        return true;
    if (TakeFrom(ConditionWords::Filter, Key::Filter, kFilters, word)) return true;
    if (TakeFrom(ConditionWords::Geometry, Key::Geometry, kGeometries, word)) return true;
    if (TakeFrom(ConditionWords::Geometry, Key::Geometry, kSpheres, word)) return true;
    bool const backing = about_ == ConditionWords::Backing || Follows("BACKING") || Behind("BACKING");
    if (backing && TakeFrom(ConditionWords::Backing, Key::Backing, kBackings, word)) return true;
    if (TakeFrom(ConditionWords::WhiteBase, Key::WhiteBase, kWhiteBases, word)) return true;
    if (TakeFrom(ConditionWords::SpectrumType, Key::SpectrumType, kTypes, word)) return true;
    return TakeIlluminant(word);
}

} // namespace

ConditionWords ConditionWords::Parse(std::string_view value, unsigned about, bool loose) {
    return Parser(value, about, loose).Run();
}

std::string PlainName(std::string_view name) {
    std::string result;
    for (char const c : name)
        if (c != ' ' && c != '_' && c != '-') result += Upper(c);
    return result;
}

void RequireKnownValue(std::string const& key, std::string const& value) {
    std::vector<std::string> known;
    try {
        known = Tristim::TristimService::GetSupportedValues(key);
    } catch (TristimException const&) {
        return;
    }
    if (value.empty() || known.empty() || std::find(known.begin(), known.end(), value) != known.end()) return;
    auto const& further = Value::FurtherDeltaEFormula;
    bool const formula = key == Key::DeltaEFormula;
    if (formula && std::find(further.begin(), further.end(), std::string_view(value)) != further.end())
        return;
    std::string list;
    for (std::string const& one : known) list += (list.empty() ? "" : ", ") + one;
    throw TristimException("the condition " + key + " is \"" + value + "\"; expected one of " + list);
}

bool SaysNothing(std::string_view value) {
    static constexpr std::array<std::string_view, 8> nothing{"",  "UNKNOWN",   "N/A",          "NA",
                                                             "?", "UNDEFINED", "NOTSPECIFIED", "UNSPECIFIED"};
    std::string const plain = PlainName(value);
    return IsIn(nothing, plain);
}

} // namespace Norvelian::ColorExchangeFormat
