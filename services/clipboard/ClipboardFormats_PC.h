#pragma once

#include "core/base/String.h"
#include "gui/platform/TextConversion_PC.h"

#include <QUrl>

namespace GUI::ClipboardFormats {

inline constexpr char const* text = "Text";
inline constexpr char const* bitmap = "Bitmap";

/// The MIME type of a format that isn't "Bitmap".
inline QString MimeOf(Utilities::String const& format) {
    if (format == text) return QStringLiteral("text/plain");
    if (format.FindSubstring("/", 0) >= 0) return ToPlatformText(format);
    return QStringLiteral("application/x-norvelian-") +
           QString::fromLatin1(QUrl::toPercentEncoding(ToPlatformText(format)));
}

} // namespace GUI::ClipboardFormats
