#include "gui/elements/application/Application.h"
#include "gui/layout/ViewSelector.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/TemporaryDirectory.h"

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

namespace {

/// A tool that registers its updates, as buttons do.
SmartPointer<GUI::DescriptionTree> Tool(char const* name) {
    return Node({{"GUIElementType", "SmallPatch"}, {"ElementName", name}, {"Updates", "Yes"}});
}

class Selector : public ViewSwitching {
protected:
    Selector() {
        for (char const* const row : {"Selector/OnClick", "Selector/OnAfterClick", "A/OnHide",
                                      "A/SetUpdateHandler", "B/OnHide", "B/SetUpdateHandler"}) {
            std::string const text = row;
            auto const slash = text.find('/');
            source.SetCallback(text.substr(0, slash), text.substr(slash + 1),
                               Tests::MakeCallback([this, text](Anything const& argument) {
                                   calls.push_back(text + (argument.IsValid()
                                                               ? " " + std::string(argument.GetString())
                                                               : ""));
                                   if (onCall) onCall(text);
                                   return 0L;
                               }));
        }
    }
    GUI::ViewSelector& Create(char const* justification = "Horizontal", char const* width = "10000") {
        element = host.Create(Node({{"GUIElementType", "ViewSelector"},
                                    {"ElementName", "Selector"},
                                    {"Justification", justification},
                                    {"PaneLinkElementName", "Content"},
                                    {"MaximalWidth", width}},
                                   {Tool("A"), Tool("B")}),
                              &source);
        return dynamic_cast<GUI::ViewSelector&>(*element);
    }
    void Click(char const* tool) {
        GUI::EventScope const event;
        dynamic_cast<GUI::ViewSelector&>(*element).GetCallback(tool, "OnClick").Execute(tool);
    }

    SmartPointer<GUIElement> element;
    std::vector<std::string> calls;
    std::function<void(std::string const&)> onCall;
};

} // namespace

TEST_F(Selector, LaysItsToolsOutAndAnswersThem) {
    auto& selector = Create();
    selector.SetSize(200, 50);
    EXPECT_TRUE(selector.FindElement("B").IfPositionEqual(100, 0));
    unsigned long minimum = 0, maximum = 0, ignored = 0;
    Create("Vertical", "0").GetSizeInformation(minimum, maximum, ignored, ignored);
    EXPECT_TRUE(minimum == 83 && maximum == 83);
    source.values = {{{"A", "ItemEnabled"}, false}, {{"A", "ToolTipText"}, "tip"}, {{"A", "Caption"}, "x"}};
    GUI::DialogDataSource& answers = dynamic_cast<GUI::ViewSelector&>(*element);
    EXPECT_FALSE(answers.GetValue("A", "Enabled").GetBool());
    EXPECT_EQ(answers.GetValue("A", "ToolTipText").GetString(), "tip");
    EXPECT_FALSE(answers.GetValue("A", "State").GetBool());
    EXPECT_FALSE(answers.GetValue("A", "Caption").IsValid());
    EXPECT_FALSE(answers.GetCallback("A", "OnOther").IsValid());
    EXPECT_THROW(host.Create(Node({{"GUIElementType", "ViewSelector"}, {"Justification", "x"}})),
                 std::exception);
}

TEST_F(Selector, AClickShowsTheViewInTheLinkedPaneAndTellsInOrder) {
    Tests::TemporaryDirectory const directory;
    Tests::WriteFile(directory / "b.xml", "<Pane ElementName=\"Inside\"/>");
    auto const content = host.Create(Node({{"GUIElementType", "Pane"}, {"ElementName", "Content"}}), &source);
    GUI::Application::Instance().RegisterComponent("Content", content.Get());
    auto& selector = Create();
    source.values[{"B", "ViewDescription"}] = (directory / "b.xml").c_str();
    Click("A");
    Click("A");
    EXPECT_EQ(calls, (std::vector<std::string>{"Selector/OnClick A", "A/SetUpdateHandler Selector",
                                               "Selector/OnAfterClick A", "Selector/OnClick A"}));
    calls.clear();
    Click("B");
    EXPECT_EQ(calls, (std::vector<std::string>{"Selector/OnClick B", "A/OnHide",
                                               "B/SetUpdateHandler Selector", "Selector/OnAfterClick B"}));
    EXPECT_TRUE(Has(*content, "B")) << "the view has its own name";
    GUI::DialogDataSource& answers = selector;
    EXPECT_TRUE(answers.GetValue("B", "State").GetBool() && !answers.GetValue("A", "State").GetBool());
    GUI::Application::Instance().UnregisterComponent("Content");
}

TEST_F(Selector, EachOfItsCallbacksMayDropIt) {
    for (std::string const strike :
         {"Selector/OnClick", "A/OnHide", "B/SetUpdateHandler", "Selector/OnAfterClick"}) {
        onCall = nullptr;
        Create();
        Click("A");
        onCall = [&](std::string const& call) {
            if (call == strike) element = nullptr;
        };
        Click("B");
        EXPECT_TRUE(element.IsNull()) << strike;
        EXPECT_EQ(GUI::ReleasedElements::GetCount(), 0U);
        EXPECT_EQ(host.GetWindowCount(), 0);
    }
}
