#include "gui/colour/HostScreen.h"

#include "Utilities/NamingService.h"

namespace GUI {

Utilities::SmartPointer<Tintorium::ScreenRGB> FindHostScreen() {
    constexpr char const* name = "Model";
    if (!Utilities::NamingService::Instance()->IsRegistered(name)) return {};
    auto const model = Utilities::ResolveComponent<Tintorium::Model>(name);
    auto screen = model->GetComponent("ScreenRGB");
    return Utilities::SmartPointer<Tintorium::ScreenRGB>(screen);
}

} // namespace GUI
