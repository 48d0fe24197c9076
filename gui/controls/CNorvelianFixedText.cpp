#include "gui/controls/CNorvelianFixedText.h"

#include <QEvent>
#include <QFontMetrics>
#include <QStringList>
#include <algorithm>

namespace GUI {

CNorvelianFixedText::CNorvelianFixedText(QWidget* parent) : QLabel(parent) {
    // Texts come from measured files too and are no markup.
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(Qt::NoFocus);
    setMinimumSize(0, 0);
}

bool CNorvelianFixedText::SetWholeText(QString const& text) {
    if (text == whole_) return false;
    whole_ = text;
    setAccessibleName(text);
    ShowWhatFits();
    return true;
}

unsigned long CNorvelianFixedText::GetTextWidth() const {
    QFontMetrics const metrics(font());
    int widest = 0;
    for (QString const& line : whole_.split('\n')) widest = std::max(widest, metrics.horizontalAdvance(line));
    return static_cast<unsigned long>(widest);
}

void CNorvelianFixedText::ShowWhatFits() {
    // Before the first layout there is no width to fit.
    if (width() <= 0 || GetTextWidth() <= static_cast<unsigned long>(width())) return setText(whole_);
    QFontMetrics const metrics(font());
    QStringList lines = whole_.split('\n');
    for (QString& line : lines) line = metrics.elidedText(line, Qt::ElideRight, width());
    setText(lines.join('\n'));
}

void CNorvelianFixedText::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    ShowWhatFits();
}

void CNorvelianFixedText::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) ShowWhatFits();
}

} // namespace GUI
