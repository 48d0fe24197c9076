#pragma once

#include "gui/grid/view/CGXGridWnd.h"

namespace GUI {

/// Paints what a box of a table's window shows, and no other cells.
class GridPainter {
public:
    GridPainter(CGXGridWnd const& grid, PlatformIndependentDeviceContext& context, GridBox const& box);

    void Paint();

    /// What a header shows whose cell has no text: the number of a row, letters of a column.
    static Utilities::String GetHeaderText(GridPlace const& place);

private:
    /// Frozen or scrolled lines of both directions.
    struct Part {
        GridRange lines;
        GridBox box;
    };

    Part Clip(Part part) const;
    void PaintPart(Part const& part);
    void PaintCell(GridPlace const& place, GridBox const& box);
    void PaintHeader(GridPlace const& place, GridBox const& box);
    void PaintSortMark(GridPlace const& place, GridBox const& box);
    void PaintLines(Part const& part);
    void PaintMerged(Part const& part);
    void PaintSelection(Part const& part);
    bool IsCovered(GridPlace const& place) const;

    CGXGridWnd const& grid_;
    CGXGridCore const& core_;
    GridViewport const& view_;
    GridDrawing drawing_;
    GridBox box_;
    /// Merged ranges in the part that is being painted.
    std::vector<GridRange> merged_;
};

} // namespace GUI
