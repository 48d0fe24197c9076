#include "cxf/files/CgatsFields.h"

#include "cxf/conditions/Numbers.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

namespace {

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
std::string Upper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char c) { return Upper(c); });
    return result;
}

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

std::optional<double> CgatsWavelength(std::string_view field) {
    std::string const upper = Upper(field);
    std::string_view rest = upper;
    for (std::string_view const prefix :
         {"SPECTRAL_NM_", "SPECTRAL_NM", "SPECTRAL_", "SPEC_", "SPEC", "NM_", "NM", "R_"})
        if (rest.starts_with(prefix)) {
            rest.remove_prefix(prefix.size());
            break;
        }
    for (std::string_view const suffix : {"_NM", "NM"})
        if (rest.ends_with(suffix)) {
            rest.remove_suffix(suffix.size());
            break;
        }
    double wavelength = 0;
    if (rest.empty() || rest.front() < '0' || rest.front() > '9' || rest.find('E') != std::string_view::npos)
        return std::nullopt;
    if (!Tristim::Numbers::Parse(rest, wavelength) || wavelength < 100 || wavelength > 3000)
        return std::nullopt;
    return wavelength;
}

CgatsLayout MakeCgatsLayout(CgatsScanner const& scanner, std::vector<CgatsToken> const& fields,
                            std::optional<double> start, std::optional<double> end) {
    CgatsLayout layout;
    std::map<std::string, std::size_t, std::less<>> places;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        layout.names.push_back(fields[i].Unquoted());
        if (!places.emplace(Upper(fields[i].text), i).second)
            scanner.Fail(fields[i], "the field " + layout.names.back() + " stands twice in the data format");
    }
    std::vector<bool> used(fields.size(), false);
    auto const take = [&](std::string_view name) -> std::optional<std::size_t> {
        auto const found = places.find(name);
        if (found == places.end()) return std::nullopt;
        used[found->second] = true;
        return found->second;
    };
    layout.id = take("SAMPLE_ID");
    layout.name = take("SAMPLE_NAME");
    layout.description = take(kCgatsDescription);
    for (CgatsColour const& colour : CgatsColours()) {
        std::vector<std::size_t> found;
        std::size_t wanted = 0;
        for (char const* const field : colour.fields) {
            if (!field) continue;
            ++wanted;
            if (auto const place = places.find(field); place != places.end()) found.push_back(place->second);
        }
        if (found.size() != wanted) continue;
        for (std::size_t const field : found) used[field] = true;
        layout.colours.push_back({&colour, std::move(found)});
    }
    std::vector<Band> bands;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (used[i]) continue;
        if (auto const wavelength = CgatsWavelength(fields[i].text))
            bands.push_back({*wavelength, i});
        else
            layout.others.push_back(i);
    }
    SetGrid(layout, std::move(bands), scanner, fields, start, end);
    return layout;
}

} // namespace Norvelian::ColorExchangeFormat
