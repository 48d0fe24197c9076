// Layout of windows while it changes, bars, and windows that go while they act.
#include "tests/gui/shell/WindowFixture.h"

using namespace Tests;

namespace {

/// Wants more room as soon as it gets some.
struct Grower : GUI::Pane {
    void SetSize(unsigned long width, unsigned long height) override {
        Pane::SetSize(width, height);
        if (std::exchange(grown_, true)) return;
        SetSizeInformation(150, 150, 0, 10000);
        RecalculateSize();
    }
    bool grown_ = false;
};

} // namespace

TEST_F(Windows, ALayoutAskedForDuringALayoutIsNotLost) {
    Utilities::ComponentCreatorNormal<Grower> const creator({"Leaf", "$Revision: 0 $", "Test"});
    auto& window = Make<GUI::Window_PC>(
        Top("Window", "Main", {},
            {Node({{"GUIElementType", "HBox"}}, {Top("Leaf", "Grower"), Top("Pane", "Other")})}));
    unsigned long x = 0, y = 0;
    window.FindElement("Other").GetPosition(x, y);
    EXPECT_EQ(x, 150U);
    EXPECT_TRUE(window.FindElement("Other").IfSizeEqual(150, 200));
}

TEST_F(Windows, BarsLieBesideTheClientArea) {
    auto& window = Make<GUI::Window_PC>(Top("Window", "Main", {}, {Content()}));
    auto* const menu = new QWidget;
    struct Line : QWidget {
        QSize sizeHint() const override { return {10, 24}; }
    };
    auto* const status = new Line;
    window.GetTopLevel().AddBar(*status, Qt::BottomEdge);
    window.GetTopLevel().AddBar(*menu, Qt::TopEdge);
    QApplication::processEvents();
    EXPECT_EQ(WidgetOf(window).size(), QSize(300, 224));
    EXPECT_TRUE(window.FindElement("Content").IfSizeEqual(300, 200)) << "the client area stays as it was";
    EXPECT_EQ(status->geometry(), QRect(0, 200, 300, 24));
    WidgetOf(window).resize(400, 300);
    QApplication::processEvents();
    EXPECT_TRUE(window.FindElement("Content").IfSizeEqual(400, 276));
    EXPECT_EQ(WidgetOf(window).minimumSize(), QSize(120, 74));
}

TEST_F(Windows, AWindowMayBeDroppedInItsOwnEvents) {
    struct Dropper : DialogHandler {
        Utilities::SmartPointer<GUI::GUIElement>* dropped = nullptr;
        Anything GetValue(String const&, String const& name) override {
            if (name == "Caption" && dropped) *std::exchange(dropped, nullptr) = nullptr;
            return {};
        }
    } dropper;
    element_ = Utilities::ResolveComponent<GUI::GUIElement>("Window");
    auto const node = Top("Window", "Dropped", {}, {Content()});
    element_->Initialize(none_, *node, &dropper);
    QPointer<QWidget> const second = &WidgetOf(*element_);
    dropper.dropped = &element_;
    environment->app->OnLanguageChanged();
    EXPECT_TRUE(element_.IsNull());
    EXPECT_TRUE(!second || !second->isVisible()) << "gone at once";
    GUI::ReleasedElements::DestroyIdle();
    EXPECT_EQ(GUI::ReleasedElements::GetCount(), 0U);
}
