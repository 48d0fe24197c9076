#pragma once

#include "Diagnostics/String.h"
#include "core/component/Component.h"

namespace Utilities {

/// What a thread runs. Order of the virtual operations: the run operation is the third.
class Runnable {
public:
    virtual ~Runnable() = default;
    virtual void Invariant() const {}
    /// The result becomes the thread's exit code; an exception ends the thread with the code -1.
    virtual long Run() = 0;
};

/// What is behind a `Thread`; the component "ThreadImplementation", one for each request. Started
/// and stopped on the thread that owns it.
class ThreadImplementation : public Component {
public:
    /// @name Exit codes
    /// @{
    static constexpr long stillActive = 0x103;
    static constexpr long exitCodeOfException = -1;
    static constexpr long exitCodeOfForce = 99999;
    /// @}

    virtual Diagnostics::String GetDescription() const { return {}; }
    /// Gives the thread `waitMilliseconds` to end by itself, always the whole time, and then ends it by
    /// force; see `Thread`. Returns at once if no thread was started or it has ended. Unless `IsRunning`
    /// says otherwise afterwards, the thread has executed its last instruction.
    virtual void Stop(long waitMilliseconds) = 0;
    /// Runs the object, which isn't owned, on a new thread. Throws `RuntimeException` if the system
    /// gives none.
    virtual void Start(Runnable* object) = 0;
    /// False before the start, and as soon as the object's run operation has returned or the thread was
    /// ended by force.
    virtual bool IsRunning() const = 0;
    /// The result of the run operation, `exitCodeOfException` or `exitCodeOfForce`; `stillActive` while the
    /// thread runs, or before there is one.
    virtual long GetExitCode() const = 0;
};

} // namespace Utilities
