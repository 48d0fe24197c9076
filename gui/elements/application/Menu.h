#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/elements/OwnedCallback.h"
#include "gui/elements/application/MenuItem.h"

#include <optional>

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
/// runs with the name.
class Menu : public GUIElement {
public:
    using Items = Utilities::Tree<MenuItem>;

    static constexpr auto attributes =
        CommonAttributes::UnusedSizes("No effect: a menu takes no room of the client area");
    /// An item of this text without children is a line.
    static constexpr char const* separatorText = "-";

    Diagnostics::String GetValueString() override { return "Menu"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    /// Takes the items over and numbers nothing yet.
    virtual void BuildMenu(Utilities::SmartPointer<Items> const& items) { items_ = items; }
    /// False for an unknown command.
    virtual bool IsMenuItemEnabled(long command);
    /// Empty for an unknown command.
    virtual Utilities::String GetMenuText(long command);
    /// Nothing for an item that has no check mark.
    virtual std::optional<bool> IsMenuItemChecked(long command);
    /// False for an unknown command.
    virtual bool ExecuteCommand(unsigned short command);
    Utilities::SmartPointer<Items> GetItems() const { return items_; }

    /// Translates the described items again.
    void OnLanguageChanged() override;

protected:
    void OnDetach() override;

private:
    MenuItem* FindItem(long command) const;
    Utilities::Anything AskForItem(MenuItem const& item, char const* key);
    void AddItems(DescriptionTree const& description, Items& level);
    long OnItem(Utilities::Anything const& name);

    Utilities::SmartPointer<Items> items_;
    OwnedCallback<Menu> onItem_{this, &Menu::OnItem};
};

} // namespace GUI
