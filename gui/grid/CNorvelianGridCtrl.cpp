#include "gui/grid/CNorvelianGridCtrl.h"

#include "gui/grid/CNorvelianAccessibleGrid.h"
#include "gui/platform/Fonts_PC.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/CNorvelianSurface.h"
#include "gui/shell/EventGuard_PC.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace GUI {

using Utilities::String;

namespace {

QRect ToRect(GridBox const& box) {
    return {static_cast<int>(box.left), static_cast<int>(box.top), static_cast<int>(box.GetWidth()),
            static_cast<int>(box.GetHeight())};
}

int ToInt(long value) {
    return static_cast<int>(std::clamp<long>(value, 0, std::numeric_limits<int>::max()));
}

GridModifiers ToModifiers(Qt::KeyboardModifiers modifiers) {
    return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier)};
}

std::optional<GridKey> ToGridKey(QKeyEvent const& event) {
    std::pair<QKeySequence::StandardKey, GridKey> const commands[] = {
        {QKeySequence::Copy, GridKey::Copy},    {QKeySequence::Cut, GridKey::Cut},
        {QKeySequence::Paste, GridKey::Paste},  {QKeySequence::Undo, GridKey::Undo},
        {QKeySequence::Redo, GridKey::Redo},    {QKeySequence::SelectAll, GridKey::SelectAll},
        {QKeySequence::Delete, GridKey::Delete}};
    for (auto const& [sequence, key] : commands)
        if (event.matches(sequence)) return key;
    std::pair<int, GridKey> const keys[] = {
        {Qt::Key_Left, GridKey::Left},     {Qt::Key_Right, GridKey::Right},
        {Qt::Key_Up, GridKey::Up},         {Qt::Key_Down, GridKey::Down},
        {Qt::Key_Home, GridKey::Home},     {Qt::Key_End, GridKey::End},
        {Qt::Key_PageUp, GridKey::PageUp}, {Qt::Key_PageDown, GridKey::PageDown},
        {Qt::Key_Return, GridKey::Enter},  {Qt::Key_Enter, GridKey::Enter},
        {Qt::Key_Escape, GridKey::Escape}, {Qt::Key_F2, GridKey::Edit},
        {Qt::Key_Space, GridKey::Space}};
    for (auto const& [code, key] : keys)
        if (event.key() == code) return key;
    return {};
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

CNorvelianGridCtrl::CNorvelianGridCtrl(QWidget* parent) : QAbstractScrollArea(parent) {
    CNorvelianAccessibleGrid::Install();
    setViewport(new PaintedWidget);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    // The table paints all its pixels, so that they can be moved, and nothing is painted behind it.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    setVerticalScrollBar(new StillScrollBar(Qt::Vertical));
    verticalScrollBar()->setSingleStep(1);
    horizontalScrollBar()->setSingleStep(static_cast<int>(CGXGridCore::defaultHeight));
    setAutoFillBackground(true);
}

CNorvelianGridCtrl::~CNorvelianGridCtrl() { SetObserver(nullptr); }

template <class Handler> void CNorvelianGridCtrl::Run(Handler handler) {
    if (!element_) return;
    RunGuardedEvent(*element_, [&handler] { return handler(), true; });
}

void CNorvelianGridCtrl::RunCommand(std::function<void(CGXGridWnd&)> const& command) {
    Run([&] { command(*this); });
}

// ------------------------------------------------------------------ events

bool CNorvelianGridCtrl::event(QEvent* event) {
    // Keys of the table come before shortcuts of the menu while it has the focus.
    if (event->type() == QEvent::ShortcutOverride && ToGridKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::EnabledChange) {
        SetEnabled(isEnabled());
        viewport()->update();
    }
    return QAbstractScrollArea::event(event);
}

bool CNorvelianGridCtrl::viewportEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::Paint:
        PaintViewport(*static_cast<QPaintEvent*>(event));
        return true;
    case QEvent::Resize:
        Run([this] { OnSize(viewport()->width(), viewport()->height()); });
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

void CNorvelianGridCtrl::PaintViewport(QPaintEvent const& event) {
    SurfaceBacking backing;
    // During a paint the platform redirects the widget to the memory behind its window.
    backing.image =
        dynamic_cast<QImage*>(static_cast<PaintedWidget*>(viewport())->GetRedirected(backing.offset));
    RunGuarded([&] {
        PlatformIndependentDeviceContext_PC context(*viewport(), {QPoint(), event.region()}, backing);
        if (auto const* const surface = dynamic_cast<CNorvelianSurface const*>(parentWidget()))
            context.SetTheme(surface->GetTheme());
        QRect const box = event.rect();
        // Where pixels of the screen are finer, lines of the neighbours may reach into what is painted.
        long const more = HasWholePixels() ? 0 : 1;
        Paint(context, {box.left() - more, box.top() - more, box.left() + box.width() + more,
                        box.top() + box.height() + more});
        return true;
    });
}

bool CNorvelianGridCtrl::OnMouse(QEvent& event) {
    auto const& mouse = static_cast<QMouseEvent&>(event);
    QPoint const place = mouse.position().toPoint();
    if (event.type() == QEvent::MouseMove) {
        Run([&] { OnMouseMove(place.x(), place.y(), mouse.buttons().testFlag(Qt::LeftButton)); });
        return true;
    }
    if (mouse.button() != Qt::LeftButton) return false;
    Run([&] {
        if (event.type() == QEvent::MouseButtonPress)
            OnLeftButtonDown(place.x(), place.y(), ToModifiers(mouse.modifiers()));
        else if (event.type() == QEvent::MouseButtonRelease)
            OnLeftButtonUp(place.x(), place.y());
        else
            OnDoubleClick(place.x(), place.y());
    });
    return true;
}

void CNorvelianGridCtrl::scrollContentsBy(int /*dx*/, int /*dy*/) {
    if (settingBars_) return;
    Run([this] {
        long const row = GetFrozenRows() + 1 + verticalScrollBar()->value();
        ScrollTo(horizontalScrollBar()->value(), GetViewport().rows.GetOffsetToBegin(row));
    });
}

bool CNorvelianGridCtrl::PassKey(QKeyEvent& event) {
    bool taken = false;
    Run([&] {
        if (auto const key = ToGridKey(event)) {
            taken = OnKey(*key, ToModifiers(event.modifiers()));
            return;
        }
        QString const text = event.text();
        bool const types = !text.isEmpty() && text[0].isPrint() &&
                           !event.modifiers().testFlag(Qt::ControlModifier) &&
                           !event.modifiers().testFlag(Qt::AltModifier);
        taken = types && OnTyped(FromPlatformText(text));
    });
    return taken;
}

void CNorvelianGridCtrl::keyPressEvent(QKeyEvent* event) { event->setAccepted(PassKey(*event)); }

void CNorvelianGridCtrl::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    Run([this] { OnFocus(true); });
}

