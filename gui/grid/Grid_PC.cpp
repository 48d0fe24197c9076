#include "gui/grid/Grid_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/grid/model/GridNumber.h"

#include <QThread>
#include <algorithm>
#include <initializer_list>
#include <utility>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

ElementRegistration<Grid_PC, GUIElement> const registration({"Grid", "$Revision: 1.30.2.1 $", "GUI"},
                                                            Grid::attributes);

Anything VectorOf(std::initializer_list<Anything> values) {
    Anything::VectorOfAnythings vector(static_cast<std::uint32_t>(values.size()));
    std::copy(values.begin(), values.end(), vector.begin());
    return vector;
}

/// The decimal sign of the user's language, which is what its "0.0" has between the zeros.
char GetDecimalSign() {
    std::string const sample = Utilities::LanguageServiceInterface::GetTranslation("0.0").GetStdString();
    return sample.size() == 3 && sample[1] == ',' ? ',' : '.';
}

} // namespace

void Grid_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    Grid::Initialize(parent, description, dataSource);
    auto& grid = control_.Make<CNorvelianGridCtrl>(parent, "Grid: Couldn't create it !!!");
    AttributeReader const reader(description);
    CGXStyle plain;
    plain.readOnly = true;
    plain.control = GridControl::Static;
    grid.SetTableStyle(plain);
    grid.SetVirtual(virtual_);
    grid.SetSortable(reader.Flag(sortableAttribute));
    grid.SetSelectsRows(reader.Text(selectionAttribute) == "Rows");
    grid.SetMayGrow(reader.Flag(mayGrowAttribute));
    grid.SetDraggable(reader.Flag(draggableAttribute));
    grid.SetDragContent([this](DragContent& content) { content.Merge(GetValue("DragData")); });
    grid.SetDecimalSign(GetDecimalSign());
    if (reader.HasColour(headerBackgroundAttribute))
        headerBackground_ = reader.Colour(headerBackgroundAttribute);
    grid.SetElement(this);
    grid.SetObserver(this);
    ReadTexts(reader);
    OnUpdate("Properties");
}

void Grid_PC::OnDetach() {
    if (auto* const grid = GetControl()) {
        grid->SetObserver(nullptr);
        grid->SetDragContent({});
        grid->SetElement(nullptr);
    }
    NativeElement::OnDetach();
}

long Grid_PC::OnUpdate(Anything const& command) {
    // A question in the middle may let the table go; its window stays until the end.
    EventScope const event(QThread::currentThread()->loopLevel());
    CallScope const call(*this);
    UpdateControl();
    return IsAttached() ? Grid::OnUpdate(command) : 0;
}

void Grid_PC::OnLanguageChanged() {
    NativeElement::OnLanguageChanged();
    if (auto* const grid = GetControl()) {
        grid->SetDecimalSign(GetDecimalSign());
        grid->Redraw();
    }
}

void Grid_PC::SetSize(unsigned long width, unsigned long height) {
    if (IfSizeEqual(width, height)) return;
    EventScope const event(QThread::currentThread()->loopLevel());
    CallScope const call(*this);
    NativeElement::SetSize(width, height);
    ResizeCells();
}

// ------------------------------------------------------------------ the table

