#include "gui/grid/CNorvelianAccessibleGrid.h"

#include "gui/grid/CNorvelianGridCtrl.h"
#include "gui/grid/view/GridPainter.h"
#include "gui/platform/TextConversion_PC.h"

#include <algorithm>
#include <limits>

namespace GUI {

namespace {

/// More can't be told in one list.
constexpr int mostListed = 1000;

CNorvelianAccessibleGrid* Of(CNorvelianGridCtrl const* grid) {
    return grid ? dynamic_cast<CNorvelianAccessibleGrid*>(
                      QAccessible::queryAccessibleInterface(const_cast<CNorvelianGridCtrl*>(grid)))
                : nullptr;
}

QAccessible::Role RoleOf(Accessible::Role role) {
    switch (role) {
    case Accessible::Role::CheckBox:
        return QAccessible::CheckBox;
    case Accessible::Role::Button:
        return QAccessible::Button;
    default:
        return QAccessible::Cell;
    }
}

QList<int> Lines(long first, long last) {
    QList<int> lines;
    for (long line = first; line <= last && lines.size() < mostListed; ++line)
        lines << static_cast<int>(line - 1);
    return lines;
}

} // namespace

// ------------------------------------------------------------------ a cell

CNorvelianAccessibleCell::CNorvelianAccessibleCell(CNorvelianGridCtrl& grid, GridPlace const& place)
    : grid_(&grid), place_(place) {}

bool CNorvelianAccessibleCell::isValid() const { return grid_ && grid_->GetCore().HasPlace(place_); }

QWindow* CNorvelianAccessibleCell::window() const {
    return grid_ ? grid_->window()->windowHandle() : nullptr;
}

QAccessibleInterface* CNorvelianAccessibleCell::parent() const { return Of(grid_); }

QRect CNorvelianAccessibleCell::rect() const {
    if (!isValid()) return {};
    GridBox const box = grid_->GetViewport().GetCellBox(place_);
    QRect const shown = QRect(static_cast<int>(box.left), static_cast<int>(box.top),
                              static_cast<int>(box.GetWidth()), static_cast<int>(box.GetHeight()))
                            .intersected(grid_->viewport()->rect());
    return {grid_->viewport()->mapToGlobal(shown.topLeft()), shown.size()};
}

QAccessible::Role CNorvelianAccessibleCell::role() const {
    if (!isValid()) return QAccessible::Cell;
    if (place_.row <= grid_->GetFrozenRows()) return QAccessible::ColumnHeader;
    if (place_.column <= grid_->GetFrozenCols()) return QAccessible::RowHeader;
    return RoleOf(CGXControl::Of(grid_->GetCore().GetStyle(place_).GetControl()).GetRole());
}

QAccessible::State CNorvelianAccessibleCell::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    GridCellView const cell = grid_->GetCellView(place_);
    state.selectable = state.focusable = true;
    state.selected = grid_->GetSelection().Contains(place_);
    bool const isCurrent = !grid_->GetSelection().IsEmpty() && grid_->GetSelection().GetCurrent() == place_;
    state.focused = isCurrent && grid_->IsFocused();
    state.active = isCurrent;
    state.readOnly = cell.style.IsReadOnly();
    state.editable = !state.readOnly;
    state.disabled = !cell.enabled;
    if (cell.style.GetControl() == GridControl::Check) {
        state.checkable = true;
        state.checked = IsGridCellChecked(cell.text);
    }
    state.offscreen = rect().isEmpty();
    return state;
}

QString CNorvelianAccessibleCell::text(QAccessible::Text kind) const {
    if (!isValid() || (kind != QAccessible::Name && kind != QAccessible::Value)) return {};
    GridCellView const cell = grid_->GetCellView(place_);
    return ToPlatformText(CGXControl::Of(cell.style.GetControl()).GetSpokenText(cell));
}

void* CNorvelianAccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

bool CNorvelianAccessibleCell::isSelected() const {
    return isValid() && grid_->GetSelection().Contains(place_);
}