void CNorvelianGridCtrl::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    Run([this] { OnFocus(false); });
}

bool CNorvelianGridCtrl::focusNextPrevChild(bool next) {
    // The field of a cell isn't a stop of its own.
    Run([this] { EndEditing(true); });
    return QAbstractScrollArea::focusNextPrevChild(next);
}

// ------------------------------------------------------------------ painting and scrolling

void CNorvelianGridCtrl::RepaintBox(GridBox const& box) { viewport()->update(ToRect(box)); }

void CNorvelianGridCtrl::ScrollPixels(GridBox const& area, long dx, long dy) {
    // Else rows don't end where pixels of the screen do.
    if (HasWholePixels())
        viewport()->scroll(static_cast<int>(dx), static_cast<int>(dy), ToRect(area));
    else
        viewport()->update(ToRect(area));
}

bool CNorvelianGridCtrl::HasWholePixels() const {
    double const scale = viewport()->devicePixelRatioF();
    return scale == std::floor(scale);
}

void CNorvelianGridCtrl::SetScrollBars(long row, long lastRow, long rowPage, long x, long lastX, long xPage) {
    if (std::exchange(settingBars_, true)) return;
    verticalScrollBar()->setRange(0, ToInt(lastRow));
    verticalScrollBar()->setPageStep(ToInt(rowPage));
    verticalScrollBar()->setValue(ToInt(row));
    horizontalScrollBar()->setRange(0, ToInt(lastX));
    horizontalScrollBar()->setPageStep(ToInt(xPage));
    horizontalScrollBar()->setValue(ToInt(x));
    settingBars_ = false;
}

