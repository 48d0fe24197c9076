#pragma once

#include "Utilities/MutexImplementation.h"
#include "Utilities/Tools/SmartPointer.h"

namespace Utilities {

/// Mutual exclusion between threads and, by name, between processes of one user. A name that begins with
/// "Local\" belongs to this process alone.
///
/// The thread that holds it may lock it again and unlocks it as often. A holder that dies, be it a
/// thread or a whole process, releases it (a thread that ends by itself and still holds a named one: for its
/// own process only): the next one to lock gains it and finds what it protects in
/// whatever state it was left. The object itself may be used from several threads; one that dies while
/// its thread holds the mutex releases it.
class Mutex {
public:
    /// Without a name the mutex belongs to this object alone. Throws `ResourceNotAvailableException` if
    /// the plug-in that implements mutexes isn't loaded.
    explicit Mutex(String const& name = {});
    Mutex(Mutex const&) = delete;
    Mutex& operator=(Mutex const&) = delete;
    ~Mutex() = default;

    /// Waits at most `timeout` milliseconds: 0 doesn't wait, a negative one waits for ever. True if the
    /// mutex was gained.
    bool Lock(long timeout);
    /// Nothing happens if this thread doesn't hold the mutex.
    void Unlock();

private:
    SmartPointer<MutexImplementation> implementation_;
};

/// Holds a mutex for the length of a block, if it was gained in time.
class MutexLock {
public:
    MutexLock(Mutex& mutex, long timeout) : mutex_(mutex), held_(mutex.Lock(timeout)) {}
    MutexLock(MutexLock const&) = delete;
    MutexLock& operator=(MutexLock const&) = delete;
    ~MutexLock() {
        if (held_) mutex_.Unlock();
    }

    bool IsHeld() const { return held_; }

private:
    Mutex& mutex_;
    bool held_;
};

} // namespace Utilities
