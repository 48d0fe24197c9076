// A host's whole way with the plug-in: load, find, use, prepare, unload.
#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "Utilities/Plugin.h"
#include "Utilities/ProgramDirectory.h"
#include "Utilities/Thread.h"
#include "gui/elements/DialogHandler.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/application/ReportService.h"
#include "gui/elements/description/Attributes.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "tests/support/TemporaryDirectory.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <memory>
#include <set>
#include <sys/resource.h>
#include <thread>
#include <utility>

namespace {

using Utilities::NamingService;
using Utilities::Plugin;
using Utilities::SmartPointer;

struct Row {
    char const* name;
    char const* revision;
    char const* category;
};

/// The whole table of components in order of registration.
constexpr Row table[] = {
#include "component_table.inc"
};

/// Rows whose components aren't built yet. Whoever builds one takes it out here.
std::set<std::string> const notBuilt = {
#include "not_built.inc"
};

std::string ModulePath() { return Utilities::GetModulePath("NorvelianGui"); }

bool IsMapped(std::string const& file) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);)
        if (line.find(file) != std::string::npos) return true;
    return false;
}

} // namespace

TEST(PluginModule, RegistersTheTableInOrderAndUnloadsWithoutATrace) {
    ASSERT_TRUE(NamingService::Instance()->GetCreators().empty());
    Plugin plugin(ModulePath());
    EXPECT_TRUE(IsMapped("NorvelianGui.so"));
    // Four functions are all that it shows.
    void* const module = ::dlopen(ModulePath().c_str(), RTLD_LAZY | RTLD_NOLOAD);
    EXPECT_TRUE(::dlsym(module, "PluginResolve"));
    EXPECT_FALSE(::dlsym(module, "_ZTIN3GUI9Window_PCE"));
    ::dlclose(module);

    std::vector<std::string> expected;
    std::vector<std::string> found;
    for (Row const& row : table)
        if (!notBuilt.contains(row.name))
            expected.push_back(std::string(row.name) + " $Revision: " + row.revision + " $ " + row.category);
    for (auto* const creator : NamingService::Instance()->GetCreators()) {
        auto const descriptor = creator->GetDescriptor();
        ASSERT_EQ(descriptor.size(), 3U);
        found.push_back(descriptor.at("name").GetString().GetStdString() + " " +
                        descriptor.at("version").GetString().GetStdString() + " " +
                        descriptor.at("category").GetString().GetStdString());
    }
    EXPECT_EQ(found, expected);

    EXPECT_TRUE(plugin.Unload());
    EXPECT_TRUE(NamingService::Instance()->GetCreators().empty());
    EXPECT_EQ(GUI::AttributeTable::Find("HBox"), nullptr);
    EXPECT_FALSE(IsMapped("NorvelianGui.so"));
}

TEST(PluginModule, ExportsAnswerAsContracted) {
    Plugin plugin(ModulePath());
    SmartPointer<Utilities::Component> result;
    plugin.Resolve("HBox", result);
    EXPECT_TRUE(result.IsNull()) << "the export leaves the result alone";
    NamingService::Instance()->Resolve("HBox", result);
    EXPECT_FALSE(result.IsNull());
    auto const* const descriptors = plugin.GetComponentDescriptors();
    EXPECT_EQ(descriptors->GetSize(), 0U);
    plugin.PrepareForUnload();
    EXPECT_EQ(plugin.GetComponentDescriptors(), descriptors);
    EXPECT_TRUE(plugin.CanUnload()) << "even while components are alive";
    result = nullptr;
}

