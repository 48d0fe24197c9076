#include "cxf/files/CgatsFields.h"

#include "cxf/conditions/IlluminantNames.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/files/ConditionWords.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

namespace Key = Tristim::Vocabulary::Key;

namespace {

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
std::string Upper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char c) { return Upper(c); });
    return result;
}
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Names rounded to whole nanometres may be off by this much.
constexpr double kRounding = 0.51;

struct Band {
    double wavelength;
    std::size_t field;
};

void SetGrid(CgatsLayout& layout, std::vector<Band> bands, CgatsScanner const& scanner,
             std::vector<CgatsToken> const& fields, std::optional<double> start, std::optional<double> end) {
    if (bands.empty()) return;
    std::stable_sort(bands.begin(), bands.end(),
                     [](Band const& a, Band const& b) { return a.wavelength < b.wavelength; });
    for (Band const& band : bands) layout.bands.push_back(band.field);
    if (bands.size() < 4)
        scanner.Fail(fields[bands.front().field],
                     "a spectrum of " + std::to_string(bands.size()) + " bands; expected at least 4");
    double first = bands.front().wavelength;
    double last = bands.back().wavelength;
    // The header's ends are exact where the names are rounded, and wrong where they don't match at all.
    if (start && std::abs(*start - first) < kRounding) first = *start;
    if (end && std::abs(*end - last) < kRounding) last = *end;
    double const step = (last - first) / static_cast<double>(bands.size() - 1);
    for (std::size_t i = 0; i < bands.size(); ++i) {
        double const expected = first + step * static_cast<double>(i);
        bool const twice = i > 0 && bands[i].wavelength == bands[i - 1].wavelength;
        if (std::abs(bands[i].wavelength - expected) <= kRounding && !twice) continue;
        scanner.Fail(
            fields[bands[i].field],
            "the wavelengths aren't evenly spaced: " + Tristim::Numbers::Shortest(bands[i].wavelength) +
                " nm where " + std::to_string(std::lround(expected)) + " nm is expected");
    }
    layout.first = first;
    layout.step = step;
}

/// Other spellings of a colour's fields. Single letters count as they are written, since x isn't X; names
/// count in capitals without "*", "_" and blanks.
struct Spelling {
    char const* space;
    std::array<char const*, 4> fields;
};
constexpr std::array<Spelling, 23> kSpellings{{
    {"CIEXYZ", {"XYZX", "XYZY", "XYZZ", nullptr}},
    {"CIEXYZ", {"CIEX", "CIEY", "CIEZ", nullptr}},
    {"CIEXYZ", {"CIEXYZX", "CIEXYZY", "CIEXYZZ", nullptr}},
    {"CIEXYZ", {"X", "Y", "Z", nullptr}},
    {"CIELab", {"LABL", "LABA", "LABB", nullptr}},
    {"CIELab", {"CIEL", "CIEA", "CIEB", nullptr}},
    {"CIELab", {"CIELABL", "CIELABA", "CIELABB", nullptr}},
    {"CIELab", {"LSTAR", "ASTAR", "BSTAR", nullptr}},
    {"CIELab", {"L", "a", "b", nullptr}},
    {"CIELab", {"L", "A", "B", nullptr}},
    {"CIELCh", {"LCHL", "LCHC", "LCHH", nullptr}},
    {"CIELCh", {"LABL", "LABC", "LABH", nullptr}},
    {"CIELCh", {"L", "C", "h", nullptr}},
    {"CIELCh", {"L", "C", "H", nullptr}},
    {"CIELCh", {"L", "CAB", "HAB", nullptr}},
    {"CIELCh", {"CIEL", "CIEC", "CIEH", nullptr}},
    {"CIExyY", {"XYYX", "XYYY", "XYYCAPY", nullptr}},
    {"CIExyY", {"x", "y", "Y", nullptr}},
    {"CIELuv", {"LUVL", "LUVU", "LUVV", nullptr}},
    {"CMYK", {"CMYKC", "CMYKM", "CMYKY", "CMYKK"}},
    {"CMYK", {"C", "M", "Y", "K"}},
    {"RGB", {"RGBR", "RGBG", "RGBB", nullptr}},
    {"RGB", {"R", "G", "B", nullptr}},
}};

