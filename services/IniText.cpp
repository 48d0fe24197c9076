#include "services/IniText.h"

#include <algorithm>
#include <cstdint>

namespace Utilities::IniText {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool EqualNames(std::string_view left, std::string_view right) {
    return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                     [](char a, char b) { return ToLower(a) == ToLower(b); });
}

bool HasOuterQuotes(std::string_view value) {
    return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
           value.front() == value.back();
}

struct Line {
    enum class Kind : std::uint8_t { Other, Section, Setting };

    Kind kind = Kind::Other;
    /// Section or key.
    std::string_view name;
    /// Of a setting, with its quotes.
    std::string_view value;
    /// Position behind the line and its end.
    std::size_t next = 0;
};

std::size_t NextLine(std::string_view text, std::size_t start) {
    std::size_t const end = text.find('\n', start);
    return end == std::string_view::npos ? text.size() : end + 1;
}

/// Most lines of a file belong to other sections and needn't be taken apart.
bool MayOpenSection(std::string_view text, std::size_t start) {
    char const first = text[start];
    return first == '[' || IsBlank(first);
}

Line ReadLine(std::string_view text, std::size_t start) {
    Line line;
    line.next = NextLine(text, start);
    std::string_view content = text.substr(start, line.next - start);
    if (content.ends_with('\n')) content.remove_suffix(1);
    content = Trimmed(content);
    if (content.empty() || content.front() == ';' || content.front() == '#') return line;
    if (content.front() == '[') {
        auto const close = content.find(']');
        if (close == std::string_view::npos) return line;
        line.kind = Line::Kind::Section;
        line.name = Trimmed(content.substr(1, close - 1));
        return line;
    }
    auto const equals = content.find('=');
    if (equals == std::string_view::npos) return line;
    line.kind = Line::Kind::Setting;
    line.name = Trimmed(content.substr(0, equals));
    line.value = Trimmed(content.substr(equals + 1));
    return line;
}

/// Where a setting is, or where it would be put.
struct Place {
    std::optional<std::string_view> value;
    /// Behind the last setting of the first section of that name.
    std::optional<std::size_t> sectionEnd;
};

Place FindPlace(std::string_view text, std::string_view section, std::string_view key) {
    Place place;
    bool inSection = false;
    bool inFirst = false;
    for (std::size_t at = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0; at < text.size();) {
        if (!inSection && !MayOpenSection(text, at)) {
            at = NextLine(text, at);
            continue;
        }
        Line const line = ReadLine(text, at);
        at = line.next;
        if (line.kind == Line::Kind::Section) {
            inSection = EqualNames(line.name, section);
            inFirst = inSection && !place.sectionEnd;
        }
        if (inFirst && line.kind != Line::Kind::Other) place.sectionEnd = line.next;
        if (inSection && line.kind == Line::Kind::Setting && EqualNames(line.name, key)) {
            place.value = line.value;
            break;
        }
    }
    return place;
}

bool HasLineBreak(std::string_view text) { return text.find_first_of("\r\n") != std::string_view::npos; }

bool CanBeWritten(std::string_view section, std::string_view key) {
    bool const goodSection =
        section.find(']') == std::string_view::npos && !HasLineBreak(section) && Trimmed(section) == section;
    return goodSection && !key.empty() && key.find('=') == std::string_view::npos && !HasLineBreak(key) &&
           Trimmed(key) == key && key.front() != '[' && key.front() != ';' && key.front() != '#';
}

std::string AsWritten(std::string_view value) {
    std::string result;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\r' && i + 1 < value.size() && value[i + 1] == '\n') continue;
        result += value[i] == '\n' || value[i] == '\r' ? ' ' : value[i];
    }
    if (HasOuterQuotes(result) || Trimmed(result) != result) result = '"' + result + '"';
    return result;
}

} // namespace

std::optional<std::string_view> FindValue(std::string_view text, std::string_view section,
                                          std::string_view key) {
    auto value = FindPlace(text, section, key).value;
    if (value && HasOuterQuotes(*value)) value = value->substr(1, value->size() - 2);
    return value;
}

std::optional<std::string> WithValue(std::string_view text, std::string_view section, std::string_view key,
                                     std::string_view value) {
    if (!CanBeWritten(section, key)) return std::nullopt;
    std::string const written = AsWritten(value);
    Place const place = FindPlace(text, section, key);
    std::string result(text);
    if (place.value) {
        auto const position = static_cast<std::size_t>(place.value->data() - text.data());
        return result.replace(position, place.value->size(), written);
    }

    auto const firstBreak = text.find('\n');
    std::string const lineEnd =
        firstBreak != std::string_view::npos && firstBreak > 0 && text[firstBreak - 1] == '\r' ? "\r\n"
                                                                                               : "\n";
    std::string setting = std::string(key) + '=' + written + lineEnd;
    std::size_t const position = place.sectionEnd.value_or(text.size());
    if (!place.sectionEnd)
        setting = (text.empty() ? "" : lineEnd) + '[' + std::string(section) + ']' + lineEnd + setting;
    // A last line without an end would swallow what is put behind it.
    if (position > 0 && text[position - 1] != '\n') setting.insert(0, lineEnd);
    return result.insert(position, setting);
}

} // namespace Utilities::IniText
