#include "gui/layout/VBox.h"

#include "core/creators/ComponentCreator.h"
#include "gui/elements/description/Attributes.h"

namespace GUI {

namespace {

Utilities::ComponentCreatorNormal<VBox> const creator({"VBox", "$Revision: 1.17 $", "GUI"});
AttributeTable const table("VBox", "GUIElement", {});

} // namespace

void VBox::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                      DialogDataSource* dataSource) {
    InitializeBox(parent, description, dataSource);
}

void VBox::SetSize(unsigned long width, unsigned long height) {
    GUILayoutElementBox::SetSize(width, height);
    mainAxisSize_ = static_cast<std::uint32_t>(height);
    LayOutChildren<Axis::Vertical>(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
}

void VBox::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                              unsigned long& minimalHeight, unsigned long& maximalHeight) {
    AddUpSizeInformation<Axis::Vertical>(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
}

} // namespace GUI
