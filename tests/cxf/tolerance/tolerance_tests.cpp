#include "cxf/conditions/IlluminantNames.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/samples/ColorOf.h"
#include "cxf/tolerance/Judge.h"
#include "cxf/tolerance/ToleranceFile.h"
#include "tests/cxf/support.h"

#include <gmock/gmock.h>

using namespace CxfTest;
using Cxf::DifferenceComponent;
using Cxf::Judgement;
using testing::HasSubstr;
using Tristim::TristimException;
using Utilities::MakeSmart;

namespace {

Cxf::SampleSet::SamplePointer LabSample(std::string const& name, std::vector<double> const& lab,
                                        std::string const& illuminant = "D50") {
    auto sample = MakeSmart<Cxf::Sample>(name);
    auto conditions = Tristim::Under(illuminant, 2);
    conditions.SetMeasureCondition(Key::ColorSpaceType, "CIELab");
    sample->AddSampleAttribute(MakeSmart<Cxf::ColorVector>(lab, Cxf::Conditions(conditions)));
    return sample;
}

void AddInk(Cxf::Sample& sample, std::vector<double> const& cmyk) {
    sample.AddSampleAttribute(
        MakeSmart<Cxf::ColorVector>(cmyk, Cxf::Conditions(With({{Key::ColorSpaceType, "CMYK"}}))));
}

Cxf::ToleranceSet Limits(std::vector<Cxf::ToleranceLimit> limits, double warning = 1) {
    Cxf::ToleranceSet set;
    set.name = "test";
    set.conditions = Tristim::Under("D50", 2);
    set.limits = std::move(limits);
    set.warning = warning;
    return set;
}

} // namespace

TEST(ColorOf, TakesTheSpectrumOrElseAColourThatHolds) {
    Cxf::Sample sample("Red");
    EXPECT_EQ(MessageOf<TristimException>([&] { ColorOf(sample); }),
              "sample \"Red\": it has neither a spectrum nor a colour");
    AddInk(sample, {0, 100, 100, 0});
    EXPECT_THROW(ColorOf(sample), TristimException) << "ink amounts are no colour";
    auto conditions = Tristim::Under("D65", 10);
    conditions.SetMeasureCondition(Key::ColorSpaceType, "CIELab");
    sample.AddSampleAttribute(
        MakeSmart<Cxf::ColorVector>(std::vector<double>{1, 2, 3}, Cxf::Conditions(conditions)));
    conditions = Tristim::Under("D50", 2);
    conditions.SetMeasureCondition(Key::ColorSpaceType, "CIELCh");
    sample.AddSampleAttribute(
        MakeSmart<Cxf::ColorVector>(std::vector<double>{50, 10, 90}, Cxf::Conditions(conditions)));
    EXPECT_NEAR(ColorOf(sample, Tristim::Under("D50", 2)).GetExact(2), 10, 1e-9)
        << "the one of this illuminant";
    EXPECT_EQ(ColorOf(sample).GetExact(0), 1);
    EXPECT_THAT(MessageOf<TristimException>([&] { ColorOf(sample, Tristim::Under("F11", 2)); }),
                HasSubstr("sample \"Red\": condition Colorimetric.Illumination is asked to be"));
    sample.AddSampleAttribute(MakeSmart<Cxf::Spectrum>(380, 10, std::vector<double>(36, 1.0)));
    EXPECT_NEAR(ColorOf(sample, Tristim::Under("F11", 2)).GetExact(0), 100, 1e-5);
    EXPECT_THROW(Tristim::Under("D65", 5), TristimException);
    EXPECT_THROW(Tristim::Under("Q", 2), TristimException);
}

