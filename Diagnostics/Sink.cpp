#include "Diagnostics/Sink.h"

#include "Diagnostics/Unstoppable.h"

#include <atomic>
#include <cstdio>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace Diagnostics {

namespace {

#ifdef NDEBUG
constexpr bool isDebugBuild = false;
#else
constexpr bool isDebugBuild = true;
#endif

struct Installed {
    /// Set while there is a sink, so that the usual process without one pays for a test alone.
    std::atomic<bool> present = isDebugBuild;
    std::mutex guard;
    std::shared_ptr<Sink const> sink =
        std::make_shared<Sink const>(isDebugBuild ? StandardErrorSink() : Sink());
};

Installed& InstalledSink() {
    // Threads and statics that report while the process ends must still find it.
    static auto* const installed = std::make_unique<Installed>().release();
    return *installed;
}

/// Whether this thread is running the sink.
thread_local bool reporting = false;

} // namespace

Sink SetSink(Sink sink) {
    auto installing = std::make_shared<Sink const>(std::move(sink));
    Installed& installed = InstalledSink();
    {
        Utilities::Unstoppable const whole;
        std::lock_guard const lock(installed.guard);
        installed.present = static_cast<bool>(*installing);
        installing.swap(installed.sink);
    }
    return *installing;
}

Sink StandardErrorSink() {
    return [](String const& where, String const& what) {
        std::string const line = std::string(where.GetCharPointer()) + ": " + what.GetCharPointer() + "\n";
        std::fwrite(line.data(), 1, line.size(), stderr);
    };
}

void Report(char const* where, String const& what) noexcept {
    Installed& installed = InstalledSink();
    if (!installed.present || reporting) return;
    // Neither our lock nor one that the sink takes would be released by a thread that is stopped in it.
    Utilities::Unstoppable const whole;
    reporting = true;
    try {
        std::unique_lock lock(installed.guard);
        auto const sink = installed.sink;
        lock.unlock();
        if (*sink) (*sink)(where, what);
    } catch (...) { // NOLINT(bugprone-empty-catch): there is nobody left to tell
    }
    reporting = false;
}

void DropException(char const* where) noexcept {
    if (!InstalledSink().present) return;
    try {
        try {
            throw;
        } catch (std::exception const& failure) {
            Report(where, failure.what());
        } catch (...) {
            Report(where, "exception of an unknown type");
        }
    } catch (...) { // NOLINT(bugprone-empty-catch): there is no memory for the text
    }
}

} // namespace Diagnostics
