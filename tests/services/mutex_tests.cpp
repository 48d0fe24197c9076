#include "Diagnostics/Sink.h"
#include "Utilities/Mutex.h"
#include "gui/shell/MessageService_PC.h"
#include "tests/services/MutexSupport.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Tests::Named;
using Tests::OtherHolder;
using Utilities::Mutex;
using Utilities::String;

bool LockElsewhere(Mutex& mutex, long timeout) {
    bool gained = false;
    std::thread([&] {
        gained = mutex.Lock(timeout);
        if (gained) mutex.Unlock();
    }).join();
    return gained;
}

TEST(Mutex, ExcludesOtherThreadsAndCountsItsHolders) {
    String const name = Named("count");
    Mutex first(name);
    Mutex second(name);
    Mutex other(Named("other"));
    Mutex unnamed;
    ASSERT_TRUE(first.Lock(0));
    ASSERT_TRUE(second.Lock(0)) << "the holder may lock again, also through another object";
    EXPECT_FALSE(LockElsewhere(first, 0));
    EXPECT_TRUE(LockElsewhere(other, 0));
    EXPECT_TRUE(LockElsewhere(unnamed, -1));

    auto const start = std::chrono::steady_clock::now();
    EXPECT_FALSE(LockElsewhere(second, 50));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 50ms);

    first.Unlock();
    EXPECT_FALSE(LockElsewhere(first, 0));
    second.Unlock();
    EXPECT_TRUE(LockElsewhere(first, 0));
}

TEST(Mutex, AnUnlockThatFailsIsADiagnosticText) {
    std::string seen;
    auto const former =
        Diagnostics::SetSink([&](auto const&, auto const& what) { seen = what.GetCharPointer(); });
    Mutex().Unlock();
    Diagnostics::SetSink(former);
    EXPECT_EQ(seen, "Could not unlock CMutex. Error number: 1");
}

TEST(Mutex, IsFreeAgainWhenItsObjectThreadOrProcessDies) {
    String const name = Named("death");
    Mutex mutex(name);
    { // the object
        Mutex dying(name);
        ASSERT_TRUE(dying.Lock(0));
    }
    EXPECT_TRUE(LockElsewhere(mutex, 0));

    Mutex unnamed;
    std::thread([&] { ASSERT_TRUE(mutex.Lock(0) && unnamed.Lock(0)); }).join();
    EXPECT_TRUE(LockElsewhere(mutex, 1000));
    EXPECT_TRUE(LockElsewhere(unnamed, 1000));

    for (int round = 0; round < 20; ++round) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        pid_t const child = ::fork();
        if (child == 0) {
            Mutex held(name);
            bool const locked = held.Lock(1000);
            if (::write(ready[1], &locked, 1) == 1)
                for (;;) ::pause();
        }
        bool locked = false;
        ASSERT_EQ(::read(ready[0], &locked, 1), 1);
        ASSERT_TRUE(locked);
        EXPECT_FALSE(mutex.Lock(0)) << "another process holds it";
        ::kill(child, SIGKILL);
        ASSERT_TRUE(mutex.Lock(10000));
        mutex.Unlock();
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        ::close(ready[0]);
        ::close(ready[1]);
    }
}

