#include "gui/layout/GUIDSwitch.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "gui/elements/LayoutScope.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

namespace {

ElementRegistration<GUIDSwitch, GUIElement> const registration({"GUIDSwitch", "$Revision: 1.4 $", "GUI"});

} // namespace

void GUIDSwitch::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    SetWindowID(Utilities::ResolveComponent<PlatformIndependentWindowID>("PlatformIndependentWindowID"));
    *GetWindowID() = parent;
    try {
        CreateChildren(*GetWindowID(), description, GetDataSource());
    } catch (...) {
        Diagnostics::DropException("GUIDSwitch::Initialize");
    }
}

void GUIDSwitch::SetPosition(unsigned long x, unsigned long y) {
    CallScope const call(*this);
    GUIElement::SetPosition(x, y);
    for (auto it = GetChildrenList().Begin(); it.IsValid(); ++it) it.Current()->SetPosition(x, y);
}

void GUIDSwitch::SetSize(unsigned long width, unsigned long height) {
    CallScope const call(*this);
    GUIElement::SetSize(width, height);
    LayoutScope const layout;
    for (auto it = GetChildrenList().Begin(); it.IsValid(); ++it) it.Current()->SetSize(width, height);
}

void GUIDSwitch::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                         GUIElement const& /*element*/) const {
    PassOnPaintWindowDecorators(context);
}

} // namespace GUI
