#pragma once

#include "cxf/conditions/Viewing.h"

#include <array>

/// The colour spaces of the vocabulary, from tristimulus values and back, in double.
///
/// Every space is defined for every finite tristimulus value. Where a published formula ends (a ratio
/// that isn't positive, a division by zero) the continuation is:
///  - CIELab, CIELuv and their polar forms: the linear branch of the CIE function goes on below zero.
///  - Chromaticities: if the denominator is zero, the chromaticity of the white. Way back from y or v of
///    zero: X and Z are zero.
///  - CIELuv: u* and v* are zero where L is; way back from L = 0: black.
///  - HunterLab: the square root is odd, sign(t) sqrt(|t|); a and b are zero where Y is.
///  - LABmg: the value function is odd, and continues as its tangent above 100.
///  - RGB: the transfer function is odd and not clipped. CMYK: see below.
/// A way there and back gives the tristimulus values again within 1e-9 relative wherever the space keeps
/// them (Y above zero; for CMYK, not black).
///
/// Definitions with more than one published form:
///  - LABmg: Adams-Nickerson colour space L = 9.2 V(Y), a = 40 (V(X) - V(Y)), b = 16 (V(Y) - V(Z)), of the
///    percentages of the white, with the Munsell-Godlove value function V = sqrt(1.4742 t - 0.004743 t^2)
///    (Munsell, Sloan, Godlove, J. Opt. Soc. Am. 23 (1933) 394; Nickerson, Stultz, J. Opt. Soc. Am. 34
///    (1944) 550). LCHmg is its polar form.
///  - RxRyRz: reflectance factors of tristimulus-filter instruments (DIN 53145, ISO 2469): Ry = Y,
///    Rz = 100 Z / Zn, X = a Rx + b Rz with a + b = Xn / 100, where a belongs to the long-wave lobe of
///    x bar. The share of a is summed from the weights' own 1 nm data (C, 2 degrees: a 0.783, b 0.198).
///  - RGB: sRGB, IEC 61966-2-1, scaled to 0 .. 255, after linear Bradford adaptation to D65.
///  - CMYK: from that RGB by full black generation, in percent: K = 1 - max(R, G, B),
///    C = (max - R) / max, and so on; C, M, Y are zero where max is. A press's own CMYK is a measured or
///    profiled thing and not this.
///  - HunterLab: K_a = 175 sqrt(Xn / 98.043), K_b = 70 sqrt(Zn / 118.115) (Hunter 1966), which gives the
///    published factors 172.30, 67.20 of D65 and 185.20, 38.40 of A; the other published form, linear in Xn
///    and Zn, doesn't give those of A.
namespace Norvelian::Tristim {

/// In the order of the vocabulary's table.
enum class ColorSpace {
    CIELab,
    CIELCh,
    CIELuv,
    CIELChuv,
    CIEuvY1960,
    CIEuvY1976,
    CIEXYZ,
    CIExyY,
    HunterLab,
    RxRyRz,
    LABmg,
    LCHmg,
    RGB,
    CMYK
};

struct Lab {
    double l = 0;
    double a = 0;
    double b = 0;
};

/// What a space needs to know of the light: its white, and the long-wave share of Xn for RxRyRz.
struct Reference {
    XYZ white;
    double longShare;
};

/// Up to four elements; the last is zero but for CMYK.
using Elements4 = std::array<double, 4>;

constexpr std::size_t ElementCount(ColorSpace space) { return space == ColorSpace::CMYK ? 4 : 3; }

Elements4 FromXYZ(ColorSpace space, XYZ const& xyz, Reference const& reference);
XYZ ToXYZ(ColorSpace space, Elements4 const& elements, Reference const& reference);

/// Second minus first, element by element; in polar spaces the last element is the hue difference
/// 2 sqrt(C1 C2) sin(dh / 2), and in the uvY spaces it is the difference of L*.
Elements4 Difference(ColorSpace space, Elements4 const& first, Elements4 const& second,
                     Reference const& reference);

/// CIE 1976 L*a*b*, and L*u*v* as {L, u*, v*}.
Lab LabOf(XYZ const& xyz, XYZ const& white);
XYZ XYZOf(Lab const& lab, XYZ const& white);
Lab LuvOf(XYZ const& xyz, XYZ const& white);

/// CIE 1976 lightness of a ratio Y / Yn.
double Lightness(double ratio);

} // namespace Norvelian::Tristim
