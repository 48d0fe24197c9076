// What changes a table so that it can be undone.
#include "gui/grid/edit/GridFilter.h"
#include "gui/grid/model/GridNumber.h"
#include "gui/grid/view/CGXGridWnd.h"

#include <algorithm>
#include <utility>

namespace GUI {

using Utilities::String;

// ------------------------------------------------------------------ editing

bool CGXGridWnd::StartEditing(GridPlace const& place, String const* typed) {
    if (!enabled_ || place.row < 1 || place.column < 1 || !core_.HasPlace(place)) return false;
    EndEditing(true);
    MakeVisible(place);
    GridCellView const cell = GetCellView(place);
    auto const reaction = CGXControl::Of(cell.style.GetControl()).Edit(cell);
    if (reaction.kind == CGXControl::Reaction::Kind::Choose) return React(reaction, place);
    if (reaction.kind != CGXControl::Reaction::Kind::Edit) return false;
    editing_ = true;
    edited_ = place;
    String const text = cell.style.IsNumber() ? ShowGridNumber(cell.text, decimalSign_, false) : cell.text;
    ShowEditor(view_.GetCellBox(place), typed ? *typed : text, core_.GetStyle(place), typed == nullptr);
    return true;
}

void CGXGridWnd::EndEditing(bool accept) {
    if (!std::exchange(editing_, false)) return;
    String const typed = GetEditorText();
    HideEditor();
    if (!accept || !core_.HasPlace(edited_)) return;
    String const text = core_.GetStyle(edited_).IsNumber() ? KeepGridNumber(typed, decimalSign_) : typed;
    if (!(text == core_.GetText(edited_))) SetText(edited_, text, false);
}

void CGXGridWnd::OnChosen(String const& text) {
    // The table may have got smaller while the choices were shown.
    if (core_.HasPlace(edited_) && !(text == core_.GetText(edited_))) SetText(edited_, text, true);
}

void CGXGridWnd::SetText(GridPlace const& place, String const& text, bool merges) {
    history_.SetText(place, text, merges);
    RepaintCell(place);
    TellCellChange(place);
    if (observer_) observer_->OnEndEditing(place);
}

void CGXGridWnd::Undo() {
    std::vector<GridSortKey> const keys = GetSortKeys();
    std::vector<GridFilter> const filters = GetFilters();
    ShowTouched(history_.Undo());
    TellArranged(keys, filters);
}

void CGXGridWnd::Redo() {
    std::vector<GridSortKey> const keys = GetSortKeys();
    std::vector<GridFilter> const filters = GetFilters();
    ShowTouched(history_.Redo());
    TellArranged(keys, filters);
}

void CGXGridWnd::TellArranged(std::vector<GridSortKey> const& keys, std::vector<GridFilter> const& filters) {
    bool const filtered = filters != GetFilters();
    if (keys != GetSortKeys() && observer_) observer_->OnSorted();
    if (filtered && observer_) observer_->OnFiltered();
}

void CGXGridWnd::ShowTouched(GridHistory::Touched touched) {
    if (touched.arrangement) OnArranged();
    for (GridPlace const& place : touched.cells) RepaintCell(place);
    if (touched.cells.size() == 1) {
        SetCurrent(touched.cells.front());
        TellCellChange(touched.cells.front());
        if (observer_) observer_->OnEndEditing(touched.cells.front());
    } else if (!touched.cells.empty() && observer_) {
        observer_->OnCellsChanged(touched.cells);
    }
}

// ------------------------------------------------------------------ clipboard

bool CGXGridWnd::CollectCells(GridRange const& range, GridTexts& cells) {
    constexpr long most = 5000000;
    if (range.IsEmpty() || range.GetRows() > most / range.GetColumns()) return false;
    // So many rows by range are kept at once.
    constexpr long piece = 4096;
    for (long top = range.top; top <= range.bottom; top += piece) {
        GridRange const part{top, range.left, std::min(top + piece - 1, range.bottom), range.right};
        if (virtual_ && observer_) observer_->OnRowsShown(part.top, part.bottom);
        for (long row = part.top; row <= part.bottom; ++row)
            if (!HasRow(core_.GetRowLine(row))) return false;
        for (auto& line : CopyGridCells(core_, part, decimalSign_)) cells.push_back(std::move(line));
    }
    return true;
}

bool CGXGridWnd::Copy() {
    GridTexts cells;
    if (!CollectCells(selection_.GetBounds(), cells)) return false;
    SetClipboard(WriteGridText(cells), WriteGridHtml(cells));
    return true;
}

void CGXGridWnd::Cut() {
    if (Copy()) ClearSelected();
}

bool CGXGridWnd::CanChange(GridRange const& range) const {
    for (long row = range.top; row <= range.bottom; ++row)
        for (long column = range.left; column <= range.right; ++column)
            if (core_.GetStyle({row, column}).IsReadOnly()) return false;
    return true;
}

void CGXGridWnd::ClearSelected() {
    if (!enabled_) return;
    std::vector<GridPlace> cleared;
    history_.BeginStep();
    for (GridRange const& range : selection_.GetRanges())
        for (long row = range.top; row <= range.bottom; ++row) {
            // What isn't seen isn't copied either, and must not be lost.
            if (core_.GetHeights().IsHidden(row)) continue;
            for (long column = range.left;
                 column <= range.right && core_.GetRows().Find(core_.GetRowLine(row)); ++column) {
                GridPlace const place{row, column};
                if (core_.GetText(place).Length() == 0 || core_.GetStyle(place).IsReadOnly()) continue;
                history_.SetText(place, {});
                cleared.push_back(place);
            }
        }
    history_.EndStep();
    if (cleared.empty()) return;
    RepaintRange(selection_.GetBounds());
    if (observer_) observer_->OnCellsChanged(cleared);
}

void CGXGridWnd::Paste() {
    std::string text;
    std::string html;
    GetClipboard(text, html);
    // The text is what the user saw; a page counts where there is no text.
    if (enabled_) PasteCells(text.empty() ? ReadGridHtml(html) : ReadGridText(text));
}

std::vector<long> CGXGridWnd::FindPasted(GridRange const& selected, std::size_t lines) const {
    std::vector<long> rows;
    bool const fills = lines == 0;
    for (long row = selected.top; fills ? row <= selected.bottom : rows.size() < lines; ++row)
        if (row > core_.GetRowCount() || !core_.GetHeights().IsHidden(row)) rows.push_back(row);
    return rows;
}

void CGXGridWnd::PasteCells(GridTexts const& cells) {
    GridRange const selected = selection_.GetBounds();
    if (cells.empty() || selected.IsEmpty()) return;
    std::size_t widest = 0;
    for (auto const& line : cells) widest = std::max(widest, line.size());
    // One cell fills all that are selected.
    bool const fills = cells.size() == 1 && widest == 1;
    GridRange target = selected;
    if (!fills) target.right = selected.left + static_cast<long>(widest) - 1;
    std::vector<long> const rows = FindPasted(selected, fills ? 0 : cells.size());
    if (!rows.empty()) target.bottom = rows.back();
    long const missing = target.bottom - core_.GetRowCount();
    bool const mayChange = std::ranges::all_of(rows, [&](long row) {
        return CanChange(GridRange{row, target.left, row, target.right}.Meet(core_.GetAll()));
    });
    if (target.right > core_.GetColumnCount() || (missing > 0 && !mayGrow_) || !mayChange) {
        if (observer_) observer_->OnPasteRefused(static_cast<long>(rows.size()), target.GetColumns());
        return;
    }
    history_.BeginStep();
    if (missing > 0) {
        history_.KeepArrangement();
        core_.InsertRows(core_.GetRowCount() + 1, missing);
    }
    std::vector<GridPlace> changed;
    changed.reserve(rows.size() * static_cast<std::size_t>(target.GetColumns()));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        long const row = rows[i];
        auto const& line = cells[fills ? 0 : i];
        for (long column = target.left; column <= target.right; ++column) {
            auto const index = fills ? 0 : static_cast<std::size_t>(column - target.left);
            // A row that is shorter than others leaves what is there.
            if (index >= line.size()) break;
            GridPlace const place{row, column};
            history_.SetText(place, core_.GetStyle(place).IsNumber()
                                        ? KeepGridNumber(line[index], decimalSign_)
                                        : line[index]);
            changed.push_back(place);
        }
    }
    history_.EndStep();
    if (missing > 0) OnArranged();
    Select(target.GetFirst(), target);
    RepaintRange(target);
    if (observer_) observer_->OnCellsChanged(changed);
}

