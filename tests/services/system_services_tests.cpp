#include "gui/elements/application/Application.h"
#include "services/information/DistributionPackage_PC.h"
#include "services/information/InformationServices_PC.h"
#include "services/information/PackageNote.h"
#include "services/programs/CommandLine.h"
#include "services/programs/RunApplicationDataSource_PC.h"
#include "tests/support/TemporaryDirectory.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <link.h>
#include <sys/wait.h>
#include <thread>

namespace {

using GUI::RunApplicationDataSource_PC;
using Utilities::Anything;
using Utilities::File;
using Utilities::MakeSmart;
using Utilities::String;
namespace Services = InformationServices;

class RecordingApplication : public GUI::Application {
public:
    RecordingApplication() : GUI::Application("test") {}
    void ReportError(String const& text) override { errors.push_back(text.GetStdString()); }
    std::vector<std::string> errors;
};

RecordingApplication application;

std::string Value(Services::Information const& map, char const* key) {
    String const* const value = map->FindValue(key);
    return value ? value->GetStdString() : "no such key";
}

TEST(ModuleInformation, TellsOfALibraryAndOfWhatIsNone) {
    Services::DllInformationImplementation_PC module;
    // The C++ library is loaded, and a package of the distribution.
    Services::LoadedModulNamesImplementation_PC modules;
    auto const loaded = modules.GetModules();
    std::string const path = Value(loaded, "libstdc++.so.6");
    EXPECT_EQ(Value(loaded, std::filesystem::read_symlink("/proc/self/exe").filename().c_str()),
              std::filesystem::read_symlink("/proc/self/exe").string());
    module.SetFileName(path);
    auto const facts = module.GetInformation();
    EXPECT_EQ(Value(facts, "InternalName"), "libstdc++.so.6");
    EXPECT_THAT(Value(facts, "OriginalFileName"), testing::StartsWith("libstdc++.so.6."));
    EXPECT_EQ("libstdc++.so." + Value(facts, "FileVersion"), Value(facts, "OriginalFileName"));
    EXPECT_THAT(Value(facts, "Comments"), testing::MatchesRegex("Build id [0-9a-f]+"));
    EXPECT_EQ(Value(facts, "Plugin"), "no such key");
    module.SetFileName("");
    EXPECT_EQ(module.GetDescription(false), "DllInformationImplementation_PC: , ProductVersion = Unknown");

    // Bytes of any kind are no reason to fail.
    Tests::TemporaryDirectory const directory;
    std::string const library = Tests::ReadFile(path);
    for (std::size_t const size : {0, 10, 64, 100, 1000, 5000, 100000}) {
        Tests::WriteFile(directory / "cut.so", library.substr(0, size));
        module.SetFileName(directory / "cut.so");
        auto const map = module.GetInformation();
        EXPECT_EQ(map->GetSize(), 10U) << size;
        EXPECT_EQ(Value(map, "ProductName"), "Unknown") << size;
    }
}

TEST(ModuleInformation, FindsThePackageOfAFile) {
    Tests::TemporaryDirectory const root;
    Tests::WriteFile(root / "info/other.list", "/usr/lib/libfoo.so.10\n/usr/lib/lib\n");
    Tests::WriteFile(root / "info/libfoo1:amd64.list", "/.\n/lib/libfoo.so.1");
    Tests::WriteFile(root / "status",
                     "Package: libfoo10\nVersion: 10\n\nPackage: libfoo1\nMaintainer: M <m@x>\n"
                     "Version: 1.2-3\nDescription: foo, bar\n more\n\nPackage: z\nVersion: 9\n");
    auto const package = Services::DistributionPackage::FindOwner("/usr/lib/libfoo.so.1", root.GetPath());
    ASSERT_TRUE(package);
    EXPECT_EQ(package->name + '|' + package->version + '|' + package->maintainer + '|' + package->description,
              "libfoo1|1.2-3|M <m@x>|foo, bar");
    EXPECT_FALSE(Services::DistributionPackage::FindOwner("/usr/lib/libfoo.so", root.GetPath()));
    EXPECT_FALSE(Services::DistributionPackage::FindOwner("/usr/lib/libfoo.so.1", root / "missing"));

    constexpr char const* note = R"({"type":"deb","name":"a\"b","version":"1:2,3"})";
    EXPECT_EQ(Services::FindInPackageNote(note, "name"), "a\"b");
    EXPECT_EQ(Services::FindInPackageNote(note, "version"), "1:2,3");
    for (char const* const bad : {"", "{", R"({"version)", R"({"version":"1)", R"({"version":"1\)"})
        EXPECT_EQ(Services::FindInPackageNote(bad, "version"), "") << bad;
}

TEST(SystemInformation, NamesSystemAndPlaces) {
    Services::OperatingSystemInformationImplementation_PC system;
    auto const facts = system.GetInformation();
    EXPECT_THAT(Tests::ReadFile("/etc/os-release"), testing::HasSubstr(Value(facts, "OS")));
    EXPECT_EQ(Value(facts, "Build"),
              Tests::ReadFile("/proc/sys/kernel/osrelease").substr(0, Value(facts, "Build").size()));
    EXPECT_EQ(system.GetDescription(false).GetStdString(),
              Value(facts, "OS") + " (Build" + Value(facts, "Build") + ") / " + Value(facts, "ServicePack"));
    Services::SystemFileNameImplementation_PC places;
    EXPECT_EQ(places.GetFileName("WindowsFolder"), "/usr");
    EXPECT_TRUE(std::filesystem::exists(places.GetFileName("SystemFolder").GetStdString() + "/libc.so.6"));
    EXPECT_EQ(places.GetFileName("DorvexDriver"), "");
    EXPECT_EQ(places.GetFileName("other"), "");
}

/// A script that writes its directory and parameters, each on a line, into the file "told".
class Programs : public testing::Test {
protected:
    Programs() {
        application.errors.clear();
        script_ = directory_ / "a program.sh";
        Tests::WriteFile(script_, "#!/bin/sh\n{ pwd; for p in \"$@\"; do printf '%s\\n' \"$p\"; done; } > '" +
                                      Told() + ".new'; mv '" + Told() + ".new' '" + Told() + "'\n");
        std::filesystem::permissions(script_, std::filesystem::perms::owner_all);
    }
    std::string Told() const { return directory_ / "told"; }
    std::string WaitForTold() const {
        for (int i = 0; i < 1000 && !std::filesystem::exists(Told()); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::string text = Tests::ReadFile(Told());
        std::filesystem::remove(Told());
        return text;
    }

    Tests::TemporaryDirectory directory_;
    std::string script_;
    RunApplicationDataSource_PC source_;
};

TEST_F(Programs, RunInTheirDirectoryWithParametersAsTheyAre) {
    EXPECT_TRUE(source_.Run(script_, R"(one "two three" 'a"b\c' $HOME;ls "")"));
    EXPECT_EQ(WaitForTold(), directory_.GetPath() + "\none\ntwo three\na\"b\\c\n$HOME;ls\n\n");
    std::string backslashes = script_;
    std::replace(backslashes.begin(), backslashes.end(), '/', '\\');
    EXPECT_TRUE(
        source_.RunFile(MakeSmart<File>(String(backslashes)), MakeSmart<File>(String("/x y/\"z\".txt"))));
    EXPECT_EQ(WaitForTold(), directory_.GetPath() + "\n/x y/\"z\".txt\n");
    EXPECT_THAT(application.errors, testing::IsEmpty());
}

TEST_F(Programs, AreLookedForAndAFailureIsTold) {
    // The whole command line in the place of the path.
    EXPECT_TRUE(source_.Run("sh -c \"echo $0 > " + Told() + "\"", "found"));
    EXPECT_EQ(WaitForTold(), "found\n");
    EXPECT_FALSE(source_.Run("", "x"));
    EXPECT_THAT(application.errors, testing::IsEmpty());
    EXPECT_FALSE(source_.Run("/no such/program", "x"));
    EXPECT_THAT(application.errors, testing::ElementsAre("File: /no such/program not found!\n(Error: 2)"));
    EXPECT_FALSE(source_.RunFile({}, {}));
}

TEST_F(Programs, EntriesRunTheirOwn) {
    source_.SetProgram("Editor", script_, "edit");
    source_.SetProgram("", script_, "other");
    EXPECT_TRUE(source_.GetValue("any", "ItemEnabled").GetBool());
    EXPECT_FALSE(source_.GetValue("any", "State").IsValid());
    EXPECT_FALSE(source_.GetCallback("Editor", "OnUpdate").IsValid());
    auto const click = source_.GetCallback("Editor", "OnClick");
    click.Execute(String("Editor"));
    EXPECT_THAT(WaitForTold(), testing::EndsWith("\nedit\n"));
    click.Execute({});
    EXPECT_THAT(WaitForTold(), testing::EndsWith("\nother\n"));
}

TEST_F(Programs, AreFoundWhereTheyWereInstalled) {
    ::setenv("XDG_CONFIG_DIRS", ("/nowhere:" + directory_.GetPath()).c_str(), 1);
    Tests::WriteFile(directory_ / "norvelian/programs.ini",
                     "[Tools/Viewer]\nPath=" + directory_.GetPath() + "\n");
    EXPECT_TRUE(source_.RunRegistered(String("Tools/Viewer:Path:a program.sh")));
    EXPECT_EQ(WaitForTold(), directory_.GetPath() + "\n");
    for (Anything const& spec : {Anything(), Anything(true), Anything(String("Tools/Viewer:Path")),
                                 Anything(String("Tools/Viewer:Other:a program.sh")),
                                 Anything(String("Tools/Viewer:Path:missing.sh"))})
        EXPECT_FALSE(source_.RunRegistered(spec));
    EXPECT_THAT(application.errors, testing::IsEmpty());
    ::unsetenv("XDG_CONFIG_DIRS");
}

TEST_F(Programs, LeaveNoZombieWhenTheyEnd) {
    int count = 0;
    QCoreApplication const events(count, nullptr);
    EXPECT_TRUE(source_.Run("true", ""));
    auto const hasChild = [] { return ::waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) == 0; };
    QElapsedTimer time;
    time.start();
    while (hasChild() && time.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    EXPECT_FALSE(hasChild());
}

TEST(CommandLine, IsSplitAsItIsQuoted) {
    using GUI::SplitCommandLine;
    EXPECT_THAT(SplitCommandLine("  a\tb  "), testing::ElementsAre("a", "b"));
    EXPECT_THAT(SplitCommandLine(R"(a"b c"d 'e \f' g\ h)"), testing::ElementsAre("ab cd", R"(e \f)", "g h"));
    EXPECT_THAT(SplitCommandLine(R"("" "open)"), testing::ElementsAre("", "open"));
    EXPECT_THAT(SplitCommandLine("\\"), testing::ElementsAre("\\"));
}

} // namespace
