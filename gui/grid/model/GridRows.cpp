#include "gui/grid/model/GridRows.h"

#include <algorithm>

namespace GUI {

GridCell const& GridRow::Get(GridOrder::Line column) const {
    static GridCell const none;
    return column < cells.size() ? cells[column] : none;
}

GridCell& GridRow::Make(GridOrder::Line column, std::size_t most) {
    constexpr std::size_t few = 8;
    if (column >= cells.capacity())
        cells.reserve(std::max<std::size_t>(column + 1, std::min(most, std::max(2 * cells.capacity(), few))));
    if (column >= cells.size()) cells.resize(column + 1);
    return cells[column];
}

GridRow const* GridRows::Find(Line line) const {
    if (line == 0) return &header_;
    Line const block = BlockOf(line);
    return HasBlock(block) ? &(*blocks_[block])[line - FirstOf(block)] : nullptr;
}

GridRow& GridRows::Make(Line line) {
    if (line == 0) return header_;
    Line const block = BlockOf(line);
    if (block >= blocks_.size()) blocks_.resize(block + 1);
    if (!blocks_[block]) blocks_[block] = std::make_unique<Block>();
    return (*blocks_[block])[line - FirstOf(block)];
}

void GridRows::DropBlock(Line block) {
    if (block < blocks_.size()) blocks_[block] = nullptr;
}

void GridRows::Clear(Line line) {
    if (Find(line)) Make(line) = {};
}

} // namespace GUI
