// The panes that report the state of a press run.
#include "gui/press/TrendGraphicHeader.h"
#include "gui/press/TrendsPressSection.h"
#include "gui/press/ZonesPressSection.h"
#include "tests/gui/press/PressFixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;

struct TrendHeaderTest : PressTest<Ostrinda::TrendGraphicHeader> {
    void Open(std::initializer_list<std::pair<char const*, char const*>> attributes = {},
              unsigned long height = 50) {
        Make("TrendGraphicHeader", attributes, 200, height);
        element->OnUpdate({});
    }
};

TEST_F(TrendHeaderTest, PaintsALineForEachSheet) {
    Set("Values", Values({"10:58", " 11:02"}));
    Set("IndexOKSheet", 1L);
    Open({{"ItemHeight", "20"}, {"Columns", "30,70,90"}, {"SeperatorHeight", "2"}, {"SeparatorHeight", "4"}},
         61);
    EXPECT_EQ(Paint(),
              (Rows{"SetBrush 255,255,255",       "SetPen 255,255,255 1 0",     "FillRectangle 0 0 200 61",
                    "SetPen 255,255,255 1 0",     "SetBrush 255,255,255",       "FillRectangle 30 0 70 16",
                    "SetPen 255,255,255 1 0",     "SetBrush 255,255,255",       "FillRectangle 70 0 200 16",
                    "SetTextColor 0,0,0",         "SetFont 12 0 0 \"Arial\" 0", "DrawText 31 0 \"1\"",
                    "DrawText 70 0 \"10:58\"",    "SetPen 255,255,255 1 0",     "SetBrush 255,255,255",
                    "FillRectangle 30 20 70 36",  "SetPen 255,255,255 1 0",     "SetBrush 255,255,255",
                    "FillRectangle 70 20 200 36", "SetPen 255,0,0 1 0",         "SetBrush 255,0,0",
                    "FillRectangle 0 20 30 36",   "SetTextColor 0,0,0",         "SetFont 12 0 0 \"Arial\" 0",
                    "DrawText 31 20 \"2\"",       "DrawText 70 20 \"11:02\"",   "SetPen 255,255,255 1 0",
                    "SetBrush 255,255,255",       "FillRectangle 30 40 70 56",  "SetPen 255,255,255 1 0",
                    "SetBrush 255,255,255",       "FillRectangle 70 40 200 56", "SetTextColor 0,0,0",
                    "SetFont 12 0 0 \"Arial\" 0", "DrawText 1 0 \"OK\""}));
    Open({{"SeparatorHeight", "4"}, {"Columns", "1,x,2"}, {"DateBackground", "1,2"}});
    EXPECT_THAT(Paint("FillRectangle"), Contains("FillRectangle 70 0 200 19")) << "its partner is missing";
}

TEST_F(TrendHeaderTest, ShowsARangeInTheHeightThatItsCountGives) {
    Set("ElementCounter", 10L);
    Set("Range", "3-5");
    Set("Values", Values({"a", "b", "c", "d"}));
    Open({}, 200);
    EXPECT_THAT(Paint("FillRectangle"), Contains("FillRectangle 32 160 70 179"));
    EXPECT_THAT(Paint("DrawText"), ElementsAre("DrawText 33 0 \"3\"", "DrawText 70 0 \"c\"",
                                               "DrawText 33 20 \"4\"", "DrawText 70 20 \"d\""));
    for (char const* const bad : {"7", "1-2-3", "a-b", "-3-5", "99999999999-1"}) {
        Set("Range", bad);
        element->OnUpdate("Properties");
        EXPECT_THAT(Paint("DrawText"), Contains("DrawText 33 0 \"3\"")) << bad;
    }
    Set("Range", "0-9");
    Set("IndexOKSheet", 0L);
    element->OnUpdate("Properties");
    EXPECT_THAT(Paint("DrawText"), IsSupersetOf({"DrawText 33 0 \"1\"", "DrawText 1 0 \"OK\""}));
    EXPECT_EQ(Paint("DrawText").size(), 9U);
    Set("Values", Values({}));
    element->OnUpdate("Properties|NoRepaint");
    EXPECT_EQ(Paint("DrawText").size(), 9U) << "settings don't read values";
    element->OnUpdate("Values");
    EXPECT_THAT(Paint("DrawText"), ElementsAre("DrawText 1 0 \"OK\""));
    Set("ElementCounter", 2000000000L);
    element->OnUpdate("Properties");
    EXPECT_EQ(Paint().size(), 3U) << "no line has a pixel";
}

