#pragma once

#include "gui/grid/model/GridRows.h"

#include <utility>
#include <vector>

namespace GUI {

/// Which blocks of rows of a virtual table are kept: those that were looked at last.
class GridPages {
public:
    using Line = GridRows::Line;
    /// Many screens of rows, and little memory.
    static constexpr std::size_t mostBlocks = 128;

    /// The rows to ask for so that all from `first` to `last` are there: whole blocks, neighbours together.
    std::vector<std::pair<long, long>> GetMissing(GridRows const& rows, long first, long last,
                                                  long count) const;
    /// These rows have been filled.
    void Note(long first, long last);
    /// The blocks to drop, so that no more than `mostBlocks` are kept.
    std::vector<Line> TakeSurplus();
    void Clear() { blocks_.clear(); }

private:
    /// The last one was noted last.
    std::vector<Line> blocks_;
};

} // namespace GUI
