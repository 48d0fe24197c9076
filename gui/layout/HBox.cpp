#include "gui/layout/HBox.h"

#include "core/creators/ComponentCreator.h"
#include "gui/elements/description/Attributes.h"

namespace GUI {

namespace {

Utilities::ComponentCreatorNormal<HBox> const creator({"HBox", "$Revision: 1.15 $", "GUI"});
AttributeTable const table("HBox", "GUIElement", {});

} // namespace

void HBox::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                      DialogDataSource* dataSource) {
    InitializeBox(parent, description, dataSource);
}

void HBox::SetSize(unsigned long width, unsigned long height) {
    GUILayoutElementBox::SetSize(width, height);
    mainAxisSize_ = static_cast<std::uint32_t>(width);
    LayOutChildren<Axis::Horizontal>(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
}

void HBox::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                              unsigned long& minimalHeight, unsigned long& maximalHeight) {
    AddUpSizeInformation<Axis::Horizontal>(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
}

} // namespace GUI
