#include "cxf/colorimetry/UniformSpaces.h"

#include "cxf/colorimetry/Adaptation.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Norvelian::Tristim {

namespace {

constexpr double kPi = 3.14159265358979323846;

/// L99 = l1 ln(1 + l2 L); a, b turned by an angle, b pressed, the chroma compressed by c1 ln(1 + c2 G), and
/// the hue turned on by a second angle.
struct Din99Constants {
    double l1;
    double l2;
    double angle; ///< degrees
    double press;
    double c1;
    double c2;
    double turn; ///< degrees
};
constexpr std::array<Din99Constants, 5> kDin99{{{105.51, 0.0158, 16, 0.7, 1 / 0.045, 0.045, 0},
                                                {303.67, 0.0039, 26, 0.83, 23.0, 0.075, 26},
                                                {317.65, 0.0037, 0, 0.94, 23.0, 0.066, 0},
                                                {325.22, 0.0036, 50, 1.14, 22.5, 0.06, 50},
                                                {303.67, 0.0039, 26, 0.83, 1 / 0.0435, 0.075, 26}}};

/// The response of a cone after adaptation; odd.
double Compressed(double value, double fl) {
    double const power = std::pow(fl * std::abs(value) / 100, 0.42);
    return std::copysign(400 * power / (power + 27.13), value);
}

} // namespace

Lab Din99Of(Lab const& lab, Din99 form) {
    Din99Constants const& k = kDin99[static_cast<std::size_t>(form)];
    double const angle = k.angle * (kPi / 180);
    double const e = lab.a * std::cos(angle) + lab.b * std::sin(angle);
    double const f = k.press * (lab.b * std::cos(angle) - lab.a * std::sin(angle));
    double const chroma = k.c1 * std::log1p(k.c2 * std::hypot(e, f));
    double const hue = std::atan2(f, e) + k.turn * (kPi / 180);
    // Below black the logarithm goes on as its tangent.
    double const lightness = lab.l >= 0 ? k.l1 * std::log1p(k.l2 * lab.l) : k.l1 * k.l2 * lab.l;
    return {lightness, chroma * std::cos(hue), chroma * std::sin(hue)};
}

Lab Din99Of(XYZ const& xyz, XYZ const& white, Din99 form) {
    double const share = form == Din99::C ? 0.1 : form == Din99::D ? 0.12 : 0;
    auto const changed = [share](XYZ const& v) { return XYZ{(1 + share) * v.x - share * v.z, v.y, v.z}; };
    return Din99Of(LabOf(changed(xyz), changed(white)), form);
}

Lab Cam16UcsOf(XYZ const& xyz, XYZ const& white, Cam16Viewing const& viewing) {
    static constexpr Matrix3 cone{{{{0.401288, 0.650173, -0.051461},
                                    {-0.250268, 1.204414, 0.045854},
                                    {-0.002079, 0.048952, 0.953127}}}};
    constexpr double c = 0.69; // average surround, whose F and Nc are one
    double const la = viewing.adaptingLuminance;
    double const k4 = std::pow(1 / (5 * la + 1), 4);
    double const fl = 0.2 * k4 * 5 * la + 0.1 * (1 - k4) * (1 - k4) * std::cbrt(5 * la);
    double const n = viewing.background / white.y;
    double const z = 1.48 + std::sqrt(n);
    double const nbb = 0.725 * std::pow(1 / n, 0.2);
    double const d = std::clamp(1 - std::exp((-la - 42) / 92) / 3.6, 0.0, 1.0);
    XYZ const w = cone * white;
    auto const adapted = [&](XYZ const& v) {
        XYZ const rgb = cone * v;
        return XYZ{Compressed((d * white.y / w.x + 1 - d) * rgb.x, fl),
                   Compressed((d * white.y / w.y + 1 - d) * rgb.y, fl),
                   Compressed((d * white.y / w.z + 1 - d) * rgb.z, fl)};
    };
    // The published 0.1 of noise in each response cancels out but for the sum below, where it is 0.305.
    auto const achromatic = [&](XYZ const& v) { return (2 * v.x + v.y + v.z / 20) * nbb; };
    XYZ const s = adapted(xyz);
    double const a = s.x - 12 * s.y / 11 + s.z / 11;
    double const b = (s.x + s.y - 2 * s.z) / 9;
    double const hue = std::atan2(b, a);
    double const ratio = std::max(0.0, achromatic(s) / achromatic(adapted(white)));
    double const j = 100 * std::pow(ratio, c * z);
    double const eccentricity = 0.25 * (std::cos(hue + 2) + 3.8);
    double const t = 50000.0 / 13 * nbb * eccentricity * std::hypot(a, b) / (s.x + s.y + 1.05 * s.z + 0.305);
    double const chroma =
        std::pow(std::max(t, 0.0), 0.9) * std::sqrt(j / 100) * std::pow(1.64 - std::pow(0.29, n), 0.73);
    double const m = std::log1p(0.0228 * chroma * std::pow(fl, 0.25)) / 0.0228;
    return {1.7 * j / (1 + 0.007 * j), m * std::cos(hue), m * std::sin(hue)};
}

} // namespace Norvelian::Tristim
