#pragma once

#include "Utilities/File.h"
#include "Utilities/Tools/SmartPointer.h"
#include "core/base/String.h"
#include "gui/elements/KeyState.h"
#include "gui/elements/drawing/Bitmap.h"

#include <functional>

namespace GUI {

class GUIElement;

/// What is on the platform's clipboard: the component "ClipboardService".
///
/// A format is "Text", "Bitmap", or any other name, which is a private format that a `DataSource` of that
/// format has put there; a name with a "/" is a MIME type as it is. What other programs have copied is
/// untrusted: texts and pictures above the limits of `Utilities::Limits` count as not there. GUI thread only.
class ClipboardService : public Utilities::Component {
public:
    virtual Diagnostics::String GetValueString() = 0;
    /// "Bitmap" is there as a raster picture or as a drawing.
    virtual bool IsFormatAvailable(Utilities::String const& format) = 0;
    /// Up to the first zero byte; empty if it isn't there.
    virtual Utilities::String GetText(Utilities::String const& format) = 0;
    /// A new, empty "Bitmap" component; see `ReadBitmap`.
    virtual Utilities::SmartPointer<Bitmap> GetBitmap() = 0;
    /// The picture of the clipboard, a drawing at its own size; null if there is none that can be read.
    virtual Utilities::SmartPointer<Bitmap> ReadBitmap() = 0;
};

/// Carries what is copied or dragged: the component "DataSource", one for each copy or drag. It is filled by
/// the operations that add, in as many formats as there are, and then given away as a whole by `SetClipboard`
/// or `DoDragDrop`; from then on it is empty. What is on the clipboard stays there when the program ends if
/// the desktop has a clipboard manager. GUI thread only.
class DataSource : public Utilities::Component {
public:
    /// Makes the data when they are asked for, perhaps long after and more than once; must not throw.
    using Maker = std::function<std::string()>;

    virtual Diagnostics::String GetValueString() = 0;
    /// Runs a drag with what was gathered, and returns what became of it. `effects` is the most that is
    /// allowed: Move allows a copy too.
    virtual DropEffect DoDragDrop(DropEffect effects) = 0;
    /// The file's whole content in a private format; false if it can't be read.
    virtual bool AddFile(Utilities::String const& format, Utilities::SmartPointer<Utilities::File> file) = 0;
    /// A picture in the format "Bitmap", which other programs see as a raster picture (PNG and BMP) and as a
    /// drawing (SVG). It is encoded when somebody asks for it. False for another format, an empty picture, or
    /// one of another implementation; nothing is added then.
    virtual bool AddBitmap(Utilities::String const& format, Utilities::SmartPointer<Bitmap> bitmap) = 0;
    virtual bool AddText(Utilities::String const& format, Utilities::String const& text) = 0;
    virtual void SetClipboard() = 0;
    /// Data that are made when they are asked for. `format` as with `AddText`.
    virtual bool AddLater(Utilities::String const& format, Maker const& maker) = 0;
    /// The element as it looks now: a raster picture, and a drawing of lines, figures and texts; and its
    /// numbers as text if it has some (see `NumberTableOf`). False if it can't be drawn.
    virtual bool AddElement(GUIElement& element) = 0;
};

} // namespace GUI
