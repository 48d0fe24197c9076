#pragma once

#include "cxf/colorimetry/ColorSpaces.h"

/// Spaces in which a distance is a colour difference.
namespace Norvelian::Tristim {

/// The forms of DIN99: that of DIN 6176:2001; its refinements b, c and d (Cui, Luo, Rigg, Roesler, Witt,
/// Color Res. Appl. 27 (2002) 282); o, DIN 6176:2018.
enum class Din99 { Din99, B, C, D, O };

/// L99, a99, b99 from L*a*b*, with kE and kCH of 1. C and D are defined on L*a*b* of a changed X; the
/// overload for tristimulus values changes it: X' = 1.1 X - 0.1 Z for C, 1.12 X - 0.12 Z for D, of colour and
/// white.
Lab Din99Of(Lab const& lab, Din99 form);
Lab Din99Of(XYZ const& xyz, XYZ const& white, Din99 form);

/// How a colour is looked at, for CAM16: an average surround always.
struct Cam16Viewing {
    double adaptingLuminance = 63.66; ///< cd/m2; 1000 lx on a background of 20 percent
    double background = 20;           ///< Y of the background
};
/// J', a', b' of CAM16-UCS (Li, Li, Wang and others, Color Res. Appl. 42 (2017) 703), adaptation incomplete
/// as the viewing conditions make it.
Lab Cam16UcsOf(XYZ const& xyz, XYZ const& white, Cam16Viewing const& viewing = {});

} // namespace Norvelian::Tristim
