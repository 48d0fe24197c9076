#include "cxf/colorimetry/ColourRendering.h"
#include "cxf/colorimetry/DeltaE.h"
#include "cxf/colorimetry/Illuminants.h"
#include "cxf/colorimetry/Tables.h"
#include "cxf/colorimetry/UniformSpaces.h"
#include "cxf/conditions/IlluminantNames.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/print/PrintMeasures.h"
#include "cxf/verification/Checks.h"

#include <array>
#include <cmath>
#include <initializer_list>

namespace Norvelian::Tristim {

void Checks::Chromaticities() {
    for (Row const& row : RowsOf(Tables::IlluminantChromaticities)) {
        auto const conditions = Under(row[0], row[1] == "10" ? 10 : 2);
        XYZ const white = WhiteOf(IlluminantPower(ViewingOf(conditions)), ViewingOf(conditions).observer);
        double const sum = white.x + white.y + white.z;
        std::string const name = std::string(row[0]) + "/" + std::string(row[1]);
        // Half a unit of the last published digit, and what sums over 1 nm and over 5 nm differ by. The table
        // behind the published 10 degree white of FL10 has another value at 605 nm than that of 2019.
        double const tolerance = row[0] == "FL10" && row[1] == "10" ? 0.0004 : 0.00025;
        Add("x of " + name, "CIE 15, as colour-science 0.3 lists it", NumberAt(row, 2), white.x / sum,
            tolerance);
        Add("y of " + name, "CIE 15, as colour-science 0.3 lists it", NumberAt(row, 3), white.y / sum,
            tolerance);
    }
    for (auto const& [name, kelvin] : std::initializer_list<std::pair<char const*, double>>{
             {"A", 2856}, {"D50", 5003}, {"D55", 5503}, {"D65", 6504}, {"D75", 7504}}) {
        Viewing const viewing = ViewingOf(Under(name, 2));
        Add(std::string("colour temperature of ") + name, "CIE 15", kelvin,
            ColourTemperatureOf(WhiteOf(IlluminantPower(viewing), Observer::TwoDegree)).kelvin, 3);
    }
}

void Checks::UniformSpaces() {
    struct Case {
        Lab lab;
        Din99 form;
        Lab expected;
        double tolerance;
        char const* source;
    };
    char const* const page = "DIN 6176, examples of de.wikipedia.org/wiki/DIN99-Farbraum";
    char const* const code = "colour-science 0.4";
    // Its first form follows ASTM D2244, where DIN's factor 105.51 is 105.509.
    Lab const saturated{41.52787529, 52.63858304, 26.92317922};
    for (Case const& one : {Case{{50, 10, 10}, Din99::Din99, {61.43, 9.70, 3.76}, 0.005, page},
                            Case{{50, 50, 50}, Din99::Din99, {61.43, 28.64, 11.11}, 0.005, page},
                            Case{{50, -10, 10}, Din99::Din99, {61.43, -5.57, 7.03}, 0.005, page},
                            Case{{50, 50, -50}, Din99::Din99, {61.43, 17.22, -21.75}, 0.005, page},
                            Case{{50, 10, 10}, Din99::O, {54.098, 12.215, 10.979}, 0.0005, page},
                            Case{{50, 50, 50}, Din99::O, {54.098, 31.237, 28.076}, 0.0005, page},
                            Case{{50, -10, 10}, Din99::O, {54.098, -11.067, 9.780}, 0.0005, page},
                            Case{{50, 50, -50}, Din99::O, {54.098, 29.384, -25.968}, 0.0005, page},
                            Case{saturated, Din99::Din99, {53.22821988, 28.41634656, 3.89839552}, 6e-4, code},
                            Case{saturated, Din99::B, {45.58303137, 34.71824493, 17.61622149}, 1e-7, code},
                            Case{saturated, Din99::C, {45.40284208, 32.75074741, 15.74603532}, 1e-7, code},
                            Case{saturated, Din99::D, {45.31204747, 31.42106716, 14.17004652}, 1e-7, code}}) {
        static constexpr std::array<char const*, 5> names{"DIN99", "DIN99b", "DIN99c", "DIN99d", "DIN99o"};
        std::string const name = std::string(names[static_cast<std::size_t>(one.form)]) + " of " +
                                 Numbers::Shortest(one.lab.l) + " " + Numbers::Shortest(one.lab.a) + " " +
                                 Numbers::Shortest(one.lab.b);
        Lab const computed = Din99Of(one.lab, one.form);
        Add(name + " L", one.source, one.expected.l, computed.l, one.tolerance);
        Add(name + " a", one.source, one.expected.a, computed.a, one.tolerance);
        Add(name + " b", one.source, one.expected.b, computed.b, one.tolerance);
    }
    struct Pair {
        Lab reference;
        Lab sample;
        double expected;
    };
    for (Pair const& pair :
         {Pair{{60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}, 1.177216620111552},
          Pair{{63.0109, -31.0961, -5.8663}, {62.8187, -29.7946, -4.0864}, 0.987529977993114},
          Pair{{35.0831, -44.1164, 3.7933}, {35.0232, -40.0716, 1.5901}, 1.535894757971742}})
        Add("DIN99 difference from L* " + Numbers::Shortest(pair.reference.l), code, pair.expected,
            DeltaE(DeltaEFormula::DIN99, pair.reference, pair.sample), 1e-6);
    // 94 for textiles has kL 2, K1 0.048, K2 0.014 in every publication; a pure lightness step tells the
    // first.
    Add("94 textile of a lightness step of 2", "CIE 116: 2 / kL", 1,
        DeltaE(DeltaEFormula::CIE94Textile, Lab{50, 20, 10}, Lab{52, 20, 10}), 1e-12);

    Cam16Viewing const viewing{318.31, 20};
    XYZ const white{95.05, 100, 108.88};
    Lab const ucs = Cam16UcsOf({20.654008, 12.197225, 5.136952}, white, viewing);
    Add("CAM16-UCS J'", code, 46.55542238, ucs.l, 1e-6);
    Add("CAM16-UCS a'", code, 40.22460974, ucs.a, 1e-6);
    Add("CAM16-UCS b'", code, 14.25288392, ucs.b, 1e-6);
    struct Appearance {
        XYZ xyz;
        XYZ white;
        double luminance;
        double j;
        double m;
        double h;
    };
    for (Appearance const& one :
         {Appearance{{19.01, 20, 21.78}, white, 318.31, 41.73120791, 0.10743677, 217.06795977},
          Appearance{{57.06, 43.06, 31.96}, white, 31.83, 65.42828069, 42.62473321, 17.48659243},
          Appearance{
              {3.53, 6.56, 2.14}, {109.85, 100, 35.58}, 318.31, 21.36052893, 53.00732582, 178.86724266}}) {
        Lab const computed = Cam16UcsOf(one.xyz, one.white, {one.luminance, 20});
        double hue = std::atan2(computed.b, computed.a) * 180 / 3.14159265358979323846;
        if (hue < 0) hue += 360;
        std::string const name = "CAM16 of X " + Numbers::Shortest(one.xyz.x);
        // J and M back from the uniform space: J' = 1.7 J / (1 + 0.007 J), M' = ln(1 + 0.0228 M) / 0.0228.
        Add(name + " J", code, one.j, computed.l / (1.7 - 0.007 * computed.l), 1e-6);
        Add(name + " M", code, one.m, std::expm1(0.0228 * std::hypot(computed.a, computed.b)) / 0.0228, 1e-6);
        Add(name + " h", code, one.h, hue, 1e-5);
    }
}

void Checks::Rendering() {
    // The reference program sums over 5 nm and finds its colour temperature by a table.
    char const* const code = "colour-science 0.4 (CIE 13.3)";
    std::array<double, 14> const fl1{
        69.196992839933557, 83.650754065677816, 92.136090764490675, 72.665649420972784,  73.890734513517486,
        79.619188860052745, 82.272569853644669, 53.390643618905109, -47.284477750225903, 61.568336431199967,
        67.522241168172485, 74.890093866757994, 72.771930354944615, 94.884867470552663};
    auto const of = [](char const* name) { return GetColourRendering(ViewingOf(Under(name, 2))); };
    ColourRendering const computed = of("FL1");
    Add("Ra of FL1", code, 75.852827992149358, computed.general, 0.15);
    for (std::size_t i = 0; i < fl1.size(); ++i)
        Add("R" + std::to_string(i + 1) + " of FL1", code, fl1[i], computed.special[i], 0.5);
    Add("Ra of FL2", code, 64.233724121664778, of("FL2").general, 0.15);
    Add("Ra of A", code, 99.996230290506887, of("A").general, 0.05);
}

void Checks::DominantWavelengths() {
    auto const of = [](double x, double y) {
        return DominantWavelengthOf({x / y, 1, (1 - x - y) / y}, {0.3127 / 0.329, 1, 0.3583 / 0.329},
                                    Observer::TwoDegree);
    };
    // The published ones are the nearest whole nanometres.
    Add("dominant wavelength of a red", "colour-science 0.4", 616, of(0.54369557, 0.32107944).wavelength,
        0.6);
    Add("complementary wavelength of a purple", "colour-science 0.4", 509,
        of(0.37605506, 0.24452225).wavelength, 0.6);
    XYZ const white{0.3139 / 0.3311, 1, 0.3550 / 0.3311};
    Whiteness const paper = WhitenessOf({100 * 0.3167 / 0.3334, 100, 100 * 0.3499 / 0.3334},
                                        {100 * white.x, 100, 100 * white.z}, Observer::TwoDegree);
    Add("CIE whiteness of a paper", "colour-science, whiteness_CIE2004", 93.85, paper.whiteness, 0.005);
    Add("CIE tint of a paper", "colour-science, whiteness_CIE2004", -1.305, paper.tint, 0.0006);
}

} // namespace Norvelian::Tristim
