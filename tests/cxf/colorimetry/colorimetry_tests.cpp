#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/colorimetry/TristimService.h"
#include "cxf/colorimetry/Weights.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/verification/Verification.h"
#include "tests/cxf/support.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <sstream>
#include <thread>

using namespace CxfTest;
using testing::HasSubstr;
using Tristim::TristimException;
using Tristim::TristimService;

TEST(Verification, EveryPublishedReference) {
    auto const checks = Tristim::RunVerification();
    EXPECT_GT(checks.size(), 130U);
    for (auto const& check : checks)
        EXPECT_TRUE(check.Passed()) << check.name << " (" << check.source << "): expected " << check.expected
                                    << ", computed " << check.computed;
    std::ostringstream text;
    EXPECT_TRUE(Tristim::PrintVerification(text));
    EXPECT_THAT(text.str(), HasSubstr("0 missed"));
}

TEST(Verification, AMissIsAMiss) {
    EXPECT_FALSE((Tristim::VerificationCheck{"", "", 1, 1.1, 0.05}.Passed()));
    EXPECT_FALSE((Tristim::VerificationCheck{"", "", 1, std::nan(""), 0.05}.Passed()));
}

TEST(Vector, WhiteAndBlackAndGrey) {
    for (char const* const illumination : {"A", "C", "D50", "D65"}) {
        auto const white = TristimService::GetVector(Flat(1), With({{Key::Illumination, illumination}}));
        EXPECT_NEAR(white.GetExact(0), 100, 1e-9);
        EXPECT_NEAR(white.GetExact(1), 0, 1e-9);
        EXPECT_NEAR(white.GetExact(2), 0, 1e-9);
    }
    EXPECT_NEAR(TristimService::GetVector(Flat(0), {}).GetExact(0), 0, 1e-12);
    // L* of a luminance factor of 18.4187 % is 50 exactly: ((50 + 16) / 116)^3.
    EXPECT_NEAR(TristimService::GetVector(Flat(0.184186F), {}).GetExact(0), 50, 1e-4);
}

TEST(Vector, CarriesTheConditionsItWasComputedUnder) {
    auto const vector =
        TristimService::GetVector(Reddish({{Key::Filter, "Polarizer"}}),
                                  With({{Key::Illumination, "D65"}, {Key::Observer, "TenDegree"}}));
    auto const& conditions = vector.GetMeasureConditions();
    EXPECT_EQ(conditions.GetMeasureCondition(Key::Illumination), "D65");
    EXPECT_EQ(conditions.GetMeasureCondition(Key::Observer), "TenDegree");
    EXPECT_EQ(conditions.GetMeasureCondition(Key::WhiteBase), "Absolute");
    EXPECT_EQ(conditions.GetMeasureCondition(Key::Filter), "Polarizer");
    EXPECT_EQ(conditions.GetMeasureCondition(Key::SpectrumType), "Remission");
    EXPECT_EQ(conditions.GetMeasureCondition(Key::ColorSpaceType), "CIELab");
    EXPECT_THAT(conditions.GetMeasureCondition(Key::Method), HasSubstr("ASTM E2022"));
}

TEST(Vector, PaperIsWhiteUnderPaperAndAutomatic) {
    Tristim::Bands paper{};
    for (std::size_t i = 0; i < paper.size(); ++i) paper[i] = 0.7 + 0.005 * static_cast<double>(i);
    Tristim::NVSpectrum const sheet({paper.begin(), paper.end()});
    auto conditions = With({{Key::WhiteBase, "Paper"}});
    EXPECT_THAT(MessageOf<TristimException>([&] { TristimService::GetVector(sheet, conditions); }),
                HasSubstr(Key::PaperSpectrum));
    conditions.SetBands(Key::PaperSpectrum, paper);
    for (char const* const base : {"Paper", "Automatic"}) {
        conditions.SetMeasureCondition(Key::WhiteBase, base);
        auto const vector = TristimService::GetVector(sheet, conditions);
        EXPECT_NEAR(vector.GetExact(0), 100, 1e-5);
        EXPECT_NEAR(vector.GetExact(1), 0, 1e-4);
        EXPECT_EQ(vector.GetMeasureConditions().GetMeasureCondition(Key::WhiteBase), "Paper");
    }
    conditions.SetMeasureCondition(Key::WhiteBase, "Absolute");
    EXPECT_LT(TristimService::GetVector(sheet, conditions).GetExact(0), 95);
}

