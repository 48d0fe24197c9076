#include "gui/elements/application/Menu.h"

#include "Diagnostics/Sink.h"
#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute captionKey{"Caption", AttributeType::Text, "", "Text of the item", true};
constexpr Attribute hotKeyKey{
    "HotKey", AttributeType::Text, "",
    "\"CTRL+\", \"SHIFT+\", \"ALT+\", then a character, \"Del\" or \"F1\" to \"F24\""};
constexpr Attribute commandKey{
    "Command", AttributeType::Number, "0", "Number of the command; 0 for a free one", false, {0, 65535}};
constexpr Attribute itemName{"ElementName", AttributeType::ElementName, "",
                             "Name under which the data source answers for the item"};
constexpr Attribute handlerKey{"Handler", AttributeType::Text, "",
                               "Registered component that answers for the item, in place of the data source"};
constexpr Attribute itemAttributes[] = {itemName, captionKey, hotKeyKey, commandKey, handlerKey};

constexpr char const* separator = "Separator";

AttributeTable const itemTable("MenuItem", nullptr, itemAttributes, AttributeTable::Kind::Part);
AttributeTable const separatorTable(separator, nullptr, {}, AttributeTable::Kind::Part);

/// Null if there is none.
Utilities::SmartPointer<Menu::Items> FindNode(Menu::Items& items, long command) {
    for (auto it = items.GetChildren(); it.IsValid(); ++it) {
        if (it.Current()->GetCommand() == command) return it.Current();
        if (auto found = FindNode(*it.Current(), command); !found.IsNull()) return found;
    }
    return {};
}

void Translate(Menu::Items& level) {
    for (auto it = level.GetChildren(); it.IsValid(); ++it) {
        Menu::Items& item = *it.Current();
        if (item.GetCaptionKey().Length() != 0)
            item.SetText(Utilities::LanguageServiceInterface::GetTranslation(item.GetCaptionKey()));
        Translate(item);
    }
}

} // namespace

MenuItem* MenuItem::FindMenuItem(Utilities::Tree<MenuItem>& items, long command) {
    for (auto it = items.GetChildren(); it.IsValid(); ++it) {
        auto& item = *it.Current();
        if (item.GetCommand() == command) return &item;
        if (MenuItem* const found = FindMenuItem(item, command)) return found;
    }
    return nullptr;
}

void Menu::OnDetach() {
    // The tree may be held longer than this.
    onItem_.Release();
    GUIElement::OnDetach();
}

void Menu::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                      DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    SetSizeInformation(0, 0, 0, 0);
    popup_ = AttributeReader(description).Flag(popup);
    if (description.HasChildren()) {
        auto const items = Utilities::MakeSmart<Items>();
        AddItems(description, *items);
        Translate(*items);
        BuildMenu(items);
    }
    RegisterOnUpdate();
}

void Menu::AddItems(DescriptionTree const& description, Items& level) {
    for (auto node = description.GetChildren(); node.IsValid(); ++node) {
        DescriptionTree const& child = *node.Current();
        AttributeReader const reader(child);
        auto const item = Utilities::MakeSmart<Items>();
        if (reader.Text(CommonAttributes::elementType) == separator) {
            item->SetText(separatorText);
        } else {
            static_cast<MenuItem&>(*item) = MenuItem(reader.Text(captionKey), reader.Text(hotKeyKey),
                                                     reader.Long(commandKey), onItem_.Get());
            item->SetSource(reader.Text(itemName), reader.Text(captionKey), reader.Text(handlerKey));
        }
        level.AddChild(item);
        AddItems(child, *item);
    }
}

void Menu::OnLanguageChanged() {
    GUIElement::OnLanguageChanged();
    if (!items_.IsNull()) Translate(*items_);
}

bool Menu::IsItem(Items const& item) const {
    Items const* node = &item;
    while (Items const* const outer = node->GetParent()) node = outer;
    return node == items_.Get();
}

MenuItem* Menu::FindItem(long wanted) const {
    if (items_.IsNull()) return nullptr;
    // The items may have got other commands, or other places, since they were found.
    auto const known = found_.find(wanted);
    if (known != found_.end() && known->second->GetCommand() == wanted && IsItem(*known->second))
        return known->second.Get();
    Utilities::SmartPointer<Items> const item = FindNode(*items_, wanted);
    if (item.IsNull()) return nullptr;
    found_[wanted] = item;
    return item.Get();
}

DialogDataSource* Menu::FindSource(MenuItem const& item) const {
    if (item.GetHandler().Length() == 0) return GetDataSource();
    return dynamic_cast<DialogDataSource*>(Application::Instance().GetRegisteredComponent(item.GetHandler()));
}

Anything Menu::AskForItem(MenuItem const& item, char const* key) {
    DialogDataSource* const source = FindSource(item);
    if (item.GetName().Length() == 0 || !source) return {};
    CallScope const call(*this);
    return source->GetValue(item.GetName(), key);
}

bool Menu::IsMenuItemEnabled(long wanted) {
    CallScope const call(*this);
    auto const kept = items_;
    MenuItem const* const item = FindItem(wanted);
    if (!item || (item->GetHandler().Length() != 0 && !FindSource(*item))) return false;
    try {
        Anything const enabled = AskForItem(*item, Values::itemEnabled);
        return call.IsAttached() && (enabled.IsValid() ? enabled.GetBool() : item->IsEnabled());
    } catch (...) {
        Diagnostics::DropException("Menu: whether an item is enabled");
        return false;
    }
}

String Menu::GetMenuText(long wanted) {
    CallScope const call(*this);
    auto const kept = items_;
    MenuItem const* const item = FindItem(wanted);
    if (!item) return {};
    try {
        Anything const text = AskForItem(*item, Values::caption);
        if (text.IsOfTypeString()) return text.GetString();
    } catch (...) {
        Diagnostics::DropException("Menu: the text of an item");
    }
    return item->GetText();
}

std::optional<bool> Menu::IsMenuItemChecked(long wanted) {
    CallScope const call(*this);
    auto const kept = items_;
    MenuItem const* const item = FindItem(wanted);
    if (!item) return {};
    try {
        Anything const state = AskForItem(*item, "State");
        if (state.IsValid()) return state.GetBool();
    } catch (...) {
        Diagnostics::DropException("Menu: whether an item is checked");
    }
    return {};
}

bool Menu::ExecuteCommand(unsigned short wanted) {
    CallScope const call(*this);
    // What it does may replace the items.
    auto const kept = items_;
    MenuItem* const item = FindItem(wanted);
    if (!item) return false;
    Anything argument;
    if (item->GetName().Length() != 0) argument = item->GetName();
    if (item->GetHandler().Length() == 0)
        item->Execute(argument);
    else if (DialogDataSource* const source = FindSource(*item))
        source->GetCallback(item->GetName(), Events::click).Execute(argument);
    return true;
}

long Menu::OnItem(Anything const& name) {
    if (!name.IsOfTypeString() || !GetDataSource()) return 0;
    return GetDataSource()->GetCallback(name.GetString(), Events::click).Execute(name);
}

} // namespace GUI
