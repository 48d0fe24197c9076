#include "gui/grid/model/CGXGridCore.h"

#include <utility>

namespace GUI {

using Utilities::String;

// ------------------------------------------------------------------ rows and columns

void CGXGridCore::SetRowCount(long count) {
    // What is cut off doesn't come back with rows that are added later.
    for (long row = count + 1; row <= GetRowCount(); ++row) {
        rows_.Clear(GetRowLine(row));
        rowStyles_.erase(GetRowLine(row));
    }
    arrangement_.rows.SetCount(count);
    arrangement_.heights.SetCount(count);
}

void CGXGridCore::SetColumnCount(long count) {
    for (long column = count + 1; column <= GetColumnCount(); ++column) {
        Line const line = GetColumnLine(column);
        if (line < columnStyles_.size()) columnStyles_[line] = 0;
        rows_.ForEach([line](GridRow& row) {
            if (line < row.cells.size()) row.cells[line] = {};
        });
    }
    arrangement_.columns.SetCount(count);
    arrangement_.widths.SetCount(count);
}

void CGXGridCore::InsertRows(long at, long count) {
    arrangement_.rows.Insert(at, count);
    arrangement_.heights.Insert(at, count);
    arrangement_.merged.clear();
}

void CGXGridCore::RemoveRows(long at, long count) {
    arrangement_.rows.Remove(at, count);
    arrangement_.heights.Remove(at, count);
    arrangement_.merged.clear();
}

void CGXGridCore::InsertColumns(long at, long count) {
    arrangement_.columns.Insert(at, count);
    arrangement_.widths.Insert(at, count);
    arrangement_.merged.clear();
}

void CGXGridCore::RemoveColumns(long at, long count) {
    arrangement_.columns.Remove(at, count);
    arrangement_.widths.Remove(at, count);
    arrangement_.merged.clear();
}

void CGXGridCore::SortRows(GridOrder::Lines const& lines, long first, std::vector<GridSortKey> const& keys) {
    if (!lines.empty()) arrangement_.rows.Rearrange(first, lines);
    arrangement_.sortKeys = keys;
}

void CGXGridCore::FilterRows(GridOrder::Lines const& lines, long first, std::size_t shown,
                             std::vector<GridFilter> const& filters) {
    if (!lines.empty()) arrangement_.rows.Rearrange(first, lines);
    // Rows that someone hid stay so as long as there is no filter.
    if (!arrangement_.filters.empty()) arrangement_.heights.Hide(first, GetRowCount(), false);
    arrangement_.filters = filters;
    if (long const hidden = first + static_cast<long>(shown); hidden <= GetRowCount())
        arrangement_.heights.Hide(hidden, GetRowCount(), true);
}

GridPlace CGXGridCore::GetPlace(Line row, Line column) const {
    return {arrangement_.rows.GetPlace(row), arrangement_.columns.GetPlace(column)};
}

bool CGXGridCore::HasPlace(GridPlace const& place) const {
    return place.row >= 0 && place.row <= GetRowCount() && place.column >= 0 &&
           place.column <= GetColumnCount();
}

// ------------------------------------------------------------------ cells

void CGXGridCore::Clear() {
    rows_ = {};
    rowStyles_.clear();
    columnStyles_.clear();
    arrangement_.merged.clear();
    arrangement_.sortKeys.clear();
    if (!arrangement_.filters.empty()) arrangement_.heights.Hide(1, GetRowCount(), false);
    arrangement_.filters.clear();
    for (GridOrder* const order : {&arrangement_.rows, &arrangement_.columns}) {
        long const count = order->GetCount();
        *order = {};
        order->SetCount(count);
    }
    styles_ = {};
}

GridCell const& CGXGridCore::GetCell(Line row, Line column) const {
    static GridCell const none;
    GridRow const* const found = rows_.Find(row);
    return found ? found->Get(column) : none;
}

String const& CGXGridCore::GetText(GridPlace const& place) const {
    static String const none;
    if (!HasPlace(place)) return none;
    return GetCell(GetRowLine(place.row), GetColumnLine(place.column)).text;
}

void CGXGridCore::SetText(GridPlace const& place, String text) {
    if (HasPlace(place)) MakeCell(GetRowLine(place.row), GetColumnLine(place.column)).text = std::move(text);
}

void CGXGridCore::SetCell(Line row, Line column, CGXStyle const& style) {
    GridCell& cell = MakeCell(row, column);
    if (style.value) cell.text = *style.value;
    if (!style.IsPlain()) cell.style = Combine(cell.style, style, true);
}

void CGXGridCore::Exchange(GridChange& change) {
    std::swap(MakeCell(change.row, change.column), change.cell);
}

// ------------------------------------------------------------------ styles

CGXStyle const& CGXGridCore::GetStyle(GridPlace const& place) const {
    if (!HasPlace(place)) return tableStyle_;
    Line const column = GetColumnLine(place.column);
    Line const row = GetRowLine(place.row);
    return styles_.Merge(tableStyle_, GetRowStyle(row), GetColumnStyle(column), GetCell(row, column).style);
}

CGXStyle const& CGXGridCore::GetOwnStyle(GridPlace const& place) const {
    if (!HasPlace(place)) return styles_.Get(0);
    return styles_.Get(GetCell(GetRowLine(place.row), GetColumnLine(place.column)).style);
}

CGXStyleTable::Id CGXGridCore::GetRowStyle(Line line) const {
    if (rowStyles_.empty()) return 0;
    auto const found = rowStyles_.find(line);
    return found == rowStyles_.end() ? 0 : found->second;
}

CGXStyleTable::Id CGXGridCore::Combine(CGXStyleTable::Id former, CGXStyle const& style, bool merge) {
    if (styles_.IsWorthSweeping()) SweepStyles();
    if (!merge || former == 0) return styles_.Enter(style);
    CGXStyle combined = styles_.Get(former);
    combined.Merge(style);
    return styles_.Enter(combined);
}

void CGXGridCore::SetStyle(GridRange const& range, CGXStyle const& style, bool merge) {
    GridRange const inside = range.Meet({0, 0, GetRowCount(), GetColumnCount()});
    if (inside.IsEmpty()) return;
    bool const allRows = inside.top <= 1 && inside.bottom == GetRowCount();
    bool const allColumns = inside.left <= 1 && inside.right == GetColumnCount();
    if (style.value)
        for (long row = inside.top; row <= inside.bottom; ++row)
            for (long column = inside.left; column <= inside.right; ++column)
                SetText({row, column}, *style.value);
    if (style.IsPlain()) return;
    if (inside.top == inside.bottom && inside.left == inside.right) {
        SetCellStyle(inside.GetFirst(), style, merge);
    } else if (allRows && allColumns) {
        CGXStyle table = merge ? tableStyle_ : CGXStyle();
        table.Merge(style);
        SetTableStyle(table);
    } else if (allColumns) {
        for (long row = inside.top; row <= inside.bottom; ++row) SetRowStyle(row, style, merge);
    } else if (allRows) {
        for (long column = inside.left; column <= inside.right; ++column)
            SetColumnStyle(column, style, merge);
    } else {
        for (long row = inside.top; row <= inside.bottom; ++row)
            for (long column = inside.left; column <= inside.right; ++column)
                SetCellStyle({row, column}, style, merge);
    }
}

void CGXGridCore::SetCellStyle(GridPlace const& place, CGXStyle const& style, bool merge) {
    GridCell& cell = MakeCell(GetRowLine(place.row), GetColumnLine(place.column));
    cell.style = Combine(cell.style, style, merge);
}

void CGXGridCore::SetTableStyle(CGXStyle const& style) {
    tableStyle_ = style;
    tableStyle_.value.reset();
    styles_.ForgetMerged();
}

void CGXGridCore::SetRowStyle(long row, CGXStyle const& style, bool merge) {
    if (!HasPlace({row, 0})) return;
    CGXStyleTable::Id& found = rowStyles_[GetRowLine(row)];
    found = Combine(found, style, merge);
}

void CGXGridCore::SetColumnStyle(long column, CGXStyle const& style, bool merge) {
    if (!HasPlace({0, column})) return;
    Line const line = GetColumnLine(column);
    if (line >= columnStyles_.size()) columnStyles_.resize(line + 1);
    columnStyles_[line] = Combine(columnStyles_[line], style, merge);
}

void CGXGridCore::SweepStyles() {
    std::vector<bool> used(styles_.GetCount());
    used[0] = true;
    for (CGXStyleTable::Id const id : columnStyles_) used[id] = true;
    for (auto const& [line, id] : rowStyles_) used[id] = true;
    rows_.ForEach([&used](GridRow const& row) {
        for (GridCell const& cell : row.cells) used[cell.style] = true;
    });
    if (styleUser_) styleUser_->MarkStyles(used);
    styles_.Sweep(used);
}

// ------------------------------------------------------------------ merged cells

void CGXGridCore::MergeCells(GridRange const& range) {
    GridRange all = range.Meet(GetAll());
    if (all.IsEmpty()) return;
    auto& merged = arrangement_.merged;
    // One that is joined may reach others.
    for (std::size_t i = 0; i < merged.size();) {
        if (merged[i].Meet(all).IsEmpty()) {
            ++i;
            continue;
        }
        all = all.Join(merged[i]);
        merged.erase(merged.begin() + static_cast<long>(i));
        i = 0;
    }
    if (all.GetRows() > 1 || all.GetColumns() > 1) merged.push_back(all);
}

void CGXGridCore::UnmergeCells(GridRange const& range) {
    std::erase_if(arrangement_.merged,
                  [&range](GridRange const& merged) { return !merged.Meet(range).IsEmpty(); });
}

GridRange CGXGridCore::GetMerged(GridPlace const& place) const {
    for (GridRange const& range : arrangement_.merged)
        if (range.Contains(place)) return range;
    return GridRange::Of(place);
}

} // namespace GUI
