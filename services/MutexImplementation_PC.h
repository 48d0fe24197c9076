#pragma once

#include "Utilities/MutexImplementation.h"
#include "services/RobustMutex_PC.h"

#include <atomic>
#include <optional>
#include <thread>

namespace Utilities {

/// A mutex of the operating system; see `RobustMutex` for what happens when a holder dies.
class MutexImplementation_PC : public MutexImplementation {
public:
    MutexImplementation_PC() = default;
    MutexImplementation_PC(MutexImplementation_PC const&) = delete;
    MutexImplementation_PC& operator=(MutexImplementation_PC const&) = delete;
    ~MutexImplementation_PC() override;

    void Create(String const& name) override;
    bool Lock(long timeout) override;
    void Unlock() override;

private:
    std::optional<RobustMutex> mutex_;
    /// Who holds the mutex through this object, and how often. Both are changed only by the holder; a
    /// dead one's are taken over.
    std::atomic<std::thread::id> holder_;
    long held_ = 0;
};

} // namespace Utilities
