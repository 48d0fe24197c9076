#include "gui/tree/CNorvelianTreeCtrl.h"

#include "gui/grid/GridKeys_PC.h"
#include "gui/platform/DropDataObject_PC.h"
#include "gui/platform/Fonts_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/tree/CNorvelianAccessibleTree.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>
#include <utility>

namespace GUI {

using Utilities::String;

namespace {

QRect ToRect(GridBox const& box) {
    return {static_cast<int>(box.left), static_cast<int>(box.top), static_cast<int>(box.GetWidth()),
            static_cast<int>(box.GetHeight())};
}

} // namespace

CNorvelianTreeCtrl::CNorvelianTreeCtrl(QWidget* parent) : CNorvelianScrollArea(parent) {
    CNorvelianAccessibleTree::Install();
    horizontalScrollBar()->setSingleStep(static_cast<int>(GetRowHeight()));
}

CNorvelianTreeCtrl::~CNorvelianTreeCtrl() { SetObserver(nullptr); }

void CNorvelianTreeCtrl::SetDragging(Drags drags) {
    drags_ = std::move(drags);
    viewport()->setAcceptDrops(drags_.moves || drags_.takes);
}

void CNorvelianTreeCtrl::RunCommand(std::function<void(TreeWnd&)> const& command) {
    Run([&] { command(*this); });
}

// ------------------------------------------------------------------ events

bool CNorvelianTreeCtrl::viewportEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::ToolTip:
        return ShowNodeTip(*event) || CNorvelianScrollArea::viewportEvent(event);
    case QEvent::DragEnter:
    case QEvent::DragMove:
        Run([&] { OnDragMove(*static_cast<QDropEvent*>(event)); });
        return true;
    case QEvent::DragLeave:
        Run([&] { OnDragLeave(); });
        return true;
    case QEvent::Drop:
        Run([&] { OnDropped(*static_cast<QDropEvent*>(event)); });
        return true;
    default:
        return CNorvelianScrollArea::viewportEvent(event);
    }
}

bool CNorvelianTreeCtrl::IsOwnKey(QKeyEvent const& event) const {
    auto const key = ToGridKey(event);
    return key && *key != GridKey::Undo && *key != GridKey::Redo && *key != GridKey::Delete &&
           *key != GridKey::Cut && *key != GridKey::Paste && *key != GridKey::Escape;
}

void CNorvelianTreeCtrl::OnPaintPart(PlatformIndependentDeviceContext& context, QRect const& part) {
    Paint(context, {part.left(), part.top(), part.left() + part.width(), part.top() + part.height()});
}

bool CNorvelianTreeCtrl::OnMouse(QEvent& event) {
    auto const& mouse = static_cast<QMouseEvent&>(event);
    QPoint const place = mouse.position().toPoint();
    if (event.type() == QEvent::MouseMove) {
        Run([&] { OnMouseMove(place.x(), place.y(), mouse.buttons().testFlag(Qt::LeftButton)); });
        return true;
    }
    if (mouse.button() != Qt::LeftButton) return false;
    ++clicks_;
    Run([&] {
        if (event.type() == QEvent::MouseButtonPress)
            OnLeftButtonDown(place.x(), place.y(), ToGridModifiers(mouse.modifiers()));
        else if (event.type() == QEvent::MouseButtonRelease)
            OnLeftButtonUp(place.x(), place.y());
        else
            OnDoubleClick(place.x(), place.y());
    });
    return true;
}

