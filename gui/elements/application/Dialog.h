#pragma once

#include "gui/elements/GUIElement.h"

namespace GUI {

/// A dialog as its users see it: the component "Dialog".
class Dialog : public GUIElement {
public:
    using GUIElement::Initialize;
    /// `Initialize` of a modal dialog is that of `GUIElement`; a modeless one appears at once.
    virtual void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource, bool modeless) = 0;
    /// Shows a modal dialog and returns when it has been closed, with the value given to `Close`.
    virtual long RunModal() = 0;
    virtual void Close(long result) = 0;
    /// Whether it has its window; that goes with the window that the dialog belongs to.
    virtual bool HasWindow() const = 0;
    /// The dialog's window has come into being: children, limits, size, place.
    virtual void OnInitDialog() = 0;
    /// Replaces what the dialog shows, while its window exists.
    virtual void SetGUIDescriptionTree(DescriptionTree const& description) = 0;
    /// Entered at the data source as the callback "OnClose" of the dialog's name.
    virtual long OnClose(Utilities::Anything const& argument) = 0;
};

} // namespace GUI
