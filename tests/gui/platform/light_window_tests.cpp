// Light windows without a surface: places, order, search, tab stops, damage.
#include "gui/platform/LightWindow.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using GUI::LightWindow;
using GUI::LightWindowOwner;
using GUI::LightWindowTree;
using GUI::PixelBox;

struct Owner : LightWindowOwner {
    void OnPlaced(PixelBox const& whole, PixelBox const& part) override {
        box = whole;
        visible = part;
        ++told;
    }
    PixelBox box;
    PixelBox visible;
    int told = 0;
};

class LightWindows : public testing::Test {
protected:
    LightWindows() { tree_.SetSize(400, 300); }

    std::shared_ptr<LightWindow> Add(LightWindow& parent, PixelBox const& box,
                                     LightWindow::Kind kind = LightWindow::Kind::Pane) {
        auto window = tree_.Add(parent, &owner_, kind);
        window->SetPosition(box.left, box.top);
        window->SetSize(box.GetWidth(), box.GetHeight());
        return window;
    }
    LightWindow& Root() { return tree_.GetRoot(); }

    LightWindowTree tree_;
    Owner owner_;
};

} // namespace

TEST_F(LightWindows, AreClippedByWhatTheyAreIn) {
    auto const outer = Add(Root(), {50, 40, 150, 140});
    auto const inner = Add(*outer, {80, -10, 200, 50});
    EXPECT_EQ(inner->GetBox(), (PixelBox{130, 30, 250, 90}));
    EXPECT_EQ(inner->GetVisibleBox(), (PixelBox{130, 40, 150, 90}));
    outer->SetPosition(60, 40);
    EXPECT_EQ(inner->GetVisibleBox(), (PixelBox{140, 40, 160, 90})) << "moved with its parent";
    outer->Show(false);
    EXPECT_TRUE(inner->GetVisibleBox().IsEmpty());
    EXPECT_EQ(tree_.FindAt(145, 50), nullptr);
    outer->Show(true);
    EXPECT_EQ(tree_.FindAt(145, 50), inner.get());
    EXPECT_EQ(tree_.FindAt(100, 50), outer.get());
    EXPECT_EQ(tree_.FindAt(170, 60), nullptr) << "cut off";
}

TEST_F(LightWindows, LeaveWithAllThatIsInThem) {
    auto outer = Add(Root(), {0, 0, 100, 100});
    auto const inner = Add(*outer, {10, 10, 20, 20});
    auto const behind = Add(Root(), {0, 0, 200, 200});
    EXPECT_EQ(tree_.FindAt(15, 15), behind.get()) << "made later, and so above";
    behind->Leave();
    EXPECT_EQ(tree_.FindAt(15, 15), inner.get());
    outer.reset();
    EXPECT_EQ(inner->GetTree(), nullptr);
    EXPECT_EQ(tree_.FindAt(15, 15), nullptr);
    EXPECT_EQ(tree_.GetCount(), 0U);
    inner->SetPosition(1, 1);
    EXPECT_TRUE(inner->GetVisibleBox().IsEmpty());
}

TEST_F(LightWindows, SayWhatHasToBePainted) {
    auto const window = Add(Root(), {10, 10, 30, 30});
    EXPECT_EQ(tree_.TakeDamage(), (PixelBox{10, 10, 30, 30}));
    EXPECT_TRUE(tree_.TakeDamage().IsEmpty());
    window->SetPosition(50, 10);
    EXPECT_EQ(tree_.TakeDamage(), (PixelBox{10, 10, 70, 30}));
    window->Leave();
    EXPECT_EQ(tree_.TakeDamage(), (PixelBox{50, 10, 70, 30}));
}

TEST_F(LightWindows, TellNativeControlsTheirPlace) {
    auto const outer = Add(Root(), {0, 0, 100, 100});
    auto const native = Add(*outer, {90, 10, 120, 40}, LightWindow::Kind::Native);
    EXPECT_EQ(owner_.told, 0);
    tree_.Settle();
    EXPECT_EQ(owner_.told, 1);
    EXPECT_EQ(owner_.box, (PixelBox{90, 10, 120, 40}));
    EXPECT_EQ(owner_.visible, (PixelBox{90, 10, 100, 40}));
    tree_.Settle();
    EXPECT_EQ(owner_.told, 1) << "nothing has changed";
    outer->SetPosition(5, 0);
    tree_.Settle();
    EXPECT_EQ(owner_.box.left, 95);
    outer->Leave();
    EXPECT_TRUE(owner_.visible.IsEmpty()) << "it went along";
}

TEST_F(LightWindows, TabGoesInTheOrderOfTheTree) {
    auto const first = Add(Root(), {0, 0, 10, 10});
    auto const second = Add(Root(), {0, 20, 10, 30}, LightWindow::Kind::Native);
    auto const within = Add(*first, {1, 1, 5, 5});
    for (auto const& window : {first, second, within}) window->SetTabStop(true);
    auto const walk = [this](bool forward) {
        std::vector<LightWindow*> stops;
        for (auto* stop = tree_.FindTabStop(nullptr, forward); stop; stop = tree_.FindTabStop(stop, forward))
            stops.push_back(stop);
        return stops;
    };
    EXPECT_EQ(walk(true), (std::vector<LightWindow*>{first.get(), within.get(), second.get()}));
    EXPECT_EQ(walk(false), (std::vector<LightWindow*>{second.get(), within.get(), first.get()}));
    first->Show(false);
    EXPECT_EQ(walk(true), (std::vector<LightWindow*>{second.get()}));
    second->SetSize(0, 5);
    EXPECT_TRUE(walk(true).empty());
}

/// The index against a walk over all windows, through random changes.
TEST_F(LightWindows, AreFoundAsAWalkOverAllFindsThem) {
    std::mt19937 random(7);
    auto const upTo = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    std::vector<std::shared_ptr<LightWindow>> windows;
    for (int step = 0; step < 4000; ++step) {
        int const what = upTo(10);
        if (what < 4 || windows.empty()) {
            LightWindow& parent =
                windows.empty() || upTo(2) == 0 ? Root() : *windows[random() % windows.size()];
            if (parent.GetTree()) windows.push_back(Add(parent, {upTo(400) - 20, upTo(300) - 20, 500, 400}));
            if (!windows.empty()) windows.back()->SetSize(upTo(200), upTo(150));
        } else {
            auto& window = windows[random() % windows.size()];
            if (what < 7) window->SetPosition(upTo(300), upTo(200));
            if (what == 7) window->Show(!window->IsShown());
            if (what == 8) tree_.SetSize(200 + upTo(400), 100 + upTo(400));
            if (what == 9 && upTo(4) == 0) {
                std::swap(window, windows.back());
                windows.pop_back();
            }
        }
        if (step % 7 != 0) continue;
        PixelBox const box{upTo(400), upTo(300), 0, 0};
        PixelBox const region{box.left, box.top, box.left + 1 + upTo(90), box.top + 1 + upTo(90)};
        std::vector<LightWindow*> expected;
        for (LightWindow* window : tree_.GetShown())
            if (window->GetVisibleBox().Meets(region)) expected.push_back(window);
        ASSERT_EQ(tree_.FindIn(region), expected) << step;
        LightWindow* topmost = nullptr;
        for (LightWindow* window : expected)
            if (window->GetVisibleBox().Contains(region.left, region.top)) topmost = window;
        ASSERT_EQ(tree_.FindAt(region.left, region.top), topmost) << step;
    }
}
