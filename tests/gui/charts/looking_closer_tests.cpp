// Charts that are told to show more than their contract: scales along the edges, cases, bands, differences,
// a cursor, a part of the whole.
#include "gui/charts/EdgeAxes.h"
#include "gui/charts/XYColorChart.h"
#include "gui/charts/XYGraph.h"
#include "tests/gui/charts/ChartFixture.h"

#include <cmath>

namespace {

using namespace TestSupport;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using Utilities::Anything;

Anything Column(std::initializer_list<double> values) {
    Anything::VectorOfAnythings column(static_cast<std::uint32_t>(values.size()) + 1);
    column[0] = "curve";
    std::copy(values.begin(), values.end(), column.begin() + 1);
    return {column};
}

struct LookingCloser : testing::Test, ChartFixture<GUI::XYGraph> {
    /// Two curves of three values, from 400 in steps of 100, in 100 by 50 pixels.
    void MakeCurves(Attributes attributes) {
        source.values = {
            {{"E", "XScaleBegin"}, 400.0},         {{"E", "XScaleEnd"}, 600.0},
            {{"E", "YScaleBegin"}, 0.0},           {{"E", "YScaleEnd"}, 1.0},
            {{"E", "ValueBegin"}, "400"},          {{"E", "ValueStep"}, "100"},
            {{"E", "1"}, Column({0.2, 0.4, 0.6})}, {{"E", "2"}, Column({0.5, 0.25, std::nan("")})}};
        Make(attributes);
        source.Fire("E", "OnUpdate", "Properties");
        source.Fire("E", "OnUpdate", "1;1-3;2");
    }
    GUI::PlotRange Shown() { return Get().GetShownRange(); }
    std::map<std::string, std::string> LastTold() {
        std::map<std::string, std::string> told;
        for (auto const& [asker, name, value] : source.told)
            told[name] = value.IsOfTypeString() ? value.GetString().GetStdString() : "a value";
        return told;
    }
};

} // namespace

TEST_F(LookingCloser, ZoomsAroundThePointUnderTheMouseAndComesBack) {
    MakeCurves({{"Zoom", "Yes"}});
    EXPECT_TRUE(Get().OnWheel(1, 25, 50));
    EXPECT_DOUBLE_EQ(Shown().xEnd - Shown().xBegin, 160);
    EXPECT_DOUBLE_EQ(Shown().AtX(0.25), 450) << "stays where it is";
    EXPECT_DOUBLE_EQ(Shown().yBegin, 0);
    EXPECT_EQ(LastTold()["View"], "a value");
    Get().OnViewKey(GUI::ViewKey::PanLeft);
    EXPECT_DOUBLE_EQ(Shown().xBegin, 400) << "not beyond the whole";
    for (int i = 0; i < 100; ++i) Get().OnWheel(10, 0, 0);
    EXPECT_NEAR(Shown().xEnd - Shown().xBegin, 0.2, 1e-9) << "at least a thousandth";
    Get().OnViewKey(GUI::ViewKey::Whole);
    EXPECT_EQ(Shown(), (GUI::PlotRange{400, 600, 0, 1}));
    EXPECT_EQ(LastTold()["View"], "");
    // A host that kept the view gives it back; one beyond the whole is cut.
    source.values[{"E", "View"}] = GUI::PlotRange{500, 900, 0.5, 1}.Write();
    source.Fire("E", "OnUpdate", "Properties");
    EXPECT_EQ(Shown(), (GUI::PlotRange{400, 600, 0.5, 1}));
}

TEST_F(LookingCloser, ARubberBandShowsItsBoxAndOneToTheLeftTheWhole) {
    MakeCurves({{"Zoom", "Yes"}});
    auto const drag = [this](GUI::KeyState key, long x1, long y1, long x2, long y2) {
        Get().OnLeftButtonDown(key, x1, y1);
        Get().OnMouseMove(x2, y2);
        auto const band = Paint("DrawRectangle");
        Get().OnLeftButtonUp(x2, y2);
        return band;
    };
    EXPECT_THAT(drag(GUI::KeyState::None, 25, 10, 75, 40), ElementsAre("DrawRectangle 25 10 76 41"));
    EXPECT_DOUBLE_EQ(Shown().xBegin, 450);
    EXPECT_DOUBLE_EQ(Shown().yEnd, 0.8);
    drag(GUI::KeyState::Control, 50, 20, 60, 20);
    EXPECT_DOUBLE_EQ(Shown().xBegin, 440) << "moved with the mouse";
    drag(GUI::KeyState::None, 50, 20, 51, 30);
    EXPECT_DOUBLE_EQ(Shown().xBegin, 440) << "a click";
    drag(GUI::KeyState::None, 75, 40, 25, 10);
    EXPECT_EQ(Shown(), (GUI::PlotRange{400, 600, 0, 1}));
}

