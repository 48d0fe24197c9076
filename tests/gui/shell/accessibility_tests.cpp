// What a screen reader finds in a window: asked through Qt's interfaces, as its bridges do.
#include "WindowFixture.h"

#include "gui/shell/CNorvelianSurface.h"

#include <QAccessible>

namespace {

using namespace Tests;

class Accessibility : public Windows {
protected:
    void SetUp() override {
        handler_.values["first.ToolTipText"] = "Paper\nL* 95.0\nD50, 2\u00B0";
        handler_.values["second.ToolTipText"] = "Ink";
        handler_.values["second.AccessibleName"] = "Cyan ink";
        Make<GUI::Window_PC>(
            Top("Window", "Main", {},
                {Node({{"GUIElementType", "VBox"}},
                      {Top("CirclePatch", "first", {{"Selectable", "Yes"}}), Top("CheckBox", "check"),
                       Top("Pane", "outer", {}, {Top("CirclePatch", "second", {{"Selectable", "Yes"}})})})}));
        handler_.SetCallback("first", "OnLeftButtonDown", MakeCallback([this](Anything const&) {
                                 ++clicks_;
                                 if (onClick_) onClick_();
                                 return 0L;
                             }));
    }
    QAccessibleInterface* Surface() {
        return QAccessible::queryAccessibleInterface(&GUI::CNorvelianSurface::Of(WidgetOf(*element_)));
    }
    static QString Name(QAccessibleInterface const* object) { return object->text(QAccessible::Name); }

    int clicks_ = 0;
    std::function<void()> onClick_;
};

} // namespace

TEST_F(Accessibility, FindsPanesAndControlsWithNamePlaceAndState) {
    auto* const surface = Surface();
    ASSERT_EQ(surface->childCount(), 3);
    auto* const first = surface->child(0);
    EXPECT_EQ(Name(first), "Paper");
    EXPECT_EQ(first->text(QAccessible::Description), QStringLiteral("L* 95.0\nD50, 2\u00B0"));
    EXPECT_EQ(first->role(), QAccessible::Button);
    EXPECT_TRUE(first->state().focusable);
    auto* const outer = surface->child(1);
    EXPECT_EQ(outer->role(), QAccessible::Grouping);
    ASSERT_EQ(outer->childCount(), 1);
    auto* const second = outer->child(0);
    EXPECT_EQ(Name(second), "Cyan ink");
    EXPECT_EQ(second->parent(), outer);
    EXPECT_EQ(outer->parent(), surface);
    EXPECT_EQ(outer->indexOfChild(second), 0);
    auto* const box = surface->child(2);
    EXPECT_EQ(box->role(), QAccessible::CheckBox);
    EXPECT_EQ(surface->indexOfChild(box), 2);
    for (auto* const object : {first, outer}) {
        QPoint const middle = object->rect().center();
        EXPECT_TRUE(surface->rect().contains(object->rect()));
        auto* const found = surface->childAt(middle.x(), middle.y());
        EXPECT_EQ(found, object == outer ? second : object) << "the deepest one";
    }
    EXPECT_EQ(surface->child(0), first) << "one object a pane";
}

TEST_F(Accessibility, OneObjectHasTheFocus) {
    WidgetOf(*element_).activateWindow();
    QApplication::processEvents();
    auto* const first = Surface()->child(0);
    first->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QApplication::processEvents();
    EXPECT_TRUE(first->state().focused);
    EXPECT_FALSE(Surface()->state().focused);
    EXPECT_EQ(Surface()->focusChild(), first);
}

TEST_F(Accessibility, APressClicksAndMayTakeTheWindowAway) {
    auto* const first = Surface()->child(0);
    auto const id = QAccessible::uniqueId(first);
    first->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks_, 1);
    onClick_ = [this] { element_ = nullptr; };
    first->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks_, 2);
    QApplication::processEvents();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}
