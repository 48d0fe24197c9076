#pragma once

#include "gui/grid/controls/CGXControl.h"
#include "gui/grid/edit/GridExchange.h"
#include "gui/grid/edit/GridHistory.h"
#include "gui/grid/edit/GridSort.h"
#include "gui/grid/view/GridInput.h"
#include "gui/grid/view/GridSelection.h"
#include "gui/grid/view/GridViewport.h"

#include <span>

namespace GUI {

/// Hears what the user does in a table. Each of these may let the table's window go.
class GridObserver {
public:
    virtual ~GridObserver() = default;
    /// A cell was edited to its end.
    virtual void OnEndEditing(GridPlace const& /*place*/) {}
    /// Cells were changed together: by pasting, cutting, undoing.
    virtual void OnCellsChanged(std::vector<GridPlace> const& /*cells*/) {}
    virtual void OnSelectionMoved() {}
    /// A button in a cell was pressed.
    virtual void OnCellPressed(GridPlace const& /*place*/) {}
    virtual void OnDoubleClicked(GridPlace const& /*place*/) {}
    /// The table was sorted.
    virtual void OnSorted() {}
    virtual void OnFiltered() {}
    /// Nothing was pasted: so much doesn't fit, or meets cells that can't be changed.
    virtual void OnPasteRefused(long /*rows*/, long /*columns*/) {}
    /// These rows are on the screen now.
    virtual void OnRowsShown(long /*first*/, long /*last*/) {}
};

/// A table in a window: what it shows, how it is scrolled, and what mouse and keys do in it. It has no
/// platform types: the window itself, its scroll bars, the field in which a cell is edited and the clipboard
/// are operations that a derived class gives.
///
/// Rows and columns count from 1, 0 are the headers, which can be hidden by `ShowHeaders`.
class CGXGridWnd {
public:
    CGXGridWnd();
    CGXGridWnd(CGXGridWnd const&) = delete;
    CGXGridWnd& operator=(CGXGridWnd const&) = delete;
    virtual ~CGXGridWnd() = default;

    void SetObserver(GridObserver* observer) { observer_ = observer; }
    CGXGridCore const& GetCore() const { return core_; }
    GridHistory& GetHistory() { return history_; }
    GridViewport const& GetViewport() const { return view_; }
    GridSelection const& GetSelection() const { return selection_; }

    /// @name The table
    /// Set past the history, which forgets what it had.
    /// @{
    void SetRowCount(long count);
    void SetColCount(long count);
    long GetRowCount() const { return core_.GetRowCount(); }
    long GetColCount() const { return core_.GetColumnCount(); }
    void SetFrozenRows(long count);
    void SetFrozenCols(long count);
    long GetFrozenRows() const { return view_.rows.frozen; }
    long GetFrozenCols() const { return view_.columns.frozen; }
    void SetRowHeight(long first, long last, long height);
    long GetRowHeight(long row) const { return core_.GetHeights().GetSize(row); }
    void SetColWidth(long first, long last, long width);
    long GetColWidth(long column) const { return core_.GetWidths().GetSize(column); }
    void ShowHeaders(bool rows, bool columns);
    void SetStyleRange(GridRange const& range, CGXStyle const& style, bool merge = true);
    void SetRowStyle(long row, CGXStyle const& style);
    void SetColStyle(long column, CGXStyle const& style);
    void SetTableStyle(CGXStyle const& style);
    void Clear();
    /// By the lines of the data, wherever they are shown.
    void SetCell(GridOrder::Line row, GridOrder::Line column, CGXStyle const& style);
    /// Rows come by range: what isn't there yet is shown as such, and `OnRowsShown` says what is wanted.
    void SetVirtual(bool isVirtual) { virtual_ = isVirtual; }
    bool HasRow(GridOrder::Line row) const { return !virtual_ || core_.GetRows().Find(row); }
    /// Of such a table: the blocks that hold these rows are forgotten.
    void DropRows(long first, long last);
    void MergeCells(GridRange const& range);
    /// @}

