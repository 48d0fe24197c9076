// Nodes that are dragged, and what is dragged over a tree.
#include "gui/tree/TreeWnd.h"

#include <algorithm>

namespace GUI {

using Utilities::SmartPointer;

void TreeWnd::MarkDrop(std::optional<TreeDropPlace> const& place) {
    if (place == dropMark_) return;
    if (dropMark_) RepaintRow(rows_.Find(dropMark_->node));
    if (place) RepaintRow(rows_.Find(place->node));
    dropMark_ = place;
}

std::optional<TreeDropPlace> TreeWnd::OnDragOver(long x, long y, bool between) {
    static_cast<void>(x);
    rows_.Refresh();
    // Near the edges what is beyond them comes into view.
    if (y < GetTop() + rowHeight_ / 2) ScrollTo(x_, first_ - 1);
    if (y > height_ - rowHeight_ / 2) ScrollTo(x_, first_ + 1);
    std::optional<TreeDropPlace> place;
    if (long const row = GetRowAt(y); row >= 0 && enabled_) {
        place = TreeDropPlace{rows_[row].node, TreeDropPlace::Side::On};
        long const inside = y - GetRowBox(row).top;
        if (between && place->node->GetParent() && inside < rowHeight_ / 4)
            place->side = TreeDropPlace::Side::Before;
        // Behind an open node is before its first child.
        if (between && place->node->GetParent() && inside >= rowHeight_ - rowHeight_ / 4 &&
            !(place->node->IsExpanded() && TreeRows::CanOpen(*place->node)))
            place->side = TreeDropPlace::Side::After;
    }
    MarkDrop(place);
    return place;
}

std::vector<TreeViewNode*> TreeWnd::GetMoving() const {
    std::vector<TreeViewNode*> nodes = GetSelected();
    // What is inside another one goes with it.
    std::erase_if(nodes, [](TreeViewNode const* node) {
        for (TreeViewNode const* above = node->GetParent(); above; above = above->GetParent())
            if (above->IsSelected()) return true;
        return false;
    });
    return nodes;
}

bool TreeWnd::CanMoveTo(TreeDropPlace const& place) const {
    auto const moving = GetMoving();
    return movable_ && enabled_ && place.node && !moving.empty() &&
           std::ranges::none_of(moving, [&place](TreeViewNode const* node) {
               return !node->GetParent() || place.node->IsWithin(*node);
           });
}

bool TreeWnd::MoveSelected(TreeDropPlace const& place) {
    if (!CanMoveTo(place)) return false;
    MarkDrop({});
    bool const on = place.side == TreeDropPlace::Side::On;
    Reference const parent = To(on ? place.node : place.node->GetParent());
    TreeViewNode* next = on ? nullptr : place.node;
    if (place.side == TreeDropPlace::Side::After) next = next->GetNext();
    while (next && next->IsSelected()) next = next->GetNext();
    Reference const before = To(next);
    SmartPointer<TreeViewNode> const keep = root_;
    std::vector<Reference> moving;
    for (TreeViewNode* const node : GetMoving()) moving.push_back(To(node));
    bool moved = false;
    for (Reference const& each : moving) {
        // Whoever is asked may change the tree meanwhile.
        if (keep.Get() != root_.Get() || !parent.Get()) return moved;
        if (!each.Get() || (observer_ && !observer_->OnMoved(*each.node, *parent.node, before.Get())))
            continue;
        if (keep.Get() != root_.Get() || !parent.Get()) return moved;
        if (each.Get() && each.node->MoveTo(*parent.node, before.Get())) moved = true;
    }
    if (on && moved && parent.Get()) SetOpen(*parent.node, true);
    UpdateTree();
    return moved;
}

} // namespace GUI
