#include "Diagnostics/Unstoppable.h"

#include <atomic>

namespace Utilities {

namespace {

// Read by a handler that interrupts the same thread, and so in memory that is there from the thread's start.
[[gnu::tls_model("initial-exec")]] thread_local std::atomic<int> depth = 0;
[[gnu::tls_model("initial-exec")]] thread_local std::atomic<void (*)()> deferred = nullptr;

} // namespace

Unstoppable::Unstoppable() { depth.store(depth.load(std::memory_order_relaxed) + 1); }

Unstoppable::~Unstoppable() {
    int const left = depth.load(std::memory_order_relaxed) - 1;
    depth.store(left);
    if (left != 0) return;
    if (auto* const action = deferred.exchange(nullptr)) action();
}

bool Unstoppable::Defer(void (*action)()) noexcept {
    if (depth.load(std::memory_order_relaxed) == 0) return false;
    deferred.store(action);
    return true;
}

} // namespace Utilities
