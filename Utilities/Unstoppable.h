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

    /// Whether one of the calling thread lives. May be called in a signal handler.
    static bool IsInside() noexcept;
};

} // namespace Utilities
