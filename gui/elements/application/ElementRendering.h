#pragma once

#include "core/base/String.h"

namespace GUI {

/// How an element is drawn for another program, a file or a printer.
///
/// It is drawn with all panes below it, keeps its layout and is scaled as a whole. Controls of the platform
/// are left out. Pictures are drawn in their own pixels, not enlarged ones, and are marked as sRGB; in an SVG
/// drawing and on a PDF page lines, figures and texts stay such.
struct ElementRendering {
    /// "png", "svg", "pdf", or another format of pictures that the platform writes.
    Utilities::String format = "png";
    /// Of the picture in pixels, or of the page in points (1/72 inch); 0 is the element's own.
    unsigned long width = 0;
    /// Name of a `Theme`, as "Report" for paper; empty for that of the element's window.
    Utilities::String theme;
};

} // namespace GUI
