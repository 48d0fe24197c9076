#include "gui/grid/controls/GridDrawing.h"

#include <algorithm>
#include <string_view>

namespace GUI {

using Utilities::String;

namespace {

short ToShort(long value) { return static_cast<short>(std::clamp(value, -32768L, 32767L)); }

constexpr std::string_view ellipsis = "\u2026";

} // namespace

void GridDrawing::Fill(GridBox const& box, RGBVector const& color) {
    if (box.IsEmpty()) return;
    context_.SetPen(color, 1, PlatformIndependentDeviceContext::noPen);
    context_.SetBrush(color);
    context_.FillRectangle(ToShort(box.left), ToShort(box.top), ToShort(box.right), ToShort(box.bottom));
}

void GridDrawing::Frame(GridBox const& box, RGBVector const& color) {
    if (box.IsEmpty()) return;
    context_.SetPen(color, 1, PlatformIndependentDeviceContext::solid);
    context_.DrawRectangle(ToShort(box.left), ToShort(box.top), ToShort(box.right), ToShort(box.bottom));
}

void GridDrawing::Line(long x1, long y1, long x2, long y2, RGBVector const& color, long width) {
    context_.SetPen(color, width, PlatformIndependentDeviceContext::solid);
    context_.DrawLine(ToShort(x1), ToShort(y1), ToShort(x2), ToShort(y2));
}

void GridDrawing::CheckBox(GridBox const& box, Mark mark, RGBVector const& ink, bool pressed) {
    Fill(box, pressed ? colors_.band : colors_.background);
    Frame(box, ink);
    if (mark == Mark::Tick) {
        Line(box.left + 3, box.top + 6, box.left + 6, box.top + 9, ink, 2);
        Line(box.left + 5, box.top + 9, box.left + 10, box.top + 3, ink, 2);
    } else if (mark == Mark::Bar) {
        Fill({box.left + 3, box.top + 5, box.right - 3, box.bottom - 5}, ink);
    }
}

void GridDrawing::SelectFont(CGXStyle const& style) {
    static String const normalFace("Arial");
    String const& face = style.fontName ? *style.fontName : normalFace;
    short const size = style.GetFontSize();
    bool const bold = style.bold.value_or(false);
    auto const isIt = [&](GridFonts::Font const& font) {
        return font.size == size && font.bold == bold && font.face == face;
    };
    if (font_.lineHeight != 0 && isIt(font_)) return;
    context_.SetFont(size, 0, 0, face, bold ? PlatformIndependentDeviceContext::boldFont : short{0});
    if (auto const known = std::ranges::find_if(fonts_.measured, isIt); known != fonts_.measured.end()) {
        font_ = *known;
        return;
    }
    long at = 0;
    font_ = {face, size, bold, 0, 0, 0};
    context_.GetTextExtent("W", font_.widest, font_.lineHeight);
    context_.GetTextExtent("@", at, font_.lineHeight);
    font_.widest = std::max(font_.widest, at);
    context_.GetTextExtent("0", font_.widestDigit, font_.lineHeight);
    constexpr std::size_t most = 64;
    if (fonts_.measured.size() == most) fonts_.measured.clear();
    fonts_.measured.push_back(font_);
}

long GridDrawing::GetTextWidth(String const& text) {
    long width = 0;
    long height = 0;
    context_.GetTextExtent(text, width, height);
    return width;
}

void GridDrawing::Text(GridBox const& box, CGXStyle const& style, String const& text, RGBVector const& color,
                       GridAlignment alignment) {
    if (text.Length() == 0 || box.GetWidth() <= 2 * margin) return;
    SelectFont(style);
    context_.SetTextColor(color);
    GridBox line{box.left + margin, box.top, box.right - margin, box.bottom};
    if (text.GetStdString().find('\n') == std::string::npos) {
        line.top += std::max((box.GetHeight() - font_.lineHeight) / 2, 0L);
        return TextLine(line, text, alignment);
    }
    long const rooms = std::max(box.GetHeight() / std::max(font_.lineHeight, 1L), 1L);
    long const lines = std::min(text.GetTokenCount('\n'), rooms);
    line.top += std::max((box.GetHeight() - lines * font_.lineHeight) / 2, 0L);
    for (long i = 0; i < lines; ++i, line.top += font_.lineHeight)
        // The last line shows that there are more.
        TextLine(line,
                 i + 1 == lines && lines < text.GetTokenCount('\n')
                     ? text.GetToken(i, '\n') + String(ellipsis)
                     : text.GetToken(i, '\n'),
                 alignment);
}

void GridDrawing::TextLine(GridBox const& box, String const& text, GridAlignment alignment) {
    bool const isNumber = text.GetStdString().find_first_not_of("0123456789.,-") == std::string::npos;
    bool const surelyFits = text.Length() * (isNumber ? font_.widestDigit : font_.widest) <= box.GetWidth();
    if (surelyFits && alignment == GridAlignment::Left)
        return context_.DrawText(ToShort(box.left), ToShort(box.top), text);
    long width = GetTextWidth(text);
    if (width > box.GetWidth()) {
        String const shown = Shortened(text, box.GetWidth());
        width = GetTextWidth(shown);
        if (width <= box.GetWidth()) context_.DrawText(ToShort(box.left), ToShort(box.top), shown);
        return;
    }
    long const spare = box.GetWidth() - width;
    long const left = alignment == GridAlignment::Left    ? box.left
                      : alignment == GridAlignment::Right ? box.left + spare
                                                          : box.left + spare / 2;
    context_.DrawText(ToShort(left), ToShort(box.top), text);
}

String GridDrawing::Shortened(String const& text, long width) {
    std::string const& bytes = text.GetStdString();
    auto const cut = [&bytes](std::size_t length) {
        // Not in the middle of a character.
        while (length > 0 && (static_cast<unsigned char>(bytes[length]) & 0xC0U) == 0x80U) --length;
        return String(bytes.substr(0, length).append(ellipsis));
    };
    std::size_t fits = 0;
    std::size_t tooLong = std::min<std::size_t>(bytes.size(), static_cast<std::size_t>(std::max(width, 1L)));
    if (tooLong == bytes.size()) --tooLong;
    ++tooLong;
    while (tooLong - fits > 1) {
        std::size_t const middle = (fits + tooLong) / 2;
        (GetTextWidth(cut(middle)) <= width ? fits : tooLong) = middle;
    }
    return cut(fits);
}

} // namespace GUI
