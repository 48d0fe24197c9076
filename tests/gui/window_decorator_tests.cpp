// What decorators draw over a window, and where.
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gtest/gtest.h>

using namespace TestSupport;

namespace {

class Decorator : public testing::Test {
protected:
    /// What is drawn for a pane "Sample" of 100 by 40 at (20, 30) of the window.
    RecordingDeviceContext::Rows Draw(char const* kind, char const* target, char const* text = "") {
        auto const root =
            host.Create(Node({{"GUIElementType", "VBox"}, {"ElementName", "root"}},
                             {Node({{"GUIElementType", "FrameBox"}, {"Left", "20"}, {"Top", "30"}},
                                   {Node({{"GUIElementType", "Pane"}, {"ElementName", "Outer"}},
                                         {Node({{"GUIElementType", "HBox"}, {"ElementName", "Row"}},
                                               {Node({{"GUIElementType", "Pane"}, {"ElementName", "Sample"}}),
                                                Node({{"GUIElementType", "WindowDecorator"},
                                                      {"ElementName", "it"},
                                                      {"Kind", kind},
                                                      {"Target", target},
                                                      {"Color", "1,2,3"},
                                                      {"Text", text}})})})})}),
                        &source);
        root->SetPosition(0, 0);
        root->SetSize(120, 70);
        EXPECT_TRUE(root->FindElement("Sample").IfSizeEqual(100, 40)) << "a decorator takes no room";
        RecordingDeviceContext context;
        root->OnPaintWindowDecorators(context, *root);
        return context.GetRows();
    }

    FakeWindowHost host;
    FakeDataSource source;
};

} // namespace

TEST_F(Decorator, DrawsAroundItsTargetInTheWindow) {
    using Rows = RecordingDeviceContext::Rows;
    Rows const frame = {"SetPen 255,255,255 1 0", "DrawRectangle 18 28 122 72", "SetPen 1,2,3 1 0",
                        "DrawRectangle 19 29 121 71"};
    EXPECT_EQ(Draw("Focus", "Sample"), frame);
    EXPECT_EQ(Draw("Focus", ""), frame) << "the box that it is in, which the pane fills";
    EXPECT_EQ(Draw("Guides", "Sample"),
              (Rows{"SetPen 1,2,3 1 0", "DrawLine 20 0 20 70", "DrawLine 119 0 119 70",
                    "DrawLine 0 30 120 30", "DrawLine 0 69 120 69"}));
    EXPECT_EQ(Draw("Badge", "Sample", "12345")[3], "FillEllipse 101 22 139 38") << "as wide as its text";
    EXPECT_EQ(Draw("Badge", "Sample", "")[3], "FillEllipse 112 22 128 38");
    EXPECT_EQ(Draw("Focus", "Nobody"), Rows());
    source.values[{"it", "Target"}] = "Outer";
    EXPECT_EQ(Draw("Focus", "Nobody"), frame) << "what the data source says";
    source.values[{"it", "Visible"}] = false;
    EXPECT_EQ(Draw("Focus", ""), Rows());
}
