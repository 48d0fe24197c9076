#include "gui/press/TablePicture.h"
#include "tests/gui/press/PressFixture.h"

namespace {

struct TablePictureTest : PressTest<GUI::TablePicture> {
    TablePictureTest() {
        Set("TableSize", Longs({1000, 500}));
        Set("MeasureStrip", Map({{"1", Map({{"Coordinates", Longs({100, 400, 150, 400})},
                                            {"Colors", Values({Color(1, 2, 3), Color(4, 5, 6)})}})}}));
        Set("InPictureFields",
            Map({{"1",
                  Map({{"Index", 3L}, {"Color", Color(9, 8, 7)}, {"Coordinates", Longs({500, 100, 7})}})}}));
        Set("RegisterMarks", Values({Longs({200, 200})}));
        Set("NumberOfZones", 4L);
        Set("ToleranceStates", Longs({0, 1, 2}));
    }
    void Open(std::initializer_list<std::pair<char const*, char const*>> attributes,
              unsigned long width = 200, unsigned long height = 106) {
        Make("TablePicture", attributes, width, height);
        element->OnUpdate({});
    }
    std::pair<short, short> Pixel(double x, double y) {
        short pixelX = 0;
        short pixelY = 0;
        Pane().TableToPixel(x, y, pixelX, pixelY);
        return {pixelX, pixelY};
    }
};

TEST_F(TablePictureTest, PutsASheetOnTheAxisThatIsShort) {
    // Scales 0.2 and 0.212: the offset is half the scaled size on the other axis.
    Open({});
    EXPECT_EQ(Pixel(1000, 500), std::pair(short{200}, short{110}));
    Open({}, 200, 50);
    EXPECT_EQ(Pixel(999, 499), std::pair(short{109}, short{49}));
    Open({{"Centred", "Yes"}}, 200, 50);
    EXPECT_EQ(Pixel(999, 499), std::pair(short{149}, short{49}));
    Open({{"Type", "2"}});
    EXPECT_EQ(Pixel(1000, 500), std::pair(short{200}, short{100})) << "its own scale for each axis";
    EXPECT_EQ(Pixel(1e9, -1e9), std::pair(short{32767}, short{-32768}));
}

TEST_F(TablePictureTest, PaintsTheSheet) {
    Set("SelectedInPictureFields", 3L);
    Set("SelectedPosition", Longs({250, 250}));
    Open({}, 200, 100);
    EXPECT_EQ(
        Paint(),
        (Rows{"SetBrush 255,255,255", "SetPen 255,255,255 1 0", "FillRectangle 0 0 200 100",
              // The strip's corners are (20, 80) and (30, 80): whole patches, then one that is cut.
              "SetBrush 1,2,3", "SetPen 1,2,3 1 0", "FillRectangle 18 78 24 84", "SetBrush 4,5,6",
              "SetPen 4,5,6 1 0", "FillRectangle 22 78 28 84", "SetBrush 1,2,3", "SetPen 1,2,3 1 0",
              "FillRectangle 26 78 32 84", "SetBrush 4,5,6", "SetPen 4,5,6 1 0", "FillRectangle 30 78 31 84",
              "SetBrush 95,200,126", "SetPen 95,200,126 1 0", "FillRectangle 90 10 110 30",
              "SetPen 0,0,0 2 0", "DrawLine 91 20 108 20", "DrawLine 100 11 100 28", "SetBrush 0,0,128",
              "SetPen 0,0,128 1 0", "FillEllipse 95 15 105 25", "SetBrush 9,8,7", "SetPen 9,8,7 1 0",
              "FillEllipse 98 18 102 22", "SetPen 0,0,0 1 0", "DrawLine 33 40 39 40", "DrawLine 42 40 48 40",
              "DrawLine 40 33 40 39", "DrawLine 40 42 40 48", "SetPen 28,200,28 2 0",
              "DrawEllipse 41 41 59 59", "DrawLine 44 44 56 56", "DrawLine 56 44 44 56"}));
}

TEST_F(TablePictureTest, PaintsZonesAndTheirStates) {
    for (char const* const key : {"MeasureStrip", "InPictureFields"}) Set(key, Map({}));
    Set("RegisterMarks", Values({}));
    Open({{"Type", "2"}, {"ZonesGraduation", "2"}});
    EXPECT_EQ(Paint(),
              (Rows{"SetBrush 255,255,255",   "SetPen 255,255,255 1 0",       "FillRectangle 0 0 200 106",
                    "SetPen 0,0,0 6 0",       "DrawLine 0 103 200 103",       "SetPen 233,233,233 2 0",
                    "DrawLine 0 25 200 25",   "DrawLine 0 50 200 50",         "DrawLine 0 75 200 75",
                    "SetPen 233,233,233 2 0", "DrawLine 50 0 50 100",         "SetPen 0,0,0 1 0",
                    "DrawLine 100 0 100 100", "SetPen 233,233,233 2 0",       "DrawLine 150 0 150 100",
                    "SetPen 0,0,0 1 0",       "DrawLine 200 0 200 100",       "SetPen 0,0,0 1 0",
                    "DrawLine 0 0 0 106",     "DrawLine 199 0 199 106",       "SetFont 12 0 0 \"Arial\" 1",
                    "SetBrush 20,178,109",    "SetPen 20,178,109 0 0",        "FillRectangle 2 95 48 103",
                    "SetTextColor 0,0,0",     "DrawText 3 85 \"1\"",          "SetBrush 255,249,164",
                    "SetPen 255,249,164 1 0", "FillRectangle 52 95 98 103",   "SetBrush 233,0,41",
                    "SetPen 233,0,41 1 0",    "FillRectangle 102 95 148 103", "SetTextColor 0,0,0",
                    "DrawText 103 85 \"3\""}));
    int const paints = host.GetPaintCount(Pane());
    Set("ToleranceStates", Longs({2, 1, 2}));
    Set("NumberOfZones", 1L);
    element->OnUpdate("ToleranceStates");
    EXPECT_EQ(host.GetPaintCount(Pane()), paints + 1) << "the one zone that changed";
    EXPECT_EQ(Paint("SetBrush 233,0,41").size(), 2U);
    element->OnUpdate("ToleranceStates");
    EXPECT_EQ(host.GetPaintCount(Pane()), paints + 1) << "nothing did";
    element->OnUpdate({});
    EXPECT_EQ(Paint("DrawLine"),
              (Rows{"DrawLine 0 103 200 103", "DrawLine 0 0 0 106", "DrawLine 199 0 199 106"}));
    EXPECT_EQ(Paint("FillRectangle").size(), 1U);
    Set("NumberOfZones", 2000000000L);
    element->OnUpdate({});
    EXPECT_LT(Paint("DrawLine").size(), 40000U);
}

TEST_F(TablePictureTest, ShowsItsSignsAndNeutralMarksOnlyIfAsked) {
    Set("SelectedInPictureFields", 3L);
    Open({{"Type", "2"}, {"Signs", "Yes"}, {"BoxHeight", "18"}});
    EXPECT_THAT(Paint("FillRectangle"), testing::Contains("FillRectangle 2 85 48 103"));
    EXPECT_EQ(Paint("FillPolygon").size(), 4U) << "a triangle with its bar, a square with its cross";
    Open({{"NeutralMarks", "Yes"},
          {"FieldNumbers", "Yes"},
          {"SurroundColor", "198,198,198"},
          {"Centred", "Yes"}},
         200, 120);
    EXPECT_THAT(Paint(), testing::IsSupersetOf({"FillRectangle 0 10 200 110", "DrawEllipse 85 15 115 45",
                                                "DrawText 116 10 \"3\""}));
    EXPECT_THAT(Paint("SetBrush"), testing::Not(testing::Contains("SetBrush 0,0,128")));
}

TEST_F(TablePictureTest, ReadsWhatTheCommandNames) {
    Open({});
    std::size_t const whole = Paint().size();
    Set("SelectedPosition", Longs({1, 1}));
    Set("RegisterMarks", Values({}));
    element->OnUpdate("SelectionChanged");
    EXPECT_EQ(Paint("DrawEllipse").size(), 1U);
    source.values.erase({"P", "SelectedPosition"});
    element->OnUpdate("Other");
    element->OnUpdate({});
    EXPECT_EQ(Paint("DrawEllipse").size(), 1U) << "an answer that isn't there changes nothing";
    element->OnUpdate("All");
    EXPECT_EQ(Paint().size(), whole - 5) << "neither the position nor the mark with its pen";
    int const paints = host.GetPaintCount(Pane());
    source.Fire("P", "OnUpdate");
    EXPECT_EQ(host.GetPaintCount(Pane()), paints + 1);
    Set("MeasureStrip", Map({{"1", Map({{"Coordinates", Longs({0, 0, 9, 9})}})}}));
    Set("NumberOfZones", 9L);
    EXPECT_THROW(element->OnUpdate({}), Norvelian::Utilities::Exceptions::OutOfRangeException);
    EXPECT_EQ(Paint().size(), whole - 5) << "all or nothing";
    Set("TableSize", Longs({0, 500}));
    Set("MeasureStrip", Map({}));
    element->OnUpdate({});
    EXPECT_EQ(Paint().size(), 3U) << "the ground alone";
}

TEST_F(TablePictureTest, PushesAStripInFromTheEdgeAndCutsItAtTheOther) {
    auto const strip = [](std::initializer_list<long> corners) {
        return Map({{"1", Map({{"Coordinates", Longs(corners)}, {"Colors", Values({Color(1, 1, 1)})}})}});
    };
    Set("MeasureStrip", strip({0, 500, 0, 0}));
    Open({{"Type", "3"}}, 100, 20);
    EXPECT_EQ(Paint("FillRectangle").size(), 6U);
    EXPECT_EQ(Paint("FillRectangle")[1], "FillRectangle 0 0 6 6") << "pushed in, so that it is whole";
    Set("MeasureStrip", strip({-90000, 0, 90000, 20}));
    element->OnUpdate({});
    EXPECT_EQ(Paint("FillRectangle").size(), 26U) << "no farther than the pane";
    EXPECT_EQ(Paint("DrawLine").size(), 4U) << "marks, no crosses of fields";
}

} // namespace
