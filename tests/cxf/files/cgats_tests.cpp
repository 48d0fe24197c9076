#include "cxf/colorimetry/TristimService.h"
#include "tests/cxf/support.h"

#include <cmath>
#include <gmock/gmock.h>
#include <locale>
#include <tuple>

using namespace CxfTest;
using testing::HasSubstr;

namespace {

std::string Fields(char const* before, char const* after, int step = 10, int from = 380, int to = 730) {
    std::string fields;
    for (int nm = from; nm <= to; nm += step) fields += before + std::to_string(nm) + after + " ";
    return fields;
}
/// 0.1 + 0.001 a band, times `scale`.
std::string Values(std::size_t count = 36, double scale = 1) {
    std::string values;
    for (std::size_t i = 0; i < count; ++i)
        values += std::to_string(scale * (0.1 + 0.001 * static_cast<double>(i))) + " ";
    return values;
}
std::string Table(std::string const& fields, std::string const& values,
                  std::string const& header = "CGATS.17\n") {
    return header + "BEGIN_DATA_FORMAT\n" + fields + "\nEND_DATA_FORMAT\nBEGIN_DATA\n" + values +
           "\nEND_DATA\n";
}
Cxf::SampleSetPointer One(std::string const& text, Cxf::ReadOptions const& options = {}) {
    auto const sets = Cxf::ParseSampleSets(text, "test", options);
    EXPECT_EQ(sets.size(), 1U);
    return sets.front();
}

} // namespace

TEST(Cgats, ReadsTheShippedSamplesAndTheBookOfColour) {
    auto const cie =
        Cxf::ReadSampleSet(SHIPPED_DATA "samples/cie_named_34_36band.txt", {.requireSpectra = true});
    ASSERT_EQ(cie->GetSamples().size(), 34U);
    auto const& first = *cie->GetSamples().front();
    EXPECT_EQ(first.GetName(), "TCS01");
    EXPECT_EQ(first.GetId(), "1");
    EXPECT_FLOAT_EQ(SpectrumOf(first).GetValues()[1], 0.252F);
    EXPECT_THAT(cie->GetDescription(), HasSubstr("CIE test colour samples"));
    EXPECT_THAT(cie->GetProperty("SPECTRAL_SCALE"), HasSubstr("fraction"));

    auto const book = Cxf::ReadSampleSet(TEST_DATA "colour_order_1485_36band.txt", {.requireSpectra = true});
    EXPECT_EQ(book->GetSamples().size(), 1485U);
    // Values above one are measurements and stay.
    auto const bright = book->FindSample("2.5YR 7/12");
    ASSERT_FALSE(bright.IsNull());
    EXPECT_GT(SpectrumOf(*bright).GetValues().back(), 1);
}

TEST(Cgats, PrintingDataAgreeWithTheirOwnLab) {
    auto const set = Cxf::ReadSampleSet(TEST_DATA "FOGRA39L.ti3");
    ASSERT_EQ(set->GetSamples().size(), 1617U);
    double worst = 0;
    for (auto const& sample : set->GetSamples()) {
        Cxf::Conditions lab;
        lab.SetAttribute(Key::ColorSpaceType, "CIELab");
        Cxf::Conditions xyz;
        xyz.SetAttribute(Key::ColorSpaceType, "CIEXYZ");
        auto const vector = [&](Cxf::Conditions const& conditions) {
            auto const attribute = sample->GetSampleAttribute("CXFColorVector", conditions, false);
            return dynamic_cast<Cxf::ColorVector const&>(*attribute).GetVector();
        };
        worst = std::max(worst, static_cast<double>(Tristim::TristimService::GetDeltaE(
                                    vector(lab), vector(xyz), {}, 0, 0, 0)));
    }
    // XYZ has two decimals, which is what dark colours show; the file's white is 82.49, ours 82.51.
    EXPECT_LT(worst, 0.5);
    auto const device = set->GetSamples()[1]->GetSampleAttribute(
        "CXFColorVector", Cxf::Conditions(With({{Key::ColorSpaceType, "CMYK"}})), true);
    ASSERT_FALSE(device.IsNull());
    EXPECT_FLOAT_EQ(dynamic_cast<Cxf::ColorVector const&>(*device).GetVector().GetElement(1), 10);
    EXPECT_EQ(set->GetSamples()[1]->GetName(), "2");
    EXPECT_EQ(set->GetProperty("DEVICE_CLASS"), "OUTPUT");
}

