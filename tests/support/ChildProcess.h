#pragma once

#include <grp.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tests {

/// A user without rights, by number.
constexpr uid_t nobody = 65534;

/// Runs `body` in a child process and returns its number.
template <class Body> pid_t Fork(Body body) {
    pid_t const child = ::fork();
    if (child == 0) {
        body();
        ::_exit(0);
    }
    return child;
}

/// What `body` returns in a child process, which is another user there if this one is the superuser; -1 if
/// the process is killed. Files that it needs must be `nobody`'s if this process is the superuser.
template <class Body> int RunUnprivileged(Body body, uid_t user = nobody) {
    pid_t const child = ::fork();
    if (child == 0) {
        bool const changed =
            ::geteuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(user) == 0 && ::setuid(user) == 0);
        ::_exit(changed ? body() : 99);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace Tests
