#pragma once

#include "gui/elements/colour/ScreenRGB.h"

namespace GUI {

/// The way to the screen that the host's component "Model" has under "ScreenRGB"; null without one.
Utilities::SmartPointer<Tintorium::ScreenRGB> FindHostScreen();

} // namespace GUI
