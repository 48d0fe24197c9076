// What mouse and keys do in a table.
#include "gui/grid/view/CGXGridWnd.h"

#include <algorithm>
#include <utility>

namespace GUI {

using Utilities::String;
using Kind = CGXControl::Reaction::Kind;

// ------------------------------------------------------------------ mouse

void CGXGridWnd::OnLeftButtonDown(long x, long y, GridModifiers modifiers) {
    if (!enabled_) return;
    EndEditing(true);
    extended_ = {0, 0};
    pressed_ = view_.GetPlaceAt(x, y);
    drag_ = Drag::None;
    bool const inTop = y < view_.rows.GetFrozenEnd();
    bool const inSide = x < view_.columns.GetFrozenEnd();
    if (inTop && (edge_ = GridViewport::FindEdge(view_.columns, core_.GetWidths(), x)) > 0) {
        drag_ = Drag::ColumnEdge;
        return history_.Break();
    }
    if (inSide && (edge_ = GridViewport::FindEdge(view_.rows, core_.GetHeights(), y)) > 0) {
        drag_ = Drag::RowEdge;
        return history_.Break();
    }
    if (pressed_.row < 0) return;
    GridPlace const place = Clamped(pressed_);
    pressX_ = x;
    pressY_ = y;
    dragModifier_ = modifiers.control || modifiers.shift;
    if (inTop && sortable_) {
        drag_ = Drag::Sort;
        return;
    }
    bool const several = selection_.GetBounds().GetRows() > 1 || selection_.GetBounds().GetColumns() > 1;
    if (draggable_ && !inTop && !inSide && !dragModifier_ && selection_.Contains(place) &&
        (several || core_.GetStyle(place).IsReadOnly())) {
        // It is a click if the mouse doesn't move.
        drag_ = Drag::Out;
        return;
    }
    GridRange range = RangeOf(place);
    drag_ = Drag::Cells;
    if (inTop || inSide) {
        // The corner selects all.
        if (inTop) range = {1, inSide ? 1 : range.left, core_.GetRowCount(), range.right};
        if (inSide) range = {inTop ? 1 : range.top, 1, range.bottom, core_.GetColumnCount()};
        drag_ = inTop ? Drag::Columns : Drag::Rows;
    }
    bool const wasCurrent = place == selection_.GetCurrent();
    GridSelection const former = selection_;
    if (modifiers.shift)
        selection_.Extend(range);
    else if (modifiers.control)
        selection_.Toggle(place, range);
    else
        selection_.Set(place, range);
    if (drag_ == Drag::Cells && !dragModifier_) {
        GridCellView const cell = GetCellView(place);
        auto const reaction = CGXControl::Of(cell.style.GetControl()).Click(cell, x, y);
        // The first click into a field only goes there.
        if (reaction.kind != Kind::None && (reaction.kind != Kind::Edit || wasCurrent)) {
            drag_ = Drag::Press;
            RepaintCell(place);
        }
    }
    ShowSelection(former);
}

void CGXGridWnd::OnMouseMove(long x, long y, bool buttonDown) {
    if (!buttonDown || drag_ == Drag::None) {
        bool const inTop = y < view_.rows.GetFrozenEnd();
        bool const inSide = x < view_.columns.GetFrozenEnd();
        if (inTop && GridViewport::FindEdge(view_.columns, core_.GetWidths(), x) > 0)
            SetCursor(GridCursor::Columns);
        else if (inSide && GridViewport::FindEdge(view_.rows, core_.GetHeights(), y) > 0)
            SetCursor(GridCursor::Rows);
        else
            SetCursor(GridCursor::Arrow);
        return;
    }
    if (drag_ == Drag::ColumnEdge) return DragEdge(x);
    if (drag_ == Drag::RowEdge) return DragEdge(y);
    if (drag_ == Drag::Press || drag_ == Drag::Sort) return;
    if (drag_ == Drag::Out) {
        constexpr long slack = 6;
        if (std::abs(x - pressX_) >= slack || std::abs(y - pressY_) >= slack) DragOut();
        return;
    }
    // Beyond the window's edges the nearest cell counts, and comes into view.
    GridBox const window = GetWindowBox();
    GridPlace const found =
        view_.GetPlaceAt(std::clamp(x, 0L, window.right - 1), std::clamp(y, 0L, window.bottom - 1));
    if (found.row < 0) return;
    GridPlace place = Clamped(found);
    if (x >= window.right && place.column < core_.GetColumnCount()) ++place.column;
    if (y >= window.bottom && place.row < core_.GetRowCount()) ++place.row;
    if (x < view_.columns.GetFrozenEnd() && place.column > 1 && x < 0) --place.column;
    if (y < 0 && place.row > 1) --place.row;
    GridRange range = RangeOf(place);
    if (drag_ == Drag::Columns) range = {1, range.left, core_.GetRowCount(), range.right};
    if (drag_ == Drag::Rows) range = {range.top, 1, range.bottom, core_.GetColumnCount()};
    GridSelection const former = selection_;
    selection_.Extend(range);
    if (former == selection_) return;
    if (drag_ == Drag::Cells) MakeVisible(place);
    ShowSelection(former);
}

void CGXGridWnd::DragEdge(long pixel) {
    constexpr long smallest = 3;
    bool const columns = drag_ == Drag::ColumnEdge;
    GridAxis& axis = columns ? core_.GetWidths() : core_.GetHeights();
    long const size = pixel - (columns ? view_.columns : view_.rows).GetPlace(edge_);
    history_.KeepArrangement(2 * edge_ + (columns ? 1 : 0) + 1);
    // One that is pushed together is hidden, and keeps the size that it comes back with.
    if (size >= smallest) axis.SetSize(edge_, edge_, size);
    axis.Hide(edge_, edge_, size < smallest);
    OnArranged();
}

void CGXGridWnd::OnLeftButtonUp(long x, long y) {
    Drag const drag = std::exchange(drag_, Drag::None);
    if (drag == Drag::Out) {
        bool const draggable = std::exchange(draggable_, false);
        OnLeftButtonDown(x, y, {});
        OnLeftButtonUp(x, y);
        draggable_ = draggable;
        return;
    }
    GridPlace const place = view_.GetPlaceAt(x, y);
    if (drag == Drag::Press) RepaintCell(pressed_);
    if (place.row < 0 || place != pressed_) return;
    if (drag == Drag::Sort) return SortByClick(Clamped(place).column, dragModifier_);
    if (drag != Drag::Press) return;
    GridCellView const cell = GetCellView(place);
    React(CGXControl::Of(cell.style.GetControl()).Click(cell, x, y), place);
}

void CGXGridWnd::DragOut() {
    drag_ = Drag::None;
    GridRange const range = selection_.GetBounds();
    GridTexts cells;
    if (!CollectCells(range, cells)) return;
    GridPlace const first = range.GetFirst();
    bool const isPatch = range.GetRows() == 1 && range.GetColumns() == 1 &&
                         core_.GetStyle(first).GetControl() == GridControl::Patch;
    StartDrag(WriteGridText(cells), WriteGridHtml(cells),
              isPatch ? ReadGridColor(core_.GetText(first)) : std::nullopt);
}

void CGXGridWnd::OnDoubleClick(long x, long y) {
    if (enabled_ && y < view_.rows.GetFrozenEnd()) {
        long const edge = GridViewport::FindEdge(view_.columns, core_.GetWidths(), x);
        if (edge > 0) return FitCol(edge);
    }
    GridPlace const place = view_.GetPlaceAt(x, y);
    if (!enabled_ || place.row < 1 || place.column < 1) return;
    // Two quick clicks are two clicks where each of them does something.
    if (y < view_.rows.GetFrozenEnd()) return OnLeftButtonDown(x, y, {});
    GridCellView const cell = GetCellView(place);
    Kind const kind = CGXControl::Of(cell.style.GetControl()).Click(cell, x, y).kind;
    if (kind == Kind::Set || kind == Kind::Fire) return OnLeftButtonDown(x, y, {});
    if (!StartEditing(place) && observer_) observer_->OnDoubleClicked(place);
}

void CGXGridWnd::SortByClick(long column, bool add) {
    std::vector<GridSortKey> keys = GetSortKeys();
    auto const found = std::ranges::find(keys, column, &GridSortKey::column);
    // Upward, downward, and back to the order of the data.
    bool const descending = found != keys.end() && !found->descending;
    bool const ends = found != keys.end() && found->descending;
    if (!add) keys.clear();
    if (add && found != keys.end()) {
        if (ends)
            keys.erase(found);
        else
            found->descending = true;
    } else if (!ends) {
        keys.push_back({column, descending});
    }
    SortRows(keys);
}

bool CGXGridWnd::React(CGXControl::Reaction const& reaction, GridPlace const& place) {
    switch (reaction.kind) {
    case Kind::None:
        return false;
    case Kind::Edit:
        return StartEditing(place);
    case Kind::Choose:
        edited_ = place;
        ShowChoices(view_.GetCellBox(place), core_.GetStyle(place).choices.value_or(std::vector<String>()),
                    core_.GetText(place));
        return true;
    case Kind::Set:
        SetText(place, reaction.text, true);
        return true;
    case Kind::Fire:
        if (observer_) observer_->OnCellPressed(place);
        return true;
    }
    return false;
}

// ------------------------------------------------------------------ keys

GridPlace CGXGridWnd::FindTarget(GridKey key, bool control) const {
    GridPlace const current = Clamped(selection_.GetCurrent());
    GridRange const from = core_.GetMerged(current);
    GridAxis const& heights = core_.GetHeights();
    GridAxis const& widths = core_.GetWidths();
    long const rows = core_.GetRowCount();
    long const columns = core_.GetColumnCount();
    // -1 where there is no shown line on.
    auto const row = [&](long line, int step) {
        return GridPlace{heights.GetShown(line, step), current.column};
    };
    auto const column = [&](long line, int step) {
        return GridPlace{current.row, widths.GetShown(line, step)};
    };
    switch (key) {
    case GridKey::Left:
        return column(control ? 1 : from.left - 1, control ? 1 : -1);
    case GridKey::Right:
        return column(control ? columns : from.right + 1, control ? -1 : 1);
    case GridKey::Up:
        return row(control ? 1 : from.top - 1, control ? 1 : -1);
    case GridKey::Down:
        return row(control ? rows : from.bottom + 1, control ? -1 : 1);
    case GridKey::PageUp:
        return row(std::max(current.row - view_.rows.GetPage(), 1L), 1);
    case GridKey::PageDown:
        return row(std::min(current.row + view_.rows.GetPage(), rows), -1);
    case GridKey::Home:
        return {control ? heights.GetShown(1, 1) : current.row, widths.GetShown(1, 1)};
    default:
        return {control ? heights.GetShown(rows, -1) : current.row, widths.GetShown(columns, -1)};
    }
}

void CGXGridWnd::MoveCurrent(GridPlace place, bool extend) {
    if (place.row < 1 || place.column < 1) return;
    if (!extend) return SetCurrent(place);
    // The corner of the range that isn't its beginning moves.
    GridSelection const former = selection_;
    selection_.Extend(RangeOf(place));
    extended_ = place;
    MakeVisible(place);
    ShowSelection(former);
}

bool CGXGridWnd::OnKey(GridKey key, GridModifiers modifiers) {
    if (!enabled_ || core_.GetRowCount() == 0 || core_.GetColumnCount() == 0) return false;
    GridPlace const current = selection_.GetCurrent();
    switch (key) {
    case GridKey::Tab:
    case GridKey::Escape:
        return false;
    case GridKey::Enter:
    case GridKey::Space:
    case GridKey::Edit: {
        if (selection_.IsEmpty()) return false;
        GridCellView const cell = GetCellView(current);
        CGXControl const& control = CGXControl::Of(cell.style.GetControl());
        auto const reaction = key == GridKey::Edit ? control.Edit(cell) : control.Press(cell);
        if (reaction.kind != Kind::None || key != GridKey::Enter) return React(reaction, current);
        return React(control.Edit(cell), current);
    }
    case GridKey::Delete:
        return ClearSelected(), true;
    case GridKey::Copy:
        Copy();
        return true;
    case GridKey::Cut:
        return Cut(), true;
    case GridKey::Paste:
        return Paste(), true;
    case GridKey::Undo:
        return Undo(), true;
    case GridKey::Redo:
        return Redo(), true;
    case GridKey::SelectAll:
        return Select(Clamped(current), core_.GetAll()), true;
    default:
        break;
    }
    if (selection_.IsEmpty()) {
        SetCurrent({view_.rows.frozen + 1, 1});
        return true;
    }
    if (!modifiers.shift) extended_ = {0, 0};
    GridSelection const here = selection_;
    if (modifiers.shift && extended_.row > 0) {
        // Goes on from where the last step led.
        selection_.MoveCurrent(extended_);
    }
    GridPlace const target = FindTarget(key, modifiers.control);
    selection_ = here;
    MoveCurrent(target, modifiers.shift);
    return true;
}

bool CGXGridWnd::OnTyped(String const& text) {
    if (!enabled_ || selection_.IsEmpty()) return false;
    GridPlace const place = selection_.GetCurrent();
    GridCellView const cell = GetCellView(place);
    if (CGXControl::Of(cell.style.GetControl()).Edit(cell).kind != Kind::Edit) return false;
    return StartEditing(place, &text);
}

} // namespace GUI
