#include "cxf/colorimetry/ColorSpaces.h"

#include "cxf/colorimetry/Adaptation.h"
#include "cxf/colorimetry/RgbSpace.h"

#include <cmath>

namespace Norvelian::Tristim {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kCubeLimit = 216.0 / 24389; // (6/29)^3
constexpr double kSlope = 841.0 / 108;
constexpr double kOffset = 4.0 / 29;

double LabFunction(double t) { return t > kCubeLimit ? std::cbrt(t) : kSlope * t + kOffset; }
double LabInverse(double f) { return f > 6.0 / 29 ? f * f * f : (f - kOffset) / kSlope; }

Elements4 Polar(Lab const& lab) {
    double hue = std::atan2(lab.b, lab.a) * (180 / kPi);
    if (hue < 0) hue += 360;
    return {lab.l, std::hypot(lab.a, lab.b), hue, 0};
}
Lab Cartesian(Elements4 const& polar) {
    double const hue = polar[2] * (kPi / 180);
    return {polar[0], polar[1] * std::cos(hue), polar[1] * std::sin(hue)};
}

/// u' and v' of 1976.
struct Chromaticity {
    double u;
    double v;
};
Chromaticity UniformOf(XYZ const& xyz, XYZ const& white) {
    double const sum = xyz.x + 15 * xyz.y + 3 * xyz.z;
    if (sum == 0) return UniformOf(white, white);
    return {4 * xyz.x / sum, 9 * xyz.y / sum};
}
XYZ FromUniform(double u, double v, double y) {
    if (v == 0) return {0, y, 0};
    return {y * 9 * u / (4 * v), y, y * (12 - 3 * u - 20 * v) / (4 * v)};
}

XYZ XYZOfLuv(Lab const& luv, XYZ const& white) {
    if (luv.l == 0) return {};
    Chromaticity const neutral = UniformOf(white, white);
    double const y = white.y * LabInverse((luv.l + 16) / 116);
    return FromUniform(neutral.u + luv.a / (13 * luv.l), neutral.v + luv.b / (13 * luv.l), y);
}

/// A power of one half that goes on below zero.
double OddRoot(double t) { return std::copysign(std::sqrt(std::abs(t)), t); }

struct HunterScale {
    double a;
    double b;
};
HunterScale HunterScaleOf(XYZ const& white) {
    return {175 * std::sqrt(white.x / 98.043), 70 * std::sqrt(white.z / 118.115)};
}
Lab HunterOf(XYZ const& xyz, XYZ const& white) {
    HunterScale const scale = HunterScaleOf(white);
    double const y = xyz.y / white.y;
    double const root = std::sqrt(std::abs(y));
    if (root == 0) return {};
    return {100 * OddRoot(y), scale.a * (xyz.x / white.x - y) / root, scale.b * (y - xyz.z / white.z) / root};
}
XYZ XYZOfHunter(Lab const& hunter, XYZ const& white) {
    HunterScale const scale = HunterScaleOf(white);
    double const root = std::abs(hunter.l) / 100;
    double const y = std::copysign(root * root, hunter.l);
    return {white.x * (y + hunter.a * root / scale.a), white.y * y,
            white.z * (y - hunter.b * root / scale.b)};
}

/// Munsell-Godlove value of a percentage; odd, and linear above 100.
constexpr double kGodlove1 = 1.4742;
constexpr double kGodlove2 = 0.004743;
double const kValueAt100 = std::sqrt(100 * kGodlove1 - 10000 * kGodlove2);
double const kValueSlope = (kGodlove1 - 200 * kGodlove2) / (2 * kValueAt100);
double ValueOf(double t) {
    double const size = std::abs(t);
    double const value = size <= 100 ? std::sqrt(size * (kGodlove1 - kGodlove2 * size))
                                     : kValueAt100 + kValueSlope * (size - 100);
    return std::copysign(value, t);
}
double PercentageOf(double value) {
    double const size = std::abs(value);
    double const square = size * size;
    double const t =
        size <= kValueAt100
            ? 2 * square / (kGodlove1 + std::sqrt(kGodlove1 * kGodlove1 - 4 * kGodlove2 * square))
            : 100 + (size - kValueAt100) / kValueSlope;
    return std::copysign(t, value);
}
Lab LabMgOf(XYZ const& xyz, XYZ const& white) {
    double const x = ValueOf(100 * xyz.x / white.x);
    double const y = ValueOf(100 * xyz.y / white.y);
    double const z = ValueOf(100 * xyz.z / white.z);
    return {9.2 * y, 40 * (x - y), 16 * (y - z)};
}
XYZ XYZOfLabMg(Lab const& lab, XYZ const& white) {
    double const y = lab.l / 9.2;
    return {white.x * PercentageOf(y + lab.a / 40) / 100, white.y * PercentageOf(y) / 100,
            white.z * PercentageOf(y - lab.b / 16) / 100};
}

Elements4 Three(Lab const& lab) { return {lab.l, lab.a, lab.b, 0}; }
Lab LabFrom(Elements4 const& elements) { return {elements[0], elements[1], elements[2]}; }

} // namespace

double Lightness(double ratio) { return 116 * LabFunction(ratio) - 16; }

