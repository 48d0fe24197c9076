#include "cxf/files/CgatsHeader.h"

#include "cxf/conditions/ConditionText.h"
#include "cxf/conditions/IlluminantNames.h"
#include "cxf/files/ConditionWords.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

using namespace Tristim::Vocabulary;
using Kind = ReadNote::Kind;

namespace {

constexpr int kOwnRank = 1;
constexpr int kPairRank = 7;
constexpr int kFreeRank = 8;
constexpr char const* kCgatsDefault = "CGATS.17";

/// A keyword that speaks of conditions. One that must name an illuminant or an observer is an error without.
struct Keyword {
    std::string_view name;
    int rank;
    unsigned about;
    unsigned must;
};
using W = ConditionWords;
constexpr unsigned kViewing = W::Illuminant | W::Observer;
constexpr std::array<Keyword, 51> kKeywords{{
    {"ILLUMINANT", 2, kViewing, W::Illuminant},
    {"ILLUMINATION", 2, kViewing, W::Illuminant},
    {"ILLUM", 2, kViewing, W::Illuminant},
    {"CIEILLUMINANT", 2, kViewing, W::Illuminant},
    {"STANDARDILLUMINANT", 2, kViewing, W::Illuminant},
    {"REFERENCEILLUMINANT", 2, kViewing, W::Illuminant},
    {"ILLUMINANTTYPE", 2, kViewing, W::Illuminant},
    {"ILLUMINANTNAME", 2, kViewing, W::Illuminant},
    {"ILLUMINANTOBSERVER", 2, kViewing, W::Illuminant},
    {"OBSERVER", 2, kViewing, W::Observer},
    {"OBSERVERANGLE", 2, kViewing, W::Observer},
    {"OBSERVERTYPE", 2, kViewing, W::Observer},
    {"STANDARDOBSERVER", 2, kViewing, W::Observer},
    {"CIEOBSERVER", 2, kViewing, W::Observer},
    {"OBS", 2, kViewing, W::Observer},
    {"WEIGHTINGFUNCTION", 3, kViewing, 0},
    {"COMPUTATIONALPARAMETER", 3, kViewing, 0},
    {"ILLUMINATIONNAME", 4, kViewing, W::Illuminant},
    {"MEASUREMENTCONDITION", 5, W::Filter | W::Geometry | W::Backing, 0},
    {"MEASUREMENTCONDITIONS", 5, W::Filter | W::Geometry | W::Backing, 0},
    {"MCONDITION", 5, W::Filter, 0},
    {"FILTER", 6, W::Filter, 0},
    {"FILTERTYPE", 6, W::Filter, 0},
    {"FILTERNAME", 6, W::Filter, 0},
    {"MEASUREMENTFILTER", 6, W::Filter, 0},
    {"POLARIZATION", 6, W::Filter | W::Polarisation, 0},
    {"POLARISATION", 6, W::Filter | W::Polarisation, 0},
    {"POLARIZER", 6, W::Filter | W::Polarisation, 0},
    {"GEOMETRY", 6, W::Geometry, 0},
    {"MEASUREMENTGEOMETRY", 6, W::Geometry, 0},
    {"BACKING", 6, W::Backing, 0},
    {"SAMPLEBACKING", 6, W::Backing, 0},
    {"MEASUREMENTBACKING", 6, W::Backing, 0},
    {"WHITEBASE", 6, W::WhiteBase, 0},
    {"MEASUREMENTTYPE", 6, W::SpectrumType, 0},
    {"SPECTRUMTYPE", 6, W::SpectrumType, 0},
    {"DEVICECLASS", 6, W::SpectrumType, 0},
    {"ILLOBS", 2, kViewing, W::Illuminant},
    {"ILLUMOBS", 2, kViewing, W::Illuminant},
    {"VIEWINGCONDITION", 2, kViewing, 0},
    {"VIEWINGCONDITIONS", 2, kViewing, 0},
    {"COLORIMETRICILLUMINANT", 2, kViewing, W::Illuminant},
    {"OBSERVERDEGREE", 2, kViewing, W::Observer},
    {"OBSERVERDEGREES", 2, kViewing, W::Observer},
    {"CIESTANDARDOBSERVER", 2, kViewing, W::Observer},
    {"MEASUREMENTMODE", 5, W::Filter | W::Geometry | W::Backing, 0},
    {"POLFILTER", 6, W::Filter | W::Polarisation, 0},
    {"POLARIZATIONFILTER", 6, W::Filter | W::Polarisation, 0},
    {"POLARISATIONFILTER", 6, W::Filter | W::Polarisation, 0},
    {"POLARISER", 6, W::Filter | W::Polarisation, 0},
    {"BACKINGMATERIAL", 6, W::Backing, 0},
}};
constexpr std::array<std::string_view, 2> kFreeKeywords{"MEASUREMENTSOURCE", "INSTRUMENTATION"};
constexpr unsigned kEverything = kViewing | W::Filter | W::Geometry | W::Backing | W::SpectrumType;

Keyword const* FindKeyword(std::string const& plain) {
    auto const found = std::find_if(kKeywords.begin(), kKeywords.end(),
                                    [&plain](Keyword const& one) { return one.name == plain; });
    return found == kKeywords.end() ? nullptr : &*found;
}

/// Keywords that nobody here knows, but that seem to speak of conditions.
bool MaySpeakOfConditions(std::string_view plain) {
    for (std::string_view const part : {"ILLUM", "OBSERV", "WEIGHTINGF", "FILTER", "POLARI", "GEOMETR",
                                        "BACKING", "MEASUREMENTCOND", "VIEWING", "LIGHTSOURCE"})
        if (plain.find(part) != std::string_view::npos) return true;
    return false;
}

/// A keyword and its value without what some writers put between them: "ILLUMINANT: D65", "ILLUMINANT=D65".
SampleSet::Property Parted(SampleSet::Property const& property) {
    auto [key, value] = property;
    constexpr std::string_view signs = ":=,;";
    if (auto const sign = key.find_first_of(":="); value.empty() && sign != std::string::npos) {
        value = key.substr(sign + 1);
        key.erase(sign);
    }
    while (!key.empty() && signs.find(key.back()) != std::string_view::npos) key.pop_back();
    return {key, value};
}

bool IsFilterKeyword(std::string const& name) { return PlainName(name).find("FILTER") != std::string::npos; }

constexpr std::array<Text, 4> kOfIllumination{Key::Illumination, Key::ColorTemperature, Key::FluorescentType,
                                              Key::IlluminantName};
bool IsOfIllumination(std::string_view key) {
    return std::any_of(kOfIllumination.begin(), kOfIllumination.end(),
                       [key](Text one) { return key == one; });
}

std::string Listed(std::vector<std::string> const& words) {
    std::string text;
    for (std::string const& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}
std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (std::string_view const part : parts) text += part;
    return text;
}

bool IsLight(std::string_view type) {
    return type == "Emission" || type == "AmbientLight" || type == "Flash";
}

/// "Name=value" pairs of a text, and what is left of it.
std::vector<std::pair<std::string, std::string>> TakePairs(std::string& text) {
    std::vector<std::pair<std::string, std::string>> pairs;
    for (auto equals = text.find('='); equals != std::string::npos; equals = text.find('=')) {
        constexpr std::string_view separators = " \t,;";
        auto const nameEnd = text.find_last_not_of(separators, equals - (equals > 0));
        auto const begin =
            nameEnd == std::string::npos || equals == 0 ? equals : text.find_last_of(separators, nameEnd) + 1;
        auto const valueBegin = std::min(text.find_first_not_of(" \t", equals + 1), text.size());
        auto const end = std::min(text.find_first_of(separators, valueBegin), text.size());
        pairs.emplace_back(text.substr(begin, equals - begin), text.substr(valueBegin, end - valueBegin));
        text.replace(begin, end - begin, " ");
    }
    return pairs;
}

} // namespace

