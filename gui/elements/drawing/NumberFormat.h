#pragma once

#include "core/base/String.h"

#include <optional>

namespace GUI {

/// How a number is written for people: on screens and in reports. What goes to data sources, the clipboard
/// and files is written by `String` instead, with "-" and ".".
///
/// A negative number has a true minus sign, before what rounds to zero there is none; the decimal sign is
/// that of the language: what its translation of "0.0" has between the zeros.
struct NumberFormat {
    short decimals = 2;
    /// A plus sign before what is above zero, as in differences.
    bool isSigned = false;
    char const* unit = "";

    /// By what the number is: "Lab", "DeltaE" and "Density" (2 decimals), "Difference" (2, signed), "Hue" (1,
    /// with a degree sign), "Reflectance" (4), "Wavelength" (0). None for another name.
    static std::optional<NumberFormat> Find(Utilities::String const& quantity);

    /// An en dash for what is no number or infinite: a missing value is never 0.
    Utilities::String Write(double value) const;
};

} // namespace GUI