TEST_F(TrendHeaderTest, MarksSheetsAndAddsColumnsIfAsked) {
    Set("Values", Values({"10:58\t1.52", " 11:02\t1.5"}));
    Set("IndexSelected", 2L);
    Set("IndexOKSheet", 1L);
    Open({{"NewestFirst", "Yes"},
          {"MarkSelected", "Yes"},
          {"Signs", "Yes"},
          {"Cells", "150"},
          {"OKColumn", "160"}});
    EXPECT_THAT(Paint("DrawText"),
                ElementsAre("DrawText 33 0 \"2\"", "DrawText 70 0 \"11:02\"", "DrawText 132 0 \"1.5\"",
                            "DrawText 33 20 \"1\"", "DrawText 70 20 \"10:58\"", "DrawText 126 20 \"1.52\"",
                            "DrawText 166 20 \"OK\""));
    EXPECT_THAT(Paint(), IsSupersetOf({"FillRectangle 0 0 4 19", "DrawRectangle 160 22 184 37",
                                       "SetFont 14 0 0 \"Arial\" 1"}));
    EXPECT_THAT(Paint("FillRectangle"), Not(Contains("FillRectangle 0 0 32 19")));
}

struct UnitTest : PressTest<Ostrinda::TrendsPressSection> {};

TEST_F(UnitTest, WritesIntoThePicturesPlaceInInksThatCanBeRead) {
    struct {
        Anything color;
        char const* ink;
    } const rows[] = {
        {Color(0, 0, 255), "255,255,255"}, {Color(255, 0, 0), "0,0,0"}, {Color(224, 0, 1), "255,255,255"}};
    Set("ColorName", "Cyan");
    Set("TopLineText", "2");
    Set("PressSectionText", "II");
    for (auto const& row : rows) {
        Set("TopLineColor", row.color);
        Make("TrendsPressSection", {{"BarHeight", "8"}}, 100, 120);
        EXPECT_THAT(Paint("SetTextColor"), ElementsAre(std::string("SetTextColor ") + row.ink,
                                                       "SetTextColor 0,0,0", "SetTextColor 255,255,255"));
    }
    EXPECT_THAT(Paint("DrawText"),
                ElementsAre("DrawText 46 46 \"2\"", "DrawText 5 26 \"Cyan\"", "DrawText 40 108 \"II\""));
    EXPECT_THAT(Paint(), IsSupersetOf({"FillRectangle 0 112 100 120", "DrawImage 0 45 \"TrendPressSection\"",
                                       "FillRectangle 0 45 57 62"}));
    Set("ToolTipText", 5L);
    EXPECT_EQ(host.GetToolTip(Pane(), 1, 1), "");
}

TEST_F(UnitTest, IsACardWithAVerdictIfAsked) {
    Set("Verdict", "Fail");
    Set("IsActive", true);
    Set("TopLineColor", Color(9, 8, 7));
    Make("TrendsPressSection", {{"Card", "Yes"}}, 130, 100);
    EXPECT_THAT(Paint(),
                IsSupersetOf({"SetPen 0,0,0 2 0", "FillRectangle 10 10 46 46", "DrawText 31 66 \"FAIL\""}));
}

struct ZonesCaptionTest : PressTest<Ostrinda::ZonesPressSection> {};

TEST_F(ZonesCaptionTest, WritesItsCaptionOverALine) {
    Set("Caption", "Zones");
    Set("BackgroundColor", Color(10, 10, 10));
    Make("ZonesPressSection", {{"FontSize", "8"}, {"Bold", "Yes"}}, 101, 30);
    EXPECT_EQ(Paint(), (Rows{"SetBrush 10,10,10", "SetPen 10,10,10 1 0", "FillRectangle 0 0 101 30",
                             "SetPen 0,0,0 5 0", "DrawLine 0 30 101 30", "SetTextColor 255,255,255",
                             "SetFont 8 0 0 \"Arial\" 1", "DrawText 37 13 \"Zones\""}));
}

} // namespace
