// Buttons that the system draws: states, images and texts, without a platform.
#include "Utilities/NamingService.h"
#include "gui/controls/ImageButton.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Rows = RecordingDeviceContext::Rows;
using Utilities::Anything;

class ImageButtonTest : public testing::Test {
protected:
    GUI::ImageButton& Make(Utilities::SmartPointer<GUI::DescriptionTree> const& node) {
        (*node)["ElementName"] = "it";
        element_ = host_.Create(node, &source_);
        element_->SetSize(40, 20);
        source_.SetCallback("it", "OnClick", Tests::MakeCallback([this](Anything const& name) {
                                clicks += name.GetString().GetStdString();
                                return 0L;
                            }));
        return dynamic_cast<GUI::ImageButton&>(*element_);
    }
    Rows Paint() {
        RecordingDeviceContext context;
        host_.Paint(dynamic_cast<GUI::Pane&>(*element_), context);
        return context.GetRows();
    }
    void Update(char const* key, Anything const& value) {
        source_.values[{"it", key}] = value;
        source_.Fire("it", "OnUpdate");
    }

    FakeWindowHost host_;
    FakeDataSource source_;
    Utilities::SmartPointer<GUI::GUIElement> element_;
    std::string clicks;
};

} // namespace

TEST_F(ImageButtonTest, GoesThroughItsStates) {
    auto& button = Make(Node({{"GUIElementType", "ImageButton"}, {"Caption", "Pic"}}));
    EXPECT_EQ(Paint(), Rows{R"(DrawImage 0 0 "PicUp")"});
    button.OnMouseMove(39, 19);
    EXPECT_EQ(button.GetState(), "Over");
    EXPECT_TRUE(button.OnLeftButtonDown(GUI::KeyState{}, 3, 3));
    EXPECT_EQ(Paint(), Rows{R"(DrawImage 0 0 "PicDown")"});
    button.OnMouseMove(40, 3);
    EXPECT_EQ(button.GetState(), "Up") << "dragged out";
    button.OnMouseMove(3, 3);
    EXPECT_EQ(button.GetState(), "Down") << "and back";
    EXPECT_TRUE(button.OnLeftButtonUp(3, 3));
    EXPECT_EQ(button.GetState(), "Over");
    EXPECT_EQ(clicks, "it");
    button.OnMouseLeave();
    EXPECT_EQ(button.GetState(), "Up");

    button.OnLeftButtonDown(GUI::KeyState{}, 3, 3);
    EXPECT_TRUE(button.OnLeftButtonUp(65535, 3)) << "left of it, as the platform tells it";
    EXPECT_EQ(button.GetState(), "Up");
    EXPECT_EQ(clicks, "it") << "no click outside";
}

TEST_F(ImageButtonTest, FollowsItsDataSource) {
    auto& button =
        Make(Node({{"GUIElementType", "ImageButton"}, {"Caption", "Pic"}, {"ToolTipText", "tip"}}));
    EXPECT_EQ(host_.GetToolTip(button, 0, 0), "tip");
    Update("State", true);
    button.OnMouseMove(3, 3);
    EXPECT_EQ(button.GetState(), "Down") << "held";
    button.OnMouseLeave();
    EXPECT_EQ(button.GetState(), "Down");
    Update("Enable", false);
    EXPECT_EQ(Paint(), Rows{R"(DrawImage 0 0 "PicDisabled")"});
    EXPECT_FALSE(button.OnLeftButtonDown(GUI::KeyState{}, 3, 3));
    EXPECT_FALSE(button.OnLeftButtonUp(3, 3));
    button.OnMouseMove(3, 3);
    EXPECT_EQ(button.GetState(), "Disabled");
    EXPECT_EQ(clicks, "");
    Update("ToolTipText", "said");
    Update("Caption", "ANameOfMoreThanThirtyCharacters");
    EXPECT_EQ(Paint(), Rows{R"(DrawImage 0 0 "reThanThirtyCharactersDisabled")"});
    EXPECT_EQ(host_.GetToolTip(button, 0, 0), "said");
}

TEST_F(ImageButtonTest, WritesTextInTheStyleOfItsState) {
    auto& button = Make(Node({{"GUIElementType", "TextImageButton"}, {"Caption", "Pic"}},
                             {Node({{"GUIElementType", "General"}, {"Text", "abc"}, {"YOffset", "-2"}}),
                              Node({{"GUIElementType", "Down"},
                                    {"Text", "pressed"},
                                    {"Color", "1,2,3"},
                                    {"FontStyle", "Underline"},
                                    {"FontName", "Arial"},
                                    {"FontSize", "12"},
                                    {"XOffset", "5"}})}));
    EXPECT_EQ(Paint(), (Rows{R"(DrawImage 0 0 "PicUp")", R"(SetFont 10 0 0 "SystemFont" 0)",
                             "SetTextColor 255,255,255", R"(DrawText 11 3 "abc")"}));
    button.OnLeftButtonDown(GUI::KeyState{}, 3, 3);
    EXPECT_EQ(Paint(), (Rows{R"(DrawImage 0 0 "PicDown")", R"(SetFont 12 0 0 "Arial" 4)",
                             "SetTextColor 1,2,3", R"(DrawText 4 5 "pressed")"}));
    button.OnLeftButtonUp(3, 3);
    EXPECT_EQ(Paint().back(), R"(DrawText 11 3 "abc")") << "a state without a style";
}

TEST_F(ImageButtonTest, FillsItsFieldOfColour) {
    auto& button = Make(Node({{"GUIElementType", "ColorImageButton"},
                              {"Caption", "Pic"},
                              {"ColorPosSizeUp", "1,2,30,4"},
                              {"ColorPosSizeDown", "2,3,30,4"}}));
    EXPECT_EQ(Paint(), (Rows{R"(DrawImage 0 0 "PicUp")", "SetBrush 100,100,100", "SetPen 100,100,100 1 5",
                             "FillRectangle 1 2 31 6"}));
    Update("ButtonColor", "7,8,9");
    button.OnLeftButtonDown(GUI::KeyState{}, 3, 3);
    EXPECT_EQ(Paint(), (Rows{R"(DrawImage 0 0 "PicDown")", "SetBrush 7,8,9", "SetPen 7,8,9 1 5",
                             "FillRectangle 2 3 32 7"}));
    button.OnLeftButtonUp(3, 3);
    EXPECT_EQ(Paint(), Rows{R"(DrawImage 0 0 "PicOver")"}) << "no field in that state";
    EXPECT_THROW(Make(Node({{"GUIElementType", "ColorImageButton"}, {"ColorPosSizeUp", "1,2,3"}})),
                 std::exception);
}
