#include "gui/elements/description/ElementRegistration.h"
#include "gui/layout/Boxes.h"

/// In a unit of its own for its place in the order of registration.
namespace GUI {

namespace {

constexpr auto attributes = CommonAttributes::UnusedSizes(GUILayoutElementBox::sizesFollow);
ElementRegistration<VBox, GUIElement> const registration({"VBox", "$Revision: 1.17 $", "GUI"}, attributes);

} // namespace

} // namespace GUI
