#include "gui/charts/UpdateMessage.h"

#include <gtest/gtest.h>

namespace {

using namespace GUI::UpdateMessage;

TEST(UpdateMessage, NamesAPartOfATable) {
    auto const range = Range::Parse("2;3-9;4");
    ASSERT_TRUE(range);
    EXPECT_EQ(std::pair(range->first, range->last), std::pair(std::uint16_t{2}, std::uint16_t{9}));
    EXPECT_EQ(std::pair(range->firstColumn, range->lastColumn),
              std::pair(std::uint16_t{3}, std::uint16_t{4}));
    EXPECT_EQ(range->Count(), 8U);
    EXPECT_EQ(Range::Parse("5;7")->Count(), 1U);
    EXPECT_EQ(Range::Parse("9;1-2;1")->Count(), 0U);
    EXPECT_FALSE(Range::Parse("Properties"));
    EXPECT_ANY_THROW(Range::Parse("70000;1"));
}

TEST(UpdateMessage, TellsRowsFromSettings) {
    std::pair<char const*, int> const rows[] = {
        {"1", 1},      {"65535", 65535},       {"65536", 0}, {"0", 0},  {"", 0},
        {"100000", 0}, {"XScaleDrawLines", 0}, {"1x", 0},    {"-1", 0}, {" 1", 0}};
    for (auto const& [key, number] : rows) EXPECT_EQ(RowNumber(key), number) << key;
}

TEST(UpdateMessage, KeepsABaseFromRepainting) {
    std::pair<Utilities::Anything, char const*> const rows[] = {{{}, "Update|NoRepaint"},
                                                                {"", "Update|NoRepaint"},
                                                                {"Properties", "Properties|NoRepaint"},
                                                                {"1;2|NoRepaint", "1;2|NoRepaint"}};
    for (auto const& [message, expected] : rows)
        EXPECT_EQ(WithoutRepaint(message).GetString().GetStdString(), expected);
}

} // namespace
