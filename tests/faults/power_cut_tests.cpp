// What a power failure leaves at any moment of writing a setting or an export.
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "cxf/files/SampleFile.h"
#include "tests/faults/SystemCalls.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <set>
#include <unistd.h>

namespace {

using Tests::SystemCalls::Operation;
using Kind = Operation::Kind;
namespace Cxf = Norvelian::ColorExchangeFormat;

/// A folder as it is found after the power is back: names of files, and the files' bytes.
struct Disk {
    std::map<std::string, int> names;
    std::map<int, std::string> files;

    std::optional<std::string> Find(std::string const& name) const {
        auto const found = names.find(name);
        if (found == names.end()) return std::nullopt;
        auto const file = files.find(found->second);
        return file == files.end() ? std::string() : file->second;
    }
    /// False if it can't be done to what is there, as when a file that was never made is renamed.
    bool Do(Operation const& operation) {
        switch (operation.kind) {
        case Kind::Create:
            names[operation.name] = operation.file;
            return true;
        case Kind::Write:
            files[operation.file] += operation.bytes;
            return true;
        case Kind::Rename:
            if (!names.contains(operation.name)) return false;
            names[operation.target] = names[operation.name];
            names.erase(operation.name);
            return true;
        case Kind::Remove:
            return names.erase(operation.name) != 0;
        default:
            return true;
        }
    }
};

/// Calls `check(disk, done)` for every state that a failure after `done` operations can leave: what was
/// flushed is there; of all else any part may be, in any order that the folder allows, and half a write too.
template <class Check>
void ForEachFailure(Disk const& before, std::vector<Operation> const& operations, Check check) {
    for (std::size_t done = 0; done <= operations.size(); ++done) {
        std::vector<bool> flushed(done, false);
        for (std::size_t at = 0; at < done; ++at)
            for (std::size_t earlier = 0; earlier < at; ++earlier) {
                Operation const& each = operations[earlier];
                bool const isData = each.kind == Kind::Write;
                if (operations[at].kind == Kind::FlushFile && isData && each.file == operations[at].file)
                    flushed[earlier] = true;
                if (operations[at].kind == Kind::FlushFolder && !isData) flushed[earlier] = true;
            }
        std::vector<std::size_t> open;
        for (std::size_t at = 0; at < done; ++at)
            if (!flushed[at] && operations[at].kind != Kind::FlushFile &&
                operations[at].kind != Kind::FlushFolder)
                open.push_back(at);
        ASSERT_LT(open.size(), 16U);
        for (unsigned chosen = 0; chosen < 1U << open.size(); ++chosen)
            for (bool const half : {false, true}) {
                Disk disk = before;
                bool possible = true;
                for (std::size_t at = 0; at < done && possible; ++at) {
                    auto const place = std::find(open.begin(), open.end(), at);
                    if (place != open.end() && (chosen >> (place - open.begin()) & 1U) == 0) continue;
                    Operation operation = operations[at];
                    if (place != open.end() && half) operation.bytes.resize(operation.bytes.size() / 2);
                    possible = disk.Do(operation);
                }
                if (possible) check(disk, done);
            }
    }
}

/// What file `name` may hold, counted over all failures. An empty optional is a file that isn't there.
std::set<std::optional<std::string>> Possible(Disk const& before, std::vector<Operation> const& operations,
                                              std::string const& name) {
    std::set<std::optional<std::string>> found;
    ForEachFailure(before, operations, [&](Disk const& disk, std::size_t) { found.insert(disk.Find(name)); });
    return found;
}

Disk WithFile(std::string const& name, std::string const& contents) {
    return {{{name, -1}}, {{-1, contents}}};
}

using Contents = std::set<std::optional<std::string>>;

TEST(PowerCut, IsNoticedWhereNothingIsFlushed) {
    // The test itself: written and renamed, which is what many do.
    Tests::TemporaryDirectory const directory;
    Tests::SystemCalls::Record(directory.GetPath());
    int const file = ::open((directory / "new").c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_EQ(::write(file, "fresh", 5), 5);
    ::close(file);
    ASSERT_EQ(::rename((directory / "new").c_str(), (directory / "file").c_str()), 0);
    auto const operations = Tests::SystemCalls::StopRecording();
    EXPECT_EQ(operations.size(), 3U);
    EXPECT_EQ(Possible(WithFile("file", "old"), operations, "file"), (Contents{"old", "", "fr", "fresh"}));
}

TEST(PowerCut, LeavesEachSettingOldOrNew) {
    Tests::TemporaryDirectory const directory;
    ::setenv("XDG_CONFIG_HOME", directory.GetPath().c_str(), 1);
    auto const preferences = Utilities::ResolveComponent<Utilities::Preferences>("Preferences");
    std::string const name = "fault_tests.ini";
    Contents expected;
    preferences->StoreValue("s", "k", "0");
    auto const now = [&] { return Tests::ReadFile(directory / name); };
    Disk const before = WithFile(name, now());
    expected.insert(now());
    Tests::SystemCalls::Record(directory.GetPath());
    for (char const* const value : {"1", "a longer value", "2"}) {
        preferences->StoreValue("s", "k", value);
        expected.insert(now());
    }
    auto const operations = Tests::SystemCalls::StopRecording();
    EXPECT_GE(operations.size(), 3U * 4U);
    EXPECT_EQ(Possible(before, operations, name), expected);
}

TEST(PowerCut, LeavesAnExportOldOrNewAndKeepsItOnceItIsWritten) {
    Tests::TemporaryDirectory const directory;
    auto const sets = Cxf::ReadSampleSets(SHIPPED_DATA "samples/cie_named_34_36band.txt");
    for (std::string const name : {"samples.xml", "samples.txt"}) {
        Tests::SystemCalls::Record(directory.GetPath());
        Cxf::WriteSampleSets(directory / name, sets, Cxf::FormatOf(name));
        auto const operations = Tests::SystemCalls::StopRecording();
        std::string const written = Tests::ReadFile(directory / name);
        ASSERT_GT(written.size(), 1000U);
        EXPECT_EQ(Possible(WithFile(name, "old"), operations, name), (Contents{"old", written}));
        EXPECT_EQ(Possible({}, operations, name), (Contents{std::nullopt, written}));
        ForEachFailure(WithFile(name, "old"), operations, [&](Disk const& disk, std::size_t done) {
            EXPECT_TRUE(done < operations.size() || disk.Find(name) == written);
        });
    }
}

} // namespace
