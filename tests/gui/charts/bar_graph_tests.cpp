#include "gui/charts/BarGraph.h"
#include "tests/gui/charts/ChartFixture.h"

#include <limits>

namespace {

using namespace TestSupport;
using testing::ElementsAre;
using Utilities::Anything;

/// A graph of 100 by 100 pixels; X from -1 to 3, Y from -10 to 10, bars at 0 and 2 that are 1 wide.
struct BarGraphTest : testing::Test, ChartFixture<GUI::BarGraph> {
    using Row = std::vector<std::string>;

    static Anything Column(std::vector<Anything> const& values) {
        Anything::VectorOfAnythings column(1 + static_cast<std::uint32_t>(values.size()));
        column[0] = "Title";
        for (std::uint32_t i = 0; i < values.size(); ++i) column[i + 1] = values[i];
        return {column};
    }
    void MakeBars(std::vector<Anything> const& values, Attributes attributes = {}) {
        source.values[{"E", "XScaleBegin"}] = -1.0;
        source.values[{"E", "XScaleEnd"}] = 3.0;
        source.values[{"E", "YScaleBegin"}] = -10.0;
        source.values[{"E", "YScaleEnd"}] = 10.0;
        source.values[{"E", "ValueBegin"}] = "0";
        source.values[{"E", "ValueStep"}] = "2";
        source.values[{"E", "BarWidth"}] = "1";
        source.values[{"E", "7"}] = Column(values);
        Make(attributes);
        element->SetSize(100, 100);
        Get().OnUpdate("1;7-" + Utilities::String(static_cast<unsigned long>(values.size())) + ";7");
    }
    /// What is drawn behind the background.
    Row Figures() {
        auto rows = Paint();
        rows.erase(rows.begin(), rows.begin() + 3);
        return rows;
    }
    /// What is drawn behind the axes.
    Row Bars() {
        auto rows = Figures();
        auto const axes = std::find(rows.begin(), rows.end(), "DrawLine 25 100 25 0");
        return {axes == rows.end() ? rows.end() : axes + 1, rows.end()};
    }
};

TEST_F(BarGraphTest, DrawsBandsAxesAndBarsInOrder) {
    MakeBars({"4"}, {{"LineColor", "1,2,3"}, {"Color", "0,0,201"}, {"DrawAxis", "No"}});
    EXPECT_THAT(Figures(),
                ElementsAre(
                    // The cell, the band twice, and what is beyond the limits.
                    "SetPen 224,224,224 1 0", "SetBrush 224,224,224", "FillRectangle 0 25 51 76",
                    "SetPen 192,192,192 1 0", "SetBrush 192,192,192", "FillRectangle 6 25 44 76",
                    "SetPen 192,192,192 1 0", "SetBrush 192,192,192", "FillRectangle 6 25 44 76",
                    "SetPen 224,224,224 1 0", "SetBrush 224,224,224", "FillRectangle 6 75 44 101",
                    "SetPen 224,224,224 1 0", "SetBrush 224,224,224", "FillRectangle 6 0 44 26",
                    "SetPen 1,2,3 5 0", "DrawLine 0 50 100 50", "DrawLine 25 100 25 0",
                    // The shadow, then the face in the lighter colour.
                    "SetPen 128,128,128 1 0", "SetBrush 128,128,128", "FillRectangle 9 32 36 52",
                    "SetPen 127,127,228 1 0", "SetBrush 127,127,228", "FillRectangle 12 30 37 50"));
}

TEST_F(BarGraphTest, ColoursBarsByTheirLimits) {
    auto const pens = [this](char const* value, char const* color) {
        source.values[{"E", "Color"}] = GUI::RGBVector(Anything(color)).GetAnything();
        MakeBars({value});
        Row rows = Bars();
        std::erase_if(rows, [](std::string const& row) { return !row.starts_with("SetPen"); });
        return rows;
    };
    EXPECT_THAT(pens("5", "0,0,199"), ElementsAre("SetPen 128,128,128 1 0", "SetPen 127,127,227 1 0"));
    EXPECT_THAT(pens("5.1", "0,0,200"), ElementsAre("SetPen 0,0,0 1 0", "SetPen 0,0,200 1 0"));
    EXPECT_THAT(pens("-5.1", "0,0,199"), ElementsAre("SetPen 128,128,128 1 0", "SetPen 0,0,199 1 0"))
        << "a dark bar has a grey shadow";
    source.values[{"E", "NegativLimit"}] = "7";
    EXPECT_THAT(pens("-6", "9,9,9"), ElementsAre("SetPen 128,128,128 1 0", "SetPen 132,132,132 1 0"));
    EXPECT_THAT(pens("0", "9,9,9"), ElementsAre()) << "no bar";
}

TEST_F(BarGraphTest, TearsBarsThatLeaveTheScale) {
    MakeBars({"10"});
    EXPECT_THAT(Bars(),
                ElementsAre("SetPen 0,0,0 1 0", "SetBrush 0,0,0", "FillPolygon 9,1 34,3 34,8 9,6",
                            "FillPolygon 9,8 34,11 34,16 9,13", "FillPolygon 9,16 34,18 34,51 9,51",
                            "SetPen 255,0,0 1 0", "SetBrush 255,0,0", "FillPolygon 12,0 36,2 36,7 12,5",
                            "FillPolygon 12,7 36,10 36,15 12,12", "FillPolygon 12,15 36,17 36,50 12,50"));
    MakeBars({"-99"});
    EXPECT_EQ(Bars()[5], "SetPen 255,0,0 1 0");
    EXPECT_EQ(Bars()[7], "FillPolygon 12,100 36,97 36,92 12,95");
    MakeBars({"99"}, {{"JustificationOnX", "No"}});
    auto const rows = Paint("FillPolygon");
    ASSERT_EQ(rows.size(), 6U);
    EXPECT_EQ(rows[0], "FillPolygon 101,13 98,38 93,38 96,13") << "the shadow falls below";
    EXPECT_EQ(rows[3], "FillPolygon 100,11 97,37 92,37 95,11");
    MakeBars({Anything(std::numeric_limits<double>::quiet_NaN()),
              Anything(std::numeric_limits<double>::infinity())});
    EXPECT_EQ(Bars().size(), 10U) << "one torn bar";
}

TEST_F(BarGraphTest, HatchesMissingValuesAndSeparatesGroups) {
    MakeBars({{}, "3"}, {{"ThickLineGraduation", "2"}, {"ShowLimit", "Yes"}});
    auto rows = Paint("DrawLine");
    EXPECT_THAT(rows, ElementsAre("DrawLine 6 33 14 25", "DrawLine 6 41 22 25", "DrawLine 6 49 30 25",
                                  "DrawLine 6 57 38 25", "DrawLine 6 65 43 28", "DrawLine 6 73 43 36",
                                  "DrawLine 12 75 43 44", "DrawLine 20 75 43 52", "DrawLine 28 75 43 60",
                                  "DrawLine 36 75 43 68",
                                  // The groups' edges, the axes and the limits.
                                  "DrawLine 0 100 0 0", "DrawLine 100 100 99 -1", "DrawLine 100 100 100 0",
                                  "DrawLine 0 50 100 50", "DrawLine 25 100 25 0", "DrawLine 0 25 100 25",
                                  "DrawLine 0 75 100 75"));
    source.values[{"E", "ShowLimit"}] = "0";
    Get().OnUpdate({});
    EXPECT_EQ(Paint("DrawLine").size(), rows.size() - 2);
}

TEST_F(BarGraphTest, ReadsByItsMessage) {
    MakeBars({"1", "2"});
    struct {
        Anything message;
        std::size_t bars;
        int paints;
    } const rows[] = {
        {"1;7-3;0", 3, 2}, // the second value of the end says nothing; what isn't given keeps its value
        {"1;7-2;7|NoRepaint", 2, 0}, // what went is forgotten
        {"Something", 2, 2},         // no data message
        {"Properties", 2, 0},        {{}, 2, 1},
    };
    source.values[{"E", "7"}] = Column({"1", "2"});
    for (auto const& row : rows) {
        int const before = Paints();
        Get().OnUpdate(row.message);
        EXPECT_EQ(Paints() - before, row.paints);
        EXPECT_EQ(Paint("FillRectangle 12").size() + Paint("FillRectangle 62").size(), 2U);
        EXPECT_EQ(Paint("SetBrush 192").size(), 2 * row.bars);
    }
    EXPECT_ANY_THROW(Get().OnUpdate("3;7")) << "two values for one bar";
    EXPECT_ANY_THROW(Get().OnUpdate("x;7"));
    EXPECT_EQ(Paint("SetBrush 192").size(), 4U) << "what was there stays";
    source.values[{"E", "7"}] = {};
    Get().OnUpdate("7;7");
    EXPECT_EQ(Paint("SetBrush 192").size(), 2U);
}

TEST_F(BarGraphTest, TellsOfTheBarUnderThePoint) {
    MakeBars({"1", "2"});
    source.values[{"E", "ToolTipText 2"}] = "the second";
    EXPECT_EQ(Get().GetToolTipText(70, 3).GetStdString(), "the second");
    EXPECT_EQ(Get().GetToolTipText(90, 3).GetStdString(), "") << "beside it";
    EXPECT_EQ(Get().GetToolTipText(25, 3).GetStdString(), "") << "no text";
    source.values[{"E", "ValueStep"}] = "0";
    Get().OnUpdate("1;7-2;7");
    EXPECT_EQ(Get().GetToolTipText(70, 3).GetStdString(), "");
}

TEST_F(BarGraphTest, SaysInWordsAndSignsWhatEachBarCameTo) {
    Anything::MapOfAnythings limit;
    limit["Upper"] = 3.0;
    limit["Warning"] = 1.5;
    Anything::VectorOfAnythings limits(2);
    limits[0] = limits[1] = Anything(limit);
    Anything::VectorOfAnythings names(2);
    names[0] = "dL";
    names[1] = "a name that is far too long";
    source.values[{"E", "Names"}] = Anything(names);
    source.values[{"E", "Limits"}] = Anything(limits);
    auto const draw = [&](double value, char const* operation) {
        MakeBars({value, Anything()}, {{"Labels", "Yes"}, {"Left", "20"}, {"Bottom", "20"}});
        element->SetSize(140, 120);
        return Paint(operation);
    };
    using testing::Contains;
    using testing::HasSubstr;
    auto const texts = draw(1, "DrawText");
    EXPECT_THAT(texts, Contains(HasSubstr("\"+1.00\"")));
    EXPECT_THAT(texts, Contains(HasSubstr("\"\u2013\""))) << "a missing value";
    EXPECT_THAT(texts, Contains(HasSubstr("\"dL\"")));
    EXPECT_THAT(texts, Contains(HasSubstr("\u2026\""))) << "a long name is cut off";
    // Disc, triangle and square are signs of their own; within there is none.
    std::size_t const within = draw(1, "FillPolygon").size();
    std::size_t const warning = draw(-2, "FillPolygon").size();
    std::size_t const beyond = draw(4, "FillPolygon").size();
    EXPECT_EQ(within, 0U);
    EXPECT_GT(warning, 0U);
    EXPECT_GT(beyond, 0U);
    EXPECT_THAT(draw(4, "SetBrush"), Contains("SetBrush 179,38,30"));
    EXPECT_THAT(draw(50, "FillPolygon"), testing::SizeIs(testing::Ge(beyond + 6))) << "torn";
}

} // namespace
