#include "cxf/conditions/TristimException.h"
#include "tests/cxf/support.h"

#include <gmock/gmock.h>

using namespace CxfTest;
using testing::HasSubstr;
using ::Utilities::MakeSmart;

namespace {

std::string Write(std::vector<Cxf::SampleSetPointer> const& sets) {
    return Cxf::FormatSampleSets(sets, Cxf::SampleFormat::Cgats);
}

Cxf::SampleSetPointer SetWith(std::vector<Cxf::Sample::AttributePointer> const& attributes,
                              std::string const& name = "a") {
    auto set = MakeSmart<Cxf::SampleSet>();
    auto sample = MakeSmart<Cxf::Sample>(name);
    for (auto const& attribute : attributes) sample->AddSampleAttribute(attribute);
    set->AddSample(sample);
    return set;
}

} // namespace

TEST(CgatsWriter, WhatWasReadComesBack) {
    for (char const* const file : {SHIPPED_DATA "samples/cie_named_34_36band.txt", TEST_DATA "FOGRA39L.ti3",
                                   TEST_DATA "colour_order_1485_36band.txt"}) {
        auto const sets = Cxf::ReadSampleSets(file);
        std::string const text = Write(sets);
        auto const again = Cxf::ParseSampleSets(text, "again");
        ASSERT_EQ(again.size(), sets.size());
        ASSERT_EQ(again[0]->GetSamples().size(), sets[0]->GetSamples().size());
        EXPECT_EQ(again[0]->GetDescription(), sets[0]->GetDescription());
        for (std::size_t i = 0; i < sets[0]->GetSamples().size(); ++i) {
            auto const& one = *sets[0]->GetSamples()[i];
            auto const& other = *again[0]->GetSamples()[i];
            ASSERT_EQ(one.GetName(), other.GetName());
            ASSERT_EQ(one.GetId(), other.GetId());
            ASSERT_EQ(one.GetSampleAttributes().size(), other.GetSampleAttributes().size());
            for (std::size_t k = 0; k < one.GetSampleAttributes().size(); ++k) {
                auto const& a = one.GetSampleAttributes()[k];
                auto const& b = other.GetSampleAttributes()[k];
                ASSERT_EQ(a->GetType(), b->GetType());
                ASSERT_EQ(a->GetConditions(), b->GetConditions());
                if (a->GetType() == "CXFSpectrum") {
                    ASSERT_EQ(dynamic_cast<Cxf::Spectrum const&>(*a).GetValues(),
                              dynamic_cast<Cxf::Spectrum const&>(*b).GetValues());
                }
            }
        }
        EXPECT_EQ(text, Write(again));
    }
}

TEST(CgatsWriter, EditsConditionsAndOddTextsSurvive) {
    auto const set =
        SetWith({MakeSmart<Cxf::Spectrum>(380, 10.0 / 3, std::vector<double>(106, 0.1 / 3),
                                          Cxf::Conditions(With({{Key::Filter, "Polarizer"},
                                                                {Key::SpectrumType, "Transmission"},
                                                                {"Physical.\tOdd key", "x"}}))),
                 MakeSmart<Cxf::UnknownSampleAttribute>("NOTE #", "5e3 \"x\"")});
    set->SetDescription("dark \"blue\"");
    set->AddProperty("BEGIN_DATA", "1");
    auto const& sample = set->GetSamples()[0];
    sample->RenameSample("# \"1\"\n");
    sample->SetDescription("tab\there");
    auto const again = Cxf::ParseSampleSets(Write({set}), "again").front();
    auto const& copy = *again->GetSamples()[0];
    EXPECT_EQ(copy.GetName(), "# \"1\"");
    EXPECT_EQ(copy.GetDescription(), "tab\there");
    EXPECT_EQ(again->GetDescription(), "dark \"blue\"");
    EXPECT_EQ(again->GetProperty("BEGIN_DATA"), "1");
    auto const& spectrum = dynamic_cast<Cxf::Spectrum const&>(*copy.GetSampleAttributes()[0]);
    EXPECT_EQ(spectrum.GetValues()[7], 0.1 / 3);
    EXPECT_NEAR(spectrum.GetStep(), 10.0 / 3, 1e-12);
    EXPECT_EQ(spectrum.GetConditions(), sample->GetSampleAttributes()[0]->GetConditions());
    EXPECT_EQ(dynamic_cast<Cxf::UnknownSampleAttribute const&>(*copy.GetSampleAttributes()[1]).GetText(),
              "5e3 \"x\"");
}

TEST(CgatsWriter, RefusesWhatATableCantHold) {
    auto const lab = [](char const* illumination) {
        return MakeSmart<Cxf::ColorVector>(
            std::vector<double>{1, 2, 3},
            Cxf::Conditions(With({{Key::ColorSpaceType, "CIELab"},
                                  {Key::AbsoluteOrDeltaVector, "AbsoluteVector"},
                                  {Key::Observer, "TwoDegree"},
                                  {Key::Illumination, illumination}})));
    };
    EXPECT_NO_THROW(Write({SetWith({lab("D65")})}));
    auto const two = SetWith({lab("D50")});
    auto second = MakeSmart<Cxf::Sample>("b");
    second->AddSampleAttribute(lab("D65"));
    two->AddSample(second);
    auto const described = SetWith({lab("D50")});
    described->GetSamples()[0]->SetDescription("two\nlines");
    auto const foreign = SetWith({lab("D50")});
    foreign->GetSamples()[0]->SetForeign({{{"a", "b"}}, ""});
    auto const commented = SetWith({lab("D50")});
    commented->AddProperty("#", "one\nBEGIN_DATA");
    struct Case {
        Cxf::SampleSetPointer set;
        char const* message;
    };
    for (Case const& one :
         {Case{two, "sample \"b\" has other attributes"},
          Case{SetWith({lab("D50"), lab("D65")}), "LAB_A twice"},
          Case{SetWith({MakeSmart<Cxf::Recipe>(std::vector<Cxf::Recipe::Ingredient>{})}), "CXFRecipe"},
          Case{described, "line break"}, Case{commented, "line break"}, Case{foreign, "XML parts"},
          Case{SetWith({MakeSmart<Cxf::ColorVector>(
                   std::vector<double>{1, 2, 3}, Cxf::Conditions(With({{Key::ColorSpaceType, "LABmg"}})))}),
               "LABmg"},
          Case{SetWith({MakeSmart<Cxf::ColorVector>(std::vector<double>{1, 2, 3}, Cxf::Conditions())}),
               "conditions"},
          Case{MakeSmart<Cxf::SampleSet>(), "without samples"}})
        EXPECT_THAT(MessageOf<Tristim::TristimException>([&] { Write({one.set}); }), HasSubstr(one.message));
}

TEST(CgatsWriter, RefusesWavelengthsThatNoFieldNames) {
    auto const set = Utilities::MakeSmart<Cxf::SampleSet>();
    auto const sample = Utilities::MakeSmart<Cxf::Sample>("far");
    sample->AddSampleAttribute(Utilities::MakeSmart<Cxf::Spectrum>(57, 110, std::vector<double>(36, 0.5)));
    set->AddSample(sample);
    EXPECT_EQ(
        MessageOf<Tristim::TristimException>([&] { Cxf::FormatSampleSets({set}, Cxf::SampleFormat::Cgats); }),
        "CGATS has no fields for a spectrum from 57 to 3907 nm");
}
