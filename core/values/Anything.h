#pragma once

#include "Utilities/Tools/Map.h"
#include "Utilities/Tools/Vector.h"
#include "core/base/String.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <variant>

namespace Utilities {

/// A value of any kind: invalid, bool, short, long, double, string, vector or map.
///
/// A map of these is the system's general record: description attributes, update commands, callback
/// arguments, settings and property contents. Strings, vectors and maps can't be changed once stored,
/// and copies share them; that is indistinguishable from a deep copy and costs the same for every size.
///
/// The shared containers must not be read on two threads at once: a value that crosses to another
/// thread goes there as `Detached()`.
///
/// The accessor of a value's own kind gives what was stored. Others convert between numbers, numeric
/// text and truth ("Yes", "true" and non-zero numbers are true), truncate toward zero, and throw
/// `BadCastException` where there is nothing to convert.
class Anything {
public:
    using VectorOfAnythings = Vector<Anything>;
    using MapOfAnythings = Map<String, Anything>;

    enum class Kind : std::uint8_t { Invalid, Bool, Short, Long, Double, String, Vector, Map };

    Anything() = default;
    // NOLINTBEGIN(google-explicit-constructor): values become Anythings throughout the system
    Anything(bool value) : value_(value) {}
    Anything(short value) : value_(value) {}
    Anything(long value) : value_(value) {}
    Anything(double value) : value_(value) {}
    Anything(char const* value) : Anything(String(value)) {}
    Anything(String const& value) : value_(std::make_shared<String const>(value)) {}
    Anything(VectorOfAnythings const& value);
    Anything(MapOfAnythings const& value);
    // NOLINTEND(google-explicit-constructor)
    /// Any other type would become a bool or a number without a word.
    template <class T> Anything(T const*) = delete;
    Anything(int) = delete;

    Anything(Anything const&) = default;
    Anything(Anything&&) noexcept = default;
    /// The value assigned may be within the one that is replaced, so that one is destroyed last.
    Anything& operator=(Anything const& other) {
        if (this != &other) Value(other.value_).swap(value_);
        return *this;
    }
    Anything& operator=(Anything&& other) noexcept {
        Value(std::move(other.value_)).swap(value_);
        return *this;
    }
    virtual ~Anything() = default;

    Kind GetKind() const { return static_cast<Kind>(value_.index()); }
    bool IsValid() const { return GetKind() != Kind::Invalid; }
    bool IsOfTypeString() const { return GetKind() == Kind::String; }
    bool IsOfTypeMap() const { return GetKind() == Kind::Map; }

    bool GetBool() const;
    short GetShort() const;
    long GetLong() const;
    double GetDouble() const;
    /// The references live as long as a copy of this value does.
    String const& GetString() const;
    VectorOfAnythings const& GetVectorOfAnythings() const;
    MapOfAnythings const& GetMapOfAnythings() const;

    /// Same kind and equal contents.
    bool operator==(Anything const& other) const;

    /// An equal value that shares nothing with this one.
    Anything Detached() const;

private:
    template <class T> using Shared = std::shared_ptr<T const>;
    using Value = std::variant<std::monostate, bool, short, long, double, Shared<String>,
                               Shared<VectorOfAnythings>, Shared<MapOfAnythings>>;

    Value value_;
};

} // namespace Utilities
