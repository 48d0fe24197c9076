#include "gui/charts/Chart.h"
#include "gui/charts/CurvePainter.h"
#include "gui/charts/Graph.h"
#include "gui/charts/XYChart.h"
#include "gui/charts/XYColorChart.h"
#include "gui/charts/XYGraph.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/PixelCanvas.h"
#include "tests/support/RecordingDeviceContext.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <random>

namespace {

using namespace TestSupport;
using GUI::Graph;
using GUI::Pane;
using GUI::RGBVector;
using GUI::ScaleMap;
using testing::ElementsAre;
using testing::IsEmpty;
using Utilities::Anything;
using Utilities::String;

using Attributes = std::initializer_list<std::pair<char const*, char const*>>;

/// An element of the type under test, 100 by 50 pixels large.
template <class T> struct Fixture {
    FakeWindowHost host;
    FakeDataSource source;
    Utilities::SmartPointer<GUI::GUIElement> element;

    void Make(Attributes attributes) {
        auto const node = Node(attributes);
        (*node)["ElementName"] = "E";
        element = Utilities::MakeSmart<T>();
        element->Initialize(host.GetWindow(), *node, &source);
        element->SetSize(100, 50);
    }
    T& Get() { return dynamic_cast<T&>(*element); }
    RecordingDeviceContext::Rows Paint(char const* operation = "") {
        RecordingDeviceContext context;
        Get().OnPaint(context);
        return context.GetRows(operation);
    }
    std::size_t Count(char const* operation) { return Paint(operation).size(); }
    int Paints() { return host.GetPaintCount(Get()); }
};

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

struct GraphTest : testing::Test, Fixture<Graph> {
    void Scale(double xBegin, double xEnd, double yBegin, double yEnd) {
        source.values[{"E", "XScaleBegin"}] = xBegin;
        source.values[{"E", "XScaleEnd"}] = xEnd;
        source.values[{"E", "YScaleBegin"}] = yBegin;
        source.values[{"E", "YScaleEnd"}] = yEnd;
    }
};

TEST_F(GraphTest, DrawsAxesGridAndTicks) {
    Scale(-20, 20, -10, 10);
    Make({{"XScaleDrawLines", "10"},
          {"YScaleDrawLines", "5"},
          {"XScaleGraduation", "10"},
          {"YScaleGraduation", "5"},
          {"LineColor", "1,2,3"},
          {"BackgroundColor", "9,9,9"}});
    EXPECT_THAT(
        Paint(),
        ElementsAre("SetBrush 9,9,9", "SetPen 128,128,128 1 0", "FillRectangle 0 0 100 50",
                    "SetPen 1,2,3 5 0", "DrawLine 0 25 100 25", "DrawLine 50 50 50 0", "SetPen 1,2,3 1 2",
                    // Positive X first, negative Y first; zero is left out.
                    "DrawLine 75 50 75 0", "DrawLine 25 50 25 0", "DrawLine 0 37 100 37",
                    "DrawLine 0 12 100 12", "SetPen 1,2,3 1 0",
                    // Short ticks are lengthened on the positive side alone; the first one comes twice.
                    "DrawLine 75 20 75 29", "DrawLine 75 23 75 26", "DrawLine 50 23 50 26",
                    "DrawLine 25 23 25 26", "DrawLine 52 12 47 12", "DrawLine 52 25 47 25",
                    "DrawLine 52 37 47 37", "DrawLine 52 12 47 12"));

    Get().OnUpdate("Properties");
    source.values[{"E", "JustificationOnX"}] = false;
    source.values[{"E", "YScaleDrawLines"}] = 2.5;
    Get().OnUpdate("Properties|NoRepaint");
    EXPECT_THAT(Paint("DrawLine"), testing::Contains("DrawLine 54 37 45 37")) << "lengthened along Y";
}

TEST_F(GraphTest, LeavesOutWhatIsNotWanted) {
    Scale(0, 20, -10, 0);
    Make({{"DrawAxis", "Yes"}});
    EXPECT_THAT(Paint("DrawLine"), ElementsAre("DrawLine 0 50 0 0")) << "no grid by default; Y ends at 0";
    Make({{"DrawAxis", "No"}});
    EXPECT_THAT(Paint("DrawLine"), IsEmpty());
    Make({{"XScaleDrawLines", "1e-300"}, {"XScaleGraduation", "1e-300"}});
    EXPECT_LE(Paint("DrawLine").size(), 4U * Graph::maximalLines) << "ends";
}

TEST_F(GraphTest, RepaintsByTheMessage) {
    source.values[{"E", "XValueBegin"}] = "380";
    source.values[{"E", "DeltaXValue"}] = "";
    Make({});
    std::pair<Anything, int> const rows[] = {{{}, 1},
                                             {"Data", 1},
                                             {"|NoRepaint", 1}, // only behind a command
                                             {"Data|NoRepaint", 0},
                                             {"Properties", 0},
                                             {"Properties|NoRepaint", 0}};
    for (auto const& [message, paints] : rows) {
        int const before = Paints();
        source.Fire("E", "OnUpdate", message);
        EXPECT_EQ(Paints() - before, paints) << (message.IsValid() ? message.GetString().GetStdString() : "");
    }
    double begin = 0, step = 0;
    Get().GetXDrawLines(begin, step);
    EXPECT_EQ(std::pair(begin, step), std::pair(380.0, 0.0)) << "numbers begin at the first value";
    EXPECT_TRUE(Get().GetFrame());
}

// ------------------------------------------------------------------ curves

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

struct XYGraphTest : testing::Test, Fixture<GUI::XYGraph> {
    static Anything Column(char const* name, std::initializer_list<char const*> values) {
        Anything::VectorOfAnythings column(1 + static_cast<std::uint32_t>(values.size()));
        std::uint32_t i = 0;
        column[i++] = name;
        for (char const* value : values) column[i++] = value;
        return {column};
    }
    void MakeCurves() {
        source.values[{"E", "XScaleBegin"}] = 0.0;
        source.values[{"E", "XScaleEnd"}] = 10.0;
        source.values[{"E", "YScaleBegin"}] = 0.0;
        source.values[{"E", "YScaleEnd"}] = 10.0;
        source.values[{"E", "ValueBegin"}] = "2";
        source.values[{"E", "ValueStep"}] = "4";
        source.values[{"E", "3"}] = Column("A", {"1", "2"});
        source.values[{"E", "4"}] = Column("B", {"10", "0", "10"});
        source.values[{"E", "CurveColor 0"}] = "1;2;3";
        source.values[{"E", "LineWidth 1"}] = 3L;
        Make({{"DrawAxis", "No"}});
        Get().OnUpdate("0;3-1;4|NoRepaint");
    }
};

TEST_F(XYGraphTest, DrawsItsCurvesTheActiveOneFirst) {
    MakeCurves();
    auto const curves = [this] {
        auto rows = Paint();
        rows.erase(rows.begin(), rows.begin() + 6); // the empty graph
        return rows;
    };
    std::vector<std::string> const first{"SetBrush 1,2,3", "SetPen 1,2,3 1 0", "MoveTo 20 45",
                                         "LineTo 60 40"};
    std::vector<std::string> const second{"SetBrush 255,0,0", "SetPen 255,0,0 3 0", "MoveTo 20 0",
                                          "LineTo 60 50", "LineTo 100 0"};
    auto const joined = [](auto a, auto const& b) {
        a.insert(a.end(), b.begin(), b.end());
        return a;
    };
    EXPECT_EQ(curves(), joined(first, second));
    source.values[{"E", "ActiveCurve"}] = short{1};
    EXPECT_EQ(curves(), joined(second, first));
    source.values[{"E", "ActiveCurve"}] = "none";
    source.values[{"E", "LineWidth"}] = 2L;
    source.values[{"E", "CurveColor 0"}] = "no colour";
    Get().OnUpdate("Properties");
    EXPECT_EQ(curves(), second) << "a failing curve is left out";
    source.values[{"E", "CurveColor 0"}] = {};
    EXPECT_EQ(curves()[1], "SetPen 255,0,0 2 0");
}

TEST_F(XYGraphTest, ReadsDataByItsMessage) {
    MakeCurves();
    std::pair<char const*, std::size_t> const rows[] = {
        {"0;3", 1},        // one column of one value, and what it gives beyond
        {"0;3-9;3", 9},    // announced values that don't come are 0
        {"0;0-0;65535", 3} // columns without values are passed over
    };
    for (auto const& [message, lines] : rows) {
        int const before = Paints();
        Get().OnUpdate(message);
        EXPECT_EQ(Count("LineTo"), lines) << message;
        EXPECT_EQ(Paints(), before + 2) << "once by the foundation, once with the data";
    }
    int const before = Paints();
    Get().OnUpdate("0;3-1;4|NoRepaint");
    EXPECT_EQ(Paints(), before + 1) << "the request is ignored";
    EXPECT_ANY_THROW(Get().OnUpdate("a;b"));
    Get().OnUpdate({});
    Get().OnUpdate("Something");
    EXPECT_EQ(Count("LineTo"), 3U) << "the data stay";
}

TEST_F(XYGraphTest, TellsOfTheItemUnderThePoint) {
    MakeCurves();
    source.values[{"E", "ToolTipText 2 Curve B"}] = "second of B";
    EXPECT_EQ(Get().GetToolTipText(60, 49).GetStdString(), "second of B");
    EXPECT_EQ(Get().GetToolTipText(71, 49).GetStdString(), "") << "further than a quarter in X";
    EXPECT_EQ(Get().GetToolTipText(60, 20).GetStdString(), "");
    EXPECT_EQ(Get().GetToolTipText(100, 1).GetStdString(), "") << "no text for that item";
}

struct XYChartTest : testing::Test, Fixture<GUI::XYChart> {};

TEST_F(XYChartTest, FramesAGraphAndWritesItsNumbers) {
    source.values[{"XYGraph", "XScaleBegin"}] = 0.0;
    source.values[{"XYGraph", "XScaleEnd"}] = 250.0;
    source.values[{"XYGraph", "YScaleBegin"}] = 0.0;
    source.values[{"XYGraph", "YScaleEnd"}] = 2.0;
    source.values[{"XYGraph", "XValueBegin"}] = "-100";
    Make({{"XScaleDrawLines", "100"}, {"YScaleDrawLines", "1"}, {"GraphColor", "7,7,7"}});
    EXPECT_THAT(Paint("DrawText"),
                ElementsAre("DrawText -7 38 \"-100.0\"", "DrawText 26 38 \"0.0\"", "DrawText 50 38 \"100\"",
                            "DrawText 74 38 \"200\"", "DrawText 5 25 \"0.0\"", "DrawText 5 15 \"1.0\""));
    auto& frame = *element->GetChildrenList().Begin().Current();
    auto& graph = dynamic_cast<GUI::XYGraph&>(*frame.GetChildrenList().Begin().Current());
    unsigned long x = 0, y = 0, width = 0, height = 0;
    graph.GetPosition(x, y);
    graph.GetSize(width, height);
    EXPECT_THAT((std::vector{x, y, width, height}), ElementsAre(35, 10, 60, 20));
    EXPECT_EQ(graph.GetBackgroundColor(), RGBVector(7, 7, 7));
    EXPECT_ANY_THROW(element->FindElement("XYGraph")) << "the graph isn't registered";
    source.values[{"XYGraph", "XScaleDrawLines"}] = 0.0;
    source.Fire("E", "OnUpdate", "Properties");
    EXPECT_EQ(Paint("DrawText").size(), 2U);
}

TEST_F(XYChartTest, PassesUpdatesOn) {
    Make({});
    int const before = Paints();
    source.Fire("E", "OnUpdate", "0;0-1;0");
    EXPECT_EQ(Paints(), before + 1) << "a repaint of the chart holds that of its graph";
    EXPECT_EQ((source.asked[{"XYGraph", "0"}]), 1);
    try {
        Get().FireCallback("XYGraph", "Nothing", {});
        FAIL();
    } catch (Norvelian::Utilities::Exceptions::RuntimeException const& failure) {
        EXPECT_STREQ(failure.what(), "XYGraph - Nothing - Callback undefined ");
    }
    element = nullptr;
    EXPECT_EQ(host.GetWindowCount(), 0);
    EXPECT_EQ(source.Fire("E", "OnUpdate"), 0);
}

// ------------------------------------------------------------------ spots

struct XYColorChartTest : testing::Test, Fixture<GUI::XYColorChart> {
    void Spot(long number, double x, double y, RGBVector const& color) {
        GUI::AttributeMap data;
        data["Color"] = color.GetAnything();
        data["XValue"] = x;
        data["YValue"] = y;
        source.values[{("Patch" + String(number)).GetStdString(), "Data"}] = Anything(data);
        source.values[{"E", "NrOfPatches"}] = number + 1;
    }
};

TEST_F(XYColorChartTest, DrawsSpotsAndMarksTheSelectedOne) {
    source.values[{"E", "BackgroundBitmapExtension"}] = "_de";
    source.values[{"E", "YValueBegin"}] = short{0};
    source.values[{"E", "SelectedSample"}] = 1L;
    Make({{"SpotSize", "3"}, {"BackgroundBitmap", "Back"}});
    source.values[{"E", "NrOfPatches"}] = 1L; // without data
    Spot(1, -50, 25, RGBVector(1, 2, 3));
    Spot(2, 500, 0, RGBVector(4, 5, 6)); // beyond the range, and still drawn
    Get().OnUpdate("whatever");
    auto rows = Paint();
    rows.erase(rows.begin(), rows.begin() + 3);
    EXPECT_THAT(rows, ElementsAre("DrawImage 0 0 \"Back_de\"", "SetPen 50,50,50 1 0", "SetBrush 100,100,100",
                                  "FillEllipse 47 47 53 53", "SetPen 255,255,255 3 0", "SetBrush 1,2,3",
                                  "FillEllipse 22 34 28 40", "SetPen 50,50,50 1 0", "SetBrush 4,5,6",
                                  "FillEllipse 297 47 303 53"));
}

TEST_F(XYColorChartTest, LeavesOutHiddenSpotsWithoutATrace) {
    Make({});
    std::mt19937 random(3);
    std::vector<std::pair<double, double>> places;
    std::vector<RGBVector> colors;
    for (long i = 0; i < 3000; ++i) {
        places.emplace_back(static_cast<double>(random() % 260) - 130,
                            static_cast<double>(random() % 220) - 110);
        colors.emplace_back(static_cast<unsigned char>(random()), static_cast<unsigned char>(random()), 7);
        Spot(i, places.back().first, places.back().second, colors.back());
    }
    for (long const selected : {-1L, 0L, 1500L, 5000L}) {
        source.values[{"E", "SelectedSample"}] = selected;
        Get().OnUpdate({});
        PixelCanvas drawn(100, 50), expected(100, 50);
        Get().OnPaint(drawn);
        Get().Pane::OnPaint(expected);
        for (long i = 0; i < 3000; ++i) {
            auto const px = static_cast<short>(50 + places[i].first * 100 / 200);
            auto const py = static_cast<short>(25 - places[i].second * 50 / 200);
            i == selected ? expected.SetPen(RGBVector(255, 255, 255), 3, 0)
                          : expected.SetPen(RGBVector(50, 50, 50), 1, 0);
            expected.SetBrush(colors[i]);
            expected.FillEllipse(px - 4, py - 4, px + 4, py + 4);
        }
        EXPECT_EQ(drawn.GetPixels(), expected.GetPixels()) << selected;
    }
    EXPECT_LT(Paint("FillEllipse").size(), 3000U);
}

TEST_F(XYColorChartTest, TellsOfClicksAndOfTheTopmostSpot) {
    Make({});
    Spot(0, 0, 0, RGBVector());
    Spot(1, 2, 0, RGBVector());
    Get().OnUpdate({});
    EXPECT_FALSE(host.Click(Get(), 75, 5));
    ASSERT_EQ(source.told.size(), 1U);
    EXPECT_EQ(source.told[0].name, "Click");
    auto const& click = source.told[0].value.GetMapOfAnythings();
    EXPECT_EQ(std::pair(click["x"].GetDouble(), click["y"].GetDouble()), std::pair(50.0, 80.0));

    source.values[{"E", "ToolTipText 0"}] = "zero";
    source.values[{"E", "ToolTipText 1"}] = "one";
    EXPECT_EQ(host.GetToolTip(Get(), 50, 25).GetStdString(), "one");
    EXPECT_EQ(host.GetToolTip(Get(), 46, 25).GetStdString(), "zero");
    EXPECT_EQ(host.GetToolTip(Get(), 46, 21).GetStdString(), "") << "the corner of the spot's box";

    int const before = Paints();
    source.Fire("ColorChart", "SelectSample", 1L);
    EXPECT_EQ(Paints(), before + 1);
    element = nullptr;
    EXPECT_FALSE(source.GetCallback("ColorChart", "SelectSample").IsValid()) << "taken along";
}

} // namespace
