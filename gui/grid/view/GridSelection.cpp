#include "gui/grid/view/GridSelection.h"

namespace GUI {

bool GridSelection::Contains(GridPlace const& place) const {
    return std::ranges::any_of(ranges_, [&place](GridRange const& range) { return range.Contains(place); });
}

GridRange GridSelection::GetBounds() const {
    GridRange bounds;
    for (GridRange const& range : ranges_) bounds = bounds.Join(range);
    return bounds;
}

void GridSelection::Set(GridPlace const& current, GridRange const& range) {
    current_ = current;
    anchor_ = range;
    ranges_.assign(1, range);
}

void GridSelection::Toggle(GridPlace const& current, GridRange const& range) {
    current_ = current;
    anchor_ = range;
    auto const found = std::ranges::find(ranges_, range);
    if (found == ranges_.end() || ranges_.size() == 1)
        ranges_.push_back(range);
    else
        ranges_.erase(found);
}

void GridSelection::Extend(GridRange const& to) {
    if (ranges_.empty()) return Set(to.GetFirst(), to);
    ranges_.back() = anchor_.Join(to);
}

void GridSelection::Clear() { *this = {}; }

} // namespace GUI