QList<QAccessibleInterface*> CNorvelianAccessibleCell::columnHeaderCells() const {
    QList<QAccessibleInterface*> cells;
    auto* const table = Of(grid_);
    for (long row = 1; table && row <= std::min<long>(grid_->GetFrozenRows(), mostListed); ++row)
        cells << table->cellAt(static_cast<int>(row - 1), columnIndex());
    return cells;
}

QList<QAccessibleInterface*> CNorvelianAccessibleCell::rowHeaderCells() const {
    QList<QAccessibleInterface*> cells;
    auto* const table = Of(grid_);
    for (long column = 1; table && column <= std::min<long>(grid_->GetFrozenCols(), mostListed); ++column)
        cells << table->cellAt(rowIndex(), static_cast<int>(column - 1));
    return cells;
}

int CNorvelianAccessibleCell::columnExtent() const {
    return isValid() ? static_cast<int>(grid_->GetCore().GetMerged(place_).GetColumns()) : 1;
}

int CNorvelianAccessibleCell::rowExtent() const {
    return isValid() ? static_cast<int>(grid_->GetCore().GetMerged(place_).GetRows()) : 1;
}

QStringList CNorvelianAccessibleCell::actionNames() const { return {setFocusAction(), pressAction()}; }

void CNorvelianAccessibleCell::doAction(QString const& action) {
    if (!isValid()) return;
    grid_->RunCommand([place = place_, presses = action == pressAction()](CGXGridWnd& grid) {
        grid.SetCurrent(place);
        if (presses) grid.OnKey(GridKey::Enter, {});
    });
}

// ------------------------------------------------------------------ the table

CNorvelianAccessibleGrid::CNorvelianAccessibleGrid(CNorvelianGridCtrl& grid)
    : QAccessibleWidget(&grid, QAccessible::Table) {}

void CNorvelianAccessibleGrid::Install() {
    InstallAccessible<CNorvelianGridCtrl, CNorvelianAccessibleGrid>();
}

CNorvelianGridCtrl& CNorvelianAccessibleGrid::GetGrid() const {
    return *static_cast<CNorvelianGridCtrl*>(object());
}

void CNorvelianAccessibleGrid::TellFocus(CNorvelianGridCtrl& grid) {
    if (!QAccessible::isActive()) return;
    auto* const table = Of(&grid);
    GridPlace const& place = grid.GetSelection().GetCurrent();
    auto* const cell =
        table ? table->cellAt(static_cast<int>(place.row - 1), static_cast<int>(place.column - 1)) : nullptr;
    if (!cell) return;
    QAccessibleEvent selected(cell, QAccessible::Selection);
    QAccessible::updateAccessibility(&selected);
    if (!grid.IsFocused()) return;
    QAccessibleEvent focused(cell, QAccessible::Focus);
    QAccessible::updateAccessibility(&focused);
}

