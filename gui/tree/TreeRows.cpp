#include "gui/tree/TreeRows.h"

#include <algorithm>

namespace GUI {

void TreeRows::SetRoot(TreeViewNode* root) {
    root_ = root;
    Rebuild();
}

void TreeRows::Keep() { revision_ = root_ ? root_->GetRevision() : 0; }

bool TreeRows::Refresh() {
    if (revision_ == (root_ ? root_->GetRevision() : 0)) return false;
    Rebuild();
    return true;
}

void TreeRows::Rebuild() {
    rows_.clear();
    deepest_ = 0;
    if (root_ && root_->IsVisible()) {
        rows_.push_back({root_, 0});
        if (root_->IsExpanded()) Collect<false>(*root_, 1, rows_);
    } else if (root_) {
        Collect<false>(*root_, 0, rows_);
    }
    Keep();
}

/// The rows below a node, depth first and without recursion: trees are as deep as a host makes them.
template <bool opens> void TreeRows::Collect(TreeViewNode& top, std::uint32_t level, std::vector<Row>& rows) {
    TreeViewNode* node = top.GetFirstChild();
    while (node) {
        if (node->IsVisible()) {
            rows.push_back({node, level});
            if (TreeViewNode* const child = node->GetFirstChild()) {
                if constexpr (opens) node->SetExpanded(true);
                if (node->IsExpanded()) {
                    node = child;
                    ++level;
                    continue;
                }
            }
            deepest_ = std::max(deepest_, level);
        }
        while (node != &top && !node->GetNext()) {
            node = node->GetParent();
            --level;
        }
        node = node == &top ? nullptr : node->GetNext();
    }
}

long TreeRows::Find(TreeViewNode const* node) const {
    auto const found = std::ranges::find(rows_, node, &Row::node);
    return found == rows_.end() ? -1 : static_cast<long>(found - rows_.begin());
}

long TreeRows::GetParent(long row) const {
    auto const level = (*this)[row].level;
    while (row >= 0 && (*this)[row].level >= level) --row;
    return row;
}

bool TreeRows::CanOpen(TreeViewNode const& node) {
    return node.HasUnreadChildren() || std::any_of(node.begin(), TreeViewNode::end(),
                                                   [](TreeViewNode& child) { return child.IsVisible(); });
}

void TreeRows::Insert(long row, std::vector<Row> const& below) {
    rows_.insert(rows_.begin() + row + 1, below.begin(), below.end());
}

void TreeRows::Open(long row) {
    TreeViewNode& node = *(*this)[row].node;
    if (node.IsExpanded()) return;
    node.SetExpanded(true);
    std::vector<Row> below;
    Collect<false>(node, (*this)[row].level + 1, below);
    Insert(row, below);
    Keep();
}

void TreeRows::Close(long row) {
    Row const top = (*this)[row];
    if (!top.node->IsExpanded()) return;
    top.node->SetExpanded(false);
    auto const begin = rows_.begin() + row + 1;
    rows_.erase(begin,
                std::find_if(begin, rows_.end(), [&](Row const& each) { return each.level <= top.level; }));
    Keep();
}

void TreeRows::OpenAll(long row) {
    if (row >= 0) {
        Close(row);
        Row const top = (*this)[row];
        if (!top.node->HasChildren()) return;
        top.node->SetExpanded(true);
        std::vector<Row> below;
        Collect<true>(*top.node, top.level + 1, below);
        Insert(row, below);
    } else if (root_) {
        rows_.clear();
        if (root_->IsVisible()) {
            root_->SetExpanded(true);
            rows_.push_back({root_, 0});
        }
        Collect<true>(*root_, root_->IsVisible() ? 1 : 0, rows_);
    }
    Keep();
}

void TreeRows::CloseAll() {
    TreeViewNode* node = root_;
    while (node) {
        node->SetExpanded(false);
        if (node->HasChildren()) {
            node = node->GetFirstChild();
            continue;
        }
        while (node && !node->GetNext()) node = node->GetParent();
        if (node) node = node->GetNext();
    }
    Rebuild();
}

bool TreeRows::Reveal(TreeViewNode const& node) {
    bool opened = false;
    for (TreeViewNode* each = node.GetParent(); each; each = each->GetParent()) {
        if (each->GetParent() && !each->IsVisible()) return false;
        // An invisible root is always open.
        if (each->IsExpanded() || (!each->GetParent() && !each->IsVisible())) continue;
        each->SetExpanded(true);
        opened = true;
    }
    if (opened) Rebuild();
    return node.IsVisible();
}

} // namespace GUI
