// Drawing on scaled surfaces and on parts of one, pixel by pixel: in the memory behind the surface, by the
// platform's painter, and in a window of its own at the scale that QT_SCALE_FACTOR gives this program.
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "tests/gui/platform/PixelRows.h"

#include <QCoreApplication>
#include <QImage>
#include <QPicture>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <random>
#include <set>

namespace {

using namespace TestSupport;
using GUI::PlatformIndependentDeviceContext;
using GUI::PlatformIndependentDeviceContext_PC;
using GUI::RGBVector;
using GUI::SurfaceBacking;
using GUI::SurfacePart;
using Context = PlatformIndependentDeviceContext;

constexpr double ratios[] = {1, 1.25, 1.5, 2, 3};

/// Edges of boxes go to the nearest pixel.
int Edge(double logical, double ratio) { return qRound(logical * ratio); }

/// A white surface of logical 40 by 30.
QImage Surface(double ratio) {
    QImage image(Edge(40, ratio), Edge(30, ratio), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    return image;
}

enum class Path { Direct, Painter, SharedPainter };
constexpr Path paths[] = {Path::Direct, Path::Painter, Path::SharedPainter};

void DrawInto(Context& context, Drawing const& drawing) {
    context.SetPen(penColor, 1, Context::solid);
    context.SetBrush(brushColor);
    drawing(context);
}

void DrawOn(QImage& image, Path path, SurfacePart const& part, Drawing const& drawing) {
    if (path == Path::SharedPainter) {
        QPainter painter(&image);
        painter.setPen(Qt::green);
        {
            PlatformIndependentDeviceContext_PC context(painter, part);
            DrawInto(context, drawing);
        }
        EXPECT_EQ(painter.pen().color(), QColor(Qt::green)) << "left as it was";
        EXPECT_TRUE(painter.worldTransform().isIdentity());
        return;
    }
    SurfaceBacking const backing{path == Path::Direct ? &image : nullptr, QPoint(0, 0)};
    PlatformIndependentDeviceContext_PC context(image, part, backing);
    DrawInto(context, drawing);
}

QImage Draw(double ratio, Path path, Drawing const& drawing) {
    QImage image = Surface(ratio);
    DrawOn(image, path, {QPoint(0, 0), QRect(0, 0, 40, 30)}, drawing);
    return image;
}

/// Figures of every kind; `seed` says which, (x, y) where.
void DrawScene(Context& dc, unsigned seed, short x = 0, short y = 0) {
    std::mt19937 random(seed);
    auto const across = [&] { return static_cast<short>(x + static_cast<int>(random() % 50) - 5); };
    auto const down = [&] { return static_cast<short>(y + static_cast<int>(random() % 40) - 5); };
    for (int i = 0; i < 12; ++i) {
        long const width = std::array{1L, 1L, 0L, 2L, 3L, 5L}[random() % 6];
        long const style = std::array{Context::solid, Context::dotted, Context::noPen}[random() % 3];
        dc.SetPen(RGBVector(static_cast<unsigned char>(random()), 0, 90), width, style);
        dc.SetBrush(RGBVector(0, static_cast<unsigned char>(random()), 90));
        short const left = across(), top = down(), right = across(), bottom = down();
        Context::Points triangle(3);
        triangle[0] = {left, top};
        triangle[1] = {right, bottom};
        triangle[2] = {across(), down()};
        switch (random() % 8) {
        case 0:
            dc.FillRectangle(left, top, right, bottom);
            break;
        case 1:
            dc.DrawRectangle(left, top, right, bottom);
            break;
        case 2:
            dc.DrawLine(left, top, right, bottom);
            break;
        case 3:
            dc.MoveTo(left, top);
            dc.LineTo(right, top);
            dc.LineTo(right, bottom);
            break;
        case 4:
            dc.FillEllipse(left, top, right, bottom);
            break;
        case 5:
            dc.FillPolygon(triangle);
            break;
        case 6:
            dc.FillPie(left, top, 7, 20, 100);
            break;
        default:
            dc.SetFont(8, 0, 0, "Arial", 0);
            dc.DrawText(left, top, "Ag 3.5");
        }
    }
}

/// Where ink is: left, top, right and bottom, the latter two outside.
std::vector<int> InkBox(QImage const& image) {
    std::vector<int> box{image.width(), image.height(), 0, 0};
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != 0xffffffff)
                box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x + 1),
                       std::max(box[3], y + 1)};
    return box;
}

} // namespace

