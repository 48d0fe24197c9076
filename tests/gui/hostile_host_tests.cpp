// Every component against data sources that do their worst inside a question or a callback: close the
// window, rebuild the view, throw, change the language. Nothing may be used after it is gone, which the
// address sanitizer sees, and nothing may stay behind.
#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "gui/elements/CallScope.h"
#include "gui/elements/NumberTable.h"
#include "gui/elements/Pane.h"
#include "gui/elements/ViewInput.h"
#include "gui/elements/description/Attributes.h"
#include "tests/support/ElementNames.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/RecordingDeviceContext.h"
#include "tests/support/TemporaryDirectory.h"

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace {

using namespace TestSupport;
using GUI::GUIElement;
using GUI::Pane;
using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

/// Strikes once, at a call given beforehand.
class HostileSource : public FakeDataSource {
public:
    int calls = 0;
    int strikeAt = -1;
    std::function<void()> strike;

    void SetValue(String const& element, String const& name, Anything const& value) override {
        Called();
        FakeDataSource::SetValue(element, name, value);
    }
    Anything GetValue(String const& element, String const& name) override {
        Called();
        return FakeDataSource::GetValue(element, name);
    }
    Utilities::Callback GetCallback(String const& element, String const& name) override {
        auto const registered = FakeDataSource::GetCallback(element, name);
        if (registered.IsValid() || isGone) return registered;
        return Tests::MakeCallback([this](Anything const&) { return Called(), 1L; });
    }

    /// While elements take their callbacks back they ask for them.
    bool isGone = false;

private:
    void Called() {
        if (calls++ == strikeAt) strike();
    }
};

/// The component that is struck, and whether it shows what it only shows when told to.
std::string type;
bool isAdorned = false;
char const* const legendPlace = "Beside";

SmartPointer<GUI::DescriptionTree> Described() {
    auto const node = Node({{"GUIElementType", type.c_str()}, {"ElementName", "e"}});
    for (auto const& attribute : GUI::AttributeTable::Collect(type))
        if (attribute.mandatory && !node->FindValue(attribute.key))
            (*node)[attribute.key] = attribute.defaultValue;
    // All that is off by default.
    for (auto const& [key, value] : {std::pair("Cursor", "Yes"),
                                     {"Zoom", "Yes"},
                                     {"GamutEdge", "Yes"},
                                     {"Cases", "Yes"},
                                     {"Difference", "Yes"},
                                     {"Band", "Range"},
                                     {"Axes", "Edges"},
                                     {"Legend", legendPlace}})
        for (auto const& attribute : GUI::AttributeTable::Collect(type))
            if (isAdorned && attribute.key == std::string(key)) (*node)[key] = value;
    // More than there is room for.
    for (char const* const tab : {"A", "B", "C", "D"})
        if (type == "TabbedPaneSelector")
            node->AddChild(Node(
                {{"GUIElementType", "TabCaption"}, {"ElementName", tab}, {"Caption", "a long caption"}}));
    return node;
}
SmartPointer<GUI::DescriptionTree> Wrapped(SmartPointer<GUI::DescriptionTree> const& node) {
    return Node({{"GUIElementType", "Pane"}, {"ElementName", "root"}}, {node});
}

struct Operation {
    char const* name;
    std::function<void(GUIElement&, FakeWindowHost&)> run;
};

template <class Call> std::function<void(GUIElement&, FakeWindowHost&)> OnPane(Call call) {
    return [call](GUIElement& element, FakeWindowHost& host) {
        if (auto* const pane = dynamic_cast<Pane*>(&element)) call(*pane, host);
    };
}

/// Each is in the table of `docs/reentrancy.md` by its name.
Operation const operations[] = {
    {"creation",
     [](GUIElement& element, FakeWindowHost&) {
         auto const source = element.GetDataSource();
         dynamic_cast<Pane&>(*element.GetParentElement())
             .SetGUIDescriptionTree(*Wrapped(Described()), source);
     }},
    {"layout",
     [](GUIElement& element, FakeWindowHost&) {
         element.SetSize(120, 80);
         if (element.IsAttached()) element.RecalculateSize();
     }},
    {"update", [](GUIElement& element, FakeWindowHost&) { element.OnUpdate({}); }},
    {"update of settings", [](GUIElement& element, FakeWindowHost&) { element.OnUpdate("Properties"); }},
    {"update of data", [](GUIElement& element, FakeWindowHost&) { element.OnUpdate("1;1-3;2"); }},
    {"language", [](GUIElement& element, FakeWindowHost&) { element.OnLanguageChanged(); }},
    {"paint", OnPane([](Pane& pane, FakeWindowHost& host) {
         RecordingDeviceContext context;
         host.Paint(pane, context);
     })},
    {"click", OnPane([](Pane& pane, FakeWindowHost& host) { host.Click(pane, 3, 4); })},
    {"move", OnPane([](Pane& pane, FakeWindowHost& host) { host.Move(pane, 3, 4); })},
    {"tool tip", OnPane([](Pane& pane, FakeWindowHost& host) { host.GetToolTip(pane, 3, 4); })},
    {"selection", OnPane([](Pane& pane, FakeWindowHost&) { pane.Select({}); })},
    {"looking closer",
     [](GUIElement& element, FakeWindowHost&) {
         auto* const view = dynamic_cast<GUI::ViewInput*>(&element);
         GUI::CallScope const call(element);
         if (view) view->OnWheel(1, 9, 9);
         for (auto const key : {GUI::ViewKey::Right, GUI::ViewKey::PanLeft, GUI::ViewKey::Whole})
             if (view && call.IsAttached()) view->OnViewKey(key);
     }},
    {"numbers", [](GUIElement& element, FakeWindowHost&) { GUI::NumberTableOf(element); }},
    {"properties", OnPane([](Pane& pane, FakeWindowHost&) { pane.GetProperties(); })},
};

/// The columns of the table.
enum class Strike { Drop, Rebuild, Throw, Language, Modal };
char const* const strikes[] = {"close the window", "rebuild the view", "throw", "change the language",
                               "run a modal dialog"};

/// Runs one operation with a strike at one call of the data source; false if it made fewer calls.
bool StrikeAt(Operation const& operation, Strike kind, int strikeAt) {
    FakeWindowHost host;
    HostileSource source;
    auto const tree = Wrapped(Described());
    SmartPointer<GUIElement> root = host.Create(tree, &source);
    source.values = {{{"e", "NrOfPatches"}, Anything(2L)}, {{"e", "IsSelectable"}, Anything(true)}};
    Anything::VectorOfAnythings column(3);
    column[0] = "curve";
    column[1] = column[2] = 0.5;
    if (isAdorned)
        for (char const* const asker : {"e", "XYGraph"})
            for (char const* const key : {"1", "2"}) source.values[{asker, key}] = Anything(column);
    root->SetSize(200, 100);
    GUIElement* const element = root->GetChildrenList().Begin().Current().Get();
    source.strike = [&] {
        switch (kind) {
        case Strike::Drop:
            source.isGone = true;
            root = nullptr;
            break;
        case Strike::Rebuild:
            dynamic_cast<Pane&>(*root).SetGUIDescriptionTree(*Wrapped(Described()), &source);
            break;
        case Strike::Throw:
            throw std::runtime_error("from a data source");
        case Strike::Language:
            root->OnLanguageChanged();
            break;
        case Strike::Modal: {
            // Its loop brings the other events of the window.
            GUI::EventScope const event(1);
            root->OnUpdate({});
            root->SetSize(150, 90);
            RecordingDeviceContext context;
            host.Paint(dynamic_cast<Pane&>(*root), context);
            break;
        }
        }
    };
    source.calls = 0;
    source.strikeAt = strikeAt;
    {
        GUI::EventScope const event;
        try {
            GUI::CallScope const call(*element);
            operation.run(*element, host);
        } catch (std::exception const&) {
            // What the contracts let escape reaches whoever called.
        }
        if (kind == Strike::Rebuild && source.calls > strikeAt) {
            EXPECT_FALSE(element->IsAttached());
            EXPECT_EQ(element->GetDataSource(), nullptr);
        }
    }
    EXPECT_EQ(GUI::ReleasedElements::GetCount(), 0U) << "nothing piles up";
    bool const struck = source.calls > strikeAt;
    source.strikeAt = -1;
    source.isGone = true;
    root = nullptr;
    EXPECT_EQ(host.GetWindowCount(), 0);
    return struck;
}

class HostileHost : public testing::TestWithParam<std::string> {};

} // namespace

