// Reports without a platform: what is on which page.
#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "gui/report/ReportReader.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gmock/gmock.h>

namespace {

using namespace TestSupport;
using testing::Contains;
using testing::ElementsAre;
using Utilities::Anything;
using Utilities::String;

/// A character is 6 by 10 pixels.
std::vector<std::string> Wrapped(char const* text, long width) {
    RecordingDeviceContext context;
    std::vector<std::string> lines;
    for (String const& line : GUI::WrapText(context, text, width)) lines.push_back(line.GetStdString());
    return lines;
}

TEST(ReportText, WrapsAtBlanksAndWithinWhatHasNone) {
    EXPECT_THAT(Wrapped("one two three", 42), ElementsAre("one two", "three"));
    EXPECT_THAT(Wrapped("a\n\nb", 60), ElementsAre("a", "", "b"));
    EXPECT_THAT(Wrapped("abcdefgh i", 18), ElementsAre("abc", "def", "gh", "i"));
    EXPECT_THAT(Wrapped("\xC3\xA4\xC3\xB6\xC3\xBC", 6), ElementsAre("\xC3\xA4", "\xC3\xB6", "\xC3\xBC"));
    EXPECT_THAT(Wrapped("", 60), ElementsAre(""));
    EXPECT_THAT(Wrapped("wide", 0), ElementsAre("w", "i", "d", "e"));
    RecordingDeviceContext context;
    EXPECT_EQ(GUI::ElideText(context, "abcdefgh", 40), "abc\u2026") << "an ellipsis has three bytes here";
}

class ReportTest : public testing::Test {
protected:
    using Pages = std::vector<std::vector<std::string>>;

    static Anything Cells(std::initializer_list<Anything> cells) {
        Anything::VectorOfAnythings row(static_cast<std::uint32_t>(cells.size()));
        std::copy(cells.begin(), cells.end(), row.begin());
        return row;
    }
    static Utilities::SmartPointer<GUI::DescriptionTree>
    Table(std::initializer_list<Utilities::SmartPointer<GUI::DescriptionTree>> columns) {
        return Node({{"GUIElementType", "ReportTable"}, {"ElementName", "T"}}, columns);
    }
    GUI::Report Read(std::initializer_list<Utilities::SmartPointer<GUI::DescriptionTree>> children) {
        return GUI::ReportReader(
                   &source, [](GUI::DescriptionTree const&) { return std::unique_ptr<GUI::ReportBlock>(); })
            .Read(*Node({{"GUIElementType", "Report"}}, children));
    }
    /// The texts on each page of 300 by 200.
    static Pages TextsOf(GUI::Report const& report) {
        GUI::ReportLayout layout(report);
        RecordingDeviceContext measure;
        Pages pages(layout.LayOut(measure, 300, 200));
        for (std::size_t page = 0; page < pages.size(); ++page) {
            RecordingDeviceContext context;
            layout.Paint(context, page);
            for (std::string const& row : context.GetRows("DrawText"))
                pages[page].push_back(row.substr(row.find('"')));
        }
        return pages;
    }
    FakeDataSource source;
};

TEST_F(ReportTest, RepeatsHeadsAndNumbersPagesAndLosesNoRow) {
    source.values[{"T", "RowCount"}] = 12L;
    for (long i = 1; i <= 12; ++i)
        source.values[{"T", ("Row " + std::to_string(i)).c_str()}] =
            Cells({Anything(String("r") + String(i)), -0.5 * static_cast<double>(i)});
    auto const report = Read(
        {Node({{"GUIElementType", "PageFooter"}, {"Right", "Page %1 of %2"}}),
         Table({Node({{"GUIElementType", "ReportColumn"}, {"Caption", "Name"}}),
                Node({{"GUIElementType", "ReportColumn"}, {"Caption", "a*"}, {"NumberFormat", "Lab"}})})});
    Pages const pages = TextsOf(report);
    // 164 pixels for a head of 28 and rows of 28.
    ASSERT_EQ(pages.size(), 3U);
    std::vector<std::string> rows;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(pages[i][0], "\"Name\"");
        EXPECT_THAT(pages[i], Contains("\"Page " + std::to_string(i + 1) + " of 3\""));
        for (std::string const& text : pages[i])
            if (text.starts_with("\"r")) rows.push_back(text);
    }
    EXPECT_THAT(rows, ElementsAre("\"r1\"", "\"r2\"", "\"r3\"", "\"r4\"", "\"r5\"", "\"r6\"", "\"r7\"",
                                  "\"r8\"", "\"r9\"", "\"r10\"", "\"r11\"", "\"r12\""));
    EXPECT_THAT(pages[0], Contains("\"\u22120.50\""));
}

TEST_F(ReportTest, KeepsAHeadingWithWhatFollowsIt) {
    source.values[{"T", "RowCount"}] = 1L;
    source.values[{"T", "Row 1"}] = Cells({"cell"});
    auto const heading = Node({{"GUIElementType", "Heading"}, {"Caption", "Head"}, {"Condition", "D50"}});
    auto const lines = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i) text += (i == 0 ? "x" : "\nx");
        return Node({{"GUIElementType", "Paragraph"}, {"Caption", text.c_str()}});
    };
    auto const table = Table({Node({{"GUIElementType", "ReportColumn"}, {"Caption", "C"}})});
    // Head, table head and row take 18 + 27 + 12 + 56 below the lines of 21.
    EXPECT_EQ(TextsOf(Read({lines(4), heading, table})).size(), 1U);
    Pages const pages = TextsOf(Read({lines(5), heading, table}));
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_THAT(pages[1], ElementsAre("\"Head\"", "\"D50\"", "\"C\"", "\"cell\""));
    EXPECT_EQ(TextsOf(Read({lines(1), Node({{"GUIElementType", "PageBreak"}}), lines(1)})).size(), 2U);
    EXPECT_EQ(TextsOf(Read({lines(1), Node({{"GUIElementType", "PageBreak"}})})).size(), 1U);
    EXPECT_EQ(TextsOf(Read({})).size(), 1U) << "an empty report has a page";
}

TEST_F(ReportTest, WritesCellsByTheirKind) {
    source.values[{"T", "RowCount"}] = 2L;
    source.values[{"T", "Row 1"}] =
        Cells({GUI::RGBVector(1, 2, 3).GetAnything(), "Marginal", "a cell with more words than its column"});
    auto const column = [](char const* control) {
        return Node({{"GUIElementType", "ReportColumn"}, {"Caption", "C"}, {"Control", control}});
    };
    auto const report = Read({Table({column("Patch"), column("Verdict"), column("Text")})});
    EXPECT_THAT(TextsOf(report)[0],
                ElementsAre("\"C\"", "\"C\"", "\"C\"", "\"MARGINAL\"", "\"a cell with\"", "\"more words\"",
                            "\"than its\"", "\"column\"", "\"\u2013\""));
    EXPECT_EQ(report.blocks[0]->GetHeight(0), 4 * 21 + 7) << "as high as its lines";
}

TEST_F(ReportTest, RefusesWhatItCantShow) {
    using Norvelian::Utilities::Exceptions::InvalidArgumentException;
    EXPECT_THROW(Read({Node({{"GUIElementType", "Button"}})}), InvalidArgumentException);
    source.values[{"T", "RowCount"}] = 2000000000L;
    EXPECT_THROW(Read({Table({})}), InvalidArgumentException);
    source.values[{"T", "RowCount"}] = 3L;
    EXPECT_EQ(TextsOf(Read({Table({})})).size(), 1U) << "no columns";
}

} // namespace
