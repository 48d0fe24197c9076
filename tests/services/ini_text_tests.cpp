#include "services/IniText.h"

#include <gtest/gtest.h>

namespace {

using Utilities::IniText::FindValue;
using Utilities::IniText::WithValue;

constexpr std::string_view byHand = "; head\n"
                                    "\n"
                                    "[Windows]   ; main\n"
                                    "# about Main\n"
                                    "Main = 1,2,3  \n"
                                    "junk line\n"
                                    "Main=second\n"
                                    "Empty=\n"
                                    "Quoted=\" two \"\n"
                                    "\n"
                                    "; about the next section\n"
                                    "[Other]\n"
                                    "a=b=c\n"
                                    "; the end";

TEST(IniText, FindsWhatStandsInAFileWrittenByHand) {
    struct {
        char const* section;
        char const* key;
        std::optional<std::string_view> value;
    } const rows[] = {
        {"Windows", "Main", "1,2,3"},
        {"wINDOWS", "mAIN", "1,2,3"},
        {"Windows", "Empty", ""},
        {"Windows", "Quoted", " two "},
        {"Other", "a", "b=c"},
        {"Other", "Main", std::nullopt},
        {"Windows", "junk line", std::nullopt},
        {"Windows", "# about Main", std::nullopt},
        {"", "Main", std::nullopt},
        {"Windows]", "Main", std::nullopt},
    };
    for (auto const& row : rows)
        EXPECT_EQ(FindValue(byHand, row.section, row.key), row.value) << row.section << " / " << row.key;
}

TEST(IniText, ReadsEveryKindOfLineEndAndABrokenEnd) {
    EXPECT_EQ(FindValue("[s]\r\nk=v\r\n", "s", "k"), "v");
    EXPECT_EQ(FindValue("\xEF\xBB\xBF[s]\nk=v", "s", "k"), "v");
    EXPECT_EQ(FindValue("[s]\nx=1\n[t]\n[S]\nk=later part of the section", "s", "k"),
              "later part of the section");
    for (std::string_view const text : {"", "[", "[s", "[s]", "=", "[s]\n=v", "[s]\nk", "[s]\n\"", "\n\n"})
        EXPECT_EQ(FindValue(text, "s", "k"), std::nullopt) << text;
}

TEST(IniText, AnEditTouchesOneLine) {
    auto const replaced = [](std::string_view from, std::string_view to) {
        std::string text(byHand);
        return text.replace(text.find(from), from.size(), to);
    };
    EXPECT_EQ(WithValue(byHand, "windows", "MAIN", "9"), replaced("Main = 1,2,3", "Main = 9"));
    EXPECT_EQ(WithValue(byHand, "Windows", "Empty", "x"), replaced("Empty=", "Empty=x"));
    EXPECT_EQ(WithValue(byHand, "Windows", "New", "n"), replaced("two \"\n", "two \"\nNew=n\n"));
    EXPECT_EQ(WithValue(byHand, "Third", "k", "v"), std::string(byHand) + "\n\n[Third]\nk=v\n");
    EXPECT_EQ(WithValue("", "s", "k", "v"), "[s]\nk=v\n");
    EXPECT_EQ(WithValue("[s]", "s", "k", "v"), "[s]\nk=v\n");
    EXPECT_EQ(WithValue("[s]\r\na=1\r\n[t]\r\n", "s", "k", "v"), "[s]\r\na=1\r\nk=v\r\n[t]\r\n");
}

TEST(IniText, WhatIsWrittenReadsBackAndCannotForgeLines) {
    for (std::string_view const value : {"plain", "", " outer blanks\t", "\"quoted\"", "'", "\"", "'single'",
                                         "[x]", "; no comment", "a=b", "\xC3\xA4\x85", "\" half"}) {
        auto const text = WithValue(byHand, "Other", "new", value);
        ASSERT_TRUE(text) << value;
        EXPECT_EQ(FindValue(*text, "Other", "new"), value);
        EXPECT_EQ(FindValue(*text, "Other", "a"), "b=c");
    }
    EXPECT_EQ(FindValue(*WithValue("", "s", "k", "one\ntwo\r\nthree\r[x]"), "s", "k"), "one two three [x]");
    for (auto const& [section, key] : {std::pair{"s", ""},
                                       {"s", "a=b"},
                                       {"s", "a\nb"},
                                       {"s", "[a"},
                                       {"s", ";a"},
                                       {"s", "#a"},
                                       {"s", " a"},
                                       {"s]", "a"},
                                       {"s\n", "a"},
                                       {" s", "a"}})
        EXPECT_FALSE(WithValue(byHand, section, key, "v")) << section << " / " << key;
}

} // namespace
