#include "gui/charts/XYColorChart.h"
#include "tests/gui/charts/ChartFixture.h"
#include "tests/support/PixelCanvas.h"

#include <random>

namespace {

using namespace TestSupport;
using GUI::RGBVector;
using testing::ElementsAre;
using Utilities::Anything;
using Utilities::String;

struct XYColorChartTest : testing::Test, ChartFixture<GUI::XYColorChart> {
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

TEST_F(XYColorChartTest, ShowsUnitsOfOneLength) {
    source.values[{"E", "XValueBegin"}] = short{-50};
    source.values[{"E", "XValueEnd"}] = short{50};
    source.values[{"E", "YValueBegin"}] = short{0};
    source.values[{"E", "YValueEnd"}] = short{100};
    Make({{"Isotropic", "Yes"},
          {"SpotSize", "1"}}); // 100 by 50 pixels: half a pixel a unit, 25 more at each side
    Spot(0, -50, 0, RGBVector());
    Spot(1, 50, 100, RGBVector());
    Get().OnUpdate({});
    EXPECT_THAT(Paint("FillEllipse"), ElementsAre("FillEllipse 24 49 26 51", "FillEllipse 74 -1 76 1"));
    host.Click(Get(), 60, 30);
    auto const& click = source.told.back().value.GetMapOfAnythings();
    EXPECT_EQ(std::pair(click["x"].GetDouble(), click["y"].GetDouble()), std::pair(20.0, 40.0));
    element->SetSize(50, 100);
    EXPECT_THAT(Paint("FillEllipse"), ElementsAre("FillEllipse -1 74 1 76", "FillEllipse 49 24 51 26"));
    element->SetSize(0, 0);
    Paint();
    source.values[{"E", "XValueEnd"}] = short{-50};
    Get().OnUpdate({});
    Paint();
}

TEST_F(XYColorChartTest, DrawsAxesThroughZero) {
    source.values[{"E", "XValueBegin"}] = short{-20};
    source.values[{"E", "XValueEnd"}] = short{80};
    Make({{"ZeroAxes", "Yes"}, {"LineColor", "1,2,3"}, {"GridColor", "4,5,6"}});
    element->SetSize(200, 100);
    Get().OnUpdate({});
    auto rows = Paint();
    rows.erase(rows.begin(), rows.begin() + 3);
    // Four parts have room across: steps of 50; and three down: of 100.
    EXPECT_THAT(rows, ElementsAre("SetFont 9 0 0 \"Arial\" 0", "SetTextColor 1,2,3", "SetPen 4,5,6 1 0",
                                  "DrawLine 40 0 40 100", "DrawLine 140 0 140 100", "DrawLine 0 100 200 100",
                                  "DrawLine 0 50 200 50", "DrawLine 0 0 200 0", "SetPen 1,2,3 1 0",
                                  "DrawLine 0 50 200 50", "DrawLine 40 0 40 100", "DrawLine 40 48 40 53",
                                  "DrawText 43 86 \"0\"", "DrawLine 140 48 140 53", "DrawText 143 86 \"50\"",
                                  "DrawLine 38 100 43 100", "DrawLine 38 50 43 50", "DrawText 4 40 \"0\"",
                                  "DrawLine 38 0 43 0", "SetTextColor 0,0,0"));
    source.values[{"E", "XValueBegin"}] = short{20};
    Get().OnUpdate({});
    EXPECT_THAT(Paint("DrawLine"), testing::Contains("DrawLine 0 0 0 100")) << "zero is left of the pane";
    source.values[{"E", "XValueEnd"}] = short{20};
    Get().OnUpdate({});
    EXPECT_EQ(Count("DrawLine"), 0U) << "an empty scale";
}

TEST_F(XYColorChartTest, MarksBesideTheColour) {
    source.values[{"E", "SelectedSample"}] = 0L;
    Make({{"MarkOutside", "Yes"}, {"SpotSize", "3"}});
    Spot(0, 0, 0, RGBVector(1, 2, 3));
    Spot(1, 0, 0, RGBVector(4, 5, 6));
    Get().OnUpdate({});
    auto rows = Paint();
    rows.erase(rows.begin(), rows.begin() + 3);
    EXPECT_THAT(rows, ElementsAre("SetPen 50,50,50 1 0", "SetBrush 4,5,6", "FillEllipse 47 22 53 28",
                                  "SetPen 50,50,50 1 0", "SetBrush 1,2,3", "FillEllipse 47 22 53 28",
                                  "SetPen 0,0,0 2 0", "DrawEllipse 42 17 58 33", "SetPen 255,255,255 2 0",
                                  "DrawEllipse 44 19 56 31"));
    source.values[{"E", "ToolTipText 0"}] = "the one on top";
    EXPECT_EQ(host.GetToolTip(Get(), 50, 25).GetStdString(), "the one on top");
    source.values[{"E", "SelectedSample"}] = 7L;
    EXPECT_EQ(Count("DrawEllipse"), 0U);
}

TEST_F(XYColorChartTest, MayGoWhenItTellsOfAClick) {
    struct Leaving : FakeDataSource {
        Utilities::SmartPointer<GUI::GUIElement>* chart = nullptr;
        void SetValue(String const&, String const&, Anything const&) override { *chart = nullptr; }
    } leaving;
    element = Utilities::MakeSmart<GUI::XYColorChart>();
    element->Initialize(host.GetWindow(), *Node({{"ElementName", "E"}}), &leaving);
    element->SetSize(100, 50);
    leaving.chart = &element;
    EXPECT_FALSE(Get().OnLeftButtonDown({}, 5, 5));
    EXPECT_TRUE(element.IsNull());
}

} // namespace
