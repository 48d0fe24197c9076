#include "gui/charts/XYGraph.h"
#include "tests/gui/charts/ChartFixture.h"

namespace {

using namespace TestSupport;
using Utilities::Anything;

struct XYGraphTest : testing::Test, ChartFixture<GUI::XYGraph> {
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

TEST_F(XYGraphTest, KeepsItsCurvesThroughAFailedUpdateAndOneWhileItPaints) {
    MakeCurves();
    source.values[{"E", "4"}] = Column("B", {"no number"});
    EXPECT_ANY_THROW(Get().OnUpdate("0;3-1;4"));
    EXPECT_EQ(Count("LineTo"), 3U) << "those before";

    // A host that brings new data when it is asked for a colour.
    struct Rereading : FakeDataSource {
        GUI::XYGraph* graph = nullptr;
        Anything GetValue(Utilities::String const& name, Utilities::String const& key) override {
            if (key == "CurveColor 0" && graph) std::exchange(graph, nullptr)->OnUpdate("0;3");
            return FakeDataSource::GetValue(name, key);
        }
    } rereading;
    rereading.values = source.values;
    rereading.values[{"E", "4"}] = Column("B", {"10", "0", "10"});
    auto const node = Node({{"ElementName", "E"}, {"DrawAxis", "No"}});
    element = Utilities::MakeSmart<GUI::XYGraph>();
    element->Initialize(host.GetWindow(), *node, &rereading);
    element->SetSize(100, 50);
    Get().OnUpdate("0;3-1;4|NoRepaint");
    rereading.graph = &Get();
    EXPECT_EQ(Count("LineTo"), 3U) << "the paint goes on with what it began with";
    EXPECT_EQ(Count("LineTo"), 1U);
    element = nullptr;
}

TEST_F(XYGraphTest, TellsOfTheItemUnderThePoint) {
    MakeCurves();
    source.values[{"E", "ToolTipText 2 Curve B"}] = "second of B";
    EXPECT_EQ(Get().GetToolTipText(60, 49).GetStdString(), "second of B");
    EXPECT_EQ(Get().GetToolTipText(71, 49).GetStdString(), "") << "further than a quarter in X";
    EXPECT_EQ(Get().GetToolTipText(60, 20).GetStdString(), "");
    EXPECT_EQ(Get().GetToolTipText(100, 1).GetStdString(), "") << "no text for that item";
}

} // namespace
