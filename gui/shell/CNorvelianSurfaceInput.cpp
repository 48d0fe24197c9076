// What the user does on a surface: mouse, keyboard focus, tool tips, drags.
#include "gui/elements/application/Application.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/CNorvelianAdvancedControl.h"
#include "gui/shell/CNorvelianSurface.h"
#include "gui/shell/NativeControl_PC.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimerEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <optional>

namespace GUI {

namespace {

constexpr int toolTipDelayMilliseconds = 500;

bool HasControl(QInputEvent const& event) { return event.modifiers().testFlag(Qt::ControlModifier); }

std::optional<NavigationKey> ToNavigationKey(QKeyEvent const& event) {
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return {};
    switch (event.key()) {
    case Qt::Key_Left:
        return NavigationKey::Left;
    case Qt::Key_Right:
        return NavigationKey::Right;
    case Qt::Key_Up:
        return NavigationKey::Up;
    case Qt::Key_Down:
        return NavigationKey::Down;
    case Qt::Key_Home:
        return NavigationKey::Home;
    case Qt::Key_End:
        return NavigationKey::End;
    default:
        return {};
    }
}

std::optional<ViewKey> ToViewKey(QKeyEvent const& event) {
    auto const modifiers = event.modifiers() & ~Qt::KeypadModifier;
    bool const isShifted = modifiers == Qt::ShiftModifier;
    if (modifiers != Qt::NoModifier && !isShifted) return {};
    auto const arrow = [isShifted](ViewKey step, ViewKey pan) { return isShifted ? pan : step; };
    switch (event.key()) {
    case Qt::Key_Left:
        return arrow(ViewKey::Left, ViewKey::PanLeft);
    case Qt::Key_Right:
        return arrow(ViewKey::Right, ViewKey::PanRight);
    case Qt::Key_Up:
        return arrow(ViewKey::Up, ViewKey::PanUp);
    case Qt::Key_Down:
        return arrow(ViewKey::Down, ViewKey::PanDown);
    case Qt::Key_Plus:
        return ViewKey::ZoomIn;
    case Qt::Key_Minus:
        return ViewKey::ZoomOut;
    case Qt::Key_0:
    case Qt::Key_Home:
        return ViewKey::Whole;
    case Qt::Key_Escape:
        return ViewKey::Leave;
    default:
        return {};
    }
}

bool IsMenuKey(QKeyEvent const& event) {
    return event.key() == Qt::Key_Menu ||
           (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

} // namespace

CNorvelianSurface::Control CNorvelianSurface::ControlOf(LightWindow const* window) {
    auto* const control = window ? dynamic_cast<CNorvelianAdvancedControl*>(window->GetOwner()) : nullptr;
    return control ? control->shared_from_this() : nullptr;
}

CNorvelianSurface::Control CNorvelianSurface::FindTarget(QPoint const& place) {
    if (Control captured = captured_.lock()) return captured;
    if (Control pressed = pressed_.lock()) return pressed;
    return ControlOf(tree_.FindAt(place.x(), place.y()));
}

void CNorvelianSurface::Forget(CNorvelianAdvancedControl& control) {
    auto const within = [&control](WeakControl const& held) {
        Control const other = held.lock();
        return other && other->GetWindow().IsWithin(control.GetWindow());
    };
    if (within(captured_)) {
        captured_.reset();
        releaseMouse();
    }
    if (within(pressed_)) pressed_.reset();
    if (within(draggedOver_)) draggedOver_.reset();
    if (within(hover_)) {
        hover_.reset();
        toolTipTimer_.stop();
        ShowDragCursor(false);
    }
    if (within(focus_)) {
        RepaintFocusMark();
        Control const former = focus_.lock();
        focus_.reset();
        if (former && former->IsAttached() && focused_) former->OnFocus(false);
    }
}

// ------------------------------------------------------------------ mouse

void CNorvelianSurface::EnterPane(Control const& control) {
    Control const former = hover_.lock();
    if (former == control) return;
    hover_ = control;
    if (!former) return;
    toolTipTimer_.stop();
    ShowDragCursor(false);
    former->OnMouseLeave();
}

void CNorvelianSurface::LeavePane() { EnterPane(nullptr); }

void CNorvelianSurface::mouseMoveEvent(QMouseEvent* event) {
    mouse_ = event->position().toPoint();
    // A popup or another window may have swallowed the release.
    if (event->buttons() == Qt::NoButton) pressed_.reset();
    if (DragsOut(*event)) return;
    Control const target = FindTarget(mouse_);
    EnterPane(target);
    if (!target || !target->IsAttached()) return event->ignore();
    toolTipTimer_.start(toolTipDelayMilliseconds, this);
    if (QToolTip::isVisible()) ShowToolTip();
    QPoint const place = target->FromSurface(mouse_);
    bool const dragable = target->IsDragable(place);
    ShowDragCursor(dragable && target->IsAttached());
    if (!target->OnMouseMove(place)) event->ignore();
}

void CNorvelianSurface::mousePressEvent(QMouseEvent* event) {
    toolTipTimer_.stop();
    QToolTip::hideText();
    mouse_ = event->position().toPoint();
    if (event->button() != Qt::LeftButton) return event->ignore();
    Control const target = FindTarget(mouse_);
    if (!target) return event->ignore();
    pressed_ = target;
    pressedAt_ = mouse_;
    RepaintFocusMark();
    focusByKey_ = false;
    // The pane's own way to take the focus would tell of the selection too, once more.
    SetFocusPane(target, Qt::MouseFocusReason);
    if (!target->IsAttached()) return;
    if (!target->OnLeftButtonDown(HasControl(*event), target->FromSurface(mouse_))) event->ignore();
}

void CNorvelianSurface::mouseReleaseEvent(QMouseEvent* event) {
    mouse_ = event->position().toPoint();
    Control const target = FindTarget(mouse_);
    if (event->button() == Qt::LeftButton) {
        pressed_.reset();
        pressedAt_.reset();
    }
    bool const consumed =
        event->button() == Qt::LeftButton && target && target->OnLeftButtonUp(target->FromSurface(mouse_));
    if (!consumed) event->ignore();
    // Where the mouse is now may be another pane.
    if (!captured_.lock()) EnterPane(ControlOf(tree_.FindAt(mouse_.x(), mouse_.y())));
}

void CNorvelianSurface::leaveEvent(QEvent* /*event*/) {
    if (!captured_.lock()) EnterPane(nullptr);
}

void CNorvelianSurface::hideEvent(QHideEvent* event) {
    pressed_.reset();
    if (captured_.lock()) {
        captured_.reset();
        releaseMouse();
    }
    EnterPane(nullptr);
    QWidget::hideEvent(event);
}

void CNorvelianSurface::Capture(CNorvelianAdvancedControl& control, bool capture) {
    bool const has = captured_.lock().get() == &control;
    if (capture == has) return;
    if (capture) {
        captured_ = control.weak_from_this();
        grabMouse();
    } else {
        captured_.reset();
        releaseMouse();
    }
}

void CNorvelianSurface::ShowDragCursor(bool dragable) {
    if (dragable == dragCursor_) return;
    dragCursor_ = dragable;
    Application::Instance().SetDragCursor(dragable);
}

void CNorvelianSurface::timerEvent(QTimerEvent* event) {
    if (event->timerId() != toolTipTimer_.timerId()) return QWidget::timerEvent(event);
    toolTipTimer_.stop();
    if (hover_.lock()) ShowToolTip();
}

void CNorvelianSurface::ShowToolTip() {
    Control const control = hover_.lock();
    if (!control) return;
    QPointer<CNorvelianSurface> const self(this);
    QString const text = control->GetToolTipText(control->FromSurface(mouse_));
    if (!self || !control->IsAttached()) return;
    PixelBox const box = control->GetWindow().GetVisibleBox();
    // Without its rectangle the same text wouldn't move with the mouse to another pane.
    QToolTip::showText(mapToGlobal(mouse_), AsPlainToolTip(text), this,
                       QRect(box.left, box.top, box.GetWidth(), box.GetHeight()));
}

// ------------------------------------------------------------------ focus

void CNorvelianSurface::RepaintFocusMark() {
    if (PixelBox const mark = GetFocusMark(); !mark.IsEmpty())
        update(mark.left, mark.top, mark.GetWidth(), mark.GetHeight());
}

void CNorvelianSurface::TakeFocus(CNorvelianAdvancedControl& control, Qt::FocusReason reason) {
    SetFocusPane(control.shared_from_this(), reason);
}

void CNorvelianSurface::SetFocusPane(Control const& control, Qt::FocusReason reason) {
    Control const former = focus_.lock();
    if (former == control && focused_) return;
    RepaintFocusMark();
    focus_ = control;
    focusByKey_ = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    QPointer<CNorvelianSurface> const self(this);
    if (!focused_) {
        // The platform tells this surface, which tells the pane.
        if (!hasFocus()) return setFocus(reason);
    }
    if (former && former != control && former->IsAttached()) former->OnFocus(false);
    if (!self || focus_.lock() != control || !control || !control->IsAttached()) return;
    focused_ = true;
    RepaintFocusMark();
    control->OnFocus(true);
}

void CNorvelianSurface::focusInEvent(QFocusEvent* event) {
    bool const byTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byTab && !focus_.lock()) {
        LightWindow* const stop = FindStop(nullptr, event->reason() == Qt::TabFocusReason);
        if (stop && FocusStop(*stop, event->reason())) return;
    }
    Control const control = focus_.lock();
    if (focused_ || !control) return;
    focused_ = true;
    if (byTab) focusByKey_ = true;
    RepaintFocusMark();
    control->OnFocus(true);
}

void CNorvelianSurface::focusOutEvent(QFocusEvent* event) {
    // While a menu is open or another window is in front, the pane stays the one that has the focus here.
    bool const comesBack =
        event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    RepaintFocusMark();
    bool const had = std::exchange(focused_, false);
    Control const control = focus_.lock();
    if (!comesBack) focus_.reset();
    if (had && control) control->OnFocus(false);
}

LightWindow* CNorvelianSurface::GetFocusWindow() {
    if (Control const control = focus_.lock()) return &control->GetWindow();
    QWidget const* const widget = QApplication::focusWidget();
    for (QWidget const* part = widget; part && part != this; part = part->parentWidget())
        if (NativeControl* const native = NativeControl::Of(*part)) return native->GetLightWindow();
    return nullptr;
}

bool CNorvelianSurface::FocusStop(LightWindow& stop, Qt::FocusReason reason) {
    if (Control const control = ControlOf(&stop)) {
        SetFocusPane(control, reason);
        return true;
    }
    auto* const native = dynamic_cast<NativeControl*>(stop.GetOwner());
    if (!native || !native->GetWidget()) return false;
    native->GetWidget()->setFocus(reason);
    return true;
}

LightWindow* CNorvelianSurface::FindStop(LightWindow const* from, bool next) {
    LightWindow* stop = tree_.FindTabStop(from, next);
    for (; stop; stop = tree_.FindTabStop(stop, next)) {
        auto* const native = dynamic_cast<NativeControl*>(stop->GetOwner());
        if (native ? native->CanTakeFocus() : ControlOf(stop) && ControlOf(stop)->IsTabStopOfGroup()) break;
    }
    return stop;
}

bool CNorvelianSurface::focusNextPrevChild(bool next) {
    Qt::FocusReason const reason = next ? Qt::TabFocusReason : Qt::BacktabFocusReason;
    LightWindow* stop = FindStop(GetFocusWindow(), next);
    if (stop) return FocusStop(*stop, reason);
    // Past the last one, what the window has outside this surface comes, and then the first one again.
    QWidget* widget = this;
    for (int i = 0; i < 100000; ++i) {
        widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain();
        if (!widget || widget == this) break;
        if (isAncestorOf(widget) || widget->window() != window()) continue;
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && widget->isEnabled()) {
            widget->setFocus(reason);
            return true;
        }
    }
    stop = FindStop(nullptr, next);
    return stop && FocusStop(*stop, reason);
}

void CNorvelianSurface::keyPressEvent(QKeyEvent* event) {
    if (auto const key = ToNavigationKey(*event)) {
        Control const control = focus_.lock();
        QPointer<CNorvelianSurface> const self(this);
        if (control && control->OnNavigationKey(*key)) {
            if (!self) return;
            focusByKey_ = true;
            return RepaintFocusMark();
        }
        if (!self) return;
    }
    if (auto const key = ToViewKey(*event)) {
        Control const control = focus_.lock();
        QPointer<CNorvelianSurface> const self(this);
        if (control && control->OnViewKey(*key)) return;
        if (!self) return;
    }
    if (IsMenuKey(*event)) {
        Control const control = focus_.lock();
        PixelBox const box = control ? control->GetWindow().GetVisibleBox() : PixelBox();
        if (control && OpenContextMenu(&control->GetWindow(), {box.left, box.bottom})) return;
    }
    // A pane that Tab reaches can be clicked by key, in its middle.
    bool const click =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    Control const control = focus_.lock();
    if (!click || !control || !control->GetWindow().IsTabStop() || event->isAutoRepeat())
        return event->ignore();
    control->OnClickKey(HasControl(*event));
}

void CNorvelianSurface::wheelEvent(QWheelEvent* event) {
    constexpr double notch = 120;
    QPoint const place = event->position().toPoint();
    Control const target = FindTarget(place);
    bool const isTaken =
        target && target->OnWheel(event->angleDelta().y() / notch, target->FromSurface(place));
    event->setAccepted(isTaken);
}

// ------------------------------------------------------------------ context menus

bool CNorvelianSurface::OpenContextMenu(LightWindow const* window, QPoint const& place) {
    QPointer<CNorvelianSurface> const self(this);
    for (auto const* around = window; self && around; around = around->GetParent())
        if (Control const control = ControlOf(around);
            control && control->OpenContextMenu(mapToGlobal(place)))
            return true;
    return false;
}

void CNorvelianSurface::contextMenuEvent(QContextMenuEvent* event) {
    // Some platforms tell of the key so, others only send the key.
    if (event->reason() == QContextMenuEvent::Keyboard) return event->accept();
    event->setAccepted(OpenContextMenu(tree_.FindAt(event->pos().x(), event->pos().y()), event->pos()));
}

} // namespace GUI
