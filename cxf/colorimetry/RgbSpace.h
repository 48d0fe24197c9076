#pragma once

#include "cxf/colorimetry/ColorSpaces.h"

namespace Norvelian::Tristim {

/// sRGB (IEC 61966-2-1) on the scale 0 .. 255, without clipping, from colours under any white.
Elements4 RgbOf(XYZ const& xyz, XYZ const& white);
XYZ XYZOfRgb(Elements4 const& rgb, XYZ const& white);

/// Full black generation, in percent.
Elements4 CmykOf(Elements4 const& rgb);
Elements4 RgbOfCmyk(Elements4 const& cmyk);

} // namespace Norvelian::Tristim