TEST(Mutex, AProcessThatUsesANameHoldsUpNoOtherThatComesToIt) {
    String const name = Named("resident");
    int told[2];
    int released[2];
    ASSERT_EQ(::pipe(told), 0);
    ASSERT_EQ(::pipe(released), 0);
    pid_t const resident = ::fork();
    if (resident == 0) {
        ::close(released[1]);
        Mutex const mutex(name);
        char mark = 'x';
        bool const going = ::write(told[1], &mark, 1) == 1 && ::read(released[0], &mark, 1) == 0;
        ::_exit(going ? 0 : 1);
    }
    char mark = 0;
    ASSERT_EQ(::read(told[0], &mark, 1), 1);
    pid_t const comer = ::fork();
    if (comer == 0) {
        ::alarm(5);
        ::_exit(Mutex(name).Lock(1000) ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(comer, &status, 0), comer);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    ::close(released[1]);
    ASSERT_EQ(::waitpid(resident, &status, 0), resident);
    EXPECT_EQ(status, 0);
}

TEST(Mutex, KeepsProcessesApartFromTheFirstUseOfAName) {
    // Each round all children make the mutex at once; the count is a plain variable in shared memory
    // that only the mutex protects, and every change of it gives the others time to come between.
    auto* const count = static_cast<int volatile*>(
        ::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    ASSERT_NE(count, MAP_FAILED);
    for (int round = 0; round < 5; ++round) {
        String const name = Named(("race" + std::to_string(round)).c_str());
        *count = 0;
        std::vector<pid_t> children;
        for (int c = 0; c < 4; ++c) {
            children.push_back(::fork());
            if (children.back() != 0) continue;
            int failures = 0;
            for (int i = 0; i < 25; ++i) {
                Mutex mutex(name);
                failures += !mutex.Lock(10000);
                int const here = *count;
                std::this_thread::yield();
                *count = here + 1;
                mutex.Unlock();
            }
            ::_exit(failures == 0 ? 0 : 1);
        }
        for (pid_t const child : children) {
            int status = -1;
            ASSERT_EQ(::waitpid(child, &status, 0), child);
            EXPECT_EQ(status, 0);
        }
        EXPECT_EQ(*count, 100);
    }
    ::munmap(const_cast<int*>(count), sizeof(int));
}

/// Runs `body` in a process that is number 1 of a new namespace of processes.
template <class Body> pid_t ForkNumberOne(Body body) {
    return Tests::Fork([&] {
        if (::unshare(CLONE_NEWPID) != 0) ::_exit(99);
        pid_t const one = ::fork();
        if (one == 0) ::_exit(body());
        int status = -1;
        ::waitpid(one, &status, 0);
        ::_exit(WIFEXITED(status) ? WEXITSTATUS(status) : 98);
    });
}

int ExitCodeOf(pid_t process) {
    int status = -1;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Mutex, ExcludesAHolderWhoHasTheSameNumberInAnotherNamespace) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser makes namespaces";
    String const name = Named("namespaces");
    int held[2];
    int release[2];
    ASSERT_EQ(::pipe(held), 0);
    ASSERT_EQ(::pipe(release), 0);
    char mark = 'x';
    pid_t const holder = ForkNumberOne([&] {
        Mutex mutex(name);
        bool const locked = mutex.Lock(0);
        bool const told = ::write(held[1], &mark, 1) == 1 && ::read(release[0], &mark, 1) == 1;
        return locked && told ? 0 : 1;
    });
    ASSERT_EQ(::read(held[0], &mark, 1), 1);
    EXPECT_EQ(ExitCodeOf(ForkNumberOne([&] { return Mutex(name).Lock(0) ? 1 : 0; })), 0);
    ASSERT_EQ(::write(release[1], &mark, 1), 1);
    EXPECT_EQ(ExitCodeOf(holder), 0);
}

TEST(Mutex, TakesNoFileThatAnotherUserCanReach) {
    namespace fs = std::filesystem;
    std::string const former = ::getenv("XDG_CONFIG_HOME");
    Tests::TemporaryDirectory const directory;
    std::string const folder = directory / "norvelian";
    ::setenv("XDG_CONFIG_HOME", directory.GetPath().c_str(), 1);
    int number = 0;
    /// Whether a mutex of a new name is shared with another process; if it isn't, that is reported.
    auto const isShared = [&] {
        String const name = Named(("planted" + std::to_string(++number)).c_str());
        OtherHolder const other(name);
        std::string reported;
        auto const sink =
            Diagnostics::SetSink([&](auto const&, auto const& what) { reported = what.GetCharPointer(); });
        bool const gained = Mutex(name).Lock(0);
        Diagnostics::SetSink(sink);
        EXPECT_EQ(gained, reported.find("excludes no other process") != std::string::npos) << reported;
        return !gained;
    };
    EXPECT_TRUE(isShared());
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    fs::permissions(folder, fs::perms::all);
    EXPECT_FALSE(isShared()) << "a folder that everybody may write to";
    if (::geteuid() == 0) {
        fs::permissions(folder, fs::perms::owner_all);
        ASSERT_EQ(::chown(folder.c_str(), Tests::nobody, Tests::nobody), 0);
        EXPECT_FALSE(isShared()) << "a folder of someone else";
    }
    fs::rename(folder, directory / "elsewhere");
    fs::create_directory_symlink(directory / "elsewhere", folder);
    EXPECT_FALSE(isShared()) << "a link";
    ::setenv("XDG_CONFIG_HOME", former.c_str(), 1);
}

TEST(Mutex, AProcessThatLocksAgainAtOnceLetsOthersComeFirst) {
    String const name = Named("fair");
    pid_t const greedy = Tests::Fork([&] {
        for (Mutex mutex(name);; mutex.Unlock()) {
            mutex.Lock(-1);
            std::this_thread::sleep_for(5ms);
        }
    });
    Mutex mutex(name);
    for (int i = 0; i < 10; ++i) {
        std::this_thread::sleep_for(10ms);
        EXPECT_TRUE(mutex.Lock(3000)) << i;
        mutex.Unlock();
    }
    ::kill(greedy, SIGKILL);
    EXPECT_EQ(::waitpid(greedy, nullptr, 0), greedy);
}

TEST(Mutex, NoOtherProcessHoldsUpPosting) {
    OtherHolder const other("NVBMessageService");
    OtherHolder const local("Local\\NVBMessageService");
    EXPECT_TRUE(other.holds && local.holds);
    GUI::MessageService_PC service;
    auto const start = std::chrono::steady_clock::now();
    service.PostMessage("Beat", 1L);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
}

} // namespace
