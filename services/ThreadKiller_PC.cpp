#include "services/ThreadKiller_PC.h"

#include "Diagnostics/Unstoppable.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <link.h>
#include <mutex>
#include <sys/auxv.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>

namespace Utilities {

namespace {

using Address = std::uintptr_t;

struct Range {
    Address begin = 0;
    Address end = 0;
    bool Holds(Address address) const { return address >= begin && address < end; }
};

/// The libraries whose own locks a dead thread must not hold. With a sanitizer, or an allocator that is
/// linked in, `malloc` is in another one than `read`.
struct GuardedCode {
    std::array<Range, 3> ranges;
    bool Holds(Address address) const {
        for (Range const& range : ranges)
            if (range.Holds(address)) return true;
        return false;
    }
};

Range RangeOfLibraryAround(Address address) {
    struct Search {
        Address address;
        Range found;
    } search{address, {}};
    ::dl_iterate_phdr(
        [](dl_phdr_info* library, std::size_t, void* data) {
            auto& wanted = *static_cast<Search*>(data);
            for (int i = 0; i < library->dlpi_phnum; ++i) {
                auto const& segment = library->dlpi_phdr[i];
                Address const begin = library->dlpi_addr + segment.p_vaddr;
                Range const range{begin, begin + segment.p_memsz};
                if (segment.p_type != PT_LOAD || !range.Holds(wanted.address)) continue;
                wanted.found = range;
                return 1;
            }
            return 0;
        },
        &search);
    return search.found;
}

/// Filled before the first signal is sent; the handler only reads it.
GuardedCode& Guarded() {
    static GuardedCode code;
    return code;
}

/// The one thread that the handler may end, 0 if there is none.
std::atomic<pthread_t> condemned{};
/// The kernel's number of the thread that the handler has ended, 0 if it hasn't yet.
std::atomic<pid_t> killed = 0;
/// How often the handler came at a place where the thread must not end.
std::atomic<unsigned> refusals = 0;

int Signal() { return SIGRTMAX - 4; }

struct Interrupted {
    Address instruction;
    bool waitingInKernel;
};

Interrupted WhereInterrupted(ucontext_t const& context) {
    // A system call that a signal breaks off without restarting it returns -EINTR, and only those that
    // wait do so; the program counter comes after the call instruction.
#if defined(__x86_64__)
    auto const instruction = static_cast<Address>(context.uc_mcontext.gregs[REG_RIP]);
    auto const* const before = reinterpret_cast<std::uint8_t const*>(instruction) - 2;
    bool const behindCall =
        context.uc_mcontext.gregs[REG_RAX] == -EINTR && before[0] == 0x0F && before[1] == 0x05;
    return {instruction, behindCall};
#elif defined(__aarch64__)
    auto const instruction = static_cast<Address>(context.uc_mcontext.pc);
    auto const* const before = reinterpret_cast<std::uint32_t const*>(instruction) - 1;
    bool const behindCall =
        static_cast<std::int64_t>(context.uc_mcontext.regs[0]) == -EINTR && *before == 0xD4000001;
    return {instruction, behindCall};
#else
#error "Say here where a thread was interrupted on this processor"
#endif
}

/// Ends the calling thread alone, and without a word to the C library: nothing is unwound. The kernel frees
/// the robust mutexes of the thread. Returns if the one who waits for that has just given up.
void EndThisThread() {
    pthread_t self = ::pthread_self();
    if (!condemned.compare_exchange_strong(self, pthread_t{})) return;
    killed = static_cast<pid_t>(::syscall(SYS_gettid));
    ::syscall(SYS_exit, 0);
}

void TerminateIfSafe(int, siginfo_t*, void* context) {
    if (condemned.load() != ::pthread_self() || Unstoppable::Defer(&EndThisThread)) return;
    auto const place = WhereInterrupted(*static_cast<ucontext_t const*>(context));
    if (place.waitingInKernel || !Guarded().Holds(place.instruction))
        EndThisThread();
    else
        ++refusals;
}

void Prepare() {
    Guarded().ranges = {RangeOfLibraryAround(reinterpret_cast<Address>(&std::malloc)),
                        RangeOfLibraryAround(reinterpret_cast<Address>(&::pthread_create)),
                        RangeOfLibraryAround(static_cast<Address>(::getauxval(AT_BASE)))};
    struct sigaction action {};
    action.sa_sigaction = TerminateIfSafe;
    action.sa_flags = SA_SIGINFO;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(Signal(), &action, nullptr);
}

/// The handler's last act is to leave; until the kernel has taken the thread away it may still be there.
void WaitUntilGone(pid_t thread) {
    while (::syscall(SYS_tgkill, ::getpid(), thread, 0) == 0) ::usleep(50);
}

} // namespace

void BlockKilling() {
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, Signal());
    ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
}

bool KillThread(pthread_t thread, std::atomic<bool> const& ended, std::chrono::milliseconds patience) {
    Unstoppable const whole;
    static std::mutex oneAtATime;
    std::lock_guard const lock(oneAtATime);
    Prepare();
    killed = 0;
    condemned = thread;
    for (auto const end = std::chrono::steady_clock::now() + patience;
         killed == 0 && !ended && std::chrono::steady_clock::now() < end;) {
        unsigned const before = refusals;
        ::pthread_kill(thread, Signal());
        // On a busy machine each of these pauses takes far longer, so a refusal is answered at once.
        for (int looks = 0; looks < 20 && killed == 0 && !ended && refusals == before; ++looks) ::usleep(50);
    }
    // Whoever takes the mark away decides: this thread gives up, or the other one is on its way out.
    if (condemned.exchange(pthread_t{}) != thread) {
        while (killed == 0) ::usleep(50);
        WaitUntilGone(killed);
        return true;
    }
    bool const endedByItself = ended;
    if (endedByItself) ::pthread_join(thread, nullptr);
    return endedByItself;
}

} // namespace Utilities
