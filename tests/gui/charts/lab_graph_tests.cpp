#include "gui/charts/LabGraph.h"
#include "tests/gui/charts/ChartFixture.h"

namespace {

using namespace TestSupport;
using testing::ElementsAre;
using testing::IsEmpty;
using Utilities::Anything;

struct LabGraphTest : testing::Test, ChartFixture<GUI::LabGraph> {
    void MakeGraph() {
        auto const node = Node({{"ElementName", "E"}, {"BackgroundBitmap", "First"}},
                               {Node({{"GUIElementType", "LabGraphSetting"},
                                      {"ElementName", "Lab"},
                                      {"BackgroundBitmap", "Plane"},
                                      {"XYZeroPos", "50,60"},
                                      {"LZeroPos", "10, 90"},
                                      {"XYSize", "40"},
                                      {"LSize", "80"},
                                      {"XYRange", "20"},
                                      {"LRange", "20,60"},
                                      {"BackgroundRadius", "5"}}),
                                Node({{"GUIElementType", "LabGraphSetting"}, {"ElementName", "CIEXYY"}})});
        element = Utilities::MakeSmart<GUI::LabGraph>();
        element->Initialize(host.GetWindow(), *node, &source);
        element->SetSize(200, 200);
    }
    void Sample(char const* number, double first, double second, double third) {
        Anything::VectorOfAnythings values(3);
        values[0] = first;
        values[1] = second;
        values[2] = third;
        source.values[{"E", number}] = Anything(values);
    }
    std::vector<std::string> Stars() { return Paint("DrawLine"); }
    /// The first line of each star.
    std::vector<std::string> Tops() {
        std::vector<std::string> tops;
        auto const lines = Stars();
        for (std::size_t i = 0; i < lines.size(); i += 4) tops.push_back(lines[i]);
        return tops;
    }
};

TEST_F(LabGraphTest, DrawsStarsWhereItsViewSays) {
    source.values[{"E", "CurrentView"}] = "Lab";
    source.values[{"E", "BackgroundColor"}] = GUI::RGBVector(7, 8, 9).GetAnything();
    source.values[{"E", "CurrentSlice"}] = short{0};
    source.values[{"E", "XScaleDrawLines"}] = {};
    Sample("3", 30, 10, -5.1);
    MakeGraph();
    Get().OnUpdate("1;3");
    auto rows = Paint();
    auto const begin = std::find(rows.begin(), rows.end(), "DrawImage 0 0 \"Plane\"");
    ASSERT_NE(begin, rows.end());
    // Three pens of the empty graph, then the disc, and one star with its middle.
    EXPECT_THAT(std::vector(begin + 4, rows.end()),
                ElementsAre("SetPen 7,8,9 1 0", "SetBrush 7,8,9", "FillEllipse 45 55 55 65",
                            "SetPen 0,0,0 1 0", "DrawLine 70 64 70 69", "DrawLine 76 70 71 70",
                            "DrawLine 70 76 70 71", "DrawLine 64 70 69 70", "SetPen 255,255,255 1 0",
                            "SetBrush 255,255,255", "FillRectangle 69 69 72 72"));
    source.values[{"E", "ShowLValue"}] = true;
    source.values[{"E", "CurrentSlice"}] = "none";
    EXPECT_THAT(Tops(), ElementsAre("DrawLine 10 64 10 69", "DrawLine 70 64 70 69")) << "30 is 20 pixels up";
    EXPECT_THAT(Paint("FillRectangle"), testing::SizeIs(1)) << "the background alone";
    EXPECT_EQ(Get().GetChildrenList().GetSize(), 0U) << "settings are no elements";

    // Another order, the defaults, and the picture stays.
    source.values[{"E", "CurrentView"}] = "CIEXYY";
    Get().OnUpdate({});
    EXPECT_THAT(Tops(), IsEmpty()) << "lightness -5.1 is below the bar";
    source.values[{"E", "ShowLValue"}] = false;
    EXPECT_THAT(Tops(), ElementsAre("DrawLine 124 76 124 81"));
    EXPECT_EQ(Get().GetBackgroundBitmap().GetStdString(), "Plane");
}

TEST_F(LabGraphTest, LeavesOutWhatHasNoPlace) {
    source.values[{"E", "CurrentView"}] = "Lab";
    source.values[{"E", "ShowLValue"}] = true;
    source.values[{"E", "FirstData"}] = short{1};
    source.values[{"E", "LastData"}] = short{6};
    Sample("1", -1000, 1, 1);
    Sample("2", 40, 15, 15); // chroma beyond the plane: in the bar only
    Sample("3", 61, 0, 0);
    Sample("4", std::nan(""), 0, 0);
    Sample("5", 60, 20, 0);
    MakeGraph();
    Get().OnUpdate("all");
    EXPECT_THAT(Tops(), ElementsAre("DrawLine 10 44 10 49", "DrawLine 10 4 10 9", "DrawLine 90 54 90 59"))
        << "the sixth has no answer, and is at 0 below the bar";
    Get().OnUpdate("Properties");
    EXPECT_EQ(Tops().size(), 3U) << "data stay";
    source.values[{"E", "5"}] = "no vector";
    EXPECT_ANY_THROW(Get().OnUpdate("1;1-1;5"));
    EXPECT_EQ(Tops().size(), 3U);
    Get().OnUpdate("1;2-1;2");
    EXPECT_EQ(Tops().size(), 1U);
    Sample("2", -0.0000001, 0, 0);
    source.values[{"E", "CurrentView"}] = "CIEXYY";
    Get().OnUpdate("1;2");
    EXPECT_THAT(Tops(), ElementsAre("DrawLine 20 154 20 159", "DrawLine 100 84 100 89")) << "black is 0";
}

TEST_F(LabGraphTest, RefusesASettingThatCannotBeRead) {
    auto const node = Node({{"ElementName", "E"}}, {Node({{"ElementName", "Lab"}, {"XYZeroPos", "here"}})});
    source.values[{"E", "CurrentView"}] = "Lab";
    element = Utilities::MakeSmart<GUI::LabGraph>();
    EXPECT_ANY_THROW(element->Initialize(host.GetWindow(), *node, &source));
}

} // namespace
