#include "core/base/String.h"

#include "core/base/Exceptions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <system_error>

namespace Utilities {

using Norvelian::Utilities::Exceptions::OutOfRangeException;

namespace {

template <class Number> Number Parse(std::string const& text, char const* what) {
    char const* begin = text.data();
    char const* const end = begin + text.size();
    while (begin != end && (*begin == ' ' || *begin == '\t')) ++begin;
    if (begin == end) return Number{};
    if (*begin == '+') ++begin;
    Number number{};
    if (std::from_chars(begin, end, number).ec != std::errc{})
        throw OutOfRangeException("\"" + text.substr(0, 80) + "\" is not a number of the type " + what);
    return number;
}

char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
char ToUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

} // namespace

String::String(double number, short decimals, char decimalSeparator) {
    // The longest double has 309 digits before the point.
    std::array<char, 400> buffer{};
    int const precision = std::clamp<int>(decimals, 0, 60);
    auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                      std::chars_format::fixed, precision);
    text_.assign(buffer.data(), result.ptr);
    std::replace(text_.begin(), text_.end(), '.', decimalSeparator);
}

String String::Mid(long start, long count) const {
    if (start < 0) {
        count += start;
        start = 0;
    }
    if (start >= Length() || count <= 0) return {};
    return String(
        std::string_view(text_).substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count)));
}

long String::FindSubstring(String const& what, long start) const {
    auto const found = text_.find(what.text_, static_cast<std::size_t>(std::max(start, 0L)));
    return found == std::string::npos ? -1 : static_cast<long>(found);
}

void String::Replace(String const& oldText, String const& newText) {
    if (oldText.text_.empty()) return;
    std::size_t position = text_.find(oldText.text_);
    if (position == std::string::npos) return;
    std::string result;
    std::size_t copied = 0;
    for (; position != std::string::npos; position = text_.find(oldText.text_, copied)) {
        result.append(text_, copied, position - copied).append(newText.text_);
        copied = position + oldText.text_.size();
    }
    result.append(text_, copied);
    text_ = std::move(result);
}

String String::GetToken(long index, char separator) const {
    std::size_t begin = 0;
    for (; index > 0; --index) {
        begin = text_.find(separator, begin);
        if (begin == std::string::npos) return {};
        ++begin;
    }
    return String(std::string_view(text_).substr(begin, text_.find(separator, begin) - begin));
}

long String::GetTokenCount(char separator) const {
    return text_.empty() ? 0 : 1 + std::count(text_.begin(), text_.end(), separator);
}

String String::GetAsLower() const {
    String result(*this);
    std::transform(text_.begin(), text_.end(), result.text_.begin(), ToLower);
    return result;
}

String String::GetAsUpper() const {
    String result(*this);
    std::transform(text_.begin(), text_.end(), result.text_.begin(), ToUpper);
    return result;
}

short String::GetShort() const { return Parse<std::int16_t>(text_, "short"); }
unsigned short String::GetUnsignedShort() const { return Parse<std::uint16_t>(text_, "unsigned short"); }
long String::GetLong() const { return Parse<std::int32_t>(text_, "long"); }
unsigned long String::GetUnsignedLong() const { return Parse<std::uint32_t>(text_, "unsigned long"); }
double String::GetDouble() const { return Parse<double>(text_, "double"); }

unsigned long String::GetHash(unsigned long bucketCount) const {
    // Eight bytes a step, the last step overlapping the one before it: keys are short and look-ups are
    // many. The multiplier is the 64-bit golden ratio of Fibonacci hashing, whose high bits are the good
    // ones; scaling them to the buckets costs a multiplication where a remainder costs a division.
    constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15U;
    auto const load = [](char const* bytes, auto word) {
        std::memcpy(&word, bytes, sizeof(word));
        return static_cast<std::uint64_t>(word);
    };
    char const* const bytes = text_.data();
    std::size_t const size = text_.size();
    std::uint64_t hash = size;
    std::uint64_t last = 0;
    if (size >= 8) {
        for (std::size_t at = 0; at + 8 < size; at += 8) {
            hash = (hash ^ load(bytes + at, std::uint64_t{})) * multiplier;
            hash ^= hash >> 32U;
        }
        last = load(bytes + size - 8, std::uint64_t{});
    } else if (size >= 4) {
        last = load(bytes, std::uint32_t{}) << 32U | load(bytes + size - 4, std::uint32_t{});
    } else if (size > 0) {
        for (std::size_t const at : {std::size_t{0}, size / 2, size - 1})
            last = last << 8U | static_cast<unsigned char>(bytes[at]);
    }
    hash = (hash ^ last) * multiplier;
    return static_cast<unsigned long>((hash >> 32U) * static_cast<std::uint32_t>(bucketCount) >> 32U);
}

} // namespace Utilities