TEST(Cgats, FractionOrPercentIsRecognisedAndStated) {
    struct Case {
        char const* header;
        double scale;
        char const* stated;
    };
    for (Case const& one :
         {Case{"", 1, "fraction: no value is above 2"}, Case{"", 100, "percent: a value is above 2"},
          Case{"SPECTRAL_NORM 100\n", 100, "percent: stated by SPECTRAL_NORM"},
          Case{"SPECTRAL_NORM 100\n", 1, "percent: stated by SPECTRAL_NORM"},
          Case{"SPECTRAL_NORM \"1.0\"\n", 1, "fraction: stated by SPECTRAL_NORM"}}) {
        auto const set =
            One(Table(Fields("NM", ""), Values(36, one.scale), std::string("CTI3\n") + one.header));
        EXPECT_EQ(set->GetProperty("SPECTRAL_SCALE"), one.stated);
        bool const percent = std::string(one.stated).starts_with("percent");
        EXPECT_NEAR(SpectrumOf(*set->GetSamples()[0]).GetValues()[0],
                    static_cast<float>(0.1 * one.scale / (percent ? 100 : 1)), 1e-6F);
    }
}

TEST(Cgats, LayoutOfTheText) {
    std::string const fields = "SAMPLE_ID NOTE " + Fields("NM", "") + " SAMPLE_NAME";
    std::string const text =
        "\xEF\xBB\xBF# made by hand\r\n\xEF\xBB\xBFORIGINATOR \"a \"\"lab\"\"\"\r\nUNQUOTED two words\r\n"
        "BEGIN_DATA_FORMAT " +
        fields +
        " END_DATA_FORMAT\r\nNUMBER_OF_SETS 2\r\n"
        "BEGIN_DATA\r\n7 \"#1\" " +
        Values() + "\"Rot 1\" # a comment\r\n\r\n8 -\t" + Values() + "\r\nBlau\r\nEND_DATA\r\n";
    auto const set = One(text);
    EXPECT_EQ(set->GetProperty("ORIGINATOR"), "a \"lab\"");
    EXPECT_EQ(set->GetProperty("UNQUOTED"), "two words");
    ASSERT_EQ(set->GetSamples().size(), 2U);
    EXPECT_EQ(set->GetSamples()[0]->GetName(), "Rot 1");
    EXPECT_EQ(set->GetSamples()[1]->GetName(), "Blau") << "a set may go on in the next line";
    auto const note = set->GetSamples()[0]->GetSampleAttribute("CXFUnknownSampleAttribute", {}, false);
    EXPECT_EQ(dynamic_cast<Cxf::UnknownSampleAttribute const&>(*note).GetText(), "#1");
    // Old line ends, and a second table.
    std::string const two =
        Table("LAB_B LAB_L LAB_A", "3 1 2") + Table("XYZ_X XYZ_Y XYZ_Z", "1 +2 3e0", "CTI3\r");
    auto const sets = Cxf::ParseSampleSets(two, "test");
    ASSERT_EQ(sets.size(), 2U);
    auto const lab = sets[0]->GetSamples()[0]->GetSampleAttributes()[0];
    EXPECT_FLOAT_EQ(dynamic_cast<Cxf::ColorVector const&>(*lab).GetVector().GetElement(2), 3);
}

