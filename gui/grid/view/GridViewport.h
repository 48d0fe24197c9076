#pragma once

#include "gui/grid/controls/GridDrawing.h"
#include "gui/grid/model/CGXGridCore.h"

namespace GUI {

/// One direction of a table in its window: the header and so many frozen lines stay, the rest is scrolled
/// behind them.
class GridAxisView {
public:
    explicit GridAxisView(GridAxis const& axis) : axis_(axis) {}

    long frozen = 0;
    /// Pixels that are scrolled away.
    long offset = 0;
    /// Of the window, in pixels.
    long extent = 0;

    /// Where the frozen part ends.
    long GetFrozenEnd() const { return axis_.GetStart(frozen + 1); }
    long GetPlace(long line) const { return axis_.GetStart(line) - (line > frozen ? offset : 0); }
    /// Where the line ends.
    long GetEnd(long line) const { return GetPlace(line) + axis_.GetSize(line); }
    /// The line that a pixel of the window shows; -1 outside of the table.
    long GetLineAt(long pixel) const;
    /// The first and the last line behind the frozen ones that is seen; the last is before the first if none
    /// is.
    long GetFirst() const;
    long GetLast() const;
    /// Lines that are seen whole, at least one: what a page is.
    long GetPage() const;
    long GetGreatestOffset() const;
    /// The last line that may be the first one: from it on all that follow are seen.
    long GetLastFirst() const;
    /// The offset at which a line is seen whole, changed as little as possible.
    long GetOffsetFor(long line) const;
    /// The same, with a line right behind the frozen ones.
    long GetOffsetToBegin(long line) const;

private:
    GridAxis const& axis_;
};

/// The part of a table that its window shows.
class GridViewport {
public:
    explicit GridViewport(CGXGridCore const& core)
        : rows(core.GetHeights()), columns(core.GetWidths()), core_(core) {}

    GridAxisView rows;
    GridAxisView columns;

    /// Where cells are in the window, also beyond its edges and behind the frozen ones.
    GridBox GetBox(GridRange const& range) const;
    /// The box of the merged cells that a cell belongs to.
    GridBox GetCellBox(GridPlace const& place) const { return GetBox(core_.GetMerged(place)); }
    /// Row or column -1 outside of the table. Of merged cells the first.
    GridPlace GetPlaceAt(long x, long y) const;
    /// The line whose end is at a pixel of the window, give or take a few; -1 for none. Hidden lines are
    /// found just behind the edge that they are at.
    static long FindEdge(GridAxisView const& view, GridAxis const& axis, long pixel);

private:
    CGXGridCore const& core_;
};

} // namespace GUI
