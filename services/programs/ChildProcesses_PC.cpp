#include "services/programs/ChildProcesses_PC.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <map>
#include <memory>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace GUI::ChildProcesses {

namespace {

/// The children that haven't been seen to end.
class Children {
public:
    Children() = default;
    Children(Children const&) = delete;
    Children& operator=(Children const&) = delete;
    ~Children() {
        for (auto const& [process, child] : children_)
            if (child.descriptor >= 0) ::close(child.descriptor);
    }

    void Enter(pid_t process) {
        Reap();
        Child& child = children_[process];
        // The descriptor becomes readable when the process ends.
        child.descriptor = static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
        if (child.descriptor < 0 || !QCoreApplication::instance()) return;
        child.notifier = std::make_unique<QSocketNotifier>(child.descriptor, QSocketNotifier::Read);
        QObject::connect(child.notifier.get(), &QSocketNotifier::activated, [this] { Reap(); });
    }

private:
    struct Child {
        int descriptor = -1;
        std::unique_ptr<QSocketNotifier> notifier;
    };

    void Reap() {
        for (auto it = children_.begin(); it != children_.end();) {
            pid_t const ended = ::waitpid(it->first, nullptr, WNOHANG);
            // Somebody else may have waited for it already.
            bool const isGone = ended == it->first || (ended < 0 && errno == ECHILD);
            if (!isGone) {
                ++it;
                continue;
            }
            // It may be the one whose signal is being handled.
            if (it->second.notifier) {
                it->second.notifier->setEnabled(false);
                // What runs on its signal is this module's code, which may be unloaded before it is deleted.
                it->second.notifier->disconnect();
                it->second.notifier.release()->deleteLater();
            }
            if (it->second.descriptor >= 0) ::close(it->second.descriptor);
            it = children_.erase(it);
        }
    }

    std::map<pid_t, Child> children_;
};

Children& GetChildren() {
    static Children children;
    return children;
}

/// What the child is given, with what the system allocates for it.
class Settings {
public:
    explicit Settings(std::string const& directory) {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawnattr_init(&attributes);
        ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        if (!directory.empty()) ::posix_spawn_file_actions_addchdir_np(&actions, directory.c_str());
        sigset_t all;
        sigset_t none;
        ::sigfillset(&all);
        ::sigemptyset(&none);
        ::posix_spawnattr_setsigdefault(&attributes, &all);
        ::posix_spawnattr_setsigmask(&attributes, &none);
        ::posix_spawnattr_setflags(&attributes,
                                   POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    Settings(Settings const&) = delete;
    Settings& operator=(Settings const&) = delete;
    ~Settings() {
        ::posix_spawn_file_actions_destroy(&actions);
        ::posix_spawnattr_destroy(&attributes);
    }

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

} // namespace

int Start(std::vector<std::string> const& words, std::string const& directory, bool search) {
    if (words.empty() || words.front().empty()) return ENOENT;
    std::vector<std::string> kept(words);
    std::vector<char*> arguments;
    arguments.reserve(kept.size() + 1);
    for (std::string& word : kept) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    Settings const settings(directory);
    pid_t process = 0;
    auto* const start = search ? &::posix_spawnp : &::posix_spawn;
    int const failure = start(&process, arguments.front(), &settings.actions, &settings.attributes,
                              arguments.data(), environ);
    if (failure == 0) GetChildren().Enter(process);
    return failure;
}

} // namespace GUI::ChildProcesses
