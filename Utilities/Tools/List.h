#pragma once

#include "Utilities/Tools/ListNode.h"
#include "core/base/Exceptions.h"

#include <cstdint>
#include <new>
#include <utility>

namespace Utilities {

/// A doubly linked list that stays safe to change while iterators are on it.
///
/// Differences from `std::list`: an element may be removed while any number of iterators are on it.
/// Those iterators turn invalid, further walks pass the element over, and its node is freed by a later
/// `Remove` or by the last iterator to leave after the list has been destroyed. That is safety against
/// re-entry on one thread (a callback removes what its caller is visiting), not between threads. Insertion
/// and removal are constant-time, except for the sweep that a removal under an iterator leaves behind.
///
/// ```
/// for (auto it = list.Begin(); it.IsValid(); ++it) Visit(it.Current());
/// ```
template <class T> class List {
    using Node = Detail::ListNode<T>;

public:
    using Iterator = ListIterator<T>;

    List() = default;
    List(List const& other) { CopyFrom(other); }
    List(List&& other) noexcept { Swap(other); }
    /// What is assigned may be within an element of this list, so the former elements are destroyed last.
    List& operator=(List const& other) {
        if (this != &other) List(other).Swap(*this);
        return *this;
    }
    List& operator=(List&& other) noexcept {
        List(std::move(other)).Swap(*this);
        return *this;
    }
    ~List() { Clear(); }

    ListIterator<T> Begin() { return ListIterator<T>(FirstLive()); }
    ListIterator<T const> Begin() const { return ListIterator<T const>(FirstLive()); }
    ListIterator<T> Last() { return ListIterator<T>(LastLive()); }
    ListIterator<T const> Last() const { return ListIterator<T const>(LastLive()); }

    /// The first element that `matches` holds for, or null: a look that needs no place to come back to.
    template <class Predicate> T* FindIf(Predicate matches) {
        Node* const node = FindNode(matches);
        return node ? &node->value : nullptr;
    }
    template <class Predicate> T const* FindIf(Predicate matches) const {
        Node const* const node = FindNode(matches);
        return node ? &node->value : nullptr;
    }

    /// The inserting operations return an iterator on the new element and throw
    /// `ExceptionNullpointer` if it can't be allocated.
    ListIterator<T> InsertFront(T const& value) {
        return Link(MakeNode(outOfMemory, value), nullptr, first_);
    }
    ListIterator<T> Append(T const& value) { return Link(MakeNode(outOfMemory, value), last_, nullptr); }
    /// A default value, for the caller to fill through the iterator.
    ListIterator<T> Append() { return Link(MakeNode(outOfMemory), last_, nullptr); }
    /// A value made of these arguments.
    template <class... Arguments> ListIterator<T> Emplace(Arguments const&... arguments) {
        return Link(MakeNode(outOfMemory, arguments...), last_, nullptr);
    }
    ListIterator<T> InsertAfter(ListIterator<T> const& position, T const& value) {
        if (!position.IsValid())
            throw Norvelian::Utilities::Exceptions::OutOfRangeException(
                "List::InsertAfter() called with invalid iterator");
        return Link(MakeNode("List::InsertAfter() can't insert element. System is out of memory.", value),
                    position.node_, position.node_->next);
    }

    /// Takes the element out, returns a copy of it and moves the iterator to the following one. Throws
    /// `OutOfRangeException` if the iterator is invalid.
    T Remove(ListIterator<T>& position) {
        if (purgePending_) Sweep();
        if (!position.IsValid())
            throw Norvelian::Utilities::Exceptions::OutOfRangeException(
                "List::Remove(): Invalid Iterator used to remove element.");
        Node* const node = position.node_;
        ++position;
        --count_;
        T value(node->value);
        if (node->iteratorCount != 0) {
            node->removed = true;
            purgePending_ = true;
        } else {
            Unlink(node);
            delete node;
        }
        return value;
    }

    /// Removes all elements; iterators that are on one are invalid from then on.
    void Clear() noexcept {
        // An element that is destroyed may ask for the list it was in.
        Node* node = std::exchange(first_, nullptr);
        last_ = nullptr;
        count_ = 0;
        purgePending_ = false;
        while (node) {
            Node* const next = node->next;
            if (node->iteratorCount != 0) {
                node->next = node->previous = nullptr;
                node->removed = node->orphaned = true;
            } else {
                delete node;
            }
            node = next;
        }
    }

    std::uint32_t GetSize() const { return count_; }

private:
    static constexpr char const* outOfMemory = "Out of memory. Can't insert element into list";

    template <class... Arguments> static Node* MakeNode(char const* failure, Arguments const&... arguments) {
        Node* const node = new (std::nothrow) Node(arguments...);
        if (!node) throw ExceptionNullpointer(node, failure);
        return node;
    }
    ListIterator<T> Link(Node* node, Node* previous, Node* next) {
        node->previous = previous;
        node->next = next;
        (previous ? previous->next : first_) = node;
        (next ? next->previous : last_) = node;
        ++count_;
        return ListIterator<T>(node);
    }
    void Unlink(Node* node) {
        (node->previous ? node->previous->next : first_) = node->next;
        (node->next ? node->next->previous : last_) = node->previous;
    }
    /// Frees the removed nodes that no iterator is on any more.
    void Sweep() {
        purgePending_ = false;
        Node* dead = nullptr;
        for (Node* node = first_; node;) {
            Node* const next = node->next;
            if (node->removed && node->iteratorCount == 0) {
                Unlink(node);
                node->next = dead;
                dead = node;
            } else if (node->removed) {
                purgePending_ = true;
            }
            node = next;
        }
        while (dead) delete std::exchange(dead, dead->next);
    }
    void CopyFrom(List const& other) {
        try {
            for (Node const* node = other.first_; node; node = node->next)
                if (!node->removed)
                    Link(MakeNode("Can't create copy of list. System is out of memory", node->value), last_,
                         nullptr);
        } catch (...) {
            Clear();
            throw;
        }
    }
    void Swap(List& other) noexcept {
        std::swap(count_, other.count_);
        std::swap(purgePending_, other.purgePending_);
        std::swap(first_, other.first_);
        std::swap(last_, other.last_);
    }
    template <class Predicate> Node* FindNode(Predicate const& matches) const {
        for (Node* node = first_; node; node = node->next)
            if (!node->removed && matches(std::as_const(node->value))) return node;
        return nullptr;
    }
    Node* FirstLive() const {
        Node* node = first_;
        while (node && node->removed) node = node->next;
        return node;
    }
    Node* LastLive() const {
        Node* node = last_;
        while (node && node->removed) node = node->previous;
        return node;
    }

    std::uint32_t count_ = 0;
    bool purgePending_ = false;
    Node* first_ = nullptr;
    Node* last_ = nullptr;
};

} // namespace Utilities
