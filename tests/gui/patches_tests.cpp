#include "gui/colour/CirclePatch.h"
#include "gui/elements/DataAccess.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gmock/gmock.h>

namespace {

using namespace TestSupport;
using GUI::Patch;
using GUI::RGBVector;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Utilities::Anything;
using Utilities::String;

struct SampleSource : FakeDataSource, GUI::CXFAccess {
    Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample> GetSample(Anything const&) override {
        return {};
    }
    void DataChanged(Anything const&, Anything const&) override {}
    bool IsLocked(Anything const&, Anything const&) override { return false; }
};

struct PatchTest : testing::Test {
    FakeWindowHost host;
    FakeDataSource source;
    Utilities::SmartPointer<GUI::GUIElement> element;

    Patch& Make(char const* type, std::initializer_list<std::pair<char const*, char const*>> attributes = {},
                GUI::DialogDataSource* dataSource = nullptr) {
        auto const node = Node(attributes);
        (*node)["GUIElementType"] = type;
        (*node)["ElementName"] = "P";
        element = host.Create(node, dataSource ? dataSource : &source);
        element->SetSize(30, 20);
        return dynamic_cast<Patch&>(*element);
    }
    RecordingDeviceContext::Rows Paint(char const* operation = "") {
        RecordingDeviceContext context;
        dynamic_cast<Patch&>(*element).OnPaint(context);
        return context.GetRows(operation);
    }
    void Color(unsigned char red, unsigned char green, unsigned char blue) {
        source.values[{"P", "ColorValue"}] = RGBVector(red, green, blue).GetAnything();
    }
};

TEST_F(PatchTest, PaintsItsShape) {
    Color(99, 100, 100);
    source.values[{"P", "IsActive"}] = true;
    Make("Patch");
    EXPECT_THAT(Paint(),
                ElementsAre("SetBrush 99,100,100", "SetPen 99,100,100 1 0", "FillRectangle 0 0 30 20"));
    Make("CirclePatch");
    EXPECT_THAT(Paint(),
                ElementsAre("SetBrush 222,251,255", "SetPen 222,251,255 3 0", "FillRectangle 0 0 30 20",
                            "SetPen 99,100,100 0 0", "SetBrush 99,100,100", "SetBackgroundColor 99,100,100",
                            "FillEllipse 0 0 20 20", "SetPen 255,255,255 2 0", "DrawEllipse 0 0 20 20"));
    Make("SmallPatch", {{"Frame", "Yes"}});
    EXPECT_THAT(Paint(),
                ElementsAre("SetBrush 222,251,255", "SetPen 222,251,255 3 0", "DrawRectangle 0 0 30 20",
                            "SetPen 99,100,100 0 0", "SetBrush 99,100,100", "SetBackgroundColor 99,100,100",
                            "FillRectangle 2 2 28 18", "SetPen 255,255,255 2 0", "DrawRectangle 1 1 30 20"));
    Color(100, 100, 100);
    Patch& square = Make("SquarePatch", {{"Frame", "Yes"}});
    square.OnSelectionChanged("PropertyInspector", true);
    EXPECT_THAT(Paint(), ElementsAre("SetBrush 100,100,100", "SetPen 100,100,100 1 0",
                                     "FillRectangle 0 0 30 20", "SetPen 0,0,0 1 0", "DrawLine 0 0 0 5",
                                     "DrawLine 0 0 5 0", "DrawLine 29 0 24 0", "DrawLine 29 0 29 5",
                                     "DrawLine 0 19 0 14", "DrawLine 0 19 5 19", "DrawLine 29 19 24 19",
                                     "DrawLine 29 19 29 14", "SetPen 0,0,0 1 0", "DrawRectangle 2 2 28 18"));
    EXPECT_TRUE(square.GetFrame());
}

TEST_F(PatchTest, MarksBesideItsColour) {
    Color(9, 9, 9);
    source.values[{"P", "IsActive"}] = true;
    struct {
        char const* type;
        std::vector<std::string> shape;
    } const rows[] = {
        {"CirclePatch",
         {"FillEllipse 6 6 34 34", "SetPen 0,0,0 2 0", "DrawEllipse 1 1 39 39", "SetPen 255,255,255 2 0",
          "DrawEllipse 3 3 37 37"}},
        {"SmallPatch",
         {"FillRectangle 6 6 54 34", "SetPen 0,0,0 2 0", "DrawRectangle 1 1 60 40", "SetPen 255,255,255 2 0",
          "DrawRectangle 3 3 58 38"}},
        {"SquarePatch",
         {"FillRectangle 6 6 54 34", "SetPen 0,0,0 2 0", "DrawRectangle 1 1 60 40", "SetPen 255,255,255 2 0",
          "DrawRectangle 3 3 58 38"}},
    };
    for (auto const& row : rows) {
        Patch& patch = Make(row.type, {{"MarkOutside", "Yes"}, {"SurroundColor", "200,201,202"}});
        patch.SetSize(60, 40);
        if (std::string(row.type) == "SquarePatch") patch.OnSelectionChanged("PropertyInspector", true);
        std::vector<std::string> expected{"SetBrush 200,201,202",    "SetPen 200,201,202 3 0",
                                          "FillRectangle 0 0 60 40", "SetPen 9,9,9 0 0",
                                          "SetBrush 9,9,9",          "SetBackgroundColor 9,9,9"};
        expected.insert(expected.end(), row.shape.begin(), row.shape.end());
        EXPECT_EQ(Paint(), expected) << row.type;
        patch.SetSize(12, 8);
        EXPECT_THAT(Paint("SetPen"), Contains("SetPen 255,255,255 1 0"))
            << row.type << ", thinner when small";
        patch.SetSize(5, 5);
        EXPECT_THAT(Paint("SetPen"), Not(Contains("SetPen 255,255,255 1 0"))) << row.type << ", no room";
        patch.OnSelectionChanged("PropertyInspector", false);
    }
    source.values[{"P", "BitmapOnly"}] = true;
    Make("CirclePatch", {{"MarkOutside", "Yes"}});
    EXPECT_EQ(Paint("FillEllipse").size(), 0U);
    EXPECT_EQ(Paint("DrawEllipse").size(), 2U);
}

TEST_F(PatchTest, ShowsAnotherColourAtAnUpdateIfAskedTo) {
    for (char const* const type : {"SmallPatch", "SquarePatch"}) {
        Make(type);
        EXPECT_FALSE(source.GetCallback("P", "OnUpdate").IsValid()) << type;
        Make(type, {{"Updates", "Yes"}});
        EXPECT_TRUE(source.GetCallback("P", "OnUpdate").IsValid()) << type;
        element = nullptr;
        EXPECT_FALSE(source.GetCallback("P", "OnUpdate").IsValid()) << type;
    }
}

TEST_F(PatchTest, ShowsItsBackgroundWithoutAColour) {
    std::pair<char const*, char const*> const rows[] = {{"Patch", "SetBrush 0,0,0"},
                                                        {"CirclePatch", "SetBrush 100,100,100"},
                                                        {"SmallPatch", "SetBrush 1,2,3"},
                                                        {"SquarePatch", "SetBrush 1,2,3"}};
    for (auto const& [type, expected] : rows) {
        if (std::string(type) == "CirclePatch")
            Make(type);
        else
            Make(type, {{"BackgroundColor", "1,2,3"}});
        EXPECT_THAT(Paint(), Contains(expected)) << type;
    }
    source.values[{"P", "BitmapOnly"}] = true;
    Color(1, 1, 1);
    Make("CirclePatch").SetBackgroundBitmap("Ring");
    source.asked.clear();
    EXPECT_THAT(Paint(),
                ElementsAre("SetBrush 222,251,255", "SetPen 222,251,255 3 0", "DrawImage 0 0 \"Ring\""));
    EXPECT_EQ((source.asked[{"P", "ColorValue"}]), 0);
}

TEST_F(PatchTest, IsSelectedUnlessRefused) {
    struct Row {
        Anything isSelectable;
        bool selected;
    } const rows[] = {{{}, true}, {true, true}, {false, false}, {Anything::MapOfAnythings(), true}};
    for (Row const& row : rows) {
        source.values[{"P", "IsSelectable"}] = row.isSelectable;
        Patch& patch = Make("CirclePatch");
        int const before = host.GetPaintCount(patch);
        host.Click(patch, 3, 3);
        EXPECT_EQ(patch.IsSelected(), row.selected);
        EXPECT_EQ(host.GetPaintCount(patch) - before, row.selected ? 1 : 0);
        EXPECT_EQ(Paint("DrawEllipse").size(), row.selected ? 1U : 0U);
        source.values[{"P", "IsSelectable"}] = false;
        patch.OnSelectionChanged("PropertyInspector", false);
        EXPECT_FALSE(patch.IsSelected());
    }
}

TEST_F(PatchTest, TellsItsHostOfAClick) {
    Patch& patch = Make("Patch");
    EXPECT_FALSE(host.Click(patch, 3, 3));
    struct Host {
        long OnClick(Anything const& argument) {
            clicked = argument.GetString();
            return 0;
        }
        String clicked;
    } listener;
    source.SetCallback("P", "OnLeftButtonDown", Utilities::MakeCallback(&listener, &Host::OnClick));
    EXPECT_TRUE(host.Click(patch, 3, 3));
    EXPECT_EQ(listener.clicked.GetStdString(), "P");
    source.values[{"P", "ToolTipText"}] = "a tip";
    EXPECT_EQ(host.GetToolTip(patch, 3, 3).GetStdString(), "a tip");
}

TEST_F(PatchTest, OffersItselfToTheInspector) {
    Patch& plain = Make("Patch");
    EXPECT_EQ(plain.GetPropertyInspectorName().GetStdString(), "PropertyInspectorDefault");
    EXPECT_EQ(plain.GetPropertyInspectorHandler(), nullptr);
    EXPECT_FALSE(plain.GetInCXF().IsValid());
    SampleSource samples;
    Patch& sample = Make("SmallPatch", {}, &samples);
    EXPECT_EQ(sample.GetPropertyInspectorName().GetStdString(), "PropertyInspectorSample");
    EXPECT_EQ(sample.GetPropertyInspectorHandler(), static_cast<GUI::DataAccess*>(&samples));
    EXPECT_EQ(sample.GetPropertyInspectorData().GetMapOfAnythings()["ElementName"].GetString().GetStdString(),
              "P");
    element = nullptr;
}

} // namespace