CgatsHeader::CgatsHeader(std::span<SampleSet::Property const> properties) : properties_(properties) {
    TakeOwn(properties);
    for (std::size_t place = 0; place < properties.size(); ++place) {
        if (properties[place].first.starts_with(kConditionKeyword) || properties[place].first == "#")
            continue;
        auto const [key, value] = Parted(properties[place]);
        std::string const plain = PlainName(key);
        if (std::find(kFreeKeywords.begin(), kFreeKeywords.end(), plain) != kFreeKeywords.end())
            TakeFree(place, key, value);
        else
            TakeKeyword(place, key, value);
    }
    for (auto const& [key, statement] : statements_) {
        if (key == Key::Illumination || statement.rank == kOwnRank) continue;
        if (statement.assumed)
            all_.Assume(key, statement.value, statement.source);
        else
            all_.SetAttribute(key, statement.value);
    }
    if (auto const illuminant = statements_.find(Key::Illumination); illuminant != statements_.end()) {
        try {
            static_cast<void>(Tristim::ViewingOf(all_.GetMeasureConditions()));
        } catch (Tristim::TristimException const& failure) {
            throw CgatsHeaderException(illuminant->second.keyword, failure.what());
        }
    }
    for (auto const& [key, value] : all_.GetAll())
        if (key.starts_with(Group::Physical)) {
            std::string const by = all_.GetMeasureConditions().GetAssumption(key);
            if (by.empty())
                spectrum_.SetAttribute(key, value);
            else
                spectrum_.Assume(key, value, by);
        }
}

