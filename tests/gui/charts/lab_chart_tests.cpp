#include "gui/charts/CrossGraph.h"
#include "gui/charts/LabChart.h"
#include "tests/gui/charts/ChartFixture.h"

#include <cmath>

namespace {

using namespace TestSupport;
using testing::ElementsAre;
using testing::IsEmpty;
using Utilities::Anything;
using Utilities::String;

struct LabChartTest : testing::Test, ChartFixture<GUI::LabChart> {
    void MakeChart(char const* space) {
        source.values[{"E", "ColorScale"}] = space;
        Make({{"BackgroundColor", "240,240,241"}});
        element->SetSize(300, 200);
    }
    void Row(char const* number, std::vector<char const*> const& values) {
        Anything::VectorOfAnythings row(static_cast<std::uint32_t>(values.size()));
        for (std::uint32_t i = 0; i < values.size(); ++i) row[i] = values[i];
        source.values[{"E", number}] = Anything(row);
    }
    std::vector<double> Pair(char const* plot, char const* key) {
        Anything const answer = Get().GetValue(plot, key);
        if (!answer.IsValid()) return {};
        auto const& pair = answer.GetVectorOfAnythings();
        return {pair[0].GetDouble(), pair[1].GetDouble()};
    }
    double Number(char const* plot, char const* key) { return Get().GetValue(plot, key).GetDouble(); }
    static std::vector<unsigned long> PlaceOf(GUI::CrossGraph& graph) {
        std::vector<unsigned long> place(4);
        graph.GetPosition(place[0], place[1]);
        graph.GetSize(place[2], place[3]);
        return place;
    }
    static std::size_t Crosses(GUI::CrossGraph& graph) {
        RecordingDeviceContext context;
        graph.OnPaint(context);
        auto const rows = context.GetRows();
        auto const pen = std::find(rows.begin(), rows.end(), "SetPen 0,0,0 3 0");
        return static_cast<std::size_t>(rows.end() - pen) / 2;
    }
};

TEST_F(LabChartTest, SetsAPlaneBesideABarWithCaptions) {
    MakeChart("CIELab");
    auto const plane = PlaceOf(*Get().GetAbGraph());
    auto const bar = PlaceOf(*Get().GetLGraph());
    EXPECT_EQ(std::pair(plane[0], plane[1]), std::pair(10UL, 25UL));
    EXPECT_EQ(bar[0] + bar[2], 290U);
    EXPECT_EQ(plane[0] + plane[2] + 10 + 20, bar[0]) << "the margins between them";
    EXPECT_EQ(plane[3], 165U);
    EXPECT_GT(plane[2], 5 * bar[2]);
    EXPECT_EQ(Get().GetAbGraph()->GetBackgroundColor(), GUI::RGBVector(247, 247, 248));
    EXPECT_FALSE(Get().GetAbGraph()->GetFrame());
    long const width = static_cast<long>(plane[2]);
    auto const text = [](long x, int y, char const* shown) {
        return "DrawText " + std::to_string(x) + " " + std::to_string(y) + " \"" + shown + "\"";
    };
    EXPECT_THAT(Paint("DrawText"),
                ElementsAre(text(width / 2 + 10 - 21, 10, "b = 100"), text(width + 12, 87, "a ="),
                            text(width + 12, 97, "100"),
                            text(300 - 20 - static_cast<long>(bar[2]) / 2 - 21, 10, "L = 100")));
    source.values[{"E", "ColorScale"}] = "DeltaCIExyY";
    source.Fire("E", "OnUpdate", "Properties");
    EXPECT_THAT(Paint("DrawText"), testing::Contains(text(width + 12, 97, "0.05")));
    EXPECT_THAT(Paint("DrawText"), testing::Contains(testing::HasSubstr("\"dY = 5.0\"")));
    source.values[{"E", "ColorScale"}] = "CIEXYZ";
    source.Fire("E", "OnUpdate", "Properties");
    EXPECT_THAT(Paint("DrawText"), IsEmpty());
    RecordingDeviceContext context;
    Get().GetLGraph()->OnPaint(context);
    EXPECT_THAT(context.GetRows("SetPen 32"), testing::SizeIs(1)) << "crossed out";
}

TEST_F(LabChartTest, AnswersForItsPlots) {
    MakeChart("DeltaCIELab");
    EXPECT_EQ(Number("abGraph", "XScaleBegin"), -5);
    EXPECT_EQ(Number("LGraph", "YScaleBegin"), -5);
    EXPECT_EQ(Number("LGraph", "XScaleEnd"), 1);
    struct {
        char const *plot, *key, *expected;
    } const texts[] = {
        {"abGraph", "XScaleGraduation", "1.00000"},
        {"LGraph", "YScaleGraduation", "1.00000"},
        {"LGraph", "XScaleGraduation", "0"},
        {"abGraph", "XValueBegin", ""},
        {"LGraph", "XValueBegin", "1"},
        {"abGraph", "JustificationOnX", "Yes"},
        {"abGraph", "ColorBarType", "ab"},
        {"LGraph", "ColorBarType", "L"},
        {"abGraph", "ToolTipText 3", "the plane's"},
        {"LGraph", "ToolTipText 3", "the bar's"},
    };
    source.values[{"E", "ToolTipText 3 ab"}] = "the plane's";
    source.values[{"E", "ToolTipText 3 L"}] = "the bar's";
    for (auto const& row : texts)
        EXPECT_EQ(Get().GetValue(row.plot, row.key).GetString().GetStdString(), row.expected)
            << row.plot << row.key;
    // What a graph asks of its settings is no row.
    for (char const* const key : {"XScaleDrawLines", "YScaleDrawLines", "BackgroundBitmap", "0", ""})
        for (char const* const plot : {"abGraph", "LGraph"})
            EXPECT_FALSE(Get().GetValue(plot, key).IsValid()) << key;
    EXPECT_FALSE(Get().GetValue("LGraph", "DeltaXValue").IsValid());
    EXPECT_EQ(Get().GetValue("abGraph", "LineWidth").GetLong(), 2);
    source.values[{"Other", "Key"}] = 5L;
    EXPECT_EQ(Get().GetValue("Other", "Key").GetLong(), 5);
}

TEST_F(LabChartTest, TurnsRowsIntoPairs) {
    Row("1", {"n", "50", "20", "90"});
    struct {
        char const* space;
        std::vector<double> plane, bar;
    } const rows[] = {{"CIELab", {20, 90}, {0, 50}},      {"CIELCh", {0, 20}, {0, 50}},
                      {"DeltaLCHmg", {0, 20}, {0, 50}},   {"CIExyY", {50, 20}, {0, 90}},
                      {"CIELuv", {20, 90}, {0, 50}},      {"DeltaCIEXYZ", {50, 20}, {0, 90}},
                      {"DeltaCIELChuv", {0, 20}, {0, 50}}};
    for (auto const& row : rows) {
        MakeChart(row.space);
        Get().OnUpdate("2;1-2;1");
        auto const plane = Pair("abGraph", "1");
        ASSERT_EQ(plane.size(), 2U);
        EXPECT_NEAR(plane[0], row.plane[0], 1e-9) << row.space;
        EXPECT_NEAR(plane[1], row.plane[1], 1e-9) << row.space;
        EXPECT_EQ(Pair("LGraph", "1"), row.bar) << row.space;
    }
    EXPECT_NE(Pair("abGraph", "1")[0], 0) << "the cosine of 90 degrees isn't exactly 0";
    EXPECT_ANY_THROW(Pair("abGraph", "2"));
}

TEST_F(LabChartTest, SendsItsRowsToThePlotsOfTheMessage) {
    MakeChart("CIELab");
    Row("1", {"n", "50", "20", "30"});
    Row("2", {"m", "60", "-20", "30"});
    struct {
        char const* message;
        std::size_t plane, bar;
    } const rows[] = {{"1;1-1;2", 1, 2},
                      {"2;1-2;2", 2, 2},
                      {"Properties", 1, 1},
                      {"1;1-2;2|NoRepaint", 2, 2},
                      {"nothing", 2, 2}};
    for (auto const& row : rows) {
        int const before = Paints();
        source.Fire("E", "OnUpdate", row.message);
        EXPECT_EQ(Crosses(*Get().GetAbGraph()), row.plane) << row.message;
        EXPECT_EQ(Crosses(*Get().GetLGraph()), row.bar) << row.message;
        EXPECT_GE(Paints(), before + 1);
    }
    EXPECT_ANY_THROW(Get().OnUpdate("1;2-1;2")) << "rows begin at 1";
    EXPECT_EQ(Pair("LGraph", "2"), (std::vector{0.0, 60.0})) << "what was there stays";
    source.values[{"E", "ColorScale"}] = "No such space";
    EXPECT_ANY_THROW(Get().OnUpdate("Properties"));
    EXPECT_EQ(Paint("DrawText").size(), 4U) << "the space before";
}

} // namespace
