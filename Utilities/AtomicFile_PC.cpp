#include "Utilities/AtomicFile.h"

#include "core/base/Exceptions.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace Utilities {

namespace {

[[noreturn]] void ThrowFailure(std::string const& path) {
    throw Norvelian::Utilities::Exceptions::RuntimeException("Can't write " + path + ": " +
                                                             std::generic_category().message(errno));
}

/// A new file beside the one it will replace; gone again unless it was renamed.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string const& target)
        : target_(target), path_(target + ".XXXXXX"), descriptor_(::mkostemp(path_.data(), O_CLOEXEC)) {
        if (descriptor_ < 0) ThrowFailure(target_);
    }
    TemporaryFile(TemporaryFile const&) = delete;
    TemporaryFile& operator=(TemporaryFile const&) = delete;
    ~TemporaryFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
        if (!path_.empty()) ::unlink(path_.c_str());
    }

    void TakeModeOfTarget() {
        struct stat information {};
        mode_t const mode =
            ::stat(target_.c_str(), &information) == 0 ? information.st_mode & 07777U : DefaultMode();
        if (::fchmod(descriptor_, mode) != 0) ThrowFailure(target_);
    }
    void Write(std::string_view contents) {
        while (!contents.empty()) {
            ssize_t const written = ::write(descriptor_, contents.data(), contents.size());
            if (written < 0 && errno != EINTR) ThrowFailure(target_);
            if (written > 0) contents.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void ReplaceTarget() {
        // Some file systems report a full disk only when the file is closed.
        if (::close(std::exchange(descriptor_, -1)) != 0) ThrowFailure(target_);
        if (::rename(path_.c_str(), target_.c_str()) != 0) ThrowFailure(target_);
        path_.clear();
    }

private:
    /// The process's mask can only be read by setting it, which other threads would see.
    static mode_t DefaultMode() { return S_IRUSR | S_IWUSR; }

    std::string target_;
    std::string path_;
    int descriptor_;
};

} // namespace

void WriteFileAtomically(std::string const& path, std::string_view contents) {
    std::error_code failure;
    auto const target = std::filesystem::canonical(path, failure);
    TemporaryFile file(failure ? path : target.string());
    file.TakeModeOfTarget();
    file.Write(contents);
    file.ReplaceTarget();
}

} // namespace Utilities