void CNorvelianTreeCtrl::OnScrolled() {
    ScrollTo(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void CNorvelianTreeCtrl::keyPressEvent(QKeyEvent* event) {
    bool taken = false;
    Run([&] {
        auto const key = ToGridKey(*event);
        // A blank that comes while a name is typed belongs to the name.
        if (key)
            taken = OnKey(*key, ToGridModifiers(event->modifiers()));
        else if (TypesText(*event))
            taken = OnTyped(FromPlatformText(event->text()), static_cast<long>(event->timestamp()));
    });
    event->setAccepted(taken);
}

bool CNorvelianTreeCtrl::OnEditorKey(QKeyEvent& event) {
    bool const accepts =
        event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Tab;
    if (!accepts && event.key() != Qt::Key_Escape) return false;
    Run([this, accepts] { EndRename(accepts); });
    return true;
}

bool CNorvelianTreeCtrl::ShowNodeTip(QEvent& event) {
    auto const& help = static_cast<QHelpEvent&>(event);
    long const row = GetRowAt(help.pos().y());
    if (row < 0) return false;
    TreeViewNode const& node = *GetRows()[row].node;
    String text = node.GetToolTip();
    // What is cut off can be read in its tip.
    if (text.Length() == 0 &&
        GetParts(row).text.GetWidth() - 2 * GridDrawing::margin < MeasureText(node.GetText()))
        text = node.GetText();
    if (text.Length() == 0) return false;
    QToolTip::showText(help.globalPos(), AsPlainToolTip(ToPlatformText(text)), viewport());
    return true;
}

// ------------------------------------------------------------------ painting and scrolling

void CNorvelianTreeCtrl::RepaintBox(GridBox const& box) { viewport()->update(ToRect(box)); }

void CNorvelianTreeCtrl::ScrollPixels(GridBox const& area, long dx, long dy) {
    ScrollViewport(ToRect(area), dx, dy);
}

void CNorvelianTreeCtrl::SetScrollBars(long row, long lastRow, long rowPage, long x, long lastX, long xPage) {
    SetBars(row, lastRow, rowPage, x, lastX, xPage);
}

void CNorvelianTreeCtrl::SetCursor(GridCursor cursor) {
    Qt::CursorShape const shape = cursor == GridCursor::Columns ? Qt::SplitHCursor : Qt::ArrowCursor;
    if (viewport()->cursor().shape() != shape) viewport()->setCursor(shape);
}

QFont CNorvelianTreeCtrl::GetFont() const {
    return FindFont(GetStyle().GetFontSize(), 0, GetStyle().fontName.value_or("Arial"), 0);
}

long CNorvelianTreeCtrl::MeasureText(String const& text) const {
    return QFontMetrics(GetFont()).horizontalAdvance(ToShownText(text));
}

// ------------------------------------------------------------------ names and clipboard

void CNorvelianTreeCtrl::ShowEditor(GridBox const& box, String const& text) {
    ShowField(ToRect(box).intersected(viewport()->rect()), ToPlatformText(text), GetFont(), Qt::AlignLeft,
              true);
}

String CNorvelianTreeCtrl::GetEditorText() const { return FromPlatformText(GetFieldText()); }

void CNorvelianTreeCtrl::MoveEditor(GridBox const& box) {
    MoveField(ToRect(box).intersected(viewport()->rect()));
}

void CNorvelianTreeCtrl::WaitForRename() {
    QTimer::singleShot(QApplication::doubleClickInterval(), this, [this, clicks = clicks_] {
        if (clicks == clicks_) Run([this] { OnRenameDue(); });
    });
}

void CNorvelianTreeCtrl::SetClipboard(String const& text) {
    QApplication::clipboard()->setText(ToPlatformText(text));
}

std::string CNorvelianTreeCtrl::Fold(String const& text) const {
    return ToPlatformText(text).toCaseFolded().toStdString();
}

// ------------------------------------------------------------------ drags

DragContent CNorvelianTreeCtrl::GetDragContent() const {
    DragContent content;
    auto const nodes = GetSelected();
    std::string text;
    for (TreeViewNode const* const node : nodes)
        text += (text.empty() ? "" : "\n") + node->GetText().GetStdString();
    content.text = String(text);
    if (nodes.size() == 1) content.color = nodes.front()->GetColor();
    return content;
}

void CNorvelianTreeCtrl::StartDrag() {
    DragContent content = GetDragContent();
    if (drags_.leaves && drags_.fill) drags_.fill(content);
    // Within the tree alone others are offered nothing to take.
    auto mime = drags_.leaves ? MakeMimeData(content) : std::make_unique<QMimeData>();
    auto* const drag = new QDrag(this);
    drag->setMimeData(mime.release());
    QPointer<CNorvelianTreeCtrl> const self(this);
    drag->exec(drags_.moves ? Qt::CopyAction | Qt::MoveAction : Qt::CopyAction,
               drags_.moves ? Qt::MoveAction : Qt::CopyAction);
    if (self) OnDragLeave();
}

bool CNorvelianTreeCtrl::IsOwnDrag(QDropEvent const& event) const { return event.source() == this; }

void CNorvelianTreeCtrl::OnDragMove(QDropEvent& event) {
    QPoint const place = event.position().toPoint();
    bool const own = IsOwnDrag(event) && drags_.moves;
    auto const target = own || drags_.takes ? OnDragOver(place.x(), place.y(), own) : std::nullopt;
    bool const taken = target && (own ? CanMoveTo(*target) : !IsOwnDrag(event));
    if (!taken) {
        OnDragLeave();
        return event.ignore();
    }
    event.setDropAction(own ? Qt::MoveAction : Qt::CopyAction);
    event.accept();
}

void CNorvelianTreeCtrl::OnDropped(QDropEvent& event) {
    auto const target = GetDropMark();
    OnDragLeave();
    if (!target) return event.ignore();
    bool const taken = IsOwnDrag(event)
                           ? MoveSelected(*target)
                           : drags_.take && drags_.take(DropDataObject_PC(*event.mimeData()), *target);
    event.setAccepted(taken);
}

// ------------------------------------------------------------------ assistive technology

void CNorvelianTreeCtrl::TellCurrentRow(long row) { CNorvelianAccessibleTree::TellFocus(*this, row); }
void CNorvelianTreeCtrl::TellRowChange(long row) { CNorvelianAccessibleTree::TellChange(*this, row); }
void CNorvelianTreeCtrl::TellRowsChanged() { CNorvelianAccessibleTree::TellRows(*this); }

} // namespace GUI
