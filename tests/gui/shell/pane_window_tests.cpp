// Panes in real windows on the offscreen platform: painting, repainting, events, exceptions.
#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "gui/elements/DialogHandler.h"
#include "gui/elements/DropDataObject.h"
#include "gui/elements/Pane.h"
#include "gui/elements/application/Application.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/shell/NativeControl_PC.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/QtApplication.h"

#include <QDropEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMimeData>
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
    bool OnLeftButtonUp(long x, long y) override {
        events.push_back("up " + std::to_string(x) + "," + std::to_string(y));
        return consume;
    }
    bool OnMouseMove(long x, long y) override {
        events.push_back("move " + std::to_string(x) + "," + std::to_string(y));
        return consume;
    }
    bool OnMouseLeave() override {
        events.emplace_back("leave");
        return consume;
    }
    void OnSelectionChanged(Utilities::String const& name, bool selected) override {
        events.push_back(name.GetStdString() + (selected ? " on" : " off"));
        if (vanish && vanishWhenSelected) std::exchange(vanish, nullptr)();
    }

    bool IsDragable(std::pair<long, long> const&) override { return dragable; }

    int paints = 0;
    bool dragable = false;
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
    GUI::CNorvelianSurface& Surface() { return GUI::CNorvelianSurface::Of(window_); }
    /// An event of the mouse at a place of the window; whether it was consumed.
    bool Mouse(QEvent::Type type, QPoint place, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        bool const moves = type == QEvent::MouseMove;
        Qt::MouseButtons const held =
            type == QEvent::MouseButtonPress || pressed_ ? Qt::LeftButton : Qt::NoButton;
        pressed_ = type == QEvent::MouseButtonPress || (moves && pressed_);
        QMouseEvent event(type, place, window_.mapToGlobal(place), moves ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : held, modifiers);
        QApplication::sendEvent(&Surface(), &event);
        return event.isAccepted();
    }
    bool Press(QPoint place, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return Mouse(QEvent::MouseButtonPress, place, modifiers);
    }
    void Key(int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&Surface(), &event);
    }
    void Activate() {
        window_.activateWindow();
        QApplication::setActiveWindow(&window_);
        QApplication::processEvents();
        Reset();
    }

    QWidget window_;
    GUI::PlatformIndependentWindowID_PC identity_;
    TestPane outer_;
    TestPane inner_;
    bool pressed_ = false;
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

TEST_F(PaneWindow, WhatIsBeyondATurnsShareIsPaintedTogetherAtItsEnd) {
    Surface().SetPaintsATurn(2);
    for (int i = 0; i < 200; ++i) inner_.Repaint();
    EXPECT_EQ(inner_.paints, 2);
    for (int turn = 0; turn < 2; ++turn) QApplication::processEvents();
    EXPECT_EQ(inner_.paints, 3);
    inner_.Repaint();
    EXPECT_EQ(inner_.paints, 4) << "the next turn has its own share";
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
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(inner_.paints, 2) << "the repaint asked for in the paint comes after it";
    EXPECT_EQ(sibling.paints, 1);
    inner_.inPaint = [&] { inner_.Repaint(); };
    inner_.Repaint();
    EXPECT_LE(inner_.paints, 4) << "a pane that always asks isn't painted for ever";
}

TEST_F(PaneWindow, AClickFocusesSelectsAndReachesThePane) {
    Activate();
    EXPECT_TRUE(Press({57, 29}, Qt::ControlModifier));
    EXPECT_EQ(inner_.events, (std::vector<std::string>{"Focus on", "PropertyInspector on", "ctrl-down 7,9"}));
    EXPECT_TRUE(Surface().hasFocus());
    Reset();
    inner_.consume = false;
    EXPECT_FALSE(Press({51, 22}));
    EXPECT_EQ(inner_.events, (std::vector<std::string>{"PropertyInspector on", "down 1,2"}));
    Mouse(QEvent::MouseButtonRelease, {51, 22});
    Press({1, 1});
    EXPECT_EQ(inner_.events.back(), "Focus off");
    EXPECT_EQ(outer_.events.front(), "Focus on");
}