TEST_P(HostileHost, MayDoAnythingInAnyCall) {
    type = GetParam();
    isAdorned = false;
    auto const former = Diagnostics::SetSink([](auto const&, auto const&) {});
    auto const strikeAll = [] {
        for (Operation const& operation : operations)
            for (Strike const kind :
                 {Strike::Drop, Strike::Rebuild, Strike::Throw, Strike::Language, Strike::Modal}) {
                SCOPED_TRACE(std::string(operation.name) + ": " + strikes[static_cast<int>(kind)]);
                int call = 0;
                constexpr int most = 80;
                while (call < most && StrikeAt(operation, kind, call)) ++call;
            }
    };
    strikeAll();
    isAdorned = true;
    strikeAll();
    Diagnostics::SetSink(former);
}

TEST(HostileHostTable, SaysWhatTheSuiteDoes) {
    std::string const document = Tests::ReadFile(SOURCES "/docs/reentrancy.md");
    std::string head = "| Asked or told during |";
    for (char const* const strike : strikes) head += std::string(" ") + strike + " |";
    EXPECT_NE(document.find("\n" + head + "\n"), std::string::npos) << head;
    for (Operation const& operation : operations)
        EXPECT_NE(document.find(std::string("\n| ") + operation.name + " | yes | yes | yes | yes | yes |"),
                  std::string::npos)
            << operation.name;
}

