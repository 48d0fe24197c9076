#include "gui/colour/PalimarSky.h"
#include "gui/elements/DialogHandler.h"
#include "gui/elements/DropDataObject.h"
#include "tests/gui/charts/ChartFixture.h"
#include "tests/support/FunctionCallback.h"

#include <cmath>
#include <map>

namespace {

using namespace TestSupport;
using GUI::Pane;
using GUI::RGBVector;
using testing::ElementsAre;
using testing::IsEmpty;
using Utilities::Anything;
using Utilities::String;

/// A data source that takes every drag.
struct DropTarget : GUI::DialogHandler {
    FakeDataSource values;

    Anything GetValue(String const& element, String const& name) override {
        return values.GetValue(element, name);
    }
    GUI::DropEffect OnDragOver(GUI::PlatformIndependentWindowID const&, GUI::DropDataObject const&,
                               GUI::KeyState const&, long, long) override {
        return GUI::DropEffect::Copy;
    }
};
struct NoData : GUI::DropDataObject {
    bool HasFormat(String const&) const override { return false; }
    Anything GetData(String const&) const override { return {}; }
};

struct HarmonyTest : testing::Test {
    FakeWindowHost host;
    DropTarget target;
    FakeDataSource source;
    FakeDataSource* values = &source;
    Utilities::SmartPointer<GUI::GUIElement> element;

