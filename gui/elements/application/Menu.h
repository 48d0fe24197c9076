#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/elements/OwnedCallback.h"
#include "gui/elements/application/MenuItem.h"

#include <optional>
#include <unordered_map>

namespace GUI {

/// A menu made from a tree of items; the component "Menu" binds it to the platform. The first one that is a
/// child of a window is the window's menu bar, and takes no room of the client area.
///
/// A description has the items as children, in any depth:
///
///     <Menu ElementName="MainMenu">
///       <MenuItem Caption="&amp;File">
///         <MenuItem ElementName="Open" Caption="&amp;Open" HotKey="CTRL+O"/>
///         <Separator/>
///         ...
///
/// Attributes of "MenuItem": "Caption" (mandatory, a key of the language service), "HotKey" (none), "Command"
/// (a free number), "ElementName" (none). The data source is asked under an item's element name each time the
/// menu that holds it opens, and before its hot key acts: "ItemEnabled" (bool; else enabled), "State" (bool;
/// whether it is checked, no check mark without an answer), "Caption" (string, shown as it is, in place of
/// the translated attribute). A question that fails disables the item. The callback "OnClick" of that name
/// runs with the name. An item with "Handler" (none) asks that component instead, which the application has
/// registered and which is a `DialogDataSource`; while there is none of that name, the item is disabled.
///
/// Further menus of a window are context menus, and all with "Popup" (No) are. A pane names one by its
/// attribute "ContextMenu"; a pane that names none takes that of the pane it is in. The right mouse button
/// opens it where the mouse is, the menu key and Shift+F10 below the pane that has the keyboard focus. Before
/// that, the menu's data source is told "ContextElement" under the menu's name: the element name of the pane
/// that named the menu. Hot keys of a context menu are only shown.
class Menu : public GUIElement {
public:
    using Items = Utilities::Tree<MenuItem>;

    static constexpr Attribute popup{"Popup", AttributeType::Flag, "No", "A context menu, never a menu bar"};
    static constexpr Attribute ownAttributes[] = {popup};
    static constexpr auto attributes = CommonAttributes::WithUnusedSizes(
        ownAttributes, "No effect: a menu takes no room of the client area");
    static constexpr char const* contextElement = "ContextElement";
    /// An item of this text without children is a line.
    static constexpr char const* separatorText = "-";

    Diagnostics::String GetValueString() override { return "Menu"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    /// Takes the items over and numbers nothing yet.
    virtual void BuildMenu(Utilities::SmartPointer<Items> const& items) {
        items_ = items;
        found_.clear();
    }
    /// False for an unknown command.
    virtual bool IsMenuItemEnabled(long command);
    /// Empty for an unknown command.
    virtual Utilities::String GetMenuText(long command);
    /// Nothing for an item that has no check mark.
    virtual std::optional<bool> IsMenuItemChecked(long command);
    /// False for an unknown command.
    virtual bool ExecuteCommand(unsigned short command);
    Utilities::SmartPointer<Items> GetItems() const { return items_; }
    bool IsPopup() const { return popup_; }

    /// Translates the described items again.
    void OnLanguageChanged() override;

protected:
    void OnDetach() override;

private:
    MenuItem* FindItem(long command) const;
    bool IsItem(Items const& item) const;
    DialogDataSource* FindSource(MenuItem const& item) const;
    Utilities::Anything AskForItem(MenuItem const& item, char const* key);
    void AddItems(DescriptionTree const& description, Items& level);
    long OnItem(Utilities::Anything const& name);

    Utilities::SmartPointer<Items> items_;
    /// Where commands were found last.
    mutable std::unordered_map<long, Utilities::SmartPointer<Items>> found_;
    bool popup_ = false;
    OwnedCallback<Menu> onItem_{this, &Menu::OnItem};
};

} // namespace GUI
