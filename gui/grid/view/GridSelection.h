#pragma once

#include "gui/grid/model/GridRange.h"

#include <vector>

namespace GUI {

/// Which cells of a table are selected, and the current one among them. A selection is a list of ranges; the
/// last of them is the one that is being pulled out from its anchor.
class GridSelection {
public:
    GridPlace const& GetCurrent() const { return current_; }
    std::vector<GridRange> const& GetRanges() const { return ranges_; }
    bool Contains(GridPlace const& place) const;
    /// The smallest range with all of it in.
    GridRange GetBounds() const;
    bool IsEmpty() const { return ranges_.empty(); }

    /// One cell alone.
    void Set(GridPlace const& place) { Set(place, GridRange::Of(place)); }
    /// One range alone, with its current cell.
    void Set(GridPlace const& current, GridRange const& range);
    /// One more range; one that is there already goes instead.
    void Toggle(GridPlace const& current, GridRange const& range);
    /// Pulls the last range from where it began.
    void Extend(GridRange const& to);
    void MoveCurrent(GridPlace const& current) { current_ = current; }
    void Clear();
    bool operator==(GridSelection const&) const = default;

private:
    GridPlace current_{0, 0};
    GridRange anchor_;
    std::vector<GridRange> ranges_;
};

} // namespace GUI
