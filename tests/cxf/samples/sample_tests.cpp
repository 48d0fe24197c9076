#include "cxf/conditions/TristimException.h"
#include "tests/cxf/support.h"

#include <gmock/gmock.h>

using namespace CxfTest;
using Change = Cxf::SampleSet::Change;
using testing::ElementsAre;
using ::Utilities::MakeSmart;

TEST(Sample, RenamingKeepsNamesUnique) {
    Cxf::SampleSet set;
    for (char const* const name : {"Red", "Blue", "Red (2)"}) set.AddSample(MakeSmart<Cxf::Sample>(name));
    auto const& blue = set.GetSamples()[1];
    struct Case {
        char const* wanted;
        char const* given;
    };
    for (Case const& one :
         {Case{"Red", "Red (3)"}, Case{"Red (3)", "Red (3)"}, Case{"  Green\t", "Green"}, Case{"a\nb", "a b"},
          Case{"", "a b"}, Case{" \n ", "a b"}, Case{"Red (2)", "Red (2) (2)"}}) {
        EXPECT_EQ(blue->RenameSample(one.wanted), one.given) << one.wanted;
        EXPECT_EQ(blue->GetName(), one.given);
    }
    // Through the interface that a selection sees, and without a set.
    Cxf::Sample lone("x");
    Cxf::Extensions::SelectableElement& element = lone;
    EXPECT_EQ(element.RenameSample("Red"), "Red");
}

TEST(Sample, ObserversHearOfEveryChangeOnce) {
    Cxf::SampleSet set;
    std::vector<std::pair<Change, std::string>> heard;
    std::size_t const number = set.AddObserver(
        [&](Change change, Cxf::Sample const& sample) { heard.emplace_back(change, sample.GetName()); });
    auto sample = MakeSmart<Cxf::Sample>("a");
    sample->RenameSample("b");
    set.AddSample(sample);
    sample->RenameSample("c");
    sample->RenameSample("c");
    sample->SetDescription("text");
    sample->SetDescription("text");
    sample->AddSampleAttribute(MakeSmart<Cxf::Recipe>(std::vector<Cxf::Recipe::Ingredient>{}));
    sample->RemoveSampleAttribute(0);
    EXPECT_TRUE(set.RemoveSample(*sample));
    EXPECT_FALSE(set.RemoveSample(*sample));
    sample->SetDescription("unheard");
    using P = std::pair<Change, std::string>;
    EXPECT_THAT(heard,
                ElementsAre(P{Change::Added, "b"}, P{Change::Name, "c"}, P{Change::Description, "c"},
                            P{Change::Attribute, "c"}, P{Change::Attribute, "c"}, P{Change::Removed, "c"}));
    set.RemoveObserver(number);
    set.AddSample(sample);
    EXPECT_EQ(heard.size(), 6U);
}

TEST(Sample, ObserversMayComeAndGoWhileCalled) {
    Cxf::SampleSet set;
    int first = 0;
    int second = 0;
    std::size_t secondNumber = 0;
    std::size_t const firstNumber = set.AddObserver([&](Change, Cxf::Sample const&) {
        ++first;
        set.RemoveObserver(secondNumber);
        set.RemoveObserver(firstNumber);
        set.AddObserver([&](Change, Cxf::Sample const&) { ++first; });
    });
    secondNumber = set.AddObserver([&](Change, Cxf::Sample const&) { ++second; });
    set.AddSample(MakeSmart<Cxf::Sample>("a"));
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0) << "removed before its turn";
    set.AddSample(MakeSmart<Cxf::Sample>("b"));
    EXPECT_EQ(first, 2);
}

TEST(Sample, OutlivesItsSet) {
    auto sample = MakeSmart<Cxf::Sample>("a");
    {
        Cxf::SampleSet set;
        set.AddSample(sample);
        EXPECT_THROW(set.AddSample(sample), Tristim::TristimException);
        EXPECT_THROW(set.AddSample({}), Tristim::TristimException);
    }
    EXPECT_EQ(sample->GetSet(), nullptr);
    EXPECT_EQ(sample->RenameSample("b"), "b");
}

TEST(Sample, AttributesAreFoundByTypeAndConditions) {
    Cxf::Sample sample("a");
    auto const make = [](char const* filter) {
        return MakeSmart<Cxf::Spectrum>(
            380, 10, std::vector<double>(36, 0.5),
            Cxf::Conditions(With({{Key::Filter, filter}, {Key::SpectrumType, "Remission"}})));
    };
    sample.AddSampleAttribute(make("No"));
    sample.AddSampleAttribute(make("UVCut"));
    auto const find = [&](char const* type, KeyValues values, bool exact) {
        auto const found = sample.GetSampleAttribute(type, Cxf::Conditions(With(values)), exact);
        return found.IsNull() ? std::string("none")
                              : found->GetConditions().GetAttribute(Key::Filter, "default");
    };
    EXPECT_EQ(find("CXFSpectrum", {}, false), "No");
    EXPECT_EQ(find("CXFSpectrum", {{Key::Filter, "UVCut"}}, false), "UVCut");
    EXPECT_EQ(find("CXFSpectrum", {{Key::Filter, "Polarizer"}}, false), "none");
    EXPECT_EQ(find("CXFSpectrum", {{Key::Filter, "UVCut"}}, true), "none");
    EXPECT_EQ(find("CXFRecipe", {}, false), "none");
    EXPECT_EQ(Cxf::Conditions().GetAttribute(Key::SpectrumType, "AmbientLight"), "AmbientLight");
    Cxf::Recipe const recipe({});
    EXPECT_THROW(Cxf::Extensions::Cxf2NV(recipe), Tristim::TristimException);
}
