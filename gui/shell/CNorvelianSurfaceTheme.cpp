// The theme of a surface: colours, the style of native controls, and the ring around the one with the focus.
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/shell/CNorvelianSurface.h"
#include "gui/shell/NativeControl_PC.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

namespace GUI {

namespace {

constexpr int ringGap = 2;
constexpr int ringWidth = 2;

} // namespace

void CNorvelianSurface::SetTheme(std::optional<Theme> const& theme) {
    if (theme_ == theme) return;
    theme_ = theme;
    QWidget& top = *window();
    if (theme) {
        if (style_)
            style_->SetTheme(*theme);
        else
            (style_ = new CNorvelianStyle(*theme))->setParent(&top);
    }
    top.setPalette(theme ? style_->GetPalette() : QPalette());
    // Tool tips have one look in the process: that of the window that changed last.
    static QPalette const plainToolTips = QToolTip::palette();
    QToolTip::setPalette(theme ? style_->GetPalette() : plainToolTips);
    for (QWidget* const widget : top.findChildren<QWidget*>())
        if (qobject_cast<QMenu*>(widget) ||
            (widget->parentWidget() == &top && widget != this && !widget->isWindow()))
            Dress(*widget);
    for (QObject* const child : children())
        if (auto* const widget = qobject_cast<QWidget*>(child))
            if (NativeControl* const control = NativeControl::Of(*widget)) control->TakeTheme();
    update();
    for (QObject* const window : top.children())
        for (QObject* const part : window->isWidgetType() ? window->children() : QObjectList())
            if (auto* const inner = dynamic_cast<CNorvelianSurface*>(part); inner && inner->backdrop_)
                inner->backdrop_->OnOuterThemeChanged();
}

void CNorvelianSurface::Dress(QWidget& widget) const {
    if (!GetStyle() && !widget.testAttribute(Qt::WA_SetStyle)) return;
    widget.setStyle(GetStyle());
    // Windows take neither from the window that they belong to.
    if (!widget.isWindow()) return;
    widget.setPalette(GetStyle() ? GetStyle()->GetPalette() : QPalette());
    widget.setFont(window()->font());
}

void CNorvelianSurface::DressMenu(QWidget& menu) {
    QWidget* owner = &menu;
    while (owner->parentWidget()) owner = owner->parentWidget();
    // A menu of a dialog ends at the dialog's window.
    for (QWidget* part = menu.parentWidget(); part; part = part->parentWidget())
        if (part->isWindow() && !qobject_cast<QMenu*>(part)) {
            owner = part;
            break;
        }
    for (QObject* const child : owner->children())
        if (auto* const surface = dynamic_cast<CNorvelianSurface*>(child)) return surface->Dress(menu);
}

void CNorvelianSurface::TakeTheme(PlatformIndependentDeviceContext& context) const {
    context.SetTheme(GetTheme());
    // Of components that draw text without saying in which colour.
    if (theme_) context.SetTextColor(theme_->Get(ThemeRole::Ink));
}

QRect CNorvelianSurface::GetFocusRing() const {
    QWidget const* const widget = theme_ ? QApplication::focusWidget() : nullptr;
    if (!widget || widget->parentWidget() != this || !NativeControl::Of(*widget)) return {};
    constexpr int outside = ringGap + ringWidth;
    return widget->geometry().adjusted(-outside, -outside, outside, outside);
}

void CNorvelianSurface::RepaintFocusRing() {
    if (!focusRing_.isEmpty()) update(focusRing_);
    if (QRect const ring = GetFocusRing(); !ring.isEmpty()) update(ring);
}

void CNorvelianSurface::PaintFocusRing(QRect const& rect) {
    QRect const ring = focusRing_ = GetFocusRing();
    if (ring.isEmpty() || !ring.intersects(rect)) return;
    QPainter painter(this);
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToColor(theme_->Get(ThemeRole::Accent)), ringWidth));
    constexpr double middle = ringWidth / 2.0;
    constexpr double corner = 6;
    painter.drawRoundedRect(QRectF(ring).adjusted(middle, middle, -middle, -middle), corner, corner);
}

} // namespace GUI