TEST(Cgats, OtherRangesAndSteps) {
    // A cubic is met exactly by the interpolation of coarse steps, and nearly by the average of fine ones.
    auto const curve = [](double nm) {
        return 0.2 + 0.3 * std::pow((nm - 500) / 300, 3) + 0.1 * (nm - 380) / 350;
    };
    for (auto const& [from, to, count] :
         std::initializer_list<std::tuple<double, double, int>>{{360, 780, 421},
                                                                {380, 730, 176},
                                                                {300, 800, 101},
                                                                {380, 730, 106},
                                                                {380, 740, 19},
                                                                {340, 830, 50}}) {
        double const step = (to - from) / (count - 1);
        std::string fields;
        std::string values;
        for (int i = 0; i < count; ++i) {
            fields += "SPEC_" + std::to_string(std::lround(from + i * step)) + " ";
            values += std::to_string(curve(from + i * step)) + " ";
        }
        auto const set = One(Table(fields, values,
                                   "CTI3\nSPECTRAL_START_NM " + std::to_string(from) + "\nSPECTRAL_END_NM " +
                                       std::to_string(to) + "\n"));
        auto const spectrum = SpectrumOf(*set->GetSamples()[0]);
        for (std::size_t band = 0; band < 36; ++band)
            EXPECT_NEAR(static_cast<double>(spectrum.GetValues()[band]),
                        curve(380 + 10.0 * static_cast<double>(band)), step < 10 ? 3e-4 : 3e-6)
                << step;
        std::string const done = spectrum.GetMeasureConditions().GetMeasureCondition(Key::Resampling);
        EXPECT_EQ(done.find("triangular") != std::string::npos, step < 10) << done;
        EXPECT_EQ(done.find("Lagrange") != std::string::npos, step > 10) << done;
        EXPECT_EQ(done.find("nothing above 730 nm used") != std::string::npos, to > 730) << done;
    }
    std::string const narrow = Table(Fields("NM", "", 10, 400, 700), Values(31));
    EXPECT_EQ(MessageOf<Cxf::FileException>([&] { Cxf::ParseSampleSets(narrow, "test"); }),
              "test:3:1: the spectra reach from 400 to 700 nm; expected 380 to 730 nm");
    auto const set = One(narrow, {.allowExtrapolation = true});
    auto const spectrum = SpectrumOf(*set->GetSamples()[0]);
    EXPECT_FLOAT_EQ(spectrum.GetValues()[0], 0.1F);
    EXPECT_FLOAT_EQ(spectrum.GetValues()[35], 0.13F);
    EXPECT_EQ(spectrum.GetMeasureConditions().GetMeasureCondition(Key::Resampling),
              "end values repeated below 400 nm and above 700 nm");
}

