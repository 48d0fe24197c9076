#include "gui/platform/TextConversion_PC.h"

#include "Utilities/Limits.h"

#include <gtest/gtest.h>

using GUI::FromPlatformText;
using GUI::ToPlatformText;

TEST(TextConversion, ReadsUtf8AndTakesOtherBytesAsWindows1252) {
    struct Row {
        char const* bytes;
        char16_t const* text;
    };
    Row const rows[] = {
        {"plain", u"plain"},
        {"a* \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x8E\xA8", u"a* \u00E9 \u20AC \U0001F3A8"},
        {"ab\x85", u"ab\u2026"},
        {"\x80\x9F\xE9", u"\u20AC\u0178\u00E9"},
        {"caf\xE9 caf\xC3\xA9", u"caf\u00E9 caf\u00E9"},
        // Truncated, overlong and surrogate sequences are single bytes.
        {"\xE2\x82", u"\u00E2\u201A"},
        {"\xC0\xAF", u"\u00C0\u00AF"},
        {"\xED\xA0\x80", u"\u00ED\u00A0\u20AC"},
        {"\xF4\x90\x80\x80", u"\u00F4\u0090\u20AC\u20AC"},
    };
    for (Row const& row : rows)
        EXPECT_EQ(ToPlatformText(row.bytes).toStdU16String(), std::u16string(row.text)) << row.bytes;
}

TEST(TextConversion, ShowsAsMuchOfAHugeTextAsCanBeSeen) {
    std::size_t const most = Utilities::Limits::Get().shownText;
    std::string const fits(most, 'a');
    EXPECT_EQ(GUI::ToShownText(fits).size(), static_cast<qsizetype>(most));
    // A character of three bytes over the end of what fits.
    std::string const text = std::string(most - 2, 'a') + "\xE2\x82\xAC" + std::string(16'000'000, 'b');
    EXPECT_EQ(GUI::ToShownText(text), QString(static_cast<qsizetype>(most) - 2, 'a') + QChar(0x2026));
}

TEST(TextConversion, GivesUtf8Back) {
    EXPECT_EQ(FromPlatformText(QString::fromUtf16(u"\u00E9\u2026")), "\xC3\xA9\xE2\x80\xA6");
    EXPECT_EQ(FromPlatformText(ToPlatformText("\x85")), "\xE2\x80\xA6");
}
