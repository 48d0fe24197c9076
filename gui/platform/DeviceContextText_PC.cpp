// What the device context leaves to Qt's painter: text, images and computed pictures.
#include "Utilities/NamingService.h"
#include "gui/elements/drawing/ImageServiceInterface.h"
#include "gui/platform/Color_PC.h"
#include "gui/platform/Fonts_PC.h"
#include "gui/platform/Picture_PC.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/ShapedTexts_PC.h"
#include "gui/platform/TextConversion_PC.h"

#include <QFontMetrics>
#include <QImage>
#include <utility>

namespace GUI {

using Utilities::String;

RGBVector PlatformIndependentDeviceContext_PC::SetTextColor(RGBVector const& color) {
    return std::exchange(textColor_, Resolve(color));
}

void PlatformIndependentDeviceContext_PC::SetFont(short height, short width, short escapement,
                                                  String const& face, short bold) {
    font_ = &FindFont(height, width, face, bold);
    escapement_ = escapement / 10.0;
}

QFont const& PlatformIndependentDeviceContext_PC::GetFont() {
    if (!font_) SetFont(8, 0, 0, "MS Sans Serif", 0);
    return *font_;
}

void PlatformIndependentDeviceContext_PC::DrawImage(short x, short y, String const& imageName) {
    FlushLines();
    if (!Utilities::NamingService::Instance()->IsRegistered("ImageService")) return;
    auto const images = Utilities::ResolveComponent<ImageServiceInterface>("ImageService");
    auto const bitmap = images->GetBitmap(imageName);
    if (auto* const picture = dynamic_cast<Picture_PC*>(bitmap.Get())) {
        QPainter& painter = PainterAt(x, y);
        picture->DrawInTone(0, 0, painter, ToColor(textColor_));
    }
}

void PlatformIndependentDeviceContext_PC::DrawPixels(short left, short top, short right, short bottom,
                                                     std::span<std::uint32_t const> colors, long width) {
    FlushLines();
    if (left >= right || top >= bottom || width <= 0) return;
    long const height = static_cast<long>(colors.size()) / width;
    if (height == 0) return;
    QImage const picture(reinterpret_cast<uchar const*>(colors.data()), static_cast<int>(width),
                         static_cast<int>(height), width * 4, QImage::Format_RGB32);
    QPainter& painter = Painter(HasGrid() ? Space::Device : Space::Part);
    QPointF const corner = HasGrid() ? QPointF(grid_.X(left), grid_.Y(top)) : QPointF(left, top);
    QPointF const end = HasGrid() ? QPointF(grid_.X(right), grid_.Y(bottom)) : QPointF(right, bottom);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(QRectF(corner, end), picture);
}

double PlatformIndependentDeviceContext_PC::GetScale() {
    if (raster_) return grid_.scale;
    if (!painterStarted_) StartPainter();
    return painterHasPixels_ ? grid_.scale : 1;
}

QPainter& PlatformIndependentDeviceContext_PC::PainterAt(short x, short y) {
    QPainter& painter = Painter(Space::Part);
    // What the platform draws is scaled by it, but begins on a whole pixel of the device.
    if (painterHasPixels_)
        painter.setWorldTransform(QTransform(grid_.scale, 0, 0, grid_.scale, grid_.X(x), grid_.Y(y)) *
                                  toDevice_);
    else
        painter.translate(x, y);
    space_ = Space::Unknown;
    return painter;
}

void PlatformIndependentDeviceContext_PC::DrawText(short x, short y, String const& text) {
    FlushLines();
    if (text.Length() == 0) return;
    QFont const& font = GetFont();
    QPainter& painter = PainterAt(x, y);
    painter.setFont(font);
    painter.setPen(ToColor(textColor_));
    if (escapement_ != 0) painter.rotate(-escapement_);
    // The base line is on a whole pixel of the device, too.
    double const ascent = QFontMetrics(font, device_).ascent();
    double const baseLine =
        painterHasPixels_ ? DeviceGrid::Nearest(ascent * grid_.scale) / grid_.scale : ascent;
    if (ShapedText const* const shaped = FindShapedText(font, text))
        shaped->layout.draw(&painter, QPointF(0, baseLine - shaped->ascent));
    else
        painter.drawText(QPointF(0, baseLine), ToShownText(text));
}

void PlatformIndependentDeviceContext_PC::GetTextExtent(String const& text, long& width, long& height) {
    QFontMetrics const metrics(GetFont(), device_);
    if (ShapedText const* const shaped = FindShapedText(GetFont(), text))
        width = shaped->width;
    else
        width = text.Length() == 0 ? 0 : metrics.horizontalAdvance(ToShownText(text));
    height = metrics.height();
}

} // namespace GUI
