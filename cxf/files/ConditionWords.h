#pragma once

#include "cxf/samples/Conditions.h"

#include <string>
#include <string_view>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// The conditions that the words of a header's value name, and the words that name none.
///
/// Words are separated by blanks and punctuation; capitals don't count. Understood are illuminants
/// (`IlluminantNames.h`), observers ("2", "10deg", "10°", "CIE 1964", "TenDegree"), both together ("D65/10",
/// "D65_10"), M0 to M3, polarisers and ultraviolet cut, geometries ("45/0", "d/8 SCI"), backings, spectrum
/// types and white bases. What a keyword doesn't speak of isn't looked for in its value.
struct ConditionWords {
    enum About : unsigned {
        Illuminant = 1,
        Observer = 2,
        Filter = 4,
        Geometry = 8,
        Backing = 16,
        WhiteBase = 32,
        SpectrumType = 64,
        Polarisation = 128 ///< "yes" and "no" tell the filter
    };

    Conditions found;
    std::vector<std::string> unknown;

    /// Throws `TristimException` for a light without a table and for two values of one condition.
    /// With `loose` the text is someone's sentence: only words that can't mean anything else are taken, and
    /// nothing is where a "no" or "without" is.
    static ConditionWords Parse(std::string_view value, unsigned about, bool loose);
};

/// Throws `TristimException` if a condition of the vocabulary has a value that isn't one of its own. Keys
/// that the vocabulary doesn't have, and those with free values, pass.
void RequireKnownValue(std::string const& key, std::string const& value);

/// Whether a value says that there is nothing to say: empty, "unknown", "n/a", "-".
bool SaysNothing(std::string_view value);

/// A name without blanks, hyphens and underscores, in capitals.
std::string PlainName(std::string_view name);

} // namespace Norvelian::ColorExchangeFormat
