#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/ConditionText.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/print/PrintMeasures.h"
#include "tests/cxf/support.h"

#include <gmock/gmock.h>

using namespace CxfTest;
using testing::HasSubstr;
using Tristim::ConditionState;
using Tristim::ConditionText;
using Tristim::TristimException;
using Tristim::TristimService;
using Tristim::ViewingText;

namespace {

float Difference(Tristim::NVSpectrum const& one, Tristim::NVSpectrum const& other,
                 std::string const& accepted = {}) {
    Tristim::NVMeasureConditions conditions;
    if (!accepted.empty()) conditions.SetMeasureCondition(Key::AcceptUnstated, accepted);
    return TristimService::GetDeltaE(one, other, conditions, 0, 0, 0);
}

} // namespace

TEST(ConditionState, StatingEndsAnAssumptionInOneCopyOnly) {
    Tristim::NVMeasureConditions conditions;
    EXPECT_EQ(conditions.GetState(Key::Illumination), ConditionState::Unknown);
    conditions.Assume(Key::Illumination, "D50", "CGATS.17");
    auto const before = conditions;
    EXPECT_EQ(conditions.GetAssumption(Key::Illumination), "CGATS.17");
    conditions.SetMeasureCondition(Key::Illumination, "D50");
    EXPECT_EQ(conditions.GetState(Key::Illumination), ConditionState::Stated);
    EXPECT_EQ(before.GetState(Key::Illumination), ConditionState::Assumed);
    EXPECT_FALSE(conditions == before) << "a stated and an assumed D50 aren't the same";
}

TEST(ConditionState, AResultSaysWhatNobodyStated) {
    auto const byDefault = TristimService::GetVector(Reddish(), {}).GetMeasureConditions();
    EXPECT_EQ(ViewingText(byDefault), "D50 (assumed), 2° (assumed)");
    EXPECT_EQ(byDefault.GetState(Key::Filter), ConditionState::Unknown);
    auto const stated =
        TristimService::GetVector(
            Reddish({{Key::Filter, "D65"}, {Key::Backing, "White"}, {Key::Geometry, "45:0"}}),
            With({{Key::Illumination, "F"}, {Key::FluorescentType, "F11"}, {Key::Observer, "TenDegree"}}))
            .GetMeasureConditions();
    EXPECT_EQ(ConditionText(stated), "F11, 10°, M1, 45:0, white backing");
    // A conversion keeps the state.
    auto const lab = TristimService::GetVector(Reddish(), With({{Key::Observer, "TwoDegree"}}));
    auto const xyz = TristimService::Convert(lab, With({{Key::ColorSpaceType, "CIEXYZ"}}));
    EXPECT_EQ(ConditionText(xyz.GetMeasureConditions()),
              "D50 (assumed), 2°, filter unknown, geometry unknown, backing unknown");
}

TEST(ConditionState, OnlyUnstatedConditionsCanBeAccepted) {
    struct Case {
        KeyValues first;
        KeyValues second;
        char const* key;
        bool bothStated;
    };
    for (Case const& one :
         {Case{{}, {{Key::Filter, "D65"}}, Key::Filter, false},
          Case{{{Key::Filter, "No"}}, {{Key::Filter, "D65"}}, Key::Filter, true},
          Case{{{Key::Backing, "Black"}}, {{Key::Backing, "White"}}, Key::Backing, true},
          Case{{{Key::Backing, "Black"}}, {}, Key::Backing, false},
          Case{{{Key::Geometry, "45:0"}}, {{Key::Geometry, "d:8i"}}, Key::Geometry, true}}) {
        auto const first = Flat(0.5F, one.first);
        auto const second = Flat(0.4F, one.second);
        EXPECT_THAT(MessageOf<TristimException>([&] { Difference(first, second); }), HasSubstr(one.key));
        EXPECT_THROW(Difference(first, second, "Colorimetric.Illumination"), TristimException);
        if (one.bothStated)
            EXPECT_THROW(Difference(first, second, one.key), TristimException);
        else
            EXPECT_GT(Difference(first, second, std::string("Colorimetric.Observer ") + one.key), 1);
    }
    EXPECT_GT(Difference(Flat(0.5F, {{Key::Geometry, "45:0"}}), Flat(0.4F, {{Key::Geometry, "0:45"}})), 1)
        << "the two are reciprocal";
    EXPECT_GT(Difference(Flat(0.5F), Flat(0.4F)), 1) << "two unknown filters don't differ";
}

