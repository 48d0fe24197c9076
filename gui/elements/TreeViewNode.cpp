#include "gui/elements/TreeViewNode.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

/// The nodes below one root, in pieces that never move, so that a node costs no allocation of its own.
class TreeViewNode::Store {
public:
    TreeViewNode& Take() {
        if (free_) {
            TreeViewNode& node = *free_;
            free_ = node.next_;
            node.next_ = nullptr;
            return node;
        }
        if (used_ == size_) {
            constexpr std::size_t smallest = 16;
            constexpr std::size_t largest = 512;
            size_ = std::clamp(2 * size_, smallest, largest);
            pieces_.push_back(std::make_unique<TreeViewNode[]>(size_));
            used_ = 0;
        }
        return pieces_.back()[used_++];
    }
    void GiveBack(TreeViewNode& node) {
        node.~TreeViewNode();
        std::construct_at(&node);
        node.next_ = std::exchange(free_, &node);
    }

    std::uint64_t revision = 1;
    std::uint32_t lastId = 0;

private:
    std::vector<std::unique_ptr<TreeViewNode[]>> pieces_;
    std::size_t size_ = 0;
    std::size_t used_ = 0;
    /// Linked by `next_`.
    TreeViewNode* free_ = nullptr;
};

struct TreeViewNode::More {
    std::vector<String> columns;
    std::optional<RGBVector> color;
    String image;
    String toolTip;
    Anything data;
    /// Of a root.
    std::unique_ptr<Store> store;
};

namespace {

String const& Nothing() {
    static String const nothing;
    return nothing;
}

} // namespace

TreeViewNode::TreeViewNode() = default;

TreeViewNode::TreeViewNode(String const& key) : key_(key) {}

TreeViewNode::TreeViewNode(String const& key, String const& text) : key_(key), text_(text), hasText_(true) {}

TreeViewNode::~TreeViewNode() = default;

TreeViewNode::More& TreeViewNode::GetMore() {
    if (!more_) more_ = std::make_unique<More>();
    return *more_;
}

void TreeViewNode::OnChanged() const {
    if (store_) ++store_->revision;
}

std::uint64_t TreeViewNode::GetRevision() const { return store_ ? store_->revision : 0; }

// ------------------------------------------------------------------ what it shows

void TreeViewNode::SetText(String const& text) {
    text_ = text;
    hasText_ = true;
}

void TreeViewNode::SetVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    OnChanged();
}

void TreeViewNode::SetExpanded(bool expanded) {
    if (expanded == expanded_) return;
    expanded_ = expanded;
    OnChanged();
}

void TreeViewNode::SetUnreadChildren(bool unread) {
    if (unread == unread_) return;
    unread_ = unread;
    OnChanged();
}

String const& TreeViewNode::GetColumn(std::size_t column) const {
    if (column == 0) return GetText();
    return more_ && column <= more_->columns.size() ? more_->columns[column - 1] : Nothing();
}

void TreeViewNode::SetColumn(std::size_t column, String const& text) {
    if (column == 0) return SetText(text);
    auto& columns = GetMore().columns;
    if (columns.size() < column) columns.resize(column);
    columns[column - 1] = text;
}

std::optional<RGBVector> TreeViewNode::GetColor() const { return more_ ? more_->color : std::nullopt; }

void TreeViewNode::SetColor(std::optional<RGBVector> const& color) {
    if (color || more_) GetMore().color = color;
}

String const& TreeViewNode::GetImage() const { return more_ ? more_->image : Nothing(); }

void TreeViewNode::SetImage(String const& name) { GetMore().image = name; }

String const& TreeViewNode::GetToolTip() const { return more_ ? more_->toolTip : Nothing(); }

void TreeViewNode::SetToolTip(String const& text) { GetMore().toolTip = text; }

Anything TreeViewNode::GetData() const { return more_ ? more_->data : Anything(); }

void TreeViewNode::SetData(Anything const& data) { GetMore().data = data; }

// ------------------------------------------------------------------ the tree

TreeViewNode& TreeViewNode::Make(String const& key) {
    if (!store_) {
        // Only a root has none yet.
        auto& store = GetMore().store;
        store = std::make_unique<Store>();
        store_ = store.get();
    }
    TreeViewNode& child = store_->Take();
    child.store_ = store_;
    child.id_ = ++store_->lastId;
    child.key_ = key;
    return child;
}

