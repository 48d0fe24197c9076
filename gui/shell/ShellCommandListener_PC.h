#pragma once

#include "core/base/String.h"

#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace GUI {

/// Takes commands of the form `[OPEN("path")]` from other programs of the same user: a local socket in
/// the user's runtime directory, named after the program. One datagram is one command, of at most
/// `maximalBytes`. If there is another instance that listens already, this one doesn't.
class ShellCommandListener {
public:
    using Handler = std::function<long(Utilities::String const& text)>;

    ShellCommandListener(Utilities::String const& program, Handler handler);
    ShellCommandListener(ShellCommandListener const&) = delete;
    ShellCommandListener& operator=(ShellCommandListener const&) = delete;
    ~ShellCommandListener();

    /// Sends a command to the running instance of a program; false if there is none.
    static bool Send(Utilities::String const& program, Utilities::String const& text);
    static std::string SocketPath(Utilities::String const& program);

    static constexpr int maximalBytes = 520;

private:
    void Receive();

    Handler handler_;
    std::string path_;
    int socket_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace GUI
