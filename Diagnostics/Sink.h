#pragma once

#include "Diagnostics/String.h"

#include <functional>

/// Where failures go that are dropped on purpose.
///
/// Many operations of the system swallow a failure by contract. All of them do it through this one
/// pair of functions, so that a host that wants to know what was dropped can install a sink. Without
/// a sink a dropped failure is gone. All three functions may be called on any thread, and the sink runs on
/// the thread that reports; it must not throw.
namespace Diagnostics {

using Sink = std::function<void(String const& where, String const& what)>;

/// Installs the process's one sink and returns the former one. An empty sink drops in silence.
Sink SetSink(Sink sink);

/// Hands a diagnostic text to the sink, if there is one. `where` names the operation.
void Report(char const* where, String const& what);

/// To be called inside a handler that drops what it caught: hands the text of the exception in
/// flight to the sink. Costs nothing beyond a test when no sink is installed.
void DropException(char const* where) noexcept;

} // namespace Diagnostics
