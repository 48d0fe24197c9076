#pragma once

#include "gui/grid/model/CGXGridCore.h"

#include <string>
#include <vector>

namespace GUI {

/// Cells as they go to and come from other programs, a spreadsheet above all: rows of texts.
using GridTexts = std::vector<std::vector<Utilities::String>>;

/// The cells of a range. Numbers have the given decimal sign and "-"; hidden rows and columns are left out.
GridTexts CopyGridCells(CGXGridCore const& core, GridRange const& range, char decimalSign = '.');

/// Text with a tab between cells and a line end behind each row. A cell with a tab, a line end or a quote in
/// it is put into quotes, and a quote in it is doubled.
std::string WriteGridText(GridTexts const& cells);
/// Reads such a text; lines may end in any of the three ways. Quotes count only where a cell begins with one
/// and is closed by one before a tab or a line end, or the end; others are what they are, so that nothing is
/// lost.
GridTexts ReadGridText(std::string const& text);

/// A table in HTML, UTF-8.
std::string WriteGridHtml(GridTexts const& cells);
/// The cells of the first table in a page; empty without one. `<br>` and `<p>` become line ends, blanks
/// between words one blank. A cell that spans several columns is followed by empty ones.
GridTexts ReadGridHtml(std::string const& page);

} // namespace GUI
