#include "gui/press/CNorvelianPPressButton.h"

#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/press/PaperPressButton.h"
#include "gui/shell/EventGuard_PC.h"

#include <QPainter>
#include <QStyleOptionFocusRect>

namespace Ostrinda {

void CNorvelianPPressButton::paintEvent(QPaintEvent* /*event*/) {
    if (!owner_) return;
    QPainter painter(this);
    GUI::RunGuarded([&] {
        GUI::PlatformIndependentDeviceContext_PC context(painter, {QPoint(), QRegion(rect())});
        owner_->PaintFace(context, {isDown() || isChecked(), hasFocus(), !isEnabled()},
                          static_cast<short>(width()));
        return true;
    });
    if (!hasFocus()) return;
    // The picture with the focus is the normal one, and the focus must be seen.
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void CNorvelianPPressButton::enterEvent(QEnterEvent* event) {
    CNorvelianButton::enterEvent(event);
    TellMouseOver(true);
}

void CNorvelianPPressButton::leaveEvent(QEvent* event) {
    CNorvelianButton::leaveEvent(event);
    TellMouseOver(false);
}

void CNorvelianPPressButton::TellMouseOver(bool over) {
    update();
    if (!owner_) return;
    GUI::RunGuardedEvent(*owner_, [this, over] {
        owner_->OnMouseOver(over);
        return true;
    });
}

} // namespace Ostrinda
