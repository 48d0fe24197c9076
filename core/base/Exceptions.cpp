#include "core/base/Exceptions.h"

#include "core/base/TraceGuard.h"
#include "core/base/TypeName.h"

#include <atomic>
#include <sstream>

namespace Norvelian::Utilities::Exceptions {

namespace {

// Read on whichever thread carries an exception, so it is the one shared thing here.
std::atomic<bool> implicitStackTrace = false;

template <class From, class To> void ThrowIf(std::exception const& caught, std::string const& location) {
    if (auto const* match = dynamic_cast<From const*>(&caught)) throw To(match->what(), location);
}

} // namespace

bool TraceableException::use_implicite_stack_trace() { return implicitStackTrace; }
void TraceableException::use_implicite_stack_trace(bool on) { implicitStackTrace = on; }

std::string NullPointerException::MessageFor(std::type_info const& pointee) {
    return "accessed null pointer (" + TypeName(pointee) + ")";
}

std::string Location::GetText() const {
    std::ostringstream text;
    text << className << "::" << functionName << "(): " << file << ":" << line;
    return text.str();
}

void ThrowConverted(std::exception const& caught, std::string const& location) {
    // Derived classes come before their bases, which would match them as well.
    ThrowIf<std::overflow_error, OverflowException>(caught, location);
    ThrowIf<std::underflow_error, UnderflowException>(caught, location);
    ThrowIf<std::range_error, RangeException>(caught, location);
    ThrowIf<std::runtime_error, RuntimeException>(caught, location);
    ThrowIf<std::out_of_range, OutOfRangeException>(caught, location);
    ThrowIf<std::length_error, LengthException>(caught, location);
    ThrowIf<std::invalid_argument, InvalidArgumentException>(caught, location);
    ThrowIf<std::domain_error, DomainException>(caught, location);
    ThrowIf<std::logic_error, LogicException>(caught, location);
    ThrowIf<std::bad_alloc, BadAllocException>(caught, location);
    ThrowIf<std::bad_cast, BadCastException>(caught, location);
    ThrowIf<std::bad_typeid, BadTypeidException>(caught, location);
    throw RuntimeException(TypeName(typeid(caught)) + " " + caught.what(), location);
}

} // namespace Norvelian::Utilities::Exceptions