TEST(ConditionState, WhatWasAcceptedIsInTheResult) {
    auto const conditions = With({{Key::AcceptUnstated, "Physical.Filter"}});
    auto const delta =
        TristimService::GetDeltaVector(Flat(0.5F), Flat(0.4F, {{Key::Filter, "D65"}}), conditions);
    EXPECT_EQ(delta.GetMeasureConditions().GetMeasureCondition(Key::AcceptUnstated), "Physical.Filter");
    EXPECT_THAT(ConditionText(delta.GetMeasureConditions()), HasSubstr("M1 (assumed)"));
    // Asking for a filter doesn't make it so.
    EXPECT_THAT(MessageOf<TristimException>([] {
                    TristimService::GetVector(Flat(1), With({{Key::Filter, "No"}}));
                }),
                HasSubstr("that of the spectrum is unknown"));
}

TEST(ConditionState, AnAssumedIlluminantGivesWayWhenAccepted) {
    auto file = With({{Key::ColorSpaceType, "CIELab"}, {Key::Observer, "TenDegree"}});
    file.Assume(Key::Illumination, "D50", "CGATS.17");
    Tristim::NVColorVector const read({50, 10, 10}, file);
    auto const computed = TristimService::GetVector(
        Reddish(), With({{Key::Illumination, "D65"}, {Key::Observer, "TenDegree"}}));
    EXPECT_THAT(MessageOf<TristimException>([&] { TristimService::GetDeltaE(read, computed, {}, 0, 0, 0); }),
                HasSubstr("\"D50\" (assumed) in the first colour and \"D65\" in the second"));
    auto const accepted = With({{Key::AcceptUnstated, "Colorimetric.Illumination"}});
    double const lightness = computed.GetExact(0) - 50;
    auto const delta = TristimService::GetDeltaVector(read, computed, accepted);
    EXPECT_NEAR(delta.GetExact(0), lightness, 1e-9);
    EXPECT_EQ(ViewingText(delta.GetMeasureConditions()), "D65 (assumed), 10°");
    EXPECT_THROW(
        TristimService::Convert(
            computed, With({{Key::Illumination, "D50"}, {Key::AcceptUnstated, "Colorimetric.Illumination"}})),
        TristimException)
        << "a stated illuminant can't be changed";
}

TEST(ConditionState, AResultIsNoMoreCertainThanItsTwoColours) {
    auto conditions = With({{Key::ColorSpaceType, "CIELab"}, {Key::Observer, "TwoDegree"}});
    conditions.SetMeasureCondition(Key::Illumination, "D50");
    Tristim::NVColorVector const stated({50, 10, 10}, conditions);
    conditions.Assume(Key::Illumination, "D50", "CGATS.17");
    Tristim::NVColorVector const assumed({51, 10, 10}, conditions);
    for (auto const& [one, other] : {std::pair{stated, assumed}, {assumed, stated}})
        EXPECT_EQ(ViewingText(TristimService::GetDeltaVector(one, other, {}).GetMeasureConditions()),
                  "D50 (assumed), 2°");
    // How the two were computed is said of both.
    auto corrected =
        With({{Key::Illumination, "D50"}, {Key::Observer, "TwoDegree"}, {Key::Bandpass, "Corrected"}});
    auto const plain = TristimService::GetVector(
        Reddish(), With({{Key::Illumination, "D50"}, {Key::Observer, "TwoDegree"}}));
    auto const delta =
        TristimService::GetDeltaVector(plain, TristimService::GetVector(Reddish(), corrected), {});
    EXPECT_THAT(delta.GetMeasureConditions().GetMeasureCondition(Key::Method),
                testing::AllOf(HasSubstr("reference: ASTM E2022"), HasSubstr("; sample: least squares")));
}