INSTANTIATE_TEST_SUITE_P(Components, HostileHost, testing::ValuesIn(ElementNames()),
                         [](auto const& row) { return row.param; });

// ------------------------------------------------------------------ the rule itself

namespace {

struct Watched : GUIElement {
    explicit Watched(int& alive) : alive_(alive) { ++alive_; }
    ~Watched() override { --alive_; }
    using GUIElement::ReleaseChildren;
    int& alive_;
};

class Release : public testing::Test {
protected:
    SmartPointer<GUIElement> Make() { return SmartPointer<GUIElement>(Utilities::MakeSmart<Watched>(alive)); }
    int alive = 0;
};

} // namespace

TEST_F(Release, OutsideOfEventsDestroysAtOnce) {
    auto element = Make();
    element->Adopt(Make());
    element = nullptr;
    EXPECT_EQ(alive, 0);
}

TEST_F(Release, WaitsForTheLastCallAlsoInANestedLoop) {
    auto parent = Make();
    auto const child = Make();
    parent->Adopt(child);
    auto bystander = Make();
    {
        GUI::EventScope const event(1);
        GUI::CallScope const call(*child);
        {
            // A modal dialog's own events.
            GUI::EventScope const nested(2);
            parent = nullptr;
            bystander = nullptr;
            EXPECT_EQ(alive, 3);
            EXPECT_FALSE(child->IsAttached());
            EXPECT_EQ(child->GetParentElement(), nullptr);
        }
        EXPECT_EQ(alive, 2) << "only what the call may still be in waits";
        {
            GUI::EventScope const sentByThePlatform(1);
            EXPECT_EQ(alive, 2);
        }
        EXPECT_EQ(alive, 2);
    }
    EXPECT_EQ(alive, 1) << "someone still holds the child";
}

TEST_F(Release, KeepsAParentThatACallCameThroughBeforeItLostTheChild) {
    auto parent = Make();
    {
        GUI::EventScope const event(1);
        auto child = Make();
        parent->Adopt(child);
        GUI::CallScope const call(*child);
        GUIElement const& below = *child;
        child = nullptr;
        GUI::EventScope const nested(2);
        dynamic_cast<Watched&>(*parent).ReleaseChildren();
        parent = nullptr;
        EXPECT_FALSE(below.IsAttached());
        { GUI::EventScope const innermost(3); }
        EXPECT_EQ(alive, 2) << "the call may have come through the parent";
    }
    EXPECT_EQ(alive, 0);
}

TEST_F(Release, AQuestionAskedOutsideOfEventsIsACallToo) {
    auto element = Make();
    {
        GUI::CallScope const call(*element);
        element = nullptr;
        EXPECT_FALSE(call.IsAttached());
        EXPECT_EQ(alive, 1);
    }
    // The caller's own frames may still be in it; the next event finds it idle.
    EXPECT_EQ(alive, 1);
    { GUI::EventScope const event; }
    EXPECT_EQ(alive, 0);
}