void Grid_PC::SetNumberOfRows(unsigned short count) {
    if (GetControl()) GetControl()->SetRowCount(count);
}
unsigned short Grid_PC::GetNumberOfRows() {
    return GetControl() ? static_cast<unsigned short>(std::min(GetControl()->GetRowCount(), 65535L)) : 0;
}
void Grid_PC::SetNumberOfColumns(unsigned short count) {
    if (GetControl()) GetControl()->SetColCount(count);
}
unsigned short Grid_PC::GetNumberOfColumns() {
    return GetControl() ? static_cast<unsigned short>(GetControl()->GetColCount()) : 0;
}
void Grid_PC::SetNumberOfFixedRows(unsigned short count) {
    if (GetControl()) GetControl()->SetFrozenRows(count);
}
unsigned short Grid_PC::GetNumberOfFixedRows() {
    return GetControl() ? static_cast<unsigned short>(GetControl()->GetFrozenRows()) : 0;
}
void Grid_PC::SetNumberOfFixedColumns(unsigned short count) {
    if (GetControl()) GetControl()->SetFrozenCols(count);
}
unsigned short Grid_PC::GetNumberOfFixedColumns() {
    return GetControl() ? static_cast<unsigned short>(GetControl()->GetFrozenCols()) : 0;
}
void Grid_PC::SetRowHeight(unsigned short row, unsigned long height) {
    if (GetControl()) GetControl()->SetRowHeight(row, row, static_cast<long>(height));
}
unsigned long Grid_PC::GetRowHeight(unsigned short row) {
    return GetControl() ? static_cast<unsigned long>(GetControl()->GetRowHeight(row)) : 0;
}
void Grid_PC::SetColumnWidth(unsigned short column, unsigned long width) {
    if (GetControl()) GetControl()->SetColWidth(column, column, static_cast<long>(width));
}
unsigned long Grid_PC::GetColumnWidth(unsigned short column) {
    return GetControl() ? static_cast<unsigned long>(GetControl()->GetColWidth(column)) : 0;
}
void Grid_PC::Clear() {
    pages_.Clear();
    if (GetControl()) GetControl()->Clear();
}
void Grid_PC::Redraw() {
    if (GetControl()) GetControl()->Redraw();
}
void Grid_PC::LockUpdate(bool lock) {
    if (GetControl()) GetControl()->LockUpdate(lock);
}

void Grid_PC::SetCell(unsigned short row, unsigned short column, AttributeMap const& cell) {
    auto* const grid = GetControl();
    if (!grid || row < 1 || column < 1 || column > grid->GetColCount()) return;
    bool const former = grid->LockUpdate(true);
    grid->SetCell(row, column, ReadGridCell(cell));
    grid->LockUpdate(former);
}

AttributeMap Grid_PC::GetCell(unsigned short row, unsigned short column) {
    if (!GetControl()) return {};
    CGXGridCore const& core = GetControl()->GetCore();
    GridPlace const place = core.GetPlace(row, column);
    CGXStyle style = core.GetOwnStyle(place);
    style.value = core.GetText(place);
    return WriteGridCell(style);
}

void Grid_PC::ResizeCells() {
    auto* const grid = GetControl();
    if (!grid) return;
    constexpr long scrollBarWidth = 20;
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    bool const former = grid->LockUpdate(true);
    // Lines of one size are set together; shared sizes go to all lines alike.
    auto const share = [&](long count, long fixedCount, long own, long fixedSize, long room,
                           auto const& set) {
        fixedCount = std::min(fixedCount, count);
        long const fixed = GetSharedSize(true, own, fixedSize, room, count, fixedCount);
        long const other = GetSharedSize(false, own, fixedSize, room, count, fixedCount);
        if (fixed >= 0 && fixedCount > 0) set(1L, fixedCount, fixed);
        if (other >= 0 && fixedCount < count) set(fixedCount + 1, count, other);
    };
    share(grid->GetRowCount(), grid->GetFrozenRows(), rowHeight_, fixedRowHeight_, static_cast<long>(height),
          [grid](long first, long last, long size) { grid->SetRowHeight(first, last, size); });
    share(grid->GetColCount(), grid->GetFrozenCols(), columnsWidth_, fixedColumnWidth_,
          static_cast<long>(width) - (scrollBar_ ? scrollBarWidth : 0),
          [grid](long first, long last, long size) { grid->SetColWidth(first, last, size); });
    long column = 0;
    for (AttributeMap const& style : columnStyles_) {
        ++column;
        Anything const* const own = style.FindValue("Width");
        if (auto const given = own ? ReadGridNumber(ToGridText(*own)) : std::nullopt)
            grid->SetColWidth(column, column, static_cast<long>(std::clamp(*given, 0.0, 32767.0)));
    }
    grid->LockUpdate(former);
}

