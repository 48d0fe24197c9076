#pragma once

#include "gui/controls/CNorvelianButton.h"

#include <functional>

namespace Ostrinda {

class PaperPressButton;

/// The window of a button for paper and press. The element paints its face and hears of the mouse.
class CNorvelianPPressButton : public GUI::CNorvelianButton {
public:
    explicit CNorvelianPPressButton(QWidget* parent) : CNorvelianButton(parent) {}

    void SetOwner(PaperPressButton& owner) { owner_ = &owner; }
    /// The element is going away.
    void ClearOwner() { owner_ = nullptr; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void TellMouseOver(bool over);

    PaperPressButton* owner_ = nullptr;
};

} // namespace Ostrinda
