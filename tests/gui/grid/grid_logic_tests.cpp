// Tables without a window: axes against a plain list of sizes, styles, history, sorting, exchange with other
// programs, and what mouse and keys do.
#include "gui/grid/GridPages.h"
#include "gui/grid/model/GridNumber.h"
#include "gui/grid/printing/GridPrintLayout.h"
#include "gui/grid/view/CGXGridWnd.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <set>

namespace {

using namespace GUI;
using Utilities::String;

/// A window of 300 by 100 that writes down what is asked of it.
class Window : public CGXGridWnd, public GridObserver {
public:
    Window(long rows, long columns) {
        SetObserver(this);
        SetRowCount(rows);
        SetColCount(columns);
        OnSize(300, 100);
        for (long row = 1; row <= std::min(rows, 100L); ++row)
            for (long column = 1; column <= columns; ++column)
                SetStyleRange(GridRange::Of({row, column}), Value(std::to_string(row * 10 + column)));
        asked.clear();
    }
    static CGXStyle Value(std::string const& text) {
        CGXStyle style;
        style.value = String(text);
        return style;
    }
    std::string At(long row, long column) const { return GetCore().GetText({row, column}); }
    std::string TakeAsked() { return std::exchange(asked, {}); }
    void Press(GridKey key, bool shift = false, bool control = false) { OnKey(key, {shift, control}); }
    std::string Selected() const {
        std::string text;
        for (GridRange const& range : GetSelection().GetRanges())
            text += std::to_string(range.top) + "," + std::to_string(range.left) + "-" +
                    std::to_string(range.bottom) + "," + std::to_string(range.right) + " ";
        return text;
    }

    std::string asked;
    std::string clipboard;
    std::string typed;

