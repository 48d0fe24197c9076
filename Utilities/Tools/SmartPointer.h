#pragma once

#include "core/base/Exceptions.h"
#include "core/base/TraceGuard.h"

#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

namespace Utilities {

namespace Detail {

/// What the copies of a smart pointer share. It remembers how to delete the object as it was handed
/// over, so that the last holder may be a pointer to a base or one whose downcast failed.
struct SharedCount {
    std::uint16_t holders = 1;
    void* object = nullptr;
    void (*destroy)(void* object) = nullptr;
};

/// The last holder is gone: deletes the object, then the count.
void DestroyShared(SharedCount* count);

/// A class with an operation `Dispose` decides itself when its objects are destroyed.
template <class T> void DeleteOrDispose(void* owned) {
    auto* const object = static_cast<T*>(owned);
    if constexpr (requires { object->Dispose(); })
        object->Dispose();
    else
        delete object;
}

} // namespace Detail

/// A pointer that owns its object together with all its copies.
///
/// The count is 16 bits wide and not atomic: a pointer and its copies stay on one thread, below 65536
/// of them. A downcast that fails gives a pointer whose object is null while it keeps the object alive
/// through the shared count. Using a null pointer throws `NullPointerException`.
/// The second argument names the declared kind of the count and plays no part.
template <class T, class CountKind = int> class SmartPointer {
public:
    SmartPointer() = default;
    SmartPointer(std::nullptr_t) {
    } // NOLINT(google-explicit-constructor): null converts, as for a plain pointer
    /// Takes ownership; null stays null without a count.
    explicit SmartPointer(T* object) : object_(object) {
        if (!object) return;
        std::unique_ptr<T> guard(object);
        counter_ = new Detail::SharedCount{1, object, &Detail::DeleteOrDispose<T>};
        static_cast<void>(guard.release());
    }
    SmartPointer(SmartPointer const& other) : counter_(other.counter_), object_(other.object_) { Hold(); }
    SmartPointer(SmartPointer&& other) noexcept
        : counter_(std::exchange(other.counter_, nullptr)), object_(std::exchange(other.object_, nullptr)) {}

    /// Upward conversions are static, downward ones a dynamic cast.
    template <class Other>
    requires(!std::is_same_v<T, Other>) SmartPointer(
        SmartPointer<Other, CountKind> const& other) // NOLINT(google-explicit-constructor): contracted
        : counter_(other.counter_), object_(Convert(other.object_)) {
        Hold();
    }

    SmartPointer& operator=(SmartPointer const& other) {
        if (this != &other) SmartPointer(other).Swap(*this);
        return *this;
    }
    SmartPointer& operator=(SmartPointer&& other) noexcept {
        if (this != &other) SmartPointer(std::move(other)).Swap(*this);
        return *this;
    }
    ~SmartPointer() { Release(); }

    T& operator*() const {
        if (!object_) ThrowNull("operator*", 244, 249);
        return *object_;
    }
    T* operator->() const {
        if (!object_) ThrowNull("operator->", 227, 232);
        return object_;
    }

    bool IsNull() const { return object_ == nullptr; }
    /// How many pointers hold the object together, this one included; 0 for a null one.
    std::uint16_t GetHolderCount() const { return counter_ ? counter_->holders : 0; }
    /// The object or null, for tests and back references.
    T* Get() const { return object_; }

private:
    template <class, class> friend class SmartPointer;

    template <class Other> static T* Convert(Other* object) {
        if constexpr (std::is_convertible_v<Other*, T*>)
            return object;
        else
            return dynamic_cast<T*>(object);
    }
    void Hold() const {
        if (counter_) ++counter_->holders;
    }
    void Release() {
        if (counter_ && --counter_->holders == 0) Detail::DestroyShared(counter_);
        counter_ = nullptr;
        object_ = nullptr;
    }
    void Swap(SmartPointer& other) noexcept {
        std::swap(counter_, other.counter_);
        std::swap(object_, other.object_);
    }
    /// The location and the frame that passing the guard adds are fixed texts that hosts know.
    [[noreturn]] static void ThrowNull(char const* function, long line, long guardLine) {
        using namespace Norvelian::Utilities::Exceptions;
        constexpr char const* file = "Utilities/Tools/SmartPointer";
        NullPointerException failure(static_cast<T const*>(nullptr),
                                     Location{"SmartPointer<T>", function, file, line}.GetText());
        failure.AppendToTrace(Location{"SmartPointer<T>", function, file, guardLine}.GetText());
        throw failure;
    }

    Detail::SharedCount* counter_ = nullptr;
    T* object_ = nullptr;
};

/// Makes an object and hands it over to a smart pointer.
template <class T, class... Arguments> SmartPointer<T> MakeSmart(Arguments&&... arguments) {
    return SmartPointer<T>(std::make_unique<T>(std::forward<Arguments>(arguments)...).release());
}

} // namespace Utilities
