#pragma once

#include "gui/elements/DialogObserver.h"
#include "gui/elements/DropDataObject.h"
#include "gui/elements/KeyState.h"

namespace GUI {

/// What is dropped on an element goes to the handler that its data source has for the element's name, or
/// without one to the `DialogHandler` as a whole. `window` and the place in it are what that one is told.
class ElementDrops {
public:
    ElementDrops(GUIElement& element, PlatformIndependentWindowID const& window);

    /// Somebody decides about drops here.
    bool HasTaker() const;
    /// The handler is the element's own.
    bool HasHandler() const { return handler_ != nullptr; }
    DropEffect OnDragOver(DropDataObject const& data, KeyState keyState, long x, long y) const;
    bool OnDrop(DropDataObject const& data, DropEffect effect, long x, long y) const;

private:
    PlatformIndependentWindowID const& window_;
    DialogDataSource* source_;
    DropHandlerBase* handler_;
};

} // namespace GUI
