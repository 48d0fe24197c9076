#pragma once

#include <csignal>
#include <cstddef>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tests {

/// Sanitizers reserve more than any limit allows, and take a multiple of the time.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool hasBoundedMemory = false;
#else
inline constexpr bool hasBoundedMemory = true;
#endif

/// Address space of this process.
inline std::size_t OwnBytes() {
    std::ifstream file("/proc/self/statm");
    std::size_t pages = 0;
    file >> pages;
    return pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

/// Whether `body` is true in a child process that gets `bytes` more memory than it has, and `seconds` of
/// processor time; what takes more throws `std::bad_alloc` or is killed.
template <class Body> bool HoldsWithin(std::size_t bytes, unsigned seconds, Body body) {
    pid_t const child = ::fork();
    if (child == 0) {
        auto const bound = [](int what, rlim_t value) {
            rlimit const limit{value, value};
            return ::setrlimit(static_cast<__rlimit_resource>(what), &limit) == 0;
        };
        bool good = bound(RLIMIT_CPU, hasBoundedMemory ? seconds : 20 * seconds) &&
                    (!hasBoundedMemory || bound(RLIMIT_AS, OwnBytes() + bytes));
        try {
            good = good && body();
        } catch (...) {
            good = false;
        }
        ::_exit(good ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// The bounds of everything that is refused.
template <class Body> bool EndsSoon(Body body) {
    constexpr std::size_t bytes = std::size_t{256} << 20;
    constexpr unsigned seconds = 4; // of a busy machine; on an idle one it is a fraction of one
    return HoldsWithin(bytes, seconds, body);
}

} // namespace Tests
