#include "services/RobustMutex_PC.h"

#include "Diagnostics/Sink.h"
#include "Diagnostics/Unstoppable.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <pthread.h>
#include <string_view>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace Utilities {

namespace {

constexpr std::uint32_t readyMark = 0x4D555458;
/// Under contention the holder is nearly always on another processor and done within so many looks;
/// sleeping in the kernel and being woken costs more than they do.
constexpr int looksBeforeSleep = 100;

[[noreturn]] void ThrowError(int number, char const* what) {
    throw std::system_error(number, std::generic_category(), what);
}

/// FNV-1a, 64 bits, which gives the same number in every process.
std::uint64_t StableHash(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (char const c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return hash;
}

/// Any text as the name of a shared memory object: user, width of a pointer (the layout of a mutex hangs
/// on it), the readable part of the name, and a hash of all of it.
std::string ObjectName(std::string const& name) {
    constexpr std::size_t longestReadablePart = 80;
    std::string readable = name.substr(0, longestReadablePart);
    auto const isPlain = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    std::replace_if(readable.begin(), readable.end(), std::not_fn(isPlain), '_');
    std::array<char, 16> digits{};
    auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), StableHash(name), 16).ptr;
    return "/norvelian-" + std::to_string(::geteuid()) + '-' + std::to_string(sizeof(void*) * 8) + '-' +
           readable + '-' + std::string(digits.data(), end);
}

class SharedMemoryFile {
public:
    explicit SharedMemoryFile(std::string const& name)
        : number_(::shm_open(name.c_str(), O_RDWR | O_CREAT, 0600)) {
        if (number_ < 0) ThrowError(errno, "shm_open");
    }
    SharedMemoryFile(SharedMemoryFile const&) = delete;
    SharedMemoryFile& operator=(SharedMemoryFile const&) = delete;
    ~SharedMemoryFile() {
        // A mapping keeps the open file, and with it the lock, beyond the close.
        ::flock(number_, LOCK_UN);
        ::close(number_);
    }

    /// Alone with the file as long as this object lives; the lock goes with a process that dies.
    void* MapAlone(std::size_t size) const {
        struct stat information {};
        if (::fstat(number_, &information) != 0) ThrowError(errno, "fstat");
        // All users name shared memory in one place: what another one put there isn't ours to trust.
        if (information.st_uid != ::geteuid()) ThrowError(EACCES, "shared memory of another user");
        while (::flock(number_, LOCK_EX) != 0)
            if (errno != EINTR) ThrowError(errno, "flock");
        if (::ftruncate(number_, static_cast<off_t>(size)) != 0) ThrowError(errno, "ftruncate");
        void* const address = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, number_, 0);
        if (address == MAP_FAILED) ThrowError(errno, "mmap");
        return address;
    }

private:
    int number_;
};

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

/// As it lies in memory, shared or not.
struct RobustMutex::Memory {
    /// Set once the mutex has been made; shared memory starts with zeros.
    std::uint32_t mark;
    pthread_mutex_t mutex;

    void Make(int sharing) {
        pthread_mutexattr_t attributes;
        ::pthread_mutexattr_init(&attributes);
        ::pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
        ::pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
        ::pthread_mutexattr_setpshared(&attributes, sharing);
        int const failure = ::pthread_mutex_init(&mutex, &attributes);
        ::pthread_mutexattr_destroy(&attributes);
        if (failure != 0) ThrowError(failure, "pthread_mutex_init");
        mark = readyMark;
    }
};

RobustMutex RobustMutex::MakePrivate() {
    auto memory = std::shared_ptr<Memory>(std::make_unique<Memory>().release(), [](Memory* made) {
        if (made->mark == readyMark) ::pthread_mutex_destroy(&made->mutex);
        std::default_delete<Memory>{}(made);
    });
    memory->Make(PTHREAD_PROCESS_PRIVATE);
    return RobustMutex(std::move(memory));
}

std::shared_ptr<RobustMutex::Memory> RobustMutex::MapShared(std::string const& name) {
    SharedMemoryFile const file(ObjectName(name));
    auto memory = std::shared_ptr<Memory>(static_cast<Memory*>(file.MapAlone(sizeof(Memory))),
                                          [](Memory* mapped) { ::munmap(mapped, sizeof(Memory)); });
    // A maker that died half-way left the mark unset.
    if (memory->mark != readyMark) memory->Make(PTHREAD_PROCESS_SHARED);
    return memory;
}

RobustMutex RobustMutex::OpenShared(std::string const& name) {
    Unstoppable const whole;
    static std::mutex guard;
    static std::map<std::string, RobustMutex> known;
    std::lock_guard const lock(guard);
    if (auto const found = known.find(name); found != known.end()) return found->second;
    auto const opened = [&] {
        try {
            return RobustMutex(MapShared(name));
        } catch (std::system_error const&) {
            Diagnostics::DropException("RobustMutex::OpenShared");
            return MakePrivate();
        }
    }();
    return known.emplace(name, opened).first->second;
}

bool RobustMutex::Lock(long timeout) const {
    pthread_mutex_t* const mutex = &memory_->mutex;
    int result = ::pthread_mutex_trylock(mutex);
    if (result == EBUSY && timeout != 0) {
        for (int looks = 0; result == EBUSY && looks < looksBeforeSleep; ++looks)
            result = ::pthread_mutex_trylock(mutex);
    }
    if (result == EBUSY && timeout > 0) result = LockWithin(mutex, timeout);
    if (result == EBUSY && timeout < 0) result = ::pthread_mutex_lock(mutex);
    if (result == EOWNERDEAD) result = ::pthread_mutex_consistent(mutex);
    return result == 0;
}

int RobustMutex::Unlock() const { return ::pthread_mutex_unlock(&memory_->mutex); }

} // namespace Utilities
