#include "gui/charts/BarChart.h"
#include "gui/charts/BarGraph.h"
#include "tests/gui/charts/ChartFixture.h"

namespace {

using namespace TestSupport;
using testing::ElementsAre;
using testing::IsEmpty;

struct BarChartTest : testing::Test, ChartFixture<GUI::BarChart> {
    void MakeChart(Attributes attributes) {
        source.values[{"BarGraph", "XScaleBegin"}] = 0.0;
        source.values[{"BarGraph", "XScaleEnd"}] = 4.0;
        source.values[{"BarGraph", "YScaleBegin"}] = -10.0;
        source.values[{"BarGraph", "YScaleEnd"}] = 10.0;
        Make(attributes);
        element->SetSize(135, 125);
    }
    GUI::BarGraph& Graph() {
        auto& frame = *element->GetChildrenList().Begin().Current();
        return dynamic_cast<GUI::BarGraph&>(*frame.GetChildrenList().Begin().Current());
    }
    std::vector<unsigned long> Place() {
        std::vector<unsigned long> place(4);
        Graph().GetPosition(place[0], place[1]);
        Graph().GetSize(place[2], place[3]);
        return place;
    }
};

TEST_F(BarChartTest, GivesItsGraphRoomForTheRulersThatThereAre) {
    struct {
        Attributes attributes;
        std::vector<unsigned long> place;
    } const rows[] = {
        {{{"JustificationOnX", "Yes"}, {"XScaleDrawLines", "1"}, {"YScaleGraduation", "1"}},
         {30, 25, 100, 100}},
        {{{"JustificationOnX", "Yes"}, {"XScaleDrawLines", "1"}, {"BaseLine", "3"}}, {5, 25, 125, 100}},
        {{{"JustificationOnX", "Yes"}, {"BaseLine", "3"}}, {5, 0, 125, 122}},
        {{{"JustificationOnX", "No"}, {"XScaleDrawLines", "1"}}, {30, 0, 100, 125}},
        {{{"JustificationOnX", "No"}, {"YScaleDrawLines", "1"}}, {5, 25, 125, 100}},
        {{{"XScaleDrawLines", "1"}, {"YScaleDrawLines", "1"}}, {5, 0, 125, 125}}, // no orientation, no rulers
    };
    for (auto const& row : rows) {
        MakeChart(row.attributes);
        EXPECT_EQ(Place(), row.place);
    }
    EXPECT_FALSE(Graph().GetFrame());
    EXPECT_FALSE(Get().GetValue("BarGraph", "WithFrame").GetBool());
    EXPECT_ANY_THROW(element->FindElement("BarGraph")) << "the graph isn't registered";
}

TEST_F(BarChartTest, DrawsRulersWithNumbersAndLimitMarks) {
    MakeChart({{"JustificationOnX", "Yes"},
               {"XScaleDrawLines", "1.5"},
               {"XScaleGraduation", "2"},
               {"YScaleDrawLines", "12.5"},
               {"YScaleGraduation", "0"},
               {"BaseLine", "2"},
               {"LineColor", "9,9,9"}});
    auto rows = Paint();
    rows.erase(rows.begin(), rows.begin() + 3);
    EXPECT_THAT(rows, ElementsAre("SetBrush 0,0,0", "SetPen 0,0,0 2 0", "SetFont 5 0 0 \"MS Sans Serif\" 0",
                                  // The top ruler: its line, ticks, and numbers.
                                  "SetPen 0,0,0 1 0", "DrawLine 30 25 130 25", "DrawLine 30 25 30 22",
                                  "DrawLine 80 25 80 22", "DrawLine 130 25 130 22", "DrawLine 30 25 30 19",
                                  "DrawText 27 6 \"0\"", "DrawLine 67 25 67 19", "DrawText 55 6 \"1.50\"",
                                  "DrawLine 105 25 105 19", "DrawText 102 6 \"3\"",
                                  // The side ruler begins at 0, the multiple towards zero from its begin.
                                  "SetPen 0,0,0 1 0", "DrawLine 25 100 25 0", "DrawLine 25 50 20 50",
                                  "DrawText 13 45 \"0\"", "SetPen 255,0,0 1 0", "DrawLine 0 75 30 75",
                                  "DrawLine 0 25 30 25", "SetPen 0,0,0 2 0", "DrawLine 0 124 135 124"));
    MakeChart({{"JustificationOnX", "No"}, {"BaseLine", "1"}});
    EXPECT_THAT(Paint("DrawLine"),
                ElementsAre("DrawLine 36 0 36 25", "DrawLine 98 0 98 25", "DrawLine 0 0 0 125"));
}

TEST_F(BarChartTest, PutsNumbersAtLinesIfAskedTo) {
    MakeChart({{"JustificationOnX", "Yes"},
               {"XScaleGraduation", "4"},
               {"YScaleDrawLines", "10"},
               {"NumbersAtLines", "Yes"}});
    // The graph is 100 high and 25 below the chart's edge.
    EXPECT_THAT(Paint("DrawText"),
                ElementsAre("DrawText 1 115 \"-10\"", "DrawText 13 70 \"0\"", "DrawText 7 20 \"10\""));
    EXPECT_THAT(Paint("DrawLine 0"), ElementsAre("DrawLine 0 100 30 100", "DrawLine 0 50 30 50"));
    MakeChart({{"JustificationOnX", "No"}, {"XScaleDrawLines", "2"}, {"NumbersAtLines", "Yes"}});
    EXPECT_THAT(Paint("DrawText"),
                ElementsAre("DrawText 13 0 \"0\"", "DrawText 13 57 \"2\"", "DrawText 13 115 \"4\""))
        << "downward as the bars";
    EXPECT_THAT(Paint("DrawLine"), testing::IsSupersetOf({"DrawLine 55 0 55 30", "DrawLine 105 0 105 30"}));
}

TEST_F(BarChartTest, CutsAndPlacesItsNumbers) {
    auto const texts = [this](double begin, double end, double step) {
        source.values[{"BarGraph", "YScaleDrawLines"}] = step;
        MakeChart({{"JustificationOnX", "Yes"}, {"YScaleDrawLines", "1"}});
        source.values[{"BarGraph", "YScaleBegin"}] = begin;
        source.values[{"BarGraph", "YScaleEnd"}] = end;
        Graph().OnUpdate("Properties");
        return Paint("DrawText");
    };
    EXPECT_THAT(texts(-100, 100, 50),
                ElementsAre("DrawText -5 115 \"-100\"", "DrawText 1 88 \"-50\"", "DrawText 13 57 \"0\"",
                            "DrawText 7 26 \"50\"", "DrawText 1 0 \"100\""))
        << "those at the ends are pushed back into the chart";
    EXPECT_THAT(texts(12, 13, 0.5),
                ElementsAre("DrawText 7 115 \"12\"", "DrawText -5 57 \"12.5\"", "DrawText 7 0 \"13\""));
    EXPECT_THAT(texts(99, 99.9, 0.5), ElementsAre("DrawText 7 115 \"99\"", "DrawText -5 50 \"99.5\""));
    EXPECT_THAT(texts(0, 1, -1), IsEmpty()) << "a distance that isn't positive";
    EXPECT_THAT(texts(0, 1, 1e-300), testing::SizeIs(testing::Le(65536))) << "ends";
}

TEST_F(BarChartTest, PaintsOnceForAnUpdate) {
    MakeChart({{"JustificationOnX", "Yes"}});
    source.asked.clear();
    int const chart = Paints();
    int const graph = host.GetPaintCount(Graph());
    source.Fire("E", "OnUpdate", "1;4-2;4");
    EXPECT_EQ(Paints() - chart, 1);
    EXPECT_LE(host.GetPaintCount(Graph()) - graph, 2);
    EXPECT_EQ((source.asked[{"BarGraph", "4"}]), 1);
    source.values[{"BarGraph", "PositivLimit"}] = "3";
    source.Fire("E", "OnUpdate", "Properties");
    double negative = 0, positive = 0;
    Graph().GetLimits(negative, positive);
    EXPECT_EQ(std::pair(negative, positive), std::pair(5.0, 3.0));
}

} // namespace
