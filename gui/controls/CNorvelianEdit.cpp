#include "gui/controls/CNorvelianEdit.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <limits>
#include <utility>

namespace GUI {

namespace {

constexpr QColor faulty(0xB3, 0x26, 0x1E);
constexpr int faultyWidth = 2;

} // namespace

CNorvelianEdit::CNorvelianEdit(QWidget* parent) : QLineEdit(parent) {
    // A text of the data source must not be cut.
    setMaxLength(std::numeric_limits<int>::max());
}

void CNorvelianEdit::ShowValid(bool valid) {
    if (std::exchange(valid_, valid) != valid) update();
}

void CNorvelianEdit::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (valid_) return;
    QPainter painter(this);
    painter.setPen(QPen(faulty, faultyWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void CNorvelianEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && escape_ && escape_()) return;
    QLineEdit::keyPressEvent(event);
}

void CNorvelianEdit::ShowMessage(QString const& text, Side side) {
    side_ = text.isEmpty() ? Side::None : side;
    if (side_ == Side::None) {
        delete message_;
        return;
    }
    if (!message_) {
        message_ = new QLabel(parentWidget());
        message_->setTextFormat(Qt::PlainText);
        message_->setFocusPolicy(Qt::NoFocus);
        message_->setAttribute(Qt::WA_TransparentForMouseEvents);
        // The surface under it isn't painted each time that the label is.
        message_->setAutoFillBackground(true);
        QPalette palette = message_->palette();
        constexpr QColor faultColor(176, 0, 0);
        palette.setColor(QPalette::WindowText, faultColor);
        message_->setPalette(palette);
    }
    message_->setText(text);
    PlaceMessage();
}

void CNorvelianEdit::PlaceMessage() {
    if (!message_) return;
    constexpr int gap = 4;
    QSize const size = message_->sizeHint();
    message_->resize(size);
    if (side_ == Side::Right)
        message_->move(x() + width() + gap, y() + (height() - size.height()) / 2);
    else
        message_->move(x(), y() + height() + gap / 2);
    message_->raise();
    message_->setVisible(!isHidden());
}

void CNorvelianEdit::moveEvent(QMoveEvent* event) {
    QLineEdit::moveEvent(event);
    PlaceMessage();
}
void CNorvelianEdit::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    PlaceMessage();
}
void CNorvelianEdit::hideEvent(QHideEvent* event) {
    QLineEdit::hideEvent(event);
    PlaceMessage();
}
void CNorvelianEdit::showEvent(QShowEvent* event) {
    QLineEdit::showEvent(event);
    PlaceMessage();
}

CNorvelianMultiLineEdit::CNorvelianMultiLineEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
}

void CNorvelianMultiLineEdit::ShowLine(int line) {
    line_ = line;
    verticalScrollBar()->setValue(line);
    if (verticalScrollBar()->value() == line) line_ = -1;
}

void CNorvelianMultiLineEdit::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    if (line_ >= 0) verticalScrollBar()->setValue(std::exchange(line_, -1));
}

} // namespace GUI
