#include "services/RobustMutex_PC.h"

#include "Diagnostics/Sink.h"
#include "Diagnostics/Unstoppable.h"
#include "Utilities/ProgramDirectory.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <pthread.h>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace Utilities {

namespace {

using Clock = std::chrono::steady_clock;

/// Names that begin so are of one process alone.
constexpr std::string_view localPrefix = "Local\\";
/// Under contention the holder is nearly always on another processor and done within so many looks;
/// sleeping in the kernel and being woken costs more than they do.
constexpr int looksBeforeSleep = 100;
/// A lock on a file can't be waited for with a time-out, so it is asked for again and again.
constexpr std::chrono::microseconds shortestPause(50);
constexpr std::chrono::microseconds longestPause(1000);

[[noreturn]] void ThrowError(int number, std::string const& what) {
    throw std::system_error(number, std::generic_category(), what);
}

/// FNV-1a, 64 bits, which gives the same number in every process.
std::uint64_t StableHash(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (char const c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return hash;
}

/// Any text as the name of a file: its readable part, and a hash of all of it.
std::string LockFileName(std::string const& name) {
    constexpr std::size_t longestReadablePart = 80;
    std::string readable = name.substr(0, longestReadablePart);
    auto const isPlain = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    std::replace_if(readable.begin(), readable.end(), std::not_fn(isPlain), '_');
    std::array<char, 16> digits{};
    auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), StableHash(name), 16).ptr;
    return readable + '-' + std::string(digits.data(), end) + ".lock";
}

/// Throws if what was opened isn't ours alone.
void CheckIsOwn(int opened, bool isRightKind(mode_t mode), std::string const& path) {
    struct stat status {};
    if (opened < 0 || ::fstat(opened, &status) != 0) ThrowError(errno, path);
    bool const isOwn = status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    if (isOwn && isRightKind(status.st_mode)) return;
    ::close(opened);
    ThrowError(EPERM, path + " isn't this user's own");
}

/// An open file in the user's own folder. Locks on it belong to the process, and a child that was forked
/// has none of them.
int OpenLockFile(std::string const& name) {
    std::string const configuration = GetConfigurationDirectory();
    if (configuration.empty()) ThrowError(ENOENT, "the user's configuration folder");
    std::filesystem::create_directories(configuration);
    std::string const folder = configuration + "/norvelian";
    ::mkdir(folder.c_str(), S_IRWXU);
    int const directory = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    CheckIsOwn(
        directory, [](mode_t mode) { return S_ISDIR(mode); }, folder);
    std::string const fileName = LockFileName(name);
    int const file =
        ::openat(directory, fileName.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, 0600);
    int const failure = errno;
    ::close(directory);
    errno = failure;
    CheckIsOwn(
        file, [](mode_t mode) { return S_ISREG(mode); }, folder + "/" + fileName);
    return file;
}

/// The bytes of the file that are locked. Who waits for the mutex locks the queue meanwhile, and nobody
/// passes by it: a process that lets go and asks again at once would otherwise always come first.
enum class Byte : std::uint8_t { Queue, Mutex };

struct flock LockOf(Byte byte, short kind) {
    struct flock lock {};
    lock.l_type = kind;
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(byte);
    lock.l_len = 1;
    return lock;
}

bool TryLockByte(int file, Byte byte) {
    auto lock = LockOf(byte, F_WRLCK);
    return ::fcntl(file, F_SETLK, &lock) == 0;
}

void UnlockByte(int file, Byte byte) {
    auto lock = LockOf(byte, F_UNLCK);
    ::fcntl(file, F_SETLK, &lock);
}

