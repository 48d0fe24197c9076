#include "gui/elements/description/ElementRegistration.h"
#include "gui/layout/Boxes.h"

/// In a unit of its own for its place in the order of registration.
namespace GUI {

namespace {

constexpr Attribute ownAttributes[] = {GUILayoutElementBox::seamless};
constexpr auto attributes =
    CommonAttributes::WithUnusedSizes(ownAttributes, GUILayoutElementBox::sizesFollow);
ElementRegistration<VBox, GUIElement> const registration({"VBox", "$Revision: 1.17 $", "GUI"}, attributes);

} // namespace

} // namespace GUI
