#pragma once

#include "core/base/Exceptions.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

namespace Utilities {

template <class T> class VectorIterator;

/// An array that is always exactly as long as it was asked to be.
///
/// Unlike `std::vector` there is no spare capacity: each `Resize` allocates a new array and copies,
/// so a caller that knows the final size asks for it once. `operator[]` is checked. Iterators hold an
/// index and stay usable across `Resize`, bounded by the current size.
template <class T> class Vector {
public:
    Vector() = default;
    explicit Vector(std::uint32_t size) : size_(size), elements_(Allocate(size)) {}
    Vector(Vector const& other) : size_(other.size_), elements_(Allocate(other.size_)) {
        std::copy_n(other.elements_.get(), size_, elements_.get());
    }
    Vector(Vector&& other) noexcept
        : size_(std::exchange(other.size_, 0)), elements_(std::move(other.elements_)) {}
    Vector& operator=(Vector const& other) {
        if (this != &other) *this = Vector(other);
        return *this;
    }
    /// What is assigned may be within an element of this vector, so the former elements are destroyed last.
    Vector& operator=(Vector&& other) noexcept {
        Vector taken(std::move(other));
        std::swap(size_, taken.size_);
        std::swap(elements_, taken.elements_);
        return *this;
    }
    virtual ~Vector() = default;

    /// Throws `OutOfRangeException` "vector index >= vector size".
    T& operator[](std::uint32_t index) {
        CheckIndex(index);
        return elements_[index];
    }
    T const& operator[](std::uint32_t index) const {
        CheckIndex(index);
        return elements_[index];
    }

    std::uint32_t GetSize() const { return size_; }

    /// Keeps the elements that fit, in order; new ones are default values.
    void Resize(std::uint32_t size) {
        if (size == size_) return;
        auto elements = Allocate(size);
        std::move(elements_.get(), elements_.get() + std::min(size, size_), elements.get());
        elements_ = std::move(elements);
        size_ = size;
    }

    /// An iterator at `index`, clamped to the size; on an empty vector it is before the start.
    VectorIterator<T> Begin(std::uint32_t index = 0) { return BeginOf<VectorIterator<T>>(*this, index); }
    VectorIterator<T const> Begin(std::uint32_t index = 0) const {
        return BeginOf<VectorIterator<T const>>(*this, index);
    }
    VectorIterator<T> End() { return VectorIterator<T>(*this, size_); }
    VectorIterator<T const> End() const { return VectorIterator<T const>(*this, size_); }

    /// The elements as a plain range, for `for` loops and algorithms.
    T* begin() { return elements_.get(); }
    T* end() { return elements_.get() + size_; }
    T const* begin() const { return elements_.get(); }
    T const* end() const { return elements_.get() + size_; }

    bool operator==(Vector const& other) const {
        return std::equal(begin(), end(), other.begin(), other.end());
    }

private:
    template <class Iterator, class Self> static Iterator BeginOf(Self& self, std::uint32_t index) {
        Iterator begin(self, index);
        if (self.GetSize() == 0) --begin;
        return begin;
    }
    static std::unique_ptr<T[]> Allocate(std::uint32_t size) {
        return size == 0 ? nullptr : std::make_unique<T[]>(size);
    }
    void CheckIndex(std::uint32_t index) const {
        if (index >= size_)
            throw Norvelian::Utilities::Exceptions::OutOfRangeException("vector index >= vector size");
    }

    std::uint32_t size_ = 0;
    std::unique_ptr<T[]> elements_;
};

/// A position in a `Vector`; `T` is const for a const vector.
template <class T> class VectorIterator {
    using Container = std::conditional_t<std::is_const_v<T>, Vector<std::remove_const_t<T>> const, Vector<T>>;
    static constexpr std::uint32_t beforeStart = 0xFFFFFFFF;

public:
    VectorIterator(Container& vector, std::uint32_t index)
        : index_(std::min(index, vector.GetSize())), vector_(&vector) {}
    VectorIterator(VectorIterator const&) = default;
    VectorIterator& operator=(VectorIterator const&) = default;
    virtual ~VectorIterator() = default;

    bool IsValid() const { return index_ < vector_->GetSize() && index_ < beforeStart; }
    VectorIterator& operator++() {
        ++index_;
        return *this;
    }
    VectorIterator& operator--() {
        if (index_ != beforeStart) --index_;
        return *this;
    }
    T& Current() const {
        // The words are those of the map's iterator; hosts know them so.
        if (vector_->GetSize() == 0)
            throw Norvelian::Utilities::Exceptions::OutOfRangeException("MapIterator is not valid");
        return (*vector_)[index_];
    }

private:
    std::uint32_t index_;
    Container* vector_;
};

} // namespace Utilities
