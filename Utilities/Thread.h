#pragma once

#include "Utilities/ThreadImplementation.h"
#include "Utilities/Tools/SmartPointer.h"

namespace Utilities {

/// A thread. It reaches the GUI only by posting through the message service.
///
/// The right way to end one is to ask its object to finish, by means of the object's own, and then to
/// call `Stop` with the time that this may take. A thread that is still running then is ended by force,
/// in the middle of whatever it does.
///
/// What a forced stop promises: the thread runs not one instruction more when `Stop` returns, so its
/// object may be deleted; it isn't ended inside the memory allocator, the C library or the loader unless
/// it waits there in the kernel, nor within an `Unstoppable`, so the process can go on allocating memory and
/// making threads; a `Mutex` that it held is free for the next one, and posting a message is done whole or
/// not.
///
/// What it can't promise: nothing on the thread's stack is destroyed, so memory (the stack itself too), files
/// and locks of any other kind that it held stay held; data that it was changing stay half changed; a stream
/// of the C library that it was waiting on stays locked. A thread that stays inside the C library for two
/// seconds without waiting, or has blocked all signals, can't be ended: it is reported as a diagnostic text
/// and left running, and then its object must stay alive. So it is with every thread that computes in a
/// program's own code if the memory allocator is linked into that program itself.
///
/// A `Thread` that dies while its thread runs leaves it running; the plug-in can't be unloaded before it has
/// ended.
class Thread {
public:
    /// Throws `ResourceNotAvailableException` if the plug-in that implements threads isn't loaded.
    Thread();
    Thread(Thread const&) = delete;
    Thread& operator=(Thread const&) = delete;
    ~Thread() = default;

    void Start(Runnable* object);
    void Stop(long waitMilliseconds);
    /// After `Stop`, whether the thread couldn't be ended.
    bool IsRunning() const;
    /// What the object returned, -1 after an exception, 99999 after a forced stop; 259 while the thread runs
    /// or if none was started.
    long GetExitCode() const;

private:
    SmartPointer<ThreadImplementation> implementation_;
};

} // namespace Utilities
