// A host's whole way with the plug-in: load, find, use, prepare, unload.
#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "Utilities/Plugin.h"
#include "Utilities/ProgramDirectory.h"
#include "gui/elements/Application.h"
#include "gui/elements/Attributes.h"
#include "gui/elements/GUIDescriptionReader.h"

#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <set>

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
    EXPECT_EQ(plugin.GetComponentDescriptors(), plugin.GetComponentDescriptors());
    EXPECT_TRUE(plugin.CanUnload()) << "even while components are alive";
    result = nullptr;
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

TEST(PluginModule, ShippedDescriptionsSayOnlyWhatTheirElementsRead) {
    Plugin plugin(ModulePath());
    std::vector<std::string> unknown;
    auto const former = Diagnostics::SetSink(
        [&unknown](auto const& /*where*/, auto const& what) { unknown.emplace_back(what.GetCharPointer()); });
    int files = 0;
    for (auto const& entry : std::filesystem::directory_iterator(DESCRIPTIONS)) {
        EXPECT_NO_THROW(GUI::GUIDescriptionReader::GetGUIDescriptionTree(entry.path().string()));
        ++files;
    }
    EXPECT_GT(files, 0);
    EXPECT_EQ(unknown, std::vector<std::string>());
    // The check itself sees one.
    GUI::GUIDescriptionReader::Parse(R"(<Pane ElementName="A" Colour="1,2,3"/>)", "typing.xml");
    EXPECT_EQ(unknown, std::vector<std::string>{"typing.xml: <Pane> has no attribute \"Colour\""});
    Diagnostics::SetSink(former);
}

TEST(PluginModule, AFileThatIsNoPluginIsRefusedWithTheReason) {
    EXPECT_THROW(Plugin("/nonexistent/x.so"),
                 Norvelian::Utilities::Exceptions::ResourceNotAvailableException);
    EXPECT_THROW(Plugin("libm.so.6"), Norvelian::Utilities::Exceptions::ResourceNotAvailableException);
}
