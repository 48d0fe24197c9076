#pragma once

#include <memory>
#include <string>

namespace Utilities {

/// A recursive mutex that survives the death of its holder: the kernel marks it when the thread or the
/// process ends, and the next one to lock it makes it good again. Copies are the same mutex.
class RobustMutex {
public:
    /// One for this process alone.
    static RobustMutex MakePrivate();
    /// The one that all processes of this user share by that name, kept mapped once it was opened. It
    /// lives in shared memory that only this user may open, and is never removed since nobody can know
    /// who still needs it. Where there is no shared memory it is shared within the process only.
    static RobustMutex OpenShared(std::string const& name);

    /// At most so many milliseconds; a negative number waits for ever.
    bool Lock(long timeout) const;
    /// 0, or the number of the system's error.
    int Unlock() const;

private:
    struct Memory;

    explicit RobustMutex(std::shared_ptr<Memory> memory) : memory_(std::move(memory)) {}
    static std::shared_ptr<Memory> MapShared(std::string const& name);

    std::shared_ptr<Memory> memory_;
};

} // namespace Utilities