TEST(PluginModule, StaysLoadedWhileItsObjectsLive) {
    auto plugin = std::make_unique<Plugin>(ModulePath());
    auto const refusal = [&plugin] {
        try {
            plugin->Unload();
        } catch (Norvelian::Utilities::Exceptions::ResourceException const& failure) {
            std::string const text = failure.what();
            return text.substr(text.find(';'));
        }
        return std::string("unloaded");
    };
    auto one = Utilities::ResolveComponent<Utilities::Component>("HBox");
    auto another = Utilities::ResolveComponent<Utilities::Component>("HBox");
    auto service = Utilities::ResolveComponent<Utilities::Component>("MessageService");
    EXPECT_EQ(refusal(), "; there still live: 2 HBox, 1 MessageService");
    one = nullptr;
    EXPECT_EQ(refusal(), "; there still live: 1 HBox, 1 MessageService");
    another = nullptr;
    service = nullptr;

    // A thread goes on in the module's code after its object has died.
    struct Waiting : Utilities::Runnable {
        long Run() override {
            while (!mayEnd) std::this_thread::yield();
            return 0;
        }
        std::atomic<bool> mayEnd = false;
    } waiting;
    { Utilities::Thread().Start(&waiting); }
    EXPECT_EQ(refusal(), "; there still live: 1 ThreadImplementation");
    waiting.mayEnd = true;
    for (int i = 0; i < 5000 && refusal() != "unloaded"; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_FALSE(IsMapped("NorvelianGui.so"));

    // Going out of scope can't throw: the module stays, and the object with it.
    std::string reported;
    auto const former =
        Diagnostics::SetSink([&](auto const&, auto const& what) { reported = what.GetCharPointer(); });
    plugin = std::make_unique<Plugin>(ModulePath());
    one = Utilities::ResolveComponent<Utilities::Component>("HBox");
    plugin.reset();
    Diagnostics::SetSink(former);
    EXPECT_TRUE(reported.ends_with("stays loaded; there still live: 1 HBox")) << reported;
    EXPECT_TRUE(IsMapped("NorvelianGui.so"));
    one = nullptr;
    void* const stillThere = ::dlopen(ModulePath().c_str(), RTLD_LAZY | RTLD_NOLOAD);
    ::dlclose(stillThere);
    ::dlclose(stillThere);
    EXPECT_FALSE(IsMapped("NorvelianGui.so"));
}

TEST(PluginModule, BuildsAndDropsAWindowTwice) {
    // Two whole lives of the module in one process.
    for (int round = 0; round < 2; ++round) {
        Plugin plugin(ModulePath());
        {
            GUI::Application application("plugin-tests");
            application.SetOffscreen(true);
            application.GetImplementation();
            auto const description = GUI::GUIDescriptionReader::Parse(
                R"(<Window ElementName="Main" Width="200" Height="100">
                     <VBox><Pane ElementName="A"/><HBox><Pane ElementName="B"/><GumBox MaximalWidth="10"/></HBox></VBox>
                   </Window>)",
                "test");
            auto const none =
                Utilities::ResolveComponent<GUI::PlatformIndependentWindowID>("PlatformIndependentWindowID");
            auto const window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
            window->Initialize(*none, description, nullptr);
            EXPECT_EQ(window->FindElement("B").GetElementName(), "B");
        }
        EXPECT_TRUE(plugin.Unload()) << round;
        EXPECT_FALSE(IsMapped("NorvelianGui.so")) << round;
    }
}

TEST(PluginModule, DoesNotGoInsideAQuestionOfAnElement) {
    Plugin plugin(ModulePath());
    {
        GUI::Application application("plugin-tests");
        application.SetOffscreen(true);
        application.GetImplementation();
        SmartPointer<GUI::GUIElement> window;
        struct Source : GUI::DialogHandler {
            std::function<void()> strike;
            Utilities::Anything GetValue(Utilities::String const&, Utilities::String const&) override {
                if (strike) std::exchange(strike, nullptr)();
                return {};
            }
        } source;
        int refused = 0;
        for (bool const drop : {false, true}) {
            auto const none =
                Utilities::ResolveComponent<GUI::PlatformIndependentWindowID>("PlatformIndependentWindowID");
            window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
            window->Initialize(
                *none,
                GUI::GUIDescriptionReader::Parse(
                    "<Window ElementName='Main' Width='99' Height='99'><FixedText ElementName='t'/></Window>",
                    "test"),
                &source);
            source.strike = [&] {
                // Released elements wait for the end of the call and still need their code.
                if (drop) window = nullptr;
                EXPECT_THROW(plugin.Unload(), Norvelian::Utilities::Exceptions::ResourceException);
                ++refused;
            };
            GUI::EventScope const event;
            auto& element = window->FindElement("t");
            GUI::CallScope const call(element);
            element.OnUpdate({});
        }
        EXPECT_EQ(refused, 2);
    }
    EXPECT_TRUE(plugin.Unload());
    EXPECT_FALSE(IsMapped("NorvelianGui.so"));
}

