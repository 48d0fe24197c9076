#pragma once

#include "gui/grid/printing/GridPrintLayout.h"

#include <functional>

class QPagedPaintDevice;

namespace GUI {

struct GridPrintJob {
    CGXGridCore const& core;
    long frozenRows = 0;
    long frozenColumns = 0;
    char decimalSign = '.';
    GridPrintOptions options;
    /// Called before a page with the rows on it, which a virtual table fetches then; false ends the job.
    std::function<bool(long first, long last)> prepare;
};

/// Prints a table on a printer or into a PDF. False if the device can't be written, or the job was ended.
bool PrintGrid(QPagedPaintDevice& device, GridPrintJob const& job);
/// Into a file, A4, upright or across, with margins of 15 mm. The file appears once it is whole.
bool PrintGridToPdf(Utilities::String const& file, bool landscape, GridPrintJob const& job);

} // namespace GUI
