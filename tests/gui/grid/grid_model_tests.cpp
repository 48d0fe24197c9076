// Tables without a window: axes against a plain list of sizes, styles, history, sorting, exchange with other
// programs, pages.
#include "gui/grid/GridPages.h"
#include "gui/grid/model/GridNumber.h"
#include "gui/grid/printing/GridPrintLayout.h"
#include "tests/gui/grid/GridWindowFixture.h"

#include <numeric>
#include <random>
#include <set>

namespace {

using namespace GUI;
using Utilities::String;
using Window = Tests::GridWindow;

} // namespace

TEST(GridAxisOfSizes, IsWhereAListOfSizesSays) {
    std::mt19937 random(7);
    auto const pick = [&random](long most) { return static_cast<long>(random() % (most + 1)); };
    GridAxis axis(20);
    std::vector<long> sizes(61, 20);
    std::vector<bool> hidden(61, false);
    axis.SetCount(60);
    for (int step = 0; step < 400; ++step) {
        long const count = axis.GetCount();
        long const first = pick(count);
        long const last = std::min(first + pick(9), count);
        auto const at = [](auto& list, long index) { return list.begin() + index; };
        switch (pick(4)) {
        case 0:
            axis.Hide(first, last, step % 2 == 0);
            std::fill(at(hidden, first), at(hidden, last + 1), step % 2 == 0);
            break;
        case 1:
            if (first < 1) break;
            axis.Insert(first, 3);
            sizes.insert(at(sizes, first), 3, 20);
            hidden.insert(at(hidden, first), 3, false);
            break;
        case 2:
            if (first < 1 || count < 30) break;
            axis.Remove(first, last - first + 1);
            sizes.erase(at(sizes, first), at(sizes, last + 1));
            hidden.erase(at(hidden, first), at(hidden, last + 1));
            break;
        default:
            long const size = 5 * pick(4);
            axis.SetSize(first, last, size);
            std::fill(at(sizes, first), at(sizes, last + 1), size);
        }
        long start = 0;
        for (long line = 0; line <= axis.GetCount(); ++line) {
            long const size =
                hidden[static_cast<std::size_t>(line)] ? 0 : sizes[static_cast<std::size_t>(line)];
            ASSERT_EQ(axis.GetStart(line), start) << "step " << step << " line " << line;
            ASSERT_EQ(axis.GetSize(line), size);
            if (size != 0) {
                ASSERT_EQ(axis.GetLineAt(start), line);
                ASSERT_EQ(axis.GetLineAt(start + size - 1), line);
            }
            start += size;
        }
        ASSERT_EQ(axis.GetLineAt(start), -1);
    }
}

TEST(GridStyles, TheNearestToTheCellCounts) {
    CGXGridCore core;
    core.SetRowCount(10);
    core.SetColumnCount(4);
    auto const size = [](short value) {
        CGXStyle style;
        style.fontSize = value;
        return style;
    };
    core.SetTableStyle(size(8));
    core.SetStyle({1, 2, 10, 2}, size(9));
    core.SetStyle({3, 1, 3, 4}, size(10));
    core.SetStyle({3, 2, 3, 2}, size(11));
    EXPECT_EQ(core.GetStyle({1, 1}).GetFontSize(), 8);
    EXPECT_EQ(core.GetStyle({1, 2}).GetFontSize(), 9);
    EXPECT_EQ(core.GetStyle({3, 3}).GetFontSize(), 10);
    EXPECT_EQ(core.GetStyle({3, 2}).GetFontSize(), 11);
    CGXStyle bold;
    bold.bold = true;
    core.SetStyle({3, 2, 3, 2}, bold);
    EXPECT_EQ(core.GetStyle({3, 2}).GetFontSize(), 11) << "merged in";
    core.SetStyle({3, 2, 3, 2}, bold, false);
    EXPECT_EQ(core.GetStyle({3, 2}).GetFontSize(), 10) << "in its place";
    // Colours that come and go don't pile up.
    CGXStyle color;
    for (int i = 0; i < 20000; ++i) {
        color.interior = RGBVector(static_cast<unsigned char>(i), static_cast<unsigned char>(i >> 8), 7);
        core.SetStyle({5, 3, 5, 3}, color);
    }
    EXPECT_LT(core.GetStyles().GetCount(), 6000U);
    EXPECT_EQ(core.GetStyle({5, 3}).interior, color.interior);
    EXPECT_TRUE(core.GetStyle({3, 2}).bold.value_or(false));
}

TEST(GridContrast, TakesAThirdOfBlue) {
    EXPECT_EQ(GetContrast({0, 0, 255}), RGBVector(255, 255, 255));
    EXPECT_EQ(GetContrast({224, 0, 0}), RGBVector(255, 255, 255)) << "224 still is dark";
    EXPECT_EQ(GetContrast({224, 0, 1}), RGBVector(255, 255, 255)) << "a third of 1 is nothing";
    EXPECT_EQ(GetContrast({224, 0, 2}), RGBVector(0, 0, 0));
}

