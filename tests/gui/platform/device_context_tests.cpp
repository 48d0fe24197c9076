// The drawing conventions, pixel by pixel, of the direct path and of the platform's painter.
#include "gui/platform/Fonts_PC.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "tests/gui/platform/PixelRows.h"
#include "tests/support/QtApplication.h"

#include <QImage>
#include <gtest/gtest.h>
#include <vector>

namespace {

using GUI::PlatformIndependentDeviceContext;
using GUI::PlatformIndependentDeviceContext_PC;
using GUI::RGBVector;
using namespace TestSupport;

testing::Environment* const application = testing::AddGlobalTestEnvironment(new Tests::QtApplication);

QImage Draw(int width, int height, Drawing const& drawing) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    PlatformIndependentDeviceContext_PC context(image);
    context.SetPen(penColor, 1, PlatformIndependentDeviceContext::solid);
    context.SetBrush(brushColor);
    drawing(context);
    return image;
}

struct Figure {
    char const* name;
    Drawing draw;
    Rows expected;
};

std::vector<Figure> Figures() {
    using Context = PlatformIndependentDeviceContext;
    auto const points = [](std::initializer_list<std::pair<long, long>> list) {
        Context::Points result(static_cast<std::uint32_t>(list.size()));
        std::uint32_t i = 0;
        for (auto const& [x, y] : list) result[i++] = {x, y};
        return result;
    };
    return {
        {"a line leaves out its last point",
         [](Context& dc) { dc.DrawLine(1, 1, 5, 1); },
         {".......", ".####..", "......."}},
        {"in each direction",
         [](Context& dc) { dc.DrawLine(5, 1, 1, 1); },
         {".......", "..####.", "......."}},
        {"a line without length draws nothing",
         [](Context& dc) { dc.DrawLine(2, 1, 2, 1); },
         {".......", ".......", "......."}},
        {"lines in a row leave out the last point alone",
         [](Context& dc) {
             dc.MoveTo(1, 0);
             dc.LineTo(4, 0);
             dc.LineTo(4, 2);
             dc.SetBrush(brushColor);
             dc.LineTo(1, 2);
         },
         {".####..", "....#..", "..###.."}},
        {"nothing is drawn to where the next lines begin",
         [](Context& dc) {
             for (short const y : {short{0}, short{2}}) {
                 dc.SetPen(penColor, 1, Context::solid);
                 dc.MoveTo(1, y);
                 dc.LineTo(5, y);
             }
         },
         {".####..", ".......", ".####.."}},
        {"a rectangle's outline is inside its box",
         [](Context& dc) { dc.DrawRectangle(1, 0, 6, 3); },
         {".#####.", ".#...#.", ".#####."}},
        {"filled", [](Context& dc) { dc.FillRectangle(1, 0, 6, 3); }, {".#####.", ".#+++#.", ".#####."}},
        {"without a pen",
         [](Context& dc) {
             dc.SetPen(penColor, 1, Context::noPen);
             dc.FillRectangle(1, 0, 6, 3);
         },
         {".+++++.", ".+++++.", ".+++++."}},
        {"an empty box draws nothing",
         [](Context& dc) { dc.FillRectangle(3, 1, 3, 3); },
         {".......", ".......", "......."}},
        {"an ellipse fits its box",
         [](Context& dc) { dc.FillEllipse(0, 0, 7, 5); },
         {".#####.", "##+++##", "#+++++#", "##+++##", ".#####."}},
        {"a round one is round",
         [](Context& dc) { dc.FillEllipse(0, 0, 8, 8); },
         {"..####..", ".#++++#.", "#++++++#", "#++++++#", "#++++++#", "#++++++#", ".#++++#.", "..####.."}},
        {"an ellipse's outline of 2 has no holes",
         [](Context& dc) {
             dc.SetPen(penColor, 2, Context::solid);
             dc.DrawEllipse(1, 1, 9, 9);
         },
         {"...####...", ".########.", ".##....##.", "##......##", "##......##", "##......##", "##......##",
          ".##....##.", ".########.", "...####..."}},
        {"a pen of 2 has its odd pixel above and to the left",
         [](Context& dc) {
             dc.SetPen(penColor, 2, Context::solid);
             dc.DrawRectangle(2, 2, 7, 7);
         },
         {"........", ".######.", ".######.", ".##..##.", ".##..##.", ".######.", ".######.", "........"}},
        {"a polygon is closed and has all its points",
         [points](Context& dc) {
             dc.DrawPolygon(points({{1, 0}, {5, 0}, {5, 3}, {1, 3}}));
         },
         {".#####.", ".#...#.", ".#...#.", ".#####."}},
    };
}

} // namespace

