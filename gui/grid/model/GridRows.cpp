#include "gui/grid/model/GridRows.h"

namespace GUI {

GridCell const& GridRow::Get(GridOrder::Line column) const {
    static GridCell const none;
    return column < cells.size() ? cells[column] : none;
}

GridCell& GridRow::Make(GridOrder::Line column) {
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