TEST(ScaledDrawing, PutsFiguresOnWholePixels) {
    struct Row {
        char const* name;
        double ratio;
        Drawing draw;
        Rows expected;
    } const rows[] = {
        {"a box at 1.25",
         1.25,
         [](Context& dc) { dc.FillRectangle(1, 1, 6, 4); },
         {".........", ".#######.", ".#+++++#.", ".#+++++#.", ".#######.", "........."}},
        {"a box at 1.5",
         1.5,
         [](Context& dc) { dc.FillRectangle(1, 1, 5, 5); },
         {".........", ".........", "..######.", "..######.", "..##++##.", "..##++##.", "..######.",
          "..######.", "........."}},
        {"a box at 2",
         2,
         [](Context& dc) { dc.FillRectangle(1, 0, 5, 3); },
         {"..########..", "..########..", "..##++++##..", "..##++++##..", "..########..", "..########..",
          "............"}},
        {"a pen is as wide everywhere: 1.5 to 2",
         1.5,
         [](Context& dc) {
             dc.DrawLine(1, 1, 4, 1);
             dc.DrawLine(4, 4, 1, 4);
         },
         {"........", "........", "..####..", "..####..", "........", "........", "....####", "....####"}},
        {"a line leaves out its last point, in both directions",
         2,
         [](Context& dc) {
             dc.DrawLine(1, 0, 3, 0);
             dc.DrawLine(3, 2, 1, 2);
             dc.DrawLine(5, 2, 5, 0);
         },
         {"..####......", "..####......", "..........##", "..........##", "....####..##", "....####..##"}},
        {"lines in a row join",
         2,
         [](Context& dc) {
             dc.MoveTo(0, 0);
             dc.LineTo(2, 0);
             dc.LineTo(2, 2);
             dc.LineTo(0, 2);
         },
         {"######", "######", "....##", "....##", "..####", "..####"}},
        {"a slanted line is as high everywhere",
         2,
         [](Context& dc) { dc.DrawLine(0, 0, 4, 2); },
         {"#.......", "###.....", ".####...", "...####.", ".....###"}},
        {"an even pen has its odd pixel above and to the left",
         2,
         [](Context& dc) {
             dc.SetPen(penColor, 2, Context::solid);
             dc.DrawRectangle(1, 1, 4, 3);
         },
         {"########", "########", "########", "########", "########", "########"}},
        {"dashes grow along",
         2,
         [](Context& dc) {
             dc.SetPen(penColor, 1, Context::dotted);
             dc.DrawLine(0, 0, 8, 0);
         },
         {"######......####", "######......####"}},
        {"a polygon without a pen ends where a box does",
         1.5,
         [](Context& dc) {
             dc.SetPen(penColor, 1, Context::noPen);
             Context::Points points(4);
             points[0] = {1, 1};
             points[1] = {5, 1};
             points[2] = {5, 3};
             points[3] = {1, 3};
             dc.FillPolygon(points);
         },
         {".........", ".........", "..++++++.", "..++++++.", "..++++++.", "........."}},
    };
    for (Row const& row : rows)
        for (Path const path : paths) {
            SCOPED_TRACE(testing::Message() << row.name << ", path " << static_cast<int>(path));
            QImage const image = Draw(row.ratio, path, row.draw);
            EXPECT_EQ(ToRows(image.copy(0, 0, static_cast<int>(row.expected.front().size()),
                                        static_cast<int>(row.expected.size()))),
                      row.expected);
        }
}

TEST(ScaledDrawing, EllipsesTouchTheirBoxAllRound) {
    for (double const ratio : ratios)
        for (short const size : {short{6}, short{9}, short{16}})
            for (long const width : {1L, 2L, 3L}) {
                SCOPED_TRACE(testing::Message() << ratio << " size " << size << " pen " << width);
                QImage const image = Draw(ratio, Path::Direct, [=](Context& dc) {
                    dc.SetPen(penColor, width, Context::solid);
                    dc.FillEllipse(8, 4, static_cast<short>(8 + size), static_cast<short>(4 + size));
                });
                auto const margin = static_cast<int>(width / 2);
                EXPECT_THAT(InkBox(image),
                            testing::ElementsAre(Edge(8 - margin, ratio), Edge(4 - margin, ratio),
                                                 Edge(8 + size + margin, ratio),
                                                 Edge(4 + size + margin, ratio)));
                int const middle = (Edge(4, ratio) + Edge(4 + size, ratio)) / 2;
                auto const row = ToRows(image)[static_cast<std::size_t>(middle)];
                auto const pen = static_cast<std::size_t>(qRound(static_cast<double>(width) * ratio));
                EXPECT_EQ(row.find('+') - row.find('#'), pen);
                EXPECT_EQ(row.rfind('#') - row.rfind('+'), pen);
            }
}

