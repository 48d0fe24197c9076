#pragma once

#include "Utilities/MutexImplementation.h"
#include "services/RobustMutex_PC.h"

#include <atomic>
#include <optional>

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
    /// Locks taken through this object and not given back.
    std::atomic<long> held_ = 0;
};

} // namespace Utilities
