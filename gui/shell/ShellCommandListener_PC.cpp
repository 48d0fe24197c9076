#include "gui/shell/ShellCommandListener_PC.h"

#include "Diagnostics/Sink.h"
#include "Utilities/ProgramDirectory.h"
#include "gui/shell/EventGuard_PC.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace GUI {

using Utilities::String;

namespace {

constexpr int waitingConnections = 16;
/// Who connects and says nothing gives way to others.
constexpr std::size_t mostConnections = 16;

void Report(std::string const& what) { Diagnostics::Report("ShellCommandListener", what.c_str()); }

std::string FileNameFor(String const& program) {
    std::string name = program.GetStdString();
    std::replace(name.begin(), name.end(), '/', '_');
    return name + ".commands";
}

bool IsOfThisUser(int connected) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(connected, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

int MakeSocket() { return ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

} // namespace

class ShellCommandListener::Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    int Get() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

private:
    int number_;
};

/// The folder of this user alone, held open so that nobody can put another one in its place.
class ShellCommandListener::Folder {
public:
    Folder() : directory_(Open()) {}

    bool IsUsable() const {
        struct stat status {};
        return directory_.IsOpen() && ::fstat(directory_.Get(), &status) == 0 &&
               status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    }
    int Get() const { return directory_.Get(); }

    /// Through the open folder: an address is short, and its folder may have a long path.
    sockaddr_un AddressOf(std::string const& name) const {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::string const path = "/proc/self/fd/" + std::to_string(directory_.Get()) + "/" + name;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        return address;
    }

private:
    static int Open() {
        char const* const runtime = std::getenv("XDG_RUNTIME_DIR");
        bool const hasRuntime = runtime && *runtime == '/';
        std::string const parent = hasRuntime ? runtime : Utilities::GetConfigurationDirectory();
        if (parent.empty()) return -1;
        if (!hasRuntime) ::mkdir(parent.c_str(), S_IRWXU);
        std::string const path = parent + "/norvelian";
        ::mkdir(path.c_str(), S_IRWXU);
        return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    }

    Descriptor directory_;
};

struct ShellCommandListener::Connection {
    explicit Connection(int number)
        : socket(std::make_unique<Descriptor>(number)),
          notifier(std::make_unique<QSocketNotifier>(number, QSocketNotifier::Read)) {}

    std::unique_ptr<Descriptor> socket;
    std::unique_ptr<QSocketNotifier> notifier;
};

ShellCommandListener::ShellCommandListener(String const& program, Handler handler)
    : handler_(std::move(handler)), name_(FileNameFor(program)), folder_(std::make_unique<Folder>()) {
    if (!folder_->IsUsable()) {
        Report("no commands are taken: there is no folder of this user alone for them");
        return;
    }
    auto election = std::make_unique<Descriptor>(
        ::openat(folder_->Get(), (name_ + ".lock").c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
    // Another instance listens already. The lock goes with it, so what it leaves behind is nobody's.
    if (!election->IsOpen() || ::flock(election->Get(), LOCK_EX | LOCK_NB) != 0) return;
    ::unlinkat(folder_->Get(), name_.c_str(), 0);
    auto socket = std::make_unique<Descriptor>(MakeSocket());
    sockaddr_un const address = folder_->AddressOf(name_);
    // Nobody gets in between: nothing can be connected to before it listens.
    if (!socket->IsOpen() ||
        ::bind(socket->Get(), reinterpret_cast<sockaddr const*>(&address), sizeof address) != 0 ||
        ::fchmodat(folder_->Get(), name_.c_str(), S_IRUSR | S_IWUSR, 0) != 0 ||
        ::listen(socket->Get(), waitingConnections) != 0) {
        Report(std::string("no commands are taken: ") + std::strerror(errno));
        return;
    }
    election_ = std::move(election);
    socket_ = std::move(socket);
    notifier_ = std::make_unique<QSocketNotifier>(socket_->Get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { Accept(); });
}

ShellCommandListener::~ShellCommandListener() {
    if (notifier_) ::unlinkat(folder_->Get(), name_.c_str(), 0);
}

void ShellCommandListener::Accept() {
    finished_.clear();
    int const number = ::accept4(socket_->Get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (number < 0) return;
    Connection& connection = connections_.emplace_back(number);
    if (!IsOfThisUser(number)) {
        connections_.pop_back();
        Report("a command of another user was refused");
        return;
    }
    QObject::connect(connection.notifier.get(), &QSocketNotifier::activated,
                     [this, &connection] { Receive(connection); });
    if (connections_.size() > mostConnections) connections_.pop_front();
}

void ShellCommandListener::Receive(Connection& connection) {
    std::string text(maximalBytes, '\0');
    auto const received = ::recv(connection.socket->Get(), text.data(), text.size(), MSG_TRUNC);
    if (received < 0 && (errno == EAGAIN || errno == EINTR)) return;
    connection.notifier->setEnabled(false);
    auto const place = std::find_if(connections_.begin(), connections_.end(),
                                    [&](Connection const& each) { return &each == &connection; });
    finished_.splice(finished_.end(), connections_, place);
    if (received <= 0) return;
    if (received > maximalBytes) return Report("a command that is too long was dropped");
    text.resize(static_cast<std::size_t>(received));
    if (text.find('\0') != std::string::npos) return Report("a command with a zero byte was dropped");
    // It may destroy this object.
    auto const handler = handler_;
    RunGuarded([&] { return handler(String(std::move(text))) != 0; });
}

bool ShellCommandListener::Send(String const& program, String const& text) {
    std::string const& bytes = text.GetStdString();
    Folder const folder;
    Descriptor const socket(MakeSocket());
    if (bytes.empty() || bytes.size() > maximalBytes || bytes.find('\0') != std::string::npos ||
        !folder.IsUsable() || !socket.IsOpen())
        return false;
    sockaddr_un const address = folder.AddressOf(FileNameFor(program));
    if (::connect(socket.Get(), reinterpret_cast<sockaddr const*>(&address), sizeof address) != 0 ||
        !IsOfThisUser(socket.Get()))
        return false;
    return ::send(socket.Get(), bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL) ==
           static_cast<ssize_t>(bytes.size());
}

} // namespace GUI
