#pragma once

#include "gui/controls/NativeElement_PC.h"
#include "gui/grid/CNorvelianGridCtrl.h"
#include "gui/grid/Grid.h"
#include "gui/grid/GridPages.h"

namespace GUI {

/// Shows the table in a `CNorvelianGridCtrl`, and tells the data source what the user does in it.
class Grid_PC : public NativeElement<Grid, CNorvelianGridCtrl>, private GridObserver {
public:
    Diagnostics::String GetValueString() override { return "Grid_PC"; }
    /// Throws `RuntimeException` "Grid: Couldn't create it !!!".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void SetSize(unsigned long width, unsigned long height) override;
    void OnLanguageChanged() override;

    void SetNumberOfRows(unsigned short count) override;
    unsigned short GetNumberOfRows() override;
    void SetNumberOfColumns(unsigned short count) override;
    unsigned short GetNumberOfColumns() override;
    void SetNumberOfFixedRows(unsigned short count) override;
    unsigned short GetNumberOfFixedRows() override;
    void SetNumberOfFixedColumns(unsigned short count) override;
    unsigned short GetNumberOfFixedColumns() override;
    void SetRowHeight(unsigned short row, unsigned long height) override;
    unsigned long GetRowHeight(unsigned short row) override;
    void SetColumnWidth(unsigned short column, unsigned long width) override;
    unsigned long GetColumnWidth(unsigned short column) override;
    void Clear() override;
    void SetCell(unsigned short row, unsigned short column, AttributeMap const& cell) override;
    AttributeMap GetCell(unsigned short row, unsigned short column) override;
    void Redraw() override;
    void ResizeCells() override;
    void ApplyProperties() override;
    void LockUpdate(bool lock) override;

    /// The table's window, for printing and for tests; null once the element is released.
    CNorvelianGridCtrl* GetGrid() const { return GetControl(); }

protected:
    void OnDetach() override;
    void UpdateRows(GridRange const& rows) override;
    bool RunCommand(Utilities::String const& name, AttributeMap const& arguments) override;

private:
    void OnEndEditing(GridPlace const& place) override;
    void OnCellsChanged(std::vector<GridPlace> const& cells) override;
    void OnSelectionMoved() override;
    void OnCellPressed(GridPlace const& place) override;
    void OnDoubleClicked(GridPlace const& place) override;
    void OnSorted() override;
    void OnFiltered() override;
    void OnPasteRefused(long rows, long columns) override;
    void OnRowsShown(long first, long last) override;

    bool Filter(AttributeMap const& arguments);
    bool Print(AttributeMap const& arguments);
    void ApplyStyles();
    void ApplyHeaders();
    void ReadRowCount();
    void FetchRows(long first, long last);
    /// False if the element was released.
    bool FetchMissing(long first, long last);
    void TakeRows(long first, Utilities::Anything::VectorOfAnythings const& rows);
    /// The row's number for the data source, counted from 1.
    long LineOf(long row) const;
    Utilities::Anything ValueOf(GridPlace const& place) const;

    std::optional<RGBVector> headerBackground_;
    GridPages pages_;
    GridPlace toldPlace_{-1, -1};
    bool fetching_ = false;
    bool fetchesAgain_ = false;
};

} // namespace GUI
