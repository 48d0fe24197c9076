// Replacing files when links, owners, permissions, other processes and left-overs are in the way.
#include "Utilities/AtomicFile.h"
#include "core/base/Exceptions.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

namespace {

namespace fs = std::filesystem;
using Utilities::WriteFileAtomically;

std::string Failure(std::string const& path) {
    try {
        WriteFileAtomically(path, "new");
    } catch (Norvelian::Utilities::Exceptions::ResourceException const& failure) {
        return failure.what();
    }
    return "written";
}

std::size_t CountFiles(std::string const& directory) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
}

TEST(ReplacedFile, ALinkThatLeadsNowhereYetStaysALink) {
    Tests::TemporaryDirectory const directory;
    fs::create_directory(directory / "there");
    fs::create_symlink("there/second", directory / "first");
    fs::create_symlink(directory / "target", directory / "there/second");
    WriteFileAtomically(directory / "first", "new");
    EXPECT_TRUE(fs::is_symlink(directory / "first"));
    EXPECT_TRUE(fs::is_symlink(directory / "there/second"));
    EXPECT_EQ(Tests::ReadFile(directory / "target"), "new");

    fs::create_symlink("circle", directory / "circle");
    EXPECT_EQ(Failure(directory / "circle"),
              directory / "circle" + ": can't follow its links: Too many levels of symbolic links");
}

TEST(ReplacedFile, KeepsPermissionsAndOwner) {
    Tests::TemporaryDirectory const directory;
    std::string const path = directory / "file";
    Tests::WriteFile(path, "old");
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    bool const isSuperuser = ::geteuid() == 0;
    if (isSuperuser) {
        ASSERT_EQ(::chown(path.c_str(), Tests::nobody, Tests::nobody), 0);
    }
    WriteFileAtomically(path, "new");
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_EQ(status.st_uid, isSuperuser ? Tests::nobody : ::geteuid());
}

TEST(ReplacedFile, AFileThatMayNotBeWrittenIsLeftAlone) {
    Tests::TemporaryDirectory const directory;
    std::string const readOnly = directory / "read-only";
    std::string const foreign = directory / "foreign";
    Tests::WriteFile(readOnly, "old");
    Tests::WriteFile(foreign, "old");
    ASSERT_EQ(::chmod(readOnly.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(foreign.c_str(), 0666), 0);
    bool const isSuperuser = ::geteuid() == 0;
    if (isSuperuser) {
        ASSERT_EQ(::chown(directory.GetPath().c_str(), Tests::nobody, Tests::nobody), 0);
        ASSERT_EQ(::chown(readOnly.c_str(), Tests::nobody, Tests::nobody), 0);
    }
    EXPECT_EQ(Tests::RunUnprivileged([&] {
                  bool const first = Failure(readOnly) == readOnly + ": can't write: Permission denied";
                  bool const second =
                      Failure(foreign) == foreign + ": can't keep its owner: Operation not permitted";
                  return (first ? 0 : 1) + (second || !isSuperuser ? 0 : 2);
              }),
              0);
    EXPECT_EQ(Tests::ReadFile(readOnly), "old");
    EXPECT_EQ(Tests::ReadFile(foreign), isSuperuser ? "old" : "new");
    EXPECT_EQ(CountFiles(directory.GetPath()), 2U) << "no temporary file is left";
}

TEST(ReplacedFile, WhatKilledWritersLeftGoes) {
    Tests::TemporaryDirectory const directory;
    std::string const text(1U << 20U, 'x');
    for (int round = 0; round < 10; ++round) {
        pid_t const writer = Tests::Fork([&] {
            for (;;) WriteFileAtomically(directory / "file", text);
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(3 + 2 * round));
        ::kill(writer, SIGKILL);
        ASSERT_EQ(::waitpid(writer, nullptr, 0), writer);
    }
    // One that was surely left, and beside it what mustn't go: a young one, and another program's.
    Tests::WriteFile(directory / ".norvelian-1-1", "left");
    Tests::WriteFile(directory / ".other-1-1", "another's");
    auto const longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    for (auto const& entry : fs::directory_iterator(directory.GetPath()))
        fs::last_write_time(entry.path(), longAgo);
    Tests::WriteFile(directory / ".norvelian-1-2", "being written");
    // In a process of its own, since a directory is swept once.
    pid_t const sweeper = Tests::Fork([&] { WriteFileAtomically(directory / "file", "new"); });
    ASSERT_EQ(::waitpid(sweeper, nullptr, 0), sweeper);
    EXPECT_EQ(Tests::ReadFile(directory / "file"), "new");
    EXPECT_TRUE(fs::exists(directory / ".other-1-1"));
    EXPECT_TRUE(fs::exists(directory / ".norvelian-1-2"));
    EXPECT_EQ(CountFiles(directory.GetPath()), 3U);
}

} // namespace
