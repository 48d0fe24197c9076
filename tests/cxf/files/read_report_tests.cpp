#include "cxf/conditions/ConditionText.h"
#include "tests/cxf/support.h"

#include <algorithm>
#include <gmock/gmock.h>

using namespace CxfTest;
using testing::Contains;
using testing::HasSubstr;
using Kind = Cxf::ReadNote::Kind;

namespace {

std::string TestFile(std::string const& name) { return std::string(TEST_DATA "foreign/") + name; }

Cxf::ReadReport ReportOf(std::string const& name) {
    Cxf::ReadReport report;
    Cxf::ReadOptions options;
    options.allowExtrapolation = true;
    options.report = &report;
    Cxf::ReadSampleSets(TestFile(name), options);
    return report;
}

bool Has(Cxf::ReadReport const& report, Kind kind, unsigned long line, std::string const& part) {
    return std::any_of(report.GetNotes().begin(), report.GetNotes().end(), [&](Cxf::ReadNote const& note) {
        return note.kind == kind && note.line == line && note.text.find(part) != std::string::npos;
    });
}

} // namespace

TEST(ReadReport, SaysWhatWasMadeOfAForeignFile) {
    struct Case {
        char const* file;
        Kind kind;
        unsigned long line;
        char const* part;
    };
    for (Case const& one :
         {Case{"defaults.txt", Kind::Assumed, 3,
               "Colorimetric.Illumination of CIELab is D50, the default of CGATS.17"},
          Case{"defaults.txt", Kind::Assumed, 3, "Colorimetric.Observer of CIELab is TwoDegree"},
          Case{"contradiction.txt", Kind::Contradiction, 3,
               "ILLUMINATION_NAME says D50 where ILLUMINANT says D65; D65 is assumed"},
          Case{"free_text.txt", Kind::Assumed, 2, "Physical.Filter is D65, which INSTRUMENTATION mentions"},
          Case{"percent.txt", Kind::Assumed, 3, "spectra in percent: a value is above 2"},
          Case{"norm.txt", Kind::Converted, 4, "on a scale of 100, stated by SPECTRAL_NORM"},
          Case{"misspelt_band.txt", Kind::Skipped, 3, "look like a spectrum or a colour, aren't understood"},
          Case{"xyz_fraction.txt", Kind::Assumed, 4, "CIEXYZ on a scale of 1"},
          Case{"narrow.txt", Kind::Assumed, 3, "end values repeated below 400 nm and above 700 nm"},
          Case{"wide_5nm.txt", Kind::Converted, 3, "triangular bandpass of 10 nm over values by 5 nm"},
          Case{"wide_5nm.txt", Kind::Converted, 3, "nothing above 730 nm used"},
          Case{"utf16le.txt", Kind::Converted, 0, "UTF-16"},
          Case{"two_tables.txt", Kind::Taken, 4, "CIELab under D65, 10°"},
          Case{"two_tables.txt", Kind::Taken, 12, "CIELab under D50 (assumed)"},
          Case{"filter.txt", Kind::Skipped, 2, "\"GELATINE\" in FILTER isn't understood"},
          Case{"percent.xml", Kind::Assumed, 5, "spectra in percent"},
          Case{"narrow.xml", Kind::Assumed, 2, "end values repeated below 400 nm and above 700 nm"},
          Case{"misspelt_condition.xml", Kind::Skipped, 2, "Colorimetric.Iluminant isn't known"},
          Case{"parameter.xml", Kind::Contradiction, 2, "FluorescentType belongs to the illumination F"},
          Case{"stated_grid.txt", Kind::Contradiction, 5, "SPECTRAL_BANDS is 31"},
          Case{"stated_grid.txt", Kind::Contradiction, 5, "SPECTRAL_START_NM is 400"},
          Case{"numbered.txt", Kind::Skipped, 3, "look like a spectrum"},
          Case{"unknown_keyword.txt", Kind::Skipped, 3, "STANDARD_ILLUM_SET isn't known"},
          Case{"unknown_keyword.txt", Kind::Skipped, 4, "OBSERVER has no value"}}) {
        auto const report = ReportOf(one.file);
        EXPECT_TRUE(Has(report, one.kind, one.line, one.part)) << one.file << ": " << one.part << "\n"
                                                               << report.GetText();
    }
    EXPECT_THAT(ReportOf("filter.txt").GetText(), HasSubstr("2: skipped: \"GELATINE\""));
}

TEST(ReadReport, StrictReadingRefusesWhatTheFileDoesntState) {
    for (auto const& [file, reason] : std::initializer_list<std::pair<char const*, char const*>>{
             {"defaults.txt", ":3:1: assumed: Colorimetric.Illumination of CIELab is D50"},
             {"contradiction.txt", ":3:1: contradiction: ILLUMINATION_NAME says D50"},
             {"percent.txt", ":3:1: assumed: spectra in percent"},
             {"narrow.txt", ":3:1: assumed: "},
             {"percent.xml", ":5:2: assumed: spectra in percent"}}) {
        Cxf::ReadOptions options;
        options.allowExtrapolation = true;
        options.strict = true;
        EXPECT_THAT(
            MessageOf<Cxf::FileException>([&, file = file] { Cxf::ReadSampleSets(TestFile(file), options); }),
            HasSubstr(std::string(file) + reason));
    }
    Cxf::ReadOptions strict;
    strict.strict = true;
    EXPECT_NO_THROW(Cxf::ReadSampleSets(TestFile("complete.txt"), strict));
}