// ------------------------------------------------------------------ arrangement

bool CGXGridWnd::ReachesOverRows() const {
    return std::ranges::any_of(core_.GetArrangement().merged,
                               [](GridRange const& range) { return range.GetRows() > 1; });
}

bool CGXGridWnd::SortRows(std::vector<GridSortKey> const& keys) {
    EndEditing(true);
    if (ReachesOverRows()) return false;
    long const first = view_.rows.frozen + 1;
    GridOrder::Line const current = core_.GetRowLine(Clamped(selection_.GetCurrent()).row);
    history_.KeepArrangement();
    if (virtual_) {
        // Whoever gives the rows gives them in this order from now on.
        core_.SortRows({}, first, keys);
        core_.GetRows().DropBlocks();
    } else {
        GridOrder::Lines lines = SortGridRows(core_, first, keys, '.');
        if (keys.empty()) std::ranges::sort(lines);
        std::size_t const shown = FilterGridRows(core_, lines, GetFilters());
        core_.SortRows(lines, first, keys);
        if (!GetFilters().empty()) core_.FilterRows({}, first, shown, std::vector(GetFilters()));
    }
    shownLast_ = -1;
    OnArranged();
    // The current cell goes with its row.
    if (!selection_.IsEmpty() && !virtual_)
        SetCurrent({core_.GetPlace(current, 0).row, selection_.GetCurrent().column});
    if (observer_) observer_->OnSorted();
    return true;
}

