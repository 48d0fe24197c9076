#pragma once

#include "gui/elements/colour/RGBVector.h"

#include <QColor>

namespace GUI {

inline QColor ToColor(RGBVector const& color) { return {color.GetRed(), color.GetGreen(), color.GetBlue()}; }

} // namespace GUI
