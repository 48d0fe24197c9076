#pragma once

#include "core/base/String.h"

#include <QSocketNotifier>
#include <functional>
#include <list>
#include <memory>

namespace GUI {

/// Takes commands of the form `[OPEN("path")]` from other programs of the same user (see `ShellCommand`).
///
/// They come through a local socket in the folder "norvelian" of the user's runtime directory, or of the
/// configuration folder where there is none; it is named after the program. A folder that is a link, belongs
/// to someone else or may be written by others isn't used, and both sides ask the system who the other one
/// is. Nothing here waits: not for the other side, and not for a lock.
///
/// Of the instances of a program the first one listens, until it ends. A command is one packet of at most
/// `maximalBytes` without a zero byte; others are reported to the diagnostics sink and dropped.
class ShellCommandListener {
public:
    using Handler = std::function<long(Utilities::String const& text)>;

    /// The handler may destroy the listener.
    ShellCommandListener(Utilities::String const& program, Handler handler);
    ShellCommandListener(ShellCommandListener const&) = delete;
    ShellCommandListener& operator=(ShellCommandListener const&) = delete;
    ~ShellCommandListener();

    bool IsListening() const { return notifier_ != nullptr; }

    /// Hands a command to the instance of a program that listens; false if there is none, if it has so many
    /// waiting that it takes no more, or if the command is none that it would take.
    static bool Send(Utilities::String const& program, Utilities::String const& text);

    static constexpr int maximalBytes = 65536;

private:
    class Folder;
    class Descriptor;
    struct Connection;

    void Accept();
    void Receive(Connection& connection);

    Handler handler_;
    std::string name_;
    std::unique_ptr<Folder> folder_;
    /// Held as long as this instance is the one that listens.
    std::unique_ptr<Descriptor> election_;
    std::unique_ptr<Descriptor> socket_;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::list<Connection> connections_;
    /// Done with, but their notification may still be on the stack.
    std::list<Connection> finished_;
};

} // namespace GUI
