#pragma once

#include "gui/elements/DialogHandler.h"
#include "gui/elements/SelectionServiceInterface.h"

namespace GUI {

/// Answers for the items "Cut", "Copy", "Paste" and "Undo" of an Edit menu: the component "CopyPasteHandler",
/// which enters itself under that name at the application, so that a menu item's "Handler" finds it.
///
/// Each acts on the element that the selection service has under "PropertyInspector": on what that element's
/// data source gives as its copy-and-paste handler. "ItemEnabled" and the items themselves throw
/// `ResourceNotAvailableException` if nothing is selected that has one; a menu shows such an item disabled.
class CopyPasteHandler : public DialogHandler {
public:
    CopyPasteHandler();
    CopyPasteHandler(CopyPasteHandler const&) = delete;
    CopyPasteHandler& operator=(CopyPasteHandler const&) = delete;
    ~CopyPasteHandler() override;

    Diagnostics::String GetValueString() override { return "CopyPasteHandler"; }
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;

private:
    /// Of the selected element, whose name it tells.
    SupportsCopyPaste& FindActive(Utilities::String& element);
    long OnCut(Utilities::Anything const& argument);
    long OnCopy(Utilities::Anything const& argument);
    long OnPaste(Utilities::Anything const& argument);
    long OnUndo(Utilities::Anything const& argument);

    Utilities::SmartPointer<SelectionServiceInterface> selection_;
};

} // namespace GUI
