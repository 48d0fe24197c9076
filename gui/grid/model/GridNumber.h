#pragma once

#include "core/base/String.h"

#include <optional>

namespace GUI {

/// The number that a cell's text is; none if it is anything else. Blanks around it, a true minus (U+2212) and
/// exponents are allowed; besides "." the decimal sign may be the given one.
std::optional<double> ReadGridNumber(Utilities::String const& text, char decimalSign = '.');

/// A number's text with another decimal sign and, for the screen, a true minus. A text that is no number
/// stays.
Utilities::String ShowGridNumber(Utilities::String const& text, char decimalSign, bool trueMinus);

/// The text under which a number that the user typed or pasted is kept: with "." and "-", the digits as they
/// are. A text that is no number stays.
Utilities::String KeepGridNumber(Utilities::String const& typed, char decimalSign);

} // namespace GUI
