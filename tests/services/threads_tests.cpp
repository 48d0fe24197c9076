#include "Diagnostics/Sink.h"
#include "Utilities/Thread.h"
#include "gui/shell/MessageService_PC.h"
#include "services/ThreadImplementation_PC.h"
#include "tests/services/MutexSupport.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <malloc.h>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Tests::Named;
using Tests::OtherHolder;
using Utilities::Mutex;
using Utilities::String;
using Utilities::ThreadImplementation_PC;

/// Runs a function as the object of a thread.
template <class Body> class Job : public Utilities::Runnable {
public:
    explicit Job(Body body) : body_(body) {}
    long Run() override { return body_(); }

private:
    Body body_;
};

void WaitForEnd(ThreadImplementation_PC const& thread) {
    for (int i = 0; i < 5000 && thread.GetExitCode() == ThreadImplementation_PC::stillActive; ++i)
        std::this_thread::sleep_for(1ms);
}

TEST(Thread, EndsWithTheResultOfItsObject) {
    Job returning([]() -> long { return 7; });
    Job throwing([]() -> long { throw std::runtime_error("in a thread"); });
    Job throwingAnything([]() -> long { throw 1; });
    struct {
        Utilities::Runnable* object;
        long code;
    } const rows[] = {{&returning, 7}, {&throwing, -1}, {&throwingAnything, -1}};
    for (auto const& row : rows) {
        ThreadImplementation_PC thread;
        thread.Stop(100000); // before Start nothing happens, and at once
        thread.Start(row.object);
        WaitForEnd(thread);
        thread.Stop(100000); // and so it is after the end
        EXPECT_EQ(thread.GetExitCode(), row.code);
    }
}

TEST(Thread, StopGivesTheWholeTimeAndUsesNoForceIfItIsNotNeeded) {
    Job job([]() -> long {
        std::this_thread::sleep_for(20ms);
        return 3;
    });
    ThreadImplementation_PC thread;
    thread.Start(&job);
    auto const start = std::chrono::steady_clock::now();
    thread.Stop(200);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 200ms);
    EXPECT_EQ(thread.GetExitCode(), 3);
}

// The thread sanitizer delays signals, so that a thread can't be met in the middle of its work. Clang links
// the address sanitizer's allocator into the program, whose code then can't be told from it.
// The leak check of the address sanitizer waits at the exit for threads that were ended behind its back.
#if !defined(__SANITIZE_THREAD__) && !defined(__SANITIZE_ADDRESS__)
#if defined(__has_feature)
#define NORVELIAN_ALLOCATOR_IN_PROGRAM __has_feature(address_sanitizer)
#else
#define NORVELIAN_ALLOCATOR_IN_PROGRAM 0
#endif
#if !NORVELIAN_ALLOCATOR_IN_PROGRAM
TEST(Thread, AForcedStopEndsAThreadWhereverItIsAndLeavesTheProcessSound) {
    // All threads share one heap, so that a lock left behind in it stops the test.
    ::mallopt(M_ARENA_MAX, 1);
    Mutex held;
    std::atomic<long> beats = 0;
    Job computing([&]() -> long {
        held.Lock(-1);
        for (;;) ++beats;
    });
    Job allocating([&]() -> long {
        held.Lock(-1);
        for (;; ++beats) std::make_unique<std::vector<char>>(static_cast<std::size_t>(beats % 100000));
    });
    Job swallowing([&]() -> long {
        held.Lock(-1);
        for (;; ++beats) try {
                throw std::runtime_error("caught by its own thread");
            } catch (...) {
                std::this_thread::sleep_for(10us);
            }
    });
    Job sleeping([&]() -> long {
        held.Lock(-1);
        ++beats;
        for (;;) std::this_thread::sleep_for(1h);
    });
    GUI::MessageService_PC service;
    Job posting([&]() -> long {
        held.Lock(-1);
        for (;; ++beats) service.PostMessage("Beat", 1L);
    });
    // A sink with a lock of its own, in which its thread spends most of its time.
    std::mutex ofSink;
    std::atomic<long> reports = 0;
    auto const former = Diagnostics::SetSink([&](auto const&, auto const&) {
        std::lock_guard const lock(ofSink);
        for (int i = 0; i < 1000; ++i) ++reports;
    });
    Job reporting([&]() -> long {
        held.Lock(-1);
        for (;; ++beats) Diagnostics::Report("test", "text");
    });
    Utilities::Runnable* const objects[] = {&computing, &allocating, &swallowing,
                                            &sleeping,  &posting,    &reporting};
    for (int round = 0; round < 300; ++round) {
        ThreadImplementation_PC thread;
        beats = 0;
        thread.Start(objects[round % 6]);
        while (beats == 0) std::this_thread::yield();
        thread.Stop(0);
        ASSERT_EQ(thread.GetExitCode(), 99999) << round;
        long const last = beats;
        EXPECT_TRUE(held.Lock(5000)) << "the dead thread's mutex is free";
        held.Unlock();
        std::thread([] { std::vector<std::string> used(1000, std::string(100, 'x')); }).join();
        EXPECT_EQ(beats, last) << "not one instruction more";
        service.PostMessage("Beat", 0L);
        Diagnostics::Report("test", "text");
    }
    Diagnostics::SetSink(former);
}
#endif
#endif

