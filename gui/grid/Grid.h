#pragma once

#include "gui/controls/ControlAttributes.h"
#include "gui/elements/GUIElement.h"
#include "gui/grid/GridCellMap.h"
#include "gui/grid/model/GridRange.h"

#include <vector>

namespace GUI {

/// A table. This class reads the description and the data source and turns both into calls of its own
/// operations; `Grid_PC` carries them out.
///
/// Rows and columns of operations and update messages count from 1, and the fixed ones are the first of them.
/// Row numbers name the rows of the data source, wherever sorting shows them.
///
/// Update messages, each without or with "|NoRepaint": "Properties" reads the settings, which empties the
/// table; "Sizes" reads the counts and shares the room out again; `a;b-c;d` reads the cells in the columns a
/// to c of the rows b to d; `r;c` the one cell in row r and column c; any other text all cells.
///
/// An update with a map is a command by its key "Command": "Undo", "Redo", "Copy", "Cut", "Paste"; "Find"
/// (with "Text", and "Backward" "Yes"); "Sort" (with "Order" as told under "SortOrder"); "Select" (with "Row"
/// and "Column"); "Filter" (with "Column" and "Text", which is looked for or, as ">=2", compared; an empty
/// text ends the column's filter, and without a column all end); "Print" (with "File", the name of a PDF, and
/// "FitWidth", "Landscape", "Title"). The result is 1 if it was done.
///
/// Of the data source: at "Properties" "ReadOnly" (bool), "NumberOfColumns", "NumberOfFixedColumns",
/// "NumberOfRows", "NumberOfFixedRows", "ColumnWidth", "RowHeight" (long), "ColumnStyles" (vector with a map
/// for each column: what `ReadGridCell` reads holds for the column's cells, and "Width" is its width),
/// "MergedCells" (vector of texts `a;b-c;d`); at "Sizes" the counts. A row's cells are the vector of maps
/// that it gives under the row's number as text, which counts from 0; see `ReadGridCell`. At each update also
/// "Enabled", "Visible", "ToolTipText".
///
/// With "Virtual" any number of rows is shown, and only those on the screen are asked for: "RowCount" (long)
/// is their number, and "Rows a-b", which counts from 0, is answered with a vector of rows, each a vector of
/// cells. An invalid answer means that they come later, told by an update; a shorter one that there are fewer
/// rows now. Sorting such a table and finding in it are left to
/// the data source.
///
/// When a cell was edited the data source is told "Value", a vector of its text, row and column, and then
/// "OnTextChanged" runs with the same; of several cells, changed by pasting or undoing, it is told "Values",
/// a vector of such, and "OnValuesChanged" runs. When the current cell moves, "CurrentCell" (vector of row
/// and column) is told and "OnSelectionChanged" runs. A button in a cell runs "OnCellClicked" with row and
/// column, a double click on a cell that can't be edited "OnDoubleClicked". "SortOrder", a text "column" or
/// "-column" with ";" between, is told when the user has sorted, and "OnSorted" runs. After a filter, or one
/// that was undone, "ShownRows" (long) is told and "OnFiltered" runs. What is dragged out has the texts of
/// the cells, and what "DragData" gives: a map of "Text", "Files" and "Color". What doesn't fit or meets
/// cells that can't be changed is not pasted at all; "OnPasteRefused" runs with its rows and columns.
class Grid : public GUIElement {
public:
    static constexpr AttributeRange sizeRange{-1, 32767};
    static constexpr Attribute numberOfColumnsAttribute{
        "NumberOfColumns", AttributeType::Number, "0", "Columns, with the fixed ones", false, shortRange};
    static constexpr Attribute numberOfFixedColumnsAttribute{"NumberOfFixedColumns",
                                                             AttributeType::Number,
                                                             "0",
                                                             "Columns that stay at the left",
                                                             false,
                                                             shortRange};
    static constexpr Attribute numberOfRowsAttribute{
        "NumberOfRows", AttributeType::Number, "0", "Rows, with the fixed ones", false, shortRange};
    static constexpr Attribute numberOfFixedRowsAttribute{
        "NumberOfFixedRows", AttributeType::Number, "0", "Rows that stay at the top", false, shortRange};
    static constexpr Attribute readOnlyAttribute{"ReadOnly", AttributeType::Flag, "No",
                                                 "Whether cells can't be edited"};
    static constexpr Attribute columnsWidthAttribute{
        "ColumnsWidth", AttributeType::Number, "-1", "In pixels; -1 shares the element's width out", false,
        sizeRange};
    static constexpr Attribute fixedColumnWidthAttribute{
        "FixedColumnWidth", AttributeType::Number, "", "Of fixed columns; ColumnsWidth if absent", false,
        sizeRange};
    static constexpr Attribute rowHeightAttribute{
        "RowHeight", AttributeType::Number, "-1", "In pixels; -1 shares the element's height out", false,
        sizeRange};
    static constexpr Attribute fixedRowHeightAttribute{
        "FixedRowHeight", AttributeType::Number, "", "Of fixed rows; RowHeight if absent", false, sizeRange};
    static constexpr Attribute scrollBarAttribute{"ScrollBar", AttributeType::Flag, "No",
                                                  "Whether room is kept for a vertical scroll bar"};
    static constexpr Attribute headerFontNameAttribute{"HeaderFontName", AttributeType::Text, "",
                                                       "Typeface of fixed rows and columns"};
    static constexpr Attribute headerFontSizeAttribute{
        "HeaderFontSize", AttributeType::Number, "0",
        "Height in points, in pixels if negative; 0: as other cells"};
    static constexpr Attribute headerBoldAttribute{"HeaderBold", AttributeType::Flag, "No",
                                                   "Bold weight of fixed rows and columns"};
    static constexpr Attribute fontNameAttribute{"FontName", AttributeType::Text, "", "Typeface of cells"};
    static constexpr Attribute fontSizeAttribute{"FontSize", AttributeType::Number, "0",
                                                 "Height in points, in pixels if negative"};
    static constexpr Attribute boldAttribute{"Bold", AttributeType::Flag, "No", "Bold weight of cells"};
    static constexpr Attribute headerBackgroundAttribute{"HeaderBackgroundColor", AttributeType::Colour, "",
                                                         "Background of fixed rows and columns"};
    static constexpr Attribute selectionAttribute{"Selection", AttributeType::Text, "Cells",
                                                  "What a click selects: Cells or Rows"};
    static constexpr Attribute sortableAttribute{"Sortable", AttributeType::Flag, "No",
                                                 "Whether a click on a fixed row sorts by its column"};
    static constexpr Attribute mayGrowAttribute{"MayGrow", AttributeType::Flag, "No",
                                                "Whether pasting adds the rows that are missing"};
    static constexpr Attribute draggableAttribute{"Draggable", AttributeType::Flag, "No",
                                                  "Whether what is selected can be dragged elsewhere"};
    static constexpr Attribute virtualAttribute{"Virtual", AttributeType::Flag, "No",
                                                "Whether rows are asked for when they are seen"};
    static constexpr Attribute attributes[] = {numberOfColumnsAttribute,
                                               numberOfFixedColumnsAttribute,
                                               numberOfRowsAttribute,
                                               numberOfFixedRowsAttribute,
                                               readOnlyAttribute,
                                               columnsWidthAttribute,
                                               fixedColumnWidthAttribute,
                                               rowHeightAttribute,
                                               fixedRowHeightAttribute,
                                               scrollBarAttribute,
                                               headerFontNameAttribute,
                                               headerFontSizeAttribute,
                                               headerBoldAttribute,
                                               fontNameAttribute,
                                               fontSizeAttribute,
                                               boldAttribute,
                                               headerBackgroundAttribute,
                                               selectionAttribute,
                                               sortableAttribute,
                                               mayGrowAttribute,
                                               draggableAttribute,
                                               virtualAttribute,
                                               ControlAttributes::toolTipText,
                                               ControlAttributes::accessibleName};

