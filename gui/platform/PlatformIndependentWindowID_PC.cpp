#include "gui/platform/PlatformIndependentWindowID_PC.h"

#include "core/creators/ComponentCreator.h"

namespace GUI {

namespace {

Utilities::ComponentCreatorNormal<PlatformIndependentWindowID_PC> creator({"PlatformIndependentWindowID",
                                                                           "$Revision: 1.14 $", "GUI"});

/// Identities are numbered by the system: asking the platform for one would make every pane a window
/// of the display server's.
std::uint32_t lastID = 0;

} // namespace

PlatformIndependentWindowID_PC&
PlatformIndependentWindowID_PC::operator=(PlatformIndependentWindowID const& other) {
    return *this = dynamic_cast<PlatformIndependentWindowID_PC const&>(other);
}

void PlatformIndependentWindowID_PC::Set(Utilities::SmartPointer<PlatformIndependentWindowID> other) {
    PlatformIndependentWindowID::Set(other);
    Utilities::SmartPointer<PlatformIndependentWindowID_PC> const bound(other);
    window_ = bound->window_;
    pane_ = bound->pane_;
}

void PlatformIndependentWindowID_PC::SetWindow(QWidget* window) {
    window_ = window;
    pane_.reset();
    SetID(++lastID);
}

void PlatformIndependentWindowID_PC::SetWindow(QWidget* surface, std::shared_ptr<LightWindow> const& pane) {
    SetWindow(surface);
    pane_ = pane;
}

QWidget* PlatformIndependentWindowID_PC::WindowOf(PlatformIndependentWindowID const& identity) {
    auto const* const bound = dynamic_cast<PlatformIndependentWindowID_PC const*>(&identity);
    return bound ? bound->GetWindow() : nullptr;
}

void PlatformIndependentWindowID_PC::RepaintPart(PaneBox const& box) {
    auto const pane = GetLightWindow();
    if (!pane || !pane->GetOwner()) return;
    auto const place = [](long at) { return static_cast<int>(at); };
    pane->GetOwner()->RepaintPart({place(box.left), place(box.top), place(box.right), place(box.bottom)});
}

} // namespace GUI
