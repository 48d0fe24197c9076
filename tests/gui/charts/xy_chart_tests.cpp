#include "gui/charts/XYChart.h"
#include "gui/charts/XYGraph.h"
#include "tests/gui/charts/ChartFixture.h"

namespace {

using namespace TestSupport;
using GUI::RGBVector;
using testing::ElementsAre;

struct XYChartTest : testing::Test, ChartFixture<GUI::XYChart> {};

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

TEST_F(XYChartTest, WritesNumbersWhereLinesAreAndAtTheEnds) {
    source.values[{"XYGraph", "XScaleBegin"}] = 380.0;
    source.values[{"XYGraph", "XScaleEnd"}] = 730.0;
    source.values[{"XYGraph", "YScaleBegin"}] = -0.2;
    source.values[{"XYGraph", "YScaleEnd"}] = 1.0;
    Make({{"XScaleDrawLines", "50"}, {"YScaleDrawLines", "0.4"}, {"NumbersAtLines", "Yes"}});
    element->SetSize(390, 130); // a graph of 350 by 100, at (35, 10)
    // 400 has no room beside the end, and the end has to be pushed back into the chart.
    EXPECT_THAT(Paint("DrawText"),
                ElementsAre("DrawText 26 118 \"380\"", "DrawText 372 118 \"730\"", "DrawText 96 118 \"450\"",
                            "DrawText 146 118 \"500\"", "DrawText 196 118 \"550\"",
                            "DrawText 246 118 \"600\"", "DrawText 296 118 \"650\"",
                            "DrawText 346 118 \"700\"", "DrawText -5 105 \"\u22120.2\"",
                            "DrawText 13 5 \"1.0\"", "DrawText 13 88 \"0.0\"", "DrawText 13 54 \"0.4\"",
                            "DrawText 13 21 \"0.8\""));
    // Each number inside has its line in the graph.
    RecordingDeviceContext graph;
    auto& frame = *element->GetChildrenList().Begin().Current();
    dynamic_cast<GUI::Pane&>(*frame.GetChildrenList().Begin().Current()).OnPaint(graph);
    EXPECT_THAT(graph.GetRows("DrawLine"),
                testing::IsSupersetOf({"DrawLine 70 100 70 0", "DrawLine 320 100 320 0",
                                       "DrawLine 0 49 350 49", "DrawLine 0 16 350 16"}));
    element->SetSize(90, 60);
    EXPECT_THAT(Paint("DrawText"), ElementsAre("DrawText 26 48 \"380\"", "DrawText 72 48 \"730\"",
                                               "DrawText 50 48 \"550\"", "DrawText -5 35 \"\u22120.2\"",
                                               "DrawText 13 5 \"1.0\"", "DrawText 13 19 \"0.4\""))
        << "as many as there is room for";
    source.values[{"XYGraph", "XScaleDrawLines"}] = 1e-9;
    source.values[{"XYGraph", "YScaleEnd"}] = -0.2;
    source.Fire("E", "OnUpdate", "Properties");
    EXPECT_EQ(Count("DrawText"), 0U) << "too many numbers, and an empty scale";
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

} // namespace
