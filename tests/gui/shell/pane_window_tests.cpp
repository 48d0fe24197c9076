// Panes in real windows on the offscreen platform: painting, repainting, events, exceptions.
#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "gui/elements/Pane.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/shell/CNorvelianAdvancedControl.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/QtApplication.h"

#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using GUI::Pane;
using TestSupport::Node;

testing::Environment* const application = testing::AddGlobalTestEnvironment(new Tests::QtApplication);

/// Writes down what reaches it and does what the test wants in its paint.
class TestPane : public Pane {
public:
    void OnPaint(GUI::PlatformIndependentDeviceContext& context) override {
        ++paints;
        Pane::OnPaint(context);
        if (inPaint) inPaint();
    }
    bool OnLeftButtonDown(GUI::KeyState keyState, long x, long y) override {
        events.push_back((keyState == GUI::KeyState::Control ? "ctrl-down " : "down ") + std::to_string(x) +
                         "," + std::to_string(y));
        if (throwing) throw std::runtime_error("from a pane");
        return vanish ? std::exchange(vanish, nullptr)(), false : consume;
    }
    bool OnMouseMove(long x, long y) override {
        events.push_back("move " + std::to_string(x) + "," + std::to_string(y));
        return consume;
    }
    void OnSelectionChanged(Utilities::String const& name, bool selected) override {
        events.push_back(name.GetStdString() + (selected ? " on" : " off"));
        if (vanish && vanishWhenSelected) std::exchange(vanish, nullptr)();
    }

    int paints = 0;
    bool consume = true;
    bool throwing = false;
    std::function<void()> inPaint;
    std::function<void()> vanish;
    bool vanishWhenSelected = false;
    std::vector<std::string> events;
};

/// A window of 200 by 100 with a pane that fills it and one inside that.
class PaneWindow : public testing::Test {
protected:
    PaneWindow() {
        window_.resize(200, 100);
        identity_.SetWindow(&window_);
        Make(outer_, identity_,
             {{"ElementName", "Outer"}, {"BackgroundColor", "10,20,30"}, {"Selectable", "No"}});
        Make(inner_, *outer_.GetWindowID(),
             {{"ElementName", "Inner"}, {"BackgroundColor", "200,0,0"}, {"Selectable", "Yes"}});
        outer_.SetSize(200, 100);
        inner_.SetPosition(50, 20);
        inner_.SetSize(100, 60);
        window_.show();
        QApplication::processEvents();
        Reset();
    }

    static void Make(TestPane& pane, GUI::PlatformIndependentWindowID const& parent,
                     std::initializer_list<std::pair<char const*, char const*>> attributes) {
        pane.Initialize(parent, *Node(attributes), nullptr);
    }
    void Reset() {
        for (TestPane* const pane : {&outer_, &inner_}) {
            pane->paints = 0;
            pane->events.clear();
        }
    }
    static QWidget& WidgetOf(TestPane& pane) {
        return *GUI::PlatformIndependentWindowID_PC::WindowOf(*pane.GetWindowID());
    }
    static bool Press(TestPane& pane, QPoint place, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QMouseEvent event(QEvent::MouseButtonPress, place, place, Qt::LeftButton, Qt::LeftButton, modifiers);
        QApplication::sendEvent(&WidgetOf(pane), &event);
        return event.isAccepted();
    }

    QWidget window_;
    GUI::PlatformIndependentWindowID_PC identity_;
    TestPane outer_;
    TestPane inner_;
};

} // namespace

TEST_F(PaneWindow, PaintsItsBackgroundWhereItStands) {
    QImage const picture = window_.grab().toImage();
    EXPECT_EQ(picture.pixelColor(10, 10), QColor(10, 20, 30));
    EXPECT_EQ(picture.pixelColor(50, 20), QColor(200, 0, 0));
    EXPECT_EQ(picture.pixelColor(149, 79), QColor(200, 0, 0));
    EXPECT_EQ(picture.pixelColor(150, 80), QColor(10, 20, 30));
}

TEST_F(PaneWindow, RepaintPaintsBeforeItReturns) {
    inner_.Repaint();
    EXPECT_EQ(inner_.paints, 1);
    EXPECT_EQ(outer_.paints, 0) << "an opaque pane doesn't need what is under it";
    inner_.Repaint();
    EXPECT_EQ(inner_.paints, 2);
}

