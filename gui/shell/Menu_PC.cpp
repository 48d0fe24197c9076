#include "gui/shell/Menu_PC.h"

#include "core/base/Exceptions.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/Accelerators.h"
#include "gui/shell/CNorvelianSurface.h"
#include "gui/shell/EventGuard_PC.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>

namespace GUI {

using Norvelian::Utilities::Exceptions::RuntimeException;
using Utilities::String;

namespace {

ElementRegistration<Menu_PC, GUIElement> const registration({"Menu", "$Revision: 1.25 $", "GUI"},
                                                            Menu::attributes);

constexpr char const* failure = "Menu: Couldn't create it !!!";

String WithHotKey(String const& text, MenuItem const& item) {
    return item.GetHotKey().Length() == 0 ? text : text + "\t" + GetHotKeyText(item.GetHotKey());
}

/// Hidden at once, and deleted when Qt is done with it.
void ReleaseMenu(QMenu* menu) {
    if (!menu) return;
    QPointer<QMenu> const guarded = menu;
    menu->hide();
    if (guarded) DeleteWhenIdle(*guarded);
}

} // namespace

Menu_PC::~Menu_PC() {
    // For a menu that no smart pointer held; one that was released has let go already.
    Menu_PC::OnDetach();
}

void Menu_PC::OnDetach() {
    ReleaseMenu(popup_);
    popup_ = nullptr;
    ReleaseBuilt();
    if (QPointer<QMenuBar> const bar = std::exchange(bar_, nullptr)) {
        bar->hide();
        if (bar) DeleteWhenIdle(*bar);
    }
    Menu::OnDetach();
}

void Menu_PC::ReleaseBuilt() {
    for (QPointer<QObject> const& object : std::exchange(built_, {})) {
        if (auto* const menu = qobject_cast<QMenu*>(object.data())) {
            ReleaseMenu(menu);
        } else if (object) {
            DeleteWhenIdle(*object);
        }
    }
}

QMenuBar* Menu_PC::GetPlatformMenu() const { return bar_; }

QMenuBar& Menu_PC::MakeBar() {
    if (!bar_) SetMenuTree(GetItems());
    return *bar_;
}

void Menu_PC::SetMenuTree(Utilities::SmartPointer<Items> const& items) {
    BuildMenu(items);
    if (!bar_) {
        if (!qApp) throw RuntimeException(failure);
        bar_ = new QMenuBar;
        bar_->hide();
        // It is beside the client area, in the window.
        bar_->setNativeMenuBar(false);
    }
    BuildBar();
}

void Menu_PC::BuildBar() {
    CallScope const call(*this);
    for (QAction* const action : bar_->actions()) bar_->removeAction(action);
    ReleaseBuilt();
    auto const items = GetItems();
    if (items.IsNull()) return;
    NumberItems(*items);
    BuildLevel(*bar_, *items);
    for (QAction* const action : bar_->actions())
        built_.emplace_back(action->menu() ? static_cast<QObject*>(action->menu()) : action);
    Refresh(*bar_);
}

void Menu_PC::NumberItems(Items& level) {
    for (auto it = level.GetChildren(); it.IsValid(); ++it) {
        Items& item = *it.Current();
        if (item.HasChildren() || item.GetText() == separatorText)
            item.SetCommand(0);
        else if (item.GetCommand() == 0)
            item.SetCommand(nextCommand_--);
        NumberItems(item);
    }
}

void Menu_PC::BuildLevel(QWidget& target, Items& level) {
    for (auto it = level.GetChildren(); it.IsValid(); ++it) {
        Items& item = *it.Current();
        if (item.HasChildren()) {
            auto* const menu = new QMenu(ToPlatformText(item.GetText()), &target);
            // Most menus are never opened: each is filled when it is opened first.
            QObject::connect(menu, &QMenu::aboutToShow, &receiver_, [this, menu, below = it.Current()] {
                RunGuardedEvent(*this, [&] {
                    if (menu->actions().isEmpty()) BuildLevel(*menu, *below);
                    return Refresh(*menu), true;
                });
            });
            target.addAction(menu->menuAction());
        } else if (item.GetText() == separatorText) {
            auto* const line = new QAction(&target);
            line->setSeparator(true);
            target.addAction(line);
        } else {
            AddCommand(target, item);
        }
    }
}

void Menu_PC::AddCommand(QWidget& target, MenuItem const& item) {
    long const command = item.GetCommand();
    auto* const action = new QAction(&target);
    action->setData(QVariant::fromValue<qlonglong>(command));
    action->setText(ToPlatformText(WithHotKey(item.GetText(), item)));
    action->setEnabled(item.IsEnabled());
    target.addAction(action);
    QObject::connect(action, &QAction::triggered, &receiver_, [this, command] {
        QMetaObject::invokeMethod(
            &receiver_,
            [this, command] {
                RunGuardedEvent(*this, [&] { return ExecuteCommand(static_cast<unsigned short>(command)); });
            },
            Qt::QueuedConnection);
    });
}

void Menu_PC::Refresh(QWidget& target) {
    CallScope const call(*this);
    QPointer<QWidget> const guarded = &target;
    CNorvelianSurface::DressMenu(target);
    QList<QPointer<QAction>> actions;
    for (QAction* const action : target.actions()) actions.emplace_back(action);
    for (QPointer<QAction> const& action : actions) {
        long const command = action ? static_cast<long>(action->data().toLongLong()) : 0;
        if (command == 0) continue;
        String const text = GetMenuText(command);
        bool const enabled = call.IsAttached() && IsMenuItemEnabled(command);
        auto const checked = call.IsAttached() ? IsMenuItemChecked(command) : std::nullopt;
        // Each question may have rebuilt the menu or the window.
        if (!call.IsAttached() || !guarded) return;
        if (!action) continue;
        auto const items = GetItems();
        MenuItem const* const item = items.IsNull() ? nullptr : MenuItem::FindMenuItem(*items, command);
        if (item && text.Length() != 0) action->setText(ToPlatformText(WithHotKey(text, *item)));
        action->setEnabled(enabled);
        action->setCheckable(checked.has_value());
        if (checked) action->setChecked(*checked);
    }
}

long Menu_PC::OnUpdate(Utilities::Anything const& command) {
    CallScope const call(*this);
    if (bar_) Refresh(*bar_);
    return Menu::OnUpdate(command);
}

void Menu_PC::OnLanguageChanged() {
    Menu::OnLanguageChanged();
    if (bar_) BuildBar();
}

void Menu_PC::Popup(long x, long y) {
    auto const items = GetItems();
    PlatformIndependentWindowID const* const parent = GetParentWindowID();
    QWidget* const window = parent ? PlatformIndependentWindowID_PC::WindowOf(*parent) : nullptr;
    if (!window || items.IsNull()) throw RuntimeException(failure);
    CallScope const call(*this);
    ReleaseMenu(popup_);
    popup_ = new QMenu(window);
    popup_->setAttribute(Qt::WA_DeleteOnClose);
    NumberItems(*items);
    BuildLevel(*popup_, *items);
    Refresh(*popup_);
    if (call.IsAttached() && popup_) popup_->popup(QPoint(static_cast<int>(x), static_cast<int>(y)));
}

} // namespace GUI