TEST(DeviceContext, DrawsFiguresToThePixel) {
    for (Figure const& figure : Figures()) {
        SCOPED_TRACE(figure.name);
        int const width = static_cast<int>(figure.expected.front().size());
        int const height = static_cast<int>(figure.expected.size());
        EXPECT_EQ(ToRows(Draw(width, height, figure.draw)), figure.expected);
    }
}

TEST(DeviceContext, DrawsNothingOutsideTheClip) {
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        PlatformIndependentDeviceContext_PC context(image, {QPoint(10, 10), QRect(10, 10, 20, 20)},
                                                    {&image, QPoint(0, 0)});
        context.SetPen(penColor, 1, PlatformIndependentDeviceContext::solid);
        context.SetBrush(brushColor);
        context.FillRectangle(-30000, -30000, 30000, 30000);
        context.FillEllipse(-4, -4, 8, 8);
        context.FillEllipse(18, 18, 26, 26);
        context.DrawLine(-32000, 5, 32000, 7);
        context.DrawLine(5, -32000, 7, 32000);
    }
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x) {
            bool const inside = x >= 10 && x < 30 && y >= 10 && y < 30;
            ASSERT_EQ(image.pixel(x, y) == 0xffffffff, !inside) << x << "," << y;
        }
}

TEST(DeviceContext, BreaksLinesAndCarriesThePatternThroughCorners) {
    auto const rows = ToRows(Draw(20, 4, [](PlatformIndependentDeviceContext& dc) {
        dc.SetPen(penColor, 1, PlatformIndependentDeviceContext::dotted);
        dc.MoveTo(0, 0);
        dc.LineTo(14, 0);
        dc.LineTo(14, 4);
    }));
    EXPECT_EQ(rows, (Rows{"###...###...###.....", "....................", "....................",
                          "...................."}));
}

TEST(DeviceContext, MeasuresAndPlacesText) {
    long width = 1;
    long height = 0;
    QImage const image = Draw(80, 30, [&](PlatformIndependentDeviceContext& dc) {
        EXPECT_EQ(dc.SetTextColor(penColor), RGBVector(0, 0, 0));
        EXPECT_EQ(dc.SetTextColor(penColor), penColor);
        dc.SetFont(8, 0, 0, "Arial", 0);
        dc.GetTextExtent("", width, height);
        EXPECT_EQ(width, 0);
        EXPECT_GE(height, 11);
        dc.GetTextExtent("HHHH", width, height);
        dc.DrawText(10, 5, "HHHH");
    });
    // Ink is within the measured box and nowhere else.
    int left = 80;
    int right = 0;
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 80; ++x)
            if (image.pixel(x, y) != 0xffffffff) {
                left = std::min(left, x);
                right = std::max(right, x);
                ASSERT_GE(y, 5);
                ASSERT_LT(y, 5 + height);
            }
    EXPECT_GE(left, 10);
    EXPECT_LE(left, 13);
    EXPECT_LE(right, 10 + width);
    EXPECT_GE(right, 10 + width - 4);
}

TEST(DeviceContext, TakesPositiveHeightsForPointsAndNegativeOnesForPixels) {
    std::pair<short, int> const rows[] = {{-12, 12}, {-5, 5}, {9, 12}, {12, 16}, {3, 11}, {0, 11}};
    for (auto const& [height, pixels] : rows)
        EXPECT_EQ(GUI::FindFont(height, 0, "Arial", 0).pixelSize(), pixels) << height;
}

TEST(DeviceContext, AFullPieIsADisc) {
    auto const disc =
        Draw(30, 30, [](PlatformIndependentDeviceContext& dc) { dc.FillPie(15, 15, 10, 30, 360); });
    EXPECT_EQ(disc.pixel(15, 15), qRgb(0, 0, 200));
    EXPECT_EQ(disc.pixel(20, 15), qRgb(0, 0, 200)) << "no radius is drawn";
    auto const quarter =
        Draw(30, 30, [](PlatformIndependentDeviceContext& dc) { dc.FillPie(15, 15, 10, 0, 90); });
    EXPECT_EQ(quarter.pixel(19, 11), qRgb(0, 0, 200)) << "counter-clockwise from the x axis";
    EXPECT_EQ(quarter.pixel(19, 19), 0xffffffff);
}
