#include "Utilities/AtomicFile.h"

#include "core/base/Exceptions.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Utilities {

namespace {

[[noreturn]] void Fail(std::string const& path, char const* what) {
    std::string const reason = std::strerror(errno);
    throw Norvelian::Utilities::Exceptions::ResourceException(path + ": can't " + what + ": " + reason);
}

/// A new file that is closed and removed unless it has taken its place.
class TemporaryFile {
public:
    TemporaryFile(std::string const& target, std::string const& directory) : target_(target) {
        static std::atomic<unsigned long> counter = 0;
        constexpr mode_t everybody = 0666; // less the process's mask, as for any new file
        do {
            path_ = directory + "/.norvelian-" + std::to_string(::getpid()) + "-" + std::to_string(++counter);
            descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, everybody);
        } while (descriptor_ < 0 && errno == EEXIST);
        if (descriptor_ < 0) Fail(target_, "make a temporary file beside it");
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
    void KeepPermissions() {
        struct stat status {};
        if (::stat(target_.c_str(), &status) == 0 && ::fchmod(descriptor_, status.st_mode & 07777U) != 0)
            Fail(target_, "keep its permissions");
    }
    void TakePlace(Durability durability) {
        if (durability == Durability::PowerFailure && ::fsync(descriptor_) != 0)
            Fail(target_, "flush it to the disk");
        // Some file systems report a full disk only when the file is closed.
        if (::close(std::exchange(descriptor_, -1)) != 0) Fail(target_, "close it");
        if (::rename(path_.c_str(), target_.c_str()) != 0) Fail(target_, "replace it");
        path_.clear();
    }

private:
    std::string target_;
    std::string path_;
    int descriptor_ = -1;
};

/// Where a symbolic link leads, so that the link itself survives; other paths stay as they are.
std::string Resolved(std::string const& path) {
    std::unique_ptr<char, decltype(&std::free)> const real(realpath(path.c_str(), nullptr), &std::free);
    return real ? real.get() : path;
}

} // namespace

void WriteFileAtomically(std::string const& path, std::string_view contents, Durability durability) {
    std::string const target = Resolved(path);
    auto const slash = target.rfind('/');
    std::string const directory = slash == std::string::npos ? "."
                                  : slash == 0               ? "/"
                                                             : target.substr(0, slash);
    {
        TemporaryFile file(target, directory);
        file.KeepPermissions();
        file.Write(contents);
        file.TakePlace(durability);
    }
    if (durability != Durability::PowerFailure) return;
    // The new name itself must reach the disk. Some file systems can't do this for a directory; the
    // contents are safe by then, so that isn't a failure.
    int const descriptor = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

} // namespace Utilities