    void OnEndEditing(GridPlace const& place) override {
        asked += "edited " + std::to_string(place.row) + "," + std::to_string(place.column) + " ";
    }
    void OnCellsChanged(std::vector<GridPlace> const& cells) override {
        asked += "changed " + std::to_string(cells.size()) + " ";
    }
    void OnPasteRefused(long rows, long columns) override {
        asked += "refused " + std::to_string(rows) + "x" + std::to_string(columns) + " ";
    }

protected:
    void RepaintBox(GridBox const&) override {}
    void ScrollPixels(GridBox const& area, long dx, long dy) override {
        asked +=
            "scroll " + std::to_string(area.top) + " " + std::to_string(dx) + " " + std::to_string(dy) + " ";
    }
    void SetScrollBars(long, long, long, long, long, long) override {}
    void ShowEditor(GridBox const&, String const& text, CGXStyle const&, bool) override { typed = text; }
    String GetEditorText() const override { return String(typed); }
    void MoveEditor(GridBox const&) override {}
    void HideEditor() override {}
    void ShowChoices(GridBox const&, std::vector<String> const&, String const&) override {}
    void SetCursor(GridCursor) override {}
    long MeasureText(String const& text, CGXStyle const&) const override { return 7 * text.Length(); }
    void StartDrag(std::string const& text, std::string const&, std::optional<RGBVector> const&) override {
        asked += "drag " + text;
    }
    void SetClipboard(std::string const& text, std::string const&) override { clipboard = text; }
    void GetClipboard(std::string& text, std::string&) const override { text = clipboard; }
};

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

TEST(GridWindow, PastesAllOrNothing) {
    Window grid(4, 3);
    grid.SetDecimalSign(',');
    CGXStyle number;
    number.number = true;
    grid.SetColStyle(2, number);
    grid.Select({1, 1}, {1, 1, 1, 1});
    grid.clipboard = "x\t1,5\ny\ttext\n";
    grid.Press(GridKey::Paste);
    EXPECT_EQ(grid.At(1, 2) + grid.At(2, 2), "1.5text");
    EXPECT_EQ(grid.TakeAsked(), "changed 4 ");
    grid.Press(GridKey::Copy);
    EXPECT_EQ(grid.clipboard, "x\t1,5\ny\ttext\n");
    grid.Undo();
    EXPECT_EQ(grid.At(1, 1) + grid.At(2, 2), "1122");
    grid.TakeAsked();
    // What doesn't fit isn't pasted in part, unless rows may be added.
    grid.Select({4, 2}, {4, 2, 4, 2});
    grid.Press(GridKey::Paste);
    EXPECT_EQ(grid.TakeAsked(), "refused 2x2 ");
    EXPECT_EQ(grid.At(4, 2), "42");
    grid.SetMayGrow(true);
    grid.Press(GridKey::Paste);
    EXPECT_EQ(grid.GetRowCount(), 5);
    EXPECT_EQ(grid.At(5, 2), "y");
    grid.Undo();
    EXPECT_EQ(grid.GetRowCount(), 4);
    CGXStyle readOnly;
    readOnly.readOnly = true;
    grid.SetStyleRange({1, 3, 1, 3}, readOnly);
    grid.Select({1, 2}, {1, 2, 1, 2});
    grid.TakeAsked();
    grid.Press(GridKey::Paste);
    EXPECT_EQ(grid.TakeAsked(), "refused 2x2 ");
    // One cell fills all that are selected.
    grid.clipboard = "7";
    grid.Select({2, 1}, {2, 1, 4, 2});
    grid.Press(GridKey::Paste);
    EXPECT_EQ(grid.At(2, 1) + grid.At(4, 2) + grid.At(4, 3), "7743");
}

TEST(GridWindow, KeysMoveAndSelect) {
    Window grid(1000, 4);
    grid.SetCurrent({1, 1});
    grid.TakeAsked();
    grid.Press(GridKey::Down);
    grid.Press(GridKey::Right, true);
    grid.Press(GridKey::Down, true);
    EXPECT_EQ(grid.Selected(), "2,1-3,2 ");
    grid.Press(GridKey::Left, true);
    EXPECT_EQ(grid.Selected(), "2,1-3,1 ");
    grid.Press(GridKey::End, false, true);
    EXPECT_EQ(grid.Selected(), "1000,4-1000,4 ");
    grid.TakeAsked();
    grid.Press(GridKey::PageUp);
    EXPECT_EQ(grid.Selected(), "995,4-995,4 ") << "5 rows of 20 fit";
    grid.HideRows(990, 994, true);
    grid.Press(GridKey::Up);
    EXPECT_EQ(grid.Selected(), "989,4-989,4 ");
    grid.MergeCells({988, 3, 989, 4});
    grid.Press(GridKey::Up);
    grid.Press(GridKey::Down);
    EXPECT_EQ(grid.Selected(), "988,3-989,4 ") << "merged cells are one";
    grid.TakeAsked();
    grid.SetCurrent({1, 1});
    for (int i = 0; i < 5; ++i) grid.Press(GridKey::Down);
    EXPECT_EQ(grid.TakeAsked(), "scroll 0 0 -20 ") << "pixels are moved, one row is painted";
    for (char const* const typed : {"4", "5"}) {
        grid.OnTyped(typed);
        grid.EndEditing(true);
    }
    EXPECT_EQ(grid.At(6, 1), "5");
    EXPECT_EQ(grid.TakeAsked(), "edited 6,1 edited 6,1 ");
}

TEST(GridWindow, TheMouseSelectsResizesAndHides) {
    Window grid(50, 3);
    grid.SetFrozenRows(1);
    grid.SetFrozenCols(1);
    auto const drag = [&grid](long x1, long y1, long x2, long y2) {
        grid.OnLeftButtonDown(x1, y1, {});
        grid.OnMouseMove(x2, y2, true);
        grid.OnLeftButtonUp(x2, y2);
    };
    drag(100, 30, 170, 50);
    EXPECT_EQ(grid.Selected(), "2,2-3,3 ");
    drag(100, 5, 170, 5);
    EXPECT_EQ(grid.Selected(), "1,2-50,3 ") << "whole columns";
    drag(10, 30, 10, 70);
    EXPECT_EQ(grid.Selected(), "2,1-4,3 ") << "whole rows";
    grid.OnLeftButtonDown(100, 30, {});
    grid.OnLeftButtonUp(100, 30);
    grid.OnLeftButtonDown(200, 70, {false, true});
    grid.OnLeftButtonUp(200, 70);
    EXPECT_EQ(grid.Selected(), "2,2-2,2 4,3-4,3 ");
    drag(160, 5, 190, 5);
    EXPECT_EQ(grid.GetColWidth(2), 110);
    drag(190, 5, 81, 5);
    EXPECT_EQ(grid.GetColWidth(2), 0);
    drag(82, 5, 132, 5);
    EXPECT_EQ(grid.GetColWidth(2), 52) << "pulled out again";
    grid.Undo();
    grid.Undo();
    grid.Undo();
    EXPECT_EQ(grid.GetColWidth(2), 80);
}

TEST(GridPainting, VisitsOnlyWhatIsSeen) {
    Window grid(60000, 3);
    grid.SetFrozenRows(1);
    TestSupport::RecordingDeviceContext context;
    grid.ScrollToRow(41);
    grid.Paint(context, {0, 0, 300, 100});
    EXPECT_EQ(context.GetRows("DrawText").size(), 3U * 5U);
    TestSupport::RecordingDeviceContext strip;
    grid.Paint(strip, {80, 40, 160, 60});
    ASSERT_EQ(strip.GetRows("DrawText").size(), 1U);
    EXPECT_NE(strip.GetRows("DrawText")[0].find("422"), std::string::npos) << strip.GetRows("DrawText")[0];
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

TEST(GridWindow, ShowsTheRowsThatAFilterLetsThrough) {
    Window grid(6, 2);
    for (long row = 1; row <= 6; ++row)
        grid.SetStyleRange(GridRange::Of({row, 2}), Window::Value(row % 2 ? "Odd" : "even"));
    grid.SetFrozenRows(1);
    auto const shown = [&grid] {
        std::string text;
        for (long row = 2; row <= 6; ++row)
            if (!grid.GetCore().GetHeights().IsHidden(row)) text += grid.At(row, 1) + " ";
        return text;
    };
    grid.SetCurrent({4, 1});
    EXPECT_TRUE(grid.FilterRows({{2, "ODD"}}));
    EXPECT_EQ(shown(), "31 51 ");
    EXPECT_EQ(grid.GetSelection().GetCurrent(), (GridPlace{3, 1})) << "its row is hidden";
    EXPECT_TRUE(grid.SortRows({{1, true}}));
    EXPECT_EQ(shown(), "51 31 ") << "sorting leaves the filter";
    grid.SetCurrent({2, 1});
    grid.Select({2, 1}, {2, 1, 6, 1});
    grid.Copy();
    EXPECT_EQ(grid.clipboard, "51\n31\n") << "what is hidden isn't copied";
    grid.OnTyped("9");
    grid.typed = "99";
    grid.EndEditing(true);
    EXPECT_TRUE(grid.FilterRows({{1, ">=41"}}));
    EXPECT_EQ(shown(), "99 61 41 ") << "the change went to its row, the numbers are compared";
    grid.Undo();
    grid.Undo();
    EXPECT_EQ(shown(), "51 31 ");
    grid.Undo();
    grid.Undo();
    EXPECT_EQ(shown(), "21 31 41 51 61 ");
    for (int i = 0; i < 4; ++i) grid.Redo();
    EXPECT_EQ(shown(), "99 61 41 ");
    EXPECT_TRUE(grid.FilterRows({}));
    EXPECT_EQ(shown(), "99 61 41 31 21 ") << "still sorted";
}

TEST(GridWindow, FitsColumnsAndDragsCellsOut) {
    Window grid(3, 3);
    grid.SetFrozenRows(1);
    grid.SetStyleRange(GridRange::Of({2, 1}), Window::Value("long enough"));
    grid.OnDoubleClick(grid.GetViewport().columns.GetEnd(1) - 1, 5);
    EXPECT_EQ(grid.GetColWidth(1), 7 * 11 + 10);
    grid.Undo();
    EXPECT_EQ(grid.GetColWidth(1), 80);
    grid.SetDraggable(true);
    grid.Select({2, 2}, {2, 2, 3, 3});
    grid.asked.clear();
    auto const middle = [&grid](long row, long column) {
        GridBox const box = grid.GetViewport().GetCellBox({row, column});
        return std::pair(box.left + 20, box.top + 10);
    };
    auto const [x, y] = middle(3, 3);
    grid.OnLeftButtonDown(x, y, {});
    grid.OnMouseMove(x + 20, y, true);
    EXPECT_EQ(grid.TakeAsked(), "drag 22\t23\n32\t33\n");
    grid.OnLeftButtonDown(x, y, {});
    grid.OnLeftButtonUp(x, y);
    EXPECT_EQ(grid.Selected(), "3,3-3,3 ") << "without a move it is a click";
}
