#pragma once

namespace Utilities {

/// Two values that belong together, such as the coordinates of a point.
template <class First, class Second> class Pair {
public:
    Pair() = default;
    Pair(First const& firstValue, Second const& secondValue) : first(firstValue), second(secondValue) {}
    Pair(Pair const&) = default;
    Pair& operator=(Pair const&) = default;
    virtual ~Pair() = default;

    bool operator==(Pair const& other) const { return first == other.first && second == other.second; }

    First first{};
    Second second{};
};

} // namespace Utilities
