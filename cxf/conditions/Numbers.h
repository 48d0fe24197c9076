#pragma once

#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

/// Numbers as text, independent of the locale.
namespace Norvelian::Tristim::Numbers {

/// Reads the whole of `text` as one finite number; false leaves `value` unspecified.
inline bool Parse(std::string_view text, double& value) {
    if (!text.empty() && text.front() == '+' && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
}

/// "0,5" and "-12,75": a number as it is written where the comma is the decimal sign.
inline bool HasDecimalComma(std::string_view text) {
    auto const comma = text.find(',');
    if (comma == std::string_view::npos || text.find(',', comma + 1) != std::string_view::npos) return false;
    std::string point(text);
    point[comma] = '.';
    double number = 0;
    return Parse(point, number);
}

/// The shortest text that reads back as the same number.
template <class Number> std::string Shortest(Number value) {
    char buffer[32];
    auto const result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    return {buffer, result.ptr};
}

} // namespace Norvelian::Tristim::Numbers
