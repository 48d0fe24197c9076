#pragma once

#include "core/component/Component.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/KeyState.h"

namespace GUI {

/// The platform's share of drag and drop: the component "DropHandlerImpl".
///
/// What can be dragged out of an element is a map with "Text" (text), "Color" (colour), "Files" (vector of
/// paths) and "Picture" (bool: the element as it looks). A pane whose data source gives such a map under
/// "DragData" is dragged when the mouse moves on it with the button down; other elements have attributes of
/// their own. Drops on panes and native controls go to the data source, see `ElementDrops`.
class DropHandlerImpl : public Utilities::Component {
public:
    virtual Diagnostics::String GetValueString() { return "DropHandlerImpl"; }
    bool PrepareForUnload() override { return true; }
    /// Drags out of an element, and returns when it was dropped: what became of it, None if it was taken
    /// nowhere. The element may be gone then. Nothing is dragged without any content.
    virtual DropEffect Drag(GUIElement& element, Utilities::Anything const& content) = 0;
};

} // namespace GUI