TEST_F(PaneWindow, TheButtonBelongsToThePaneThatItWentDownIn) {
    Activate();
    Press({60, 30});
    Mouse(QEvent::MouseButtonRelease, {60, 30});
    Reset();
    Press({60, 30});
    Mouse(QEvent::MouseMove, {40, 30});
    Mouse(QEvent::MouseButtonRelease, {40, 31});
    EXPECT_EQ(inner_.events, (std::vector<std::string>{"PropertyInspector on", "down 10,10", "move 65526,10",
                                                       "up 65526,11", "leave"}));
    Mouse(QEvent::MouseMove, {40, 31});
    EXPECT_EQ(outer_.events.back(), "move 40,31");

    // A popup that opened on the press has swallowed the release.
    Reset();
    Press({60, 30});
    pressed_ = false;
    Mouse(QEvent::MouseMove, {10, 10});
    EXPECT_EQ(outer_.events.back(), "move 10,10");
}

TEST_F(PaneWindow, TellsOfTheMouseThatLeavesAndOfTheOneThatIsHeld) {
    Mouse(QEvent::MouseMove, {60, 30});
    Mouse(QEvent::MouseMove, {10, 10});
    EXPECT_EQ(inner_.events, (std::vector<std::string>{"move 10,10", "leave"}));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&Surface(), &leave);
    EXPECT_EQ(outer_.events, (std::vector<std::string>{"move 10,10", "leave"}));

    Reset();
    inner_.SetMouseCapture(true);
    Mouse(QEvent::MouseMove, {10, 10});
    EXPECT_EQ(inner_.events.back(), "move 65496,65526");
    inner_.SetMouseCapture(false);
    Mouse(QEvent::MouseMove, {10, 10});
    EXPECT_EQ(outer_.events.back(), "move 10,10");
}

TEST_F(PaneWindow, TabReachesSelectablePanesAndNativeControlsInTheirOrder) {
    struct Control : GUI::GUIElement {
        GUI::NativeControl native{*this};
        void OnDetach() override { native.Release(); }
    } control;
    auto& button = control.native.Make<QPushButton>(identity_, "no button");
    control.native.SetPosition(0, 0);
    control.native.SetSize(20, 20);
    TestPane last;
    Make(last, identity_, {{"ElementName", "Last"}, {"Selectable", "Yes"}});
    last.SetPosition(0, 80);
    last.SetSize(10, 10);
    Activate();
    QApplication::processEvents();
    EXPECT_TRUE(button.isVisible());
    std::vector<std::string> stops;
    auto const where = [&] {
        if (QApplication::focusWidget() == &button) return "button";
        if (inner_.events.size() && inner_.events.back() == "Focus on") return "inner";
        if (last.events.size() && last.events.back() == "Focus on") return "last";
        return "none";
    };
    auto const tab = [&](bool forward) {
        QKeyEvent event(QEvent::KeyPress, forward ? Qt::Key_Tab : Qt::Key_Backtab,
                        forward ? Qt::NoModifier : Qt::ShiftModifier);
        QApplication::sendEvent(QApplication::focusWidget() ? QApplication::focusWidget() : &Surface(),
                                &event);
        stops.emplace_back(where());
    };
    inner_.SetFocus();
    inner_.events = {"Focus on"};
    for (int i = 0; i < 3; ++i) tab(true);
    for (int i = 0; i < 3; ++i) tab(false);
    EXPECT_EQ(stops, (std::vector<std::string>{"button", "last", "inner", "last", "button", "inner"}));
    control.native.Release();
    QApplication::processEvents();
}

