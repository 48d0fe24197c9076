#pragma once

#include "Utilities/Tools/List.h"
#include "Utilities/Tools/SmartPointer.h"
#include "core/base/String.h"

#include <utility>

namespace Utilities {

/// A `T` with named children of the same kind.
///
/// Children are owned jointly through smart pointers; the parent pointer is a back reference. A copy is
/// deep: its root has no parent, and its children's parents are the copies. A move takes the children
/// along and leaves the place in a parent's tree as it is. Children are walked on the
/// live list, so entries may be inserted behind the one being visited.
template <class T> class Tree : public T {
public:
    using Children = List<SmartPointer<Tree>>;

    Tree() = default;
    Tree(Tree const& other) : T(other), name_(other.name_) { CopyChildren(other); }
    Tree(Tree&& other) noexcept : T(static_cast<T&&>(other)), name_(std::move(other.name_)) {
        TakeChildren(other);
    }
    Tree& operator=(Tree const& other) {
        if (this != &other) *this = Tree(other);
        return *this;
    }
    Tree& operator=(Tree&& other) noexcept {
        if (this == &other) return *this;
        // It may be one of the children that go.
        Tree taken(std::move(other));
        Disown();
        Children const former(std::move(children_));
        T::operator=(static_cast<T&&>(taken));
        name_ = std::move(taken.name_);
        TakeChildren(taken);
        return *this;
    }
    // Overrides where `T` has a virtual destructor, which it needn't have.
    // NOLINTNEXTLINE(modernize-use-override)
    ~Tree() { Disown(); }

    void AddChild(SmartPointer<Tree> const& child) {
        child->parent_ = this;
        if (children_.GetSize() == 0)
            children_.InsertFront(child);
        else
            children_.InsertAfter(children_.Last(), child);
    }
    /// The same behind a position, which moves on to the new child.
    void InsertChildAfter(typename Children::Iterator& position, SmartPointer<Tree> const& child) {
        child->parent_ = this;
        position = children_.InsertAfter(position, child);
    }

    auto GetChildren() { return children_.Begin(); }
    auto GetChildren() const { return children_.Begin(); }
    bool HasChildren() const { return children_.GetSize() != 0; }
    String const& GetName() const { return name_; }
    void SetName(String const& name) { name_ = name; }
    Tree* GetParent() const { return parent_; }

private:
    /// A child may outlive its place in the tree in someone's hands.
    void Disown() {
        for (auto it = children_.Begin(); it.IsValid(); ++it)
            if (it.Current()->parent_ == this) it.Current()->parent_ = nullptr;
    }
    void TakeChildren(Tree& other) {
        children_ = std::move(other.children_);
        for (auto it = children_.Begin(); it.IsValid(); ++it) it.Current()->parent_ = this;
    }
    void CopyChildren(Tree const& other) {
        for (auto it = other.children_.Begin(); it.IsValid(); ++it) AddChild(MakeSmart<Tree>(*it.Current()));
    }

    Children children_;
    String name_ = " ";
    Tree* parent_ = nullptr;
};

} // namespace Utilities