TEST(PluginModule, APictureThatDoesNotFitOnTheDiskLeavesTheFormerOne) {
    Plugin const plugin(ModulePath());
    Tests::TemporaryDirectory const directory;
    std::string const path = directory / "picture.png";
    GUI::Application application("plugin-tests");
    application.SetOffscreen(true);
    auto& platform = application.GetImplementation();
    auto const none =
        Utilities::ResolveComponent<GUI::PlatformIndependentWindowID>("PlatformIndependentWindowID");
    auto const window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
    window->Initialize(
        *none,
        GUI::GUIDescriptionReader::Parse(
            R"(<Window ElementName="Main" Width="200" Height="100"><Pane ElementName="A"/></Window>)",
            "test"),
        nullptr);
    EXPECT_FALSE(platform.SaveWindowPicture(*window, directory / "picture.unknown"));
    EXPECT_FALSE(platform.SaveWindowPicture(*window, directory / "picture"));
    ASSERT_TRUE(platform.SaveWindowPicture(*window, path));
    std::string const whole = Tests::ReadFile(path);
    EXPECT_EQ(whole.substr(1, 3), "PNG");

    rlimit former{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &former), 0);
    auto* const handler = ::signal(SIGXFSZ, SIG_IGN);
    rlimit const full{whole.size() / 2, former.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
    bool const written = platform.SaveWindowPicture(*window, path);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &former), 0);
    ::signal(SIGXFSZ, handler);
    EXPECT_FALSE(written);
    EXPECT_EQ(Tests::ReadFile(path), whole);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.GetPath()), {}), 1);
}

/// How many elements of a window can't be built. Boxes leave them out.
std::size_t CountMissing(GUI::DescriptionTree const& description) {
    GUI::DialogHandler handler;
    auto const none =
        Utilities::ResolveComponent<GUI::PlatformIndependentWindowID>("PlatformIndependentWindowID");
    auto const failed = GUI::GUIElement::GetFailedCount();
    auto const window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
    window->Initialize(*none, description, &handler);
    return GUI::GUIElement::GetFailedCount() - failed;
}

/// Of a report without data.
unsigned long PagesOf(GUI::DescriptionTree const& report) {
    Tests::TemporaryDirectory const directory;
    auto const service = Utilities::ResolveComponent<GUI::ReportService>("ReportService");
    return service->SavePdf(report, nullptr, directory / "report.pdf");
}