namespace {

std::string Snapshot(Window const& grid) {
    std::string text;
    for (long row = 1; row <= grid.GetRowCount(); ++row) {
        text += std::to_string(grid.GetRowHeight(row)) + ":";
        for (long column = 1; column <= grid.GetColCount(); ++column) text += grid.At(row, column) + " ";
    }
    return text;
}

} // namespace

TEST(GridHistorySteps, GoBackAndForthThroughAnything) {
    Window grid(8, 3);
    std::mt19937 random(3);
    std::vector<std::string> states{Snapshot(grid)};
    for (int i = 0; i < 60; ++i) {
        long const row = 1 + static_cast<long>(random() % static_cast<unsigned>(grid.GetRowCount()));
        switch (random() % 5) {
        case 0:
            grid.SortRows({{1 + static_cast<long>(random() % 3), random() % 2 == 0}});
            break;
        case 1:
            grid.InsertRows(row, 2);
            break;
        case 2:
            if (grid.GetRowCount() < 6) continue;
            grid.RemoveRows(row, 1);
            break;
        case 3:
            grid.HideRows(row, row, random() % 2 == 0);
            break;
        default:
            grid.GetHistory().SetText({row, 2}, String(std::to_string(random() % 100)));
        }
        states.push_back(Snapshot(grid));
    }
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        grid.Undo();
        ASSERT_EQ(Snapshot(grid), states[i]) << i;
    }
    EXPECT_FALSE(grid.GetHistory().CanUndo());
    for (std::size_t i = 1; i < states.size(); ++i) {
        grid.Redo();
        ASSERT_EQ(Snapshot(grid), states[i]) << i;
    }
}

TEST(GridHistorySteps, BecomeOneWhereTheyBelongTogether) {
    Window grid(8, 3);
    GridHistory& history = grid.GetHistory();
    for (char const* const text : {"a", "ab", "abc"}) history.SetText({1, 1}, text, true);
    history.SetText({1, 2}, "x", true);
    history.SetText({1, 1}, "d", true);
    EXPECT_EQ(history.GetCount(), 3U);
    grid.Undo();
    grid.Undo();
    grid.Undo();
    EXPECT_EQ(grid.At(1, 1), "11");
    // An edit names its row wherever sorting puts it.
    history.SetText({2, 1}, "0.5");
    grid.SortRows({{1, false}});
    EXPECT_EQ(grid.At(1, 1), "0.5");
    history.SetText({1, 1}, "999");
    grid.Undo();
    grid.Undo();
    grid.Undo();
    EXPECT_EQ(grid.At(2, 1), "21");
    // The limit drops the oldest and nothing else.
    for (std::size_t i = 0; i <= GridHistory::mostSteps; ++i)
        history.SetText({3, 1}, String(std::to_string(i)));
    grid.Undo();
    EXPECT_EQ(grid.At(3, 1), std::to_string(GridHistory::mostSteps - 1));
    EXPECT_LE(history.GetCount(), GridHistory::mostSteps);
}

TEST(GridSorting, PutsNumbersBeforeTextsAndKeepsEquals) {
    Window grid(7, 2);
    char const* const texts[][2] = {{"2", "c"},
                                    {"", "b"},
                                    {"b", "c"},
                                    {"-1e2", "a"},
                                    {"2.0", "a"},
                                    {"A", "a"},
                                    {"\u2212"
                                     "3",
                                     "b"}};
    for (long row = 1; row <= 7; ++row)
        for (long column = 1; column <= 2; ++column)
            grid.SetCell(static_cast<unsigned>(row), static_cast<unsigned>(column),
                         Window::Value(texts[row - 1][column - 1]));
    auto const lines = [&grid] {
        std::string order;
        for (long row = 1; row <= 7; ++row) order += std::to_string(grid.GetCore().GetRowLine(row));
        return order;
    };
    grid.SortRows({{1, false}});
    EXPECT_EQ(lines(), "4715632");
    grid.SortRows({{1, true}});
    EXPECT_EQ(lines(), "3615742") << "equals stay in their order, empty ones last";
    grid.SortRows({{2, false}, {1, false}});
    EXPECT_EQ(lines(), "4567213") << "7 before 2: a number, then an empty cell";
    grid.SortRows({});
    EXPECT_EQ(lines(), "1234567");
    grid.MergeCells({1, 1, 2, 1});
    EXPECT_FALSE(grid.SortRows({{1, false}}));
    EXPECT_TRUE(grid.Find("E2"));
    EXPECT_EQ(grid.GetSelection().GetCurrent(), (GridPlace{4, 1}));
}

