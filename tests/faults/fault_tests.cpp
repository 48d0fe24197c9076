// Every call to the system and every allocation fails once, the first, the second and so on, until a scenario
// passes untouched: it must not crash, keep the old data whole, leave nothing open or behind, and tell.
#include "Diagnostics/Sink.h"
#include "Utilities/Directory.h"
#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "core/base/Exceptions.h"
#include "cxf/files/SampleFile.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "gui/shell/MessageService_PC.h"
#include "services/LanguageFiles.h"
#include "services/PictureReader_PC.h"
#include "tests/faults/SystemCalls.h"
#include "tests/support/TemporaryDirectory.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

namespace Cxf = Norvelian::ColorExchangeFormat;
using Tests::SystemCalls::Call;

std::ptrdiff_t OpenFiles() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

/// How many reports the sink has had. It allocates nothing.
int reports = 0;

/// Runs `scenario` with each call of these kinds failing in turn, `prepare` before each run and `check(told)`
/// after it: whether an exception or a report told of the failure.
void WithEachFailure(
    std::vector<Call> const& calls, std::function<void()> const& scenario,
    std::function<void(bool told)> const& check, std::function<void()> const& prepare = [] {}) {
    auto const former = Diagnostics::SetSink([](auto const&, auto const&) { ++reports; });
    scenario(); // what is made once isn't a leak
    int failures = 0;
    for (Call const call : calls) {
        long n = 1;
        for (bool reached = true; reached; ++n) {
            SCOPED_TRACE(std::string(Tests::SystemCalls::NameOf(call)) + " " + std::to_string(n));
            prepare();
            auto const open = OpenFiles();
            reports = 0;
            bool thrown = false;
            Tests::SystemCalls::FailAt(call, n);
            try {
                scenario();
            } catch (std::exception const&) {
                thrown = true;
            }
            reached = Tests::SystemCalls::StopFailing();
            failures += reached ? 1 : 0;
            EXPECT_EQ(OpenFiles(), open);
            check(thrown || reports > 0);
            if (testing::Test::HasFailure()) break;
        }
        ASSERT_LT(n, 1000000);
    }
    EXPECT_GT(failures, 0) << "nothing of it was reached";
    Diagnostics::SetSink(former);
}

std::vector<Call> const everything(std::begin(Tests::SystemCalls::all), std::end(Tests::SystemCalls::all));

class Faults : public testing::Test {
protected:
    Faults() { ::setenv("XDG_CONFIG_HOME", directory_.GetPath().c_str(), 1); }
    std::ptrdiff_t CountFiles() const {
        return std::distance(std::filesystem::directory_iterator(directory_.GetPath()), {});
    }
    Tests::TemporaryDirectory const directory_;
};

TEST_F(Faults, ASettingIsOldOrNewAndAFailureIsTold) {
    auto const preferences = Utilities::ResolveComponent<Utilities::Preferences>("Preferences");
    std::string const path = directory_ / "fault_tests.ini";
    std::string const old = "; kept\n[s]\nk=old\n";
    std::string const changed = "; kept\n[s]\nk=new\n";
    WithEachFailure(
        everything, [&] { preferences->StoreValue("s", "k", "new"); },
        [&](bool told) {
            std::string const now = Tests::ReadFile(path);
            EXPECT_TRUE(now == changed || (now == old && told)) << now << told;
            EXPECT_LE(CountFiles(), 2) << "the file and the folder of locks";
        },
        [&] { Tests::WriteFile(path, old); });
}

TEST_F(Faults, AnExportIsOldOrNewAndAFailureIsTold) {
    auto const sets = Cxf::ReadSampleSets(SHIPPED_DATA "samples/cie_named_34_36band.txt");
    std::string const path = directory_ / "samples.xml";
    Cxf::WriteSampleSets(path, sets, Cxf::SampleFormat::Xml);
    std::string const written = Tests::ReadFile(path);
    WithEachFailure(
        {Call::Open, Call::Write, Call::Flush, Call::Rename},
        [&] { Cxf::WriteSampleSets(path, sets, Cxf::SampleFormat::Xml); },
        [&](bool told) {
            std::string const now = Tests::ReadFile(path);
            EXPECT_TRUE(now == written || (now == "old" && told));
            EXPECT_EQ(CountFiles(), 1);
        },
        [&] { Tests::WriteFile(path, "old"); });
}

TEST_F(Faults, AFileIsReadAsAWholeOrNotAtAll) {
    std::string const samples = SHIPPED_DATA "samples/cie_named_34_36band.txt";
    std::size_t found = 0;
    WithEachFailure(
        {Call::Open},
        [&] {
            found = 0;
            found = Cxf::ReadSampleSet(samples)->GetSamples().size();
        },
        [&](bool told) { EXPECT_EQ(found, told ? 0U : 34U); });

    Tests::WriteFile(directory_ / "window.xml",
                     "<Window ElementName=\"Main\" Width=\"9\" Height=\"9\"><VBox><Pane "
                     "ElementName=\"A\"/></VBox></Window>");
    WithEachFailure(
        everything,
        [&] {
            found = 0;
            auto const tree =
                GUI::GUIDescriptionReader::GetGUIDescriptionTree((directory_ / "window.xml").c_str());
            found = tree.HasChildren() ? 1 : 0;
        },
        [&](bool told) { EXPECT_EQ(found, told ? 0U : 1U); });

    bool shown = false;
    WithEachFailure(
        {Call::Open, Call::Read},
        [&] { shown = !GUI::PictureReader::Read(TEST_DATA "/images/rgb.png").isNull(); },
        [&](bool told) { EXPECT_NE(shown, told); });
}

TEST_F(Faults, LanguagesAreReadAsAWholeOrTheFailureIsTold) {
    constexpr std::size_t count = 3000;
    std::string keys = "1\n";
    for (std::size_t i = 0; i < count; ++i) keys += "key " + std::to_string(i) + "\n";
    Tests::WriteFile(directory_ / "Languages/Languages.key", keys);
    Tests::WriteFile(directory_ / "Languages/Basque.lang", keys);
    std::size_t texts = 0;
    // Without memory the standard library's own walk over a folder ends the process.
    WithEachFailure(
        {Call::Open, Call::Read},
        [&] {
            texts = 0;
            Utilities::LanguageFiles files;
            files.Read(*Utilities::Directory::NewInstance(Utilities::Directory::anyDirectory,
                                                          directory_.GetPath().c_str()));
            texts = files.GetLanguages().at("Basque").GetCount();
        },
        [&](bool told) { EXPECT_TRUE(told || texts == count) << texts; });
}

TEST_F(Faults, APostedMessageArrivesIfThePostWasNoFailure) {
    GUI::MessageService_PC service;
    int arrived = 0;
    struct Count : Utilities::CallbackImplementation {
        explicit Count(int& target) : number(&target) {}
        Diagnostics::String GetValueString() override { return ""; }
        long Execute(Utilities::Anything const&) override { return ++*number; }
        bool IsValid() override { return true; }
        int* number;
    };
    service.SetCallback("Count", Utilities::Callback(Utilities::MakeSmart<Count>(arrived)));
    int posted = 0;
    WithEachFailure(
        {Call::Allocate},
        [&] {
            service.PostMessage("Count", "a text that is too long to be stored in place");
            ++posted;
            GUI::PostBound const bound{4, GUI::PostBound::WhenFull::Refuse};
            if (service.PostMessageWithin(bound, "Count", 1L)) ++posted;
        },
        [&](bool) { service.DeliverPosted(); });
    service.DeliverPosted();
    EXPECT_EQ(arrived, posted);
}

} // namespace
