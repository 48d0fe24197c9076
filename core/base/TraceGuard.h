#pragma once

#include "core/base/Exceptions.h"

#include <string>
#include <utility>

/// Follows exceptions on their way up: each guarded function adds its location to the trace of
/// whatever passes it, and turns exceptions from outside the family into members of it.
namespace Norvelian::Utilities::Exceptions {

/// A place in the source, as a trace frame names it.
struct Location {
    char const* className;
    char const* functionName;
    char const* file;
    long line;

    /// class name, "::", function name, "(): ", file, ":", line.
    std::string GetText() const;
};

/// Throws the member of the family that corresponds to a standard exception, told by its dynamic type:
/// the most derived match wins, and a type without a match becomes a `RuntimeException` whose text is
/// the type's name, one blank and the message.
[[noreturn]] void ThrowConverted(std::exception const& caught, std::string const& location);

/// Runs `body` and returns its result. A traceable exception that passes gets `location` appended to
/// its trace and goes on as the same object; a standard one goes on converted; anything else goes on
/// as a `RuntimeException` with the text "unkown exception caught". Costs nothing unless one passes.
template <class Body> decltype(auto) Traced(Location const& location, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (TraceableException& passing) {
        passing.AppendToTrace(location.GetText());
        throw;
    } catch (std::exception const& caught) {
        ThrowConverted(caught, location.GetText());
    } catch (...) {
        throw RuntimeException("unkown exception caught", location.GetText());
    }
}

} // namespace Norvelian::Utilities::Exceptions
