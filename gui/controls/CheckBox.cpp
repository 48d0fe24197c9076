#include "gui/controls/CheckBox.h"

namespace GUI {

void CheckBox::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                          DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    RegisterOnUpdate();
}

} // namespace GUI
