#pragma once

namespace Utilities {

/// As long as one lives, a forced stop of the thread that made it waits: for code that holds a lock which
/// wouldn't be freed with its holder, or that changes what other threads read. Made on the stack; may nest.
class Unstoppable {
public:
    Unstoppable();
    ~Unstoppable();
    Unstoppable(Unstoppable const&) = delete;
    Unstoppable& operator=(Unstoppable const&) = delete;

    /// For the signal handler that is to stop the calling thread: false if none of the thread's lives; else
    /// true, and `action` runs as soon as the last of them is destroyed.
    static bool Defer(void (*action)()) noexcept;
};

} // namespace Utilities