Lab LabOf(XYZ const& xyz, XYZ const& white) {
    double const x = LabFunction(xyz.x / white.x);
    double const y = LabFunction(xyz.y / white.y);
    double const z = LabFunction(xyz.z / white.z);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

XYZ XYZOf(Lab const& lab, XYZ const& white) {
    double const y = (lab.l + 16) / 116;
    return {white.x * LabInverse(y + lab.a / 500), white.y * LabInverse(y),
            white.z * LabInverse(y - lab.b / 200)};
}

Lab LuvOf(XYZ const& xyz, XYZ const& white) {
    double const l = Lightness(xyz.y / white.y);
    Chromaticity const colour = UniformOf(xyz, white);
    Chromaticity const neutral = UniformOf(white, white);
    return {l, 13 * l * (colour.u - neutral.u), 13 * l * (colour.v - neutral.v)};
}

Elements4 FromXYZ(ColorSpace space, XYZ const& xyz, Reference const& reference) {
    XYZ const& white = reference.white;
    switch (space) {
    case ColorSpace::CIELab:
        return Three(LabOf(xyz, white));
    case ColorSpace::CIELCh:
        return Polar(LabOf(xyz, white));
    case ColorSpace::CIELuv:
        return Three(LuvOf(xyz, white));
    case ColorSpace::CIELChuv:
        return Polar(LuvOf(xyz, white));
    case ColorSpace::CIEuvY1960: {
        Chromaticity const colour = UniformOf(xyz, white);
        return {colour.u, colour.v * 2 / 3, xyz.y, 0};
    }
    case ColorSpace::CIEuvY1976: {
        Chromaticity const colour = UniformOf(xyz, white);
        return {colour.u, colour.v, xyz.y, 0};
    }
    case ColorSpace::CIEXYZ:
        return {xyz.x, xyz.y, xyz.z, 0};
    case ColorSpace::CIExyY: {
        double const sum = xyz.x + xyz.y + xyz.z;
        if (sum != 0) return {xyz.x / sum, xyz.y / sum, xyz.y, 0};
        double const neutral = white.x + white.y + white.z;
        return {white.x / neutral, white.y / neutral, xyz.y, 0};
    }
    case ColorSpace::HunterLab:
        return Three(HunterOf(xyz, white));
    case ColorSpace::RxRyRz: {
        double const rz = 100 * xyz.z / white.z;
        double const share = reference.longShare;
        return {(100 * xyz.x / white.x - (1 - share) * rz) / share, 100 * xyz.y / white.y, rz, 0};
    }
    case ColorSpace::LABmg:
        return Three(LabMgOf(xyz, white));
    case ColorSpace::LCHmg:
        return Polar(LabMgOf(xyz, white));
    case ColorSpace::RGB:
        return RgbOf(xyz, white);
    case ColorSpace::CMYK:
        return CmykOf(RgbOf(xyz, white));
    }
    return {};
}

XYZ ToXYZ(ColorSpace space, Elements4 const& e, Reference const& reference) {
    XYZ const& white = reference.white;
    switch (space) {
    case ColorSpace::CIELab:
        return XYZOf(LabFrom(e), white);
    case ColorSpace::CIELCh:
        return XYZOf(Cartesian(e), white);
    case ColorSpace::CIELuv:
        return XYZOfLuv(LabFrom(e), white);
    case ColorSpace::CIELChuv:
        return XYZOfLuv(Cartesian(e), white);
    case ColorSpace::CIEuvY1960:
        return FromUniform(e[0], e[1] * 3 / 2, e[2]);
    case ColorSpace::CIEuvY1976:
        return FromUniform(e[0], e[1], e[2]);
    case ColorSpace::CIEXYZ:
        return {e[0], e[1], e[2]};
    case ColorSpace::CIExyY:
        if (e[1] == 0) return {0, e[2], 0};
        return {e[2] * e[0] / e[1], e[2], e[2] * (1 - e[0] - e[1]) / e[1]};
    case ColorSpace::HunterLab:
        return XYZOfHunter(LabFrom(e), white);
    case ColorSpace::RxRyRz: {
        double const share = reference.longShare;
        return {white.x * (share * e[0] + (1 - share) * e[2]) / 100, white.y * e[1] / 100,
                white.z * e[2] / 100};
    }
    case ColorSpace::LABmg:
        return XYZOfLabMg(LabFrom(e), white);
    case ColorSpace::LCHmg:
        return XYZOfLabMg(Cartesian(e), white);
    case ColorSpace::RGB:
        return XYZOfRgb(e, white);
    case ColorSpace::CMYK:
        return XYZOfRgb(RgbOfCmyk(e), white);
    }
    return {};
}

Elements4 Difference(ColorSpace space, Elements4 const& first, Elements4 const& second,
                     Reference const& reference) {
    Elements4 difference{};
    for (std::size_t i = 0; i < difference.size(); ++i) difference[i] = second[i] - first[i];
    switch (space) {
    case ColorSpace::CIELCh:
    case ColorSpace::CIELChuv:
    case ColorSpace::LCHmg:
        difference[2] = 2 * std::sqrt(first[1] * second[1]) *
                        std::sin(std::remainder(difference[2], 360.0) * (kPi / 360));
        break;
    case ColorSpace::CIEuvY1960:
    case ColorSpace::CIEuvY1976:
        difference[2] = Lightness(second[2] / reference.white.y) - Lightness(first[2] / reference.white.y);
        break;
    default:
        break;
    }
    return difference;
}

} // namespace Norvelian::Tristim
