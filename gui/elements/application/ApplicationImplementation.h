#pragma once

#include "Diagnostics/String.h"
#include "core/base/String.h"
#include "core/component/Component.h"
#include "gui/elements/application/ElementRendering.h"
#include "gui/elements/application/Menu.h"

#include <cstdint>
#include <string>

namespace GUI {

/// One entry of the accelerator table.
struct AcceleratorEntry {
    static constexpr std::uint8_t virtualKey = 1;
    static constexpr std::uint8_t shift = 4;
    static constexpr std::uint8_t control = 8;
    static constexpr std::uint8_t alt = 16;

    std::uint8_t flags = 0;
    std::uint16_t key = 0;
    std::uint16_t command = 0;
};

/// The platform's share of the application: the component "ApplicationImplementation", the first and
/// only one of its kind in a process.
class ApplicationImplementation : public Utilities::Component {
public:
    virtual void SetMainWindow(GUIElement* window) = 0;
    virtual Diagnostics::String GetValueString() = 0;
    /// Builds the accelerators from the menu's items and installs the menu in the main window.
    virtual void BuildAccelerators(Menu& menu) = 0;
    /// Shows a help file of the program; false if there is none of that name in any language.
    virtual bool ShowHelp(Utilities::String const& name, unsigned long topic, unsigned long command) = 0;
    virtual void Beep() = 0;
    /// Returns the old state.
    virtual bool SetWaitCursor(bool on) = 0;
    virtual void SetDragCursor(bool on) = 0;
    /// Off gives the keys to whoever has the focus; on takes them back.
    virtual void EnableAccelerators(bool on) = 0;
    /// Appends the entries of a level of items and of those below it. `table` has room for
    /// `maximalAccelerators`; hot keys beyond that are left out. Always true.
    virtual bool CollectAccelerators(AcceleratorEntry* table, long& count, Menu::Items& items) = 0;

    static constexpr long maximalAccelerators = 100;

    /// Starts the application and runs its message loop until `Quit`; returns the exit code.
    virtual int Run() = 0;
    virtual void Quit(int exitCode) = 0;
    /// Shows a message to the user and waits for an answer; without a display it does nothing.
    virtual void ShowMessage(Utilities::String const& title, Utilities::String const& text) = 0;
    /// Whether windows are drawn offscreen, since there is no display or the application asked for it.
    virtual bool IsOffscreen() const = 0;
    /// The bytes of the ICC profile that the desktop names for its screen, to make a screen transform of;
    /// empty if it names none, as offscreen.
    virtual std::string GetDisplayProfile() const = 0;
    /// Lets everything that waits to be laid out and painted do so, then writes the window's picture.
    /// The format is told by the file's extension. False if the file can't be written.
    virtual bool SaveWindowPicture(GUIElement& window, Utilities::String const& fileName) = 0;
    /// The bytes of a file that shows the element; empty if it can't be drawn. The element's numbers are
    /// what `NumberTableOf` gives.
    virtual std::string RenderElement(GUIElement& element, ElementRendering const& rendering) = 0;
    /// The same into a file, whose extension tells the format. False if it can't be drawn or written; nothing
    /// of a file is left behind then.
    virtual bool SaveElementPicture(GUIElement& element, Utilities::String const& fileName,
                                    ElementRendering const& rendering) = 0;
    /// On a page of A4, as large as its margins of 15 mm allow, upright or across: onto the printer of that
    /// name, the system's own for an empty one, or into a file whose name ends in ".pdf". False if it can't
    /// be printed. The theme is "Report" unless another one is asked for; format and width play no part.
    virtual bool PrintElement(GUIElement& element, Utilities::String const& printer,
                              ElementRendering const& rendering) = 0;
};

} // namespace GUI
