#pragma once

#include "Diagnostics/String.h"

#include <functional>

/// Where failures go that are dropped on purpose.
///
/// Many operations of the system swallow a failure by contract. All of them do it through these
/// functions, so that a host that wants to know what was dropped can install a sink. Without a sink a
/// dropped failure is gone; a debug build starts with the one that writes to standard error.
///
/// All functions may be called on any thread. The sink runs on the thread that reports, which can't be
/// stopped by force meanwhile, and no lock of this system is held. What the sink itself reports, and what
/// it throws, is ignored.
namespace Diagnostics {

using Sink = std::function<void(String const& where, String const& what)>;

/// Installs the process's one sink and returns the former one. An empty sink drops in silence.
Sink SetSink(Sink sink);

/// A sink that writes each report to standard error as one line, "where: what".
Sink StandardErrorSink();

/// Hands a diagnostic text to the sink, if there is one. `where` names the operation.
void Report(char const* where, String const& what) noexcept;

/// To be called inside a handler that drops what it caught: hands the text of the exception in
/// flight to the sink. Costs nothing beyond a test when no sink is installed.
void DropException(char const* where) noexcept;

} // namespace Diagnostics