void CNorvelianGridCtrl::SetCursor(GridCursor cursor) {
    Qt::CursorShape const shape = cursor == GridCursor::Columns ? Qt::SplitHCursor
                                  : cursor == GridCursor::Rows  ? Qt::SplitVCursor
                                                                : Qt::ArrowCursor;
    if (viewport()->cursor().shape() != shape) viewport()->setCursor(shape);
}

// ------------------------------------------------------------------ editing

void CNorvelianGridCtrl::ShowEditor(GridBox const& box, String const& text, CGXStyle const& style,
                                    bool selectAll) {
    if (!editor_) {
        editor_ = new QLineEdit(viewport());
        editor_->setFrame(false);
        editor_->setAutoFillBackground(true);
        editor_->installEventFilter(this);
    }
    editor_->setFont(FindFont(style.GetFontSize(), 0, style.fontName.value_or("Arial"),
                              style.bold.value_or(false) ? PlatformIndependentDeviceContext::boldFont : 0));
    editor_->setAlignment(style.IsNumber() ? Qt::AlignRight : Qt::AlignLeft);
    editor_->setText(ToPlatformText(text));
    if (selectAll) editor_->selectAll();
    MoveEditor(box);
    editor_->show();
    editor_->setFocus(Qt::OtherFocusReason);
}

String CNorvelianGridCtrl::GetEditorText() const {
    return editor_ ? FromPlatformText(editor_->text()) : String();
}

void CNorvelianGridCtrl::MoveEditor(GridBox const& box) {
    if (editor_) editor_->setGeometry(ToRect({box.left, box.top, box.right - 1, box.bottom - 1}));
}

void CNorvelianGridCtrl::HideEditor() {
    if (!editor_) return;
    bool const hadFocus = editor_->hasFocus();
    // The focus first, so that it doesn't go elsewhere.
    if (hadFocus) setFocus(Qt::OtherFocusReason);
    if (editor_) editor_->hide();
}

bool CNorvelianGridCtrl::eventFilter(QObject* watched, QEvent* event) {
    if (watched != editor_) return QAbstractScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) return OnEditorKey(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        Run([this] { EndEditing(true); });
    return false;
}

bool CNorvelianGridCtrl::OnEditorKey(QKeyEvent& event) {
    GridModifiers const none;
    switch (event.key()) {
    case Qt::Key_Escape:
        Run([this] { EndEditing(false); });
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        Run([this, &none] {
            EndEditing(true);
            OnKey(GridKey::Down, none);
        });
        return true;
    case Qt::Key_Up:
        Run([this, &none] {
            EndEditing(true);
            OnKey(GridKey::Up, none);
        });
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        Run([&, this] {
            EndEditing(true);
            OnKey(event.key() == Qt::Key_Tab ? GridKey::Right : GridKey::Left, none);
        });
        return true;
    default:
        return false;
    }
}

void CNorvelianGridCtrl::ShowChoices(GridBox const& box, std::vector<String> const& choices,
                                     String const& current) {
    // Not modal: the table may go while it is open, and takes it along.
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (String const& choice : choices) {
        QAction* const action = menu->addAction(ToPlatformText(choice).replace('&', "&&"));
        action->setCheckable(true);
        action->setChecked(choice == current);
        if (choice == current) menu->setActiveAction(action);
        connect(action, &QAction::triggered, this, [this, choice] { Run([&] { OnChosen(choice); }); });
    }
    menu->setMinimumWidth(static_cast<int>(box.GetWidth()));
    menu->popup(viewport()->mapToGlobal(QPoint(static_cast<int>(box.left), static_cast<int>(box.bottom))));
}

void CNorvelianGridCtrl::SetClipboard(std::string const& text, std::string const& html) {
    auto* const mime = new QMimeData;
    mime->setText(ToPlatformText(text));
    mime->setHtml(ToPlatformText(html));
    QApplication::clipboard()->setMimeData(mime);
}

void CNorvelianGridCtrl::GetClipboard(std::string& text, std::string& html) const {
    QMimeData const* const mime = QApplication::clipboard()->mimeData();
    if (!mime) return;
    text = FromPlatformText(mime->text()).GetStdString();
    html = FromPlatformText(mime->html()).GetStdString();
}

void CNorvelianGridCtrl::TellCurrentCell() { CNorvelianAccessibleGrid::TellFocus(*this); }

void CNorvelianGridCtrl::TellCellChange(GridPlace const& place) {
    CNorvelianAccessibleGrid::TellChange(*this, place);
}

} // namespace GUI