void TreeViewNode::Link(TreeViewNode& child, TreeViewNode* before) {
    child.parent_ = this;
    child.next_ = before;
    child.previous_ = before ? before->previous_ : lastChild_;
    (child.previous_ ? child.previous_->next_ : firstChild_) = &child;
    (before ? before->previous_ : lastChild_) = &child;
    OnChanged();
}

void TreeViewNode::Unlink(TreeViewNode& child) {
    (child.previous_ ? child.previous_->next_ : firstChild_) = child.next_;
    (child.next_ ? child.next_->previous_ : lastChild_) = child.previous_;
    child.parent_ = child.next_ = child.previous_ = nullptr;
    OnChanged();
}

TreeViewNode& TreeViewNode::Append(String const& key) {
    TreeViewNode& child = Make(key);
    Link(child, nullptr);
    return child;
}

TreeViewNode& TreeViewNode::Append(String const& key, String const& text) {
    return Insert(nullptr, key, text);
}

TreeViewNode& TreeViewNode::Insert(TreeViewNode const* before, String const& key, String const& text) {
    TreeViewNode& child = Make(key);
    child.SetText(text);
    Link(child, before && before->parent_ == this ? const_cast<TreeViewNode*>(before) : nullptr);
    return child;
}

void TreeViewNode::Release(TreeViewNode& child) {
    // Deep trees are as deep as a host makes them: the nodes below are taken off one by one.
    TreeViewNode* node = &child;
    while (node) {
        if (node->firstChild_) {
            node = node->firstChild_;
            continue;
        }
        TreeViewNode* const parent = node == &child ? nullptr : node->parent_;
        if (parent) parent->Unlink(*node);
        store_->GiveBack(*node);
        node = parent;
    }
}

void TreeViewNode::Remove(TreeViewNode& child) {
    if (child.parent_ != this) return;
    Unlink(child);
    Release(child);
}

void TreeViewNode::RemoveChildren() {
    while (firstChild_) Remove(*firstChild_);
}

bool TreeViewNode::IsWithin(TreeViewNode const& ancestor) const {
    for (TreeViewNode const* node = this; node; node = node->parent_)
        if (node == &ancestor) return true;
    return false;
}

bool TreeViewNode::MoveTo(TreeViewNode& parent, TreeViewNode const* before) {
    if (!parent_ || parent.store_ != store_ || parent.IsWithin(*this)) return false;
    if (before == this) return true;
    if (before && before->parent_ != &parent) return false;
    parent_->Unlink(*this);
    parent.Link(*this, const_cast<TreeViewNode*>(before));
    return true;
}

std::size_t TreeViewNode::GetChildCount() const {
    return static_cast<std::size_t>(std::distance(begin(), end()));
}

// ------------------------------------------------------------------ names

TreeViewNode* TreeViewNode::FindChild(String const& key) const {
    auto const found = std::find_if(begin(), end(), [&](TreeViewNode& child) { return child.key_ == key; });
    return found == end() ? nullptr : &*found;
}

TreeViewNode* TreeViewNode::FindPath(String const& path) {
    std::string_view rest = path.GetStdString();
    TreeViewNode* node = this;
    while (node && !rest.empty()) {
        // A key may itself have a "/".
        auto const leads = [&rest](TreeViewNode& child) {
            std::string const& key = child.key_.GetStdString();
            return rest.starts_with(key) && (rest.size() == key.size() || rest[key.size()] == '/');
        };
        auto const found = std::find_if(node->begin(), end(), leads);
        if (found == end()) return nullptr;
        node = &*found;
        rest.remove_prefix(std::min(rest.size(), node->key_.GetStdString().size() + 1));
    }
    return node;
}

String TreeViewNode::GetPath() const {
    std::vector<TreeViewNode const*> nodes;
    for (TreeViewNode const* node = this; node->parent_; node = node->parent_) nodes.push_back(node);
    std::string path;
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
        if (node != nodes.rbegin()) path += '/';
        path += (*node)->key_.GetStdString();
    }
    return String(std::move(path));
}

} // namespace GUI