TEST(Cgats, ErrorsSayWhereAndWhatWasExpected) {
    std::string const good = Table("SAMPLE_NAME " + Fields("NM", ""), "a " + Values());
    struct Case {
        std::string text;
        char const* message;
    };
    for (Case const& one : {
             Case{"", "t:1:1: the file is empty; expected CGATS text"},
             Case{"  \n\n", "t:3:1: the file is empty; expected CGATS text"},
             Case{std::string("CGATS\0x", 7), "t:1:6: the file is binary; expected CGATS text"},
             Case{"\x89PNG\r\n\x1a\n\x01", "t:3:1: the file is binary; expected CGATS text"},
             Case{"hello world\n", "t:2:1: the file ends in the header; expected BEGIN_DATA_FORMAT"},
             Case{"CGATS.17\nBEGIN_DATA\n", "t:2:1: BEGIN_DATA is in the header; expected BEGIN_DATA_FORMAT"},
             Case{"CGATS.17\nBEGIN_DATA_FORMAT\nA B\n",
                  "t:4:1: the data format doesn't end; expected END_DATA_FORMAT"},
             Case{"CGATS.17\nBEGIN_DATA_FORMAT\nA A\nEND_DATA_FORMAT\n",
                  "t:3:3: the field A is given twice in the data format"},
             Case{"CGATS.17\nBEGIN_DATA_FORMAT\nEND_DATA_FORMAT\n", "t:3:1: the data format has no fields"},
             Case{"X \"open\nY\n", "t:1:3: the quoted text doesn't end on its line; expected \""},
             Case{good.substr(0, good.size() - 12), "t:6:325: the file ends in the data; expected END_DATA"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 x"),
                  "t:6:5: \"x\" in field LAB_B; expected a finite number"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 nan"),
                  "t:6:5: \"nan\" in field LAB_B; expected a finite number"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 -inf"),
                  "t:6:5: \"-inf\" in field LAB_B; expected a finite number"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 1e999"),
                  "t:6:5: \"1e999\" in field LAB_B; expected a finite number"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 0,5"),
                  "t:6:5: \"0,5\" in field LAB_B has a decimal comma; expected a decimal point"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 3\n4 5\n6 7 8"),
                  "t:7:1: the line has 2 values; expected 3 (an empty cell is written \"\")"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 3", "CGATS.17\nNUMBER_OF_SETS 2\n"),
                  "t:2:1: NUMBER_OF_SETS is 2, but the data hold 1 sets"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 3", "CGATS.17\nNUMBER_OF_SETS 99999999999999999999\n"),
                  "t:2:1: NUMBER_OF_SETS is 1e+20, but the data hold 1 sets"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 3", "CGATS.17\nNUMBER_OF_FIELDS 4\n"),
                  "t:2:1: NUMBER_OF_FIELDS is 4, but the data format has 3 fields"},
             Case{Table("LAB_L LAB_A LAB_B", "1 2 3", "CGATS.17\nNUMBER_OF_FIELDS x\n"),
                  "t:2:1: NUMBER_OF_FIELDS is \"x\"; expected a number"},
             Case{Table("NM380 NM390 NM400 NM420 NM430", Values(5)),
                  "t:3:7: the wavelengths aren't evenly spaced: 390 nm where 393 nm is expected"},
             Case{Table("NM380 NM390", Values(2)), "t:3:1: a spectrum of 2 bands; expected at least 4"},
             Case{"CGATS.17\nBEGIN_DATA_FORMAT\nA\nEND_DATA_FORMAT\nBEgIN_DATA_FORMAT\nB\nBEGIN_DATA\n1\nEND_"
                  "DATA\n",
                  "t:5:1: BEgIN_DATA_FORMAT comes after the data format; expected BEGIN_DATA"},
             Case{Table("SAMPLE_ID", ""), "t:1:1: the file holds no samples"},
         })
        EXPECT_EQ(MessageOf<Cxf::FileException>([&] { Cxf::ParseSampleSets(one.text, "t"); }), one.message);
    EXPECT_EQ(MessageOf<Cxf::FileException>([] {
                  Cxf::ParseSampleSets(Table("LAB_L LAB_A LAB_B", "1 2 3"), "t", {.requireSpectra = true});
              }),
              "t:1:1: the file holds no spectra; expected fields such as SPECTRAL_NM380");
    EXPECT_EQ(MessageOf<Cxf::FileException>([] { Cxf::ReadSampleSets("/no/such.txt"); }),
              "/no/such.txt: can't be opened: No such file or directory");
    EXPECT_THAT(MessageOf<Cxf::FileException>([] { Cxf::ReadSampleSets("/"); }), HasSubstr("Is a directory"));
}

TEST(Cgats, NumbersDontDependOnTheLocale) {
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    std::locale const before = std::locale::global(std::locale(std::locale::classic(), new Comma));
    auto const set = One(Table("LAB_L LAB_A LAB_B", "1.5 -2.25 3"));
    std::string const cgats = Cxf::FormatSampleSets({set}, Cxf::SampleFormat::Cgats);
    std::string const xml = Cxf::FormatSampleSets({set}, Cxf::SampleFormat::Xml);
    std::locale::global(before);
    auto const& lab = dynamic_cast<Cxf::ColorVector const&>(*set->GetSamples()[0]->GetSampleAttributes()[0]);
    EXPECT_EQ(lab.GetVector().GetExact(1), -2.25);
    EXPECT_THAT(cgats, HasSubstr("1.5\t-2.25\t3"));
    EXPECT_THAT(xml, HasSubstr("1.5 -2.25 3"));
}
