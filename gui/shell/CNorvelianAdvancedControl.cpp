#include "gui/shell/CNorvelianAdvancedControl.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/Pane.h"
#include "gui/elements/Topics.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/AdvancedControlImpl_PC.h"
#include "gui/shell/CNorvelianAccessible.h"
#include "gui/shell/Menu_PC.h"

#include <QAccessible>
#include <QImage>
#include <cstdint>

namespace GUI {

using Utilities::String;

namespace {

/// The halves of a packed position, which are unsigned: a place left of the window is a large number.
long Packed(int coordinate) { return static_cast<std::uint16_t>(coordinate); }

} // namespace

CNorvelianAdvancedControl::CNorvelianAdvancedControl(AdvancedControlImpl_PC& impl, CNorvelianSurface& surface,
                                                     LightWindow& parent, bool tabStop,
                                                     String const& contextMenu)
    : impl_(&impl), surface_(&surface), window_(surface.GetTree().Add(parent, this, LightWindow::Kind::Pane)),
      contextMenu_(contextMenu) {
    window_->SetTabStop(tabStop);
}

CNorvelianAdvancedControl::~CNorvelianAdvancedControl() {
    Detach();
    if (accessibleId_ != 0) QAccessible::deleteAccessibleInterface(accessibleId_);
}

void CNorvelianAdvancedControl::Detach() {
    impl_ = nullptr;
    window_->ClearOwner();
    if (!window_->GetTree()) return;
    TellAssistiveTechnology(QAccessible::ObjectDestroyed);
    if (surface_) surface_->Forget(*this);
    window_->Leave();
    // What was behind shows at the next turn of the event loop.
    if (surface_) surface_->SettleLater();
}

template <class Handler>
auto CNorvelianAdvancedControl::Guarded(char const* where, Handler handler) -> decltype(handler()) {
    using Result = decltype(handler());
    if (!impl_) return Result();
    // The pane may drop its own window.
    auto const self = shared_from_this();
    try {
        return handler();
    } catch (...) {
        Diagnostics::DropException(where);
        return Result();
    }
}

void CNorvelianAdvancedControl::TellAssistiveTechnology(int event) {
    if (accessibleId_ == 0 && event == QAccessible::ObjectDestroyed) return;
    QAccessibleEvent told(CNorvelianAccessiblePane::Of(*this), static_cast<QAccessible::Event>(event));
    QAccessible::updateAccessibility(&told);
}

void CNorvelianAdvancedControl::TellAccessibleChange() {
    // Nobody has asked for the state before.
    if (accessibleId_ == 0) return;
    QAccessible::State changed;
    changed.pressed = changed.checked = changed.disabled = true;
    QAccessibleStateChangeEvent told(CNorvelianAccessiblePane::Of(*this), changed);
    QAccessible::updateAccessibility(&told);
}

Accessible CNorvelianAdvancedControl::GetAccessible() {
    Accessible told =
        Guarded("CNorvelianAdvancedControl: accessible", [&] { return impl_->GetAccessible(); });
    // Space clicks it.
    if (told.role == Accessible::Role::Group && window_->IsTabStop()) {
        told.role = Accessible::Role::Button;
        told.isPressable = true;
    }
    return told;
}

void CNorvelianAdvancedControl::RepaintNow() {
    if (surface_) surface_->RepaintNow(*window_);
}

void CNorvelianAdvancedControl::RepaintPart(PixelBox const& box) {
    if (!surface_) return;
    PixelBox const whole = window_->GetBox();
    PixelBox const visible = window_->GetVisibleBox();
    PixelBox const part{
        std::max(whole.left + box.left, visible.left), std::max(whole.top + box.top, visible.top),
        std::min(whole.left + box.right, visible.right), std::min(whole.top + box.bottom, visible.bottom)};
    if (!part.IsEmpty()) surface_->RepaintNow(part);
}

void CNorvelianAdvancedControl::Moved() {
    if (surface_) surface_->SettleLater();
}

void CNorvelianAdvancedControl::Show(bool visible) {
    if (visible == window_->IsShown()) return;
    window_->Show(visible);
    if (!surface_) return;
    if (!visible) surface_->Forget(*this);
    surface_->SettleLater();
}

void CNorvelianAdvancedControl::SetFocus() {
    if (surface_) surface_->TakeFocus(*this, Qt::OtherFocusReason);
}

void CNorvelianAdvancedControl::SetMouseCapture(bool capture) {
    if (surface_) surface_->Capture(*this, capture);
}

void CNorvelianAdvancedControl::UpdateDeviceContext() {
    if (painting_) return;
    painting_ = true;
    auto const self = shared_from_this();
    Guarded("CNorvelianAdvancedControl: device context", [this] {
        // What the pane asks of the surface outside a paint are measures; nothing drawn here is kept.
        QImage surface(1, 1, QImage::Format_RGB32);
        PlatformIndependentDeviceContext_PC context(surface);
        impl_->OnGetDeviceContext(context);
    });
    painting_ = false;
}

QPoint CNorvelianAdvancedControl::FromSurface(QPoint const& place) const {
    PixelBox const& box = window_->GetBox();
    return {place.x() - box.left, place.y() - box.top};
}

void CNorvelianAdvancedControl::OnPaint(PlatformIndependentDeviceContext& context) {
    if (painting_) return;
    painting_ = true;
    auto const self = shared_from_this();
    Guarded("CNorvelianAdvancedControl: paint", [&] { impl_->OnPaint(context); });
    painting_ = false;
}

bool CNorvelianAdvancedControl::LeavesPixels() const { return impl_ && impl_->LeavesPixels(); }

bool CNorvelianAdvancedControl::OnMouseMove(QPoint const& place) {
    return Guarded("CNorvelianAdvancedControl: mouse move",
                   [&] { return impl_->OnMouseMove(Packed(place.x()), Packed(place.y())); });
}

bool CNorvelianAdvancedControl::IsDragable(QPoint const& place) {
    return Guarded("CNorvelianAdvancedControl: cursor", [&] {
        return impl_->IsDragable({place.x(), place.y()});
    });
}

bool CNorvelianAdvancedControl::OnLeftButtonDown(bool controlKey, QPoint const& place) {
    return Guarded("CNorvelianAdvancedControl: left button down", [&] {
        impl_->OnSelectionChanged(Topics::propertyInspector, true);
        if (!impl_) return true;
        return impl_->OnLeftButtonDown(controlKey, Packed(place.x()), Packed(place.y()));
    });
}

bool CNorvelianAdvancedControl::OnLeftButtonUp(QPoint const& place) {
    return Guarded("CNorvelianAdvancedControl: left button up",
                   [&] { return impl_->OnLeftButtonUp(Packed(place.x()), Packed(place.y())); });
}

bool CNorvelianAdvancedControl::OnMouseLeave() {
    return Guarded("CNorvelianAdvancedControl: mouse leave", [&] { return impl_->OnMouseLeave(); });
}

void CNorvelianAdvancedControl::OnFocus(bool focused) {
    if (focused) TellAssistiveTechnology(QAccessible::Focus);
    Guarded("CNorvelianAdvancedControl: focus", [&] { impl_->OnSelectionChanged(Topics::focus, focused); });
}

void CNorvelianAdvancedControl::OnClickKey(bool controlKey) {
    QPoint const middle(window_->GetWidth() / 2, window_->GetHeight() / 2);
    OnLeftButtonDown(controlKey, middle);
    OnLeftButtonUp(middle);
    // The mouse wasn't in it.
    if (surface_ && !surface_->IsUnderMouse(*this)) OnMouseLeave();
}

KeyboardGroup* CNorvelianAdvancedControl::FindGroup() const {
    for (GUIElement* element = impl_ ? impl_->GetPane() : nullptr; element;
         element = element->GetParentElement())
        if (auto* const group = dynamic_cast<KeyboardGroup*>(element)) return group;
    return nullptr;
}

bool CNorvelianAdvancedControl::OnNavigationKey(NavigationKey key) {
    return Guarded("CNorvelianAdvancedControl: key", [&] {
        KeyboardGroup* const group = FindGroup();
        if (!group) return false;
        // The pane keeps what it is in.
        CallScope const call(*impl_->GetPane());
        return group->OnNavigationKey(key, *impl_->GetPane());
    });
}

bool CNorvelianAdvancedControl::OnViewKey(ViewKey key) {
    return Guarded("CNorvelianAdvancedControl: view key", [&] {
        auto* const view = dynamic_cast<ViewInput*>(impl_->GetPane());
        return view && view->OnViewKey(key);
    });
}

bool CNorvelianAdvancedControl::OnWheel(double steps, QPoint const& place) {
    return Guarded("CNorvelianAdvancedControl: wheel", [&] {
        auto* const view = dynamic_cast<ViewInput*>(impl_->GetPane());
        return view && view->OnWheel(steps, place.x(), place.y());
    });
}

bool CNorvelianAdvancedControl::OpenContextMenu(QPoint const& place) {
    if (contextMenu_.Length() == 0) return false;
    return Guarded("CNorvelianAdvancedControl: context menu", [&] {
        Pane& pane = *impl_->GetPane();
        GUIElement* root = &pane;
        while (GUIElement* const outer = root->GetParentElement()) root = outer;
        auto* const menu = dynamic_cast<Menu_PC*>(&root->FindElement(contextMenu_));
        if (!menu) return false;
        CallScope const call(*menu);
        if (DialogDataSource* const source = menu->GetDataSource())
            source->SetValue(menu->GetElementName(), Menu::contextElement, pane.GetElementName());
        if (call.IsAttached()) menu->Popup(place.x(), place.y());
        return true;
    });
}

bool CNorvelianAdvancedControl::IsTabStopOfGroup() {
    KeyboardGroup* const group = FindGroup();
    return !group || Guarded("CNorvelianAdvancedControl: tab stop",
                             [&] { return group->IsTabStop(*impl_->GetPane()); });
}

QString CNorvelianAdvancedControl::GetToolTipText(QPoint const& place) {
    return Guarded("CNorvelianAdvancedControl: tool tip", [&] {
        return ToShownText(impl_->GetToolTipText(static_cast<unsigned short>(place.x()),
                                                 static_cast<unsigned short>(place.y())));
    });
}

DropEffect CNorvelianAdvancedControl::OnDragOver(DropDataObject const& data, bool controlKey,
                                                 QPoint const& place) {
    return Guarded("CNorvelianAdvancedControl: drag",
                   [&] { return impl_->OnDragOver(data, controlKey, place.x(), place.y()); });
}

void CNorvelianAdvancedControl::OnDragLeave() {
    Guarded("CNorvelianAdvancedControl: drag leaves", [&] { impl_->OnDragLeave(); });
}

bool CNorvelianAdvancedControl::OnDrop(DropDataObject const& data, DropEffect effect, QPoint const& place) {
    return Guarded("CNorvelianAdvancedControl: drop",
                   [&] { return impl_->OnDrop(data, effect, place.x(), place.y()); });
}

} // namespace GUI
