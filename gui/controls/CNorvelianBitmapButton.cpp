#include "gui/controls/CNorvelianBitmapButton.h"

#include "gui/platform/Picture_PC.h"
#include "gui/shell/EventGuard_PC.h"

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <qdrawutil.h>

namespace GUI {

void CNorvelianBitmapButton::SetPictures(Utilities::String const& caption) {
    pictures_.Load(caption);
    update();
}

QSize CNorvelianBitmapButton::GetPictureSize() const {
    Bitmap const* const normal = pictures_.Get(ButtonPictures::Kind::Normal);
    return normal ? QSize(static_cast<int>(normal->GetWidth()), static_cast<int>(normal->GetHeight()))
                  : QSize(0, 0);
}

void CNorvelianBitmapButton::SetLook(bool flat, bool border) {
    flat_ = flat;
    border_ = border;
}

void CNorvelianBitmapButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    ButtonState const state{isDown(), hasFocus(), !isEnabled(), isCheckable(), isChecked()};
    auto const kind = pictures_.Choose(state);
    RunGuarded([&] {
        if (auto* const picture = dynamic_cast<Picture_PC*>(pictures_.Get(kind)))
            picture->DrawBitmap(0, 0, painter);
        return true;
    });
    bool const pressed = isDown() || isChecked();
    if (border_ && flat_)
        qDrawPlainRect(&painter, rect(), palette().color(QPalette::Mid));
    else if (border_)
        qDrawShadePanel(&painter, rect(), palette(), pressed);
    if (!hasFocus() || pictures_.Has(ButtonPictures::Kind::Focused)) return;
    // Without a picture of its own the focus must be seen all the same.
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

} // namespace GUI