TEST(ReadReport, AssumptionsSurviveBothFormats) {
    auto const sets = Cxf::ReadSampleSets(TestFile("defaults.txt"));
    for (Cxf::SampleFormat const format : {Cxf::SampleFormat::Cgats, Cxf::SampleFormat::Xml}) {
        auto const again = Cxf::ParseSampleSets(Cxf::FormatSampleSets(sets, format), "again");
        auto const& before = sets[0]->GetSamples()[0]->GetSampleAttributes()[0]->GetConditions();
        auto const& after = again[0]->GetSamples()[0]->GetSampleAttributes()[0]->GetConditions();
        EXPECT_EQ(after.GetMeasureConditions().GetAssumption(Key::Illumination), "CGATS.17");
        EXPECT_TRUE(before == after);
    }
}

TEST(ReadReport, FilesOfOtherEncodingsAreTheSameSamples) {
    for (char const* const name : {"utf16le.txt", "utf16be.txt"}) {
        auto const set = Cxf::ReadSampleSet(TestFile(name));
        ASSERT_EQ(set->GetSamples().size(), 1U);
        EXPECT_EQ(set->GetSamples()[0]->GetName(), "Grün");
    }
    auto const set = Cxf::ReadSampleSet(TestFile("latin1.txt"));
    std::string const xml = Cxf::FormatSampleSets({set}, Cxf::SampleFormat::Xml);
    EXPECT_THAT(xml, HasSubstr("Name=\"Grün €\""));
    EXPECT_EQ(Cxf::ParseSampleSets(xml, "again")[0]->GetSamples()[0]->GetName(), "Grün €");
}

TEST(ReadReport, XmlLosesNothingToRemarks) {
    auto const sets = Cxf::ReadSampleSets(TestFile("remarks.xml"));
    auto const& spectrum =
        dynamic_cast<Cxf::Spectrum const&>(*sets[0]->GetSamples()[0]->GetSampleAttributes()[0]);
    ASSERT_EQ(spectrum.GetValues().size(), 36U);
    EXPECT_EQ(spectrum.GetValues()[35], 0.45);
    EXPECT_EQ(spectrum.GetConditions().GetAttribute(Key::Filter, ""), "UVCut");
    std::string const again = Cxf::FormatSampleSets(sets, Cxf::SampleFormat::Xml);
    for (char const* const remark : {"<!-- blue -->", "<?instrument lamp=\"7\"?>", "<!-- filter -->",
                                     "<?Conditions before?>", "<?Values before?>", "<?CXFSample before?>"})
        EXPECT_THAT(again, HasSubstr(remark));
}

TEST(ReadReport, XmlRefusesConditionsThatDontExist) {
    for (auto const& [file, reason] : std::initializer_list<std::pair<char const*, char const*>>{
             {"unknown_illuminant.xml",
              "the condition Colorimetric.Illumination is \"D66\"; expected one of A, B"},
             {"unknown_type.xml",
              "the condition Physical.SpectrumType is \"Reflectance\"; expected one of Remission"},
             {"no_temperature.xml", "illumination Dxx needs the condition"},
             {"comma.xml", "\"50,5\" in <Values> has a decimal comma"}})
        EXPECT_THAT(MessageOf<Cxf::FileException>([file = file] { Cxf::ReadSampleSets(TestFile(file)); }),
                    HasSubstr(reason));
}

TEST(ReadReport, SpectraAboveTwoAreFractionsAgainAfterWriting) {
    auto const set = Utilities::MakeSmart<Cxf::SampleSet>();
    auto const sample = Utilities::MakeSmart<Cxf::Sample>("fluorescent");
    sample->AddSampleAttribute(Utilities::MakeSmart<Cxf::Spectrum>(380, 10, std::vector<double>(36, 2.5)));
    set->AddSample(sample);
    for (Cxf::SampleFormat const format : {Cxf::SampleFormat::Cgats, Cxf::SampleFormat::Xml})
        EXPECT_FLOAT_EQ(
            SpectrumOf(*Cxf::ParseSampleSets(Cxf::FormatSampleSets({set}, format), "t")[0]->GetSamples()[0])
                .GetValues()[0],
            2.5F);
}

TEST(ReadReport, AskingForOneChangesNothing) {
    std::string fields = "CGATS.17\nBEGIN_DATA_FORMAT\n";
    std::string values;
    for (int nm = 380; nm <= 730; nm += 10) {
        fields += "NM" + std::to_string(nm) + " ";
        values += "-1e200 ";
    }
    fields += "\nEND_DATA_FORMAT\nBEGIN_DATA\n";
    Cxf::ReadReport report;
    Cxf::ReadOptions options;
    options.report = &report;
    // No rows at all, and values that a double holds and a float doesn't.
    EXPECT_EQ(
        MessageOf<Cxf::FileException>([&] { Cxf::ParseSampleSets(fields + "END_DATA\n", "t", options); }),
        "t:1:1: the file holds no samples");
    EXPECT_EQ(Cxf::ParseSampleSets(fields + values + "\nEND_DATA\n", "t", options).size(), 1U);
}