void CgatsHeader::TakeOwn(std::span<SampleSet::Property const> properties) {
    for (std::size_t place = 0; place < properties.size(); ++place) {
        auto const& [key, value] = properties[place];
        if (!key.starts_with(kConditionKeyword) || key.starts_with(kAssumedKeyword)) continue;
        std::string const condition = key.substr(std::string_view(kConditionKeyword).size());
        if (!condition.starts_with(Group::Physical) && !condition.starts_with(Group::Colorimetric)) continue;
        try {
            RequireKnownValue(condition, value);
        } catch (Tristim::TristimException const& failure) {
            throw CgatsHeaderException(place, failure.what());
        }
        statements_[condition] = {kOwnRank, place, key, value, false};
        std::string by;
        for (auto const& [other, origin] : properties)
            if (other == kAssumedKeyword + condition) by = origin;
        if (by.empty())
            all_.SetAttribute(condition, value);
        else
            all_.Assume(condition, value, by);
        AddNote(by.empty() ? Kind::Taken : Kind::Assumed, place, Joined({condition, " is ", value}));
    }
}

bool CgatsHeader::Take(std::size_t place, std::string const& key, Conditions const& found, int rank,
                       bool assumed) {
    for (auto const& [condition, value] : found.GetAll()) {
        if (IsOfIllumination(condition) && condition != Key::Illumination) continue;
        TakeOne(place, key, condition.c_str(), value, rank, assumed, found);
    }
    return !found.IsEmpty();
}

void CgatsHeader::TakeOne(std::size_t place, std::string const& keyword, char const* key,
                          std::string const& value, int rank, bool assumed, Conditions const& found) {
    bool const illuminant = std::string_view(key) == Key::Illumination;
    // An illuminant with its parameter is one thing.
    std::string const said = illuminant ? Tristim::IlluminantText(found.GetMeasureConditions()) : value;
    auto const before = statements_.find(key);
    if (before != statements_.end()) {
        Statement& first = before->second;
        // What this library wrote is what it knew; the keywords of an earlier program stay for the record.
        if (first.rank == kOwnRank) return;
        std::string const held =
            illuminant ? Tristim::IlluminantText(all_.GetMeasureConditions()) : first.value;
        if (held == said) {
            if (first.assumed && !assumed && rank < first.rank) first.assumed = false;
            return;
        }
        std::string const other = first.source;
        // Neither M0 nor M1 has a filter in the light's way, so "no filter" beside M1 is no contradiction.
        bool const filter = std::string_view(key) == Key::Filter;
        if (filter && said == "No" && held == "D65" && IsFilterKeyword(keyword)) return;
        if (filter && said == "D65" && held == "No" && IsFilterKeyword(other)) {
            first = {std::min(first.rank, rank), place, keyword, value, assumed};
            return;
        }
        if (first.rank == rank && !assumed)
            throw CgatsHeaderException(place,
                                       keyword + " says " + said + " where " + other + " says " + held);
        bool const later = first.rank <= rank;
        AddNote(Kind::Contradiction, place,
                keyword + " says " + said + " where " + other + " says " + held + "; " +
                    (later ? held : said) + " is assumed");
        first.assumed = true;
        if (later) {
            if (illuminant) all_.Assume(key, first.value, other);
            return;
        }
        assumed = true;
    } else {
        AddNote(assumed ? Kind::Assumed : Kind::Taken, place,
                std::string(key) + " is " + said + (assumed ? ", which " + keyword + " mentions" : ""));
    }
    statements_[key] = {rank, place, keyword, value, assumed};
    if (!illuminant) return;
    for (Text const part : kOfIllumination) all_.Forget(part);
    for (auto const& [part, set] : found.GetAll())
        if (IsOfIllumination(part)) all_.SetAttribute(part, set);
    if (assumed) all_.Assume(Key::Illumination, value, keyword);
}