TEST_F(PaneWindow, TheFocusMarkLiesBesideThePane) {
    Activate();
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QApplication::sendEvent(&Surface(), &tab);
    QApplication::processEvents();
    QImage const picture = window_.grab().toImage();
    for (int x = 50; x < 150; ++x)
        for (int const y : {20, 79}) ASSERT_EQ(picture.pixelColor(x, y), QColor(200, 0, 0)) << x << "," << y;
    EXPECT_EQ(picture.pixelColor(49, 50), QColor(0, 0, 0));
    EXPECT_EQ(picture.pixelColor(48, 50), QColor(255, 255, 255));
    Press({1, 1});
    QApplication::processEvents();
    EXPECT_EQ(window_.grab().toImage().pixelColor(49, 50), QColor(10, 20, 30)) << "gone with the focus";
}

TEST_F(PaneWindow, ExceptionsOfAPaneStayAtTheWindowsEdge) {
    std::vector<std::string> dropped;
    auto const former = Diagnostics::SetSink([&](auto const& where, auto const& what) {
        dropped.push_back(std::string(where.GetCharPointer()) + ": " + what.GetCharPointer());
    });
    inner_.throwing = true;
    EXPECT_FALSE(Press({51, 21}));
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
    Activate();
    for (bool const byKey : {true, false})
        for (bool const whenSelected : {true, false}) {
            auto pane = std::make_unique<TestPane>();
            Make(*pane, identity_, {{"ElementName", "Victim"}, {"Selectable", "Yes"}});
            pane->SetSize(20, 20);
            if (byKey) pane->SetFocus();
            pane->vanish = [&pane] { pane.reset(); };
            pane->vanishWhenSelected = whenSelected;
            if (byKey)
                Key(Qt::Key_Space);
            else
                Press({1, 1});
            EXPECT_EQ(pane, nullptr) << byKey << whenSelected;
            Mouse(QEvent::MouseButtonRelease, {1, 1});
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

TEST_F(PaneWindow, APaneThatDiesGivesTheDragCursorBack) {
    auto pane = std::make_unique<TestPane>();
    Make(*pane, identity_, {{"ElementName", "Drag"}});
    pane->SetSize(20, 20);
    pane->dragable = true;
    GUI::Application::Instance().GetImplementation();
    Mouse(QEvent::MouseMove, {1, 1});
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    pane.reset();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(PaneWindow, ADragShowsInThePaneThatAcceptsIt) {
    struct Handler : GUI::DialogHandler {
        GUI::DropEffect OnDragOver(GUI::PlatformIndependentWindowID const&, GUI::DropDataObject const& data,
                                   GUI::KeyState const&, long x, long) override {
            return data.HasFormat("text/plain") && x < 50 ? GUI::DropEffect::Copy : GUI::DropEffect::None;
        }
        bool OnDrop(GUI::PlatformIndependentWindowID const&, GUI::DropDataObject const& data, GUI::DropEffect,
                    long, long) override {
            dropped = data.GetData("text/plain").GetString().GetStdString();
            return true;
        }
        std::string dropped;
    } handler;
    TestPane target;
    target.Initialize(identity_, *Node({{"ElementName", "Target"}}), &handler);
    target.SetSize(100, 100);
    QMimeData data;
    data.setText("a sample");
    auto const move = [&](QPoint place) {
        QDragMoveEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&Surface(), &event);
        return event.isAccepted();
    };
    QDragEnterEvent enter(QPoint(10, 20), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QApplication::sendEvent(&Surface(), &enter);
    EXPECT_FALSE(target.DrawDragMouseOver());
    EXPECT_TRUE(move({10, 20}));
    EXPECT_EQ(target.GetDragMouseOverPosition(), std::pair(10L, 20L));
    int const paints = target.paints;
    move({10, 20});
    EXPECT_EQ(target.paints, paints) << "nothing has changed";
    EXPECT_FALSE(move({60, 20}));
    EXPECT_FALSE(target.DrawDragMouseOver());
    move({11, 20});
    EXPECT_TRUE(target.DrawDragMouseOver());
    QDropEvent drop(QPoint(12, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Surface(), &drop);
    EXPECT_EQ(handler.dropped, "a sample");
    EXPECT_FALSE(target.DrawDragMouseOver());
    EXPECT_EQ(target.GetDragMouseOverPosition(), std::pair(-1L, -1L));
}