TEST(Difference, HasItsComponentsFormulaAndCondition) {
    auto const reference = LabSample("a", {50, 30, 40});
    auto const sample = LabSample("b", {52, 27, 36});
    auto conditions = Tristim::Under("D50", 2);
    conditions.SetMeasureCondition(Key::DeltaEFormula, "CMC");
    auto const difference =
        Tristim::DifferenceOf(ColorOf(*reference), ColorOf(*sample), conditions, {1, 1, 0});
    EXPECT_NEAR(difference.lightness, 2, 1e-9);
    EXPECT_NEAR(difference.a, -3, 1e-9);
    EXPECT_NEAR(difference.b, -4, 1e-9);
    EXPECT_NEAR(difference.chroma, -5, 1e-9) << "both are on the same hue";
    EXPECT_NEAR(difference.hue, 0, 1e-6);
    EXPECT_NEAR(difference.total, Tristim::DeltaECmc({50, 30, 40}, {52, 27, 36}, 1, 1), 1e-9);
    EXPECT_THAT(difference.GetText(), HasSubstr("CMC(1:1) "));
    conditions.SetMeasureCondition(Key::DeltaEFormula, "94 textile");
    EXPECT_EQ(DifferenceOf(ColorOf(*reference), ColorOf(*sample), conditions, {0, 1, 0}).GetFormulaText(),
              "CIE94 textile (2:1:1)");
    EXPECT_THAT(difference.GetText(),
                HasSubstr("dL* 2.00, da* -3.00, db* -4.00, dC* -5.00, dH* 0.00; D50, 2°"));
}

TEST(Judge, EachLimitHasItsSay) {
    auto const reference = LabSample("a", {50, 30, 40});
    struct Case {
        std::vector<double> lab;
        std::vector<Cxf::ToleranceLimit> limits;
        double warning;
        Judgement judgement;
        char const* reason;
    };
    auto const total = [](double to) { return Cxf::ToleranceLimit{DifferenceComponent::Total, 0, to}; };
    for (Case const& one :
         {Case{{52, 30, 40}, {total(3)}, 1, Judgement::Pass, "dE*ab is 2, within 3 (D50, 2°)"},
          Case{{53, 30, 40}, {total(3)}, 1, Judgement::Pass, "dE*ab is 3, within 3"},
          Case{{53.01, 30, 40}, {total(3)}, 1, Judgement::Fail, "dE*ab is 3.01, above 3 (D50, 2°)"},
          Case{{53.0004, 30, 40}, {total(3)}, 1, Judgement::Fail, "dE*ab is 3.0004, above 3"},
          Case{{52.5, 30, 40},
               {total(3)},
               0.8,
               Judgement::Warning,
               "dE*ab is 2.5, above the warning level 2.4"},
          Case{{48, 30, 40},
               {total(3), {DifferenceComponent::Lightness, -1, 1}},
               1,
               Judgement::Fail,
               "dL* is -2, below -1 (D50, 2°)"},
          Case{{50, 30, 41},
               {{DifferenceComponent::B, 0.5, 1.5}},
               0.5,
               Judgement::Pass,
               "db* is 1, within 0.5 to 1.5"},
          Case{
              {50, 30, 41.4}, {{DifferenceComponent::B, 0.5, 1.5}}, 0.5, Judgement::Warning, "db* is 1.4"}}) {
        auto const verdict = Judge(Limits(one.limits, one.warning), *reference, *LabSample("b", one.lab));
        EXPECT_EQ(verdict.judgement, one.judgement) << one.reason;
        EXPECT_THAT(verdict.reason, HasSubstr(one.reason));
    }
}

TEST(Judge, NoDataIsNotAFailure) {
    auto const set = Limits({{DifferenceComponent::Total, 0, 3}});
    auto const reference = LabSample("a", {50, 30, 40});
    Cxf::Sample const empty("b");
    auto const none = Judge(set, *reference, empty);
    EXPECT_EQ(none.judgement, Judgement::NoData);
    EXPECT_FALSE(none.difference);
    EXPECT_EQ(none.reason, "sample \"b\": it has neither a spectrum nor a colour");
    auto const other = Judge(set, *reference, *LabSample("b", {50, 30, 40}, "D65"));
    EXPECT_EQ(other.judgement, Judgement::NoData);
    EXPECT_THAT(other.reason, HasSubstr("asked to be \"D50\", but that of the colour is \"D65\""));
    EXPECT_THROW(Judge(Limits({}), *reference, *reference), TristimException);
}

