#pragma once

#include "Diagnostics/String.h"
#include "core/base/String.h"
#include "core/values/Anything.h"
#include "gui/elements/colour/RGBVector.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>

namespace GUI {

/// A node of what a tree view shows: a key, a text, further columns, and children in order.
///
/// A root is made like any object and held by a smart pointer; all other nodes are made by the node that they
/// are appended to and belong to their root. References to them stay valid until they are removed or the root
/// goes. A key names a node among its siblings; the first one counts where two are alike. A path is the keys
/// from below the root on with "/" between.
///
/// A root that is visible is the first row; otherwise its children are the rows of the first level. Any other
/// node that isn't visible is left out with all that is below it.
///
/// What is changed while a tree view shows it is seen at the view's next update. All operations belong to the
/// thread of the user interface.
class TreeViewNode {
public:
    enum class Check : std::uint8_t { None, Off, On, Partial };

    TreeViewNode();
    explicit TreeViewNode(Utilities::String const& key);
    TreeViewNode(Utilities::String const& key, Utilities::String const& text);
    TreeViewNode(TreeViewNode const&) = delete;
    TreeViewNode& operator=(TreeViewNode const&) = delete;
    ~TreeViewNode();

    void Invariant() const {}
    static Diagnostics::String GetValueString() { return "TreeViewNode"; }

    /// @name What it shows
    /// @{
    Utilities::String const& GetKey() const { return key_; }
    /// The key if no text was given.
    Utilities::String const& GetText() const { return hasText_ ? text_ : key_; }
    void SetText(Utilities::String const& text);
    bool IsVisible() const { return visible_; }
    void SetVisible(bool visible);
    /// Whether its children are shown, if there are any.
    bool IsExpanded() const { return expanded_; }
    void SetExpanded(bool expanded);
    /// None: it has no check box.
    Check GetCheck() const { return check_; }
    void SetCheck(Check check) { check_ = check; }
    /// A tree view has one node at a time that is selected, or several if its description says so.
    bool IsSelected() const { return selected_; }
    void SetSelected(bool selected) { selected_ = selected; }
    /// Its children are asked for when it is opened for the first time; until then it looks as if it had
    /// some.
    bool HasUnreadChildren() const { return unread_; }
    void SetUnreadChildren(bool unread);
    /// Whether its text can be changed in place where the tree view allows that.
    bool IsEditable() const { return editable_; }
    void SetEditable(bool editable) { editable_ = editable; }
    /// Columns count from 0, which is the text; empty where nothing was set.
    Utilities::String const& GetColumn(std::size_t column) const;
    void SetColumn(std::size_t column, Utilities::String const& text);
    /// A patch before the text.
    std::optional<RGBVector> GetColor() const;
    void SetColor(std::optional<RGBVector> const& color);
    /// A picture of the image service before the text.
    Utilities::String const& GetImage() const;
    void SetImage(Utilities::String const& name);
    Utilities::String const& GetToolTip() const;
    void SetToolTip(Utilities::String const& text);
    /// Anything that whoever made the node wants to find again.
    Utilities::Anything GetData() const;
    void SetData(Utilities::Anything const& data);
    /// @}

    /// @name The tree
    /// @{
    TreeViewNode& Append(Utilities::String const& key);
    TreeViewNode& Append(Utilities::String const& key, Utilities::String const& text);
    /// Before one of the children; null appends.
    TreeViewNode& Insert(TreeViewNode const* before, Utilities::String const& key,
                         Utilities::String const& text);
    /// Takes a child out, with all that is below it.
    void Remove(TreeViewNode& child);
    void RemoveChildren();
    /// To a place within the same tree; refused, and false, in a tree of another root or below itself.
    bool MoveTo(TreeViewNode& parent, TreeViewNode const* before);

    bool HasChildren() const { return firstChild_ != nullptr; }
    /// Counts them.
    std::size_t GetChildCount() const;
    /// @}

    /// @name Its neighbours, null where there is none
    /// @{
    TreeViewNode* GetParent() const { return parent_; }
    TreeViewNode* GetFirstChild() const { return firstChild_; }
    TreeViewNode* GetLastChild() const { return lastChild_; }
    TreeViewNode* GetNext() const { return next_; }
    TreeViewNode* GetPrevious() const { return previous_; }
    /// The child with that key.
    TreeViewNode* FindChild(Utilities::String const& key) const;
    /// The node with that path below this one; this one for an empty path.
    TreeViewNode* FindPath(Utilities::String const& path);
    /// Empty for a root.
    Utilities::String GetPath() const;
    bool IsWithin(TreeViewNode const& ancestor) const;
    /// @}

    /// Children in order: `for (TreeViewNode& child : node)`.
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = TreeViewNode;
        using difference_type = std::ptrdiff_t;
        using pointer = TreeViewNode*;
        using reference = TreeViewNode&;

        Iterator() = default;
        explicit Iterator(TreeViewNode* node) : node_(node) {}
        TreeViewNode& operator*() const { return *node_; }
        TreeViewNode* operator->() const { return node_; }
        Iterator& operator++() {
            node_ = node_->next_;
            return *this;
        }
        Iterator operator++(int) {
            Iterator const former = *this;
            ++*this;
            return former;
        }
        bool operator==(Iterator const& other) const = default;

    private:
        TreeViewNode* node_ = nullptr;
    };
    Iterator begin() const { return Iterator(firstChild_); }
    static Iterator end() { return Iterator(); }

    /// Of a root: grows with each change of what is shown in which order.
    std::uint64_t GetRevision() const;
    /// A number that no other node of its root has or had; 0 for a root.
    std::uint32_t GetId() const { return id_; }

private:
    class Store;
    struct More;

    More& GetMore();
    TreeViewNode& Make(Utilities::String const& key);
    void Link(TreeViewNode& child, TreeViewNode* before);
    void Unlink(TreeViewNode& child);
    void Release(TreeViewNode& child);
    void OnChanged() const;

    Utilities::String key_;
    Utilities::String text_;
    TreeViewNode* parent_ = nullptr;
    TreeViewNode* firstChild_ = nullptr;
    TreeViewNode* lastChild_ = nullptr;
    TreeViewNode* next_ = nullptr;
    TreeViewNode* previous_ = nullptr;
    /// Of the root; null for a root that has had no children yet.
    Store* store_ = nullptr;
    /// What few nodes have.
    std::unique_ptr<More> more_;
    std::uint32_t id_ = 0;
    Check check_ = Check::None;
    bool hasText_ : 1 = false;
    bool visible_ : 1 = true;
    bool expanded_ : 1 = false;
    bool selected_ : 1 = false;
    bool unread_ : 1 = false;
    bool editable_ : 1 = true;
};

} // namespace GUI
