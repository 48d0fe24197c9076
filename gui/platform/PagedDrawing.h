#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <cstddef>

namespace GUI {

/// What is printed page by page, such as a table or a report. Sizes are pixels of 96 an inch.
class PagedDrawing {
public:
    virtual ~PagedDrawing() = default;
    /// Divides itself into pages of that size inside the margins, and gives their number. `context` measures.
    virtual std::size_t LayOut(PlatformIndependentDeviceContext& context, long width, long height) = 0;
    /// Pixels of the page for each of the drawing's own.
    virtual double GetScale() const { return 1; }
    /// Called before a page is begun; false ends the job.
    virtual bool Prepare(std::size_t /*page*/) { return true; }
    virtual void Paint(PlatformIndependentDeviceContext& context, std::size_t page) = 0;
};

/// A sheet of paper. Margins are in millimetres.
struct Paper {
    /// "A3", "A4", "A5", "Letter" or "Legal"; any other text is "A4".
    Utilities::String size = "A4";
    bool isLandscape = false;
    double margin = 15;
};

} // namespace GUI
