#include "gui/charts/UpdateMessage.h"

#include <gtest/gtest.h>

namespace {

using namespace GUI::UpdateMessage;

TEST(UpdateMessage, TellsRowsFromSettings) {
    std::pair<char const*, int> const rows[] = {
        {"1", 1},      {"65535", 65535},       {"65536", 0}, {"0", 0},  {"", 0},
        {"100000", 0}, {"XScaleDrawLines", 0}, {"1x", 0},    {"-1", 0}, {" 1", 0}};
    for (auto const& [key, number] : rows) EXPECT_EQ(RowNumber(key), number) << key;
}

} // namespace
