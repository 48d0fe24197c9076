#pragma once

#include <string>
#include <string_view>

namespace Norvelian::ColorExchangeFormat {

/// Appends a character; code points that Unicode doesn't have become U+FFFD.
void AppendUtf8(std::string& text, unsigned long code);

/// The bytes as text that is valid UTF-8 and that XML 1.0 can hold: well-formed sequences stay, other bytes
/// are read as Windows-1252, and control characters other than tab and line ends become U+FFFD.
std::string ToValidUtf8(std::string_view bytes);

/// UTF-16 with a byte order mark, as UTF-8; lone surrogates become U+FFFD, and so does half a unit at the
/// end.
std::string FromUtf16(std::string_view bytes);

} // namespace Norvelian::ColorExchangeFormat
