#include "gui/controls/CNorvelianBitmapButton.h"

#include "gui/platform/CNorvelianStyle.h"
#include "gui/platform/Picture_PC.h"
#include "gui/shell/EventGuard_PC.h"

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <qdrawutil.h>

namespace GUI {

namespace {

/// Around the picture of a tool: an icon of 24 pixels is in a target of 40.
constexpr int toolMargin = 8;

} // namespace

void CNorvelianBitmapButton::SetPictures(Utilities::String const& caption) {
    pictures_.Load(caption);
    update();
}

QSize CNorvelianBitmapButton::GetPictureSize() const {
    Bitmap const* const normal = pictures_.Get(ButtonPictures::Kind::Normal);
    if (!normal) return {0, 0};
    int const around = dynamic_cast<CNorvelianStyle const*>(style()) ? 2 * toolMargin : 0;
    return {static_cast<int>(normal->GetWidth()) + around, static_cast<int>(normal->GetHeight()) + around};
}

void CNorvelianBitmapButton::SetLook(bool flat, bool border) {
    flat_ = flat;
    border_ = border;
}

void CNorvelianBitmapButton::PaintTool(CNorvelianStyle const& style, QPainter& painter,
                                       ButtonPictures::Kind kind) {
    QStyleOption option;
    option.initFrom(this);
    option.state.setFlag(QStyle::State_Sunken, isDown());
    option.state.setFlag(QStyle::State_On, isChecked());
    style.DrawTool(option, painter);
    RunGuarded([&] {
        auto* const bitmap = pictures_.Get(kind);
        auto* const picture = dynamic_cast<Picture_PC*>(bitmap);
        if (!picture) return true;
        long const left = (width() - static_cast<long>(bitmap->GetWidth())) / 2;
        long const top = (height() - static_cast<long>(bitmap->GetHeight())) / 2;
        picture->DrawInTone(left, top, painter, style.GetToolTone(isEnabled()));
        return true;
    });
}

void CNorvelianBitmapButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    ButtonState const state{isDown(), hasFocus(), !isEnabled(), isCheckable(), isChecked()};
    auto const kind = pictures_.Choose(state);
    if (auto const* const themed = dynamic_cast<CNorvelianStyle const*>(style()))
        return PaintTool(*themed, painter, kind);
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
