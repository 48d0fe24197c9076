#pragma once

#include "gui/grid/model/CGXGridCore.h"

#include <span>

namespace GUI {

/// The rows from `first` to the last in the order that the keys give, the first key first; rows that are
/// equal in all keep their order. Numbers come before other texts, empty cells last whatever the direction;
/// letters count alike in both cases.
GridOrder::Lines SortGridRows(CGXGridCore const& core, long first, std::span<GridSortKey const> keys,
                              char decimalSign = '.');

/// The next cell whose text has `what` in it, behind `from` row by row and from the first cell on; letters
/// count alike in both cases unless told otherwise. Empty if there is none.
GridRange FindGridText(CGXGridCore const& core, Utilities::String const& what, GridPlace const& from,
                       bool backward = false, bool exactCase = false);

} // namespace GUI
