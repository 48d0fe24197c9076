#include "gui/shell/NativeControl_PC.h"

#include "gui/platform/Color_PC.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/TextConversion_PC.h"

#include <QFocusEvent>
#include <QStyle>

namespace GUI {

namespace {

constexpr char const* ownerProperty = "norvelianControl";

} // namespace

NativeControl::Place NativeControl::FindPlace(PlatformIndependentWindowID const& parent) {
    auto const* const identity = dynamic_cast<PlatformIndependentWindowID_PC const*>(&parent);
    QWidget* const window = identity ? identity->GetWindow() : nullptr;
    if (!window) return {};
    CNorvelianSurface& surface = CNorvelianSurface::Of(*window);
    auto const outer = identity->GetLightWindow();
    return {&surface, outer ? outer.get() : &surface.GetTree().GetRoot()};
}

void NativeControl::Take(QWidget& widget, Place const& place) {
    widget_ = &widget;
    surface_ = place.surface;
    window_ = place.surface->GetTree().Add(*place.outer, this, LightWindow::Kind::Native);
    widget.setProperty(ownerProperty, QVariant::fromValue<void*>(this));
    widget.hide();
    widget.installEventFilter(this);
    // Enter doesn't press a button that only happens to have the focus.
    if (auto* const button = qobject_cast<QPushButton*>(&widget)) button->setAutoDefault(false);
    if (place.surface->GetStyle()) TakeTheme();
    // The surface decides where Tab goes, in the order of the description.
    SetTabStop((widget.focusPolicy() & Qt::TabFocus) != 0);
}

NativeControl* NativeControl::Of(QWidget const& widget) {
    return static_cast<NativeControl*>(widget.property(ownerProperty).value<void*>());
}

void NativeControl::SetTabStop(bool stop) {
    if (window_) window_->SetTabStop(stop);
    if (widget_) widget_->setFocusPolicy(stop ? Qt::ClickFocus : Qt::NoFocus);
}

bool NativeControl::CanTakeFocus() const { return widget_ && widget_->isEnabled(); }

void NativeControl::SetPosition(unsigned long x, unsigned long y) {
    if (!window_) return;
    window_->SetPosition(static_cast<int>(x), static_cast<int>(y));
    SettleLater();
}

void NativeControl::SetSize(unsigned long width, unsigned long height) {
    if (!window_) return;
    window_->SetSize(static_cast<int>(width), static_cast<int>(height));
    SettleLater();
}

void NativeControl::Show(bool visible) {
    if (!window_ || visible == window_->IsShown()) return;
    window_->Show(visible);
    window_->GetVisibleBox();
}

void NativeControl::SettleLater() {
    if (surface_) surface_->SettleLater();
}

void NativeControl::OnPlaced(PixelBox const& box, PixelBox const& visible) {
    QPointer<QWidget> const widget = widget_;
    if (!widget) return;
    if (visible.IsEmpty()) return widget->hide();
    widget->setGeometry(box.left, box.top, box.GetWidth(), box.GetHeight());
    if (!widget) return;
    if (visible == box)
        widget->clearMask();
    else
        widget->setMask(
            QRegion(visible.left - box.left, visible.top - box.top, visible.GetWidth(), visible.GetHeight()));
    widget->show();
}

void NativeControl::Enable(bool enabled) {
    if (widget_) widget_->setEnabled(enabled);
}

void NativeControl::SetFocus() {
    if (widget_) widget_->setFocus(Qt::OtherFocusReason);
}

void NativeControl::SetFont(QFont const& font) {
    if (widget_ && widget_->font() != font) widget_->setFont(font);
}

void NativeControl::SetBold(bool bold) {
    if (!widget_) return;
    QFont font = widget_->font();
    font.setBold(bold);
    SetFont(font);
}

void NativeControl::SetPaletteColor(std::initializer_list<QPalette::ColorRole> roles,
                                    RGBVector const& color) {
    if (!widget_) return;
    Theme const* const theme = surface_ ? surface_->GetTheme() : nullptr;
    QPalette colors = widget_->palette();
    for (auto const role : roles) colors.setColor(role, ToColor(theme ? theme->Resolve(color) : color));
    widget_->setPalette(colors);
}

void NativeControl::SetTextColor(RGBVector const& color) {
    textColor_ = color;
    SetPaletteColor({QPalette::WindowText, QPalette::Text, QPalette::ButtonText}, color);
}

void NativeControl::SetBackgroundColor(RGBVector const& color) {
    backgroundColor_ = color;
    SetPaletteColor({QPalette::Window, QPalette::Base, QPalette::Button}, color);
    // Also keeps Qt from painting the surface behind the control at each of its own repaints.
    if (widget_) widget_->setAutoFillBackground(true);
}

void NativeControl::TakeTheme() {
    if (!widget_ || !surface_) return;
    // A style that is no longer asked for is the application's again.
    QStyle* const style = surface_->GetStyle();
    if (style || widget_->testAttribute(Qt::WA_SetStyle)) {
        widget_->setStyle(style);
        for (QWidget* const part : widget_->findChildren<QWidget*>()) part->setStyle(style);
    }
    if (textColor_) SetTextColor(*textColor_);
    if (backgroundColor_) SetBackgroundColor(*backgroundColor_);
    widget_->update();
}

void NativeControl::SetToolTip(Utilities::String const& text) {
    if (widget_) widget_->setToolTip(AsPlainToolTip(ToShownText(text)));
}

void NativeControl::Release() {
    if (auto const window = std::exchange(window_, nullptr)) {
        window->ClearOwner();
        window->Leave();
    }
    QPointer<QWidget> const widget = std::exchange(widget_, nullptr);
    if (!widget) return;
    widget->removeEventFilter(this);
    widget->disconnect(this);
    widget->setProperty(ownerProperty, {});
    widget->hide();
    if (widget) DeleteWhenIdle(*widget);
}

bool NativeControl::eventFilter(QObject* /*watched*/, QEvent* event) {
    // A surface isn't told when the mouse goes over to a child of it.
    if (event->type() == QEvent::Enter && surface_) {
        QPointer<CNorvelianSurface> const surface = surface_;
        RunEvent([&surface] { surface->LeavePane(); });
    }
    bool const isFocus = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
    if (isFocus && surface_) surface_->RepaintFocusRing();
    if (isFocus && onFocus_ && static_cast<QFocusEvent const*>(event)->reason() != Qt::PopupFocusReason)
        RunGuardedEvent(element_, [this, event] {
            onFocus_(event->type() == QEvent::FocusIn);
            return true;
        });
    return false;
}

// ------------------------------------------------------------------ drags

DropEffect NativeControl::OnDragOver(DropDataObject const& data, KeyState keyState, QPoint const& place) {
    DropEffect effect = DropEffect::None;
    auto const* const window = element_.GetParentWindowID();
    if (window)
        RunGuardedEvent(element_, [&] {
            effect = ElementDrops(element_, *window).OnDragOver(data, keyState, place.x(), place.y());
            return true;
        });
    return effect;
}

bool NativeControl::OnDrop(DropDataObject const& data, DropEffect effect, QPoint const& place) {
    auto const* const window = element_.GetParentWindowID();
    return window && RunGuardedEvent(element_, [&] {
               return ElementDrops(element_, *window).OnDrop(data, effect, place.x(), place.y());
           });
}

bool NativeControl::HasDropHandler() const {
    auto const* const window = element_.GetParentWindowID();
    return window && ElementDrops(element_, *window).HasHandler();
}

} // namespace GUI
