// Verdicts and notices, without a platform.
#include "gui/controls/Notice.h"
#include "gui/controls/Verdict.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/RecordingDeviceContext.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Utilities::Anything;

class Verdicts : public testing::Test {
protected:
    GUI::Pane& Make(char const* type, unsigned long width, unsigned long height, char const* flag = nullptr) {
        auto const node = Node({{"GUIElementType", type}, {"ElementName", "it"}});
        if (flag) (*node)[flag] = "Yes";
        element_ = host_.Create(node, &source_);
        element_->SetSize(width, height);
        return dynamic_cast<GUI::Pane&>(*element_);
    }
    RecordingDeviceContext& Paint() {
        context_ = std::make_unique<RecordingDeviceContext>();
        host_.Paint(dynamic_cast<GUI::Pane&>(*element_), *context_);
        return *context_;
    }
    void Update(std::initializer_list<std::pair<char const*, Anything>> values) {
        for (auto const& [key, value] : values) source_.values[{"it", key}] = value;
        source_.Fire("it", "OnUpdate");
    }
    /// The text ends a row that draws it.
    bool Shows(std::string const& text) {
        auto const rows = Paint().GetRows("DrawText");
        return std::any_of(rows.begin(), rows.end(),
                           [&](std::string const& row) { return row.ends_with("\"" + text + "\""); });
    }

    FakeWindowHost host_;
    FakeDataSource source_;
    Utilities::SmartPointer<GUI::GUIElement> element_;
    std::unique_ptr<RecordingDeviceContext> context_;
};

} // namespace

TEST_F(Verdicts, SayItInWordShapeAndNumber) {
    auto& verdict = dynamic_cast<GUI::Verdict&>(Make("Verdict", 416, 230));
    EXPECT_EQ(verdict.GetVerdict(), GUI::VerdictKind::NoData) << "nothing is known";
    EXPECT_TRUE(Shows("NO DATA"));
    EXPECT_TRUE(context_->GetRows("FillRectangle").size() == 1) << "no body but the pane's ground";

    Update({{"Verdict", "Fail"}, {"Value", 1.194}, {"Limit", "limit 1.00"}, {"Reason", "above"}});
    for (char const* const text : {"FAIL", "1.19", "limit 1.00", "above"}) EXPECT_TRUE(Shows(text)) << text;
    EXPECT_EQ(verdict.GetAccessible().name.GetStdString(), "FAIL");
    EXPECT_EQ(verdict.GetAccessible().description.GetStdString(), "1.19, limit 1.00, above");

    Update({{"Verdict", "Pass"}, {"Value", ""}});
    EXPECT_TRUE(Shows("\u2013")) << "a missing value is no number";
    Update({{"Verdict", "Failed"}, {"Word", "\u5408\u683C"}});
    EXPECT_EQ(verdict.GetVerdict(), GUI::VerdictKind::NoData) << "what isn't known is neither pass nor fail";
    EXPECT_TRUE(Shows("\u5408\u683C"));
}

TEST_F(Verdicts, TheWordShrinksToFit) {
    Make("Verdict", 200, 100);
    Update({{"Verdict", "Marginal"}});
    Paint();
    // A character is 6 wide whatever the font: eight of them don't fit beside the sign at any size.
    auto const fonts = context_->GetRows("SetFont");
    EXPECT_EQ(fonts.back().substr(0, 11), "SetFont -72") << fonts.back();
    element_->SetSize(150, 100);
    Paint();
    EXPECT_EQ(context_->GetRows("SetFont").back().substr(0, 11), "SetFont -12");
}

TEST_F(Verdicts, AFilledPaneIsTheVerdictsColour) {
    Make("Verdict", 600, 300, "Fill");
    Update({{"Verdict", "Pass"}});
    auto const rows = Paint().GetRows();
    auto const& pass = GUI::Themed(GUI::ThemeRole::Pass);
    std::string const color = std::to_string(pass.GetRed()) + "," + std::to_string(pass.GetGreen()) + "," +
                              std::to_string(pass.GetBlue());
    EXPECT_NE(std::find(rows.begin(), rows.end(), "SetBrush " + color), rows.end());
    EXPECT_NE(std::find(rows.begin(), rows.end(), "FillRectangle 0 0 600 300"), rows.end());
    source_.values.erase({"it", "Verdict"});
    source_.Fire("it", "OnUpdate");
    EXPECT_TRUE(Shows("NO DATA"));
    auto const without = context_->GetRows();
    EXPECT_EQ(std::find(without.begin(), without.end(), "SetBrush " + color), without.end());
}

TEST_F(Verdicts, NoticesSayWhyThereIsNothing) {
    auto& notice = Make("Notice", 300, 120);
    EXPECT_TRUE(Paint().GetRows("DrawText").empty());
    Update(
        {{"Notice", "Error"}, {"Title", "File not loaded"}, {"Text", "line 12\nThe earlier data is kept."}});
    for (char const* const text : {"File not loaded", "line 12", "The earlier data is kept."})
        EXPECT_TRUE(Shows(text)) << text;
    int closed = 0;
    source_.SetCallback("it", "OnClose", Tests::MakeCallback([&](Anything const&) { return ++closed, 0L; }));
    EXPECT_FALSE(notice.OnLeftButtonDown(GUI::KeyState::None, 10, 10));
    EXPECT_TRUE(notice.OnLeftButtonDown(GUI::KeyState::None, 280, 20));
    EXPECT_EQ(closed, 1);

    Update({{"Notice", "Busy"}, {"Progress", 0.5}});
    auto const boxes = Paint().GetRows("FillRectangle");
    EXPECT_EQ(boxes.back(), "FillRectangle 16 96 150 104");
    Update({{"Progress", 7.0}});
    EXPECT_EQ(Paint().GetRows("FillRectangle").size(), boxes.size() - 1) << "no bar for an unknown end";
    EXPECT_FALSE(notice.OnLeftButtonDown(GUI::KeyState::None, 280, 20));
}
