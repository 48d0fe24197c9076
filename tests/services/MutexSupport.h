#pragma once

#include "Utilities/Mutex.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <unistd.h>

namespace Tests {

/// A name of this process alone, so that runs beside each other don't meet.
inline Utilities::String Named(char const* purpose) {
    return ("test " + std::to_string(::getpid()) + purpose).c_str();
}

/// The files of named mutexes outlive their processes; those of a test are of no use to anybody.
class OwnConfiguration : public testing::Environment {
    void SetUp() override { ::setenv("XDG_CONFIG_HOME", directory_.GetPath().c_str(), 1); }

    TemporaryDirectory const directory_;
};
inline auto* const ownConfiguration =
    testing::AddGlobalTestEnvironment(std::make_unique<OwnConfiguration>().release());

/// A process that holds the mutex of that name for as long as this lives.
struct OtherHolder {
    explicit OtherHolder(Utilities::String const& name) {
        int ready[2];
        EXPECT_EQ(::pipe(ready), 0);
        process = Fork([&] {
            Utilities::Mutex held(name);
            bool const locked = held.Lock(1000);
            if (::write(ready[1], &locked, 1) == 1)
                for (;;) ::pause();
        });
        EXPECT_EQ(::read(ready[0], &holds, 1), 1);
        ::close(ready[0]);
        ::close(ready[1]);
    }
    OtherHolder(OtherHolder const&) = delete;
    OtherHolder& operator=(OtherHolder const&) = delete;
    ~OtherHolder() {
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
    }

    pid_t process = 0;
    bool holds = false;
};

} // namespace Tests
