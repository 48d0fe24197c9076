#include "Utilities/Limits.h"

namespace Utilities {

namespace {

Limits& Current() {
    static Limits limits;
    return limits;
}

} // namespace

Limits const& Limits::Get() { return Current(); }

void Limits::Set(Limits const& limits) { Current() = limits; }

std::string Limits::Passed(char const* limit, std::size_t value, char const* of) {
    return "more than " + std::to_string(value) + ' ' + of + " (the limit \"" + limit + "\")";
}

} // namespace Utilities
