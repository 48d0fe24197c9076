#include "gui/grid/CNorvelianGridCtrl.h"

#include "gui/grid/CNorvelianAccessibleGrid.h"
#include "gui/grid/GridKeys_PC.h"
#include "gui/platform/Fonts_PC.h"
#include "gui/platform/TextConversion_PC.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QFontMetrics>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>

namespace GUI {

using Utilities::String;

namespace {

QRect ToRect(GridBox const& box) {
    return {static_cast<int>(box.left), static_cast<int>(box.top), static_cast<int>(box.GetWidth()),
            static_cast<int>(box.GetHeight())};
}

/// Without the lines behind and below.
QRect ToFieldRect(GridBox const& box) { return ToRect({box.left, box.top, box.right - 1, box.bottom - 1}); }

QFont FontOf(CGXStyle const& style) {
    return FindFont(style.GetFontSize(), 0, style.fontName.value_or("Arial"),
                    style.bold.value_or(false) ? PlatformIndependentDeviceContext::boldFont : 0);
}

} // namespace

CNorvelianGridCtrl::CNorvelianGridCtrl(QWidget* parent) : CNorvelianScrollArea(parent) {
    CNorvelianAccessibleGrid::Install();
    horizontalScrollBar()->setSingleStep(static_cast<int>(CGXGridCore::defaultHeight));
}

CNorvelianGridCtrl::~CNorvelianGridCtrl() { SetObserver(nullptr); }

void CNorvelianGridCtrl::RunCommand(std::function<void(CGXGridWnd&)> const& command) {
    Run([&] { command(*this); });
}

// ------------------------------------------------------------------ events

bool CNorvelianGridCtrl::IsOwnKey(QKeyEvent const& event) const { return ToGridKey(event).has_value(); }

void CNorvelianGridCtrl::OnPaintPart(PlatformIndependentDeviceContext& context, QRect const& part) {
    Paint(context, {part.left(), part.top(), part.left() + part.width(), part.top() + part.height()});
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
            OnLeftButtonDown(place.x(), place.y(), ToGridModifiers(mouse.modifiers()));
        else if (event.type() == QEvent::MouseButtonRelease)
            OnLeftButtonUp(place.x(), place.y());
        else
            OnDoubleClick(place.x(), place.y());
    });
    return true;
}

void CNorvelianGridCtrl::OnScrolled() {
    long const row = GetFrozenRows() + 1 + verticalScrollBar()->value();
    ScrollTo(horizontalScrollBar()->value(), GetViewport().rows.GetOffsetToBegin(row));
}

bool CNorvelianGridCtrl::PassKey(QKeyEvent& event) {
    bool taken = false;
    Run([&] {
        if (auto const key = ToGridKey(event)) {
            taken = OnKey(*key, ToGridModifiers(event.modifiers()));
            return;
        }
        taken = TypesText(event) && OnTyped(FromPlatformText(event.text()));
    });
    return taken;
}

void CNorvelianGridCtrl::keyPressEvent(QKeyEvent* event) { event->setAccepted(PassKey(*event)); }

// ------------------------------------------------------------------ painting and scrolling

void CNorvelianGridCtrl::RepaintBox(GridBox const& box) { viewport()->update(ToRect(box)); }

void CNorvelianGridCtrl::ScrollPixels(GridBox const& area, long dx, long dy) {
    ScrollViewport(ToRect(area), dx, dy);
}

void CNorvelianGridCtrl::SetScrollBars(long row, long lastRow, long rowPage, long x, long lastX, long xPage) {
    SetBars(row, lastRow, rowPage, x, lastX, xPage);
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
    ShowField(ToFieldRect(box), ToPlatformText(text), FontOf(style),
              style.IsNumber() ? Qt::AlignRight : Qt::AlignLeft, selectAll);
}

String CNorvelianGridCtrl::GetEditorText() const { return FromPlatformText(GetFieldText()); }

void CNorvelianGridCtrl::MoveEditor(GridBox const& box) { MoveField(ToFieldRect(box)); }

void CNorvelianGridCtrl::HideEditor() { HideField(); }

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
    // Only asked for where there is nothing else: another program may take long to make it.
    if (text.empty()) html = FromPlatformText(mime->html()).GetStdString();
}

long CNorvelianGridCtrl::MeasureText(String const& text, CGXStyle const& style) const {
    return QFontMetrics(FontOf(style)).horizontalAdvance(ToShownText(text));
}

void CNorvelianGridCtrl::StartDrag(std::string const& text, std::string const& html,
                                   std::optional<RGBVector> const& color) {
    DragContent content;
    content.text = String(text);
    content.color = color;
    if (fillDrag_) fillDrag_(content);
    auto mime = MakeMimeData(content);
    mime->setHtml(ToPlatformText(html));
    // Qt deletes it once it has been dropped.
    auto* const drag = new QDrag(this);
    drag->setMimeData(mime.release());
    drag->exec(Qt::CopyAction);
}

void CNorvelianGridCtrl::TellCurrentCell() { CNorvelianAccessibleGrid::TellFocus(*this); }

void CNorvelianGridCtrl::TellCellChange(GridPlace const& place) {
    CNorvelianAccessibleGrid::TellChange(*this, place);
}

} // namespace GUI
