#include "gui/charts/ScaleMap.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

using GUI::ScaleMap;

TEST(ScaleMap, CutsTwice) {
    double const inf = std::numeric_limits<double>::infinity();
    ScaleMap const across{0, 10, 0, 10, 0.9, 0.9, 100, 50, true};
    ScaleMap const down{0, 10, 0, 10, 0.9, 0.9, 100, 50, false};
    struct Row {
        ScaleMap map;
        double x, y;
        short px, py;
    } const rows[] = {
        {across, 0, 0, 0, 50},
        {across, 0.099, 0, 0, 50}, // 0.99 and 0.9 are each cut, not their sum
        {across, -0.05, 0, 0, 50}, // towards zero
        {across, 10, 10, 100, 0},
        {across, 5, 2.51, 50, 37}, // 37.45 and 0.9 are each cut
        {down, 0, 0, 0, 0},
        {down, 10, 5, 50, 50},
        {down, 2.51, 10, 100, 12},
        {across, 1e300, -1e300, 32767, 32767},
        {across, -inf, inf, -32768, -32768},
        {{1, 1, 0, 10, 0, 0, 100, 50, true}, 1, 0, 0, 50}, // 0 / 0
    };
    for (Row const& row : rows) {
        short px = 0, py = 0;
        row.map.ToPixel(row.x, row.y, px, py);
        EXPECT_EQ(std::pair(px, py), std::pair(row.px, row.py)) << row.x << ", " << row.y;
    }
    for (bool const xIsHorizontal : {true, false}) {
        ScaleMap const map{-10, 30, 5, 25, 0, 0, 80, 40, xIsHorizontal};
        double x = 0, y = 0;
        short px = 0, py = 0;
        map.ToValue(20, 10, x, y);
        map.ToPixel(x, y, px, py);
        EXPECT_EQ(std::pair(px, py), std::pair(short{20}, short{10}));
    }
}

} // namespace
