#include "gui/layout/Boxes.h"

#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

namespace {

constexpr Attribute ownAttributes[] = {GUILayoutElementBox::seamless};
constexpr auto attributes =
    CommonAttributes::WithUnusedSizes(ownAttributes, GUILayoutElementBox::sizesFollow);
ElementRegistration<HBox, GUIElement> const registration({"HBox", "$Revision: 1.15 $", "GUI"}, attributes);

} // namespace

void HBox::SetSize(unsigned long width, unsigned long height) {
    GUILayoutElementBox::SetSize(width, height);
    mainAxisSize_ = static_cast<std::uint32_t>(width);
    LayOutChildren<Axis::Horizontal>(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
}

void HBox::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                              unsigned long& minimalHeight, unsigned long& maximalHeight) {
    AddUpSizeInformation<Axis::Horizontal>(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
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
