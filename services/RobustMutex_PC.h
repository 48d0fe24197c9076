#pragma once

#include <memory>
#include <string>

namespace Utilities {

/// A recursive mutex that survives the death of its holder. A thread that dies is noticed by the kernel, and
/// the next one of its process to lock the mutex makes it good again; the lock between processes is one on a
/// file, which goes with the process, whatever namespace that numbers its processes in. Copies are the same
/// mutex.
class RobustMutex {
public:
    /// One for this process alone.
    static RobustMutex MakePrivate();
    /// The one of that name, kept open once it was opened. The file is `norvelian/<name>.lock` in the user's
    /// configuration folder, and is never removed since nobody can know who still needs it. A file or folder
    /// there that is a link, belongs to another user or may be written by one isn't used; then, and where
    /// there is no such folder, the mutex is shared within the process only, and the sink is told.
    ///
    /// A name that begins with "Local\" is shared within the process only, and without a file.
    static RobustMutex OpenShared(std::string const& name);

    /// Frees the files of all mutexes that dead threads of this process held, for the other processes.
    static void ReleaseThoseOfDeadThreads();

    /// At most so many milliseconds; a negative number waits for ever.
    bool Lock(long timeout) const;
    /// To be called by the holder. 0, or the number of the system's error.
    int Unlock() const;

private:
    struct State;

    explicit RobustMutex(std::shared_ptr<State> state) : state_(std::move(state)) {}
    static RobustMutex Make(int file);

    std::shared_ptr<State> state_;
};

} // namespace Utilities
