#pragma once

#include <optional>
#include <string>

namespace GUI {

/// Which numbers a field takes.
struct NumberRule {
    double minimum = -1e300;
    double maximum = 1e300;
    /// Most digits behind the decimal sign.
    long decimals = 6;

    /// The number in what the user typed, with "." as its decimal sign and "-" as its minus; nothing for a
    /// text that isn't a number, is outside the range or has too many decimals. `decimalSign` is that of the
    /// user's language; "." is taken too. Blanks around the number, a true minus (U+2212) and a plus are
    /// allowed, separators of groups and exponents aren't.
    std::optional<std::string> Read(std::string const& typed, std::string const& decimalSign) const;
};

} // namespace GUI
