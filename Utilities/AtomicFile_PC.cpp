#include "Utilities/AtomicFile.h"

#include "Diagnostics/Unstoppable.h"
#include "core/base/Exceptions.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <mutex>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Utilities {

namespace {

constexpr char const* temporaryPrefix = ".norvelian-";
/// A temporary file that is younger may be one whose writer hasn't come to locking it.
constexpr std::time_t secondsToOldAge = 60;

[[noreturn]] void Fail(std::string const& path, char const* what) {
    std::string const reason = std::strerror(errno);
    throw Norvelian::Utilities::Exceptions::ResourceException(path + ": can't " + what + ": " + reason);
}

/// A new file that is closed and removed unless it has taken its place.
class TemporaryFile {
public:
    TemporaryFile(std::string const& target, std::string const& directory) : target_(target) {
        static std::atomic<unsigned long> counter = 0;
        exists_ = ::stat(target_.c_str(), &old_) == 0;
        constexpr mode_t everybody = 0666; // less the process's mask, as for any new file
        // What replaces a file may be read by nobody before it has that file's permissions.
        mode_t const mode = exists_ ? 0600 : everybody;
        do {
            path_ = directory + "/" + temporaryPrefix + std::to_string(::getpid()) + "-" +
                    std::to_string(++counter);
            descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        } while (descriptor_ < 0 && errno == EEXIST);
        if (descriptor_ < 0) Fail(target_, "make a temporary file beside it");
        // Tells that its writer lives, in whatever namespace of processes.
        ::flock(descriptor_, LOCK_EX | LOCK_NB);
    }
    TemporaryFile(TemporaryFile const&) = delete;
    TemporaryFile& operator=(TemporaryFile const&) = delete;
    ~TemporaryFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
        if (!path_.empty()) ::unlink(path_.c_str());
    }

    void Write(std::string_view contents) {
        while (!contents.empty()) {
            ssize_t const written = ::write(descriptor_, contents.data(), contents.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) Fail(target_, "write");
            contents.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    /// Gives it the owner and permissions of the file that it is to replace, if there is one.
    void KeepOwnerAndPermissions() {
        struct stat made {};
        if (!exists_) return;
        // To rename over a file takes no permission for the file itself.
        if (S_ISREG(old_.st_mode) && ::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0)
            Fail(target_, "write");
        if (::fstat(descriptor_, &made) != 0) Fail(target_, "keep its permissions");
        if (old_.st_uid != made.st_uid && ::fchown(descriptor_, old_.st_uid, old_.st_gid) != 0)
            Fail(target_, "keep its owner");
        // A group that this user isn't in is lost; the file is the user's own.
        if (old_.st_gid != made.st_gid)
            static_cast<void>(::fchown(descriptor_, static_cast<uid_t>(-1), old_.st_gid) == 0);
        if (::fchmod(descriptor_, old_.st_mode & 0777U) != 0) Fail(target_, "keep its permissions");
    }
    void TakePlace() {
        if (::fsync(descriptor_) != 0) Fail(target_, "flush it to the disk");
        // Some file systems report a full disk only when the file is closed.
        if (::close(std::exchange(descriptor_, -1)) != 0) Fail(target_, "close it");
        if (::rename(path_.c_str(), target_.c_str()) != 0) Fail(target_, "replace it");
        path_.clear();
    }

private:
    std::string target_;
    std::string path_;
    int descriptor_ = -1;
    bool exists_ = false;
    struct stat old_ {};
};

std::string DirectoryOf(std::string const& path) {
    auto const slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

/// Where a symbolic link leads, whether that exists or not, so that the link itself survives; other paths
/// stay as they are.
std::string Resolved(std::string path) {
    constexpr int longestChain = 40; // the system's own limit
    std::string const given = path;
    for (int links = 0; links < longestChain; ++links) {
        std::array<char, PATH_MAX> target{};
        ssize_t const length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0) return path;
        std::string const next(target.data(), static_cast<std::size_t>(length));
        path = next.starts_with('/') ? std::string() : DirectoryOf(path) + "/";
        path += next;
    }
    errno = ELOOP;
    Fail(given, "follow its links");
}

/// Removes what a process that was killed while it wrote has left; once for each directory.
void Sweep(std::string const& directory) {
    static std::mutex guard;
    static std::set<std::string> swept;
    {
        Unstoppable const whole;
        std::lock_guard const lock(guard);
        if (!swept.insert(directory).second) return;
    }
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(directory, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (!entry->path().filename().string().starts_with(temporaryPrefix)) continue;
        char const* const path = entry->path().c_str();
        struct stat status {};
        if (::lstat(path, &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != ::geteuid() ||
            std::time(nullptr) - status.st_mtime < secondsToOldAge)
            continue;
        int const left = ::open(path, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
        if (left < 0) continue;
        if (::flock(left, LOCK_EX | LOCK_NB) == 0) ::unlink(path);
        ::close(left);
    }
}

} // namespace

void WriteFileAtomically(std::string const& path, std::string_view contents, Durability durability) {
    std::string const target = Resolved(path);
    std::string const directory = DirectoryOf(target);
    Sweep(directory);
    {
        TemporaryFile file(target, directory);
        file.KeepOwnerAndPermissions();
        file.Write(contents);
        file.TakePlace();
    }
    if (durability != Durability::Kept) return;
    // The new name itself must reach the disk. Some file systems can't do this for a directory; the
    // contents are safe by then, so that isn't a failure.
    int const descriptor = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

} // namespace Utilities
