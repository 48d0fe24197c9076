#include "gui/controls/CNorvelianScrollBar.h"

#include <QPainter>
#include <QStyleOptionFocusRect>

namespace GUI {

void CNorvelianScrollBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void CNorvelianScrollBar::focusInEvent(QFocusEvent* event) {
    QScrollBar::focusInEvent(event);
    update();
}

void CNorvelianScrollBar::focusOutEvent(QFocusEvent* event) {
    QScrollBar::focusOutEvent(event);
    update();
}

} // namespace GUI
