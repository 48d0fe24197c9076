#pragma once

#include "core/base/String.h"
#include "core/component/Component.h"
#include "gui/elements/SelectableObject.h"

namespace GUI {

/// What elements use of the component "SelectionService": who holds the selection of a topic.
/// Selected objects are not owned; one that goes away clears its selection first.
class SelectionServiceInterface : public Utilities::Component {
public:
    virtual void SetSelection(Utilities::String const& topic, SelectableObject* object) = 0;
    virtual SelectableObject* GetSelection(Utilities::String const& topic) = 0;
};

} // namespace GUI
