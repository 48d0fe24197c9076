#pragma once

#include "gui/elements/Accessible.h"
#include "gui/shell/CNorvelianSurface.h"

#include <QAccessibleInterface>
#include <QAccessibleWidget>
#include <memory>
#include <vector>

namespace GUI {

class CNorvelianAdvancedControl;

/// The light windows and native controls in one window, as assistive technology walks through them. Made when
/// it is asked for, and again after windows came or went.
class AccessibleChildren {
public:
    /// Panes below `top`, and with `natives` all native controls of the tree.
    AccessibleChildren(LightWindow& top, bool natives) : top_(top), natives_(natives) {}

    int GetCount();
    QAccessibleInterface* Get(int index);
    int Find(QAccessibleInterface const* child);

private:
    void Collect();

    LightWindow& top_;
    bool natives_;
    std::uint32_t revision_ = 0;
    std::vector<LightWindow*> windows_;
};

/// A pane. There is one at a time for a pane, made when assistive technology asks for it; it goes with the
/// pane.
class CNorvelianAccessiblePane : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    explicit CNorvelianAccessiblePane(CNorvelianAdvancedControl& control);

    /// The interface of a pane's window.
    static QAccessibleInterface* Of(CNorvelianAdvancedControl& control);

    bool isValid() const override;
    LightWindow const* GetWindow() const;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, QString const& /*text*/) override {}
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(QString const& action) override;
    QStringList keyBindingsForAction(QString const& /*action*/) const override { return {}; }

private:
    using Control = std::shared_ptr<CNorvelianAdvancedControl>;

    Accessible Ask() const;

    std::weak_ptr<CNorvelianAdvancedControl> control_;
    mutable AccessibleChildren children_;
};

/// A surface with its panes.
class CNorvelianAccessibleSurface : public QAccessibleWidget {
public:
    explicit CNorvelianAccessibleSurface(CNorvelianSurface& surface);

    /// Makes surfaces known to Qt for as long as the module is loaded.
    static void Install();

    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QAccessibleInterface* focusChild() const override;
    QAccessible::State state() const override;

private:
    CNorvelianSurface& GetSurface() const;

    mutable AccessibleChildren children_;
};

} // namespace GUI
