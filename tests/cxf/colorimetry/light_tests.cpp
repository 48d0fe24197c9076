#include "cxf/colorimetry/ColourRendering.h"
#include "cxf/colorimetry/DeltaE.h"
#include "cxf/colorimetry/TristimService.h"
#include "cxf/colorimetry/UniformSpaces.h"
#include "cxf/colorimetry/Weights.h"
#include "cxf/conditions/IlluminantNames.h"
#include "cxf/conditions/TristimException.h"
#include "tests/cxf/support.h"

#include <cmath>
#include <gmock/gmock.h>

using namespace CxfTest;
using testing::HasSubstr;
using Tristim::Lab;
using Tristim::TristimException;
using Tristim::TristimService;

TEST(Light, TemperatureAndDistance) {
    // Equal energy is above the black body at 5455 K (CIE 15 lists 5454 K for E).
    auto const equal = Tristim::ColourTemperatureOf({100, 100, 100});
    EXPECT_NEAR(equal.kelvin, 5455, 3);
    EXPECT_LT(equal.duv, 0);
    auto const d65 = GetColourRendering(ViewingOf(Tristim::Under("D65", 2)));
    EXPECT_NEAR(d65.temperature.duv, 0.0032, 0.0002);
    EXPECT_NEAR(d65.general, 100, 0.1) << "D65 is its own reference";
    EXPECT_TRUE(d65.isValid);
    EXPECT_THROW(Tristim::ColourTemperatureOf({20, 100, 10}), TristimException) << "green light";
    EXPECT_THROW(Tristim::ColourTemperatureOf({0, 0, 0}), TristimException);
}

TEST(Light, RenderingOfAMeasuredLight) {
    auto const flat = GetColourRendering(Flat(1, {{Key::SpectrumType, "Emission"}}));
    EXPECT_NEAR(flat.temperature.kelvin, 5455, 15) << "36 bands";
    EXPECT_GT(flat.general, 94);
    EXPECT_THAT(MessageOf<TristimException>([] { static_cast<void>(GetColourRendering(Flat(1))); }),
                HasSubstr("Remission"));
}

TEST(Light, WavelengthsOfGreensPurplesAndTheWhite) {
    Tristim::XYZ const white{100, 100, 100};
    auto const of = [&](double x, double y) {
        return DominantWavelengthOf({100 * x / y, 100, 100 * (1 - x - y) / y}, white,
                                    Tristim::Observer::TwoDegree);
    };
    auto const green = of(0.3, 0.5);
    EXPECT_FALSE(green.isComplementary);
    EXPECT_GT(green.wavelength, 535);
    EXPECT_LT(green.wavelength, 560);
    EXPECT_GT(green.excitationPurity, 0.3);
    // Halfway between white and a point of the purple line the purity is one half.
    auto const purple = of((1.0 / 3 + 0.45) / 2, (1.0 / 3 + 0.1331) / 2);
    EXPECT_TRUE(purple.isComplementary);
    EXPECT_NEAR(purple.excitationPurity, 0.5, 0.01);
    EXPECT_THROW(of(1.0 / 3, 1.0 / 3), TristimException);
}

TEST(Weights, TheCorrectedOnesUndoATriangularBandpass) {
    // A bump, measured by bands as they are and by triangles of 10 nm: the corrected weights are nearer to
    // what the bump itself gives, and both sets have the same white.
    auto const bump = [](double nm) { return 0.1 + 0.8 * std::exp(-std::pow((nm - 555) / 25, 2)); };
    std::vector<float> exact;
    std::vector<float> smeared;
    for (int band = 0; band < 36; ++band) {
        double const centre = 380 + 10 * band;
        exact.push_back(static_cast<float>(bump(centre)));
        double sum = 0;
        for (int offset = -9; offset <= 9; ++offset)
            sum += (10 - std::abs(offset)) * bump(centre + offset) / 100;
        smeared.push_back(static_cast<float>(sum));
    }
    for (auto const& [light, method] :
         {std::pair{"D65", "triangles"}, {"E", "triangles"}, {"F11", "Stearns"}, {"LED-B3", "Stearns"}}) {
        auto const y = [&, light = light, method = method](std::vector<float> const& values,
                                                           char const* bandpass) {
            auto conditions = Tristim::Under(light, 10);
            conditions.SetMeasureCondition(Key::ColorSpaceType, "CIEXYZ");
            conditions.SetMeasureCondition(Key::Bandpass, bandpass);
            auto const vector = TristimService::GetVector(Tristim::NVSpectrum(values), conditions);
            bool const named = vector.GetMeasureConditions().GetMeasureCondition(Key::Method).find(method) !=
                               std::string::npos;
            EXPECT_EQ(named, std::string(bandpass) == "Corrected") << light;
            return vector.GetExact(1);
        };
        double const wanted = y(exact, "Uncorrected");
        EXPECT_LT(std::abs(y(smeared, "Corrected") - wanted),
                  std::abs(y(smeared, "Uncorrected") - wanted) / 5)
            << light;
        EXPECT_NEAR(y(std::vector<float>(36, 1), "Corrected"), 100, 1e-9) << light;
    }
}

