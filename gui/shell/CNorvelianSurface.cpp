#include "gui/shell/CNorvelianSurface.h"

#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/shell/CNorvelianAccessible.h"
#include "gui/shell/CNorvelianAdvancedControl.h"
#include "gui/shell/EventGuard_PC.h"
#include "gui/shell/PaintScope_PC.h"

#include <QGuiApplication>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <limits>
#include <utility>

namespace GUI {

namespace {

/// Thickness of the mark around the pane with the keyboard focus: a dark line, and a light one outside it.
constexpr int focusMarkWidth = 2;

constexpr int unlimited = std::numeric_limits<int>::max();

/// Enough for what follows a click on the spot.
int PaintsATurn() {
    constexpr int onWayland = 8;
    return QGuiApplication::platformName().startsWith("wayland") ? onWayland : unlimited;
}

QRect ToRect(PixelBox const& box) { return {box.left, box.top, box.GetWidth(), box.GetHeight()}; }
PixelBox ToBox(QRect const& rect) {
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

} // namespace

/// One paint of the surface, while it runs.
struct CNorvelianSurface::Pass {
    QRegion region;
    std::vector<std::shared_ptr<LightWindow>> windows;
    /// The window that is being painted.
    std::size_t current = 0;

    bool IsStillToCome(LightWindow const& window) const {
        auto const waiting =
            windows.begin() + static_cast<std::ptrdiff_t>(std::min(current + 1, windows.size()));
        auto const found = std::find_if(waiting, windows.end(),
                                        [&window](auto const& other) { return other.get() == &window; });
        if (found == windows.end()) return false;
        QRegion const visible(ToRect(window.GetVisibleBox()));
        return region.intersected(visible) == visible;
    }
};

CNorvelianSurface& CNorvelianSurface::Of(QWidget& window) {
    if (auto* const surface = dynamic_cast<CNorvelianSurface*>(&window)) return *surface;
    for (QObject* const child : window.children())
        if (auto* const surface = dynamic_cast<CNorvelianSurface*>(child)) return *surface;
    auto* const surface = new CNorvelianSurface(window);
    surface->resize(window.size());
    window.installEventFilter(surface);
    if (window.isVisible()) surface->show();
    return *surface;
}

CNorvelianSurface::CNorvelianSurface(QWidget& window) : QWidget(&window), paintsATurn_(PaintsATurn()) {
    CNorvelianAccessibleSurface::Install();
    // Every pixel is painted, by a pane or by the background.
    setAttribute(Qt::WA_OpaquePaintEvent);
    // What a pane doesn't consume is not its window's.
    setAttribute(Qt::WA_NoMousePropagation);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
}

CNorvelianSurface::~CNorvelianSurface() { ShowDragCursor(false); }

bool CNorvelianSurface::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) return true; // shown by our own timer
    bool handled = false;
    RunEvent([&] { handled = QWidget::event(event); });
    return handled;
}

bool CNorvelianSurface::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) resize(parentWidget()->size());
    return QWidget::eventFilter(watched, event);
}

void CNorvelianSurface::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    tree_.SetSize(width(), height());
}

void CNorvelianSurface::SettleLater() {
    if (std::exchange(settlesLater_, true)) return;
    QMetaObject::invokeMethod(this, &CNorvelianSurface::Settle, Qt::QueuedConnection);
}

void CNorvelianSurface::Settle() {
    if (!std::exchange(settlesLater_, false)) return;
    if (PixelBox const damage = tree_.TakeDamage(); !damage.IsEmpty()) update(ToRect(damage));
}

// ------------------------------------------------------------------ painting

void CNorvelianSurface::RepaintNow(LightWindow& window) {
    PixelBox const box = window.GetVisibleBox();
    if (box.IsEmpty() || (painting_ && painting_->IsStillToCome(window))) return;
    RepaintNow(box);
}

void CNorvelianSurface::RepaintNow(PixelBox const& box) {
    if (PaintScope::IsPainting(*this)) {
        later_.push_back(ToRect(box));
        return;
    }
    if (IsToBatch()) {
        later_.push_back(ToRect(box));
        QueuePaintLater();
        return;
    }
    QPointer<CNorvelianSurface> const self(this);
    bool const outermost = !std::exchange(repainting_, true);
    repaint(ToRect(box));
    // What was asked for in that paint; what asks again in this one waits for the event loop, so that a
    // pane that asks at every paint isn't painted for ever.
    if (self && outermost && !later_.empty()) {
        QRegion asked;
        for (QRect const& rect : std::exchange(later_, {})) asked += rect;
        repaint(asked);
        if (self) PaintLater();
    }
    if (self && outermost) repainting_ = false;
}

bool CNorvelianSurface::IsToBatch() {
    if (paintsInTurn_ >= paintsATurn_) return true;
    if (paintsATurn_ != unlimited && paintsInTurn_++ == 0)
        QMetaObject::invokeMethod(
            this, [this] { paintsInTurn_ = 0; }, Qt::QueuedConnection);
    return false;
}

void CNorvelianSurface::QueuePaintLater() {
    if (std::exchange(paintsLater_, true)) return;
    QMetaObject::invokeMethod(this, &CNorvelianSurface::PaintLater, Qt::QueuedConnection);
}

void CNorvelianSurface::PaintLater() {
    paintsLater_ = false;
    auto const rects = std::exchange(later_, {});
    // Qt's time for scattered rectangles grows with their square.
    constexpr std::size_t many = 100;
    QRect all;
    for (QRect const& rect : rects) {
        if (rects.size() <= many) update(rect);
        all |= rect;
    }
    if (rects.size() > many) update(all);
}

