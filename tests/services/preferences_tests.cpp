#include "Diagnostics/Sink.h"
#include "Utilities/Mutex.h"
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "services/Preferences_PC.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

using Utilities::Preferences;
using Utilities::Preferences_PC;
using Utilities::String;

class PreferencesTest : public testing::Test {
protected:
    PreferencesTest() {
        ::setenv("XDG_CONFIG_HOME", (directory_ / "config").c_str(), 1);
        Preferences::SetApplicationName("");
    }

    static std::string Get(String const& section, String const& key, String const& defaultValue = "default") {
        return Resolved()->GetValue(section, key, defaultValue);
    }
    static void Set(String const& section, String const& key, String const& value) {
        Resolved()->SetValue(section, key, value);
    }
    static Utilities::SmartPointer<Preferences> Resolved() {
        return Utilities::ResolveComponent<Preferences>("Preferences");
    }

    Tests::TemporaryDirectory const directory_;
    std::string const file_ = directory_ / "config/preferences_tests.ini";
};

TEST_F(PreferencesTest, ReadsAndWritesAsContracted) {
    EXPECT_EQ(Get("Windows", "Main"), "default") << "no file, no directory";
    EXPECT_EQ(Get("Windows", "Main", ""), "");
    Set("Windows", "Main", "1,2");
    EXPECT_EQ(Tests::ReadFile(file_), "[Windows]\nMain=1,2\n");
    EXPECT_EQ(Get("windows", "MAIN"), "1,2");
    Set("Windows", "Main", "");
    EXPECT_EQ(Get("Windows", "Main"), "") << "an empty value is a value";

    std::string const value(2000, 'x');
    Set("Windows", "Long", value);
    EXPECT_EQ(Get("Windows", "Long"), value.substr(0, 1023));
}

TEST_F(PreferencesTest, SeesAFileThatWasChangedOutsideAtOnce) {
    // Same length, same inode, within one tick of the file system's clock.
    for (char const value : {'1', '2', '3'}) {
        Tests::WriteFile(file_, std::string("[s]\nk=") + value + "\n");
        EXPECT_EQ(Get("s", "k"), std::string(1, value));
    }
    std::filesystem::remove(file_);
    EXPECT_EQ(Get("s", "k"), "default");
}

TEST_F(PreferencesTest, WritesToTheApplicationsFileAndReadsFromTheExecutables) {
    Preferences::SetApplicationName("Press Console");
    Set("s", "k", "written");
    EXPECT_EQ(Tests::ReadFile(directory_ / "config/Press Console.ini"), "[s]\nk=written\n");
    EXPECT_EQ(Get("s", "k"), "default");

    Preferences::SetApplicationName("../outside");
    Set("s", "k", "v");
    EXPECT_FALSE(std::filesystem::exists(directory_ / "outside.ini"));
}

TEST_F(PreferencesTest, AFailureIsDroppedAndLeavesTheFileAlone) {
    std::filesystem::create_directories(file_);
    Set("s", "k", "v");
    EXPECT_EQ(Get("s", "k"), "default") << "a directory is where the file should";
    std::filesystem::remove(file_);

    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    Set("s", "k", "v");
    EXPECT_EQ(Get("s", "k"), "default") << "a pipe must not block";
    EXPECT_TRUE(std::filesystem::is_fifo(file_));
    std::filesystem::remove(file_);

    Tests::WriteFile(file_, "[s]\nk=v\n");
    std::filesystem::resize_file(file_, (16U << 20U) + 1);
    Set("s", "k", "new");
    EXPECT_EQ(Get("s", "k"), "default") << "too large";
    EXPECT_EQ(std::filesystem::file_size(file_), (16U << 20U) + 1);
}

TEST_F(PreferencesTest, TellsWhyAValueWasNotStored) {
    auto const failure = [](char const* key) {
        try {
            Resolved()->StoreValue("s", key, "v");
        } catch (std::exception const& caught) {
            return std::string(caught.what());
        }
        return std::string("stored");
    };
    EXPECT_EQ(failure("k"), "stored");
    EXPECT_EQ(Get("s", "k"), "v");
    EXPECT_EQ(failure("a=b"), file_ + ": no file of settings can hold the key \"a=b\" of the section \"s\"");
    std::filesystem::remove(file_);
    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    EXPECT_EQ(failure("k"), file_ + ": can't be read, and so isn't replaced");
    Tests::WriteFile(directory_ / "blocked", "a file, not a folder");
    ::setenv("XDG_CONFIG_HOME", (directory_ / "blocked").c_str(), 1);
    EXPECT_EQ(failure("k"), directory_ / "blocked/preferences_tests.ini: can't be written: Not a directory");

    // A user whom the system doesn't know, without a home.
    std::string const noHome = "There is no place for settings: the user has no home folder";
    constexpr uid_t unknown = 54321;
    auto const fails = [&] {
        ::unsetenv("XDG_CONFIG_HOME");
        ::setenv("HOME", "", 1);
        return ::geteuid() != unknown || failure("k") == noHome ? 0 : 1;
    };
    EXPECT_EQ(Tests::RunUnprivileged(fails, unknown), 0);
}

