#pragma once

#include "gui/grid/CNorvelianAccessibleParts.h"

#include <QAccessibleWidget>
#include <QPointer>

namespace GUI {

class CNorvelianTreeCtrl;

/// A node that is shown, as assistive technology sees it. It is made when it is asked for.
class CNorvelianAccessibleNode : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    CNorvelianAccessibleNode(CNorvelianTreeCtrl& tree, long row);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(QAccessibleInterface const* /*child*/) const override { return -1; }
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    QAccessible::State state() const override;
    /// The name is the text, the value the other columns with their headings.
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, QString const& /*text*/) override {}
    void* interface_cast(QAccessible::InterfaceType type) override;

    /// Focus, Toggle (opens or closes), Press (its check box, or as a double click).
    QStringList actionNames() const override;
    void doAction(QString const& action) override;
    QStringList keyBindingsForAction(QString const& /*action*/) const override { return {}; }

    long GetRow() const { return row_; }

private:
    QPointer<CNorvelianTreeCtrl> tree_;
    long row_;
};

/// A tree for assistive technology: the nodes that are shown, from the top.
class CNorvelianAccessibleTree : public QAccessibleWidget {
public:
    explicit CNorvelianAccessibleTree(CNorvelianTreeCtrl& tree);

    /// Makes trees known to Qt for as long as the module is loaded.
    static void Install();
    static void TellFocus(CNorvelianTreeCtrl& tree, long row);
    /// It was renamed, checked, opened or closed.
    static void TellChange(CNorvelianTreeCtrl& tree, long row);
    /// Rows came or went.
    static void TellRows(CNorvelianTreeCtrl& tree);

    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QAccessibleInterface* focusChild() const override;

private:
    CNorvelianTreeCtrl& GetTree() const;

    mutable CNorvelianAccessibleParts<long> nodes_;
};

} // namespace GUI
