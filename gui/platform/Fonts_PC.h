#pragma once

#include "core/base/String.h"

#include <QFont>

namespace GUI {

/// The font for a contracted request: a positive height is in points at 96 pixels an inch, at least 8, and a
/// negative one in pixels; width 0 for the face's own, else the average character's in pixels. A face that
/// isn't installed is substituted. `style` is that of `PlatformIndependentDeviceContext::SetFont`. The
/// reference stays good for the life of the process.
QFont const& FindFont(short height, short width, Utilities::String const& face, int style);

} // namespace GUI
