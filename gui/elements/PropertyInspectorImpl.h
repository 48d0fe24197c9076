#pragma once

#include "gui/elements/DialogHandler.h"
#include "gui/elements/SupportsPropertyInspector.h"
#include "gui/elements/description/Description.h"

namespace GUI {

/// One page of the property inspector: what is shown of an element, and how. A component of the name that the
/// element gives as `GetPropertyInspectorName`; a host adds pages by registering more.
///
/// The page is the data source of its elements. It is dropped when another page takes its place, also within
/// a call of its own.
class PropertyInspectorImpl : public DialogHandler {
public:
    /// The component's name, by which it is decided whether an element needs another page.
    virtual Utilities::String GetName() const = 0;
    /// Of the dialog that shows it.
    virtual DescriptionTree GetGUIDescription() = 0;
    /// Shows the element; null for none.
    virtual void Update(SupportsPropertyInspector* element) = 0;
};

} // namespace GUI