TEST(Vector, IlluminantsWithParameters) {
    struct Case {
        KeyValues values;
        char const* message;
    };
    for (Case const& one : {Case{{{Key::Illumination, "Dxx"}}, "4000 to 25000 K"},
                            Case{{{Key::Illumination, "Dxx"}, {Key::ColorTemperature, "3999"}}, "3999"},
                            Case{{{Key::Illumination, "Dxx"}, {Key::ColorTemperature, "25001"}}, "25001"},
                            Case{{{Key::Illumination, "F"}}, Key::FluorescentType},
                            Case{{{Key::Illumination, "F"}, {Key::FluorescentType, "F13"}}, "F13"},
                            Case{{{Key::Illumination, "Userdefined"}}, Key::UserIllumination}})
        EXPECT_THAT(
            MessageOf<TristimException>([&] { TristimService::GetVector(Flat(1), With(one.values)); }),
            HasSubstr(one.message));
}

TEST(Vector, UserDefinedIlluminant) {
    auto user = With({{Key::Illumination, "Userdefined"}, {Key::ColorSpaceType, "CIEXYZ"}});
    Tristim::Bands light{};
    user.SetBands(Key::UserIllumination, light);
    EXPECT_THROW(TristimService::GetVector(Flat(1), user), TristimException) << "no power";
    light.fill(2.5);
    user.SetBands(Key::UserIllumination, light);
    auto const computed = TristimService::GetVector(Reddish(), user);
    auto const emission = TristimService::GetVector(
        Reddish(), With({{Key::Illumination, "Emission"}, {Key::ColorSpaceType, "CIEXYZ"}}));
    for (short i = 0; i < 3; ++i) EXPECT_NEAR(computed.GetExact(i), emission.GetExact(i), 1e-9);
    light.fill(0);
    light[30] = 1;
    user.SetBands(Key::UserIllumination, light);
    EXPECT_THROW(TristimService::GetDeltaE(Flat(1), Reddish(), user, 1, 1, 1), TristimException)
        << "no blue at all";
    light[3] = -1;
    user.SetBands(Key::UserIllumination, light);
    EXPECT_THROW(TristimService::GetVector(Flat(1), user), TristimException);
}

TEST(Vector, LightIsNotSeenUnderAnIlluminant) {
    for (char const* const type : {"Emission", "AmbientLight", "Flash"}) {
        auto const light = Flat(1, {{Key::SpectrumType, type}});
        auto const vector = TristimService::GetVector(light, With({{Key::ColorSpaceType, "CIEXYZ"}}));
        EXPECT_NEAR(vector.GetExact(1), 100, 1e-9);
        EXPECT_EQ(vector.GetMeasureConditions().GetMeasureCondition(Key::Illumination), "Emission");
        std::string const message = MessageOf<TristimException>([&] {
            TristimService::GetVector(light, With({{Key::Illumination, "D65"}}));
        });
        EXPECT_THAT(message, HasSubstr(type));
        EXPECT_THAT(message, HasSubstr("D65"));
    }
}

TEST(Vector, ConditionsOfTheMeasurementCantBeOverruled) {
    std::string const message = MessageOf<TristimException>([] {
        TristimService::GetVector(Flat(1, {{Key::Filter, "Polarizer"}}), With({{Key::Filter, "UVCut"}}));
    });
    EXPECT_THAT(message, HasSubstr("Polarizer"));
    EXPECT_THAT(message, HasSubstr("UVCut"));
}