TEST_F(LookingCloser, TheCursorReadsEachCurveAtAValue) {
    MakeCurves({{"Cursor", "Yes"}});
    element->SetSize(200, 100);
    Get().OnMouseMove(120, 5);
    EXPECT_THAT(Paint("DrawText"), ElementsAre(HasSubstr("500 nm"), HasSubstr("curve"), HasSubstr("0.4000"),
                                               HasSubstr("curve"), HasSubstr("0.2500")));
    EXPECT_THAT(Paint("DrawLine"), Contains("DrawLine 100 0 100 100"));
    Get().OnViewKey(GUI::ViewKey::Right);
    EXPECT_THAT(Paint("DrawText"), Contains(HasSubstr("\u2013"))) << "no number is no zero";
    EXPECT_DOUBLE_EQ(source.values[FakeDataSource::Key("E", "Cursor")].GetDouble(), 600);
    EXPECT_TRUE(Get().OnViewKey(GUI::ViewKey::Leave));
    EXPECT_THAT(Paint("DrawText"), ElementsAre());
    EXPECT_FALSE(Get().OnViewKey(GUI::ViewKey::Whole)) << "without zoom the key is the window's";
    MakeCurves({});
    EXPECT_FALSE(Get().OnWheel(1, 2, 3)) << "off unless described";
    EXPECT_FALSE(Get().OnViewKey(GUI::ViewKey::Right));
}

TEST_F(LookingCloser, CurvesAreSetOffDifferencesTakenAndBandsFilled) {
    source.values[{"E", "StandardCurve"}] = 0L;
    MakeCurves({{"Difference", "Yes"}, {"Band", "Range"}});
    source.values[{"E", "StandardCurve"}] = 0L;
    source.Fire("E", "OnUpdate", "1;1-3;2");
    EXPECT_EQ(GUI::NumberTableOf(*element),
              "\tcurve\tcurve\n400\t0\t0.3\n500\t0\t-0.15000000000000002\n600\t0\t\n");
    EXPECT_THAT(Paint("FillPolygon"), ElementsAre("FillPolygon 0,35 50,57 50,57 0,35"));
    MakeCurves({{"Cases", "Yes"}, {"BackgroundColor", "0,0,0"}});
    source.values[{"E", "ActiveCurve"}] = static_cast<short>(0);
    source.values[{"E", "CurveColor 1"}] = "20;20;20";
    source.values[{"E", "LegendCurves"}] = Anything::VectorOfAnythings();
    auto const pens = Paint("SetPen");
    // The pale one first in a case, then the active one on top.
    EXPECT_THAT(std::vector(pens.end() - 4, pens.end()),
                ElementsAre("SetPen 168,168,168 2 0", "SetPen 20,20,20 1 0", "SetPen 22,22,22 3 0",
                            "SetPen 255,0,0 1 0"));
}

TEST_F(LookingCloser, ScalesAreRoundAndTextsKeepApart) {
    auto const chart = host.Create(Node({{"GUIElementType", "XYChart"},
                                         {"ElementName", "C"},
                                         {"Axes", "Edges"},
                                         {"Legend", "Beside"},
                                         {"XTitle", "Wavelength / nm"},
                                         {"YTitle", "R"},
                                         {"Spectrum", "Yes"}}),
                                   &source);
    source.values = {{{"XYGraph", "XScaleBegin"}, 380.0},
                     {{"XYGraph", "XScaleEnd"}, 730.0},
                     {{"XYGraph", "YScaleEnd"}, 1.0},
                     {{"XYGraph", "YScaleBegin"}, 0.0},
                     {{"XYGraph", "1"}, Column({0.2})}};
    auto const rows = [&](unsigned long width, unsigned long height, char const* operation) {
        chart->SetSize(width, height);
        chart->OnUpdate("Properties");
        chart->OnUpdate("1;1-1;1");
        RecordingDeviceContext context;
        dynamic_cast<GUI::Pane&>(*chart).OnPaint(context);
        return context.GetRows(operation);
    };
    auto const wide = rows(600, 200, "DrawText");
    EXPECT_THAT(wide, Contains("DrawText 59 162 \"400\""));
    EXPECT_THAT(wide, AllOf(Contains(HasSubstr("\"700\"")), Contains(HasSubstr("\"1.0\"")),
                            Contains(HasSubstr("\"curve\""))));
    EXPECT_THAT(rows(600, 200, "DrawPixels"), ElementsAre(HasSubstr("DrawPixels 44 149 464 157 420")));
    auto const narrow = rows(260, 110, "DrawText");
    EXPECT_THAT(narrow, Not(Contains(HasSubstr("\"450\"")))) << "numbers thin out";
}

