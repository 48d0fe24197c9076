#include "core/base/Utf8.h"
#include "services/ColorLibraryTextAdapter.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using Utilities::ColorLibraryTextAdapter;
using Utilities::String;
using Utilities::TextAdapter;

std::string Adapted(std::string const& text, unsigned long maxLength) {
    return TextAdapter().Adapt(text, maxLength);
}

/// The rule word for word, for text of single bytes.
std::string ByTheRule(std::string const& text, std::size_t maxLength) {
    std::size_t const n = text.size();
    if (n <= maxLength || maxLength == 0) return text;
    auto const blankAt = [&](std::size_t position) {
        return position < n && text[position] == ' ' ? 1U : 0U;
    };
    std::size_t const a = blankAt(1);
    std::size_t const end = n - maxLength + 3 - a;
    std::size_t const b = blankAt(end);
    return text.substr(0, 2 - a) + '\x85' + text.substr(std::min(end + b, n));
}

TEST(TextAdapter, FollowsTheRuleForEveryPlaceOfBlanks) {
    EXPECT_EQ(Adapted("a cdefghij", 6), "a\x85"
                                        "ghij");
    for (unsigned length = 0; length <= 9; ++length)
        for (unsigned blanks = 0; blanks < 1U << length; ++blanks) {
            std::string text(length, 'x');
            for (unsigned i = 0; i < length; ++i)
                text[i] = (blanks >> i & 1U) ? ' ' : static_cast<char>('a' + i);
            for (unsigned long maxLength = 0; maxLength <= 10; ++maxLength)
                ASSERT_EQ(Adapted(text, maxLength), ByTheRule(text, maxLength)) << text << ' ' << maxLength;
        }
    std::string const windows1252 = "Gr\xFCn \xE4hnlich \xDF";
    EXPECT_EQ(Adapted(windows1252, 8), ByTheRule(windows1252, 8));
}

TEST(TextAdapter, LeavesNoHalfCharacterAndStaysWithinTheLength) {
    for (std::string const text : {"Grün-gelblich, hellgrün", "日本語の色名、とても長い",
                                   "a\xF0\x9F\x8E\xA8z\xF0\x9F\x8E\xA8y", "é b é b é", "日", "ÄÖÜäöüß"})
        for (std::size_t maxLength = 5; maxLength < text.size(); ++maxLength) {
            std::string const adapted = Adapted(text, maxLength);
            EXPECT_LE(adapted.size(), maxLength);
            int ellipses = 0;
            for (std::size_t at = 0, length = 0; at < adapted.size(); at += length) {
                length = Utilities::Utf8SequenceLength(std::string_view(adapted).substr(at));
                if (length == 0 && adapted[at] == '\x85') length = static_cast<std::size_t>(++ellipses, 1);
                ASSERT_NE(length, 0U) << text << ' ' << maxLength << ' ' << adapted;
            }
            EXPECT_EQ(ellipses, 1) << adapted;
        }
}

TEST(ColorLibraryTextAdapter, DropsTheWordAndSuperfluousBlanksFirst) {
    struct {
        char const* text;
        unsigned long maxLength;
        char const* adapted;
    } const rows[] = {
        {"PANTONE 123", 11, "PANTONE 123"},
        {"PANTONE 123", 0, "PANTONE 123"},
        {"PANTONE 123 C", 12, "123 C"},
        {"My pantone 123", 10, "My 123"},
        {"My Pantone", 9, "My"},
        {"xPANTONEy", 8, "xy"},
        {"PANTPANTONEONE 1", 10, "1"},
        {"PANTONE", 3, ""},
        {"a   b    c", 9, "a b c"},
        {"PANTONE 123456789", 6,
         "12\x85"
         "789"},
    };
    for (auto const& row : rows)
        EXPECT_EQ(ColorLibraryTextAdapter().Adapt(row.text, row.maxLength).GetStdString(), row.adapted)
            << row.text;
}

} // namespace
