#include "gui/shell/CNorvelianAdvancedControl.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/AdvancedControlImpl.h"
#include "gui/elements/Application.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/PaintScope_PC.h"

#include <QCursor>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QToolTip>
#include <cstdint>
#include <optional>

namespace GUI {

namespace {

constexpr int toolTipDelayMilliseconds = 500;

/// The halves of a packed position, which are unsigned: a place left of the window is a large number.
long PackedCoordinate(double position) { return static_cast<std::uint16_t>(static_cast<int>(position)); }

} // namespace

CNorvelianAdvancedControl::CNorvelianAdvancedControl(AdvancedControlImpl& impl, QWidget* parent, bool tabStop)
    : QWidget(parent), impl_(&impl) {
    setAttribute(Qt::WA_NoSystemBackground);
    // What a pane doesn't consume is not its parent's.
    setAttribute(Qt::WA_NoMousePropagation);
    setMouseTracking(true);
    setFocusPolicy(tabStop ? Qt::StrongFocus : Qt::ClickFocus);
    resize(0, 0);
}

CNorvelianAdvancedControl::~CNorvelianAdvancedControl() {
    // No leave event comes any more.
    ShowDragCursor(false);
}

template <class Handler> bool CNorvelianAdvancedControl::Guarded(char const* where, Handler handler) {
    if (!impl_) return false;
    try {
        return handler();
    } catch (...) {
        Diagnostics::DropException(where);
        return false;
    }
}

void CNorvelianAdvancedControl::RepaintNow() {
    if (PaintScope::IsPainting(*this))
        update();
    else
        repaint();
}

void CNorvelianAdvancedControl::paintEvent(QPaintEvent* event) {
    if (!impl_ || painting_) return;
    painting_ = true;
    Guarded("CNorvelianAdvancedControl: paint", [this, event] {
        PaintScope const scope(*this);
        if (impl_->LeavesPixels()) QPainter(this).fillRect(event->rect(), palette().window());
        std::optional<PlatformIndependentDeviceContext_PC::DirectPixels> pixels;
        QPoint offset;
        // During a paint the platform redirects the widget to the memory behind its window.
        auto* const image = dynamic_cast<QImage*>(redirected(&offset));
        if (image && event->region().rectCount() == 1) pixels = {image, -offset, event->rect()};
        PlatformIndependentDeviceContext_PC context(*this, pixels);
        impl_->OnPaint(context);
        return true;
    });
    painting_ = false;
    // From now on the platform leaves out what lies behind. For the first paint, of a window with all its
    // panes, taking hundreds of panes out of the region to paint costs more than painting behind them.
    if (!testAttribute(Qt::WA_OpaquePaintEvent)) setAttribute(Qt::WA_OpaquePaintEvent);
    if (hasFocus() && focusByKey_) DrawFocusMark();
}

void CNorvelianAdvancedControl::DrawFocusMark() {
    QStylePainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = rect().adjusted(1, 1, -1, -1);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

void CNorvelianAdvancedControl::UpdateDeviceContext() {
    if (painting_) return;
    painting_ = true;
    Self const self(this);
    Guarded("CNorvelianAdvancedControl: device context", [this] {
        // What the pane asks of the surface outside a paint are measures; nothing drawn here is kept.
        QImage surface(std::max(width(), 1), std::max(height(), 1), QImage::Format_RGB32);
        PlatformIndependentDeviceContext_PC context(surface);
        impl_->OnGetDeviceContext(context);
        return true;
    });
    if (self) painting_ = false;
}

bool CNorvelianAdvancedControl::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) return true; // shown by our own timer
    Self const self(this);
    ++eventDepth_;
    bool const handled = QWidget::event(event);
    if (self) --eventDepth_;
    return handled;
}

void CNorvelianAdvancedControl::mouseMoveEvent(QMouseEvent* event) {
    toolTipPosition_ = event->position().toPoint();
    toolTipTimer_.start(toolTipDelayMilliseconds, this);
    Self const self(this);
    if (QToolTip::isVisible()) ShowToolTip();
    if (!self) return;
    long const x = PackedCoordinate(event->position().x());
    long const y = PackedCoordinate(event->position().y());
    bool const dragable = Guarded("CNorvelianAdvancedControl: cursor", [this] {
        return impl_->IsDragable({toolTipPosition_.x(), toolTipPosition_.y()});
    });
    if (!self) return;
    ShowDragCursor(dragable);
    if (!Guarded("CNorvelianAdvancedControl: mouse move", [&] { return impl_->OnMouseMove(x, y); }) && self)
        event->ignore();
}

