#include "Utilities/AtomicFile.h"

#include "core/base/Exceptions.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace Utilities {

namespace {

[[noreturn]] void Fail(std::string const& path, char const* what) {
    std::string const reason = std::strerror(errno);
    throw Norvelian::Utilities::Exceptions::ResourceException(path + ": can't " + what + ": " + reason);
}

/// A temporary file that is closed and removed unless it has taken its place.
class TemporaryFile {
public:
    TemporaryFile(std::string const& target, std::string const& directory) : target_(target) {
        std::string const name = directory + "/.norvelian-XXXXXX";
        path_.assign(name.begin(), name.end());
        path_.push_back('\0');
        descriptor_ = mkstemp(path_.data());
        if (descriptor_ < 0) Fail(target_, "make a temporary file beside it");
    }
    TemporaryFile(TemporaryFile const&) = delete;
    TemporaryFile& operator=(TemporaryFile const&) = delete;
    ~TemporaryFile() {
        if (descriptor_ >= 0) close(descriptor_);
        if (!placed_) unlink(path_.data());
    }

    void Write(std::string_view contents) {
        while (!contents.empty()) {
            ssize_t const written = write(descriptor_, contents.data(), contents.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) Fail(target_, "write");
            contents.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void TakePermissions() {
        struct stat status {};
        mode_t mode = 0;
        if (stat(target_.c_str(), &status) == 0) {
            mode = status.st_mode & 07777;
        } else {
            mode_t const mask = umask(0);
            umask(mask);
            mode = 0666 & ~mask;
        }
        if (fchmod(descriptor_, mode) != 0) Fail(target_, "set its permissions");
    }
    void Place() {
        if (fsync(descriptor_) != 0) Fail(target_, "flush it to the disk");
        int const closed = close(descriptor_);
        descriptor_ = -1;
        if (closed != 0) Fail(target_, "close it");
        if (rename(path_.data(), target_.c_str()) != 0) Fail(target_, "replace it");
        placed_ = true;
    }

private:
    std::string target_;
    std::vector<char> path_;
    int descriptor_ = -1;
    bool placed_ = false;
};

/// Where a symbolic link leads, so that the link itself survives; other paths stay as they are.
std::string Resolved(std::string const& path) {
    std::unique_ptr<char, decltype(&std::free)> const real(realpath(path.c_str(), nullptr), &std::free);
    return real ? real.get() : path;
}

} // namespace

void WriteFileAtomically(std::string const& path, std::string_view contents) {
    std::string const target = Resolved(path);
    auto const slash = target.rfind('/');
    std::string const directory = slash == std::string::npos ? "."
                                  : slash == 0               ? "/"
                                                             : target.substr(0, slash);
    {
        TemporaryFile file(target, directory);
        file.Write(contents);
        file.TakePermissions();
        file.Place();
    }
    // The new name itself must reach the disk. Some file systems can't do this for a directory; the
    // contents are safe by then, so that isn't a failure.
    int const descriptor = open(directory.c_str(), O_RDONLY | O_DIRECTORY);
    if (descriptor >= 0) {
        fsync(descriptor);
        close(descriptor);
    }
}

} // namespace Utilities
