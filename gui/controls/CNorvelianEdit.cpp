#include "gui/controls/CNorvelianEdit.h"

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
