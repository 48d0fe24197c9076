#include "cxf/colorimetry/RgbSpace.h"

#include "cxf/colorimetry/Adaptation.h"

#include <algorithm>
#include <cmath>

namespace Norvelian::Tristim {

namespace {

XYZ FromChromaticity(double x, double y) { return {x / y, 1, (1 - x - y) / y}; }

/// The matrix from linear sRGB to tristimulus values with Y = 1, from the chromaticities of BT.709.
struct SrgbMatrix {
    XYZ white = FromChromaticity(0.3127, 0.3290);
    Matrix3 toXYZ{};
    Matrix3 fromXYZ{};

    SrgbMatrix() {
        XYZ const r = FromChromaticity(0.64, 0.33);
        XYZ const g = FromChromaticity(0.30, 0.60);
        XYZ const b = FromChromaticity(0.15, 0.06);
        Matrix3 const primaries{{{{r.x, g.x, b.x}, {r.y, g.y, b.y}, {r.z, g.z, b.z}}}};
        XYZ const scale = Inverse(primaries) * white;
        toXYZ = primaries * Matrix3{{{{scale.x, 0, 0}, {0, scale.y, 0}, {0, 0, scale.z}}}};
        fromXYZ = Inverse(toXYZ);
    }
};

SrgbMatrix const& Srgb() {
    static SrgbMatrix const matrix;
    return matrix;
}

/// The standard's two branches don't quite meet at 0.0031308; they cross at this value, and changing
/// branch there makes the way back exact. The difference to the standard is below 3e-8.
constexpr double kCross = 0.0031306684425006304;

double Encode(double linear) {
    double const size = std::abs(linear);
    double const value = size <= kCross ? 12.92 * size : 1.055 * std::pow(size, 1 / 2.4) - 0.055;
    return std::copysign(255 * value, linear);
}
double Decode(double encoded) {
    double const size = std::abs(encoded) / 255;
    double const value = size <= 12.92 * kCross ? size / 12.92 : std::pow((size + 0.055) / 1.055, 2.4);
    return std::copysign(value, encoded);
}

} // namespace

Elements4 RgbOf(XYZ const& xyz, XYZ const& white) {
    XYZ const relative{xyz.x / white.y, xyz.y / white.y, xyz.z / white.y};
    XYZ const source{white.x / white.y, 1, white.z / white.y};
    XYZ const linear = Srgb().fromXYZ * (Bradford(source, Srgb().white) * relative);
    return {Encode(linear.x), Encode(linear.y), Encode(linear.z), 0};
}

XYZ XYZOfRgb(Elements4 const& rgb, XYZ const& white) {
    XYZ const target{white.x / white.y, 1, white.z / white.y};
    XYZ const linear{Decode(rgb[0]), Decode(rgb[1]), Decode(rgb[2])};
    XYZ const xyz = Bradford(Srgb().white, target) * (Srgb().toXYZ * linear);
    return {xyz.x * white.y, xyz.y * white.y, xyz.z * white.y};
}

Elements4 CmykOf(Elements4 const& rgb) {
    double const most = std::max({rgb[0], rgb[1], rgb[2]});
    double const black = 100 * (1 - most / 255);
    if (most == 0) return {0, 0, 0, black};
    return {100 * (most - rgb[0]) / most, 100 * (most - rgb[1]) / most, 100 * (most - rgb[2]) / most, black};
}

Elements4 RgbOfCmyk(Elements4 const& cmyk) {
    double const most = 255 * (1 - cmyk[3] / 100);
    return {most * (1 - cmyk[0] / 100), most * (1 - cmyk[1] / 100), most * (1 - cmyk[2] / 100), 0};
}

} // namespace Norvelian::Tristim
