#pragma once

#include "gui/grid/model/CGXStyleTable.h"
#include "gui/grid/model/GridOrder.h"

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace GUI {

struct GridCell {
    Utilities::String text;
    CGXStyleTable::Id style = 0;
};

struct GridRow {
    /// By line of the column; as long as the last column that was set.
    std::vector<GridCell> cells;

    GridCell const& Get(GridOrder::Line column) const;
    /// Room is made for up to `most` cells, twice as much each time.
    GridCell& Make(GridOrder::Line column, std::size_t most);
};

/// The cells of a table by line, in blocks that exist once something is set in them. A table whose data come
/// by range holds the blocks that were looked at last and drops the others.
class GridRows {
public:
    using Line = GridOrder::Line;
    static constexpr Line blockSize = 64;

    static Line BlockOf(Line line) { return (line - 1) / blockSize; }
    static Line FirstOf(Line block) { return block * blockSize + 1; }

    /// Null if nothing was set in the row or its neighbours.
    GridRow const* Find(Line line) const;
    GridRow& Make(Line line);
    /// Line 0 isn't in a block.
    bool HasBlock(Line block) const { return block < blocks_.size() && blocks_[block]; }
    Line GetBlockCount() const { return static_cast<Line>(blocks_.size()); }
    void DropBlock(Line block);
    void DropBlocks() { blocks_.clear(); }
    /// The cells of a row go.
    void Clear(Line line);
    template <class Visit> void ForEach(Visit visit) {
        visit(header_);
        for (auto const& block : blocks_)
            if (block)
                for (GridRow& row : *block) visit(row);
    }

private:
    using Block = std::array<GridRow, blockSize>;

    GridRow header_;
    std::vector<std::unique_ptr<Block>> blocks_;
};

} // namespace GUI
