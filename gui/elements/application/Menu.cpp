#include "gui/elements/application/Menu.h"

namespace GUI {

MenuItem* MenuItem::FindMenuItem(Utilities::Tree<MenuItem>& items, long command) {
    for (auto it = items.GetChildren(); it.IsValid(); ++it) {
        auto& item = *it.Current();
        if (item.GetCommand() == command) return &item;
        if (MenuItem* const found = FindMenuItem(item, command)) return found;
    }
    return nullptr;
}

bool Menu::IsMenuItemEnabled(long command) {
    MenuItem const* const item = items_.IsNull() ? nullptr : MenuItem::FindMenuItem(*items_, command);
    return item && item->IsEnabled();
}

Utilities::String Menu::GetMenuText(long command) {
    MenuItem const* const item = items_.IsNull() ? nullptr : MenuItem::FindMenuItem(*items_, command);
    return item ? item->GetText() : Utilities::String();
}

} // namespace GUI