/// A field's name without illuminant and observer, and these.
struct ColourField {
    std::string name;
    std::string view; ///< to tell the colours of one table apart
    Conditions viewing;
};

ColourField ColourFieldOf(std::string_view field) {
    ColourField result;
    std::string kept;
    std::size_t begin = 0;
    bool viewed = false;
    while (begin <= field.size()) {
        std::size_t const end = std::min(field.find_first_of("_ ()/-[]", begin), field.size());
        std::string const word = Upper(field.substr(begin, end - begin));
        bool const hasDigit = std::any_of(word.begin(), word.end(), IsDigit);
        bool taken = false;
        if (viewed && (word == "2" || word == "10" || word == "2DEG" || word == "10DEG")) {
            result.viewing.SetAttribute(Key::Observer, word.starts_with("2") ? "TwoDegree" : "TenDegree");
            taken = true;
        } else if (hasDigit && word.size() > 1 && !IsDigit(word.front())) {
            try {
                if (auto const illuminant = Tristim::FindIlluminant(word)) {
                    for (auto const& [key, value] : illuminant->GetAll())
                        result.viewing.SetAttribute(key, value);
                    taken = viewed = true;
                }
            } catch (Tristim::TristimException const&) {
                // A lamp without a table: the field stays what it is, and is reported.
            }
        }
        if (taken)
            result.view += word + " ";
        else
            kept += field.substr(begin, end - begin);
        begin = end + 1;
    }
    kept.erase(std::remove(kept.begin(), kept.end(), '*'), kept.end());
    // The degree sign of a hue angle, in UTF-8 or not.
    for (std::string_view const degree : {"\xC2\xB0", "\xB0"})
        if (kept.ends_with(degree)) kept.resize(kept.size() - degree.size());
    // X10, Y10, Z10 and so on are of the 10 degree observer.
    if (kept.size() == 3 && kept.ends_with("10") &&
        std::string_view("XYZxyLab").find(kept.front()) != std::string_view::npos) {
        result.viewing.SetAttribute(Key::Observer, "TenDegree");
        result.view += "10 ";
        kept.resize(1);
    }
    result.name = kept.size() > 1 ? Upper(kept) : kept;
    return result;
}

/// Whether a field that wasn't understood was meant as a spectrum or a colour.
bool LooksMeant(std::string_view field, std::string const& name) {
    for (std::string_view const start :
         {"LAB", "XYZ", "LCH", "XYY", "LUV", "CIE", "HUNTER", "SPECTRAL", "SPEC", "RGB", "CMYK"})
        if (name.starts_with(start)) return true;
    if (name.size() == 1 && std::string_view("LabABXYZxyzCHh").find(name) != std::string_view::npos)
        return true;
    // A number at the end or the start that can be a wavelength.
    for (bool const atEnd : {true, false}) {
        std::size_t count = 0;
        while (count < field.size() && IsDigit(atEnd ? field[field.size() - 1 - count] : field[count]))
            ++count;
        if (count != 3 || count == field.size()) continue;
        std::string_view const digits = atEnd ? field.substr(field.size() - 3) : field.substr(0, 3);
        if (digits >= "340" && digits <= "830" && digits.back() == '0') return true;
    }
    return false;
}

/// Fields R1 to R36 may be bands whose wavelengths only their writer knows: at least as many numbered fields
/// with one beginning as a spectrum has bands, at its fewest.
std::set<std::string> NumberedSeries(std::vector<std::string> const& names) {
    constexpr int fewest = 16;
    std::map<std::string, int> counts;
    std::set<std::string> series;
    for (std::string const& name : names) {
        auto const end = name.find_last_not_of("0123456789");
        if (end == std::string::npos || end + 1 == name.size()) continue;
        std::string const beginning = name.substr(0, end + 1);
        if (++counts[beginning] == fewest) series.insert(beginning);
    }
    return series;
}

