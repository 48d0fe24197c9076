#include "Diagnostics/Sink.h"

#include <exception>
#include <utility>

namespace Diagnostics {

namespace {

Sink& InstalledSink() {
    static Sink sink;
    return sink;
}

} // namespace

Sink SetSink(Sink sink) { return std::exchange(InstalledSink(), std::move(sink)); }

void Report(char const* where, String const& what) {
    if (Sink const& sink = InstalledSink()) sink(where, what);
}

void DropException(char const* where) noexcept {
    if (!InstalledSink()) return;
    try {
        throw;
    } catch (std::exception const& failure) {
        Report(where, failure.what());
    } catch (...) {
        Report(where, "exception of an unknown type");
    }
}

} // namespace Diagnostics
