#pragma once

#include "core/values/Anything.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/KeyState.h"
#include "gui/elements/SupportsCopyPaste.h"

namespace GUI {

class DropDataObject;

/// Takes what is dropped on one element.
class DropHandlerBase {
public:
    virtual ~DropHandlerBase() = default;
    virtual bool OnDrop(DropDataObject const& data, DropEffect effect, long x, long y) = 0;
    virtual DropEffect OnDragOver(DropDataObject const& data, KeyState const& keyState, long x, long y) = 0;
};

/// The side of a dialog's logic that reacts to events.
class DialogObserver {
public:
    virtual ~DialogObserver() = default;
    virtual void Initialize() = 0;
    virtual void DeleteAllCallbacks() = 0;
    virtual long ExecuteCallback(Utilities::String const& element, Utilities::String const& name,
                                 Utilities::Anything const& argument) = 0;
    virtual long OnHelp(Utilities::Anything const& argument) = 0;
    /// Handlers are not owned; one that goes away unregisters first.
    virtual void RegisterDropHandler(Utilities::String const& element, DropHandlerBase& handler) = 0;
    virtual void UnregisterDropHandler(Utilities::String const& element) = 0;
    virtual DropHandlerBase* GetDropHandler(Utilities::String const& element) = 0;
    virtual void RegisterCopyPasteHandler(Utilities::String const& element, SupportsCopyPaste& handler) = 0;
    virtual void UnregisterCopyPasteHandler(Utilities::String const& element) = 0;
    virtual void SetRootElement(Utilities::SmartPointer<GUIElement>& root) = 0;
    virtual Utilities::SmartPointer<GUIElement> GetRootElement() = 0;
};

} // namespace GUI
