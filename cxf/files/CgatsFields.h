#pragma once

#include "cxf/files/CgatsScanner.h"
#include "cxf/samples/Conditions.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// A colour that a table gives by one field for each component.
struct CgatsColour {
    char const* space; ///< as in the vocabulary
    std::array<char const*, 4> fields;
    bool device; ///< ink or screen amounts, which have no viewing conditions
};

/// The colours that are understood, by the fields that this library writes: XYZ_X ..., LAB_L ..., LCH, XYY,
/// LUV, CMYK, RGB.
std::vector<CgatsColour> const& CgatsColours();

/// The band that a spectral field's name tells.
struct CgatsBand {
    double wavelength;           ///< nm
    std::optional<double> scale; ///< 100 or 1 where the name says percent or decimal
    bool transmission = false;   ///< the name says so
};

/// What the fields of one table mean. A field is a position in the table's data format.
struct CgatsLayout {
    struct Colour {
        CgatsColour const* kind;
        std::vector<std::size_t> fields; ///< one for each component
        Conditions viewing;              ///< illuminant and observer that the names tell
    };

    std::vector<std::string> names;
    std::optional<std::size_t> id;
    std::optional<std::size_t> name;
    std::optional<std::size_t> description;
    std::vector<std::size_t> bands; ///< the fields of the spectrum, by rising wavelength
    double first = 0;               ///< nm
    double step = 0;                ///< nm
    std::optional<double> scale;    ///< as the names of the bands tell
    bool transmission = false;
    std::vector<Colour> colours;
    std::vector<std::size_t> others;     ///< kept as text
    std::vector<std::size_t> suspicious; ///< among these, what looks like a spectrum or a colour
};

/// The band of a field such as SPECTRAL_NM380, SPECTRAL_380, SPECTRAL_PCT380, REFL_380, R380, S380, nm380,
/// 380_NM, "R(380)" or 380, capitals or not. Nothing for other names.
std::optional<CgatsBand> CgatsBandOf(std::string_view field);

/// Sorts out the fields of a table. `start` and `end` are the header's SPECTRAL_START_NM and SPECTRAL_END_NM,
/// which tell the exact wavelengths where names are rounded (a step of 3.33 nm). A colour's fields may carry
/// its illuminant and observer: "LAB_L_D65", "D50_XYZ_X", "L*(F11/10)". Fails at a field that is given twice,
/// at bands that disagree on their scale, and at wavelengths that aren't evenly spaced.
CgatsLayout MakeCgatsLayout(CgatsScanner const& scanner, std::vector<CgatsToken> const& fields,
                            std::optional<double> start, std::optional<double> end);

/// Whether the first component of a space is L*.
bool HasLightness(std::string_view space);
/// Why no surface has a colour of such a space, by its first two components: a shifted column, or another
/// scale. Empty for one that may be.
std::string WhyNoSurface(std::string_view space, std::span<double const> values);

/// Wavelengths in nm that a field's name can tell.
inline constexpr double kLowestWavelength = 100;
inline constexpr double kHighestWavelength = 3000;

/// The description field's name when this library writes it.
inline constexpr char const* kCgatsDescription = "SAMPLE_DESCRIPTION";

} // namespace Norvelian::ColorExchangeFormat
