// What mouse and keys do in a table, without a window.
#include "tests/gui/grid/GridWindowFixture.h"

namespace {

using namespace GUI;
using Utilities::String;
using Window = Tests::GridWindow;

} // namespace

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

TEST(GridWindow, WhatAFilterHidesIsNeitherCutNorPastedOver) {
    Window grid(6, 1);
    for (long row = 1; row <= 6; ++row)
        grid.SetStyleRange(GridRange::Of({row, 1}),
                           Window::Value((row % 2 ? "odd" : "even") + std::to_string(row)));
    grid.SetFrozenRows(1);
    EXPECT_TRUE(grid.FilterRows({{1, "odd"}}));
    auto const all = [&grid] {
        std::vector<std::string> texts;
        for (long row = 2; row <= grid.GetCore().GetRowCount(); ++row) texts.push_back(grid.At(row, 1));
        std::sort(texts.begin(), texts.end());
        return texts;
    };
    using Texts = std::vector<std::string>;
    grid.SetCurrent({2, 1});
    grid.Select({2, 1}, {2, 1, 6, 1});
    grid.Cut();
    EXPECT_EQ(grid.clipboard, "odd3\nodd5\n");
    EXPECT_EQ(all(), (Texts{"", "", "even2", "even4", "even6"}));
    grid.clipboard = "a\nb\n";
    grid.Paste();
    EXPECT_EQ(all(), (Texts{"a", "b", "even2", "even4", "even6"}));
    grid.clipboard = "1\n2\n3\n";
    grid.TakeAsked();
    grid.Paste();
    EXPECT_EQ(grid.TakeAsked(), "refused 3x1 ") << "two rows are shown";
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
