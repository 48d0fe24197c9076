#include "gui/platform/PlatformIndependentDeviceContext_PC.h"

#include "Utilities/NamingService.h"
#include "gui/elements/ImageServiceInterface.h"
#include "gui/platform/EllipseFigures_PC.h"
#include "gui/platform/Fonts_PC.h"
#include "gui/platform/Picture_PC.h"
#include "gui/platform/TextConversion_PC.h"

#include <QFontMetrics>
#include <QImage>
#include <algorithm>

namespace GUI {

using Utilities::String;

namespace {

QColor ToColor(RGBVector const& color) { return {color.GetRed(), color.GetGreen(), color.GetBlue()}; }
std::uint32_t ToPixel(RGBVector const& color) {
    return qRgb(color.GetRed(), color.GetGreen(), color.GetBlue());
}

/// On and off lengths in pixels.
constexpr int dashOn = 18;
constexpr int dashOff = 6;
constexpr int dotOn = 3;
constexpr int dotOff = 3;

std::optional<RasterSurface> MakeRaster(PlatformIndependentDeviceContext_PC::DirectPixels const& pixels) {
    QImage& image = *pixels.image;
    bool const fits = image.format() == QImage::Format_RGB32 ||
                      image.format() == QImage::Format_ARGB32_Premultiplied ||
                      image.format() == QImage::Format_ARGB32;
    if (!fits || image.devicePixelRatio() != 1.0) return {};
    QRect const clip = pixels.clip.translated(pixels.origin).intersected(image.rect());
    // The painter draws into the same memory: the image must not be copied on write.
    auto* const bits = reinterpret_cast<std::uint32_t*>(const_cast<uchar*>(image.constBits()));
    return RasterSurface(bits, image.bytesPerLine() / 4,
                         {clip.left(), clip.top(), clip.left() + clip.width(), clip.top() + clip.height()},
                         pixels.origin.x(), pixels.origin.y());
}

} // namespace

PlatformIndependentDeviceContext_PC::PlatformIndependentDeviceContext_PC(
    QPaintDevice& device, std::optional<DirectPixels> const& pixels)
    : device_(device) {
    if (pixels) raster_ = MakeRaster(*pixels);
}

PlatformIndependentDeviceContext_PC::PlatformIndependentDeviceContext_PC(QImage& image) : device_(image) {
    raster_ = MakeRaster({&image, QPoint(0, 0), image.rect()});
}

PlatformIndependentDeviceContext_PC::~PlatformIndependentDeviceContext_PC() { FlushLines(); }

QPainter& PlatformIndependentDeviceContext_PC::GetPainter() {
    FlushLines();
    return Painter();
}

QPainter& PlatformIndependentDeviceContext_PC::Painter() {
    if (!painter_) painter_.emplace(&device_);
    return *painter_;
}

RGBVector PlatformIndependentDeviceContext_PC::SetBackgroundColor(RGBVector const& color) {
    return std::exchange(backgroundColor_, color);
}

RGBVector PlatformIndependentDeviceContext_PC::SetTextColor(RGBVector const& color) {
    return std::exchange(textColor_, color);
}

void PlatformIndependentDeviceContext_PC::SetPen(RGBVector const& color, long width, long style) {
    FlushLines();
    penColor_ = color;
    penWidth_ = std::max(width, 1L);
    penStyle_ = style;
}

void PlatformIndependentDeviceContext_PC::SetBrush(RGBVector const& color) { brushColor_ = color; }

void PlatformIndependentDeviceContext_PC::SetFont(short height, short width, short escapement,
                                                  String const& face, short bold) {
    font_ = &FindFont(height, width, face, bold != 0);
    escapement_ = escapement / 10.0;
}

QFont const& PlatformIndependentDeviceContext_PC::GetFont() {
    if (!font_) SetFont(8, 0, 0, "MS Sans Serif", 0);
    return *font_;
}

DashPattern PlatformIndependentDeviceContext_PC::NewPattern() const {
    switch (penStyle_) {
    case dashed:
        return {dashOn, dashOff, 0};
    case dotted:
        return {dotOn, dotOff, 0};
    default:
        return {1, 0, 0};
    }
}

void PlatformIndependentDeviceContext_PC::UsePen(Qt::PenJoinStyle joins) {
    if (!HasPen()) {
        Painter().setPen(Qt::NoPen);
        return;
    }
    // A cosmetic pen is the fast one; on a scaled surface it would be thinner than a pixel of ours.
    bool const scaled = device_.devicePixelRatioF() != 1.0;
    QPen pen(ToColor(penColor_), IsThinPen() && !scaled ? 0.0 : static_cast<double>(penWidth_), Qt::SolidLine,
             Qt::FlatCap, joins);
    DashPattern const pattern = NewPattern();
    if (pattern.off != 0)
        pen.setDashPattern({static_cast<double>(pattern.on) / static_cast<double>(penWidth_),
                            static_cast<double>(pattern.off) / static_cast<double>(penWidth_)});
    Painter().setPen(pen);
}

void PlatformIndependentDeviceContext_PC::UseBrush(bool filled) {
    if (filled)
        Painter().setBrush(ToColor(brushColor_));
    else
        Painter().setBrush(Qt::NoBrush);
}

void PlatformIndependentDeviceContext_PC::MoveTo(short x, short y) {
    FlushLines();
    lines_.assign(1, QPoint(x, y));
}

void PlatformIndependentDeviceContext_PC::LineTo(short x, short y) {
    if (lines_.empty()) lines_.emplace_back(0, 0);
    lines_.emplace_back(x, y);
}

void PlatformIndependentDeviceContext_PC::FlushLines() {
    if (lines_.size() > 1 && HasPen()) {
        if (raster_ && IsThinPen()) {
            DashPattern pattern = NewPattern();
            std::uint32_t const color = ToPixel(penColor_);
            for (std::size_t i = 1; i < lines_.size(); ++i)
                raster_->Line(lines_[i - 1].x(), lines_[i - 1].y(), lines_[i].x(), lines_[i].y(), color,
                              pattern);
        } else {
            UsePen(Qt::RoundJoin);
            Painter().drawPolyline(lines_.data(), static_cast<int>(lines_.size()));
        }
    }
    // The current position stays where the last line ended.
    if (lines_.size() > 1) lines_.erase(lines_.begin(), lines_.end() - 1);
}

void PlatformIndependentDeviceContext_PC::DrawLine(short x1, short y1, short x2, short y2) {
    FlushLines();
    if (!HasPen() || (x1 == x2 && y1 == y2)) return;
    if (raster_ && IsThinPen()) {
        DashPattern pattern = NewPattern();
        raster_->Line(x1, y1, x2, y2, ToPixel(penColor_), pattern);
        return;
    }
    UsePen(Qt::RoundJoin);
    Painter().drawLine(x1, y1, x2, y2);
}

void PlatformIndependentDeviceContext_PC::DrawRectangle(short left, short top, short right, short bottom) {
    FlushLines();
    if (left >= right || top >= bottom || !HasPen()) return;
    if (raster_ && IsThinPen() && penStyle_ == solid) {
        std::uint32_t const color = ToPixel(penColor_);
        raster_->FillBox({left, top, right, top + 1}, color);
        raster_->FillBox({left, bottom - 1, right, bottom}, color);
        raster_->FillBox({left, top, left + 1, bottom}, color);
        raster_->FillBox({right - 1, top, right, bottom}, color);
        return;
    }
    UsePen(Qt::MiterJoin);
    UseBrush(false);
    Painter().drawRect(left, top, right - left - 1, bottom - top - 1);
}

void PlatformIndependentDeviceContext_PC::FillRectangle(short left, short top, short right, short bottom) {
    FlushLines();
    if (left >= right || top >= bottom) return;
    if (raster_)
        raster_->FillBox({left, top, right, bottom}, ToPixel(brushColor_));
    else
        Painter().fillRect(left, top, right - left, bottom - top, ToColor(brushColor_));
    DrawRectangle(left, top, right, bottom);
}

void PlatformIndependentDeviceContext_PC::Ellipse(short left, short top, short right, short bottom,
                                                  bool filled) {
    FlushLines();
    if (left >= right || top >= bottom || (!filled && !HasPen())) return;
    // There is nothing round about so few pixels, and the platform's painter leaves the box.
    if (right - left <= 2 || bottom - top <= 2) {
        if (filled)
            FillRectangle(left, top, right, bottom);
        else
            DrawRectangle(left, top, right, bottom);
        return;
    }
    if (raster_ && (penStyle_ == solid || !HasPen())) {
        auto const* const figure =
            EllipseFigure(right - left, bottom - top, HasPen() ? static_cast<int>(penWidth_) : 0, filled);
        if (figure) {
            raster_->Figure(*figure, left, top, ToPixel(penColor_), ToPixel(brushColor_));
            return;
        }
    }
    UsePen(Qt::RoundJoin);
    UseBrush(filled);
    int const inset = HasPen() ? 1 : 0;
    Painter().drawEllipse(left, top, right - left - inset, bottom - top - inset);
}

void PlatformIndependentDeviceContext_PC::DrawEllipse(short left, short top, short right, short bottom) {
    Ellipse(left, top, right, bottom, false);
}

void PlatformIndependentDeviceContext_PC::FillEllipse(short left, short top, short right, short bottom) {
    Ellipse(left, top, right, bottom, true);
}

void PlatformIndependentDeviceContext_PC::DrawArc(short cx, short cy, short radius, float startAngle,
                                                  float sweepAngle) {
    FlushLines();
    if (radius <= 0 || !HasPen()) return;
    UsePen(Qt::RoundJoin);
    Painter().drawArc(cx - radius, cy - radius, 2 * radius, 2 * radius, qRound(startAngle * 16),
                      qRound(sweepAngle * 16));
}

void PlatformIndependentDeviceContext_PC::FillPie(short cx, short cy, short radius, float startAngle,
                                                  float sweepAngle) {
    FlushLines();
    if (radius <= 0) return;
    UsePen(Qt::RoundJoin);
    UseBrush(true);
    // A full circle has no radii to outline.
    if (sweepAngle >= 360 || sweepAngle <= -360)
        Painter().drawEllipse(cx - radius, cy - radius, 2 * radius, 2 * radius);
    else
        Painter().drawPie(cx - radius, cy - radius, 2 * radius, 2 * radius, qRound(startAngle * 16),
                          qRound(sweepAngle * 16));
}

void PlatformIndependentDeviceContext_PC::Polygon(Points const& points, bool filled) {
    FlushLines();
    if (points.GetSize() == 0) return;
    std::vector<QPoint> corners;
    corners.reserve(points.GetSize());
    for (auto const& point : points)
        corners.emplace_back(static_cast<int>(point.first), static_cast<int>(point.second));
    UsePen(Qt::MiterJoin);
    UseBrush(filled);
    Painter().drawPolygon(corners.data(), static_cast<int>(corners.size()));
}

void PlatformIndependentDeviceContext_PC::DrawPolygon(Points points) { Polygon(points, false); }
void PlatformIndependentDeviceContext_PC::FillPolygon(Points points) { Polygon(points, true); }

void PlatformIndependentDeviceContext_PC::DrawImage(short x, short y, String const& imageName) {
    FlushLines();
    if (!Utilities::NamingService::Instance()->IsRegistered("ImageService")) return;
    auto const images = Utilities::ResolveComponent<ImageServiceInterface>("ImageService");
    auto const bitmap = images->GetBitmap(imageName);
    if (auto* const picture = dynamic_cast<Picture_PC*>(bitmap.Get())) picture->DrawBitmap(x, y, Painter());
}

void PlatformIndependentDeviceContext_PC::DrawText(short x, short y, String const& text) {
    FlushLines();
    if (text.Length() == 0) return;
    QFont const& font = GetFont();
    Painter().setFont(font);
    Painter().setPen(ToColor(textColor_));
    int const ascent = QFontMetrics(font, &device_).ascent();
    if (escapement_ == 0) {
        Painter().drawText(x, y + ascent, ToPlatformText(text));
        return;
    }
    Painter().save();
    Painter().translate(x, y);
    Painter().rotate(-escapement_);
    Painter().drawText(0, ascent, ToPlatformText(text));
    Painter().restore();
}

void PlatformIndependentDeviceContext_PC::GetTextExtent(String const& text, long& width, long& height) {
    QFontMetrics const metrics(GetFont(), &device_);
    width = text.Length() == 0 ? 0 : metrics.horizontalAdvance(ToPlatformText(text));
    height = metrics.height();
}

} // namespace GUI
