#pragma once

#include <QImage>
#include <string>

namespace GUI {

class GUIElement;

/// Draws an element, with all panes below it, into a file of another device: a picture, or a PDF page.
///
/// The element keeps its layout and is scaled as a whole. Pictures are drawn in their own pixels, not
/// enlarged ones, and carry the mark of sRGB; on a PDF page lines, figures and texts stay such. Controls of
/// the platform are left out.
class ElementPicture_PC {
public:
    /// The format is told by the file's extension: "pdf" or a format of pictures. `width` is that of the
    /// picture in pixels, or of the page in points (1/72 inch); 0 is the element's own. False for what can't
    /// be drawn or written; nothing of a file is left behind then.
    static bool Save(GUIElement& element, std::string const& path, unsigned long width);
    /// The picture in the element's own size; null if it can't be drawn.
    static QImage Draw(GUIElement& element);
};

} // namespace GUI
