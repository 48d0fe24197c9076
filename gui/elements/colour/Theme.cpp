#include "gui/elements/colour/Theme.h"

#include <algorithm>
#include <string>

namespace GUI {

using Utilities::String;

namespace {

/// A role's name and its colours, as 24 bits of red, green and blue.
struct Row {
    std::string_view name;
    std::uint32_t colors[4];
};

constexpr std::string_view themeNames[] = {"Light", "Dark", "Report", "Line"};
constexpr std::size_t reportTheme = 2;

/// In the order of `ThemeRole`. Texts keep a contrast of 4.5 to 1 to what is behind them, outlines 3 to 1.
constexpr Row rows[] = {
    {"", {0, 0, 0, 0}},
    {"window", {0xEBEBEB, 0x202020, 0xFFFFFF, 0x101010}},
    {"panel", {0xF7F7F7, 0x2B2B2B, 0xFFFFFF, 0x1C1C1C}},
    {"header", {0xE0E0E0, 0x343434, 0xF2F2F2, 0x262626}},
    {"surround", {0xC6C6C6, 0x464646, 0xC6C6C6, 0x464646}},
    {"field", {0xFFFFFF, 0x181818, 0xFFFFFF, 0x000000}},
    {"line", {0xCFCFCF, 0x454545, 0xBFBFBF, 0x3A3A3A}},
    {"border", {0x7A7A7A, 0x8F8F8F, 0x000000, 0xB0B0B0}},
    {"ink", {0x161616, 0xF0F0F0, 0x000000, 0xFFFFFF}},
    {"ink2", {0x4A4A4A, 0xBDBDBD, 0x404040, 0xD0D0D0}},
    {"ink3", {0x8C8C8C, 0x787878, 0x808080, 0x808080}},
    {"grid", {0xDEDEDE, 0x3D3D3D, 0xE0E0E0, 0x333333}},
    {"gridSurround", {0xB4B4B4, 0x585858, 0xB4B4B4, 0x585858}},
    {"axis", {0x5C5C5C, 0xA6A6A6, 0x404040, 0xB0B0B0}},
    {"band", {0xE4E4E4, 0x3A3A3A, 0xEDEDED, 0x303030}},
    {"standard", {0xA8A8A8, 0x6E6E6E, 0xA8A8A8, 0x6E6E6E}},
    {"accent", {0x1D5FA6, 0x7DB4F0, 0x000000, 0x7DB4F0}},
    {"accentInk", {0xFFFFFF, 0x0F0F0F, 0xFFFFFF, 0x0F0F0F}},
    {"pass", {0x00695C, 0x4FBFAD, 0x00695C, 0x007567}},
    {"passInk", {0xFFFFFF, 0x0F0F0F, 0xFFFFFF, 0xFFFFFF}},
    {"warn", {0xE0A100, 0xF0C24B, 0xE0A100, 0xF0C24B}},
    {"warnInk", {0x161616, 0x0F0F0F, 0x161616, 0x0F0F0F}},
    {"fail", {0xB3261E, 0xFF7B6E, 0xB3261E, 0xC62828}},
    {"failInk", {0xFFFFFF, 0x0F0F0F, 0xFFFFFF, 0xFFFFFF}},
    {"nodata", {0x6B6B6B, 0x9A9A9A, 0x6B6B6B, 0x9A9A9A}},
};
static_assert(std::size(rows) == themeRoleCount);

RGBVector ToColor(std::uint32_t bits) {
    return {static_cast<unsigned char>(bits >> 16), static_cast<unsigned char>(bits >> 8),
            static_cast<unsigned char>(bits)};
}

} // namespace

std::optional<ThemeRole> FindThemeRole(std::string_view name) {
    auto const* const found = std::find_if(std::begin(rows) + 1, std::end(rows),
                                           [name](Row const& row) { return row.name == name; });
    if (found == std::end(rows)) return {};
    return static_cast<ThemeRole>(found - std::begin(rows));
}

RGBVector Themed(ThemeRole role) { return {role, ToColor(rows[static_cast<std::size_t>(role)].colors[0])}; }

std::optional<Theme> Theme::Find(String const& name) {
    auto const* const found =
        std::find(std::begin(themeNames), std::end(themeNames), std::string_view(name.GetStdString()));
    if (found == std::end(themeNames)) return {};
    return Theme(static_cast<std::size_t>(found - std::begin(themeNames)));
}

Theme::Theme(std::size_t index) : name_(std::string(themeNames[index])), wideLines_(index == reportTheme) {
    std::transform(std::begin(rows), std::end(rows), colors_.begin(),
                   [index](Row const& row) { return ToColor(row.colors[index]); });
}

} // namespace GUI