/// Finds the colours among the fields, those of one illuminant after the other.
void FindColours(CgatsLayout& layout, std::vector<CgatsToken> const& fields, std::vector<bool>& used,
                 std::vector<ColourField> const& colourFields, CgatsScanner const& scanner) {
    std::vector<std::string> views;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (!used[i] && std::find(views.begin(), views.end(), colourFields[i].view) == views.end())
            views.push_back(colourFields[i].view);
    std::vector<bool> const before = used;
    for (std::string const& view : views) {
        std::set<std::string_view> spaces;
        for (Spelling const& spelling : kSpellings) {
            if (spaces.contains(spelling.space)) continue;
            std::vector<std::size_t> found;
            std::size_t wanted = 0;
            for (char const* const name : spelling.fields) {
                if (!name) continue;
                ++wanted;
                std::optional<std::size_t> place;
                for (std::size_t i = 0; i < fields.size(); ++i) {
                    // The lightness of L*a*b* is that of LCh; nothing else belongs to two colours.
                    bool const taken = before[i] || (used[i] && std::string_view(name) != "LABL");
                    if (taken || colourFields[i].view != view || colourFields[i].name != name) continue;
                    if (place)
                        scanner.Fail(fields[i], "the fields " + fields[*place].Unquoted() + " and " +
                                                    fields[i].Unquoted() + " mean the same");
                    place = i;
                }
                if (place) found.push_back(*place);
            }
            if (found.size() != wanted) continue;
            auto const kind = std::find_if(CgatsColours().begin(), CgatsColours().end(),
                                           [&spelling](CgatsColour const& one) {
                                               return std::string_view(one.space) == spelling.space;
                                           });
            spaces.insert(spelling.space);
            for (std::size_t const field : found) used[field] = true;
            Conditions const viewing = colourFields[found.front()].viewing;
            layout.colours.push_back({&*kind, std::move(found), viewing});
        }
    }
}

} // namespace

std::vector<CgatsColour> const& CgatsColours() {
    static std::vector<CgatsColour> const colours{
        {"CIEXYZ", {"XYZ_X", "XYZ_Y", "XYZ_Z", nullptr}, false},
        {"CIELab", {"LAB_L", "LAB_A", "LAB_B", nullptr}, false},
        {"CIELCh", {"LCH_L", "LCH_C", "LCH_H", nullptr}, false},
        {"CIExyY", {"XYY_X", "XYY_Y", "XYY_CAPY", nullptr}, false},
        {"CIELuv", {"LUV_L", "LUV_U", "LUV_V", nullptr}, false},
        {"CMYK", {"CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K"}, true},
        {"RGB", {"RGB_R", "RGB_G", "RGB_B", nullptr}, true},
    };
    return colours;
}

bool HasLightness(std::string_view space) {
    return space == "CIELab" || space == "CIELCh" || space == "CIELuv";
}

std::string WhyNoSurface(std::string_view space, std::span<double const> values) {
    // With room for noise below black and for fluorescence.
    constexpr double lowest = -20;
    constexpr double highest = 200;
    if (!HasLightness(space)) return {};
    if (values[0] < lowest || values[0] > highest)
        return "no surface has the lightness " + Tristim::Numbers::Shortest(values[0]);
    return space == "CIELCh" && values[1] < 0 ? "the chroma is negative" : "";
}