void CNorvelianSurface::paintEvent(QPaintEvent* event) {
    if (painting_) return;
    tree_.Settle();
    if (event->rect().contains(rect())) {
        tree_.TakeDamage();
        settlesLater_ = false;
    }
    QRegion const& region = event->region();
    PaintPanes(region);
    PaintDecorators(region.boundingRect());
    PaintFocusMark(region.boundingRect());
    PaintFocusRing(region.boundingRect());
    PaintDropMark(region.boundingRect());
    if (!repainting_ && !later_.empty()) QueuePaintLater();
}

void CNorvelianSurface::PaintPanes(QRegion const& region) {
    Pass pass{region, {}, 0};
    PixelBox const box = ToBox(region.boundingRect());
    auto const found = tree_.FindIn(box);
    // A pane paints all its pixels: what is under one that covers everything isn't seen.
    auto const covers = [&box](LightWindow const* window) {
        return window->GetKind() == LightWindow::Kind::Pane && window->GetVisibleBox().Contains(box);
    };
    auto const topmost = std::find_if(found.rbegin(), found.rend(), covers);
    auto const first = topmost == found.rend() ? found.begin() : topmost.base() - 1;
    // What the panes call may drop some of them.
    for (auto it = first; it != found.end(); ++it)
        if ((*it)->GetKind() == LightWindow::Kind::Pane) pass.windows.push_back((*it)->shared_from_this());

    PaintScope const scope(*this);
    painting_ = &pass;
    bool const hasBackground = topmost == found.rend();
    if (hasBackground) PaintBackground(region);
    SurfaceBacking const backing = GetBacking();
    bool const isOneBox = region.rectCount() == 1;
    for (pass.current = 0; pass.current < pass.windows.size(); ++pass.current) {
        LightWindow const& window = *pass.windows[pass.current];
        Control const control = ControlOf(&window);
        if (!control) continue;
        QRect const visible = ToRect(window.GetVisibleBox());
        QRegion const clip =
            isOneBox ? QRegion(visible.intersected(region.boundingRect())) : region.intersected(visible);
        if (clip.isEmpty()) continue;
        if (control->LeavesPixels() && !(hasBackground && IsLowest(window))) Fill(clip);
        QPoint const origin(window.GetBox().left, window.GetBox().top);
        PlatformIndependentDeviceContext_PC context(*this, {origin, clip}, backing);
        TakeTheme(context);
        control->OnPaint(context);
    }
    painting_ = nullptr;
}

bool CNorvelianSurface::IsLowest(LightWindow const& window) {
    auto const there = tree_.FindIn(window.GetVisibleBox());
    auto const lowest = std::find_if(there.begin(), there.end(), [](LightWindow const* other) {
        return other->GetKind() == LightWindow::Kind::Pane;
    });
    return lowest != there.end() && *lowest == &window;
}

SurfaceBacking CNorvelianSurface::GetBacking() const {
    // During a paint the platform redirects the widget to the memory behind its window.
    SurfaceBacking backing;
    backing.image = dynamic_cast<QImage*>(redirected(&backing.offset));
    return backing;
}

void CNorvelianSurface::Fill(QRegion const& region) {
    QPainter painter(this);
    for (QRect const& rect : region) painter.fillRect(rect, palette().window());
}

void CNorvelianSurface::PaintBackground(QRegion const& region) {
    Fill(region);
    if (!backdrop_) return;
    RunGuarded([&] {
        PlatformIndependentDeviceContext_PC context(*this, {QPoint(), region}, GetBacking());
        TakeTheme(context);
        backdrop_->PaintBackground(context);
        return true;
    });
}

void CNorvelianSurface::PaintDecorators(QRect const& rect) {
    bool const whole = rect.contains(this->rect());
    // Asking all elements for decorations costs more than painting one pane.
    if (!backdrop_ || (!whole && !decorated_)) return;
    PaintScope const scope(*this);
    RunGuarded([&] {
        PlatformIndependentDeviceContext_PC context(*this, {QPoint(), rect}, GetBacking());
        TakeTheme(context);
        backdrop_->PaintDecorators(context);
        if (whole) decorated_ = context.HasDrawn();
        return true;
    });
}

PixelBox CNorvelianSurface::GetFocusMark() const {
    Control const control = focus_.lock();
    if (!control || !focusByKey_ || !focused_) return {};
    PixelBox const box = control->GetWindow().GetVisibleBox();
    if (box.IsEmpty()) return {};
    // Beside the pane, which may be all colour; inside it where there is no room.
    return PixelBox{box.left - focusMarkWidth, box.top - focusMarkWidth, box.right + focusMarkWidth,
                    box.bottom + focusMarkWidth}
        .Intersected({0, 0, width(), height()});
}

void CNorvelianSurface::PaintFocusMark(QRect const& rect) {
    PixelBox const mark = GetFocusMark();
    if (mark.IsEmpty() || !mark.Meets(ToBox(rect))) return;
    // Two tones, one of which can be seen on any colour.
    QPainter painter(this);
    painter.setClipRect(rect, Qt::IntersectClip);
    QRect outer = ToRect(mark);
    for (QColor const& tone : {QColor(255, 255, 255), QColor(0, 0, 0)}) {
        painter.fillRect(QRect(outer.left(), outer.top(), outer.width(), 1), tone);
        painter.fillRect(QRect(outer.left(), outer.bottom(), outer.width(), 1), tone);
        painter.fillRect(QRect(outer.left(), outer.top(), 1, outer.height()), tone);
        painter.fillRect(QRect(outer.right(), outer.top(), 1, outer.height()), tone);
        outer.adjust(1, 1, -1, -1);
    }
}

} // namespace GUI
