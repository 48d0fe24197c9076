#include "Diagnostics/Sink.h"

#include <atomic>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>

namespace Diagnostics {

namespace {

struct Installed {
    /// Set while there is a sink, so that the usual process without one pays for a test alone.
    std::atomic<bool> present = false;
    std::mutex guard;
    std::shared_ptr<Sink const> sink;
};

Installed& InstalledSink() {
    // Threads and statics that report while the process ends must still find it.
    static auto* const installed = std::make_unique<Installed>().release();
    return *installed;
}

} // namespace

Sink SetSink(Sink sink) {
    Installed& installed = InstalledSink();
    std::lock_guard const lock(installed.guard);
    Sink former = installed.sink ? *installed.sink : Sink();
    installed.present = static_cast<bool>(sink);
    installed.sink = std::make_shared<Sink const>(std::move(sink));
    return former;
}

void Report(char const* where, String const& what) {
    Installed& installed = InstalledSink();
    if (!installed.present) return;
    std::unique_lock lock(installed.guard);
    auto const sink = installed.sink;
    lock.unlock();
    if (*sink) (*sink)(where, what);
}

void DropException(char const* where) noexcept {
    if (!InstalledSink().present) return;
    try {
        throw;
    } catch (std::exception const& failure) {
        Report(where, failure.what());
    } catch (...) {
        Report(where, "exception of an unknown type");
    }
}

} // namespace Diagnostics
