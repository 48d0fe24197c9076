#include "gui/charts/CrossGraph.h"
#include "tests/gui/charts/ChartFixture.h"

namespace {

using namespace TestSupport;
using testing::ElementsAre;
using testing::IsEmpty;
using Utilities::Anything;

/// A plane of 100 by 50 pixels, from -100 to 100 and from 0 to 50.
struct CrossGraphTest : testing::Test, ChartFixture<GUI::CrossGraph> {
    void MakePlane(Attributes attributes) {
        source.values[{"E", "XScaleBegin"}] = -100.0;
        source.values[{"E", "XScaleEnd"}] = 100.0;
        source.values[{"E", "YScaleBegin"}] = 0.0;
        source.values[{"E", "YScaleEnd"}] = 50.0;
        Make(attributes);
    }
    void Point(char const* number, char const* x, char const* y) {
        Anything::VectorOfAnythings pair(2);
        pair[0] = x;
        pair[1] = y;
        source.values[{"E", number}] = Anything(pair);
    }
    /// What is drawn over the graph.
    RecordingDeviceContext::Rows Marks(std::size_t graphRows) {
        auto rows = Paint();
        rows.erase(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(graphRows));
        return rows;
    }
};

TEST_F(CrossGraphTest, DrawsCrossesAndItsBars) {
    MakePlane({{"DrawAxis", "No"}, {"ColorBarType", "ab"}, {"LineColor", "1,2,3"}});
    Point("1", "0", "25");
    Point("2", "120", "-10"); // beyond the scale, and still drawn
    Get().OnUpdate("9;1-9;2");
    constexpr std::size_t graph = 6;
    EXPECT_THAT(Marks(graph),
                ElementsAre("SetPen 1,2,3 1 0", "SetBrush 0,255,0", "FillRectangle 0 10 5 40",
                            "SetBrush 255,0,0", "FillRectangle 95 10 100 40", "SetBrush 255,255,0",
                            "FillRectangle 20 0 80 5", "SetBrush 0,0,255", "FillRectangle 20 45 80 50",
                            "SetPen 1,2,3 3 0", "DrawLine 44 19 56 31", "DrawLine 56 19 44 31",
                            "DrawLine 104 54 116 66", "DrawLine 116 54 104 66"));
    source.values[{"E", "ColorBarType"}] = "L";
    Get().OnUpdate("Properties");
    EXPECT_THAT(Paint("FillRectangle 20"),
                ElementsAre("FillRectangle 20 0 80 5", "FillRectangle 20 45 80 50"));
    source.values[{"E", "ColorBarType"}] = "NoGraph";
    Get().OnUpdate("Properties");
    EXPECT_THAT(Marks(graph), ElementsAre("SetPen 32,32,32 1 0", "DrawLine 0 0 99 50", "DrawLine 0 50 99 0"));
    EXPECT_FALSE(Get().GetFrame());
}

TEST_F(CrossGraphTest, ReadsPointsByItsMessage) {
    MakePlane({{"DrawAxis", "No"}});
    Point("1", "0", "25");
    Point("3", "10", "25");
    std::pair<char const*, std::size_t> const rows[] = {
        {"1;1-2;3", 3}, // the second has no answer and is at zero
        {"5;1", 1},
        {"", 1}, // no point is numbered 0
        {"Something|NoRepaint", 1},
        {"1;3-1;1", 0},
        {"1;0-1;1", 2},
    };
    for (auto const& [message, crosses] : rows) {
        int const before = Paints();
        Get().OnUpdate(message);
        EXPECT_EQ(Count("DrawLine"), 2 * crosses) << message;
        EXPECT_GE(Paints(), before + 1) << message;
    }
    EXPECT_ANY_THROW(Get().OnUpdate("1;3")) << "the third of one";
    Point("0", "0", "0");
    EXPECT_ANY_THROW(Get().OnUpdate(""));
    EXPECT_EQ(Count("DrawLine"), 4U) << "what was there stays";
}

TEST_F(CrossGraphTest, TellsOfThePointNearby) {
    MakePlane({});
    Point("1", "0", "25");
    Point("2", "2", "25");
    Get().OnUpdate("1;1-1;2");
    source.values[{"E", "ToolTipText 2"}] = "second";
    EXPECT_EQ(Get().GetToolTipText(50, 25).GetStdString(), "second") << "the first has no text";
    source.values[{"E", "ToolTipText 1"}] = "first";
    EXPECT_EQ(Get().GetToolTipText(46, 21).GetStdString(), "first");
    EXPECT_EQ(Get().GetToolTipText(45, 25).GetStdString(), "") << "on the edge";
    EXPECT_EQ(Get().GetToolTipText(50, 30).GetStdString(), "");
    EXPECT_EQ(Get().GetToolTipText(56, 25).GetStdString(), "");
}

} // namespace
