// The host of the README, which ends by itself.
#include "Utilities/NamingService.h"
#include "Utilities/Plugin.h"
#include "Utilities/ProgramDirectory.h"
#include "cxf/colorimetry/TristimService.h"
#include "gui/elements/DialogHandler.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/description/GUIDescriptionReader.h"

#include <cstdio>

int main() {
    Utilities::Plugin plugin(Utilities::GetModulePath("NorvelianGui"));
    GUI::Application application("minimal_host");
    application.SetOffscreen(true);
    application.GetImplementation();
    GUI::DialogHandler handler;
    auto const description = GUI::GUIDescriptionReader::Parse(
        R"(<Window ElementName="Main" Caption="Hello" Width="320" Height="200">
             <VBox><Pane ElementName="Red" BackgroundColor="200,0,0"/></VBox>
           </Window>)",
        "host");
    auto const desktop =
        Utilities::ResolveComponent<GUI::PlatformIndependentWindowID>("PlatformIndependentWindowID");
    auto window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
    window->Initialize(*desktop, description, &handler);
    bool const written = application.GetImplementation().SaveWindowPicture(*window, "minimal_host.png");
    window = nullptr;
    application.ReleaseImplementation();

    Norvelian::Tristim::NVSpectrum const white(std::vector<float>(36, 1.0F));
    auto const lab = Norvelian::Tristim::TristimService::GetVector(white, {});
    std::printf("L* of white %.3f, picture %s\n", lab.GetExact(0), written ? "written" : "missing");
    return written && lab.GetExact(0) > 99.999 ? 0 : 1;
}
