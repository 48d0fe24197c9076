#include "gui/controls/CNorvelianButton.h"

#include <QKeyEvent>

namespace GUI {

void CNorvelianButton::keyPressEvent(QKeyEvent* event) {
    bool const enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) return QPushButton::keyPressEvent(event);
    if (!event->isAutoRepeat()) click();
}

} // namespace GUI