std::optional<CgatsBand> CgatsBandOf(std::string_view field) {
    struct Prefix {
        std::string_view name;
        double scale;
        bool transmission;
    };
    static constexpr std::array<Prefix, 33> prefixes{{
        {"", 0, false},
        {"SPECTRAL", 0, false},
        {"SPECTRALNM", 0, false},
        {"SPECTRALPCT", 100, false},
        {"SPECTRALDEC", 1, false},
        {"SPECTRALREFL", 0, false},
        {"SPECTRALR", 0, false},
        {"SPECTRUM", 0, false},
        {"SPEC", 0, false},
        {"SPECNM", 0, false},
        {"SPECPCT", 100, false},
        {"SPECTRALREFLECTANCE", 0, false},
        {"NM", 0, false},
        {"R", 0, false},
        {"S", 0, false},
        {"RPCT", 100, false},
        {"REFL", 0, false},
        {"REFLECTANCE", 0, false},
        {"REFLPCT", 100, false},
        {"REF", 0, false},
        {"REFLECT", 0, false},
        {"REFLECTIVITY", 0, false},
        {"SPC", 0, false},
        {"SPECTR", 0, false},
        {"SPECTRALVAL", 0, false},
        {"SPECTRALVALUE", 0, false},
        {"RHO", 0, false},
        {"LAMBDA", 0, false},
        {"WL", 0, false},
        {"WAVELENGTH", 0, false},
        {"T", 0, true},
        {"TRANS", 0, true},
        {"TRANSMITTANCE", 0, true},
    }};
    std::string const upper = Upper(field);
    auto const digits = upper.find_first_of("0123456789");
    if (digits == std::string::npos) return std::nullopt;
    auto const after = std::min(upper.find_first_not_of("0123456789.", digits), upper.size());
    auto const plain = [](std::string_view text) {
        std::string result;
        for (char const c : text)
            if (std::string_view("_ ()[]{}-:@%").find(c) == std::string_view::npos) result += c;
        return result;
    };
    std::string const suffix = plain(std::string_view(upper).substr(after));
    if (!suffix.empty() && suffix != "NM" && suffix != "R" && suffix != "NMR") return std::nullopt;
    std::string const name = plain(std::string_view(upper).substr(0, digits));
    auto const prefix = std::find_if(prefixes.begin(), prefixes.end(),
                                     [&name](Prefix const& one) { return one.name == name; });
    if (prefix == prefixes.end()) return std::nullopt;
    CgatsBand band{};
    std::string_view const number = std::string_view(upper).substr(digits, after - digits);
    if (!Tristim::Numbers::Parse(number, band.wavelength)) return std::nullopt;
    bool const plausible = name.size() > 1
                               ? band.wavelength >= kLowestWavelength && band.wavelength <= kHighestWavelength
                               : band.wavelength >= 300 && band.wavelength <= 1200;
    if (!plausible) return std::nullopt;
    if (prefix->scale > 0) band.scale = prefix->scale;
    if (upper.find('%') != std::string::npos) band.scale = 100;
    band.transmission = prefix->transmission;
    return band;
}

CgatsLayout MakeCgatsLayout(CgatsScanner const& scanner, std::vector<CgatsToken> const& fields,
                            std::optional<double> start, std::optional<double> end) {
    CgatsLayout layout;
    std::map<std::string, std::size_t, std::less<>> places;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        layout.names.push_back(fields[i].Unquoted());
        if (!places.emplace(fields[i].text, i).second)
            scanner.Fail(fields[i],
                         "the field " + layout.names.back() + " is given twice in the data format");
    }
    std::vector<bool> used(fields.size(), false);
    auto const take = [&](std::string_view name) -> std::optional<std::size_t> {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (used[i] || PlainName(fields[i].text) != name) continue;
            used[i] = true;
            return i;
        }
        return std::nullopt;
    };
    layout.id = take("SAMPLEID");
    layout.name = take("SAMPLENAME");
    layout.description = take(PlainName(kCgatsDescription));
    std::vector<Band> bands;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (used[i]) continue;
        auto const band = CgatsBandOf(layout.names[i]);
        if (!band) continue;
        if (!bands.empty() && layout.scale != band->scale)
            scanner.Fail(fields[i], "the bands " + layout.names[bands.front().field] + " and " +
                                        layout.names[i] + " have different scales");
        layout.scale = band->scale;
        layout.transmission = band->transmission;
        bands.push_back({band->wavelength, i});
        used[i] = true;
    }
    SetGrid(layout, std::move(bands), scanner, fields, start, end);
    std::vector<ColourField> colourFields;
    for (std::size_t i = 0; i < fields.size(); ++i)
        colourFields.push_back(used[i] ? ColourField() : ColourFieldOf(layout.names[i]));
    FindColours(layout, fields, used, colourFields, scanner);
    std::set<std::string> const series = NumberedSeries(layout.names);
    auto const numbered = [&series](std::string const& name) {
        return series.contains(name.substr(0, name.find_last_not_of("0123456789") + 1));
    };
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (used[i]) continue;
        layout.others.push_back(i);
        if (numbered(layout.names[i]) || LooksMeant(layout.names[i], colourFields[i].name))
            layout.suspicious.push_back(i);
    }
    return layout;
}

} // namespace Norvelian::ColorExchangeFormat
