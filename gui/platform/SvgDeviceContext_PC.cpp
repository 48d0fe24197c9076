#include "gui/platform/SvgDeviceContext_PC.h"

#include "Utilities/NamingService.h"
#include "gui/elements/drawing/ImageServiceInterface.h"
#include "gui/platform/Color_PC.h"
#include "gui/platform/Fonts_PC.h"
#include "gui/platform/Picture_PC.h"
#include "gui/platform/ShapedTexts_PC.h"
#include "gui/platform/TextConversion_PC.h"

#include <QBuffer>
#include <QFontInfo>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <utility>

namespace GUI {

using Utilities::String;

namespace {

constexpr long widestPen = 32767;

void AddNumber(std::string& target, long number) {
    char digits[24];
    target.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
}

/// What XML can't hold is left out.
void AddEscaped(std::string& target, QString const& text) {
    for (QChar const c : text)
        if (c < QChar(' ') && c != QChar('\t')) return AddEscaped(target, QString(text).remove(c));
    QByteArray const bytes = text.toHtmlEscaped().toUtf8();
    target.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

// ------------------------------------------------------------------ words

SvgDeviceContext_PC& SvgDeviceContext_PC::Write(std::string_view text) {
    target_->append(text);
    return *this;
}

SvgDeviceContext_PC& SvgDeviceContext_PC::Write(double number) {
    constexpr int decimals = 2;
    char digits[64];
    auto end = std::to_chars(digits, std::end(digits), number + 0.0, std::chars_format::fixed, decimals).ptr;
    while (end[-1] == '0') --end;
    if (end[-1] == '.') --end;
    target_->append(digits, end);
    return *this;
}

SvgDeviceContext_PC& SvgDeviceContext_PC::WriteHalves(long halves) {
    if (halves == -1) return Write("-.5");
    AddNumber(*target_, halves / 2);
    return halves % 2 != 0 ? Write(".5") : *this;
}

void SvgDeviceContext_PC::WriteColor(std::string_view attribute, RGBVector const& color) {
    static constexpr char digits[] = "0123456789abcdef";
    Write(attribute).Write("=\"#");
    for (unsigned char const channel : {color.GetRed(), color.GetGreen(), color.GetBlue()}) {
        target_->push_back(digits[channel >> 4U]);
        target_->push_back(digits[channel & 15U]);
    }
    Write("\"");
}

void SvgDeviceContext_PC::EndFigure(bool filled, bool isLine) {
    if (filled)
        WriteColor(" fill", brushColor_);
    else if (!isLine)
        Write(" fill=\"none\"");
    if (HasPen()) {
        WriteColor(" stroke", penColor_);
        if (penWidth_ != 1) {
            Write(" stroke-width=\"");
            AddNumber(*target_, penWidth_);
            Write("\"");
        }
        if (penStyle_ == dashed) Write(" stroke-dasharray=\"18 6\"");
        if (penStyle_ == dotted) Write(" stroke-dasharray=\"3 3\"");
    }
    Write("/>\n");
}

// ------------------------------------------------------------------ selections

RGBVector SvgDeviceContext_PC::SetBackgroundColor(RGBVector const& color) {
    return std::exchange(backgroundColor_, Resolve(color));
}

RGBVector SvgDeviceContext_PC::SetTextColor(RGBVector const& color) {
    return std::exchange(textColor_, Resolve(color));
}

void SvgDeviceContext_PC::SetPen(RGBVector const& color, long width, long style) {
    FlushLines();
    penColor_ = Resolve(color);
    penWidth_ = std::clamp(width, 1L, widestPen);
    penStyle_ = style;
}

void SvgDeviceContext_PC::SetBrush(RGBVector const& color) { brushColor_ = Resolve(color); }

void SvgDeviceContext_PC::SetFont(short height, short width, short escapement, String const& face,
                                  short bold) {
    font_ = &FindFont(height, width, face, bold);
    escapement_ = escapement / 10.0;
}

QFont const& SvgDeviceContext_PC::GetFont() {
    if (!font_) SetFont(8, 0, 0, "MS Sans Serif", 0);
    return *font_;
}

// ------------------------------------------------------------------ lines

void SvgDeviceContext_PC::MoveTo(short x, short y) {
    FlushLines();
    lines_.assign(1, {x, y});
}

void SvgDeviceContext_PC::LineTo(short x, short y) {
    if (lines_.empty()) lines_.push_back({0, 0});
    lines_.push_back({x, y});
}

void SvgDeviceContext_PC::FlushLines() {
    if (lines_.size() < 2) return;
    if (HasPen()) {
        long const stroke = std::exchange(penWidth_, StrokeWidth(penWidth_, penStyle_));
        Write("<polyline points=\"");
        for (Point const& point : lines_)
            WriteHalves(Middle(point.x)).Write(",").WriteHalves(Middle(point.y)).Write(" ");
        target_->back() = '"';
        EndFigure(false);
        penWidth_ = stroke;
    }
    lines_.erase(lines_.begin(), lines_.end() - 1);
}

void SvgDeviceContext_PC::DrawLine(short x1, short y1, short x2, short y2) {
    FlushLines();
    if (!HasPen() || (x1 == x2 && y1 == y2)) return;
    long const stroke = std::exchange(penWidth_, StrokeWidth(penWidth_, penStyle_));
    // Along an axis from edge to edge, as pixels are drawn.
    auto const place = [this](bool isEdge, long at) { WriteHalves(isEdge ? 2 * at : Middle(at)); };
    auto const write = [&](std::string_view x, std::string_view y, long atX, long atY) {
        Write(x);
        place(y1 == y2, atX);
        Write(y);
        place(x1 == x2, atY);
    };
    write("<line x1=\"", "\" y1=\"", x1, y1);
    write("\" x2=\"", "\" y2=\"", x2, y2);
    Write("\"");
    EndFigure(false, true);
    penWidth_ = stroke;
}

// ------------------------------------------------------------------ figures

void SvgDeviceContext_PC::WriteRectangle(short left, short top, short right, short bottom, bool filled) {
    FlushLines();
    if (left >= right || top >= bottom || (!filled && !HasPen())) return;
    auto const halves = [this](long at) { return HasPen() ? Middle(at) : 2 * at; };
    long const inset = HasPen() ? 1 : 0;
    Write("<rect x=\"").WriteHalves(halves(left)).Write("\" y=\"").WriteHalves(halves(top));
    Write("\" width=\"").WriteHalves(2 * (right - left - inset));
    Write("\" height=\"").WriteHalves(2 * (bottom - top - inset)).Write("\"");
    EndFigure(filled);
}

void SvgDeviceContext_PC::DrawRectangle(short left, short top, short right, short bottom) {
    WriteRectangle(left, top, right, bottom, false);
}
void SvgDeviceContext_PC::FillRectangle(short left, short top, short right, short bottom) {
    WriteRectangle(left, top, right, bottom, true);
}

void SvgDeviceContext_PC::WriteEllipse(short left, short top, short right, short bottom, bool filled) {
    FlushLines();
    if (left >= right || top >= bottom || (!filled && !HasPen())) return;
    double const inset = HasPen() ? 1 : 0;
    Write("<ellipse cx=\"").WriteHalves(left + right).Write("\" cy=\"").WriteHalves(top + bottom);
    Write("\" rx=\"").Write((right - left - inset) / 2).Write("\" ry=\"").Write((bottom - top - inset) / 2);
    Write("\"");
    EndFigure(filled);
}

void SvgDeviceContext_PC::DrawEllipse(short left, short top, short right, short bottom) {
    WriteEllipse(left, top, right, bottom, false);
}
void SvgDeviceContext_PC::FillEllipse(short left, short top, short right, short bottom) {
    WriteEllipse(left, top, right, bottom, true);
}

void SvgDeviceContext_PC::WriteArc(short cx, short cy, short radius, float startAngle, float sweepAngle,
                                   bool isPie) {
    FlushLines();
    if (radius <= 0 || sweepAngle == 0 || (!isPie && !HasPen())) return;
    if (std::abs(sweepAngle) >= 360) {
        Write("<circle cx=\"")
            .Write(cx)
            .Write("\" cy=\"")
            .Write(cy)
            .Write("\" r=\"")
            .Write(radius)
            .Write("\"");
        return EndFigure(isPie);
    }
    auto const at = [&](double degrees) {
        double const angle = degrees * std::numbers::pi / 180;
        Write(cx + radius * std::cos(angle)).Write(" ").Write(cy - radius * std::sin(angle));
    };
    Write("<path d=\"M");
    if (isPie) Write(cx).Write(" ").Write(cy).Write("L");
    at(startAngle);
    Write("A").Write(radius).Write(" ").Write(radius).Write(" 0 ");
    Write(std::abs(sweepAngle) > 180 ? "1 " : "0 ").Write(sweepAngle > 0 ? "0 " : "1 ");
    at(static_cast<double>(startAngle) + static_cast<double>(sweepAngle));
    Write(isPie ? "Z\" stroke-linejoin=\"round\"" : "\"");
    EndFigure(isPie);
}

void SvgDeviceContext_PC::DrawArc(short cx, short cy, short radius, float startAngle, float sweepAngle) {
    WriteArc(cx, cy, radius, startAngle, sweepAngle, false);
}
void SvgDeviceContext_PC::FillPie(short cx, short cy, short radius, float startAngle, float sweepAngle) {
    WriteArc(cx, cy, radius, startAngle, sweepAngle, true);
}

void SvgDeviceContext_PC::WritePoints(std::string_view element, Points const& points, bool filled) {
    FlushLines();
    if (points.GetSize() == 0 || (!filled && !HasPen())) return;
    Write("<").Write(element).Write(" points=\"");
    for (auto const& point : points)
        WriteHalves(HasPen() ? Middle(point.first) : 2 * point.first)
            .Write(",")
            .WriteHalves(HasPen() ? Middle(point.second) : 2 * point.second)
            .Write(" ");
    target_->back() = '"';
    Write(" stroke-linejoin=\"round\"");
    EndFigure(filled);
}

void SvgDeviceContext_PC::DrawPolygon(Points points) { WritePoints("polygon", points, false); }
void SvgDeviceContext_PC::FillPolygon(Points points) { WritePoints("polygon", points, true); }

// ------------------------------------------------------------------ pictures and texts

void SvgDeviceContext_PC::WriteImage(double x, double y, double width, double height, QImage const& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "png")) return;
    Write("<image x=\"").Write(x).Write("\" y=\"").Write(y).Write("\" width=\"").Write(width);
    Write("\" height=\"").Write(height);
    Write("\" preserveAspectRatio=\"none\" image-rendering=\"pixelated\" href=\"data:image/png;base64,");
    QByteArray const text = bytes.toBase64();
    Write({text.constData(), static_cast<std::size_t>(text.size())}).Write("\"/>\n");
}

void SvgDeviceContext_PC::DrawImage(short x, short y, String const& imageName) {
    FlushLines();
    if (!Utilities::NamingService::Instance()->IsRegistered("ImageService")) return;
    auto const bitmap =
        Utilities::ResolveComponent<ImageServiceInterface>("ImageService")->GetBitmap(imageName);
    auto* const picture = dynamic_cast<Picture_PC*>(bitmap.Get());
    if (!picture) return;
    // An icon is a drawing and has any size.
    constexpr int fineness = 4;
    auto const width = static_cast<int>(bitmap->GetWidth());
    auto const height = static_cast<int>(bitmap->GetHeight());
    QImage image(width * fineness, height * fineness, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return;
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(fineness, fineness);
        picture->DrawInTone(0, 0, painter, ToColor(textColor_));
    }
    WriteImage(x, y, width, height, image);
}

void SvgDeviceContext_PC::DrawPixels(short left, short top, short right, short bottom,
                                     std::span<std::uint32_t const> colors, long width) {
    FlushLines();
    if (left >= right || top >= bottom || width <= 0) return;
    long const height = static_cast<long>(colors.size()) / width;
    if (height == 0) return;
    WriteImage(left, top, right - left, bottom - top,
               QImage(reinterpret_cast<uchar const*>(colors.data()), static_cast<int>(width),
                      static_cast<int>(height), width * 4, QImage::Format_RGB32));
}

void SvgDeviceContext_PC::DrawText(short x, short y, String const& text) {
    FlushLines();
    if (text.Length() == 0) return;
    QFont const& font = GetFont();
    long width = 0;
    long height = 0;
    GetTextExtent(text, width, height);
    int const ascent = QFontMetrics(font).ascent();
    // Turned around the upper left corner, as on the screen.
    Write("<text");
    if (escapement_ != 0)
        Write(" transform=\"rotate(")
            .Write(-escapement_)
            .Write(" ")
            .Write(x)
            .Write(" ")
            .Write(y)
            .Write(")\"");
    Write(" x=\"").Write(x).Write("\" y=\"").Write(y + ascent).Write("\" textLength=\"");
    AddNumber(*target_, width);
    Write("\" lengthAdjust=\"spacingAndGlyphs\" font-family=\"");
    AddEscaped(*target_, QFontInfo(font).family());
    Write(", sans-serif\" font-size=\"").Write(QFontInfo(font).pixelSize()).Write("\"");
    if (font.bold()) Write(" font-weight=\"bold\"");
    if (font.italic()) Write(" font-style=\"italic\"");
    if (font.underline()) Write(" text-decoration=\"underline\"");
    WriteColor(" fill", textColor_);
    Write(" xml:space=\"preserve\">");
    AddEscaped(*target_, ToShownText(text));
    Write("</text>\n");
}

void SvgDeviceContext_PC::GetTextExtent(String const& text, long& width, long& height) {
    QFontMetrics const metrics(GetFont());
    if (ShapedText const* const shaped = FindShapedText(GetFont(), text))
        width = shaped->width;
    else
        width = text.Length() == 0 ? 0 : metrics.horizontalAdvance(ToShownText(text));
    height = metrics.height();
}

} // namespace GUI
