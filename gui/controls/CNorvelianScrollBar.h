#pragma once

#include <QScrollBar>

namespace GUI {

/// The window of a scroll bar, which Tab reaches.
class CNorvelianScrollBar : public QScrollBar {
public:
    explicit CNorvelianScrollBar(QWidget* parent) : QScrollBar(parent) { setFocusPolicy(Qt::StrongFocus); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

} // namespace GUI