TEST(ConditionState, MeasuresOfPrintKeepTheirConditions) {
    auto measured = With({{Key::Backing, "White"}, {Key::Resampling, "end values repeated"}});
    measured.Assume(Key::Filter, "No", "a remark");
    Tristim::NVSpectrum const spectrum(std::vector<float>(36, 0.8F), measured);
    for (auto const& conditions :
         {GetDensity(spectrum, {}).conditions, Tristim::GetWhiteness(spectrum).conditions,
          Tristim::GetYellowness(spectrum).conditions, Tristim::GetBrightness(spectrum).conditions,
          Tristim::GetPaperOpacity(spectrum, spectrum).conditions}) {
        EXPECT_EQ(conditions.GetState(Key::Filter), ConditionState::Assumed);
        EXPECT_EQ(conditions.GetMeasureCondition(Key::Resampling), "end values repeated");
    }
    EXPECT_EQ(GetDensity(spectrum, {}).conditions.GetMeasureCondition(Key::Illumination), "");
}

TEST(ConditionState, ParametersOfTheIlluminantMatchBeforeValuesMix) {
    auto const under = [](KeyValues values) { return TristimService::GetVector(Reddish(), With(values)); };
    auto const f2 = under({{Key::Illumination, "F"}, {Key::FluorescentType, "F2"}});
    auto const warm = under({{Key::Illumination, "Dxx"}, {Key::ColorTemperature, "5000"}});
    for (auto const& [vector, asked] :
         std::vector<std::pair<Tristim::NVColorVector, Tristim::NVMeasureConditions>>{
             {f2, With({{Key::Illumination, "F"}, {Key::FluorescentType, "F11"}})},
             {f2, With({{Key::FluorescentType, "F11"}})},
             {warm, With({{Key::ColorTemperature, "6000"}})},
             {warm, With({{Key::PaperSpectrum, "1"}})},
             {warm, With({{Key::UserIllumination, "1"}})}}) {
        EXPECT_THROW(TristimService::Convert(vector, asked), TristimException);
        EXPECT_THROW(TristimService::GetDeltaE(vector, vector, asked, 0, 0, 0), TristimException);
    }
    EXPECT_NO_THROW(
        TristimService::Convert(f2, With({{Key::Illumination, "F"}, {Key::FluorescentType, "F2"}})));
    EXPECT_THROW(TristimService::GetDeltaE(
                     f2, under({{Key::Illumination, "F"}, {Key::FluorescentType, "F11"}}), {}, 0, 0, 0),
                 TristimException);
}

TEST(ConditionState, OpacityNeedsTwoBackings) {
    EXPECT_NEAR(
        Tristim::GetOpacity(Flat(0.45F, {{Key::Backing, "Black"}}), Flat(0.5F, {{Key::Backing, "White"}}), {})
            .value,
        90, 1e-4);
}

TEST(ConditionState, AColourRelativeToAPaperThatNobodyMeasuredIsStillAColour) {
    auto const conditions =
        With({{Key::ColorSpaceType, "CIELab"}, {Key::Illumination, "D50"}, {Key::WhiteBase, "Paper"}});
    Tristim::NVColorVector const read({50, 10, 10}, conditions);
    EXPECT_NEAR(TristimService::Convert(read, With({{Key::ColorSpaceType, "CIELCh"}})).GetExact(2), 45, 1e-9);
    EXPECT_THROW(TristimService::GetVector(Flat(1), conditions), TristimException);
}
