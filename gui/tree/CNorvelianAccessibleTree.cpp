#include "gui/tree/CNorvelianAccessibleTree.h"

#include "gui/platform/TextConversion_PC.h"
#include "gui/tree/CNorvelianTreeCtrl.h"

#include <algorithm>
#include <limits>

namespace GUI {

namespace {

CNorvelianAccessibleTree* Of(CNorvelianTreeCtrl const* tree) {
    return tree ? dynamic_cast<CNorvelianAccessibleTree*>(
                      QAccessible::queryAccessibleInterface(const_cast<CNorvelianTreeCtrl*>(tree)))
                : nullptr;
}

} // namespace

// ------------------------------------------------------------------ a node

CNorvelianAccessibleNode::CNorvelianAccessibleNode(CNorvelianTreeCtrl& tree, long row)
    : tree_(&tree), row_(row) {}

bool CNorvelianAccessibleNode::isValid() const { return tree_ && row_ < tree_->GetRows().GetCount(); }

QWindow* CNorvelianAccessibleNode::window() const {
    return tree_ ? tree_->window()->windowHandle() : nullptr;
}

QAccessibleInterface* CNorvelianAccessibleNode::parent() const { return Of(tree_); }

QRect CNorvelianAccessibleNode::rect() const {
    if (!isValid()) return {};
    GridBox box = tree_->GetRowBox(row_).Meet(tree_->GetWindowBox());
    box.top = std::max(box.top, tree_->GetTop());
    if (box.IsEmpty()) return {};
    return {tree_->viewport()->mapToGlobal(QPoint(static_cast<int>(box.left), static_cast<int>(box.top))),
            QSize(static_cast<int>(box.GetWidth()), static_cast<int>(box.GetHeight()))};
}

QAccessible::State CNorvelianAccessibleNode::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    using Check = TreeViewNode::Check;
    TreeViewNode const& node = *tree_->GetRows()[row_].node;
    state.selectable = state.focusable = true;
    state.multiSelectable = state.extSelectable = tree_->SelectsSeveral();
    state.selected = node.IsSelected();
    state.active = &node == tree_->GetCurrent();
    state.focused = state.active && tree_->IsFocused();
    state.expandable = TreeRows::CanOpen(node);
    state.expanded = state.expandable && node.IsExpanded();
    state.collapsed = state.expandable && !node.IsExpanded();
    state.checkable = node.GetCheck() != Check::None;
    state.checked = node.GetCheck() == Check::On;
    state.checkStateMixed = node.GetCheck() == Check::Partial;
    state.disabled = !tree_->IsEnabled();
    state.offscreen = rect().isEmpty();
    return state;
}

QString CNorvelianAccessibleNode::text(QAccessible::Text kind) const {
    if (!isValid()) return {};
    TreeViewNode const& node = *tree_->GetRows()[row_].node;
    if (kind == QAccessible::Name) return ToPlatformText(node.GetText());
    if (kind != QAccessible::Value) return {};
    QStringList values;
    auto const& columns = tree_->GetColumns();
    for (std::size_t column = 1; column < columns.size(); ++column)
        if (node.GetColumn(column).Length() != 0)
            values << (ToPlatformText(columns[column].heading) + ' ' + ToPlatformText(node.GetColumn(column)))
                          .trimmed();
    return values.join(", ");
}

void* CNorvelianAccessibleNode::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList CNorvelianAccessibleNode::actionNames() const {
    QStringList names{setFocusAction(), pressAction()};
    if (isValid() && TreeRows::CanOpen(*tree_->GetRows()[row_].node)) names << toggleAction();
    return names;
}

void CNorvelianAccessibleNode::doAction(QString const& action) {
    if (!isValid()) return;
    tree_->RunCommand([this, &action](TreeWnd& tree) {
        TreeViewNode& node = *tree.GetRows()[row_].node;
        if (action == toggleAction()) return tree.SetOpen(node, !node.IsExpanded());
        tree.ShowSelected(node);
        if (action != pressAction()) return;
        bool const checks = node.GetCheck() != TreeViewNode::Check::None;
        tree.OnKey(checks ? GridKey::Space : GridKey::Enter, {});
    });
}

// ------------------------------------------------------------------ the tree

CNorvelianAccessibleTree::CNorvelianAccessibleTree(CNorvelianTreeCtrl& tree)
    : QAccessibleWidget(&tree, QAccessible::Tree) {}

void CNorvelianAccessibleTree::Install() {
    InstallAccessible<CNorvelianTreeCtrl, CNorvelianAccessibleTree>();
}

CNorvelianTreeCtrl& CNorvelianAccessibleTree::GetTree() const {
    return *static_cast<CNorvelianTreeCtrl*>(object());
}

void CNorvelianAccessibleTree::TellFocus(CNorvelianTreeCtrl& tree, long row) {
    if (!QAccessible::isActive() || row < 0) return;
    auto* const accessible = Of(&tree);
    auto* const node = accessible ? accessible->child(static_cast<int>(row)) : nullptr;
    if (!node) return;
    QAccessibleEvent selected(node, QAccessible::Selection);
    QAccessible::updateAccessibility(&selected);
    if (!tree.IsFocused()) return;
    QAccessibleEvent focused(node, QAccessible::Focus);
    QAccessible::updateAccessibility(&focused);
}

void CNorvelianAccessibleTree::TellChange(CNorvelianTreeCtrl& tree, long row) {
    if (!QAccessible::isActive() || row < 0) return;
    auto* const accessible = Of(&tree);
    auto* const node = accessible ? accessible->child(static_cast<int>(row)) : nullptr;
    if (!node) return;
    QAccessible::State changes;
    changes.expanded = changes.checked = true;
    QAccessibleStateChangeEvent state(node, changes);
    QAccessible::updateAccessibility(&state);
    QAccessibleEvent name(node, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&name);
}

void CNorvelianAccessibleTree::TellRows(CNorvelianTreeCtrl& tree) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent reordered(&tree, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&reordered);
}

int CNorvelianAccessibleTree::childCount() const {
    return static_cast<int>(std::min<long>(GetTree().GetRows().GetCount(), std::numeric_limits<int>::max()));
}

QAccessibleInterface* CNorvelianAccessibleTree::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    return nodes_.Get(index, [&] { return new CNorvelianAccessibleNode(GetTree(), index); });
}

QAccessibleInterface* CNorvelianAccessibleTree::childAt(int x, int y) const {
    QPoint const point = GetTree().viewport()->mapFromGlobal(QPoint(x, y));
    return child(static_cast<int>(GetTree().GetRowAt(point.y())));
}

int CNorvelianAccessibleTree::indexOfChild(QAccessibleInterface const* child) const {
    auto const* const node = dynamic_cast<CNorvelianAccessibleNode const*>(child);
    return node ? static_cast<int>(node->GetRow()) : -1;
}

QAccessibleInterface* CNorvelianAccessibleTree::focusChild() const {
    return child(static_cast<int>(GetTree().GetRows().Find(GetTree().GetCurrent())));
}

} // namespace GUI
