#include "Diagnostics/Sink.h"
#include "gui/shell/ShellCommand.h"
#include "gui/shell/ShellCommandListener_PC.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace {

using GUI::ShellCommand;
using GUI::ShellCommandListener;
using testing::ElementsAre;
using Utilities::String;

std::vector<std::string> Parsed(String const& text) {
    std::vector<std::string> found;
    for (ShellCommand const& command : GUI::ParseShellCommands(text))
        found.push_back(command.verb.GetStdString() + " " + command.argument.GetStdString());
    return found;
}

TEST(ShellCommands, AreCutIntoVerbsAndArguments) {
    EXPECT_THAT(Parsed("[open(\"/a/b (1).txt\")][Print(2)] [Quit]"),
                ElementsAre("OPEN /a/b (1).txt", "PRINT 2", "QUIT "));
    EXPECT_THAT(Parsed("no brackets"), ElementsAre());
    EXPECT_THAT(Parsed("[OPEN(\"unfinished"), ElementsAre("OPEN unfinished"));
    EXPECT_THAT(Parsed("[OPEN(\"\")][A(x\"y\"z)"), ElementsAre("OPEN ", "A y"));
    EXPECT_THAT(Parsed("[A[B(1"), ElementsAre("A ", "B 1"));
    EXPECT_EQ(GUI::FileToOpen("[Open(\"x\")]").value_or(""), "x");
    EXPECT_FALSE(GUI::FileToOpen(" [OPEN(\"x\")]").has_value());
}

TEST(ShellCommands, AFileNameIsNeverACommand) {
    for (char const* const name : {"x[QUIT(evil)].txt", "a\"b", "\"", "\"\"", "\")][QUIT(\"", "(", ")", "[",
                                   "]", "\")][\"QUIT\"(\"", "", "\xC3\xA4 \xE4"}) {
        String const text = ShellCommand{"OPEN", name}.GetText();
        EXPECT_THAT(Parsed(text), ElementsAre(std::string("OPEN ") + name));
        EXPECT_EQ(GUI::FileToOpen(text).value_or("none"), name);
    }
    EXPECT_EQ((ShellCommand{"OPEN", "/a/b.txt"}).GetText(), "[OPEN(\"/a/b.txt\")]");
}

class ShellCommandsOfOthers : public testing::Test {
protected:
    ShellCommandsOfOthers() {
        ::setenv("XDG_RUNTIME_DIR", directory_.GetPath().c_str(), 1);
        former_ = Diagnostics::SetSink(
            [this](auto const&, auto const& what) { reports_.emplace_back(what.GetCharPointer()); });
    }
    ~ShellCommandsOfOthers() override { Diagnostics::SetSink(former_); }

    std::unique_ptr<ShellCommandListener> Listen() {
        return std::make_unique<ShellCommandListener>("program", [this](String const& text) {
            received_.push_back(text.GetStdString());
            if (text == "[DIE]") listener_.reset();
            return 1L;
        });
    }
    static void RunUntilIdle() {
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec();
    }
    std::string Socket() const { return directory_ / "norvelian/program.commands"; }

    int argumentCount_ = 1;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    QCoreApplication const application_{argumentCount_, arguments_.data()};
    Tests::TemporaryDirectory const directory_;
    Diagnostics::Sink former_;
    std::vector<std::string> reports_;
    std::vector<std::string> received_;
    std::unique_ptr<ShellCommandListener> listener_;
};

TEST_F(ShellCommandsOfOthers, ComeWholeAndInOrder) {
    EXPECT_FALSE(ShellCommandListener::Send("program", "[A]")) << "nobody listens";
    listener_ = Listen();
    std::string const longOne = "[OPEN(\"" + std::string(5000, 'x') + "\")]";
    EXPECT_TRUE(ShellCommandListener::Send("program", "[A]"));
    EXPECT_TRUE(ShellCommandListener::Send("program", longOne));
    EXPECT_TRUE(ShellCommandListener::Send("program", std::string(ShellCommandListener::maximalBytes, 'y')));
    for (auto const& text :
         {std::string(ShellCommandListener::maximalBytes + 1, 'z'), std::string(), std::string("[A\0B]", 5)})
        EXPECT_FALSE(ShellCommandListener::Send("program", text)) << text.size();
    EXPECT_FALSE(ShellCommandListener::Send("another", "[A]"));
    RunUntilIdle();
    EXPECT_THAT(received_, ElementsAre("[A]", longOne, std::string(ShellCommandListener::maximalBytes, 'y')));

    EXPECT_TRUE(ShellCommandListener::Send("program", "[DIE]"));
    RunUntilIdle();
    EXPECT_EQ(received_.back(), "[DIE]");
    EXPECT_FALSE(std::filesystem::exists(Socket()));
}