void Grid_PC::ApplyProperties() {
    auto* const grid = GetControl();
    if (!grid) return;
    if (virtual_) ReadRowCount();
    if (!IsAttached()) return;
    bool const former = grid->LockUpdate(true);
    Clear();
    SetNumberOfFixedRows(numberOfFixedRows_);
    SetNumberOfFixedColumns(numberOfFixedColumns_);
    if (!virtual_) SetNumberOfRows(numberOfRows_);
    SetNumberOfColumns(numberOfColumns_);
    ApplyStyles();
    ApplyHeaders();
    for (GridRange const& range : mergedCells_) grid->MergeCells(range);
    grid->GetHistory().Clear();
    ResizeCells();
    grid->LockUpdate(former);
}

void Grid_PC::ApplyStyles() {
    CNorvelianGridCtrl& grid = *GetControl();
    CGXStyle style = font_.IsGiven() ? font_.GetStyle() : CGXStyle();
    style.control = GridControl::Static;
    style.readOnly = readOnly_;
    grid.SetTableStyle(style);
    long column = 0;
    for (AttributeMap const& each : columnStyles_) {
        CGXStyle own = ReadGridCell(each);
        own.value.reset();
        grid.SetColStyle(++column, own);
    }
}

void Grid_PC::ApplyHeaders() {
    CNorvelianGridCtrl& grid = *GetControl();
    CGXStyle header = headerFont_.IsGiven() ? headerFont_.GetStyle() : CGXStyle();
    header.interior = headerBackground_;
    if (!columnStyles_.empty()) {
        // What holds for a column's cells is not meant for its head.
        header.control = GridControl::Static;
        header.number = false;
        header.readOnly = true;
    }
    if (header.IsPlain()) return;
    for (long row = 1; row <= numberOfFixedRows_; ++row) grid.SetRowStyle(row, header);
    for (long column = 1; column <= numberOfFixedColumns_; ++column) grid.SetColStyle(column, header);
}

// ------------------------------------------------------------------ what the user does

long Grid_PC::LineOf(long row) const { return static_cast<long>(GetControl()->GetCore().GetRowLine(row)); }

Anything Grid_PC::ValueOf(GridPlace const& place) const {
    return VectorOf({GetControl()->GetCore().GetText(place), LineOf(place.row), place.column});
}

void Grid_PC::OnEndEditing(GridPlace const& place) {
    Anything const value = ValueOf(place);
    TellValue("Value", value);
    Fire("OnTextChanged", value);
}

void Grid_PC::OnCellsChanged(std::vector<GridPlace> const& cells) {
    Anything::VectorOfAnythings values(static_cast<std::uint32_t>(cells.size()));
    for (std::uint32_t i = 0; i < values.GetSize(); ++i) values[i] = ValueOf(cells[i]);
    Anything const told(values);
    TellValue("Values", told);
    Fire("OnValuesChanged", told);
}

void Grid_PC::OnSelectionMoved() {
    GridPlace const& current = GetControl()->GetSelection().GetCurrent();
    if (current == std::exchange(toldPlace_, current)) return;
    Anything const place = VectorOf({LineOf(current.row), current.column});
    TellValue("CurrentCell", place);
    Fire("OnSelectionChanged", place);
}

void Grid_PC::OnCellPressed(GridPlace const& place) {
    Fire("OnCellClicked", VectorOf({LineOf(place.row), place.column}));
}

void Grid_PC::OnDoubleClicked(GridPlace const& place) {
    Fire("OnDoubleClicked", VectorOf({LineOf(place.row), place.column}));
}

void Grid_PC::OnSorted() {
    std::string order;
    for (GridSortKey const& key : GetControl()->GetSortKeys())
        order +=
            (order.empty() ? "" : ";") + std::string(key.descending ? "-" : "") + std::to_string(key.column);
    TellValue("SortOrder", String(order));
    Fire("OnSorted", String(order));
    if (IsAttached() && virtual_) UpdateRows({});
}

void Grid_PC::OnFiltered() {
    long shown = 0;
    GridAxis const& heights = GetControl()->GetCore().GetHeights();
    for (long row = GetControl()->GetFrozenRows() + 1; row <= GetControl()->GetRowCount(); ++row)
        if (!heights.IsHidden(row)) ++shown;
    TellValue("ShownRows", shown);
    Fire("OnFiltered", shown);
}

void Grid_PC::OnPasteRefused(long rows, long columns) { Fire("OnPasteRefused", VectorOf({rows, columns})); }

} // namespace GUI
