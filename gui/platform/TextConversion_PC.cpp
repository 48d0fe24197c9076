#include "gui/platform/TextConversion_PC.h"

#include "Utilities/Limits.h"
#include "core/base/Utf8.h"

#include <QByteArray>
#include <QStringDecoder>
#include <QTextDocument>
#include <algorithm>
#include <array>

namespace GUI {

namespace {

/// Windows-1252 from 0x80 to 0x9F; bytes without a character there keep their number.
constexpr std::array<char16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

QString ToPlatformText(Utilities::String const& text) {
    std::string_view rest(text.GetStdString());
    if (std::all_of(rest.begin(), rest.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return QString::fromLatin1(rest.data(), static_cast<qsizetype>(rest.size()));
    QString result;
    result.reserve(static_cast<qsizetype>(rest.size()));
    while (!rest.empty()) {
        std::size_t length = Utilities::Utf8SequenceLength(rest);
        if (length == 0) {
            auto const byte = static_cast<unsigned char>(rest.front());
            result += QChar(byte < 0xA0 ? windows1252[byte - 0x80U] : static_cast<char16_t>(byte));
            length = 1;
        } else {
            result += QString::fromUtf8(rest.data(), static_cast<qsizetype>(length));
        }
        rest.remove_prefix(length);
    }
    return result;
}

QString ToShownText(Utilities::String const& text) {
    std::size_t end = Utilities::Limits::Get().shownText;
    std::string_view const bytes(text.GetStdString());
    if (bytes.size() <= end) return ToPlatformText(text);
    while (end > 0 && (static_cast<unsigned char>(bytes[end]) & 0xC0U) == 0x80U) --end;
    return ToPlatformText(Utilities::String(bytes.substr(0, end))) + QChar(0x2026);
}

QString AsPlainToolTip(QString const& text) {
    if (!Qt::mightBeRichText(text)) return text;
    return "<p style='white-space:pre'>" + text.toHtmlEscaped().replace('\n', "<br>") + "</p>";
}

Utilities::String FromPlatformText(QString const& text) { return {text.toUtf8().toStdString()}; }

} // namespace GUI