TEST_F(ShellCommandsOfOthers, TheFirstInstanceListensUntilItEnds) {
    auto first = Listen();
    auto const second = Listen();
    EXPECT_TRUE(first->IsListening());
    EXPECT_FALSE(second->IsListening());
    first.reset();
    // One that was killed leaves its socket behind; two that start at once leave one server.
    pid_t const killed = Tests::Fork([&] {
        auto const dying = Listen();
        ::kill(::getpid(), SIGKILL);
    });
    ASSERT_EQ(::waitpid(killed, nullptr, 0), killed);
    EXPECT_TRUE(std::filesystem::exists(Socket()));
    for (int round = 0; round < 20; ++round) {
        int listening[2];
        ASSERT_EQ(::pipe(listening), 0);
        std::array<pid_t, 4> starting{};
        for (pid_t& each : starting)
            each = Tests::Fork([&] {
                auto const mine = Listen();
                char const mark = mine->IsListening() ? '1' : '0';
                if (::write(listening[1], &mark, 1) == 1)
                    for (;;) ::pause();
            });
        int servers = 0;
        for (std::size_t i = 0; i < starting.size(); ++i) {
            char mark = 0;
            ASSERT_EQ(::read(listening[0], &mark, 1), 1);
            servers += mark == '1' ? 1 : 0;
        }
        EXPECT_EQ(servers, 1);
        EXPECT_TRUE(ShellCommandListener::Send("program", "[A]"));
        for (pid_t const each : starting) {
            ::kill(each, SIGKILL);
            ASSERT_EQ(::waitpid(each, nullptr, 0), each);
        }
        ::close(listening[0]);
        ::close(listening[1]);
    }
}

TEST_F(ShellCommandsOfOthers, AnInstanceThatHangsHoldsNobodyUp) {
    auto const hanging = Listen(); // whose loop doesn't run
    auto const start = std::chrono::steady_clock::now();
    int taken = 0;
    for (int i = 0; i < 1000; ++i) taken += ShellCommandListener::Send("program", std::string(60000, 'x'));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_GT(taken, 0);
    EXPECT_LT(taken, 100);
    RunUntilIdle();
    EXPECT_EQ(received_.size(), static_cast<std::size_t>(taken));
}

/// A connection that says nothing.
int Connect(std::string const& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    int const connecting = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK, 0);
    if (::connect(connecting, reinterpret_cast<sockaddr const*>(&address), sizeof address) == 0)
        return connecting;
    ::close(connecting);
    return -1;
}

TEST_F(ShellCommandsOfOthers, SilentAndOversizedOnesAreDropped) {
    listener_ = Listen();
    std::vector<int> silent;
    for (int i = 0; i < 50; ++i) {
        silent.push_back(Connect(Socket()));
        RunUntilIdle();
    }
    std::string const tooLong(ShellCommandListener::maximalBytes + 1, 'z');
    EXPECT_GT(::send(silent.back(), tooLong.data(), tooLong.size(), 0), 0);
    EXPECT_TRUE(ShellCommandListener::Send("program", "[A]"));
    RunUntilIdle();
    EXPECT_THAT(received_, ElementsAre("[A]"));
    EXPECT_THAT(reports_, ElementsAre("a command that is too long was dropped"));
    for (int const each : silent) ::close(each);
}

TEST_F(ShellCommandsOfOthers, OnlyOneUserIsHeardWhateverTheMask) {
    auto const mask = ::umask(0);
    listener_ = Listen();
    ::umask(mask);
    struct stat status {};
    ASSERT_EQ(::stat(Socket().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    ASSERT_EQ(::stat((directory_ / "norvelian").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0700U);
    if (::geteuid() != 0) return;

    // Though someone opened everything up, another user isn't heard.
    for (auto const& path : {directory_.GetPath(), directory_ / "norvelian", Socket()})
        ASSERT_EQ(::chmod(path.c_str(), 0777), 0);
    EXPECT_EQ(Tests::RunUnprivileged([&] {
                  int const connected = Connect(Socket());
                  return connected >= 0 && ::send(connected, "[EVIL]", 6, MSG_NOSIGNAL) > 0 ? 0 : 1;
              }),
              0);
    RunUntilIdle();
    EXPECT_THAT(received_, ElementsAre());
    EXPECT_THAT(reports_, ElementsAre("a command of another user was refused"));
}

TEST_F(ShellCommandsOfOthers, AFolderThatIsNotTheUsersOwnIsNotUsed) {
    namespace fs = std::filesystem;
    fs::create_directory(directory_ / "elsewhere");
    fs::create_directory_symlink(directory_ / "elsewhere", directory_ / "norvelian");
    EXPECT_FALSE(Listen()->IsListening()) << "a link";
    fs::remove(directory_ / "norvelian");
    fs::create_directory(directory_ / "norvelian");
    fs::permissions(directory_ / "norvelian", fs::perms::all);
    EXPECT_FALSE(Listen()->IsListening()) << "others may write to it";
    EXPECT_EQ(reports_.size(), 2U);
    if (::geteuid() != 0) return;

    // A server that another user has planted gets nothing.
    ASSERT_EQ(::chown((directory_ / "norvelian").c_str(), Tests::nobody, Tests::nobody), 0);
    ASSERT_EQ(::chmod(directory_.GetPath().c_str(), 0777), 0);
    fs::permissions(directory_ / "norvelian", fs::perms::owner_all);
    EXPECT_FALSE(ShellCommandListener::Send("program", "[SECRET]"));
    EXPECT_FALSE(Listen()->IsListening());
}

} // namespace
