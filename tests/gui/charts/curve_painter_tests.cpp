#include "gui/charts/CurvePainter.h"
#include "tests/support/PixelCanvas.h"
#include "tests/support/RecordingDeviceContext.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>

namespace {

using namespace TestSupport;
using GUI::RGBVector;
using GUI::ScaleMap;
using testing::ElementsAre;

/// The curve as it is without thinning.
void DrawPlainly(GUI::PlatformIndependentDeviceContext& context, ScaleMap const& map, double begin,
                 double step, std::vector<double> const& values) {
    for (std::size_t k = 0; k < values.size(); ++k) {
        short x = 0, y = 0;
        map.ToPixel(static_cast<double>(k) * step + begin, values[k], x, y);
        k == 0 ? context.MoveTo(x, y) : context.LineTo(x, y);
    }
}

TEST(CurvePainter, ThinnedCurvesGiveTheSamePixels) {
    std::mt19937 random(5);
    for (int round = 0; round < 400; ++round) {
        ScaleMap map{0, 100, 0, 10, 3.5, 2.5, 50.0 + static_cast<double>(random() % 100), 60, round % 3 != 0};
        if (round % 5 == 0) std::swap(map.xBegin, map.xEnd);
        double const begin = round % 7 == 0 ? -40 : 0;
        std::vector<double> values(1 + random() % 3000);
        double const roughness = round % 4 == 0 ? 0.01 : 3;
        double value = 5;
        for (double& y : values) {
            value += roughness * (static_cast<double>(random() % 2001) / 1000 - 1);
            value = std::clamp(value, -2.0, 12.0);
            y = round % 11 == 0 && random() % 50 == 0 ? std::nan("") : value;
        }
        double const step = (round % 2 == 0 ? 100.0 : 140.0) / static_cast<double>(values.size());
        for (long const width : {1L, 2L, 3L}) {
            PixelCanvas plain(160, 90), thinned(160, 90);
            plain.SetPen(RGBVector(), width, 0);
            thinned.SetPen(RGBVector(), width, 0);
            DrawPlainly(plain, map, begin, step, values);
            GUI::DrawCurve(thinned, map, begin, step, values);
            ASSERT_EQ(thinned.GetPixels(), plain.GetPixels()) << "round " << round << ", width " << width;
        }
    }
}

TEST(CurvePainter, DrawsFewLinesForManyValuesAndAllOfFew) {
    ScaleMap const map{0, 1e5, -1, 1, 0, 0, 700, 500, true};
    std::vector<double> values(100000);
    for (std::size_t k = 0; k < values.size(); ++k) values[k] = std::sin(static_cast<double>(k * k % 9973));
    RecordingDeviceContext many;
    GUI::DrawCurve(many, map, 0, 1, values);
    EXPECT_LE(many.GetRows().size(), 4 * 701U + 150);
    RecordingDeviceContext few;
    GUI::DrawCurve(few, map, 0, 1e4, std::vector<double>{0, 0, 0.5});
    EXPECT_THAT(few.GetRows(), ElementsAre("MoveTo 0 250", "LineTo 70 250", "LineTo 140 125"));
}

} // namespace
