// The definitions here are found before those of the C library, also by the shared libraries under test.
#include "tests/faults/SystemCalls.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <map>
#include <new>
#include <string_view>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace Tests::SystemCalls {

namespace {

bool failing = false;
bool reached = false;
Call failingCall{};
long left = 0;

bool Fails(Call call) {
    if (!failing || call != failingCall || left == 0 || --left != 0) return false;
    reached = true;
    return true;
}

int FailWith(int number) {
    errno = number;
    return -1;
}

bool recording = false;
std::string recorded;
std::vector<Operation> operations;
/// Open files of the folder by descriptor; the folder itself is file 0.
std::map<int, int> openFiles;
int filesMade = 0;

/// The name of a path within the folder; empty if it isn't there.
std::string NameIn(std::string_view path) {
    if (path.size() <= recorded.size() || !path.starts_with(recorded) || path[recorded.size()] != '/')
        return {};
    return std::string(path.substr(recorded.size() + 1));
}

/// What the recorder itself does is nobody's business.
class Paused {
public:
    Paused() : failing_(std::exchange(failing, false)), recording_(std::exchange(recording, false)) {}
    ~Paused() {
        failing = failing_;
        recording = recording_;
    }
    Paused(Paused const&) = delete;
    Paused& operator=(Paused const&) = delete;

private:
    bool failing_;
    bool recording_;
};

void NoteOpened(int descriptor, char const* path, int flags) {
    if (!recording || descriptor < 0) return;
    Paused const paused;
    std::string const name = NameIn(path);
    if (path == recorded) openFiles[descriptor] = 0;
    if (name.empty() || (flags & O_CREAT) == 0) return;
    openFiles[descriptor] = ++filesMade;
    operations.push_back({Operation::Kind::Create, name, {}, filesMade, {}});
}

void NoteWritten(int descriptor, void const* bytes, long count) {
    if (!recording || count <= 0 || !openFiles.contains(descriptor)) return;
    Paused const paused;
    operations.push_back({Operation::Kind::Write,
                          {},
                          {},
                          openFiles[descriptor],
                          {static_cast<char const*>(bytes), static_cast<std::size_t>(count)}});
}

void NoteFlushed(int descriptor) {
    if (!recording || !openFiles.contains(descriptor)) return;
    Paused const paused;
    int const file = openFiles[descriptor];
    operations.push_back(
        {file == 0 ? Operation::Kind::FlushFolder : Operation::Kind::FlushFile, {}, {}, file, {}});
}

void NoteNames(Operation::Kind kind, char const* name, char const* target) {
    if (!recording || NameIn(name).empty()) return;
    Paused const paused;
    operations.push_back({kind, NameIn(name), NameIn(target), 0, {}});
}

} // namespace

char const* NameOf(Call call) {
    constexpr char const* names[] = {"allocation", "open", "read", "write", "flush", "rename", "map"};
    return names[static_cast<int>(call)];
}

void FailAt(Call call, long n) {
    failingCall = call;
    left = n;
    reached = false;
    failing = true;
}

bool StopFailing() {
    failing = false;
    return reached;
}

void Record(std::string const& folder) {
    recorded = folder;
    operations.clear();
    openFiles.clear();
    filesMade = 0;
    recording = true;
}

std::vector<Operation> StopRecording() {
    recording = false;
    return operations;
}

} // namespace Tests::SystemCalls

using namespace Tests::SystemCalls;

extern "C" {

int open(char const* path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & (O_CREAT | O_TMPFILE)) != 0) {
        va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    if (Fails(Call::Open)) return FailWith(EMFILE);
    int const descriptor = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
    NoteOpened(descriptor, path, flags);
    return descriptor;
}

FILE* fopen64(char const* path, char const* mode) {
    using Open = FILE*(char const*, char const*);
    static auto* const next = reinterpret_cast<Open*>(::dlsym(RTLD_NEXT, "fopen64"));
    if (!Fails(Call::Open)) return next(path, mode);
    errno = EMFILE;
    return nullptr;
}
FILE* fopen(char const* path, char const* mode) { return fopen64(path, mode); }

ssize_t read(int descriptor, void* bytes, size_t count) {
    if (Fails(Call::Read)) return FailWith(EIO);
    return ::syscall(SYS_read, descriptor, bytes, count);
}

ssize_t write(int descriptor, void const* bytes, size_t count) {
    if (Fails(Call::Write)) return FailWith(ENOSPC);
    ssize_t const written = ::syscall(SYS_write, descriptor, bytes, count);
    NoteWritten(descriptor, bytes, written);
    return written;
}

void* mmap(void* address, size_t size, int protection, int flags, int descriptor, off_t offset) noexcept {
    // Memory is asked for by other ways too; what a program can tell apart is a file.
    if (descriptor >= 0 && Fails(Call::Map)) {
        errno = ENOMEM;
        return MAP_FAILED;
    }
    return reinterpret_cast<void*>(::syscall(SYS_mmap, address, size, protection, flags, descriptor, offset));
}

int fsync(int descriptor) {
    if (Fails(Call::Flush)) return FailWith(EIO);
    NoteFlushed(descriptor);
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

int close(int descriptor) {
    if (recording) {
        Paused const paused;
        openFiles.erase(descriptor);
    }
    return static_cast<int>(::syscall(SYS_close, descriptor));
}

int rename(char const* from, char const* to) noexcept {
    if (Fails(Call::Rename)) return FailWith(EIO);
    int const result = static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
    if (result == 0) NoteNames(Operation::Kind::Rename, from, to);
    return result;
}

int unlink(char const* path) noexcept {
    int const result = static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
    if (result == 0) NoteNames(Operation::Kind::Remove, path, "");
    return result;
}
}

void* operator new(std::size_t size) {
    void* const memory = Fails(Call::Allocate) ? nullptr : std::malloc(size);
    if (!memory) throw std::bad_alloc();
    return memory;
}
void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
    return Fails(Call::Allocate) ? nullptr : std::malloc(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::nothrow_t const&) noexcept { std::free(memory); }
