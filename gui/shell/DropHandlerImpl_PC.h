#pragma once

#include "gui/elements/DropHandlerImpl.h"
#include "gui/platform/DragData_PC.h"

namespace GUI {

/// Drags by the platform, in all formats that it has.
class DropHandlerImpl_PC : public DropHandlerImpl {
public:
    Diagnostics::String GetValueString() override { return "DropHandlerImpl_PC"; }
    DropEffect Drag(GUIElement& element, Utilities::Anything const& content) override;

    /// What such a map comes to, with the element's picture where it asks for it.
    static DragContent Read(GUIElement& element, Utilities::Anything const& content);
};

} // namespace GUI