TEST(PluginModule, ShippedDescriptionsSayOnlyWhatTheirElementsRead) {
    Plugin plugin(ModulePath());
    std::vector<std::string> unknown;
    auto const former = Diagnostics::SetSink(
        [&unknown](auto const& /*where*/, auto const& what) { unknown.emplace_back(what.GetCharPointer()); });
    std::vector<GUI::DescriptionTree> descriptions;
    for (auto const& entry : std::filesystem::directory_iterator(DESCRIPTIONS))
        descriptions.push_back(GUI::GUIDescriptionReader::GetGUIDescriptionTree(entry.path().string()));
    EXPECT_FALSE(descriptions.empty());
    EXPECT_EQ(unknown, std::vector<std::string>());
    // The check itself sees one.
    GUI::GUIDescriptionReader::Parse(R"(<Pane ElementName="A" Colour="1,2,3"/>)", "typing.xml");
    EXPECT_EQ(unknown, std::vector<std::string>{"typing.xml:1: <Pane> has no attribute \"Colour\""});

    GUI::Application application("plugin-tests");
    application.SetOffscreen(true);
    application.GetImplementation();
    for (auto const& description : descriptions) {
        bool const isReport =
            GUI::AttributeReader(description).Text(GUI::CommonAttributes::elementType) == "Report";
        EXPECT_TRUE(isReport ? PagesOf(description) > 0 : CountMissing(description) == 0);
    }
    EXPECT_EQ(CountMissing(GUI::GUIDescriptionReader::Parse(
                  "<Window ElementName='w' Width='9' Height='9'><VBox><LoopBox CounterVariable='#' Base='1'>"
                  "<HBox MinimalWidth='-#'/></LoopBox></VBox></Window>",
                  "sizes.xml")),
              1U);
    Diagnostics::SetSink(former);
}

/// The reason for which a file isn't loaded.
std::string Refusal(std::string const& path) {
    try {
        Plugin const plugin(path);
    } catch (Norvelian::Utilities::Exceptions::ResourceNotAvailableException const& failure) {
        std::string const text = failure.what();
        return text.substr(text.find("loaded: ") + 8);
    }
    return "loaded";
}

TEST(PluginModule, AFileThatIsNoPluginIsRefusedWithTheReason) {
    using testing::HasSubstr;
    Tests::TemporaryDirectory const directory;
    EXPECT_EQ(Refusal("/nonexistent/x.so"), "No such file or directory");
    EXPECT_EQ(Refusal(directory.GetPath()), "it isn't an ordinary file");
    Tests::WriteFile(directory / "text.so",
                     "no module, but long enough to hold the header of one: " + std::string(100, '.'));
    EXPECT_EQ(Refusal(directory / "text.so"), "it isn't a module for this system");
    std::string const whole = Tests::ReadFile(ModulePath());
    // Of a module with debug information only the first part is mapped.
    for (std::size_t const size : {std::size_t{0}, std::size_t{100}, whole.size() / 20, whole.size() / 10}) {
        Tests::WriteFile(directory / "cut.so", whole.substr(0, size));
        EXPECT_EQ(Refusal(directory / "cut.so"), "the file is cut short") << size;
    }

    // A module in the current directory, as a relative path would find it.
    std::filesystem::copy_file(ModulePath(), directory / "near.so");
    auto const former = std::filesystem::current_path();
    std::filesystem::current_path(directory.GetPath());
    for (char const* const path : {"near.so", "./near.so", "libm.so.6", ""})
        EXPECT_EQ(Refusal(path), "its path isn't absolute") << path;
    std::filesystem::current_path(former);

    EXPECT_THAT(Refusal(BAD_MODULES "NO_NOTE.so"), HasSubstr("it has no note of its interface"));
    EXPECT_THAT(Refusal(BAD_MODULES "OTHER_INTERFACE.so"),
                testing::MatchesRegex("it is built for interface 1, .*, this program for interface .*"));
    EXPECT_FALSE(::getenv("BAD_MODULE_RAN")) << "neither of the two was run";
    EXPECT_THAT(Refusal(BAD_MODULES "MISSING_SYMBOL.so"), HasSubstr("undefined symbol: NobodyHasThis"));
    EXPECT_THAT(Refusal(BAD_MODULES "NO_EXPORTS.so"), HasSubstr("undefined symbol: PluginResolve"));
    EXPECT_EQ(Refusal(BAD_MODULES "DATA_EXPORT.so"), "PluginCanUnloadDll is no function");
    EXPECT_TRUE(::getenv("BAD_MODULE_RAN"));
    EXPECT_DEATH(Refusal(BAD_MODULES "THROWING.so"),
                 "THROWING.so threw .* while it was being loaded: on purpose");
}