void CgatsHeader::TakeKeyword(std::size_t place, std::string const& key, std::string const& value) {
    std::string const plain = PlainName(key);
    Keyword const* const keyword = FindKeyword(plain);
    bool const empty = value.find_first_not_of(" \t") == std::string::npos;
    if (!keyword && MaySpeakOfConditions(plain))
        AddNote(Kind::Skipped, place, Joined({"the keyword ", key, " isn't known"}));
    if (keyword && empty) AddNote(Kind::Skipped, place, key + " has no value");
    if (!keyword || SaysNothing(value)) return;
    try {
        ConditionWords const words = ConditionWords::Parse(value, keyword->about, false);
        bool const illuminant = !words.found.GetAttribute(Key::Illumination, "").empty();
        bool const observer = !words.found.GetAttribute(Key::Observer, "").empty();
        unsigned must = keyword->must;
        if (keyword->rank == 3 && PlainName(value).starts_with("ILLUMINANT")) must = W::Illuminant;
        if (keyword->rank == 3 && PlainName(value).starts_with("OBSERVER")) must = W::Observer;
        if (must == W::Illuminant && !illuminant)
            throw Tristim::TristimException(key + " is \"" + value + "\"; the known illuminants are " +
                                            Tristim::KnownIlluminants());
        if (must == W::Observer && !observer)
            throw Tristim::TristimException(key + " is \"" + value +
                                            "\"; the known observers are 2 degrees (CIE 1931) and 10 degrees "
                                            "(CIE 1964)");
        Take(place, key, words.found, keyword->rank, false);
        if (!words.unknown.empty() && keyword->name != "DEVICECLASS")
            AddNote(Kind::Skipped, place,
                    "\"" + Listed(words.unknown) + "\" in " + key + " isn't understood");
    } catch (CgatsHeaderException const&) {
        throw;
    } catch (Tristim::TristimException const& failure) {
        throw CgatsHeaderException(place, failure.what());
    }
}

void CgatsHeader::TakeFree(std::size_t place, std::string const& key, std::string const& value) {
    std::string rest = value;
    for (auto const& [name, said] : TakePairs(rest)) {
        Keyword const* const keyword = FindKeyword(PlainName(name));
        if (!keyword || SaysNothing(said)) continue;
        try {
            ConditionWords const words = ConditionWords::Parse(said, keyword->about, false);
            bool const known = !words.found.IsEmpty() || !keyword->must;
            if (!known)
                throw Tristim::TristimException(
                    Joined({name, " is \"", said, "\"; "}) +
                    (keyword->must == W::Illuminant
                         ? "the known illuminants are " + Tristim::KnownIlluminants()
                         : std::string("the known observers are 2 and 10 degrees")));
            Take(place, name, words.found, kPairRank, false);
            if (!words.unknown.empty())
                AddNote(Kind::Skipped, place, Joined({name, "=", said, " in ", key, " isn't understood"}));
        } catch (CgatsHeaderException const&) {
            throw;
        } catch (Tristim::TristimException const& failure) {
            throw CgatsHeaderException(place, failure.what());
        }
    }
    // A "no" concerns its own clause: "D50, no polarisation filter, white backing".
    while (!rest.empty()) {
        std::string const clause = rest.substr(0, rest.find_first_of(",;"));
        rest.erase(0, clause.size() + 1);
        try {
            Take(place, key, ConditionWords::Parse(clause, kEverything, true).found, kFreeRank, true);
        } catch (CgatsHeaderException const&) {
            throw;
        } catch (Tristim::TristimException const&) {
            // A clause that names two conditions, or a lamp that nobody tabulated, says nothing certain.
            AddNote(Kind::Skipped, place, Joined({"\"", clause, "\" in ", key, " names several conditions"}));
        }
    }
}

Conditions CgatsHeader::GetColourConditions(std::string const& space) const {
    Conditions conditions = all_;
    std::string const type = conditions.GetAttribute(Key::SpectrumType, "");
    if (IsLight(type)) {
        for (Text const part : kOfIllumination) conditions.Forget(part);
        conditions.SetAttribute(Key::Illumination, "Emission");
    }
    if (conditions.GetAttribute(Key::Illumination, "").empty())
        conditions.Assume(Key::Illumination, "D50", kCgatsDefault);
    if (conditions.GetAttribute(Key::Observer, "").empty())
        conditions.Assume(Key::Observer, "TwoDegree", kCgatsDefault);
    conditions.SetAttribute(Key::ColorSpaceType, space);
    conditions.SetAttribute(Key::AbsoluteOrDeltaVector, "AbsoluteVector");
    return conditions;
}

} // namespace Norvelian::ColorExchangeFormat
