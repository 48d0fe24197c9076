#pragma once

#include "gui/elements/GUIElement.h"

namespace GUI {

/// A dialog in which the user chooses files: the component "FileDialog". It is a root, and shown by `Open`,
/// which doesn't wait for the answer.
///
/// Attributes: "Mode" ("Open", "Save" or "Directory"), "Caption" (a key; named after the mode), "Filters"
/// (none: "Samples|*.txt *.xml;All files|*", names are keys), "Several" (No: one file), "Suffix" (none: what
/// a name without one gets), "Platform" (No: the library's own dialog; Yes: that of the desktop, where there
/// is one), "Preview" (No; whether the library's own shows the first samples of a file of measurements),
/// "Directory" (none: where it begins), "Settings" (the element's name: under this key of the section
/// "FileDialog" the preferences keep the last directory, and it begins there; "None" keeps nothing).
///
/// Of the data source at each opening "File" (text): a name that is proposed, or a path. When something was
/// chosen the data source is told "File", a path, or a vector of paths with "Several", and then
/// "OnFileChosen" runs with the same; "OnCancelled" if nothing was. Before a file is replaced the user is
/// asked.
class FileDialog : public GUIElement {
public:
    Diagnostics::String GetValueString() override { return "FileDialog"; }
    /// Nothing happens while it is open.
    virtual void Open() = 0;
    virtual bool IsOpen() const = 0;
    /// As if nothing had been chosen.
    virtual void Cancel() = 0;
};

} // namespace GUI
