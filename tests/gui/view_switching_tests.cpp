#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using GUI::GUIElement;
using Utilities::Anything;
using Utilities::SmartPointer;

/// A switcher with the views "One" and "Two" in a pane.
class ViewSwitching : public testing::Test {
protected:
    SmartPointer<GUIElement> Make(GUI::DialogDataSource& dataSource) {
        auto const view = [](char const* name, char const* inside) {
            return Node({{"GUIElementType", "VBox"}, {"ElementName", name}},
                        {Node({{"GUIElementType", "Pane"}, {"ElementName", inside}})});
        };
        auto root = host.Create(
            Node({{"GUIElementType", "Pane"}, {"ElementName", "Root"}},
                 {Node({{"GUIElementType", "GUIDSwitcher"}, {"ElementName", "Views"}, {"MinimalWidth", "7"}},
                       {view("One", "First"), view("Two", "Second")})}),
            &dataSource);
        dataSource.SetDialogRootElement(root.Get());
        root->SetSize(200, 100);
        return root;
    }
    static bool Has(GUIElement const& root, char const* name) {
        try {
            return root.FindElement(name).IsAttached();
        } catch (std::exception const&) {
            return false;
        }
    }
    long Show(char const* view) {
        GUI::EventScope const event;
        source.values[{"Views", "CurrentView"}] = view;
        return source.Fire("Views", "OnUpdate");
    }

    FakeWindowHost host;
    FakeDataSource source;
};

} // namespace

TEST_F(ViewSwitching, OnlyTheNamedViewExistsAndFillsThePane) {
    auto const root = Make(source);
    EXPECT_TRUE(Has(*root, "First") && !Has(*root, "Second"));
    EXPECT_EQ(source.Fire("Views", "OnUpdate"), 0) << "no answer leaves the view";
    int updates = 0;
    source.SetCallback("Second", "OnUpdate",
                       Tests::MakeCallback([&](Anything const&) { return ++updates, 0L; }));
    EXPECT_EQ(Show("Two"), 1);
    EXPECT_TRUE(!Has(*root, "First") && Has(*root, "Second"));
    EXPECT_EQ(updates, 1);
    EXPECT_TRUE(root->FindElement("Second").IfSizeEqual(200, 100));
    GUIElement const* const made = &root->FindElement("Second");
    EXPECT_EQ(Show("Two"), 0);
    EXPECT_EQ(made, &root->FindElement("Second")) << "the same elements";
    EXPECT_EQ(host.GetWindowCount(), 3);
    unsigned long minimum = 0, ignored = 0;
    root->FindElement("Views").GetSizeInformation(minimum, ignored, ignored, ignored);
    EXPECT_EQ(minimum, 7U);
}

TEST_F(ViewSwitching, AnUnknownViewLeavesThePaneEmptyUntilTheNextUpdate) {
    auto const root = Make(source);
    EXPECT_EQ(Show("Three"), 1);
    EXPECT_TRUE(!Has(*root, "First") && !Has(*root, "Second"));
    EXPECT_EQ(Show("Three"), 0);
    EXPECT_EQ(Show("One"), 1) << "it was the last one that could be shown";
    EXPECT_TRUE(Has(*root, "First"));
    EXPECT_EQ(Show(""), 1);
    EXPECT_FALSE(Has(*root, "First"));

    auto const empty =
        host.Create(Node({{"GUIElementType", "GUIDSwitcher"}, {"ElementName", "Views"}}), &source);
    EXPECT_EQ(Show(""), 0);
    EXPECT_EQ(empty->GetChildrenList().GetSize(), 0U);
}

TEST_F(ViewSwitching, AViewMayBeLeftFromWithinAndAnUpdateMayDropTheWindow) {
    auto root = Make(source);
    auto& first = dynamic_cast<GUI::Pane&>(root->FindElement("First"));
    {
        GUI::EventScope const event;
        GUI::CallScope const call(first);
        Show("Two");
        EXPECT_FALSE(call.IsAttached());
    }
    source.SetCallback("First", "OnUpdate", Tests::MakeCallback([&](Anything const&) {
                           root = nullptr;
                           return 0L;
                       }));
    {
        GUI::EventScope const event;
        Show("One");
    }
    EXPECT_TRUE(root.IsNull());
    EXPECT_EQ(GUI::ReleasedElements::GetCount(), 0U);
    EXPECT_EQ(host.GetWindowCount(), 0);
}

TEST_F(ViewSwitching, ASwitchGivesItsChildrenItsPlaceAndKeepsThoseBeforeAFault) {
    auto const element = host.Create(
        Node({{"GUIElementType", "GUIDSwitch"}}, {Node({{"GUIElementType", "Pane"}, {"ElementName", "A"}}),
                                                  Node({{"GUIElementType", "NoSuchThing"}})}),
        &source);
    EXPECT_EQ(element->GetWindowID()->GetID(), host.GetWindow().GetID());
    element->SetPosition(3, 4);
    element->SetSize(50, 60);
    EXPECT_TRUE(element->FindElement("A").IfPositionEqual(3, 4));
    EXPECT_TRUE(element->FindElement("A").IfSizeEqual(50, 60));
}