void CNorvelianAdvancedControl::mousePressEvent(QMouseEvent* event) {
    toolTipTimer_.stop();
    QToolTip::hideText();
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    focusByKey_ = false;
    Self const self(this);
    bool const consumed = Guarded("CNorvelianAdvancedControl: left button down", [this, event, &self] {
        // The pane's own way to take the focus would tell of the selection too, once more.
        setFocus(Qt::MouseFocusReason);
        if (!IsAttached(self)) return true;
        impl_->OnSelectionChanged("PropertyInspector", true);
        if (!IsAttached(self)) return true;
        return impl_->OnLeftButtonDown(event->modifiers().testFlag(Qt::ControlModifier),
                                       PackedCoordinate(event->position().x()),
                                       PackedCoordinate(event->position().y()));
    });
    if (!consumed && self) event->ignore();
}

void CNorvelianAdvancedControl::mouseReleaseEvent(QMouseEvent* event) {
    Self const self(this);
    bool const consumed = event->button() == Qt::LeftButton &&
                          Guarded("CNorvelianAdvancedControl: left button up", [this, event] {
                              return impl_->OnLeftButtonUp(PackedCoordinate(event->position().x()),
                                                           PackedCoordinate(event->position().y()));
                          });
    if (!consumed && self) event->ignore();
}

void CNorvelianAdvancedControl::ShowDragCursor(bool dragable) {
    if (dragable == dragCursor_) return;
    dragCursor_ = dragable;
    Application::Instance().SetDragCursor(dragable);
}

void CNorvelianAdvancedControl::leaveEvent(QEvent* event) {
    toolTipTimer_.stop();
    ShowDragCursor(false);
    Self const self(this);
    if (!Guarded("CNorvelianAdvancedControl: mouse leave", [this] { return impl_->OnMouseLeave(); }) && self)
        event->ignore();
}

void CNorvelianAdvancedControl::focusInEvent(QFocusEvent* event) {
    focusByKey_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    Self const self(this);
    Guarded("CNorvelianAdvancedControl: focus", [this] {
        impl_->OnSelectionChanged("Focus", true);
        return true;
    });
    if (self) QWidget::focusInEvent(event);
}

void CNorvelianAdvancedControl::focusOutEvent(QFocusEvent* event) {
    Self const self(this);
    Guarded("CNorvelianAdvancedControl: focus", [this] {
        impl_->OnSelectionChanged("Focus", false);
        return true;
    });
    if (self) QWidget::focusOutEvent(event);
}

void CNorvelianAdvancedControl::keyPressEvent(QKeyEvent* event) {
    // A pane that Tab reaches can be clicked by key, in its middle.
    bool const click =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!click || focusPolicy() != Qt::StrongFocus || event->isAutoRepeat()) {
        event->ignore();
        return;
    }
    Self const self(this);
    Guarded("CNorvelianAdvancedControl: key", [this, event, &self] {
        impl_->OnSelectionChanged("PropertyInspector", true);
        if (!IsAttached(self)) return true;
        bool const consumed = impl_->OnLeftButtonDown(event->modifiers().testFlag(Qt::ControlModifier),
                                                      width() / 2, height() / 2);
        if (!IsAttached(self)) return true;
        return impl_->OnLeftButtonUp(width() / 2, height() / 2) || consumed;
    });
}

void CNorvelianAdvancedControl::timerEvent(QTimerEvent* event) {
    if (event->timerId() != toolTipTimer_.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    toolTipTimer_.stop();
    if (underMouse()) ShowToolTip();
}

void CNorvelianAdvancedControl::ShowToolTip() {
    Self const self(this);
    Guarded("CNorvelianAdvancedControl: tool tip", [this, &self] {
        auto const text = impl_->GetToolTipText(static_cast<unsigned short>(toolTipPosition_.x()),
                                                static_cast<unsigned short>(toolTipPosition_.y()));
        if (self) QToolTip::showText(mapToGlobal(toolTipPosition_), ToPlatformText(text), this);
        return true;
    });
}

} // namespace GUI
