#include "gui/charts/Graph.h"
#include "tests/gui/charts/ChartFixture.h"

namespace {

using namespace TestSupport;
using GUI::Graph;
using testing::ElementsAre;
using testing::IsEmpty;
using Utilities::Anything;

struct GraphTest : testing::Test, ChartFixture<Graph> {
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

} // namespace
