#pragma once

#include "Utilities/ThreadImplementation.h"

#include <memory>

namespace Utilities {

/// A thread of the operating system, with normal priority and the default stack. Started a second time
/// it lets go of the first thread, which runs on.
class ThreadImplementation_PC : public ThreadImplementation {
public:
    static constexpr long stillActive = 0x103;
    static constexpr long exitCodeOfException = -1;
    static constexpr long exitCodeOfForce = 99999;

    ThreadImplementation_PC();
    ThreadImplementation_PC(ThreadImplementation_PC const&) = delete;
    ThreadImplementation_PC& operator=(ThreadImplementation_PC const&) = delete;
    ~ThreadImplementation_PC() override;

    void Stop(long waitMilliseconds) override;
    void Start(Runnable* object) override;

    /// `stillActive` while the thread runs, or before there is one.
    long GetExitCode() const;

private:
    struct Started;

    void LetGo();

    std::shared_ptr<Started> started_;
};

} // namespace Utilities
