// Native and drawn controls side by side: the order of Tab, keys, and what assistive technology is told.
#include "gui/controls/CNorvelianBitmapButton.h"
#include "gui/controls/CNorvelianEdit.h"
#include "gui/shell/CNorvelianSurface.h"
#include "tests/gui/controls/ControlFixture.h"

#include <QAccessible>

namespace {

using namespace Tests;

class Keyboard : public Controls {
protected:
    static NodePointer Named(char const* type, char const* name, Attributes more = {}) {
        auto const node = Node({{"GUIElementType", type}, {"ElementName", name}});
        for (auto const& [key, value] : more) (*node)[key] = value;
        return node;
    }
    /// The accessible objects of the window's surface, as "role name state" with semicolons between.
    std::string Tell() {
        auto* const surface =
            QAccessible::queryAccessibleInterface(Window().findChild<GUI::CNorvelianSurface*>());
        std::string told;
        for (int i = 0; surface && i < surface->childCount(); ++i) {
            QAccessibleInterface& child = *surface->child(i);
            QAccessible::State const state = child.state();
            told += std::string(told.empty() ? "" : "; ") + qAccessibleRoleString(child.role()) + " " +
                    child.text(QAccessible::Name).toStdString() + (state.focused ? " focused" : "") +
                    (state.disabled ? " disabled" : "") + (state.pressed ? " pressed" : "");
        }
        return told;
    }
};

} // namespace

TEST_F(Keyboard, ReachesNativeAndDrawnControlsInTheirOrder) {
    Show<GUI::CNorvelianButton>(
        {Named("Button", "first", {{"Caption", "One"}}),
         Named("ImageButton", "it", {{"Caption", "Left"}, {"Selectable", "Yes"}, {"AccessibleName", "Back"}}),
         Named("Edit", "last", {{"AccessibleName", "Limit"}})});
    Listen("OnClick");
    auto& surface = *Window().findChild<GUI::CNorvelianSurface*>();
    EXPECT_EQ(Tell(), "Button Back; Button One; EditableText Limit") << "panes come before controls";
    QTest::keyClick(&surface, Qt::Key_Tab);
    EXPECT_EQ(Window().focusWidget(), Window().findChild<GUI::CNorvelianButton*>());
    QTest::keyClick(Window().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Tell(), "Button Back focused; Button One; EditableText Limit");
    for (auto const key : {Qt::Key_Space, Qt::Key_Return}) QTest::keyClick(&surface, key);
    EXPECT_EQ(calls, "OnClick(0) OnClick(0) ");
    auto& button = dynamic_cast<GUI::Pane&>(It());
    EXPECT_FALSE(button.GetAccessible().isPressed);
    QTest::keyClick(&surface, Qt::Key_Tab);
    EXPECT_EQ(Window().focusWidget(), Window().findChild<GUI::CNorvelianEdit*>());
    QTest::keyClick(Window().focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(Window().focusWidget(), &surface);

    // What a screen reader does with it.
    auto* const back = QAccessible::queryAccessibleInterface(&surface)->child(0);
    ASSERT_TRUE(back->actionInterface());
    back->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(calls, "OnClick(0) OnClick(0) OnClick(0) ");
    source_.values[{"it", "State"}] = true;
    source_.Fire("it", "OnUpdate");
    EXPECT_TRUE(Tell().starts_with("Button Back focused pressed"));
    source_.values[{"it", "Enable"}] = false;
    source_.Fire("it", "OnUpdate");
    EXPECT_TRUE(Tell().starts_with("Button Back focused disabled"));
    EXPECT_TRUE(
        back->actionInterface()->actionNames().filter(QAccessibleActionInterface::pressAction()).isEmpty());
}

TEST_F(Keyboard, ADrawnButtonIsClickedByTheMouse) {
    Show<GUI::CNorvelianSurface>({Named("TextImageButton", "it", {{"Caption", "Button"}})});
    Listen("OnClick");
    auto& surface = *Window().findChild<GUI::CNorvelianSurface*>();
    QTest::mouseClick(&surface, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(calls, "OnClick(0) ");
    QTest::mousePress(&surface, Qt::LeftButton, {}, {10, 10});
    QTest::mouseRelease(&surface, Qt::LeftButton, {}, {10, 1000});
    EXPECT_EQ(calls, "OnClick(0) ") << "the button came up outside";
}
