// Figures with antialiasing against a slow reference that looks at many places of each pixel.
#include "gui/platform/SmoothRaster.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

using GUI::PixelBox;
using GUI::SmoothPoint;
using GUI::SmoothRaster;

constexpr int width = 64;
constexpr int height = 48;
constexpr std::uint32_t white = 0xFFFFFFFF;
constexpr std::uint32_t black = 0xFF000000;

using Picture = std::vector<std::uint32_t>;
Picture Blank() { return Picture(std::size_t{width} * height, white); }

/// How dark a pixel is, from 0 to 1.
double Share(Picture const& picture, int x, int y) {
    return 1 - (picture[static_cast<std::size_t>(y * width + x)] & 0xFFU) / 255.0;
}

/// The share of a pixel at whose places the figure is.
double Reference(int x, int y, std::function<bool(double, double)> const& isInside) {
    constexpr int places = 16;
    int found = 0;
    for (int j = 0; j < places; ++j)
        for (int i = 0; i < places; ++i) found += isInside(x + (i + 0.5) / places, y + (j + 0.5) / places);
    return found / static_cast<double>(places * places);
}

/// Of a polygon whose corners go round counter-clockwise or clockwise.
bool IsInConvex(std::vector<SmoothPoint> const& corners, double x, double y) {
    int sign = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        SmoothPoint const& a = corners[i];
        SmoothPoint const& b = corners[(i + 1) % corners.size()];
        double const side = (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
        int const own = side > 0 ? 1 : -1;
        if (sign != 0 && own != sign) return false;
        sign = own;
    }
    return true;
}

} // namespace

TEST(SmoothRasterTest, CoversTheShareOfEachPixelWithinItsClip) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> any(-20, 80);
    PixelBox const clips[] = {{4, 3, 30, 44}, {33, 0, 64, 40}};
    double worst = 0;
    for (int round = 0; round < 60; ++round) {
        std::vector<SmoothPoint> const corners{
            {any(random), any(random)}, {any(random), any(random)}, {any(random), any(random)}};
        Picture picture = Blank();
        SmoothRaster raster(picture.data(), width, clips);
        raster.AddContour(corners);
        raster.Fill(black);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                double const share = Share(picture, x, y);
                if (!clips[0].Contains(x, y) && !clips[1].Contains(x, y)) {
                    ASSERT_EQ(share, 0) << x << "," << y << " is outside the clip";
                    continue;
                }
                auto const isInside = [&corners](double px, double py) {
                    return IsInConvex(corners, px, py);
                };
                worst = std::max(worst, std::abs(share - Reference(x, y, isInside)));
            }
    }
    EXPECT_LT(worst, 0.06) << "the reference itself looks at every sixteenth";
}

TEST(SmoothRasterTest, HolesAndFiguresThatAreKept) {
    Picture const blank = Blank();
    Picture picture = blank;
    PixelBox const clip[] = {{0, 0, width, height}};
    SmoothRaster raster(picture.data(), width, clip);
    std::vector<SmoothPoint> const outer{{10.5, 10}, {20.5, 10}, {20.5, 20}, {10.5, 20}};
    std::vector<SmoothPoint> const hole{{12, 12}, {12, 18}, {18, 18}, {18, 12}};
    raster.AddContour(outer);
    raster.AddContour(hole);
    auto const figure = raster.TakeFigure();
    EXPECT_EQ(picture, blank) << "taken, not drawn";
    raster.Draw(figure, 3, -2, black);
    EXPECT_NEAR(Share(picture, 13, 10), 0.5, 0.01);
    EXPECT_EQ(Share(picture, 14, 10), 1);
    EXPECT_EQ(Share(picture, 18, 12), 0);
    EXPECT_NEAR(Share(picture, 23, 10), 0.5, 0.01);
    Picture again = Blank();
    SmoothRaster direct(again.data(), width, clip);
    direct.AddContour({{SmoothPoint{13.5, 8}, {23.5, 8}, {23.5, 18}, {13.5, 18}}});
    direct.AddContour({{SmoothPoint{15, 10}, {15, 16}, {21, 16}, {21, 10}}});
    direct.Fill(black);
    EXPECT_EQ(picture, again);
}

// A line's runs are cut across its direction, so its share of each run is that of the whole pen.
TEST(SmoothRasterTest, LinesAreAsWideAsTheirPen) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> any(8, 40);
    for (int round = 0; round < 200; ++round) {
        SmoothPoint const from{any(random), any(random)};
        SmoothPoint const to{any(random), any(random)};
        double const pen = 1 + round % 4 * 0.5;
        Picture picture = Blank();
        PixelBox const clip[] = {{0, 0, width, height}};
        SmoothRaster(picture.data(), width, clip).Line(from, to, pen, black);
        bool const isLevel = std::abs(to.x - from.x) >= std::abs(to.y - from.y);
        double const slope = isLevel ? (to.y - from.y) / (to.x - from.x) : (to.x - from.x) / (to.y - from.y);
        double const breadth = pen * std::sqrt(1 + slope * slope);
        double ink = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) ink += Share(picture, x, y);
        double const runs = isLevel ? std::abs(std::floor(to.x) - std::floor(from.x))
                                    : std::abs(std::floor(to.y) - std::floor(from.y));
        EXPECT_NEAR(ink, runs * breadth, runs * 0.02 + 0.01);
        // The same within a clip that cuts it.
        PixelBox const half[] = {{0, 0, width / 2, height}, {width / 2, 0, width, 20}};
        Picture cut = Blank();
        SmoothRaster(cut.data(), width, half).Line(from, to, pen, black);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                bool const isSeen = x < width / 2 || y < 20;
                ASSERT_NEAR(Share(cut, x, y), isSeen ? Share(picture, x, y) : 0, 0.01) << x << "," << y;
            }
    }
}
