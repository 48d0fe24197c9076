#include "Utilities/Unstoppable.h"

#include <atomic>

namespace Utilities {

namespace {

/// Read by a handler that interrupts the same thread; memory that is there from the thread's start.
[[gnu::tls_model("initial-exec")]] thread_local std::atomic<int> depth = 0;

} // namespace

Unstoppable::Unstoppable() { depth.store(depth.load(std::memory_order_relaxed) + 1); }
Unstoppable::~Unstoppable() { depth.store(depth.load(std::memory_order_relaxed) - 1); }
bool Unstoppable::IsInside() noexcept { return depth.load(std::memory_order_relaxed) != 0; }

} // namespace Utilities
