#include "Utilities/WholeFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Utilities {

namespace {

class Descriptor {
public:
    explicit Descriptor(std::string const& path)
        : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    int Get() const { return number_; }

private:
    int number_;
};

bool Fill(int file, std::string& text) {
    std::size_t filled = 0;
    while (filled < text.size()) {
        ssize_t const count = ::read(file, text.data() + filled, text.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        if (count == 0) break; // it has become shorter
        filled += static_cast<std::size_t>(count);
    }
    text.resize(filled);
    return true;
}

} // namespace

WholeFile ReadWholeFile(std::string const& path, std::uint64_t largest) {
    Descriptor const file(path);
    if (file.Get() < 0) return {errno == ENOENT ? FileState::Missing : FileState::Unreadable, {}};
    struct stat information {};
    if (::fstat(file.Get(), &information) != 0 || !S_ISREG(information.st_mode) ||
        static_cast<std::uint64_t>(information.st_size) > largest)
        return {FileState::Unreadable, {}};
    WholeFile whole{FileState::Read, std::string(static_cast<std::size_t>(information.st_size), '\0')};
    if (!Fill(file.Get(), whole.contents)) return {FileState::Unreadable, {}};
    return whole;
}

} // namespace Utilities
