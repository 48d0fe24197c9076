#include "gui/shell/ShellCommandListener_PC.h"

#include "gui/shell/EventGuard_PC.h"

#include <QStandardPaths>
#include <array>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace GUI {

using Utilities::String;

namespace {

std::optional<sockaddr_un> AddressOf(std::string const& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return {};
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return address;
}

bool SendTo(std::string const& path, std::string const& text) {
    auto const address = AddressOf(path);
    int const sender = address ? ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0) : -1;
    if (sender < 0) return false;
    auto const sent = ::sendto(sender, text.data(), text.size(), 0,
                               reinterpret_cast<sockaddr const*>(&*address), sizeof *address);
    ::close(sender);
    return sent == static_cast<ssize_t>(text.size());
}

} // namespace

std::string ShellCommandListener::SocketPath(String const& program) {
    char const* const runtime = std::getenv("XDG_RUNTIME_DIR");
    std::string const directory =
        runtime && *runtime ? std::string(runtime) : "/tmp/norvelian-" + std::to_string(::getuid());
    if (::mkdir(directory.c_str(), S_IRWXU) != 0 && errno != EEXIST) return {};
    struct stat status {};
    // A directory that others may write to is no place to take commands from.
    if (::stat(directory.c_str(), &status) != 0 || status.st_uid != ::getuid() ||
        (status.st_mode & S_IWOTH) != 0)
        return {};
    return directory + "/" + program.GetStdString() + ".commands";
}

ShellCommandListener::ShellCommandListener(String const& program, Handler handler)
    : handler_(std::move(handler)), path_(SocketPath(program)) {
    auto const address = path_.empty() ? std::nullopt : AddressOf(path_);
    // An empty command reaches an instance that lives; a dead one leaves only its name behind.
    if (!address || SendTo(path_, "")) {
        path_.clear();
        return;
    }
    ::unlink(path_.c_str());
    socket_ = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket_ < 0 || ::bind(socket_, reinterpret_cast<sockaddr const*>(&*address), sizeof *address) != 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { Receive(); });
}

ShellCommandListener::~ShellCommandListener() {
    notifier_.reset();
    if (socket_ >= 0) ::close(socket_);
    if (!path_.empty()) ::unlink(path_.c_str());
}

void ShellCommandListener::Receive() {
    std::array<char, maximalBytes> buffer{};
    for (;;) {
        auto const received = ::recv(socket_, buffer.data(), buffer.size(), 0);
        if (received < 0) return;
        if (received == 0) continue;
        String const text(std::string_view(buffer.data(), static_cast<std::size_t>(received)));
        RunGuarded([&] { return handler_(text) != 0; });
    }
}

bool ShellCommandListener::Send(String const& program, String const& text) {
    return SendTo(SocketPath(program), text.GetStdString());
}

} // namespace GUI
