#include "gui/controls/CNorvelianFixedText.h"

namespace GUI {

CNorvelianFixedText::CNorvelianFixedText(QWidget* parent) : QLabel(parent) {
    // Texts come from measured files too and are no markup.
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(Qt::NoFocus);
    setMinimumSize(0, 0);
}

void CNorvelianFixedText::SetTextColor(QColor const& color) {
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, color);
    setPalette(colors);
}

void CNorvelianFixedText::SetBackgroundColor(QColor const& color) {
    QPalette colors = palette();
    colors.setColor(QPalette::Window, color);
    setPalette(colors);
    setAutoFillBackground(true);
}

} // namespace GUI
