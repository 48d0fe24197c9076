#include "gui/grid/view/CGXGridWnd.h"

#include "gui/grid/view/GridPainter.h"

#include <algorithm>
#include <utility>

namespace GUI {

CGXGridWnd::CGXGridWnd() {
    // There is no window to arrange yet.
    core_.GetHeights().Hide(0, 0, true);
    core_.GetWidths().Hide(0, 0, true);
}

// ------------------------------------------------------------------ the table

void CGXGridWnd::SetRowCount(long count) {
    history_.Clear();
    core_.SetRowCount(count);
    KeepSelectionInside();
    OnArranged();
}

void CGXGridWnd::SetColCount(long count) {
    history_.Clear();
    core_.SetColumnCount(count);
    KeepSelectionInside();
    OnArranged();
}

void CGXGridWnd::SetFrozenRows(long count) {
    view_.rows.frozen = std::max(count, 0L);
    OnArranged();
}

void CGXGridWnd::SetFrozenCols(long count) {
    view_.columns.frozen = std::max(count, 0L);
    OnArranged();
}

void CGXGridWnd::SetRowHeight(long first, long last, long height) {
    core_.GetHeights().SetSize(first, last, height);
    OnArranged();
}

void CGXGridWnd::SetColWidth(long first, long last, long width) {
    core_.GetWidths().SetSize(first, last, width);
    OnArranged();
}

void CGXGridWnd::ShowHeaders(bool rows, bool columns) {
    core_.GetHeights().Hide(0, 0, !columns);
    core_.GetWidths().Hide(0, 0, !rows);
    OnArranged();
}

void CGXGridWnd::SetStyleRange(GridRange const& range, CGXStyle const& style, bool merge) {
    core_.SetStyle(range, style, merge);
    RepaintRange(range);
}

void CGXGridWnd::SetRowStyle(long row, CGXStyle const& style) {
    core_.SetRowStyle(row, style);
    RepaintLater(GetWindowBox());
}

void CGXGridWnd::SetColStyle(long column, CGXStyle const& style) {
    core_.SetColumnStyle(column, style);
    RepaintLater(GetWindowBox());
}

void CGXGridWnd::SetTableStyle(CGXStyle const& style) {
    core_.SetTableStyle(style);
    RepaintLater(GetWindowBox());
}

void CGXGridWnd::Clear() {
    history_.Clear();
    core_.Clear();
    RepaintLater(GetWindowBox());
}

void CGXGridWnd::SetCell(GridOrder::Line row, GridOrder::Line column, CGXStyle const& style) {
    core_.SetCell(row, column, style);
    RepaintCell(core_.GetPlace(row, column));
}

void CGXGridWnd::DropRows(long first, long last) {
    if (!virtual_ || first > last) return;
    GridRows& rows = core_.GetRows();
    auto const end =
        std::min(GridRows::BlockOf(static_cast<GridOrder::Line>(last)) + 1, rows.GetBlockCount());
    for (auto block = GridRows::BlockOf(static_cast<GridOrder::Line>(std::max(first, 1L))); block < end;
         ++block)
        rows.DropBlock(block);
}

void CGXGridWnd::MergeCells(GridRange const& range) {
    history_.KeepArrangement();
    core_.MergeCells(range);
    RepaintLater(GetWindowBox());
}

// ------------------------------------------------------------------ the window

bool CGXGridWnd::LockUpdate(bool lock) {
    bool const former = std::exchange(locked_, lock);
    if (lock || !former) return former;
    if (std::exchange(arrangedWhileLocked_, false)) OnArranged();
    if (GridBox const box = std::exchange(lockedBox_, {}); !box.IsEmpty()) RepaintBox(box);
    return former;
}

void CGXGridWnd::Redraw() {
    UpdateScrollBars();
    RepaintLater(GetWindowBox());
}

void CGXGridWnd::RepaintLater(GridBox const& whole) {
    GridBox const box = whole.Meet(GetWindowBox());
    if (box.IsEmpty()) return;
    if (!locked_) return RepaintBox(box);
    lockedBox_ =
        lockedBox_.IsEmpty()
            ? box
            : GridBox{std::min(lockedBox_.left, box.left), std::min(lockedBox_.top, box.top),
                      std::max(lockedBox_.right, box.right), std::max(lockedBox_.bottom, box.bottom)};
}

void CGXGridWnd::RepaintRange(GridRange const& range) {
    if (!range.IsEmpty()) RepaintLater(view_.GetBox(range));
}

void CGXGridWnd::RepaintCell(GridPlace const& place) {
    if (place.row > 0 && place.column > 0) RepaintLater(view_.GetCellBox(place));
}

void CGXGridWnd::Paint(PlatformIndependentDeviceContext& context, GridBox const& box) {
    GridPainter(*this, context, box).Paint();
}

void CGXGridWnd::OnSize(long width, long height) {
    view_.columns.extent = width;
    view_.rows.extent = height;
    OnArranged();
}

void CGXGridWnd::OnFocus(bool focused) {
    focused_ = focused;
    RepaintCell(selection_.GetCurrent());
}

void CGXGridWnd::OnArranged() {
    arrangedWhileLocked_ = locked_;
    if (locked_) return;
    // What was seen of the table stays as far as there still is so much of it.
    view_.columns.offset = std::clamp(view_.columns.offset, 0L, view_.columns.GetGreatestOffset());
    view_.rows.offset =
        view_.rows.GetOffsetToBegin(std::min(view_.rows.GetFirst(), view_.rows.GetLastFirst()));
    UpdateScrollBars();
    RepaintLater(GetWindowBox());
    if (editing_) MoveEditor(view_.GetCellBox(edited_));
}

void CGXGridWnd::UpdateScrollBars() {
    if (view_.columns.extent == 0) return;
    long const first = view_.rows.frozen + 1;
    long const last = view_.rows.GetLastFirst();
    SetScrollBars(std::min(view_.rows.GetFirst(), last) - first, last - first, view_.rows.GetPage(),
                  view_.columns.offset, view_.columns.GetGreatestOffset(),
                  std::max(view_.columns.extent - view_.columns.GetFrozenEnd(), 1L));
    TellRowsShown();
}

void CGXGridWnd::TellRowsShown() {
    long const first = view_.rows.GetFirst();
    long const last = view_.rows.GetLast();
    if (first == std::exchange(shownFirst_, first) && last == std::exchange(shownLast_, last)) return;
    if (observer_) observer_->OnRowsShown(first, last);
}

void CGXGridWnd::ScrollToRow(long row) { ScrollTo(view_.columns.offset, view_.rows.GetOffsetToBegin(row)); }

void CGXGridWnd::ScrollTo(long x, long y) {
    x = std::clamp(x, 0L, view_.columns.GetGreatestOffset());
    // Rows are never cut off at their top.
    long const row = core_.GetHeights().GetLineAt(view_.rows.GetFrozenEnd() + std::max(y, 0L));
    y = row < 0 ? view_.rows.offset : view_.rows.GetOffsetToBegin(row);
    long const dx = view_.columns.offset - x;
    long const dy = view_.rows.offset - y;
    if (dx == 0 && dy == 0) return;
    view_.columns.offset = x;
    view_.rows.offset = y;
    GridBox area = GetWindowBox();
    if (dx == 0) area.top = view_.rows.GetFrozenEnd();
    if (dy == 0) area.left = view_.columns.GetFrozenEnd();
    bool const moves =
        (dx == 0 || dy == 0) && std::abs(dx) < area.GetWidth() && std::abs(dy) < area.GetHeight();
    // A field in which a cell is edited would leave its picture behind.
    if (moves && !locked_ && !editing_)
        ScrollPixels(area, dx, dy);
    else
        RepaintLater(area);
    if (editing_) MoveEditor(view_.GetCellBox(edited_));
    UpdateScrollBars();
}

void CGXGridWnd::MakeVisible(GridPlace const& place) {
    // A window that has no size yet shows its beginning first.
    if (view_.rows.extent == 0) return;
    long y = view_.rows.GetOffsetFor(place.row);
    if (y > view_.rows.offset) {
        // The next row that begins there or behind it, so that this one is seen whole.
        GridAxis const& heights = core_.GetHeights();
        long row = heights.GetLineAt(view_.rows.GetFrozenEnd() + y);
        if (row >= 0 && view_.rows.GetOffsetToBegin(row) < y && row < place.row) ++row;
        y = view_.rows.GetOffsetToBegin(row);
    }
    ScrollTo(view_.columns.GetOffsetFor(place.column), y);
}

GridCellView CGXGridWnd::GetCellView(GridPlace const& place) const {
    return {view_.GetCellBox(place), core_.GetStyle(place), core_.GetText(place),
            drag_ == Drag::Press && pressed_ == place, enabled_};
}

// ------------------------------------------------------------------ selection

GridPlace CGXGridWnd::Clamped(GridPlace const& place) const {
    return {std::clamp(place.row, 1L, std::max(core_.GetRowCount(), 1L)),
            std::clamp(place.column, 1L, std::max(core_.GetColumnCount(), 1L))};
}

GridRange CGXGridWnd::RangeOf(GridPlace const& place) const {
    GridRange range = core_.GetMerged(place);
    if (selectsRows_) {
        range.left = 1;
        range.right = core_.GetColumnCount();
    }
    return range;
}

void CGXGridWnd::ShowSelection(GridSelection const& former) {
    if (former == selection_) return;
    // A step of one range repaints what it gained or lost; anything else what either has.
    for (GridSelection const* const each : {&former, static_cast<GridSelection const*>(&selection_)}) {
        for (GridRange const& range : each->GetRanges()) {
            GridBox box = view_.GetBox(range);
            RepaintLater({box.left - 1, box.top - 1, box.right + 1, box.bottom + 1});
        }
        RepaintCell(each->GetCurrent());
    }
    if (former.GetCurrent() != selection_.GetCurrent()) {
        history_.Break();
        TellCurrentCell();
    }
    if (observer_) observer_->OnSelectionMoved();
}

void CGXGridWnd::KeepSelectionInside() {
    GridRange const bounds = selection_.GetBounds();
    if (bounds.bottom > core_.GetRowCount() || bounds.right > core_.GetColumnCount()) selection_.Clear();
}

void CGXGridWnd::SetCurrent(GridPlace const& place) {
    GridPlace const first = core_.GetMerged(Clamped(place)).GetFirst();
    Select(first, RangeOf(first));
}

void CGXGridWnd::Select(GridPlace const& current, GridRange const& range) {
    if (core_.GetRowCount() == 0 || core_.GetColumnCount() == 0) return;
    GridSelection const former = selection_;
    selection_.Set(Clamped(current), range.Meet(core_.GetAll()));
    MakeVisible(selection_.GetCurrent());
    ShowSelection(former);
}

} // namespace GUI
