// What is dragged over a surface, and out of its panes.
#include "gui/platform/Color_PC.h"
#include "gui/platform/DropDataObject_PC.h"
#include "gui/shell/CNorvelianAdvancedControl.h"
#include "gui/shell/CNorvelianSurface.h"
#include "gui/shell/NativeControl_PC.h"

#include <QApplication>
#include <QDragMoveEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace GUI {

namespace {

constexpr int markWidth = 2;

Qt::DropAction ToAction(DropEffect effect) {
    switch (effect) {
    case DropEffect::Copy:
        return Qt::CopyAction;
    case DropEffect::Move:
        return Qt::MoveAction;
    default:
        return Qt::IgnoreAction;
    }
}

NativeControl* NativeOf(LightWindow const* window) {
    return window ? dynamic_cast<NativeControl*>(window->GetOwner()) : nullptr;
}

QPoint PlaceIn(LightWindow const& window, QPoint const& place) {
    return place - QPoint(window.GetBox().left, window.GetBox().top);
}

} // namespace

// ------------------------------------------------------------------ out

bool CNorvelianSurface::DragsOut(QMouseEvent const& event) {
    if (!pressedAt_ || !event.buttons().testFlag(Qt::LeftButton)) return false;
    if ((mouse_ - *pressedAt_).manhattanLength() < QApplication::startDragDistance()) return false;
    // Asked once for each press.
    pressedAt_.reset();
    Control const pressed = pressed_.lock();
    // A pane that has taken the mouse follows it itself.
    if (!pressed || captured_.lock() || !pressed->IsAttached()) return false;
    QPointer<CNorvelianSurface> const self(this);
    if (!pressed->DragOut()) return !self;
    if (self) {
        // The button went up elsewhere.
        pressed_.reset();
        SetDropMark({});
    }
    return true;
}

// ------------------------------------------------------------------ in

void CNorvelianSurface::dragEnterEvent(QDragEnterEvent* event) { event->acceptProposedAction(); }

void CNorvelianSurface::dragMoveEvent(QDragMoveEvent* event) {
    QPoint const place = event->position().toPoint();
    LightWindow* const found = tree_.FindAt(place.x(), place.y());
    auto const window = found ? found->shared_from_this() : nullptr;
    Control const target = ControlOf(found);
    if (target != draggedOver_.lock()) LeaveDrag();
    QPointer<CNorvelianSurface> const self(this);
    DropEffect effect = DropEffect::None;
    bool isOwn = false;
    bool const controlKey = event->modifiers().testFlag(Qt::ControlModifier);
    DropDataObject_PC const dragged(*event->mimeData());
    if (target) {
        draggedOver_ = target;
        isOwn = target->HasDropHandler();
        effect = target->OnDragOver(dragged, controlKey, target->FromSurface(place));
    } else if (NativeControl* const native = NativeOf(found)) {
        isOwn = native->HasDropHandler();
        effect = native->OnDragOver(dragged, controlKey ? KeyState::Control : KeyState::None,
                                    PlaceIn(*window, place));
    }
    if (!self) return event->ignore();
    if (effect == DropEffect::None) {
        SetDropMark({});
        return event->ignore();
    }
    PixelBox const box = window->GetVisibleBox();
    SetDropMark(isOwn ? QRect(box.left, box.top, box.GetWidth(), box.GetHeight())
                            .adjusted(-markWidth, -markWidth, markWidth, markWidth)
                            .intersected(rect())
                      : rect());
    event->setDropAction(ToAction(effect));
    event->accept();
}

void CNorvelianSurface::LeaveDrag() {
    Control const former = draggedOver_.lock();
    draggedOver_.reset();
    if (former) former->OnDragLeave();
}

void CNorvelianSurface::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    SetDropMark({});
    LeaveDrag();
}

void CNorvelianSurface::dropEvent(QDropEvent* event) {
    QPoint const place = event->position().toPoint();
    LightWindow* const found = tree_.FindAt(place.x(), place.y());
    auto const window = found ? found->shared_from_this() : nullptr;
    Control const target = ControlOf(found);
    if (target != draggedOver_.lock()) LeaveDrag();
    draggedOver_.reset();
    SetDropMark({});
    DropEffect const effect = event->dropAction() == Qt::MoveAction ? DropEffect::Move : DropEffect::Copy;
    DropDataObject_PC const dragged(*event->mimeData());
    bool taken = false;
    if (target)
        taken = target->OnDrop(dragged, effect, target->FromSurface(place));
    else if (NativeControl* const native = NativeOf(found))
        taken = native->OnDrop(dragged, effect, PlaceIn(*window, place));
    event->setAccepted(taken);
}

void CNorvelianSurface::SetDropMark(QRect const& mark) {
    QRect const former = std::exchange(dropMark_, mark);
    if (former == mark) return;
    // Only the frame, not all that is in it.
    for (QRect const& each : {former, mark})
        if (!each.isEmpty())
            update(QRegion(each).subtracted(each.adjusted(markWidth, markWidth, -markWidth, -markWidth)));
}

void CNorvelianSurface::PaintDropMark(QRect const& rect) {
    if (dropMark_.isEmpty() || !dropMark_.intersects(rect)) return;
    QPainter painter(this);
    painter.setClipRect(rect, Qt::IntersectClip);
    QColor const color =
        theme_ ? ToColor(theme_->Get(ThemeRole::Accent)) : palette().color(QPalette::Highlight);
    QRegion const frame =
        QRegion(dropMark_).subtracted(dropMark_.adjusted(markWidth, markWidth, -markWidth, -markWidth));
    for (QRect const& part : frame) painter.fillRect(part, color);
}

} // namespace GUI