TEST(Delta, SampleMinusReferenceWithTheSpacesOwnDifferences) {
    Tristim::NVMeasureConditions conditions =
        With({{Key::ColorSpaceType, "CIELCh"}, {Key::AbsoluteOrDeltaVector, "DeltaVector"}});
    EXPECT_THROW(TristimService::GetVector(Flat(1), conditions), TristimException);
    auto const lch = TristimService::GetDeltaVector(Flat(0.5F), Reddish(), conditions);
    auto const lab =
        TristimService::GetDeltaVector(Flat(0.5F), Reddish(), With({{Key::ColorSpaceType, "CIELab"}}));
    EXPECT_LT(lch.GetExact(0), 0);
    EXPECT_GT(lch.GetExact(1), 0);
    EXPECT_EQ(lch.GetElementName(2), "delta H*");
    // dE^2 = dL^2 + dC^2 + dH^2 = dL^2 + da^2 + db^2.
    auto const norm = [](Tristim::NVColorVector const& v) {
        return std::hypot(v.GetExact(0), v.GetExact(1), v.GetExact(2));
    };
    EXPECT_NEAR(norm(lch), norm(lab), 1e-9);
    EXPECT_NEAR(norm(lab), static_cast<double>(TristimService::GetDeltaE(Flat(0.5F), Reddish(), {}, 0, 0, 0)),
                1e-4);
    // The last element of the uvY deltas is a difference of L*, not of Y.
    auto const uvy =
        TristimService::GetDeltaVector(Flat(0.5F), Flat(0.2F), With({{Key::ColorSpaceType, "CIEuvY1976"}}));
    EXPECT_NEAR(uvy.GetExact(2), Tristim::Lightness(0.2) - Tristim::Lightness(0.5), 1e-4);
    // Hue differences take the short way around.
    Tristim::Elements4 const one{50, 10, 359, 0};
    Tristim::Elements4 const other{50, 10, 1, 0};
    EXPECT_NEAR(Tristim::Difference(Tristim::ColorSpace::CIELCh, one, other, {})[2],
                20 * std::sin(M_PI / 180), 1e-9);
}

TEST(Delta, MixedConditionsNameBoth) {
    auto const d50 = TristimService::GetVector(Reddish(), {});
    auto const d65 = TristimService::GetVector(Reddish(), With({{Key::Illumination, "D65"}}));
    EXPECT_EQ(MessageOf<TristimException>([&] { TristimService::GetDeltaE(d50, d65, {}, 0, 0, 0); }),
              "conditions can't be mixed: Colorimetric.Illumination is \"D50\" (assumed) in the first colour "
              "and \"D65\" "
              "in the second");
    std::string const spectra = MessageOf<TristimException>([] {
        TristimService::GetDeltaE(Flat(1), Flat(1, {{Key::Filter, "UVCut"}}), {}, 0, 0, 0);
    });
    // A filter that nobody stated isn't M0.
    EXPECT_EQ(spectra,
              "conditions can't be mixed: Physical.Filter is unknown in the first colour and \"UVCut\" in "
              "the second; the condition Colorimetric.AcceptUnstated \"Physical.Filter\" allows it");
    EXPECT_THROW(TristimService::Convert(d50, With({{Key::Illumination, "D65"}})), TristimException);
    EXPECT_FLOAT_EQ(TristimService::GetDeltaE(d50, d50, {}, 0, 0, 0), 0);
}

TEST(Convert, EverySpaceAgreesWithTheSpectrum) {
    auto const lab = TristimService::GetVector(Reddish(), {});
    for (std::string const& space : TristimService::GetSupportedValues(Key::ColorSpaceType)) {
        Tristim::NVMeasureConditions conditions;
        conditions.SetMeasureCondition(Key::ColorSpaceType, space);
        auto const direct = TristimService::GetVector(Reddish(), conditions);
        auto const converted = TristimService::Convert(lab, conditions);
        auto const back = TristimService::Convert(converted, {});
        for (short i = 0; i < direct.GetSize(); ++i)
            EXPECT_NEAR(direct.GetExact(i), converted.GetExact(i), 1e-9) << space;
        for (short i = 0; i < 3; ++i) EXPECT_NEAR(back.GetExact(i), lab.GetExact(i), 1e-9) << space;
    }
}