    Pane& Make(char const* type, unsigned long width, unsigned long height, Attributes attributes,
               GUI::DialogDataSource* data = nullptr) {
        auto const node = Node(attributes);
        (*node)["GUIElementType"] = type;
        (*node)["ElementName"] = "E";
        (*node)["BackgroundColor"] = "7,7,7";
        element = host.Create(node, data ? data : &source);
        element->SetSize(width, height);
        return Get();
    }
    Pane& Get() { return dynamic_cast<Pane&>(*element); }
    RecordingDeviceContext::Rows Paint(char const* operation = "") {
        RecordingDeviceContext context;
        Get().OnPaint(context);
        return context.GetRows(operation);
    }
    void Color(int number, RGBVector color, bool inGamut = true) {
        color.SetInGamut(inGamut);
        values->values[{"E", "Color of Slice " + std::to_string(number)}] = color.GetAnything();
    }
    void Wheel(short slices, double angle = 0) {
        values->values[{"E", "NumberOfSlices"}] = slices;
        values->values[{"E", "BaseAngle"}] = angle;
    }
    void Drag(long x, long y) { Get().OnDragOver(NoData(), GUI::KeyState(), x, y); }
};

TEST_F(HarmonyTest, AWheelIsDrawnInOrder) {
    Make("ColorWheel", 140, 120, {{"BorderWidth", "10"}, {"CenterRadius", "5"}});
    EXPECT_THAT(Paint("FillPie"), ElementsAre("FillPie 70 60 50 0 360")) << "before the first update";
    EXPECT_THAT(Paint("SetBrush 100,100,100"), testing::SizeIs(2));
    Wheel(2, 30);
    Color(0, {1, 2, 3});
    Color(1, {4, 5, 6}, false);
    source.values[{"E", "CurrentSlice"}] = short{1};
    source.values[{"E", "SelectedSlice"}] = short{0};
    Get().OnUpdate({});
    Get().OnSelectionChanged("PropertyInspector", true);
    auto rows = Paint();
    // The sign's lines are looked at by their ends.
    ASSERT_EQ(rows.size(), 36U);
    EXPECT_EQ(rows[18], "DrawLine 91 85 100 97");
    EXPECT_EQ(rows[19], "DrawLine 88 85 79 97");
    EXPECT_EQ(rows[34], "DrawLine 99 85 100 97");
    EXPECT_EQ(rows[35], "DrawLine 80 85 79 97");
    rows.resize(18);
    EXPECT_THAT(rows,
                ElementsAre("SetBrush 7,7,7", "SetPen 7,7,7 1 0", "FillRectangle 0 0 140 120",
                            "SetPen 20,150,120 10 0", "DrawEllipse 5 5 135 115", "SetPen 1,2,3 2 0",
                            "SetBrush 1,2,3", "FillPie 70 60 50 30 180", "SetPen 4,5,6 2 0", "SetBrush 4,5,6",
                            "FillPie 70 60 50 210 180", "SetPen 4,5,6 2 0", "SetBrush 4,5,6",
                            "FillEllipse 65 55 75 65", "SetPen 255,255,255 3 0", "DrawArc 70 60 50 30 180",
                            "DrawImage 80 85 \"Warnung\"", "SetPen 4,5,6 1 0"));
}

TEST_F(HarmonyTest, TheRingTakesItsRoomOfLargeWheels) {
    struct Row {
        unsigned long size;
        char const* pie;
        std::size_t rings;
    };
    for (Row const& row : {Row{100, "FillPie 50 50 50 0 360", 1}, Row{102, "FillPie 51 51 35 0 360", 1},
                           Row{22, "FillPie 11 11 11 0 360", 1}, Row{21, "FillPie 10 10 10 0 360", 0}}) {
        Make("ColorWheel", row.size, row.size, {});
        EXPECT_THAT(Paint("FillPie"), ElementsAre(row.pie));
        EXPECT_EQ(Paint("DrawEllipse").size(), row.rings) << row.size;
    }
}

TEST_F(HarmonyTest, AClickFindsSlicesByWholeDegrees) {
    struct Row {
        short slices;
        double base;
        double degrees;
        int slice;
    };
    Make("ColorWheel", 2000, 2000, {});
    for (Row const& row : {Row{1, 0, 123, 0}, Row{4, 0, 89.5, 0}, Row{4, 0, 90.5, 1}, Row{3, 300, 30, 0},
                           Row{3, 300, 299, 2}, Row{3, 300, 61, 1}, Row{7, 0, 356.5, 6}, Row{7, 0, 357.5, -1},
                           Row{7, 0, 50.5, 0}, Row{7, 0, 51.2, 1}}) {
        Wheel(row.slices, row.base);
        Get().OnUpdate({});
        double const angle = row.degrees / 180 * std::acos(-1.0);
        source.told.clear();
        Get().OnLeftButtonDown(GUI::KeyState(), 1000 + std::lround(900 * std::cos(angle)),
                               1000 - std::lround(900 * std::sin(angle)));
        ASSERT_EQ(source.told.size(), 2U);
        EXPECT_EQ(source.told[0].name, "Selected Slice");
        EXPECT_EQ(source.told[0].value.GetString(), String("Slice ") + String(static_cast<long>(row.slice)))
            << row.slices << " slices, at " << row.degrees;
        EXPECT_EQ(source.told[1].name, "OnLeftButtonDown");
        EXPECT_EQ(source.told[1].value.GetMapOfAnythings().GetSize(), 3U);
    }
    Wheel(0);
    Get().OnUpdate({});
    EXPECT_EQ(Paint("FillPie").size(), 7U) << "a wheel without slices is refused";
}

TEST_F(HarmonyTest, ADragStressesASlice) {
    values = &target.values;
    Make("ColorWheel", 100, 100, {}, &target);
    Wheel(4, 0);
    Get().OnUpdate({});
    auto const afterCentre = [this] {
        auto rows = Paint();
        rows.erase(rows.begin(), rows.begin() + std::min<std::ptrdiff_t>(20, std::ssize(rows)));
        return rows;
    };
    Get().SetSize(101, 101); // forgets what was stressed
    Get().SetSize(100, 100);
    Drag(80, 60);
    EXPECT_THAT(afterCentre(), IsEmpty()) << "the slice is stressed already";
    Get().OnUpdate({});
    Drag(20, 20);
    Get().SetSize(101, 101);
    Get().SetSize(100, 100);
    EXPECT_THAT(afterCentre(), ElementsAre("SetPen 255,255,255 3 0", "DrawArc 50 50 50 90 90"));
    target.values.values[{"E", "MaxNumberOfSlices"}] = short{0};
    Get().SetSize(101, 101);
    Get().SetSize(100, 100);
    EXPECT_THAT(afterCentre(),
                ElementsAre("SetPen 255,255,255 3 0", "DrawLine 50 50 50 1", "DrawArc 50 50 50 45 90"));
}

TEST_F(HarmonyTest, TheSkysFieldsAreFound) {
    Make("PalimarSky", 400, 400, {{"OuterRadius", "180"}, {"InnerRadius", "100"}});
    struct Row {
        double radius;
        double degrees;
        char const* region;
    };
    for (Row const& row :
         {Row{140, 356, "Slice 100"}, Row{140, 10, "Slice 100"}, Row{140, 16, "Slice 101"},
          Row{140, 344, "Slice 111"}, Row{180, 0, "Slice -1"}, Row{100, 0, "Slice -1"},
          Row{80, 30, "Slice 10"}, Row{80, 150, "Slice 11"}, Row{80, 270, "Slice 12"}, Row{40, 90, "Slice 0"},
          Row{40, 210, "Slice 1"}, Row{40, 330, "Slice 2"}, Row{97, 60, "Slice -1"}}) {
        double const angle = row.degrees / 180 * std::acos(-1.0);
        auto const x = static_cast<unsigned long>(200 + std::lround(row.radius * std::cos(angle)));
        auto const y = static_cast<unsigned long>(200 - std::lround(row.radius * std::sin(angle)));
        EXPECT_EQ(Get().GetRegion(x, y), row.region) << row.radius << " at " << row.degrees;
    }
    EXPECT_TRUE(Get().IsDragable({340, 200}));
    EXPECT_FALSE(Get().IsDragable({2, 2}));
}

TEST_F(HarmonyTest, TheSkyPaintsThePartOfTheFieldThatChanged) {
    Make("PalimarSky", 240, 240, {{"OuterRadius", "115"}, {"InnerRadius", "80"}});
    Get().OnUpdate("data");
    std::vector<GUI::PaneBox> parts;
    host.SetPartPainter([&](Pane&, GUI::PaneBox const& box) { parts.push_back(box); });
    unsigned char tone = 0;
    for (int const number :
         {0, 1, 2, 10, 11, 12, 100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111}) {
        parts.clear();
        Color(number, RGBVector(++tone, 2, 3));
        Get().OnUpdate("data");
        ASSERT_EQ(parts.size(), 1U) << number;
        auto const& [left, top, right, bottom] = parts[0];
        EXPECT_LT((right - left) * (bottom - top), 240 * 240 / 2) << number;
        String const region = String("Slice ") + String(long{number});
        for (long y = 0; y < 240; y += 3)
            for (long x = 0; x < 240; x += 3) {
                if (!(Get().GetRegion(static_cast<unsigned long>(x), static_cast<unsigned long>(y)) ==
                      region))
                    continue;
                EXPECT_TRUE(left <= x && x < right && top <= y && y < bottom)
                    << number << ": " << x << "," << y;
            }
    }
    int const before = host.GetPaintCount(Get());
    Color(0, RGBVector(200, 2, 3));
    Color(1, RGBVector(200, 2, 3));
    Get().OnUpdate("data");
    EXPECT_EQ(host.GetPaintCount(Get()), before + 1) << "of several the whole";
}

TEST_F(HarmonyTest, TheSkyOutlinesTheSelectedField) {
    Make("PalimarSky", 400, 400, {{"OuterRadius", "180"}, {"InnerRadius", "100"}});
    Color(100, {100, 200, 200});
    Color(10, {100, 200, 199});
    Color(0, {9, 9, 9}, false);
    Get().OnUpdate({});
    auto const plain = Paint();
    EXPECT_EQ(Paint("FillPie").size(), 12U);
    EXPECT_THAT(Paint("DrawImage"), ElementsAre("DrawImage 190 141 \"Warnung\""));
    EXPECT_EQ(Paint("SetBrush 241,241,241").size(), 13U) << "fields without an answer";
    EXPECT_EQ(Paint("SetBrush 255,255,255").size(), 2U);
    Get().Select({});
    std::map<short, RecordingDeviceContext::Rows> const outlines = {
        {100,
         {"SetPen 0,0,0 1 0", "DrawArc 200 200 177 -14.0451 28.0901", "DrawLine 371 242 300 223",
          "DrawArc 200 200 103 -13.2811 26.5623", "DrawLine 371 158 300 177"}},
        {10, {"SetPen 255,255,255 1 0", "DrawPolygon 283,238 283,152 208,109 283,238"}},
        {0, {"SetPen 255,255,255 1 0", "DrawPolygon 200,200 242,175 200,101 158,175 200,200"}},
    };
    for (auto const& [slice, outline] : outlines) {
        source.values[{"E", "SelectedSlice"}] = slice;
        auto const rows = Paint();
        auto const [at, before] = std::mismatch(rows.begin(), rows.end(), plain.begin(), plain.end());
        RecordingDeviceContext::Rows const added(at, at + std::ssize(rows) - std::ssize(plain));
        EXPECT_EQ(added, outline) << slice;
    }
}

TEST_F(HarmonyTest, ANoticeWaitsForTheClickInTheSky) {
    Make("PalimarSky", 400, 400, {{"OuterRadius", "180"}, {"InnerRadius", "100"}});
    Get().OnSelectionChanged("PropertyInspector", true);
    EXPECT_FALSE(Get().IsSelected());
    std::string clicked;
    source.SetCallback("E", "OnLeftButtonDown", Tests::MakeCallback([&](Anything const& click) {
                           clicked = click.GetMapOfAnythings()["ElementName"].GetString();
                           EXPECT_TRUE(Get().IsSelected());
                           return 0L;
                       }));
    EXPECT_TRUE(Get().OnLeftButtonDown(GUI::KeyState(), 1, 1));
    EXPECT_EQ(clicked, "E");
    ASSERT_EQ(source.told.size(), 1U);
    EXPECT_EQ(source.told[0].value.GetString(), "Slice -1");
    Get().OnSelectionChanged("PropertyInspector", false);
    EXPECT_TRUE(Get().IsSelected());
    source.Fire("E", "Select");
    source.values[{"E", "CurrentSlice"}] = short{12};
    auto const inspected = Get().GetPropertyInspectorData().GetMapOfAnythings();
    EXPECT_EQ(inspected["CurrentRegion"].GetString(), "Slice 12");
    EXPECT_EQ(inspected["SelectedSlice"].GetString(), "Slice 12");
}

} // namespace