/// A context that is told which part of the pane is painted.
struct PartContext : RecordingDeviceContext, GUI::PaintedPart {
    explicit PartContext(GUI::PaneBox const& box) : box_(box) {}
    std::optional<GUI::PaneBox> GetPaintedBox() const override { return box_; }
    GUI::PaneBox box_;
};

TEST_F(LookingCloser, AFeedAddsValuesByRangeAndPaintsTheirPart) {
    MakeCurves({{"Live", "Yes"}});
    constexpr std::uint32_t many = 3000;
    Anything::VectorOfAnythings column(many + 1);
    column[0] = "feed";
    for (std::uint32_t i = 1; i <= many; ++i) column[i] = 0.5;
    source.values[{"E", "1"}] = Anything(column);
    source.values[{"E", "XScaleEnd"}] = 400.0 + many;
    source.values[{"E", "ValueStep"}] = "1";
    source.Fire("E", "OnUpdate", "Properties");
    source.Fire("E", "OnUpdate", "1;1-3000;1");
    source.values[{"E", "1;3000-3001"}] = Column({0.25, 0.75});
    int const before = source.asked[{"E", "1"}];
    source.Fire("E", "OnUpdate", "3000;1-3001;1");
    EXPECT_EQ(source.asked[FakeDataSource::Key("E", "1")], before) << "the old ones aren't asked for again";
    std::string const table = GUI::NumberTableOf(*element).GetStdString();
    EXPECT_NE(table.find("\n3398\t0.5\n3399\t0.25\n3400\t0.75\n"), std::string::npos);
    PartContext part({90, 0, 100, 50});
    Get().OnPaint(part);
    RecordingDeviceContext whole;
    Get().OnPaint(whole);
    EXPECT_LT(part.GetRows("LineTo").size(), whole.GetRows("LineTo").size());
    auto const ends = [](RecordingDeviceContext const& context) {
        auto const rows = context.GetRows("LineTo");
        return std::vector(rows.end() - 4, rows.end());
    };
    EXPECT_EQ(ends(part), ends(whole)) << "the same pixels";
}

struct SpotsCloser : testing::Test, ChartFixture<GUI::XYColorChart> {};

TEST(EdgeAxes, TicksEndAtAnyRange) {
    using GUI::EdgeAxes;
    EXPECT_EQ(EdgeAxes::Ticks(0, 1, 400, false),
              (std::vector<double>{0, 0.2, 0.4, 0.6000000000000001, 0.8, 1}));
    // Steps between two numbers that are next to each other, and none at all.
    EXPECT_TRUE(EdgeAxes::Ticks(0.3, 0.1 + 0.2, 400, false).empty());
    for (double const bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        EXPECT_TRUE(EdgeAxes::Ticks(0, bad, 400, true).empty());
}

TEST_F(SpotsCloser, KeepTheirProportionsAndTellTheNextOne) {
    source.values[{"E", "NrOfPatches"}] = 2L;
    Anything::MapOfAnythings spot;
    spot["XValue"] = 50.0;
    source.values[{"Patch1", "Data"}] = spot;
    source.values[{"E", "SelectedSample"}] = 0L;
    Make({{"Isotropic", "Yes"},
          {"Zoom", "Yes"},
          {"Cursor", "Yes"},
          {"ChromaRings", "50"},
          {"GamutEdge", "Yes"}});
    Get().OnUpdate({});
    EXPECT_THAT(Paint("DrawEllipse"), Contains("DrawEllipse 37 12 63 38")) << "50 are 12.5 pixels";
    EXPECT_GT(Count("LineTo"), 100U) << "what the screen shows";
    Get().OnLeftButtonDown(GUI::KeyState::None, 0, 0);
    Get().OnMouseMove(50, 10);
    Get().OnLeftButtonUp(50, 10);
    EXPECT_THAT(Paint("DrawEllipse"), Contains(HasSubstr("DrawEllipse"))) << "rings are still there";
    source.told.clear();
    Get().OnViewKey(GUI::ViewKey::Right);
    ASSERT_EQ(source.told.size(), 1U);
    EXPECT_DOUBLE_EQ(source.told[0].value.GetMapOfAnythings()["x"].GetDouble(), 50);
}
