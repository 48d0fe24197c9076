#pragma once

#include "Utilities/ThreadImplementation.h"

#include <memory>

namespace Utilities {

/// A thread of the operating system, with normal priority and the default stack. Started a second time
/// it releases the first thread, which runs on.
class ThreadImplementation_PC : public ThreadImplementation {
public:
    ThreadImplementation_PC();
    ThreadImplementation_PC(ThreadImplementation_PC const&) = delete;
    ThreadImplementation_PC& operator=(ThreadImplementation_PC const&) = delete;
    ~ThreadImplementation_PC() override;

    void Stop(long waitMilliseconds) override;
    void Start(Runnable* object) override;

    bool IsRunning() const override;
    long GetExitCode() const override;

    /// How many threads run whose objects of this class have release them.
    static long GetLeftBehind();

private:
    struct Started;
    struct LeftBehind;

    void LetGo();

    std::shared_ptr<Started> started_;
};

} // namespace Utilities
