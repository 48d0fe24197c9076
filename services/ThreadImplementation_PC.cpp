#include "services/ThreadImplementation_PC.h"

#include "Diagnostics/Sink.h"
#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"
#include "services/ThreadKiller_PC.h"

#include <atomic>
#include <chrono>
#include <cxxabi.h>
#include <pthread.h>
#include <thread>

namespace Utilities {

namespace {

ComponentCreatorNormal<ThreadImplementation_PC> const creator({"ThreadImplementation", "$Revision: 1.4 $",
                                                               "Multithreading"});

constexpr std::chrono::seconds patienceWithForce(2);

} // namespace

/// Shared by the owner and the thread, since either may go first.
struct ThreadImplementation_PC::Started {
    explicit Started(Runnable* toRun) : object(toRun) {}

    static void* Enter(void* data) {
        std::unique_ptr<std::shared_ptr<Started>> const own(static_cast<std::shared_ptr<Started>*>(data));
        Started& started = **own;
        long code = exitCodeOfException;
        try {
            code = started.object->Run();
        } catch (abi::__forced_unwind const&) {
            // The object has ended its thread by the system's own means, which must run its course.
            BlockKilling();
            started.exitCode = exitCodeOfException;
            started.ended = true;
            throw;
        } catch (...) {
            Diagnostics::DropException("ThreadImplementation: run operation");
        }
        BlockKilling();
        started.exitCode = code;
        started.ended = true;
        return nullptr;
    }

    Runnable* object;
    pthread_t thread{};
    bool joined = false;
    std::atomic<long> exitCode = stillActive;
    std::atomic<bool> ended = false;
};

ThreadImplementation_PC::ThreadImplementation_PC() = default;
ThreadImplementation_PC::~ThreadImplementation_PC() { LetGo(); }

void ThreadImplementation_PC::LetGo() {
    if (started_ && !started_->joined) ::pthread_detach(started_->thread);
    started_.reset();
}

void ThreadImplementation_PC::Start(Runnable* object) {
    LetGo();
    auto started = std::make_shared<Started>(object);
    auto forThread = std::make_unique<std::shared_ptr<Started>>(started);
    if (::pthread_create(&started->thread, nullptr, Started::Enter, forThread.get()) != 0)
        throw Norvelian::Utilities::Exceptions::RuntimeException("Thread: Couldn't create it !!!");
    static_cast<void>(forThread.release());
    started_ = std::move(started);
}

void ThreadImplementation_PC::Stop(long waitMilliseconds) {
    if (!started_ || started_->ended) return;
    if (waitMilliseconds > 0) std::this_thread::sleep_for(std::chrono::milliseconds(waitMilliseconds));
    if (started_->ended) return;
    started_->joined = KillThread(started_->thread, started_->ended, patienceWithForce);
    if (!started_->joined) {
        Diagnostics::Report("ThreadImplementation::Stop", "the thread can't be ended and runs on");
        return;
    }
    if (!started_->ended.exchange(true)) started_->exitCode = exitCodeOfForce;
}

long ThreadImplementation_PC::GetExitCode() const {
    return started_ ? started_->exitCode.load() : stillActive;
}

} // namespace Utilities
