#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Reading and editing the text of an INI file.
///
/// A line `[section]` opens a section, a line `key=value` is a setting, a line that begins with ";" or
/// "#" is a comment, and any other line is passed over. Blanks around section, key and value don't
/// count, nor does one pair of equal quotes around a value. Section and key are matched without regard
/// to the case of ASCII letters; where one is given twice, the first wins. Lines end with LF or CR LF,
/// and a byte order mark at the start is passed over.
///
/// An edit touches the one line it is about. Comments, order, blank lines, unreadable lines and the
/// kind of line end stay byte for byte.
namespace Utilities::IniText {

/// The value, as part of `text`.
std::optional<std::string_view> FindValue(std::string_view text, std::string_view section,
                                          std::string_view key);

/// `text` with that value set; a new key goes behind the last setting of its section, a new section to
/// the end. Line breaks within a value become blanks, and a value that would lose its outer blanks or
/// quotes when read is quoted. Nothing if section or key can't be in a file: a key that is empty,
/// has outer blanks, a line break or "=", or begins like a comment or a section; a section that has
/// outer blanks, a line break or "]".
std::optional<std::string> WithValue(std::string_view text, std::string_view section, std::string_view key,
                                     std::string_view value);

} // namespace Utilities::IniText