    Diagnostics::String GetValueString() override { return "Grid"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;

    virtual void SetNumberOfRows(unsigned short count) = 0;
    virtual unsigned short GetNumberOfRows() = 0;
    virtual void SetNumberOfColumns(unsigned short count) = 0;
    virtual unsigned short GetNumberOfColumns() = 0;
    virtual void SetNumberOfFixedRows(unsigned short count) = 0;
    virtual unsigned short GetNumberOfFixedRows() = 0;
    virtual void SetNumberOfFixedColumns(unsigned short count) = 0;
    virtual unsigned short GetNumberOfFixedColumns() = 0;
    virtual void SetRowHeight(unsigned short row, unsigned long height) = 0;
    virtual unsigned long GetRowHeight(unsigned short row) = 0;
    virtual void SetColumnWidth(unsigned short column, unsigned long width) = 0;
    virtual unsigned long GetColumnWidth(unsigned short column) = 0;
    virtual void Clear() = 0;
    virtual void SetCell(unsigned short row, unsigned short column, AttributeMap const& cell) = 0;
    virtual AttributeMap GetCell(unsigned short row, unsigned short column) = 0;
    virtual void Redraw() = 0;
    virtual void ResizeCells() = 0;
    virtual void ApplyProperties() = 0;
    virtual void LockUpdate(bool lock) = 0;

protected:
    struct Font {
        Utilities::String name;
        long size = 0;
        bool bold = false;
        bool IsGiven() const { return name.Length() != 0 || size != 0; }
        CGXStyle GetStyle() const;
    };

    /// What an update with a map asks for; whether it was done.
    virtual bool RunCommand(Utilities::String const& /*name*/, AttributeMap const& /*arguments*/) {
        return false;
    }
    /// An update of a virtual table: forgets these rows, which are the whole table for an empty range, and
    /// asks for those that are seen.
    virtual void UpdateRows(GridRange const& /*rows*/) {}
    /// The heights, or the widths, of a table that shares `room` out.
    static long GetSharedSize(bool fixed, long own, long fixedSize, long room, long count, long fixedCount);
    /// The range of an update message. Rows and columns outside of the table are left out.
    GridRange ReadRange(Utilities::String const& command);

    std::uint16_t numberOfColumns_ = 0;
    std::uint16_t numberOfFixedColumns_ = 0;
    std::uint16_t numberOfRows_ = 0;
    std::uint16_t numberOfFixedRows_ = 0;
    bool readOnly_ = false;
    long columnsWidth_ = -1;
    long fixedColumnWidth_ = -1;
    long rowHeight_ = -1;
    long fixedRowHeight_ = -1;
    bool scrollBar_ = false;
    Font headerFont_;
    Font font_;
    bool virtual_ = false;
    /// Maps; one for each column, or none.
    std::vector<AttributeMap> columnStyles_;
    std::vector<GridRange> mergedCells_;

private:
    void ReadCounts();
    void ReadProperties();
    void ReadCells(GridRange const& range);
};

} // namespace GUI