TEST(ScaledDrawing, AllPathsDrawTheSame) {
    for (double const ratio : ratios)
        for (unsigned seed = 0; seed < 40; ++seed) {
            auto const draw = [seed](Context& dc) { DrawScene(dc, seed); };
            QImage const direct = Draw(ratio, Path::Direct, draw);
            ASSERT_EQ(direct, Draw(ratio, Path::Painter, draw)) << ratio << " seed " << seed;
            ASSERT_EQ(direct, Draw(ratio, Path::SharedPainter, draw)) << ratio << " seed " << seed;
        }
}

TEST(ScaledDrawing, PlacesTextByItsCorner) {
    long width = 0;
    long height = 0;
    std::set<std::pair<long, long>> extents;
    for (double const ratio : ratios)
        for (short const y : {short{3}, short{4}, short{5}}) {
            QImage const image = Draw(ratio, Path::Direct, [&, y](Context& dc) {
                dc.SetFont(8, 0, 0, "Arial", 0);
                dc.GetTextExtent("HH", width, height);
                dc.DrawText(5, y, "HH");
            });
            extents.insert({width, height});
            auto const box = InkBox(image);
            EXPECT_GE(box[0], Edge(5, ratio));
            EXPECT_LE(box[2], Edge(static_cast<double>(5 + width), ratio) + 1);
            EXPECT_GE(box[1], Edge(y, ratio));
            EXPECT_LE(box[3], Edge(static_cast<double>(y + height), ratio));
            // The letters are drawn with the screen's own pixels, and are as sharp in each row.
            EXPECT_NEAR(box[3] - box[1], 8 * ratio, 1.1) << ratio;
        }
    EXPECT_EQ(extents.size(), 1U) << "measured in logical pixels";
}

TEST(PartOfASurface, IsOffsetAndClipped) {
    QRegion const clips[] = {QRect(3, 2, 30, 20), QRect(-5, 7, 12, 50), QRect(0, 0, 40, 30),
                             QRegion(3, 2, 9, 9) + QRegion(15, 1, 7, 20) + QRegion(8, 16, 20, 6), QRegion()};
    for (double const ratio : ratios)
        for (QPoint const origin : {QPoint(0, 0), QPoint(3, 5), QPoint(11, 2)})
            for (QRegion const& clip : clips)
                for (unsigned seed = 0; seed < 6; ++seed) {
                    auto const x = static_cast<short>(origin.x());
                    auto const y = static_cast<short>(origin.y());
                    QImage const whole =
                        Draw(ratio, Path::Direct, [=](Context& dc) { DrawScene(dc, seed, x, y); });
                    QImage expected = Surface(ratio);
                    for (QRect const& box : clip)
                        for (int py = std::max(Edge(box.y(), ratio), 0);
                             py < std::min(Edge(box.y() + box.height(), ratio), expected.height()); ++py)
                            for (int px = std::max(Edge(box.x(), ratio), 0);
                                 px < std::min(Edge(box.x() + box.width(), ratio), expected.width()); ++px)
                                expected.setPixel(px, py, whole.pixel(px, py));
                    for (Path const path : paths) {
                        QImage image = Surface(ratio);
                        DrawOn(image, path, {origin, clip}, [seed](Context& dc) { DrawScene(dc, seed); });
                        ASSERT_EQ(image, expected) << ratio << " origin " << x << "," << y << " seed " << seed
                                                   << " path " << static_cast<int>(path);
                    }
                }
}

TEST(PartOfASurface, LiesBehindAnOffset) {
    // The image shows the surface from (6, 4) on.
    for (double const ratio : ratios) {
        QImage image = Surface(ratio);
        {
            PlatformIndependentDeviceContext_PC context(image, {QPoint(10, 7), QRect(8, 6, 9, 9)},
                                                        {&image, QPoint(6, 4)});
            DrawInto(context, [](Context& dc) { dc.FillRectangle(-20, -20, 90, 90); });
        }
        EXPECT_THAT(InkBox(image),
                    testing::ElementsAre(Edge(2, ratio), Edge(2, ratio), Edge(11, ratio), Edge(11, ratio)));
    }
}