TEST(Thread, TheFrontRunsTheComponent) {
    std::atomic<int> runs = 0;
    Job job([&]() -> long { return ++runs; });
    Utilities::Thread thread;
    thread.Start(&job);
    for (int i = 0; i < 5000 && runs == 0; ++i) std::this_thread::sleep_for(1ms);
    thread.Stop(50);
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(thread.IsRunning());
    EXPECT_EQ(thread.GetExitCode(), 1);
}

#if !defined(__SANITIZE_THREAD__) && !defined(__SANITIZE_ADDRESS__)
TEST(Thread, AForcedStopFreesANamedMutexForOtherProcessesToo) {
    String const name = Named("forced");
    std::atomic<bool> locked = false;
    Job holding([&]() -> long {
        Mutex mutex(name);
        locked = mutex.Lock(0);
        for (;;) std::this_thread::sleep_for(1h);
    });
    ThreadImplementation_PC thread;
    thread.Start(&holding);
    while (!locked) std::this_thread::yield();
    thread.Stop(0);
    EXPECT_TRUE(OtherHolder(name).holds);
}

TEST(Thread, TellsWhatBecameOfAForcedStop) {
    std::atomic<bool> running = false;
    Job yielding([&]() -> long {
        running = true;
        for (;;) std::this_thread::sleep_for(1h);
    });
    // With all signals blocked it can't be reached.
    std::atomic<bool> mayEnd = false;
    Job deaf([&]() -> long {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_BLOCK, &all, nullptr);
        running = true;
        while (!mayEnd) std::this_thread::yield();
        return 5;
    });
    Utilities::Thread thread;
    EXPECT_FALSE(thread.IsRunning());
    thread.Start(&yielding);
    while (!running) std::this_thread::yield();
    thread.Stop(0);
    EXPECT_FALSE(thread.IsRunning());
    EXPECT_EQ(thread.GetExitCode(), 99999);

    running = false;
    thread.Start(&deaf);
    while (!running) std::this_thread::yield();
    thread.Stop(0);
    EXPECT_TRUE(thread.IsRunning());
    EXPECT_EQ(thread.GetExitCode(), Utilities::ThreadImplementation::stillActive);
    mayEnd = true;
    thread.Stop(200);
    EXPECT_FALSE(thread.IsRunning());
    EXPECT_EQ(thread.GetExitCode(), 5);
}
#endif

TEST(Thread, StopReturnsWhenTheThreadHasGoneAltogether) {
    // Destroyed by the thread's very end, after all code of its object and of the implementation.
    struct AtThreadEnd {
        ~AtThreadEnd() {
            std::this_thread::sleep_for(20ms);
            *ended = true;
        }
        std::atomic<bool>* ended = nullptr;
    };
    std::atomic<bool> ended = false;
    std::atomic<bool> returning = false;
    Job job([&]() -> long {
        static thread_local AtThreadEnd last;
        last.ended = &ended;
        returning = true;
        return 0;
    });
    ThreadImplementation_PC thread;
    thread.Start(&job);
    while (!returning) std::this_thread::yield();
    WaitForEnd(thread);
    thread.Stop(100000);
    EXPECT_TRUE(ended);
}

} // namespace
