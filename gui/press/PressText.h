#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <utility>

namespace Ostrinda {

/// Width and height in the selected font.
std::pair<long, long> ExtentOf(GUI::PlatformIndependentDeviceContext& context, Utilities::String const& text);

/// The text as long as it fits a width in the selected font, and else as the component "TextAdapter" shortens
/// it. Without that component it stays whole.
Utilities::String Shortened(GUI::PlatformIndependentDeviceContext& context, Utilities::String const& text,
                            long width);

/// Black or white, whichever can be read on a colour: white up to sqrt(r r + g g + b b / 3) = 224, with
/// blue's share cut to a whole number.
GUI::RGBVector InkOn(GUI::RGBVector const& ground);

} // namespace Ostrinda
