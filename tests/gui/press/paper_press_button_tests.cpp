// The button for paper and press, as a native control and as it paints itself.
#include "gui/elements/SelectionServiceInterface.h"
#include "gui/elements/Topics.h"
#include "gui/press/CNorvelianPPressButton.h"
#include "gui/press/PaperPressButton.h"
#include "tests/gui/controls/ControlFixture.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gmock/gmock.h>

namespace {

using namespace Tests;
using GUI::RGBVector;
using Ostrinda::CNorvelianPPressButton;
using Ostrinda::PaperPressButton;
using Rows = TestSupport::RecordingDeviceContext::Rows;

class PaperPressTest : public Controls {
protected:
    PaperPressTest() {
        Clear();
        for (char const* const suffix : {"U", "D", "X", "O", "UA", "DA", "XA", "OA"}) MakePicture(suffix);
    }
    ~PaperPressTest() override {
        element_ = nullptr;
        Clear();
    }
    static void Clear() { Utilities::ResolveComponent<GUI::ImageServiceInterface>("ImageService")->Clear(); }
    static void MakePicture(std::string const& suffix) {
        auto const picture = Utilities::ResolveComponent<GUI::Bitmap>("Bitmap");
        picture->Create(108, 96);
        Utilities::ResolveComponent<GUI::ImageServiceInterface>("ImageService")
            ->SetBitmap("PaperPress" + suffix, picture);
    }
    CNorvelianPPressButton& Open() {
        return Show<CNorvelianPPressButton>("PaperPressButton", {{"Number", "12"}});
    }
    Rows Paint(GUI::ButtonState const& state, char const* operation) {
        TestSupport::RecordingDeviceContext context;
        dynamic_cast<PaperPressButton&>(It()).PaintFace(context, state, 108);
        return context.GetRows(operation);
    }
    static void Enter(QWidget& widget, bool over) {
        QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&widget, over ? static_cast<QEvent*>(&enter) : &leave);
    }
    static GUI::SelectableObject* Selected() {
        return Utilities::ResolveComponent<GUI::SelectionServiceInterface>("SelectionService")
            ->GetSelection(GUI::Topics::propertyInspector);
    }
};

TEST_F(PaperPressTest, ChoosesItsPictureByStateAndActivity) {
    QWidget& button = Open();
    EXPECT_EQ(button.size(), QSize(108, 96)) << "the picture's";
    struct {
        GUI::ButtonState state;
        char const* plain;
        char const* over;
    } const rows[] = {{{}, "U", "O"},
                      {{true, true, true}, "D", "D"},
                      {{false, true, true}, "U", "O"},
                      {{false, false, true}, "X", "X"}};
    for (bool const active : {false, true}) {
        source_.values[{"it", "PaperPressActive"}] = active;
        source_.Fire("it", "OnUpdate");
        for (auto const& row : rows)
            for (bool const over : {false, true}) {
                Enter(button, over);
                EXPECT_EQ(Paint(row.state, "DrawImage"),
                          Rows{std::string("DrawImage 0 0 \"PaperPress") + (over ? row.over : row.plain) +
                               (active ? "A\"" : "\"")});
            }
    }
    Clear();
    for (char const* const suffix : {"UA", "DA", "XA", "OA"}) MakePicture(suffix);
    source_.values.clear();
    Open();
    EXPECT_EQ(Paint({}, "DrawImage"), Rows{}) << "never an active one for one that isn't";
}

TEST_F(PaperPressTest, WritesItsLinesAndAsksWhereTheColourIsUnknown) {
    source_.values = {{{"it", "TopLineText"}, "Cyan"}, {{"it", "BottomLineText"}, "Coated"}};
    Open();
    EXPECT_EQ(Paint({}, "DrawText"), Rows{"DrawText 95 62 \"12\""}) << "the number alone";
    source_.values[{"it", "PaperPressActive"}] = true;
    source_.Fire("it", "OnUpdate");
    EXPECT_EQ(Paint({}, "DrawText"),
              (Rows{"DrawText 42 6 \"Cyan\"", "DrawText 36 78 \"Coated\"", "DrawText 3 4 \"?\"",
                    "DrawText 99 4 \"?\"", "DrawText 95 62 \"12\""}));
    source_.values[{"it", "TopLineColor"}] = RGBVector(0, 160, 220).GetAnything();
    source_.values[{"it", "TopLineText"}] = "A colour with a name that no button has room for";
    source_.values[{"it", "PaperPressAttention"}] = true;
    source_.Fire("it", "OnUpdate");
    EXPECT_EQ(Paint({}, "DrawText").size(), 3U) << "no question marks";
    EXPECT_LT(Paint({}, "DrawText")[0].size(), 40U) << "shortened";
    EXPECT_EQ(Paint({}, "SetTextColor"), Rows(2, "SetTextColor 0,160,220"));
    EXPECT_EQ(Paint({}, "DrawImage").size(), 1U) << "the sign has no picture here";
    auto const sign = Utilities::ResolveComponent<GUI::Bitmap>("Bitmap");
    sign->Create(20, 20);
    Utilities::ResolveComponent<GUI::ImageServiceInterface>("ImageService")->SetBitmap("Warnung", sign);
    EXPECT_THAT(Paint({}, "DrawImage"), testing::Contains("DrawImage 44 15 \"Warnung\""));
}

TEST_F(PaperPressTest, TellsClicksAndIsSelectedUnderTheMouse) {
    QPointer<CNorvelianPPressButton> const button(&Open());
    Listen("OnClick");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(TakeTold(), "State=0");
    EXPECT_EQ(calls, "OnClick(1) ");
    source_.values[{"it", "State"}] = true;
    source_.values[{"it", "Show"}] = false;
    source_.Fire("it", "OnUpdate");
    EXPECT_TRUE(button->isChecked());
    EXPECT_FALSE(button->isVisible());
    Enter(*button, true);
    EXPECT_EQ(Selected(), dynamic_cast<GUI::SelectableObject*>(&It()));
    Enter(*button, false);
    EXPECT_EQ(Selected(), nullptr);
    Enter(*button, true);
    element_ = nullptr;
    EXPECT_EQ(Selected(), nullptr) << "what is gone isn't selected";
}

} // namespace
