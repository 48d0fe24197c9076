// Native buttons in described windows, clicked by mouse and keyboard.
#include "gui/controls/CNorvelianBitmapButton.h"
#include "tests/gui/controls/ControlFixture.h"

#include <QAccessible>
#include <stdexcept>

namespace {

using namespace Tests;
using GUI::CNorvelianButton;

class ButtonTest : public Controls {};

} // namespace

TEST_F(ButtonTest, IsClickedByMouseAndKey) {
    CNorvelianButton& button =
        Show<CNorvelianButton>("Button", {{"Caption", "A & B"}, {"ToolTipText", "tip"}});
    EXPECT_EQ(button.text(), "A && B");
    EXPECT_TRUE(button.toolTip().contains("tip"));
    Listen("OnClick");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(calls, "OnClick(0) ") << "a button without a check state tells none";
    QTest::keyClick(&Window(), Qt::Key_Tab);
    for (auto const key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) QTest::keyClick(&button, key);
    EXPECT_EQ(calls, "OnClick(0) OnClick(0) OnClick(0) OnClick(0) ");
    source_.values[{"it", "Enable"}] = false;
    source_.Fire("it", "OnUpdate");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(calls.size(), 4 * std::string("OnClick(0) ").size());
}

TEST_F(ButtonTest, HasACheckStateWhereSaid) {
    CNorvelianButton& button = Show<CNorvelianButton>("Button", {{"Toggle", "Yes"}});
    Listen("OnClick");
    button.click();
    button.click();
    EXPECT_EQ(TakeTold(), "State=1 State=0");
    EXPECT_EQ(calls, "OnClick(1) OnClick(2) ") << "told before the callback runs";

    // A data source that gives a state has the last word on it.
    source_.SetCallback("it", "OnClick", MakeCallback([this](Anything const&) {
                            source_.values[{"it", "State"}] = true;
                            return 0L;
                        }));
    source_.values[{"it", "State"}] = true;
    CNorvelianButton& driven = Show<CNorvelianButton>("Button");
    EXPECT_TRUE(driven.isChecked());
    driven.click();
    EXPECT_EQ(TakeTold(), "State=0");
    EXPECT_TRUE(driven.isChecked());
}

TEST_F(ButtonTest, ReportsWhatACallbackLetsEscape) {
    CNorvelianButton& button = Show<CNorvelianButton>("Button");
    source_.SetCallback("it", "OnClick",
                        MakeCallback([](Anything const&) -> long { throw std::runtime_error("why"); }));
    button.click();
    EXPECT_EQ(environment->app->errors.back(), "An unexpected error occured. Error text:why");
    QPointer<CNorvelianButton> const gone(&button);
    source_.SetCallback("it", "OnClick", MakeCallback([&](Anything const&) {
                            element_ = nullptr;
                            EXPECT_FALSE(gone && gone->isVisible()) << "it may vanish in its own click";
                            return 0L;
                        }));
    button.click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
}

TEST_F(ButtonTest, OfADialogIsItsDefaultWhereSaid) {
    auto const node = [](char const* name, char const* isDefault) {
        return Node({{"GUIElementType", "Button"}, {"ElementName", name}, {"Default", isDefault}});
    };
    Show<CNorvelianButton>({node("other", "No"), node("it", "No")}, "Dialog");
    Listen("OnClick");
    QTest::keyClick(&Window(), Qt::Key_Return);
    EXPECT_EQ(calls, "") << "none unless described";
    Show<CNorvelianButton>({node("other", "No"), node("it", "Yes")}, "Dialog");
    QTest::keyClick(&Window(), Qt::Key_Return);
    EXPECT_EQ(calls, "OnClick(0) ");
    EXPECT_TRUE(Window().isVisible());
}

TEST_F(ButtonTest, HasMnemonicsWhereSaid) {
    Show<CNorvelianButton>("Button", {{"Caption", "&Save"}, {"Mnemonics", "Yes"}});
    Listen("OnClick");
    QTest::keyClick(&Window(), Qt::Key_S, Qt::AltModifier);
    // The button is seen to go down first.
    EXPECT_TRUE(QTest::qWaitFor([this] { return !calls.empty(); }));
    EXPECT_EQ(calls, "OnClick(0) ");
}

TEST_F(ButtonTest, ShowsWhatItsDataSourceSays) {
    CNorvelianButton& button = Show<CNorvelianButton>("Button", {{"AccessibleName", "spoken"}});
    EXPECT_EQ(button.text(), "NoText!!!");
    source_.values = {{{"it", "Caption"}, Anything("new")}, {{"it", "Visible"}, Anything(false)}};
    source_.Fire("it", "OnUpdate");
    EXPECT_EQ(button.text(), "new");
    EXPECT_FALSE(button.isVisible());
    source_.values = {{{"it", "Visible"}, Anything(true)}, {{"it", "Focus"}, Anything(true)}};
    source_.Fire("it", "OnUpdate");
    EXPECT_TRUE(button.isVisible());
    EXPECT_EQ(Window().focusWidget(), &button);
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&button);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(spoken->text(QAccessible::Name), "spoken");
}