TEST_F(PaneWindow, RepaintOfAChildWhileItsParentPaintsComesOnceAndIsNotLost) {
    outer_.inPaint = [this] { inner_.Repaint(); };
    outer_.Repaint();
    QApplication::processEvents();
    EXPECT_EQ(outer_.paints, 1);
    EXPECT_EQ(inner_.paints, 1);
}

TEST_F(PaneWindow, RepaintOfItselfOrOfASiblingInThePaintDoesNotRecurse) {
    TestPane sibling;
    Make(sibling, *outer_.GetWindowID(), {{"ElementName", "Sibling"}});
    sibling.SetSize(40, 40);
    QApplication::processEvents();
    Reset();
    sibling.paints = 0;
    int depth = 0;
    int deepest = 0;
    inner_.inPaint = [&] {
        deepest = std::max(deepest, ++depth);
        if (inner_.paints == 1) {
            inner_.Repaint();
            sibling.Repaint();
        }
        --depth;
    };
    inner_.Repaint();
    EXPECT_EQ(inner_.paints, 1);
    QApplication::processEvents();
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(inner_.paints, 2) << "the repaint asked for in the paint comes after it";
    EXPECT_EQ(sibling.paints, 1);
}

TEST_F(PaneWindow, AClickFocusesSelectsAndReachesThePane) {
    EXPECT_TRUE(Press(inner_, {7, 9}, Qt::ControlModifier));
    EXPECT_EQ(inner_.events, (std::vector<std::string>{"PropertyInspector on", "ctrl-down 7,9"}));
    Reset();
    inner_.consume = false;
    EXPECT_FALSE(Press(inner_, {1, 2}));
    EXPECT_EQ(inner_.events.back(), "down 1,2");
}

TEST_F(PaneWindow, OnlySelectablePanesAreReachedByTab) {
    EXPECT_EQ(WidgetOf(inner_).focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(WidgetOf(outer_).focusPolicy(), Qt::ClickFocus);
}

TEST_F(PaneWindow, APlaceLeftOfThePaneIsALargeNumber) {
    QMouseEvent event(QEvent::MouseMove, QPoint(-1, 5), QPoint(-1, 5), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&WidgetOf(inner_), &event);
    EXPECT_EQ(inner_.events.back(), "move 65535,5");
}

TEST_F(PaneWindow, ExceptionsOfAPaneStayAtTheWindowsEdge) {
    std::vector<std::string> dropped;
    auto const former = Diagnostics::SetSink([&](auto const& where, auto const& what) {
        dropped.push_back(std::string(where.GetCharPointer()) + ": " + what.GetCharPointer());
    });
    inner_.throwing = true;
    EXPECT_FALSE(Press(inner_, {1, 1}));
    inner_.inPaint = [] { throw std::runtime_error("in the paint"); };
    inner_.Repaint();
    inner_.inPaint = nullptr;
    inner_.Repaint();
    Diagnostics::SetSink(former);
    EXPECT_EQ(dropped, (std::vector<std::string>{"CNorvelianAdvancedControl: left button down: from a pane",
                                                 "CNorvelianAdvancedControl: paint: in the paint"}));
    EXPECT_EQ(inner_.paints, 2) << "the window paints again after a failure";
}

TEST_F(PaneWindow, APaneMayVanishInWhateverItIsTold) {
    for (bool const byKey : {true, false})
        for (bool const whenSelected : {true, false}) {
            auto pane = std::make_unique<TestPane>();
            Make(*pane, identity_, {{"ElementName", "Victim"}, {"Selectable", "Yes"}});
            pane->vanish = [&pane] { pane.reset(); };
            pane->vanishWhenSelected = whenSelected;
            QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
            if (byKey)
                QApplication::sendEvent(&WidgetOf(*pane), &key);
            else
                Press(*pane, {1, 1});
            EXPECT_EQ(pane, nullptr) << byKey << whenSelected;
        }
}

TEST_F(PaneWindow, AWindowThatDiesFirstTakesItsPanesWindowsAlong) {
    auto window = std::make_unique<QWidget>();
    GUI::PlatformIndependentWindowID_PC identity;
    identity.SetWindow(window.get());
    TestPane pane;
    Make(pane, identity, {{"ElementName", "Short-lived"}});
    window.reset();
    pane.SetSize(10, 10);
    pane.Repaint();
    EXPECT_EQ(pane.paints, 0);
}
