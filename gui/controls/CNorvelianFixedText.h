#pragma once

#include <QLabel>

namespace GUI {

/// The window of a static text. It takes no input and paints its own background.
class CNorvelianFixedText : public QLabel {
public:
    explicit CNorvelianFixedText(QWidget* parent);

    void SetTextColor(QColor const& color);
    void SetBackgroundColor(QColor const& color);
};

} // namespace GUI