bool IsLockedByAnother(int file, Byte byte) {
    auto lock = LockOf(byte, F_WRLCK);
    return ::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

/// Asks for a lock until `end`, which may be never.
bool LockByteWithin(int file, Byte byte, std::optional<Clock::time_point> end) {
    for (auto pause = shortestPause; !TryLockByte(file, byte); pause = std::min(pause * 2, longestPause)) {
        if (end && Clock::now() >= *end) return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

int LockWithin(pthread_mutex_t* mutex, long milliseconds) {
#if defined(__SANITIZE_THREAD__)
    // The thread sanitizer knows no robust lock with a time-out.
    int result = EBUSY;
    for (auto const end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
         result == EBUSY && std::chrono::steady_clock::now() < end;
         std::this_thread::sleep_for(std::chrono::microseconds(100)))
        result = ::pthread_mutex_trylock(mutex);
    return result;
#else
    timespec deadline{};
    ::clock_gettime(CLOCK_MONOTONIC, &deadline);
    deadline.tv_sec += milliseconds / 1000;
    deadline.tv_nsec += milliseconds % 1000 * 1000000;
    if (deadline.tv_nsec >= 1000000000) {
        deadline.tv_nsec -= 1000000000;
        ++deadline.tv_sec;
    }
    return ::pthread_mutex_clocklock(mutex, CLOCK_MONOTONIC, &deadline);
#endif
}

} // namespace

struct RobustMutex::State {
    explicit State(int lockFile) : file(lockFile) {
        pthread_mutexattr_t attributes;
        ::pthread_mutexattr_init(&attributes);
        ::pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
        ::pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
        int const failure = ::pthread_mutex_init(&mutex, &attributes);
        ::pthread_mutexattr_destroy(&attributes);
        if (failure != 0) ThrowError(failure, "pthread_mutex_init");
    }
    State(State const&) = delete;
    State& operator=(State const&) = delete;
    ~State() {
        ::pthread_mutex_destroy(&mutex);
        if (file >= 0) ::close(file);
    }

    int LockThread(long timeout) {
        int result = ::pthread_mutex_trylock(&mutex);
        if (result == EBUSY && timeout != 0) {
            for (int looks = 0; result == EBUSY && looks < looksBeforeSleep; ++looks)
                result = ::pthread_mutex_trylock(&mutex);
        }
        if (result == EBUSY && timeout > 0) result = LockWithin(&mutex, timeout);
        if (result == EBUSY && timeout < 0) result = ::pthread_mutex_lock(&mutex);
        if (result != EOWNERDEAD) return result;
        // The process still has what the dead thread had locked of the file.
        depth = 0;
        if (file >= 0) UnlockFile();
        return ::pthread_mutex_consistent(&mutex);
    }
    bool LockFile(long timeout) const {
        // Whoever waits has had a chance if this process held it for a moment only; looking costs as much as
        // locking.
        bool const othersFirst = heldForLong && IsLockedByAnother(file, Byte::Queue);
        if (!othersFirst && TryLockByte(file, Byte::Mutex)) return true;
        if (timeout == 0) return false;
        std::optional<Clock::time_point> end;
        if (timeout > 0) end = Clock::now() + std::chrono::milliseconds(timeout);
        if (!LockByteWithin(file, Byte::Queue, end)) return false;
        bool const gained = LockByteWithin(file, Byte::Mutex, end);
        UnlockByte(file, Byte::Queue);
        return gained;
    }
    /// Also what a thread has left that died while it waited.
    void UnlockFile() const {
        UnlockByte(file, Byte::Mutex);
        UnlockByte(file, Byte::Queue);
    }

    pthread_mutex_t mutex{};
    /// Below 0 for a mutex of this process alone.
    int const file;
    /// How often the holder has locked it.
    long depth = 0;
    Clock::time_point lockedAt;
    bool heldForLong = false;
};

namespace {

/// All that were opened, with the lock for them.
template <class Mutex> struct Opened {
    static Opened& Instance() {
        static Opened all;
        return all;
    }
    std::mutex guard;
    std::map<std::string, Mutex> byName;
};

} // namespace

RobustMutex RobustMutex::Make(int file) {
    try {
        return RobustMutex(std::make_shared<State>(file));
    } catch (...) {
        if (file >= 0) ::close(file);
        throw;
    }
}

RobustMutex RobustMutex::MakePrivate() { return Make(-1); }

RobustMutex RobustMutex::OpenShared(std::string const& name) {
    std::string failure;
    auto opened = [&] {
        Unstoppable const whole;
        auto& all = Opened<RobustMutex>::Instance();
        std::lock_guard const lock(all.guard);
        if (auto const found = all.byName.find(name); found != all.byName.end()) return found->second;
        int file = -1;
        try {
            if (!name.starts_with(localPrefix)) file = OpenLockFile(name);
        } catch (std::system_error const& caught) {
            failure = caught.what();
        }
        return all.byName.emplace(name, Make(file)).first->second;
    }();
    if (!failure.empty())
        Diagnostics::Report("RobustMutex::OpenShared",
                            ("the mutex " + name + " excludes no other process: " + failure).c_str());
    return opened;
}

void RobustMutex::ReleaseThoseOfDeadThreads() {
    Unstoppable const whole;
    auto& all = Opened<RobustMutex>::Instance();
    std::lock_guard const lock(all.guard);
    for (auto const& [name, mutex] : all.byName) {
        State& state = *mutex.state_;
        int const result = ::pthread_mutex_trylock(&state.mutex);
        if (result == EOWNERDEAD) {
            ::pthread_mutex_consistent(&state.mutex);
            state.depth = 0;
            if (state.file >= 0) state.UnlockFile();
        }
        if (result == 0 || result == EOWNERDEAD) ::pthread_mutex_unlock(&state.mutex);
    }
}

bool RobustMutex::Lock(long timeout) const {
    State& state = *state_;
    if (state.file < 0) return state.LockThread(timeout) == 0;
    if (state.LockThread(timeout) != 0) return false;
    if (state.depth > 0) {
        ++state.depth;
        return true;
    }
    if (state.LockFile(timeout)) {
        state.depth = 1;
        state.lockedAt = Clock::now();
        return true;
    }
    ::pthread_mutex_unlock(&state.mutex);
    return false;
}

int RobustMutex::Unlock() const {
    Unstoppable const whole;
    if (state_->file >= 0 && --state_->depth == 0) {
        state_->heldForLong = Clock::now() - state_->lockedAt > shortestPause;
        UnlockByte(state_->file, Byte::Mutex);
    }
    return ::pthread_mutex_unlock(&state_->mutex);
}

} // namespace Utilities
