#include "core/values/Anything.h"

#include <cmath>
#include <limits>
#include <string>

namespace Utilities {

using Norvelian::Utilities::Exceptions::BadCastException;

namespace {

[[noreturn]] void ThrowWrongKind(Anything::Kind kind, char const* wanted) {
    static constexpr char const* names[] = {"invalid", "bool",   "short",  "long",
                                            "double",  "string", "vector", "map"};
    throw BadCastException(std::string("Anything of kind ") + names[static_cast<int>(kind)] + " read as " +
                           wanted);
}

/// A double outside the target, or no number at all, becomes the nearest limit or 0.
template <class Integer> Integer Truncate(double value) {
    if (std::isnan(value)) return 0;
    if (value <= static_cast<double>(std::numeric_limits<Integer>::min()))
        return std::numeric_limits<Integer>::min();
    if (value >= static_cast<double>(std::numeric_limits<Integer>::max()))
        return std::numeric_limits<Integer>::max();
    return static_cast<Integer>(value);
}

template <class Number> struct NumberReader {
    Anything::Kind kind;
    char const* name;

    Number operator()(bool value) const { return static_cast<Number>(value); }
    Number operator()(short value) const { return static_cast<Number>(value); }
    Number operator()(long value) const { return static_cast<Number>(value); }
    Number operator()(double value) const {
        if constexpr (std::is_integral_v<Number>)
            return Truncate<Number>(value);
        else
            return value;
    }
    Number operator()(std::shared_ptr<String const> const& text) const {
        if constexpr (std::is_same_v<Number, short>)
            return text->GetShort();
        else if constexpr (std::is_same_v<Number, long>)
            return text->GetLong();
        else
            return text->GetDouble();
    }
    template <class Other> Number operator()(Other const&) const { ThrowWrongKind(kind, name); }
};

} // namespace

Anything::Anything(VectorOfAnythings const& value)
    : value_(std::make_shared<VectorOfAnythings const>(value)) {}
Anything::Anything(MapOfAnythings const& value) : value_(std::make_shared<MapOfAnythings const>(value)) {}

bool Anything::GetBool() const {
    if (auto const* value = std::get_if<bool>(&value_)) return *value;
    if (auto const* text = std::get_if<Shared<String>>(&value_)) {
        String const lower = (*text)->GetAsLower();
        return lower == "yes" || lower == "true" || lower == "1";
    }
    return std::visit(NumberReader<double>{GetKind(), "bool"}, value_) != 0;
}

short Anything::GetShort() const { return std::visit(NumberReader<short>{GetKind(), "short"}, value_); }
long Anything::GetLong() const { return std::visit(NumberReader<long>{GetKind(), "long"}, value_); }
double Anything::GetDouble() const { return std::visit(NumberReader<double>{GetKind(), "double"}, value_); }

String const& Anything::GetString() const {
    if (auto const* value = std::get_if<Shared<String>>(&value_)) return **value;
    ThrowWrongKind(GetKind(), "string");
}

Anything::VectorOfAnythings const& Anything::GetVectorOfAnythings() const {
    if (auto const* value = std::get_if<Shared<VectorOfAnythings>>(&value_)) return **value;
    ThrowWrongKind(GetKind(), "vector");
}

Anything::MapOfAnythings const& Anything::GetMapOfAnythings() const {
    if (auto const* value = std::get_if<Shared<MapOfAnythings>>(&value_)) return **value;
    ThrowWrongKind(GetKind(), "map");
}

bool Anything::operator==(Anything const& other) const {
    return std::visit(
        []<class Left, class Right>(Left const& left, Right const& right) {
            if constexpr (!std::is_same_v<Left, Right>)
                return false;
            else if constexpr (requires { *left; })
                return left == right || *left == *right;
            else
                return left == right;
        },
        value_, other.value_);
}

Anything Anything::Detached() const {
    switch (GetKind()) {
    case Kind::String:
        return Anything(GetString());
    case Kind::Vector: {
        VectorOfAnythings copy(GetVectorOfAnythings());
        for (Anything& element : copy) element = element.Detached();
        return {copy};
    }
    case Kind::Map: {
        MapOfAnythings copy(GetMapOfAnythings());
        for (auto it = copy.Begin(); it.IsValid(); ++it) it.GetValue() = it.GetValue().Detached();
        return {copy};
    }
    default:
        return *this;
    }
}

} // namespace Utilities
