#include "gui/shell/CNorvelianScrollArea.h"

#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/shell/CNorvelianSurface.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace GUI {

namespace {

int ToInt(long value) {
    return static_cast<int>(std::clamp<long>(value, 0, std::numeric_limits<int>::max()));
}

/// Tells where the platform keeps its pixels.
class PaintedWidget : public QWidget {
public:
    QPaintDevice* GetRedirected(QPoint& offset) const { return redirected(&offset); }
};

/// Repaints only when its slider is seen to move: with a million rows that is hardly ever, and painting a bar
/// takes longer than the row that scrolling brings.
class StillScrollBar : public QScrollBar {
public:
    using QScrollBar::QScrollBar;

protected:
    void sliderChange(SliderChange change) override {
        if (change != SliderValueChange) return QScrollBar::sliderChange(change);
        QStyleOptionSlider option;
        initStyleOption(&option);
        QRect const slider =
            style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
        // At both ends a button may look otherwise.
        bool const atEnd = value() == minimum() || value() == maximum();
        if (slider != std::exchange(slider_, slider) || atEnd != std::exchange(atEnd_, atEnd))
            QScrollBar::sliderChange(change);
    }

private:
    QRect slider_;
    bool atEnd_ = true;
};

} // namespace

CNorvelianScrollArea::CNorvelianScrollArea(QWidget* parent) : QAbstractScrollArea(parent) {
    setViewport(new PaintedWidget);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    // It paints all its pixels, so that they can be moved, and nothing is painted behind it.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    setVerticalScrollBar(new StillScrollBar(Qt::Vertical));
    verticalScrollBar()->setSingleStep(1);
    setAutoFillBackground(true);
}

// ------------------------------------------------------------------ events

bool CNorvelianScrollArea::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsOwnKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::EnabledChange) {
        OnEnabled(isEnabled());
        viewport()->update();
    }
    return QAbstractScrollArea::event(event);
}

bool CNorvelianScrollArea::viewportEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::Paint:
        PaintViewport(*static_cast<QPaintEvent*>(event));
        return true;
    case QEvent::Resize:
        Run([this] { OnViewportSize(viewport()->width(), viewport()->height()); });
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return OnMouse(*event);
    default:
        return QAbstractScrollArea::viewportEvent(event);
    }
}

void CNorvelianScrollArea::PaintViewport(QPaintEvent const& event) {
    SurfaceBacking backing;
    // During a paint the platform redirects the widget to the memory behind its window.
    backing.image =
        dynamic_cast<QImage*>(static_cast<PaintedWidget*>(viewport())->GetRedirected(backing.offset));
    RunGuarded([&] {
        PlatformIndependentDeviceContext_PC context(*viewport(), {QPoint(), event.region()}, backing);
        if (auto const* const surface = dynamic_cast<CNorvelianSurface const*>(parentWidget()))
            context.SetTheme(surface->GetTheme());
        // Where pixels of the screen are finer, lines of the neighbours may reach into what is painted.
        int const more = HasWholePixels() ? 0 : 1;
        OnPaintPart(context, event.rect().adjusted(-more, -more, more, more));
        return true;
    });
}

void CNorvelianScrollArea::scrollContentsBy(int /*dx*/, int /*dy*/) {
    if (settingBars_) return;
    Run([this] { OnScrolled(); });
}

void CNorvelianScrollArea::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    Run([this] { OnFocusChange(true); });
}

void CNorvelianScrollArea::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    Run([this] { OnFocusChange(false); });
}

bool CNorvelianScrollArea::focusNextPrevChild(bool next) {
    // The field isn't a stop of its own.
    Run([this] { OnEditorLeft(); });
    return QAbstractScrollArea::focusNextPrevChild(next);
}

bool CNorvelianScrollArea::HasWholePixels() const {
    double const scale = viewport()->devicePixelRatioF();
    return scale == std::floor(scale);
}

void CNorvelianScrollArea::ScrollViewport(QRect const& area, long dx, long dy) {
    // Else rows don't end where pixels of the screen do.
    if (HasWholePixels())
        viewport()->scroll(static_cast<int>(dx), static_cast<int>(dy), area);
    else
        viewport()->update(area);
}

void CNorvelianScrollArea::SetBars(long y, long lastY, long yPage, long x, long lastX, long xPage) {
    if (std::exchange(settingBars_, true)) return;
    verticalScrollBar()->setRange(0, ToInt(lastY));
    verticalScrollBar()->setPageStep(ToInt(yPage));
    verticalScrollBar()->setValue(ToInt(y));
    horizontalScrollBar()->setRange(0, ToInt(lastX));
    horizontalScrollBar()->setPageStep(ToInt(xPage));
    horizontalScrollBar()->setValue(ToInt(x));
    settingBars_ = false;
}

// ------------------------------------------------------------------ the field

void CNorvelianScrollArea::ShowField(QRect const& box, QString const& text, QFont const& font,
                                     Qt::Alignment alignment, bool selectAll) {
    if (!field_) {
        field_ = new QLineEdit(viewport());
        field_->setFrame(false);
        field_->setAutoFillBackground(true);
        field_->installEventFilter(this);
    }
    field_->setFont(font);
    field_->setAlignment(alignment);
    field_->setText(text);
    if (selectAll) field_->selectAll();
    MoveField(box);
    field_->show();
    field_->setFocus(Qt::OtherFocusReason);
}

QString CNorvelianScrollArea::GetFieldText() const { return field_ ? field_->text() : QString(); }

void CNorvelianScrollArea::MoveField(QRect const& box) {
    if (field_) field_->setGeometry(box);
}

void CNorvelianScrollArea::HideField() {
    if (!field_) return;
    // The focus first, so that it doesn't go elsewhere.
    if (field_->hasFocus()) setFocus(Qt::OtherFocusReason);
    if (field_) field_->hide();
}

bool CNorvelianScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched != field_) return QAbstractScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) return OnEditorKey(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        Run([this] { OnEditorLeft(); });
    return false;
}

} // namespace GUI
