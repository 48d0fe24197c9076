#pragma once

#include "gui/grid/model/GridAxis.h"
#include "gui/grid/model/GridRange.h"
#include "gui/grid/model/GridRows.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace GUI {

/// One cell's content, to be exchanged with what the cell has. It names the cell by its lines, so that it
/// fits wherever sorting has put them.
struct GridChange {
    GridOrder::Line row = 0;
    GridOrder::Line column = 0;
    GridCell cell;
};

/// One column to sort by.
struct GridSortKey {
    long column = 1;
    bool descending = false;

    bool operator==(GridSortKey const&) const = default;
};

/// What a column's cells must have for their rows to be shown.
struct GridFilter {
    long column = 1;
    Utilities::String text;

    bool operator==(GridFilter const&) const = default;
};

/// Someone outside of the table who keeps numbers of its styles.
class GridStyleUser {
public:
    virtual ~GridStyleUser() = default;
    virtual void MarkStyles(std::vector<bool>& used) const = 0;
};

/// A table without a window: cells with a text and a style each, how rows and columns are ordered and sized,
/// and which cells are merged.
///
/// Places are as they are shown and count from 1; row and column 0 are the headers. A line is what a row or
/// column is known by wherever it is shown: lines of rows are those of the data. What is outside the table is
/// ignored when it is set and empty when it is asked for.
class CGXGridCore {
public:
    using Line = GridOrder::Line;

    /// All of the table but its cells; copies are cheap.
    struct Arrangement {
        GridOrder rows;
        GridOrder columns;
        GridAxis heights{defaultHeight};
        GridAxis widths{defaultWidth};
        std::vector<GridRange> merged;
        /// What the rows were sorted by.
        std::vector<GridSortKey> sortKeys;
        /// What rows are shown by; the others are the last ones, and hidden.
        std::vector<GridFilter> filters;
    };
    static constexpr long defaultHeight = 20;
    static constexpr long defaultWidth = 80;

    /// @name Rows and columns
    /// @{
    long GetRowCount() const { return arrangement_.rows.GetCount(); }
    long GetColumnCount() const { return arrangement_.columns.GetCount(); }
    void SetRowCount(long count);
    void SetColumnCount(long count);
    void InsertRows(long at, long count);
    void RemoveRows(long at, long count);
    void InsertColumns(long at, long count);
    void RemoveColumns(long at, long count);
    GridAxis& GetHeights() { return arrangement_.heights; }
    GridAxis& GetWidths() { return arrangement_.widths; }
    GridAxis const& GetHeights() const { return arrangement_.heights; }
    GridAxis const& GetWidths() const { return arrangement_.widths; }
    Line GetRowLine(long row) const { return arrangement_.rows.GetLine(row); }
    Line GetColumnLine(long column) const { return arrangement_.columns.GetLine(column); }
    /// Where a cell is shown; row or column 0 if it isn't.
    GridPlace GetPlace(Line row, Line column) const;
    Arrangement const& GetArrangement() const { return arrangement_; }
    /// The rows from `first` on in that order, of which the first `shown` are shown.
    void FilterRows(GridOrder::Lines const& lines, long first, std::size_t shown,
                    std::vector<GridFilter> const& filters);
    void SortRows(GridOrder::Lines const& lines, long first, std::vector<GridSortKey> const& keys);
    void SetArrangement(Arrangement arrangement) { arrangement_ = std::move(arrangement); }
    bool HasPlace(GridPlace const& place) const;
    GridRange GetAll() const { return {1, 1, GetRowCount(), GetColumnCount()}; }
    /// @}

    /// @name Cells
    /// @{
    /// The cells, the styles of rows and columns, and what sorting has done go; the table's own style stays.
    void Clear();
    Utilities::String const& GetText(GridPlace const& place) const;
    void SetText(GridPlace const& place, Utilities::String text);
    GridCell const& GetCell(Line row, Line column) const;
    /// A cell's text and style by its lines, the style merged into its own.
    void SetCell(Line row, Line column, CGXStyle const& style);
    /// Puts the change's content into its cell, and what was there into the change.
    void Exchange(GridChange& change);
    GridRows& GetRows() { return rows_; }
    GridRows const& GetRows() const { return rows_; }
    /// @}

    /// @name Styles
    /// @{
    /// Merged from those of table, column, row and cell. The reference is good until the next call.
    CGXStyle const& GetStyle(GridPlace const& place) const;
    /// What the cell itself sets.
    CGXStyle const& GetOwnStyle(GridPlace const& place) const;
    /// Sets the styles of the cells in a range, merged into what they set or in its place; of rows for a
    /// range over all columns, of columns for one over all rows, of the table for both. A value goes into
    /// each cell.
    void SetStyle(GridRange const& range, CGXStyle const& style, bool merge = true);
    void SetTableStyle(CGXStyle const& style);
    CGXStyle const& GetTableStyle() const { return tableStyle_; }
    void SetRowStyle(long row, CGXStyle const& style, bool merge = true);
    void SetColumnStyle(long column, CGXStyle const& style, bool merge = true);
    CGXStyleTable const& GetStyles() const { return styles_; }
    /// Who keeps numbers of styles registers for as long as it does.
    void SetStyleUser(GridStyleUser const* user) { styleUser_ = user; }
    /// @}

    /// @name Merged cells
    /// The cells of a merged range are shown as the first of them. Ranges that meet become one.
    /// @{
    void MergeCells(GridRange const& range);
    void UnmergeCells(GridRange const& range);
    /// The range that a cell is shown in; the cell alone if it isn't merged.
    GridRange GetMerged(GridPlace const& place) const;
    /// @}

private:
    GridCell& MakeCell(Line row, Line column) {
        return rows_.Make(row).Make(column, static_cast<std::size_t>(GetColumnCount()) + 1);
    }
    CGXStyleTable::Id Combine(CGXStyleTable::Id former, CGXStyle const& style, bool merge);
    void SetCellStyle(GridPlace const& place, CGXStyle const& style, bool merge);
    CGXStyleTable::Id GetColumnStyle(Line line) const {
        return line < columnStyles_.size() ? columnStyles_[line] : 0;
    }
    CGXStyleTable::Id GetRowStyle(Line line) const;
    void SweepStyles();

    Arrangement arrangement_;
    GridRows rows_;
    CGXStyleTable styles_;
    CGXStyle tableStyle_;
    /// By line; few rows have one.
    std::unordered_map<Line, CGXStyleTable::Id> rowStyles_;
    std::vector<CGXStyleTable::Id> columnStyles_;
    GridStyleUser const* styleUser_ = nullptr;
};

} // namespace GUI
