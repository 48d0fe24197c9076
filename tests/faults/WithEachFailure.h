#pragma once

#include "Diagnostics/Sink.h"
#include "tests/faults/SystemCalls.h"

#include <exception>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace Tests {

inline std::ptrdiff_t OpenFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

/// How many reports the sink has had. It allocates nothing.
inline int reports = 0;

/// Runs `scenario` with each call of these kinds failing in turn, `prepare` before each run and `check(told)`
/// after it: whether an exception or a report told of the failure.
inline void WithEachFailure(
    std::vector<SystemCalls::Call> const& calls, std::function<void()> const& scenario,
    std::function<void(bool told)> const& check, std::function<void()> const& prepare = [] {}) {
    auto const former = Diagnostics::SetSink([](auto const&, auto const&) { ++reports; });
    scenario(); // what is made once isn't a leak
    int failures = 0;
    for (SystemCalls::Call const call : calls) {
        long n = 1;
        for (bool reached = true; reached; ++n) {
            SCOPED_TRACE(std::string(SystemCalls::NameOf(call)) + " " + std::to_string(n));
            prepare();
            auto const open = OpenFiles();
            reports = 0;
            bool thrown = false;
            SystemCalls::FailAt(call, n);
            try {
                scenario();
            } catch (std::exception const&) {
                thrown = true;
            }
            reached = SystemCalls::StopFailing();
            failures += reached ? 1 : 0;
            EXPECT_EQ(OpenFiles(), open);
            check(thrown || reports > 0);
            if (testing::Test::HasFailure()) break;
        }
        ASSERT_LT(n, 1000000);
    }
    EXPECT_GT(failures, 0) << "nothing of it was reached";
    Diagnostics::SetSink(former);
}

} // namespace Tests
