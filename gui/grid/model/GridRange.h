#pragma once

#include <algorithm>

namespace GUI {

/// A cell's place as it is shown; row and column 0 are the headers.
struct GridPlace {
    long row = 0;
    long column = 0;

    bool operator==(GridPlace const&) const = default;
};

/// A rectangle of cells, the last row and column inside. By default empty.
struct GridRange {
    long top = 1;
    long left = 1;
    long bottom = 0;
    long right = 0;

    static GridRange Of(GridPlace const& place) { return {place.row, place.column, place.row, place.column}; }
    /// The smallest one with both places in it.
    static GridRange Between(GridPlace const& one, GridPlace const& other) {
        return {std::min(one.row, other.row), std::min(one.column, other.column),
                std::max(one.row, other.row), std::max(one.column, other.column)};
    }

    bool IsEmpty() const { return bottom < top || right < left; }
    long GetRows() const { return IsEmpty() ? 0 : bottom - top + 1; }
    long GetColumns() const { return IsEmpty() ? 0 : right - left + 1; }
    GridPlace GetFirst() const { return {top, left}; }
    bool Contains(GridPlace const& place) const {
        return place.row >= top && place.row <= bottom && place.column >= left && place.column <= right;
    }
    GridRange Meet(GridRange const& other) const {
        return {std::max(top, other.top), std::max(left, other.left), std::min(bottom, other.bottom),
                std::min(right, other.right)};
    }
    GridRange Join(GridRange const& other) const {
        if (IsEmpty()) return other;
        if (other.IsEmpty()) return *this;
        return {std::min(top, other.top), std::min(left, other.left), std::max(bottom, other.bottom),
                std::max(right, other.right)};
    }
    bool operator==(GridRange const&) const = default;
};

} // namespace GUI