TEST_F(PreferencesTest, AReadOnlyOrForeignFileIsNotReplaced) {
    Tests::WriteFile(file_, "[s]\nk=old\n");
    ASSERT_EQ(::chmod(file_.c_str(), 0444), 0);
    if (::geteuid() == 0) {
        for (auto const& path : {directory_.GetPath(), directory_ / "config", file_})
            ASSERT_EQ(::chown(path.c_str(), Tests::nobody, Tests::nobody), 0);
    }
    EXPECT_EQ(Tests::RunUnprivileged([] {
                  std::string reported;
                  Diagnostics::SetSink(
                      [&](auto const&, auto const& what) { reported = what.GetCharPointer(); });
                  Set("s", "k", "new");
                  return reported.ends_with("can't write: Permission denied") ? 0 : 1;
              }),
              0);
    EXPECT_EQ(Tests::ReadFile(file_), "[s]\nk=old\n");
}

TEST_F(PreferencesTest, AStoppedHolderOfTheLockDelaysOthersForAShortTime) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    pid_t const holder = Tests::Fork([&] {
        Utilities::Mutex changing("Preferences");
        bool const held = changing.Lock(0);
        if (::write(ready[1], &held, 1) == 1)
            for (;;) ::pause();
    });
    bool held = false;
    ASSERT_EQ(::read(ready[0], &held, 1), 1);
    ASSERT_TRUE(held);
    ::kill(holder, SIGSTOP);
    std::string reported;
    auto const former =
        Diagnostics::SetSink([&](auto const&, auto const& what) { reported = what.GetCharPointer(); });
    auto const start = std::chrono::steady_clock::now();
    Set("s", "k", "v");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    Diagnostics::SetSink(former);
    EXPECT_EQ(reported,
              file_ + ": another program has kept the settings locked; they are changed all the same");
    EXPECT_EQ(Get("s", "k"), "v");
    ::kill(holder, SIGKILL);
    ASSERT_EQ(::waitpid(holder, nullptr, 0), holder);
}

TEST_F(PreferencesTest, AProcessKilledWhileWritingLeavesAWholeFile) {
    std::string lines = "; kept\n[s]\n";
    for (int i = 0; i < 200; ++i) lines += "key" + std::to_string(i) + "=value\n";
    Tests::WriteFile(file_, lines);
    for (int round = 0; round < 60; ++round) {
        pid_t const child = Tests::Fork([] {
            for (long i = 0;; ++i)
                Set("s", "key100", String(std::string(static_cast<std::size_t>(i % 50), 'v')));
        });
        std::this_thread::sleep_for(std::chrono::microseconds(2000 + 137 * round));
        ::kill(child, SIGKILL);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);

        std::string const text = Tests::ReadFile(file_);
        ASSERT_EQ(text.substr(0, 11), "; kept\n[s]\n");
        ASSERT_EQ(text.substr(text.size() - 13), "key199=value\n");
        ASSERT_EQ(std::count(text.begin(), text.end(), '\n'), 202);
    }
    Set("s", "key0", "after");
    EXPECT_EQ(Get("s", "key0"), "after") << "the dead left the lock behind";
}

TEST_F(PreferencesTest, ThreeProcessesDoNotLoseEachOthersKeys) {
    constexpr int keys = 100;
    pid_t children[3];
    for (int c = 0; c < 3; ++c)
        children[c] = Tests::Fork([c] {
            for (int i = 0; i < keys; ++i)
                Set("s", ("p" + std::to_string(c) + "k" + std::to_string(i)).c_str(), "v");
        });
    for (pid_t const child : children) ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    for (int c = 0; c < 3; ++c)
        for (int i = 0; i < keys; ++i)
            ASSERT_EQ(Get("s", ("p" + std::to_string(c) + "k" + std::to_string(i)).c_str()), "v")
                << c << ' ' << i;
}

} // namespace
