#include "tests/cxf/support.h"

#include <gmock/gmock.h>

using namespace CxfTest;
using testing::HasSubstr;
using ::Utilities::MakeSmart;

namespace {

std::string Document(std::string const& inSample, std::string const& inSet = "") {
    return "<CXF Version=\"1\">\n<CXFSampleSet>" + inSet + "\n<CXFSample Name=\"s\">\n" + inSample +
           "</CXFSample></CXFSampleSet></CXF>";
}
std::string Write(std::vector<Cxf::SampleSetPointer> const& sets) {
    return Cxf::FormatSampleSets(sets, Cxf::SampleFormat::Xml);
}

} // namespace

TEST(Xml, EverythingSurvivesARoundTrip) {
    auto set = MakeSmart<Cxf::SampleSet>();
    set->SetName("set");
    set->SetDescription("a <b> & \"c\"\nsecond line\t");
    set->AddProperty("ORIGINATOR", "x\r\ny");
    auto sample = MakeSmart<Cxf::Sample>("Gr\xC3\xBCn <1>", "line\nbreak");
    sample->SetId("7");
    std::vector<double> values(71);
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = (static_cast<double>(i) - 3) / 7;
    sample->AddSampleAttribute(
        MakeSmart<Cxf::Spectrum>(380, 5, values, Cxf::Conditions(With({{Key::Filter, "UVCut"}})), true));
    auto const d65 = Cxf::Conditions(With({{Key::ColorSpaceType, "CIEXYZ"}, {Key::Illumination, "D65"}}));
    sample->AddSampleAttribute(MakeSmart<Cxf::ColorVector>(std::vector<double>{1.0 / 3, 2e-300, -4}, d65));
    sample->AddSampleAttribute(MakeSmart<Cxf::Recipe>(
        std::vector<Cxf::Recipe::Ingredient>{{"Rot", 0.1, "%"}, {"Wei\xC3\x9F", 99.9, ""}}));
    sample->AddSampleAttribute(MakeSmart<Cxf::UnknownSampleAttribute>("NOTE", " two  blanks "));
    set->AddSample(sample);

    auto const sets = Cxf::ParseSampleSets(Write({set}), "again");
    ASSERT_EQ(sets.size(), 1U);
    auto const& copySet = *sets[0];
    EXPECT_EQ(copySet.GetName(), set->GetName());
    EXPECT_EQ(copySet.GetDescription(), set->GetDescription());
    EXPECT_EQ(copySet.GetProperties(), set->GetProperties());
    auto const& copy = *copySet.GetSamples()[0];
    EXPECT_EQ(copy.GetName(), sample->GetName());
    EXPECT_EQ(copy.GetDescription(), sample->GetDescription());
    EXPECT_EQ(copy.GetId(), "7");
    auto const& spectrum =
        dynamic_cast<Cxf::Spectrum const&>(*copy.GetSampleAttribute("CXFSpectrum", {}, false));
    EXPECT_EQ(spectrum.GetValues(), values);
    EXPECT_TRUE(spectrum.MayExtrapolate());
    EXPECT_EQ(spectrum.GetConditions().GetAttribute(Key::Filter, ""), "UVCut");
    auto const colour = copy.GetSampleAttribute("CXFColorVector", d65, true);
    ASSERT_FALSE(colour.IsNull());
    EXPECT_EQ(dynamic_cast<Cxf::ColorVector const&>(*colour).GetVector().GetExact(1), 2e-300);
    auto const& recipe = dynamic_cast<Cxf::Recipe const&>(*copy.GetSampleAttribute("CXFRecipe", {}, false));
    EXPECT_EQ(recipe.GetIngredients(),
              dynamic_cast<Cxf::Recipe const&>(*sample->GetSampleAttributes()[2]).GetIngredients());
    auto const& note = dynamic_cast<Cxf::UnknownSampleAttribute const&>(*copy.GetSampleAttributes()[3]);
    EXPECT_EQ(note.GetText(), " two  blanks ");
}

