#include "gui/controls/CheckBox.h"

#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"

namespace GUI {

void CheckBox::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                          DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    RegisterOnUpdate();
}

void CheckBox::OnClicked(long state) {
    CallScope const call(*this);
    try {
        TellValue("State", state);
        Fire(Events::click, GetElementName());
    } catch (std::exception const& failure) {
        Application::Instance().ReportError(
            (std::string("An unexpected error occured. Error text:") + failure.what()).c_str());
    }
}

} // namespace GUI