TEST(Difference, LabIsTakenAsItStands) {
    // A reference on CMC's threshold L* = 16, where S_L jumps: a way through X, Y, Z and back lands on either
    // side of it.
    auto const conditions = [](char const* formula) {
        auto result = Tristim::Under("D50", 2);
        result.SetMeasureCondition(Key::ColorSpaceType, "CIELab");
        if (formula) result.SetMeasureCondition(Key::DeltaEFormula, formula);
        return result;
    };
    for (double const b : {0.0, 1.5, 3.3, 7.7, 12.1}) {
        Lab const one{16, 2, b};
        Lab const other{17, 3, b + 1};
        Tristim::NVColorVector const reference({one.l, one.a, one.b}, conditions(nullptr));
        Tristim::NVColorVector const sample({other.l, other.a, other.b}, conditions(nullptr));
        EXPECT_FLOAT_EQ(TristimService::GetDeltaE(reference, sample, conditions("CMC"), 0, 0, 0),
                        static_cast<float>(Tristim::DeltaECmc(one, other, 2, 1)))
            << b;
    }
}

TEST(Difference, FurtherFormulasGoThroughTheService) {
    auto const red = Reddish();
    auto const grey = Flat(0.3F);
    for (char const* const formula : Tristim::Vocabulary::Value::FurtherDeltaEFormula) {
        auto conditions = Tristim::Under("D65", 10);
        conditions.SetMeasureCondition(Key::DeltaEFormula, formula);
        float const difference = TristimService::GetDeltaE(red, grey, conditions, 0, 0, 0);
        EXPECT_GT(difference, 5) << formula;
        EXPECT_LT(difference, 60) << formula;
        EXPECT_FLOAT_EQ(TristimService::GetDeltaE(red, red, conditions, 0, 0, 0), 0) << formula;
    }
    // DIN99d turns X by Z before anything else; on L*a*b* alone it would be another number.
    auto const weights = Tristim::WeightsFor(ViewingOf(Tristim::Under("D65", 10)));
    Tristim::XYZ const colour{40, 30, 10};
    Lab const turned = Din99Of(colour, weights->white, Tristim::Din99::D);
    Lab const straight = Din99Of(LabOf(colour, weights->white), Tristim::Din99::D);
    EXPECT_GT(std::hypot(turned.a - straight.a, turned.b - straight.b), 0.5);
    EXPECT_NEAR(Din99Of(weights->white, weights->white, Tristim::Din99::D).l, 100, 0.01);
    EXPECT_EQ(TristimService::GetSupportedValues(Key::DeltaEFormula).size(), 7U)
        << "the vocabulary's own table";
}

TEST(Illuminants, ByTheNamesThatProgramsWrite) {
    for (auto const& [written, named] :
         std::initializer_list<std::pair<char const*, char const*>>{{"fl 11", "F11"},
                                                                    {"TL-84", "F11"},
                                                                    {"led_b1", "LED-B1"},
                                                                    {"LED RGB1", "LED-RGB1"},
                                                                    {"FL3.10", "FL3.10"}}) {
        auto const found = Tristim::FindIlluminant(written);
        ASSERT_TRUE(found) << written;
        bool const fluorescent = found->GetMeasureCondition(Key::Illumination) == "F";
        EXPECT_EQ(found->GetMeasureCondition(fluorescent ? Key::FluorescentType : Key::IlluminantName),
                  named);
    }
    EXPECT_EQ(Tristim::Under("D6500", 2).GetMeasureCondition(Key::Illumination), "D65");
    EXPECT_NEAR(std::stod(Tristim::Under("D93", 2).GetMeasureCondition(Key::ColorTemperature)), 9305.2, 0.05);
    for (char const* const unknown : {"D", "D3", "F13", "G1", "", "D-50K"})
        EXPECT_FALSE(Tristim::FindIlluminant(unknown)) << unknown;
    EXPECT_THAT(MessageOf<TristimException>([] { static_cast<void>(Tristim::FindIlluminant("U35")); }),
                HasSubstr("no published table of it is at hand"));
}
