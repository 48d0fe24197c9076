#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace GUI {

/// What a colour is for. A theme has one colour for each, and a description names it as in the comment.
enum class ThemeRole : std::uint8_t {
    None,         ///< the colour is what it is in every theme
    Window,       ///< "window": behind panels
    Panel,        ///< "panel": charts, grids
    Header,       ///< "header": bars, heads
    Surround,     ///< "surround": around colours
    Field,        ///< "field": inputs, tips
    Line,         ///< "line": dividers
    Border,       ///< "border": control outlines
    Ink,          ///< "ink": text, data
    Ink2,         ///< "ink2": captions, ticks
    Ink3,         ///< "ink3": disabled
    Grid,         ///< "grid": chart grid
    GridSurround, ///< "gridSurround": grid on surround
    Axis,         ///< "axis": axes, ticks
    Band,         ///< "band": tolerance band
    Standard,     ///< "standard": standard's curve
    Accent,       ///< "accent": rule 6
    AccentInk,    ///< "accentInk": on accent
    Pass,         ///< "pass": sign
    PassInk,      ///< "passInk": on pass
    Warn,         ///< "warn": sign
    WarnInk,      ///< "warnInk": on warn
    Fail,         ///< "fail": sign
    FailInk,      ///< "failInk": on fail
    Nodata,       ///< "nodata": ring
};

inline constexpr int themeRoleCount = 25;

/// The role of that name; none for a text that is no name of a role.
std::optional<ThemeRole> FindThemeRole(std::string_view name);

} // namespace GUI
