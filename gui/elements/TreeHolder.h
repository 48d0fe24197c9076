#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "gui/elements/TreeViewNode.h"

namespace GUI {

/// An element that shows a tree of nodes: what the element registered by a tree view's name can be cast to.
class TreeHolder {
public:
    virtual ~TreeHolder() = default;
    /// Shows this tree; null shows none. What was open, selected and scrolled to stays where paths agree.
    virtual void SetRoot(Utilities::SmartPointer<TreeViewNode> const& root) = 0;
    /// Null if there is none.
    virtual Utilities::SmartPointer<TreeViewNode> GetRoot() const = 0;
    /// The node that keys act on; null if there is none.
    virtual TreeViewNode* GetCurrentNode() = 0;
    /// Selects a node alone, opens what it is in, and scrolls to it. Tells nobody.
    virtual void SelectNode(TreeViewNode& node) = 0;
    /// Shows what was changed in the tree.
    virtual void UpdateTree() = 0;
};

} // namespace GUI
