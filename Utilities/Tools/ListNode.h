#pragma once

#include "core/base/Exceptions.h"

#include <cstdint>
#include <type_traits>
#include <utility>

namespace Utilities {

template <class T> class List;

namespace Detail {

template <class T> struct ListNode {
    template <class... Arguments>
    explicit ListNode(Arguments&&... arguments) : value(std::forward<Arguments>(arguments)...) {}

    ListNode* next = nullptr;
    ListNode* previous = nullptr;
    std::uint32_t iteratorCount = 0;
    /// The element was removed while an iterator stood on it.
    bool removed = false;
    /// The list has been destroyed; the last iterator to leave deletes the node.
    bool orphaned = false;
    T value;
};

} // namespace Detail

/// A position in a `List`, counted in the node that it is on; `T` is const for a const list.
/// It is valid while it is on an element that hasn't been removed.
template <class T> class ListIterator {
    using Value = std::remove_const_t<T>;
    using Node = Detail::ListNode<Value>;

public:
    ListIterator() = default;
    ListIterator(ListIterator const& other) { Enter(other.node_); }
    ListIterator(ListIterator&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
    /// A position in a list that may be changed is accepted where one to read is wanted.
    ListIterator(ListIterator<Value> const& other) requires std::is_const_v<T> { Enter(other.node_); }
    ListIterator& operator=(ListIterator const& other) {
        ListIterator copy(other);
        std::swap(node_, copy.node_);
        return *this;
    }
    ListIterator& operator=(ListIterator&& other) noexcept {
        std::swap(node_, other.node_);
        return *this;
    }
    ~ListIterator() { Leave(); }

    bool IsValid() const { return node_ && !node_->removed; }

    ListIterator& operator++() {
        Check("ListIterator::operator++(): Can't increment iterator because it's invalid");
        do Move(node_->next);
        while (node_ && node_->removed);
        return *this;
    }
    ListIterator& operator--() {
        Check("ListIterator::operator--(): Can't decrement iterator because it's invalid");
        do Move(node_->previous);
        while (node_ && node_->removed);
        return *this;
    }
    T& Current() const {
        Check("ListIterator::Current(): Can't return value because iterator is invalid");
        return node_->value;
    }

private:
    friend class List<Value>;
    template <class> friend class ListIterator;

    explicit ListIterator(Node* node) { Enter(node); }

    void Check(char const* failure) const {
        if (!IsValid()) throw Norvelian::Utilities::Exceptions::OutOfRangeException(failure);
    }
    void Enter(Node* node) {
        node_ = node;
        if (node_) ++node_->iteratorCount;
    }
    /// Leaving a node that was removed from a living list leaves it to the list's next sweep.
    void Move(Node* target) {
        --node_->iteratorCount;
        Enter(target);
    }
    void Leave() {
        if (!node_) return;
        if (--node_->iteratorCount == 0 && node_->orphaned) delete node_;
        node_ = nullptr;
    }

    Node* node_ = nullptr;
};

} // namespace Utilities
