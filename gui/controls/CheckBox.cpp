#include "gui/controls/CheckBox.h"

namespace GUI {

namespace {

constexpr Attribute attributes[] = {CheckBox::caption,
                                    CheckBox::triState,
                                    ControlAttributes::backgroundColor,
                                    ControlAttributes::toolTipText,
                                    ControlAttributes::mnemonics,
                                    ControlAttributes::accessibleName};
AttributeTable const table("CheckBox", "GUIElement", attributes);

} // namespace

void CheckBox::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                          DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    RegisterOnUpdate();
}

} // namespace GUI
