#pragma once

#include <QPushButton>

namespace GUI {

/// The window of a push button with a text. Enter clicks the one that has the focus, as Space does.
class CNorvelianButton : public QPushButton {
public:
    explicit CNorvelianButton(QWidget* parent) : QPushButton(parent) {}

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace GUI
