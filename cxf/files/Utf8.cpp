#include "cxf/files/Utf8.h"

#include <array>
#include <cstddef>

namespace Norvelian::ColorExchangeFormat {

namespace {

constexpr unsigned long kReplacement = 0xFFFD;

/// 0x80 to 0x9F of Windows-1252; bytes that it leaves open are kept.
constexpr std::array<unsigned short, 32> kWindows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// The well-formed sequence at the beginning of `bytes`: its length and character; length 0 if there is none.
struct Sequence {
    std::size_t length;
    unsigned long code;
};
Sequence SequenceAt(std::string_view bytes) {
    auto const first = static_cast<unsigned char>(bytes.front());
    std::size_t const length = first < 0x80   ? 1
                               : first < 0xC2 ? 0
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                               : first < 0xF5 ? 4
                                              : 0;
    if (length < 2) return {length, first};
    if (bytes.size() < length) return {0, 0};
    unsigned long code = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsContinuation(bytes[i])) return {0, 0};
        code = (code << 6) | (static_cast<unsigned char>(bytes[i]) & 0x3F);
    }
    bool const overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    bool const surrogate = code >= 0xD800 && code < 0xE000;
    if (overlong || surrogate || code > 0x10FFFF) return {0, 0};
    return {length, code};
}

} // namespace

void AppendUtf8(std::string& text, unsigned long code) {
    if (code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) code = kReplacement;
    auto const put = [&text](unsigned long byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | (code >> 6));
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | (code >> 12));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | (code >> 18));
        put(0x80 | ((code >> 12) & 0x3F));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

std::string ToValidUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        auto const byte = static_cast<unsigned char>(bytes.front());
        auto [length, code] = SequenceAt(bytes);
        if (length == 0) {
            code = byte < 0xA0 ? kWindows1252[byte - 0x80U] : byte;
            length = 1;
        }
        bool const control = code < ' ' && code != '\t' && code != '\n' && code != '\r';
        AppendUtf8(text, control || code == 0xFFFE || code == 0xFFFF ? kReplacement : code);
        bytes.remove_prefix(length);
    }
    return text;
}

std::string FromUtf16(std::string_view bytes) {
    bool const bigEndian = bytes.starts_with("\xFE\xFF");
    std::string text;
    text.reserve(bytes.size() / 2);
    auto const unitAt = [&](std::size_t at) -> unsigned long {
        unsigned const first = static_cast<unsigned char>(bytes[at]);
        unsigned const second = static_cast<unsigned char>(bytes[at + 1]);
        return bigEndian ? (first << 8) | second : (second << 8) | first;
    };
    std::size_t at = 2;
    for (; at + 1 < bytes.size(); at += 2) {
        unsigned long code = unitAt(at);
        if (code >= 0xD800 && code < 0xDC00 && at + 3 < bytes.size()) {
            unsigned long const low = unitAt(at + 2);
            if (low >= 0xDC00 && low < 0xE000) {
                code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
                at += 2;
            }
        }
        AppendUtf8(text, code);
    }
    if (at < bytes.size()) AppendUtf8(text, kReplacement);
    return text;
}

} // namespace Norvelian::ColorExchangeFormat