void CNorvelianAccessibleGrid::TellChange(CNorvelianGridCtrl& grid, GridPlace const& place) {
    if (!QAccessible::isActive()) return;
    auto* const table = Of(&grid);
    auto* const cell =
        table ? table->cellAt(static_cast<int>(place.row - 1), static_cast<int>(place.column - 1)) : nullptr;
    if (!cell) return;
    QAccessibleEvent changed(cell, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

int CNorvelianAccessibleGrid::columnCount() const { return static_cast<int>(GetGrid().GetColCount()); }
int CNorvelianAccessibleGrid::rowCount() const { return static_cast<int>(GetGrid().GetRowCount()); }

int CNorvelianAccessibleGrid::childCount() const {
    long const count = GetGrid().GetRowCount() * GetGrid().GetColCount();
    return static_cast<int>(std::min<long>(count, std::numeric_limits<int>::max()));
}

QAccessibleInterface* CNorvelianAccessibleGrid::child(int index) const {
    int const columns = columnCount();
    return columns == 0 || index < 0 ? nullptr : cellAt(index / columns, index % columns);
}

QAccessibleInterface* CNorvelianAccessibleGrid::cellAt(int row, int column) const {
    CNorvelianGridCtrl& grid = GetGrid();
    GridPlace const place{row + 1L, column + 1L};
    if (row < 0 || column < 0 || !grid.GetCore().HasPlace(place)) return nullptr;
    return cells_.Get({place.row, place.column}, [&] { return new CNorvelianAccessibleCell(grid, place); });
}

QAccessibleInterface* CNorvelianAccessibleGrid::childAt(int x, int y) const {
    CNorvelianGridCtrl& grid = GetGrid();
    QPoint const point = grid.viewport()->mapFromGlobal(QPoint(x, y));
    GridPlace const place = grid.GetViewport().GetPlaceAt(point.x(), point.y());
    return cellAt(static_cast<int>(place.row - 1), static_cast<int>(place.column - 1));
}

int CNorvelianAccessibleGrid::indexOfChild(QAccessibleInterface const* child) const {
    auto const* const cell = dynamic_cast<CNorvelianAccessibleCell const*>(child);
    if (!cell) return -1;
    long const index = static_cast<long>(cell->rowIndex()) * columnCount() + cell->columnIndex();
    return index <= std::numeric_limits<int>::max() ? static_cast<int>(index) : -1;
}

QAccessibleInterface* CNorvelianAccessibleGrid::focusChild() const {
    GridSelection const& selection = GetGrid().GetSelection();
    if (selection.IsEmpty()) return nullptr;
    return cellAt(static_cast<int>(selection.GetCurrent().row - 1),
                  static_cast<int>(selection.GetCurrent().column - 1));
}

void* CNorvelianAccessibleGrid::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QList<QAccessibleInterface*> CNorvelianAccessibleGrid::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (GridRange const& range : GetGrid().GetSelection().GetRanges())
        for (long row = range.top; row <= range.bottom; ++row)
            for (long column = range.left; column <= range.right; ++column) {
                if (cells.size() >= mostListed) return cells;
                cells << cellAt(static_cast<int>(row - 1), static_cast<int>(column - 1));
            }
    return cells;
}

QString CNorvelianAccessibleGrid::columnDescription(int column) const {
    CNorvelianGridCtrl const& grid = GetGrid();
    GridPlace const header{grid.GetFrozenRows(), column + 1L};
    return ToPlatformText(header.row > 0 ? grid.GetCore().GetText(header)
                                         : GridPainter::GetHeaderText(header));
}

QString CNorvelianAccessibleGrid::rowDescription(int row) const {
    CNorvelianGridCtrl const& grid = GetGrid();
    GridPlace const header{row + 1L, grid.GetFrozenCols()};
    return ToPlatformText(header.column > 0 ? grid.GetCore().GetText(header)
                                            : GridPainter::GetHeaderText(header));
}

QList<int> CNorvelianAccessibleGrid::selectedColumns() const {
    for (GridRange const& range : GetGrid().GetSelection().GetRanges())
        if (range.GetRows() == GetGrid().GetRowCount()) return Lines(range.left, range.right);
    return {};
}

QList<int> CNorvelianAccessibleGrid::selectedRows() const {
    for (GridRange const& range : GetGrid().GetSelection().GetRanges())
        if (range.GetColumns() == GetGrid().GetColCount()) return Lines(range.top, range.bottom);
    return {};
}

bool CNorvelianAccessibleGrid::isColumnSelected(int column) const {
    return selectedColumns().contains(column);
}

bool CNorvelianAccessibleGrid::isRowSelected(int row) const { return selectedRows().contains(row); }

bool CNorvelianAccessibleGrid::selectRow(int row) {
    GetGrid().RunCommand([row](CGXGridWnd& grid) {
        grid.Select({row + 1L, 1}, {row + 1L, 1, row + 1L, grid.GetColCount()});
    });
    return true;
}

bool CNorvelianAccessibleGrid::selectColumn(int column) {
    GetGrid().RunCommand([column](CGXGridWnd& grid) {
        grid.Select({1, column + 1L}, {1, column + 1L, grid.GetRowCount(), column + 1L});
    });
    return true;
}

} // namespace GUI
