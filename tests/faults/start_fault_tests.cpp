// A host's start and end with a plug-in: every open, read and map fails once. The module is loaded or refused
// with a reason, a window is built or an exception told, and nothing of either stays behind.
#include "Utilities/NamingService.h"
#include "Utilities/Plugin.h"
#include "Utilities/ProgramDirectory.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "tests/faults/WithEachFailure.h"

namespace {

using Tests::WithEachFailure;
using Tests::SystemCalls::Call;
using Utilities::Plugin;

std::string ModulePath() { return Utilities::GetModulePath("NorvelianGui"); }

TEST(StartFaults, AModuleIsLoadedAndUnloadedOrRefused) {
    bool loaded = false;
    WithEachFailure(
        {Call::Open, Call::Read, Call::Map},
        [&] {
            loaded = false;
            Plugin plugin(ModulePath());
            loaded = Utilities::NamingService::Instance()->IsRegistered("Window");
            EXPECT_TRUE(plugin.Unload());
        },
        [&](bool told) {
            EXPECT_NE(loaded, told);
            EXPECT_TRUE(Utilities::NamingService::Instance()->GetCreators().empty());
        });
}

TEST(StartFaults, AWindowIsOpenedAndDroppedOrTheFailureIsTold) {
    bool shown = false;
    WithEachFailure(
        {Call::Open, Call::Read, Call::Map},
        [&] {
            shown = false;
            Plugin plugin(ModulePath());
            {
                GUI::Application application("fault-tests");
                application.SetOffscreen(true);
                application.GetImplementation();
                auto const description = GUI::GUIDescriptionReader::Parse(
                    "<Window ElementName='Main' Width='200' Height='100'><VBox><Pane ElementName='A'/>"
                    "<FixedText ElementName='t' Caption='text'/></VBox></Window>",
                    "test");
                auto const none = Utilities::ResolveComponent<GUI::PlatformIndependentWindowID>(
                    "PlatformIndependentWindowID");
                auto const window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
                window->Initialize(*none, description, nullptr);
                shown = window->FindElement("t").GetElementName() == "t";
            }
            EXPECT_TRUE(plugin.Unload());
        },
        [&](bool told) {
            EXPECT_TRUE(shown || told);
            EXPECT_TRUE(Utilities::NamingService::Instance()->GetCreators().empty());
        });
}

} // namespace