bool CGXGridWnd::FilterRows(std::vector<GridFilter> const& filters) {
    EndEditing(true);
    if (virtual_ || ReachesOverRows()) return false;
    if (filters == GetFilters() && filters.empty()) return true;
    long const first = view_.rows.frozen + 1;
    GridOrder::Line const current = core_.GetRowLine(Clamped(selection_.GetCurrent()).row);
    history_.KeepArrangement();
    // What was filtered out comes back to its place among the others.
    GridOrder::Lines lines = SortGridRows(core_, first, {});
    std::ranges::sort(lines);
    core_.SortRows(lines, first, GetSortKeys());
    lines = SortGridRows(core_, first, GetSortKeys(), '.');
    std::size_t const shown = FilterGridRows(core_, lines, filters);
    core_.FilterRows(lines, first, shown, filters);
    OnArranged();
    // The current cell goes with its row, or to the first one that is shown.
    if (!selection_.IsEmpty()) {
        long const row = core_.GetHeights().GetShown(core_.GetPlace(current, 0).row, -1);
        SetCurrent({row > 0 ? row : 1, selection_.GetCurrent().column});
    }
    if (observer_) observer_->OnFiltered();
    return true;
}

bool CGXGridWnd::Find(String const& text, bool backward) {
    if (virtual_) return false;
    GridRange const found = FindGridText(core_, text, Clamped(selection_.GetCurrent()), backward);
    if (!found.IsEmpty()) SetCurrent(found.GetFirst());
    return !found.IsEmpty();
}

void CGXGridWnd::FitCol(long column) {
    long width = 0;
    auto const measure = [&](long row) {
        CGXStyle const& style = core_.GetStyle({row, column});
        GridControl const control = style.GetControl();
        // What is drawn has no width of its own.
        if (control == GridControl::Patch || control == GridControl::Curve || control == GridControl::Bar)
            return;
        String const& text = core_.GetText({row, column});
        constexpr long arrow = 18;
        width = std::max(
            width, MeasureText(style.IsNumber() ? ShowGridNumber(text, decimalSign_, true) : text, style) +
                       (control == GridControl::Choice ? arrow : 0));
    };
    for (long row = 1; row <= view_.rows.frozen; ++row) measure(row);
    for (long row = view_.rows.GetFirst(); row <= view_.rows.GetLast(); ++row) measure(row);
    if (width == 0) return;
    history_.KeepArrangement();
    GridAxis& widths = core_.GetWidths();
    constexpr long margins = 2 * GridDrawing::margin + 2;
    widths.SetSize(column, column, width + margins);
    widths.Hide(column, column, false);
    OnArranged();
}

void CGXGridWnd::HideRows(long first, long last, bool hidden) {
    history_.KeepArrangement();
    core_.GetHeights().Hide(std::max(first, 1L), last, hidden);
    OnArranged();
}

void CGXGridWnd::HideCols(long first, long last, bool hidden) {
    history_.KeepArrangement();
    core_.GetWidths().Hide(std::max(first, 1L), last, hidden);
    OnArranged();
}

void CGXGridWnd::Rearrange(void (CGXGridCore::*change)(long, long), long at, long count) {
    EndEditing(true);
    history_.KeepArrangement();
    (core_.*change)(at, count);
    OnArranged();
}

void CGXGridWnd::InsertRows(long at, long count) { Rearrange(&CGXGridCore::InsertRows, at, count); }
void CGXGridWnd::RemoveRows(long at, long count) { Rearrange(&CGXGridCore::RemoveRows, at, count); }
void CGXGridWnd::InsertCols(long at, long count) { Rearrange(&CGXGridCore::InsertColumns, at, count); }
void CGXGridWnd::RemoveCols(long at, long count) { Rearrange(&CGXGridCore::RemoveColumns, at, count); }

} // namespace GUI