TEST(Judge, FindsTheReferenceByNameIdOrInk) {
    Cxf::SampleSet references;
    for (auto const& [name, id, ink] : std::vector<std::tuple<std::string, std::string, std::vector<double>>>{
             {"Cyan 100", "7", {100, 0, 0, 0}},
             {"Magenta 50", "8", {0, 50, 0, 0}},
             {"Magenta 51", "9", {0, 51, 0, 0}}}) {
        auto const sample = LabSample(name, {50, 0, 0});
        sample->SetId(id);
        AddInk(*sample, ink);
        references.AddSample(sample);
    }
    Cxf::SampleSet samples;
    auto const sample = LabSample("cyan_100", {51, 0, 0});
    sample->SetId("8");
    AddInk(*sample, {0, 50.4, 0, 0});
    samples.AddSample(sample);
    auto set = Limits({{DifferenceComponent::Total, 0, 3}});
    for (auto const& [match, name] :
         std::initializer_list<std::pair<Cxf::MatchBy, char const*>>{{Cxf::MatchBy::Name, "Cyan 100"},
                                                                     {Cxf::MatchBy::Id, "Magenta 50"},
                                                                     {Cxf::MatchBy::Device, "Magenta 50"}}) {
        set.match = match;
        auto const verdicts = JudgeAll(set, references, samples);
        ASSERT_EQ(verdicts.size(), 1U);
        ASSERT_FALSE(verdicts[0].reference.IsNull());
        EXPECT_EQ(verdicts[0].reference->GetName(), name);
        EXPECT_EQ(verdicts[0].verdict.judgement, Judgement::Pass);
    }
    set.matchDistance = 0.1;
    EXPECT_EQ(JudgeAll(set, references, samples)[0].verdict.reason, "there is no reference for \"cyan_100\"");
}

TEST(ToleranceFile, KeepsEverythingAndRefusesWhatItDoesntKnow) {
    auto set = Limits({{DifferenceComponent::Total, 0, 3}, {DifferenceComponent::Hue, -1.5, 2}}, 0.75);
    set.name = "Coated, \"fine\"";
    set.conditions.SetMeasureCondition(Key::DeltaEFormula, "2000");
    set.weights = {0, 2, 0};
    set.match = Cxf::MatchBy::Device;
    set.matchDistance = 1.5;
    std::string const text = FormatToleranceSet(set);
    auto const again = Cxf::ParseToleranceSet(text, "t");
    EXPECT_EQ(FormatToleranceSet(again), text);
    EXPECT_EQ(again.limits, set.limits);
    EXPECT_EQ(again.weights.first, 0);
    EXPECT_EQ(again.weights.second, 2) << "a default before it keeps its place";
    EXPECT_TRUE(again.conditions == set.conditions);
    EXPECT_EQ(again.match, Cxf::MatchBy::Device);
    std::string const head = "<ToleranceSet Version=\"1\">\n";
    for (
        auto const& [xml, reason] : std::vector<std::pair<std::string, char const*>>{
            {"<a/>", "t:1:2: the root is <a>"},
            {"<ToleranceSet/>", "t:1:2: the format's version is \"\""},
            {head + "</ToleranceSet>", "it has no limits"},
            {head + "<Limit Component=\"dE\" To=\"x\"/></ToleranceSet>",
             "t:2:2: the attribute To of <Limit> is \"x\""},
            {head + "<Limit Component=\"dQ\" To=\"1\"/></ToleranceSet>",
             "t:2:2: the component of a limit is \"dQ\""},
            {head + "<Limit Component=\"dE\" Max=\"1\"/></ToleranceSet>",
             "t:2:2: <Limit> has no attribute Max"},
            {head + "<Limits/></ToleranceSet>", "t:2:2: <Limits> in <ToleranceSet>"},
            {head + "<Limit Component=\"dL*\" From=\"2\" To=\"1\"/></ToleranceSet>", "excludes every colour"},
            {"<ToleranceSet Version=\"1\" Formula=\"1976\"><Limit Component=\"dE\" To=\"1\"/></ToleranceSet>",
             "condition ColorSpaceDescription.DeltaEFormula is \"1976\""},
            {head + "<Conditions><Condition Name=\"Colorimetric.Observr\" "
                    "Value=\"TwoDegree\"/></Conditions></ToleranceSet>",
             "t:2:14: there is no condition \"Colorimetric.Observr\""},
            {head + "<Conditions><Condition Name=\"Colorimetric.Observer\" "
                    "Value=\"2\"/></Conditions></ToleranceSet>",
             "t:2:14: the condition Colorimetric.Observer is \"2\"; expected one of TwoDegree"},
            {"<ToleranceSet Version=\"1\" Match=\"Colour\"/>", "expected Name, Id or Device"}})
        EXPECT_THAT(MessageOf<Cxf::FileException>([&xml = xml] { Cxf::ParseToleranceSet(xml, "t"); }),
                    HasSubstr(reason));
}