TEST(Convert, DeviceValuesAreNoColour) {
    Tristim::NVColorVector const ink({0, 100, 100, 0}, With({{Key::ColorSpaceType, "CMYK"}}));
    EXPECT_THAT(MessageOf<TristimException>([&] { TristimService::Convert(ink, {}); }), HasSubstr("CMYK"));
}

TEST(Conditions, CopiesChangeApart) {
    auto const first = With({{"a", "1"}});
    auto second = first;
    second.SetMeasureCondition("a", "2");
    Tristim::NVMeasureConditions third;
    third.SetMeasureCondition("b", "3");
    EXPECT_EQ(first.GetMeasureCondition("a"), "1");
    EXPECT_EQ(second.GetMeasureCondition("a"), "2");
    EXPECT_TRUE(Tristim::NVMeasureConditions().GetAll().empty());
}

TEST(Spaces, EveryTristimulusValueHasADefinedResult) {
    Tristim::XYZ const white{96.42, 100, 82.51};
    std::array<double, 7> const values{-150, -1, -1e-6, 0, 1e-6, 1, 150};
    for (std::size_t space = 0; space < Tristim::Vocabulary::Value::ColorSpaceType.size(); ++space)
        for (double const x : values)
            for (double const y : values)
                for (double const z : values) {
                    auto const id = static_cast<Tristim::ColorSpace>(space);
                    auto const elements = Tristim::FromXYZ(id, {x, y, z}, {white, 0.86});
                    auto const back = Tristim::ToXYZ(id, elements, {white, 0.86});
                    for (double const e : elements)
                        ASSERT_TRUE(std::isfinite(e)) << space << ' ' << x << ' ' << y << ' ' << z;
                    ASSERT_TRUE(std::isfinite(back.x) && std::isfinite(back.y) && std::isfinite(back.z));
                    // Spaces without a division keep negative values, too.
                    bool const keeps = id == Tristim::ColorSpace::CIELab ||
                                       id == Tristim::ColorSpace::LABmg || id == Tristim::ColorSpace::RGB ||
                                       id == Tristim::ColorSpace::RxRyRz;
                    if (keeps) {
                        EXPECT_NEAR(back.x, x, 1e-9 * (1 + std::abs(x)));
                    }
                }
    // Black has the chromaticity of the white.
    auto const black = Tristim::FromXYZ(Tristim::ColorSpace::CIExyY, {0, 0, 0}, {white, 1});
    EXPECT_NEAR(black[0], 96.42 / (96.42 + 100 + 82.51), 1e-12);
}

TEST(Spaces, RgbIsNotClippedAndCmykIsFullBlackGeneration) {
    Tristim::XYZ const d65{95.0456, 100, 108.9058};
    auto const bright = Tristim::FromXYZ(Tristim::ColorSpace::RGB, {190, 200, 217}, {d65, 1});
    EXPECT_GT(bright[0], 300);
    auto const cmyk =
        Tristim::FromXYZ(Tristim::ColorSpace::CMYK,
                         Tristim::ToXYZ(Tristim::ColorSpace::RGB, {51, 102, 204, 0}, {d65, 1}), {d65, 1});
    EXPECT_NEAR(cmyk[0], 75, 1e-9);
    EXPECT_NEAR(cmyk[1], 50, 1e-9);
    EXPECT_NEAR(cmyk[2], 0, 1e-9);
    EXPECT_NEAR(cmyk[3], 20, 1e-9);
}

TEST(Weights, AreSharedByThreads) {
    std::vector<std::thread> threads;
    std::vector<std::shared_ptr<Tristim::WeightSet const>> results(4);
    Tristim::Viewing viewing{.illumination = Tristim::Illumination::Dxx, .temperature = 7131};
    for (auto& result : results)
        threads.emplace_back([&result, viewing] { result = Tristim::WeightsFor(viewing); });
    for (auto& thread : threads) thread.join();
    for (auto const& result : results) EXPECT_EQ(result, results.front());
}
