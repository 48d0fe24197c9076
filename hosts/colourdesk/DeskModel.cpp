#include "hosts/colourdesk/DeskModel.h"

#include "core/creators/ComponentCreator.h"

namespace ColourDesk {

namespace {

Utilities::ComponentCreatorNormal<DeskModel> const creator({"Model", "$Revision: 1.1 $", "Tintorium"});

Tintorium::ScreenRGB& GetScreen() {
    static Tintorium::ScreenRGB screen;
    return screen;
}

} // namespace

Utilities::SmartPointer<Utilities::Component> DeskModel::GetComponent(Utilities::String const& name) {
    if (!(name == "ScreenRGB")) return {};
    return Utilities::SmartPointer<Utilities::Component>(
        Utilities::MakeSmart<Tintorium::ScreenRGB>(GetScreen()));
}

void DeskModel::SetScreen(Tintorium::ScreenRGB const& screen) { GetScreen() = screen; }

} // namespace ColourDesk