TEST(GridTextExchange, LosesNothing) {
    GridTexts const cells{{"plain", "a\tb", "line\nbreak"}, {"\"quoted\"", "", "1,5"}};
    EXPECT_EQ(ReadGridText(WriteGridText(cells)), cells);
    EXPECT_EQ(ReadGridHtml(WriteGridHtml(cells))[1], cells[1]);
    EXPECT_EQ(ReadGridHtml(WriteGridHtml(cells))[0][2], cells[0][2]);
    using Rows = GridTexts;
    EXPECT_EQ(ReadGridText("a\tb\r\nc\rd\n"), (Rows{{"a", "b"}, {"c"}, {"d"}})) << "the three line ends";
    EXPECT_EQ(ReadGridText("5\" pipe\t\"open\tx"), (Rows{{"5\" pipe", "\"open", "x"}})) << "no closing quote";
    EXPECT_EQ(ReadGridText("\"say \"\"hi\"\"\"\t\n"), (Rows{{"say \"hi\"", ""}}));
    EXPECT_EQ(ReadGridHtml(
                  "<p>before<TABLE border=1><tr><td colspan=2> a &amp;\n b<br/>c</td><td>&#8722;1</table>x"),
              (Rows{{"a & b\nc", "",
                     "\u2212"
                     "1"}}));
    // Quotes without an end must not make reading take quadratic time.
    std::string open;
    for (int i = 0; i < 200000; ++i) open += "\"x\t";
    EXPECT_EQ(ReadGridText(open).front().size(), 200001U);
}

TEST(GridNumbers, HaveTheSignsOfTheLanguage) {
    EXPECT_EQ(ReadGridNumber(" -1,5 ", ','), -1.5);
    EXPECT_FALSE(ReadGridNumber("1.234,5", ','));
    EXPECT_FALSE(ReadGridNumber("inf"));
    EXPECT_FALSE(ReadGridNumber("--1"));
    EXPECT_EQ(KeepGridNumber("\u2212"
                             "1,50",
                             ','),
              "-1.50");
    EXPECT_EQ(KeepGridNumber("1,5 mm", ','), "1,5 mm") << "a text stays";
    EXPECT_EQ(ShowGridNumber("-1.50", ',', true), "\u2212"
                                                  "1,50");
}

TEST(GridPrinting, RepeatsHeadsAndLosesNoCell) {
    Window grid(100, 9);
    GridPrintOptions options;
    options.fitWidth = false;
    // 2 of 8 columns and 3 of 97 rows go to a page beside the frozen ones.
    GridPrintLayout const pages(grid.GetCore(), 3, 1, 240 + 1, 120 + 24, options);
    ASSERT_EQ(pages.GetPages().size(), 4U * 33U);
    std::multiset<std::string> texts;
    GridColors const colors;
    GridFonts fonts;
    for (std::size_t page = 0; page < pages.GetPages().size(); ++page) {
        TestSupport::RecordingDeviceContext context;
        GridDrawing drawing(context, colors, '.', fonts);
        pages.Paint(drawing, page);
        for (std::string const& row : context.GetRows("DrawText")) texts.insert(row.substr(row.find('"')));
    }
    for (long row = 4; row <= 100; ++row)
        for (long column = 2; column <= 9; ++column)
            EXPECT_GE(texts.count("\"" + std::to_string(row * 10 + column) + "\""), 1U)
                << row << " " << column;
    EXPECT_EQ(texts.count("\"22\""), 33U) << "a head is on every page of its columns";
    EXPECT_EQ(texts.count("\"11\""), 132U) << "the corner on all";
    options.fitWidth = true;
    GridPrintLayout const fitted(grid.GetCore(), 3, 1, 361, 120 + 24, options);
    EXPECT_NEAR(fitted.GetScale(), 361.0 / 721.0, 1e-9);
    EXPECT_EQ(fitted.GetPages().front().cells.right, 9);
    options.footer = "";
    // Heads that leave no room still let one row a page through.
    EXPECT_EQ(GridPrintLayout(grid.GetCore(), 50, 1, 800, 100, options).GetPages().size(), 50U);
}

TEST(GridPagesOfRows, KeepWhatWasLookedAtLast) {
    GridRows rows;
    GridPages pages;
    using Ranges = std::vector<std::pair<long, long>>;
    EXPECT_EQ(pages.GetMissing(rows, 60, 130, 140), (Ranges{{1, 140}}));
    rows.Make(70);
    EXPECT_EQ(pages.GetMissing(rows, 60, 130, 140), (Ranges{{1, 64}, {129, 140}}));
    for (long block = 0; block < 200; ++block) pages.Note(block * 64 + 1, block * 64 + 64);
    auto const surplus = pages.TakeSurplus();
    ASSERT_EQ(surplus.size(), 200 - GridPages::mostBlocks);
    EXPECT_EQ(surplus.front(), 0U);
}
