// What is too much in a file of measurements is refused where it is, and long reading can be watched and
// ended.
#include "Utilities/Limits.h"
#include "cxf/tolerance/ToleranceFile.h"
#include "tests/cxf/support.h"
#include "tests/support/Bounded.h"
#include "tests/support/TemporaryDirectory.h"

#include <cstdio>
#include <gmock/gmock.h>

using namespace CxfTest;
using testing::HasSubstr;
using Utilities::Limits;

namespace {

class WithLimits {
public:
    explicit WithLimits(Limits const& limits) { Limits::Set(limits); }
    WithLimits(WithLimits const&) = delete;
    WithLimits& operator=(WithLimits const&) = delete;
    ~WithLimits() { Limits::Set(Limits()); }
};

std::string Table(std::string const& header, std::size_t fields, std::size_t rows) {
    std::string text = "CGATS.17\n" + header + "BEGIN_DATA_FORMAT\n";
    for (std::size_t i = 0; i < fields; ++i) text += "F" + std::to_string(i) + " ";
    text += "\nEND_DATA_FORMAT\nBEGIN_DATA\n";
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t i = 0; i < fields; ++i) text += "1 ";
        text += "\n";
    }
    return text + "END_DATA\n";
}

std::string Refusal(std::string const& text, Cxf::ReadOptions const& options = {}) {
    try {
        Cxf::ParseSampleSets(text, "f", options);
    } catch (Cxf::FileException const& failure) {
        return failure.what();
    }
    return "accepted";
}

std::string const xmlBegin = "<CXF Version='1'><CXFSampleSet>\n";
std::string const xmlEnd = "</CXFSampleSet></CXF>";

} // namespace

TEST(SampleLimits, AreToldWithTheirPlace) {
    Limits limits;
    limits.samples = 3;
    limits.fields = 4;
    limits.values = 10;
    limits.headerEntries = 3;
    limits.headerText = 30;
    limits.textLength = 60;
    limits.fileElements = 6;
    limits.sampleFileBytes = 1000;
    WithLimits const with(limits);
    std::pair<std::string, char const*> const rows[] = {
        {Table("", 3, 3), "accepted"},
        {Table("", 2, 4), "f:9:1: more than 3 samples (the limit \"samples\""},
        {Table("", 5, 1), "f:3:13: more than 4 fields"},
        {Table("", 4, 3), "f:8:5: more than 10 values"},
        {Table("A 1\nB 1\nC 1\n", 1, 1), "f:4:1: more than 3 keywords and comments"},
        {Table("OBSERVER \"2 degrees, as ever and for always\"\n", 1, 1),
         "f:2:1: OBSERVER has more than 30 bytes"},
        {Table("A " + std::string(60, 'x') + "\n", 1, 1), "f:2:1: the line has more than 60 bytes"},
        {xmlBegin + "<CXFSample Name='a'/>\n<CXFSample Name='a'/><CXFSample Name='a'/><CXFSample Name='a'/>" +
             xmlEnd,
         "f:3:44: more than 3 samples"},
        {xmlBegin + "<a/><a/><a/><a/>\n<a/>" + xmlEnd, "f:3:1: more than 6 elements"},
        {xmlBegin +
             "<CXFSample Name='a'>\n<CXFColorVector><Values>1 2 3 4 5</Values></CXFColorVector></CXFSample>" +
             xmlEnd,
         "more than 4 numbers"},
    };
    for (auto const& [text, expected] : rows) EXPECT_THAT(Refusal(text), HasSubstr(expected)) << text;

    Tests::TemporaryDirectory const directory;
    Tests::WriteFile(directory / "f.txt", std::string(1001, ' '));
    EXPECT_THAT(MessageOf<Cxf::FileException>([&] { Cxf::ReadSampleSets(directory / "f.txt"); }),
                HasSubstr("f.txt: the file has more than 1000 bytes"));
    std::string tolerances = "<ToleranceSet Version='1'>";
    for (int i = 0; i < 5; ++i) tolerances += "<Limit Component='DE' Below='1'/>";
    EXPECT_THAT(
        MessageOf<Cxf::FileException>([&] { Cxf::ParseToleranceSet(tolerances + "</ToleranceSet>", "t"); }),
        HasSubstr("the limit \"fields\""));
}

TEST(SampleLimits, RefuseALineOfAHundredMegabytesAtOnce) {
    for (char const* const word : {"x", "1 ", "\"\" ", "a=b,"}) {
        std::string text = "CGATS.17\nINSTRUMENTATION ";
        text.reserve(100'000'100);
        while (text.size() < 100'000'000) text += word;
        EXPECT_TRUE(Tests::EndsSoon([&text] {
            std::string const told = Refusal(text);
            if (told.starts_with("f:2:1: the line has more than 1000000 bytes")) return true;
            std::fprintf(stderr, "%s\n", told.c_str());
            return false;
        })) << word;
    }
}

TEST(SampleLimits, KeepsTheLongestHeadersCheap) {
    EXPECT_TRUE(Tests::EndsSoon([] {
        std::string header;
        for (int i = 0; i < 90'000; ++i) header += "KEY" + std::to_string(i) + " value # and a remark\n";
        header.resize(header.size() / 2);
        header += "\nCONDITION \"" + std::string(999'000, ',') + "\"\nMEASUREMENT_SOURCE \"";
        for (int i = 0; i < 1600; ++i) header += "a=b;c=,,,";
        header += "\"\nREMARK \"";
        for (int i = 0; i < 450'000; ++i) header += "\"\"";
        header += "\"\n";
        Cxf::ReadReport report;
        Cxf::ReadOptions options;
        options.report = &report;
        return Refusal(Table(header, 9'000, 2), options) == "accepted";
    }));
}

TEST(SampleReading, TellsHowFarItIsAndCanBeEnded) {
    std::string const xml = [] {
        std::string samples;
        for (int i = 0; i < 5000; ++i) samples += "<CXFSample Name='" + std::to_string(i) + "'/>\n";
        return xmlBegin + samples + xmlEnd;
    }();
    std::string const two = Table("", 40, 2000);
    for (std::string const& text : {Table("", 40, 4000), two + two, xml}) {
        std::vector<double> told;
        Cxf::ReadOptions options;
        options.progress = [&told](double done) { return told.push_back(done), true; };
        EXPECT_EQ(Refusal(text, options), "accepted");
        EXPECT_GE(told.size(), 2U);
        EXPECT_LE(told.size(), 300U);
        EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
        EXPECT_GE(told.front(), 0);
        EXPECT_LE(told.back(), 1);
        EXPECT_GT(told.back(), 0.5);

        std::size_t const all = told.size();
        for (std::size_t last = 0; last < all; ++last) {
            std::size_t asked = 0;
            options.progress = [&](double) { return asked++ != last; };
            EXPECT_THROW(Cxf::ParseSampleSets(text, "f", options), Cxf::ReadCancelled);
            EXPECT_EQ(asked, last + 1) << "nobody is asked again";
        }
    }
    Limits limits;
    limits.milliseconds = 0;
    WithLimits const with(limits);
    EXPECT_THAT(Refusal(two), HasSubstr("reading takes more than 0 milliseconds"));
}
