#pragma once

#include "gui/platform/PagedDrawing.h"

#include <string>

class QByteArray;
class QPagedPaintDevice;

namespace GUI {

/// Prints on a device whose paper is set. Gives the number of pages; 0 if the device can't be written, or the
/// job was ended.
std::size_t PrintPages(QPagedPaintDevice& device, PagedDrawing& drawing);
/// Into a file, which appears once it is whole.
std::size_t PrintPagesToPdf(Utilities::String const& file, Paper const& paper, PagedDrawing& drawing);
/// On the printer of that name, or on the system's own for an empty one. 0 also if there is none.
std::size_t PrintPagesToPrinter(Utilities::String const& printer, Paper const& paper, PagedDrawing& drawing);
/// Hands a PDF to the printing system's own program. False if there is none, or it refuses.
bool SendToPrinter(QByteArray const& pdf, std::string const& printer);

} // namespace GUI
