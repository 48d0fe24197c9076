#pragma once

#include "gui/grid/controls/GridDrawing.h"
#include "gui/grid/model/CGXGridCore.h"

#include <functional>
#include <vector>

namespace GUI {

struct GridPrintOptions {
    /// Makes the table as narrow as the page, so that no column goes to another one; never larger.
    bool fitWidth = true;
    /// Over the table on each page; empty for none.
    Utilities::String title;
    /// Under the table; "%1" is the page, "%2" how many there are. Empty for none.
    Utilities::String footer = "%1 / %2";
};

/// How a table is spread over pages. Frozen rows and columns are on each of them; a row or column that isn't
/// wholly on a page begins the next one. Pages go downward first.
class GridPrintLayout {
public:
    struct Page {
        GridRange cells;
    };

    /// `width` and `height` are the page's inside its margins, in pixels of 96 an inch.
    GridPrintLayout(CGXGridCore const& core, long frozenRows, long frozenColumns, long width, long height,
                    GridPrintOptions const& options);

    std::vector<Page> const& GetPages() const { return pages_; }
    /// Pixels of the page are so many pixels of the table.
    double GetScale() const { return scale_; }
    /// Draws one page. The context is scaled by `GetScale` already.
    void Paint(GridDrawing& drawing, std::size_t page) const;

private:
    static std::vector<std::pair<long, long>> Divide(GridAxis const& axis, long frozen, long room);
    /// The lines of one direction on a page with their places: frozen ones, then its own.
    static std::vector<std::pair<long, long>> Place(GridAxis const& axis, long frozen, long first, long last);
    void PaintCell(GridDrawing& drawing, GridPlace const& place, GridBox const& box) const;

    CGXGridCore const& core_;
    GridPrintOptions const& options_;
    long frozenRows_;
    long frozenColumns_;
    double scale_ = 1;
    /// Of the page, in pixels of the table.
    long width_;
    long height_;
    std::vector<Page> pages_;
};

} // namespace GUI
