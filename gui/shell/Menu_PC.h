#pragma once

#include "gui/elements/application/Menu.h"

#include <QObject>
#include <QPointer>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace GUI {

/// Binds "Menu" to Qt's menu bar and popup menus. What the user chooses runs after the menu has closed, so
/// that it may rebuild the window.
///
/// An item without a command gets one that counts down from `firstFreeCommand`, and keeps it. A hot key
/// comes after the text in the user's language.
class Menu_PC : public Menu {
public:
    static constexpr long firstFreeCommand = 60000;

    ~Menu_PC() override;

    Diagnostics::String GetValueString() override { return "Menu_PC"; }
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;

    /// Shows the items as a popup menu whose corner is at a place on the screen, and returns at once. Throws
    /// `RuntimeException` "Menu: Couldn't create it !!!" without a window.
    virtual void Popup(long x, long y);
    /// Takes the items over and builds the bar from them. The same exception.
    virtual void SetMenuTree(Utilities::SmartPointer<Items> const& items);
    /// Null before there is one, and once the element is released or Qt has deleted it.
    virtual QMenuBar* GetPlatformMenu() const;

    /// The bar, built from the items on first use.
    QMenuBar& MakeBar();

protected:
    void OnDetach() override;

private:
    void BuildBar();
    /// Gives commands to the items of a level and of those below it.
    void NumberItems(Items& level);
    /// Puts one level of the tree into a bar or menu.
    void BuildLevel(QWidget& target, Items& level);
    void AddCommand(QWidget& target, MenuItem const& item);
    /// Asks what the commands of a bar or menu are called, whether they are enabled and checked.
    void Refresh(QWidget& target);
    void ReleaseBuilt();

    /// Receives what Qt's menus tell.
    QObject receiver_;
    QPointer<QMenuBar> bar_;
    QPointer<QMenu> popup_;
    /// The bar's own actions and menus.
    std::vector<QPointer<QObject>> built_;
    long nextCommand_ = firstFreeCommand;
};

} // namespace GUI