TEST(Xml, UnknownPartsAreKeptWhereTheyStood) {
    std::string const text = "<CXF Version=\"1\" xmlns:x=\"urn:x\" x:a=\"1\"><!-- file --><x:file/>"
                             "<CXFSampleSet x:b=\"2\"><x:set><x:deep>t &amp; u</x:deep></x:set>"
                             "<CXFSample Name=\"s\" x:c=\"3\"><?pi data?><x:own v=\"4\"/>"
                             "<CXFRecipe x:d=\"5\"><x:mix/></CXFRecipe></CXFSample></CXFSampleSet></CXF>";
    auto const sets = Cxf::ParseSampleSets(text, "t");
    sets[0]->GetSamples()[0]->RenameSample("renamed");
    std::string const written = Write(sets);
    for (char const* const part :
         {"x:a=\"1\"", "<!-- file -->", "<x:file", "x:b=\"2\"", "t &amp; u", "x:c=\"3\"", "<?pi data?>",
          "<x:own v=\"4\"", "x:d=\"5\"", "<x:mix", "renamed"})
        EXPECT_THAT(written, HasSubstr(part));
    EXPECT_EQ(written, Write(Cxf::ParseSampleSets(written, "again")));
    EXPECT_EQ(sets[0]->GetSamples()[0]->GetSampleAttributes()[0]->GetType(), "CXFUnknownSampleAttribute");
}

TEST(Xml, CgatsAndXmlAreTheSameSamples) {
    auto const sets = Cxf::ReadSampleSets(TEST_DATA "FOGRA39L.ti3");
    std::string const cgats = Cxf::FormatSampleSets(sets, Cxf::SampleFormat::Cgats);
    auto const throughXml = Cxf::ParseSampleSets(Write(sets), "xml");
    EXPECT_EQ(Cxf::FormatSampleSets(throughXml, Cxf::SampleFormat::Cgats), cgats);
}

TEST(Xml, ErrorsSayWhereAndWhatWasExpected) {
    std::string const values = "<Values>1 2 3 4</Values>";
    struct Case {
        std::string text;
        char const* message;
    };
    for (Case const& one :
         {Case{"<CXF", "t:1:4: the file is no XML: Error parsing start element tag"},
          Case{"<a/>", "t:1:2: the root is <a>; expected <CXF>"},
          Case{"<CXF/>", "t:1:2: <CXF> lacks the attribute Version"},
          Case{"<CXF Version=\"2\"/>", "t:1:2: the format's version is \"2\"; expected \"1\""},
          Case{"<CXF Version=\"1\"/>", "t:1:1: the file holds no samples"},
          Case{Document("<CXFSample Name=\"x\"/>"), "t:4:2: <CXFSample> is inside a sample"},
          Case{Document("<CXFSpectrum Step=\"10\">" + values + "</CXFSpectrum>"),
               "t:4:2: <CXFSpectrum> lacks the attribute First"},
          Case{Document("<CXFSpectrum First=\"a\" Step=\"10\"/>"),
               "t:4:2: the attribute First of <CXFSpectrum> is \"a\"; expected a finite number"},
          Case{Document("<CXFSpectrum First=\"380\" Step=\"10\"/>"), "t:4:2: <CXFSpectrum> lacks <Values>"},
          Case{Document("<CXFSpectrum First=\"380\" Step=\"0\">" + values + "</CXFSpectrum>"),
               "t:4:2: a spectrum needs a first wavelength and a positive step"},
          Case{Document("<CXFSpectrum First=\"380\" Step=\"10\">" + values + "</CXFSpectrum>"),
               "t:4:2: the spectrum reaches from 380 to 410 nm; expected 380 to 730 nm"},
          Case{Document("<CXFColorVector><Values>1 2</Values></CXFColorVector>"),
               "t:4:2: a vector of CIELab has 3 elements; got 2"},
          Case{Document("<CXFColorVector>\n<Values>1 inf 2</Values></CXFColorVector>"),
               "t:5:2: \"inf\" in <Values>; expected a finite number"},
          Case{Document("<CXFColorVector><Conditions><Condition Name=\"ColorSpaceDescription.Type\" "
                        "Value=\"Lab\"/></Conditions><Values>1 2 3</Values></CXFColorVector>"),
               "t:4:30: the condition ColorSpaceDescription.Type is \"Lab\"; expected one of "},
          Case{Document("<CXFRecipe><Ingredient Name=\"a\"/></CXFRecipe>"),
               "t:4:13: <Ingredient> lacks the attribute Amount"},
          Case{Document("", "text"), "t:2:15: text in <CXFSampleSet>; expected elements"}})
        EXPECT_THAT(MessageOf<Cxf::FileException>([&] { Cxf::ParseSampleSets(one.text, "t"); }),
                    HasSubstr(one.message));
}

TEST(Xml, EntitiesDontMultiply) {
    std::string bomb = "<!DOCTYPE CXF [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;\">]>";
    auto const sets = Cxf::ParseSampleSets(bomb + Document("", "<Property Name=\"n\" Value=\"&b;\"/>"), "t");
    EXPECT_EQ(sets[0]->GetProperty("n"), "&b;");
}