    /// @name The window
    /// @{
    /// Whether changes are kept from the screen; gives the former state.
    bool LockUpdate(bool lock);
    void Redraw();
    void SetColors(GridColors const& colors) { colors_ = colors; }
    GridColors const& GetColors() const { return colors_; }
    GridFonts& GetFonts() const { return fonts_; }
    void SetDecimalSign(char sign) { decimalSign_ = sign; }
    char GetDecimalSign() const { return decimalSign_; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    /// Clicks on frozen rows sort by their column.
    void SetSortable(bool sortable) { sortable_ = sortable; }
    /// Whole rows are selected, whatever cell is clicked.
    void SetSelectsRows(bool rows) { selectsRows_ = rows; }
    bool SelectsRows() const { return selectsRows_; }
    bool IsFocused() const { return focused_; }
    /// What is selected can be dragged elsewhere.
    void SetDraggable(bool draggable) { draggable_ = draggable; }
    /// Pasting may add rows.
    void SetMayGrow(bool grow) { mayGrow_ = grow; }
    /// Only the cells that meet the box.
    void Paint(PlatformIndependentDeviceContext& context, GridBox const& box);
    void OnSize(long width, long height);
    void OnFocus(bool focused);
    /// Scrolls to an offset in pixels; what stays on the screen is moved.
    void ScrollTo(long x, long y);
    void ScrollToRow(long row);
    void MakeVisible(GridPlace const& place);
    /// @}

    /// @name What the user does
    /// @{
    void OnLeftButtonDown(long x, long y, GridModifiers modifiers);
    void OnMouseMove(long x, long y, bool buttonDown);
    void OnLeftButtonUp(long x, long y);
    void OnDoubleClick(long x, long y);
    /// False if the key means nothing here.
    bool OnKey(GridKey key, GridModifiers modifiers);
    /// What is typed begins to edit the current cell.
    bool OnTyped(Utilities::String const& text);
    /// @}

    /// @name Commands
    /// @{
    void SetCurrent(GridPlace const& place);
    void Select(GridPlace const& current, GridRange const& range);
    bool StartEditing(GridPlace const& place, Utilities::String const* typed = nullptr);
    void EndEditing(bool accept);
    GridPlace const* GetEdited() const { return editing_ ? &edited_ : nullptr; }
    void Undo();
    void Redo();
    /// False if nothing was copied: too much was selected, or some of its rows aren't there.
    bool Copy();
    void Cut();
    void Paste();
    /// Rows that aren't frozen, by several columns; an empty list restores the order of the data. Refused if
    /// merged cells reach over several rows.
    bool SortRows(std::vector<GridSortKey> const& keys);
    std::vector<GridSortKey> const& GetSortKeys() const { return core_.GetArrangement().sortKeys; }
    /// Shows only rows that all filters let through, of those that aren't frozen; an empty list shows all. A
    /// row that is changed stays until the next filter. Refused as sorting is, and where rows come by range.
    bool FilterRows(std::vector<GridFilter> const& filters);
    std::vector<GridFilter> const& GetFilters() const { return core_.GetArrangement().filters; }
    /// A column becomes as wide as the cells need that are on the screen.
    void FitCol(long column);
    /// Makes the next cell with that text the current one. Not in a table whose rows come by range.
    bool Find(Utilities::String const& text, bool backward = false);
    void HideRows(long first, long last, bool hidden);
    void HideCols(long first, long last, bool hidden);
    void InsertRows(long at, long count);
    void RemoveRows(long at, long count);
    void InsertCols(long at, long count);
    void RemoveCols(long at, long count);
    /// Clears the cells that are selected and may be changed.
    void ClearSelected();
    /// @}

    GridCellView GetCellView(GridPlace const& place) const;

protected:
    /// @name The platform's part
    /// @{
    virtual void RepaintBox(GridBox const& box) = 0;
    /// Moves what a part of the window shows, and asks for a paint of what gets free.
    virtual void ScrollPixels(GridBox const& area, long dx, long dy) = 0;
    /// Sets the scroll bars: rows by number, columns in pixels.
    virtual void SetScrollBars(long row, long lastRow, long rowPage, long x, long lastX, long xPage) = 0;
    virtual void ShowEditor(GridBox const& box, Utilities::String const& text, CGXStyle const& style,
                            bool selectAll) = 0;
    virtual Utilities::String GetEditorText() const = 0;
    virtual void MoveEditor(GridBox const& box) = 0;
    virtual void HideEditor() = 0;
    /// Offers texts; the answer comes by `OnChosen`.
    virtual void ShowChoices(GridBox const& box, std::vector<Utilities::String> const& choices,
                             Utilities::String const& current) = 0;
    virtual void SetCursor(GridCursor cursor) = 0;
    virtual long MeasureText(Utilities::String const& text, CGXStyle const& style) const = 0;
    /// Drags cells out; a colour if it is the one of a single cell.
    virtual void StartDrag(std::string const& /*text*/, std::string const& /*html*/,
                           std::optional<RGBVector> const& /*color*/) {}
    virtual void SetClipboard(std::string const& text, std::string const& html) = 0;
    virtual void GetClipboard(std::string& text, std::string& html) const = 0;
    /// Tells assistive technology.
    virtual void TellCurrentCell() {}
    virtual void TellCellChange(GridPlace const& /*place*/) {}
    /// @}
    void OnChosen(Utilities::String const& text);

private:
    enum class Drag : std::uint8_t { None, Cells, Columns, Rows, ColumnEdge, RowEdge, Press, Sort, Out };

    GridPlace Clamped(GridPlace const& place) const;
    /// The range to select for a cell.
    GridRange RangeOf(GridPlace const& place) const;
    void ShowSelection(GridSelection const& former);
    void KeepSelectionInside();
    /// The cells of a range, with rows that had to be asked for; false if there are too many or some don't
    /// come.
    bool CollectCells(GridRange const& range, GridTexts& cells);
    void RepaintRange(GridRange const& range);
    void RepaintLater(GridBox const& box);
    GridBox GetWindowBox() const { return {0, 0, view_.columns.extent, view_.rows.extent}; }
    void RepaintCell(GridPlace const& place);
    void OnArranged();
    void UpdateScrollBars();
    void TellRowsShown();
    void ShowTouched(GridHistory::Touched touched);
    void SetText(GridPlace const& place, Utilities::String const& text, bool merges);
    bool React(CGXControl::Reaction const& reaction, GridPlace const& place);
    void DragEdge(long pixel);
    void MoveCurrent(GridPlace place, bool extend);
    GridPlace FindTarget(GridKey key, bool control) const;
    void SortByClick(long column, bool add);
    void DragOut();
    bool ReachesOverRows() const;
    void TellArranged(std::vector<GridSortKey> const& keys, std::vector<GridFilter> const& filters);
    bool CanChange(GridRange const& range) const;
    void PasteCells(GridTexts const& cells);
    /// The rows that so many pasted lines go to, of those that are shown; 0 lines fill the selection.
    std::vector<long> FindPasted(GridRange const& selected, std::size_t lines) const;
    void Rearrange(void (CGXGridCore::*change)(long, long), long at, long count);

    CGXGridCore core_;
    GridHistory history_{core_};
    GridViewport view_{core_};
    GridSelection selection_;
    GridColors colors_;
    mutable GridFonts fonts_;
    GridObserver* observer_ = nullptr;
    char decimalSign_ = '.';
    bool virtual_ = false;
    bool locked_ = false;
    /// What changed while it was locked.
    GridBox lockedBox_;
    bool arrangedWhileLocked_ = false;
    bool enabled_ = true;
    bool focused_ = false;
    bool sortable_ = false;
    bool selectsRows_ = false;
    bool mayGrow_ = false;
    bool draggable_ = false;
    bool editing_ = false;
    GridPlace edited_;
    /// Where pulling the selection by keys has led; row 0 if it hasn't begun.
    GridPlace extended_{0, 0};
    Drag drag_ = Drag::None;
    GridPlace pressed_{-1, -1};
    long pressX_ = 0;
    long pressY_ = 0;
    bool dragModifier_ = false;
    long edge_ = 0;
    long shownFirst_ = 0;
    long shownLast_ = -1;
};

} // namespace GUI
