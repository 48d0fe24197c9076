#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/elements/application/MenuItem.h"

namespace GUI {

/// A menu made from a tree of items; the component "Menu" binds it to the platform.
class Menu : public GUIElement {
public:
    using Items = Utilities::Tree<MenuItem>;

    Diagnostics::String GetValueString() override { return "Menu"; }
    /// Takes the items over and numbers nothing yet.
    virtual void BuildMenu(Utilities::SmartPointer<Items> const& items) { items_ = items; }
    /// False for an unknown command.
    virtual bool IsMenuItemEnabled(long command);
    /// Empty for an unknown command.
    virtual Utilities::String GetMenuText(long command);
    Utilities::SmartPointer<Items> GetItems() const { return items_; }

private:
    Utilities::SmartPointer<Items> items_;
};

} // namespace GUI
