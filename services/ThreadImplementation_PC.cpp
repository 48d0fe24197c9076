#include "services/ThreadImplementation_PC.h"

#include "Diagnostics/Sink.h"
#include "Diagnostics/Unstoppable.h"
#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"
#include "services/RobustMutex_PC.h"
#include "services/ThreadKiller_PC.h"

#include <atomic>
#include <chrono>
#include <cxxabi.h>
#include <mutex>
#include <pthread.h>
#include <thread>
#include <utility>
#include <vector>

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

    /// Only after this does the thread run none of the plug-in's code. It is past being stopped by then.
    void Join() {
        if (!std::exchange(gone, true)) ::pthread_join(thread, nullptr);
    }

    Runnable* object;
    pthread_t thread{};
    /// Joined, or ended by force and so never to be joined.
    bool gone = false;
    std::atomic<long> exitCode = stillActive;
    std::atomic<bool> ended = false;
};

ThreadImplementation_PC::ThreadImplementation_PC() = default;
ThreadImplementation_PC::~ThreadImplementation_PC() { LetGo(); }

/// Running threads that nobody holds any more.
struct ThreadImplementation_PC::LeftBehind {
    static LeftBehind& Instance() {
        static LeftBehind all;
        return all;
    }

    void JoinEnded() {
        std::erase_if(threads, [](auto const& started) {
            if (started->ended) started->Join();
            return started->gone;
        });
    }

    std::mutex guard;
    std::vector<std::shared_ptr<Started>> threads;
};

void ThreadImplementation_PC::LetGo() {
    if (!started_) return;
    if (started_->ended) started_->Join();
    if (!started_->gone) {
        Unstoppable const whole;
        LeftBehind& all = LeftBehind::Instance();
        std::lock_guard const lock(all.guard);
        all.JoinEnded();
        all.threads.push_back(started_);
    }
    started_.reset();
}

long ThreadImplementation_PC::GetLeftBehind() {
    Unstoppable const whole;
    LeftBehind& all = LeftBehind::Instance();
    std::lock_guard const lock(all.guard);
    all.JoinEnded();
    return static_cast<long>(all.threads.size());
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
    if (!started_) return;
    if (!started_->ended && waitMilliseconds > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(waitMilliseconds));
    if (started_->ended) {
        started_->Join();
        return;
    }
    started_->gone = KillThread(started_->thread, started_->ended, patienceWithForce);
    if (!started_->gone) {
        Diagnostics::Report("ThreadImplementation::Stop", "the thread can't be ended and runs on");
        return;
    }
    if (started_->ended.exchange(true)) return;
    started_->exitCode = exitCodeOfForce;
    RobustMutex::ReleaseThoseOfDeadThreads();
}

bool ThreadImplementation_PC::IsRunning() const { return started_ && !started_->ended; }

long ThreadImplementation_PC::GetExitCode() const {
    return started_ ? started_->exitCode.load() : stillActive;
}

} // namespace Utilities