TEST(PartOfASurface, LetsOtherCodeUseThePainter) {
    for (double const ratio : ratios)
        for (Path const path : paths) {
            QImage image = Surface(ratio);
            DrawOn(image, path, {QPoint(4, 2), QRect(0, 0, 20, 30)}, [](Context& dc) {
                QPainter& painter = dynamic_cast<PlatformIndependentDeviceContext_PC&>(dc).GetPainter();
                painter.fillRect(2, 2, 90, 3, Qt::black);
                painter.rotate(20);
                dc.FillRectangle(2, 8, 5, 11);
            });
            EXPECT_THAT(InkBox(image), testing::ElementsAre(Edge(6, ratio), Edge(4, ratio), Edge(20, ratio),
                                                            Edge(13, ratio)));
        }
}

TEST(RecordedDrawing, IsRightWherePlayed) {
    QPicture picture;
    {
        PlatformIndependentDeviceContext_PC context(picture, {QPoint(1, 0), QRect(0, 0, 40, 30)});
        DrawInto(context, [](Context& dc) {
            dc.FillRectangle(1, 0, 6, 3);
            dc.DrawLine(1, 4, 5, 4);
        });
    }
    for (int const scale : {1, 2, 3}) {
        QImage played(9 * scale, 6 * scale, QImage::Format_RGB32);
        played.fill(Qt::white);
        QPainter painter(&played);
        painter.scale(scale, scale);
        painter.drawPicture(0, 0, picture);
        painter.end();
        EXPECT_EQ(ToRows(played.scaled(9, 6)),
                  (Rows{"..#####..", "..#+++#..", "..#####..", ".........", "..####...", "........."}))
            << scale;
        EXPECT_EQ(played, played.scaled(9, 6).scaled(played.size())) << scale;
    }
}

namespace {

/// A pane-like widget that paints the same scene directly and by the painter, and compares.
struct BothWays : QWidget {
    using QWidget::QWidget;
    unsigned seed = 0;
    int compared = 0;
    int differing = 0;

protected:
    void paintEvent(QPaintEvent*) override {
        QPoint offset;
        auto* const image = dynamic_cast<QImage*>(redirected(&offset));
        if (!image) return;
        SurfacePart const part{QPoint(5, 3), QRect(5, 3, 30, 20)};
        QImage results[2];
        for (bool const isDirect : {true, false}) {
            PlatformIndependentDeviceContext_PC(*this).GetPainter().fillRect(rect(), Qt::white);
            {
                PlatformIndependentDeviceContext_PC context(
                    *this, part, isDirect ? SurfaceBacking{image, offset} : SurfaceBacking{});
                DrawScene(context, seed);
            }
            results[isDirect ? 1 : 0] = image->copy();
        }
        ++compared;
        if (results[0] != results[1]) ++differing;
    }
};

} // namespace

TEST(ScaledDrawing, AWindowsMemoryAndItsPainterAgree) {
    QWidget window;
    window.resize(80, 60);
    BothWays pane(&window);
    pane.setGeometry(7, 11, 41, 31);
    window.show();
    QCoreApplication::processEvents();
    for (pane.seed = 0; pane.seed < 20; ++pane.seed) pane.repaint();
    EXPECT_GE(pane.compared, 20);
    EXPECT_EQ(pane.differing, 0) << "at the scale " << pane.devicePixelRatioF();
}

TEST(ScaledDrawing, TextThatIsKeptLooksAsTextThatIsNew) {
    int number = 0;
    for (double const ratio : ratios)
        for (short const style : {short(0), Context::boldFont, Context::underlinedFont})
            for (char const* const words : {"Lab 12,5", "\xC3\x84gypten fi", "a  b "}) {
                // Another text each time, so that the first one is new.
                std::string const text = words + std::to_string(number++);
                std::vector<QImage> drawn;
                std::vector<long> widths;
                for (int turn = 0; turn < 4; ++turn) {
                    drawn.push_back(Surface(ratio));
                    PlatformIndependentDeviceContext_PC context(drawn.back());
                    context.SetFont(8, 0, 0, "Arial", style);
                    context.DrawText(1, 3, text.c_str());
                    long height = 0;
                    context.GetTextExtent(text.c_str(), widths.emplace_back(), height);
                }
                SCOPED_TRACE(text + " at " + std::to_string(ratio));
                EXPECT_EQ(drawn[0], drawn[3]);
                EXPECT_EQ(widths[0], widths[3]);
            }
}
