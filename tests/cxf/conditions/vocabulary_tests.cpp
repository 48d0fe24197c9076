#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/TristimException.h"
#include "tests/cxf/support.h"

#include <gmock/gmock.h>

using namespace CxfTest;
using testing::ElementsAre;
using testing::HasSubstr;
using Tristim::TristimException;
using Tristim::TristimService;

TEST(Vocabulary, EverySupportedValueOfTheServiceIsAccepted) {
    // Each illuminant, observer and colour space computes; each formula and density standard is known.
    for (std::string const& illumination : TristimService::GetSupportedValues(Key::Illumination))
        for (std::string const& observer : TristimService::GetSupportedValues(Key::Observer))
            for (std::string const& space : TristimService::GetSupportedValues(Key::ColorSpaceType)) {
                auto conditions = With({{Key::ColorTemperature, "5700"}, {Key::FluorescentType, "F11"}});
                Tristim::Bands light{};
                light.fill(1);
                conditions.SetBands(Key::UserIllumination, light);
                conditions.SetMeasureCondition(Key::Illumination, illumination);
                conditions.SetMeasureCondition(Key::Observer, observer);
                conditions.SetMeasureCondition(Key::ColorSpaceType, space);
                auto const vector = TristimService::GetVector(Reddish(), conditions);
                EXPECT_EQ(vector.GetSize(), space == "CMYK" ? 4 : 3);
                EXPECT_EQ(vector.GetMeasureConditions().GetMeasureCondition(Key::Illumination), illumination);
            }
}

TEST(Vocabulary, ElementNames) {
    struct Case {
        char const* space;
        bool delta;
        std::vector<std::string> names;
    };
    for (Case const& one : {Case{"CIEuvY1976", true, {"delta u' 1976", "delta v' 1976", "delta L 1976"}},
                            Case{"CIEuvY1976", false, {"u' 1976", "v' 1976", "Y 1976"}},
                            Case{"CMYK", false, {"C", "M", "Y", "K"}}}) {
        auto const conditions =
            With({{Key::ColorSpaceType, one.space},
                  {Key::AbsoluteOrDeltaVector, one.delta ? "DeltaVector" : "AbsoluteVector"}});
        for (std::size_t i = 0; i < one.names.size(); ++i)
            EXPECT_EQ(conditions.GetElementName(static_cast<short>(i)), one.names[i]) << one.space;
        EXPECT_THROW(static_cast<void>(conditions.GetElementName(static_cast<short>(one.names.size()))),
                     TristimException);
        EXPECT_THROW(static_cast<void>(conditions.GetElementName(-1)), TristimException);
    }
    EXPECT_EQ(Tristim::NVMeasureConditions().GetElementName(1), "a*");
}

TEST(Vocabulary, UnknownValueNamesKeyValueAndChoice) {
    EXPECT_THROW(TristimService::GetSupportedValues("Colorimetric.Iluminant"), TristimException);
    std::string const message = MessageOf<TristimException>([] {
        TristimService::GetVector(Flat(1), With({{Key::Observer, "FiveDegree"}}));
    });
    EXPECT_EQ(message,
              "condition Colorimetric.Observer is \"FiveDegree\"; expected one of TwoDegree, TenDegree");
}

TEST(Spectrum, NeedsThirtySixFiniteValues) {
    EXPECT_THROW(Tristim::NVSpectrum(std::vector<float>(35, 1.0F)), TristimException);
    std::vector<float> values(36, 1.0F);
    values[2] = std::numeric_limits<float>::infinity();
    EXPECT_THAT(MessageOf<TristimException>([&] { Tristim::NVSpectrum{values}; }), HasSubstr("400 nm"));
    values[2] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_THROW(Tristim::NVSpectrum{values}, TristimException);
    EXPECT_EQ(Flat(-0.5F).GetValues()[7], -0.5F);
    EXPECT_EQ(Flat(1).GetMeasureConditions().GetMeasureCondition("Physical.SpectrumType"), "Remission");
    EXPECT_EQ(Flat(1).GetMeasureConditions().GetMeasureCondition("Physical.WavelengthSpectrumMax"), "730nm");
}

TEST(Conditions, BandsKeepTheirNumbersAndRefuseOthers) {
    Tristim::Bands bands{};
    for (std::size_t i = 0; i < bands.size(); ++i) bands[i] = 1.0 / static_cast<double>(i + 3);
    Tristim::NVMeasureConditions conditions;
    EXPECT_FALSE(conditions.GetBands("x"));
    conditions.SetBands("x", bands);
    EXPECT_EQ(conditions.GetBands("x"), bands);
    for (char const* const bad : {"1 2 3", "abc", "nan"}) {
        conditions.SetMeasureCondition("x", bad);
        EXPECT_THROW(static_cast<void>(conditions.GetBands("x")), TristimException) << bad;
    }
}
