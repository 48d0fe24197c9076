#pragma once

#include "cxf/files/CgatsScanner.h"

#include <array>
#include <cstddef>
#include <optional>
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

/// The colour fields that are understood: XYZ_X ..., LAB_L ..., LCH, XYY, LUV, CMYK, RGB.
std::vector<CgatsColour> const& CgatsColours();

/// What the fields of one table mean. A field is a position in the table's data format.
struct CgatsLayout {
    struct Colour {
        CgatsColour const* kind;
        std::vector<std::size_t> fields; ///< one for each component
    };

    std::vector<std::string> names;
    std::optional<std::size_t> id;
    std::optional<std::size_t> name;
    std::optional<std::size_t> description;
    std::vector<std::size_t> bands; ///< the fields of the spectrum, by rising wavelength
    double first = 0;               ///< nm
    double step = 0;                ///< nm
    std::vector<Colour> colours;
    std::vector<std::size_t> others; ///< kept as text
};

/// The wavelength in nm that a spectral field's name tells: SPECTRAL_NM380, SPECTRAL_NM_380, SPECTRAL_380,
/// SPEC_380, SPEC380, NM380, NM_380, 380_NM, 380NM, R_380, 380; capitals or not. Nothing for other names.
std::optional<double> CgatsWavelength(std::string_view field);

/// Sorts out the fields of a table. `bandsStated` etc. are the header's SPECTRAL_BANDS, SPECTRAL_START_NM
/// and SPECTRAL_END_NM, which tell the exact wavelengths where names are rounded (a step of 3.33 nm).
/// Fails at a field that stands twice, and at wavelengths that aren't evenly spaced.
CgatsLayout MakeCgatsLayout(CgatsScanner const& scanner, std::vector<CgatsToken> const& fields,
                            std::optional<double> start, std::optional<double> end);

/// The description field's name when this library writes it.
inline constexpr char const* kCgatsDescription = "SAMPLE_DESCRIPTION";

} // namespace Norvelian::ColorExchangeFormat
