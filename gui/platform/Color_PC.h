#pragma once

#include "gui/elements/colour/RGBVector.h"

#include <QColor>
#include <cstdint>

namespace GUI {

inline QColor ToColor(RGBVector const& color) { return {color.GetRed(), color.GetGreen(), color.GetBlue()}; }
inline std::uint32_t ToPixel(RGBVector const& color) {
    return qRgb(color.GetRed(), color.GetGreen(), color.GetBlue());
}

} // namespace GUI
