#pragma once

#include "core/base/String.h"

#include <functional>

namespace GUI {

/// Shortens a text until it fits a width: an adapter is asked for as many characters as should fit, and
/// for one fewer at each of at most three passes. A text that fits, and an empty one, stay as they are.
///
/// `measure` gives a text's width in pixels; `adapt` shortens a text to a number of characters.
Utilities::String
AdaptText(Utilities::String const& text, long clientWidth,
          std::function<long(Utilities::String const&)> const& measure,
          std::function<Utilities::String(Utilities::String const&, unsigned long)> const& adapt);

} // namespace GUI
