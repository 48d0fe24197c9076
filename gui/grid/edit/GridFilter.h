#pragma once

#include "gui/grid/model/CGXGridCore.h"

namespace GUI {

/// Puts the rows that all filters let through before the others; both keep their order. Gives how many were
/// let through. A filter's text is looked for in the cell, letters alike in both cases; with "<", "<=", "=",
/// ">=" or
/// ">" before a number the cell's number is compared.
std::size_t FilterGridRows(CGXGridCore const& core, GridOrder::Lines& lines,
                           std::vector<GridFilter> const& filters);

} // namespace GUI
