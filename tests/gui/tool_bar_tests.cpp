// Tool bars and strips of tabs: what is cut off, scrolled and asked; what tabs draw.
#include "Utilities/NamingService.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/application/MessageService.h"
#include "gui/layout/TabCaption.h"
#include "gui/layout/TabbedPaneSelector.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gtest/gtest.h>
#include <optional>

namespace {

using namespace TestSupport;
using GUI::GUIElement;
using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

/// Delivers at once.
class Messages : public GUI::MessageService {
public:
    bool PrepareForUnload() override { return true; }
    void PostMessage(String const& name, Anything const& value) override { SendMessage(name, value); }
    bool PostMessageWithin(GUI::PostBound const&, String const& name, Anything const& value) override {
        return SendMessage(name, value), true;
    }
};

class Bars : public testing::Test {
protected:
    Bars() { service.emplace(Utilities::ComponentDescription{"MessageService", "$Revision: 0 $", "Test"}); }
    ~Bars() override { element = nullptr; }

    static SmartPointer<GUI::DescriptionTree> Tool(char const* name, char const* width = "50") {
        return Node({{"GUIElementType", "ImageButton"},
                     {"ElementName", name},
                     {"InternalName", (std::string("Do") + name).c_str()},
                     {"Handler", "Handler"},
                     {"MinimalWidth", width},
                     {"MaximalWidth", width}});
    }
    static SmartPointer<GUI::DescriptionTree> Tab(char const* name, char const* useBitmaps = "Yes") {
        return Node({{"GUIElementType", "TabCaption"},
                     {"ElementName", name},
                     {"Caption", name},
                     {"ID", "7"},
                     {"UseBitmaps", useBitmaps},
                     {"FontSize", "8"},
                     {"FontName", "Arial"}});
    }
    static SmartPointer<GUI::DescriptionTree> Separator() { return Node({{"GUIElementType", "Separator"}}); }

    template <class Bar>
    Bar& Make(char const* type, std::initializer_list<SmartPointer<GUI::DescriptionTree>> tools,
              unsigned long width, char const* scrolling = "Yes") {
        GUI::EventScope const event;
        element = nullptr;
        auto const bar =
            Node({{"GUIElementType", type}, {"ElementName", "bar"}, {"Scrolling", scrolling}}, tools);
        element = host.Create(Node({{"GUIElementType", "Pane"}, {"ElementName", "root"}}, {bar}), &source);
        element->SetSize(width, 14);
        return dynamic_cast<Bar&>(element->FindElement("bar"));
    }
    /// The names of what the bar shows, with places and widths; a separator has none.
    std::string Shown() {
        auto const& frame = *element->FindElement("bar").GetChildrenList().Begin().Current();
        std::string text;
        for (auto it = frame.GetChildrenList().Begin().Current()->GetChildrenList().Begin(); it.IsValid();
             ++it) {
            unsigned long x = 0, y = 0, width = 0, height = 0;
            it.Current()->GetPosition(x, y);
            it.Current()->GetSize(width, height);
            text += it.Current()->GetElementName().GetStdString() + "@" + std::to_string(x) + "+" +
                    std::to_string(width) + " ";
        }
        return text;
    }
    GUI::Pane& PaneOf(char const* name) { return dynamic_cast<GUI::Pane&>(element->FindElement(name)); }
    void Click(char const* name) {
        GUI::EventScope const event;
        host.Click(PaneOf(name), 1, 1);
        SmartPointer<GUIElement> const held = element;
        PaneOf(name).OnLeftButtonUp(1, 1);
    }

    FakeWindowHost host;
    FakeDataSource source;
    std::optional<Utilities::ComponentCreatorSingleton<Messages>> service;
    SmartPointer<GUIElement> element;
};

} // namespace

TEST_F(Bars, ShowAllThatFitsAndCutOffWhatDoesNot) {
    auto const tools = {Tool("A"), Separator(), Tool("B"), Tool("C")};
    auto const& whole = Make<GUI::ToolBar>("ToolBar", tools, 160);
    EXPECT_EQ(Shown(), "A@0+50 @50+10 B@60+50 C@110+50 ") << "just as wide as the bar, and no scroll buttons";
    EXPECT_EQ(whole.GetVisibleCount(), 0U);

    // 50 + 10 + 50, two buttons of 16, and 16 in reserve: 158 must be below the width.
    Make<GUI::ToolBar>("ToolBar", tools, 158);
    EXPECT_EQ(Shown(), "A@0+50 @50+10 @60+66 LeftScroll@126+16 RightScroll@142+16 ");
    auto& bar = Make<GUI::ToolBar>("ToolBar", tools, 159);
    EXPECT_EQ(Shown(), "A@0+50 @50+10 B@60+50 @110+17 LeftScroll@127+16 RightScroll@143+16 ");
    EXPECT_EQ(bar.GetVisibleCount(), 2U) << "separators don't count";
    GUIElement const* const made = &PaneOf("A");
    bar.OnUpdate({});
    EXPECT_EQ(made, &PaneOf("A")) << "the same row isn't made again";
    element->SetSize(400, 14);
    EXPECT_EQ(Shown(), "A@0+50 @50+10 B@60+50 C@110+50 ");
    EXPECT_EQ(bar.GetVisibleCount(), 0U);

    Make<GUI::ToolBar>("ToolBar", tools, 120, "");
    EXPECT_EQ(Shown(), "A@0+50 @50+10 ") << "cut without scroll buttons too";
    Make<GUI::ToolBar>("ToolBar", tools, 10);
    EXPECT_EQ(Shown().substr(0, 2), "@0") << "no room for any";
    auto& empty = Make<GUI::ToolBar>("ToolBar", {}, 10);
    EXPECT_EQ(empty.OnShowTool("A") + empty.OnScrollTool("RightScroll"), 0);
    EXPECT_EQ(empty.GetFirstVisible(), 0U);
}

TEST_F(Bars, ScrollByMessageAndToATool) {
    auto& bar = Make<GUI::ToolBar>("ToolBar", {Tool("A"), Tool("B"), Tool("C"), Tool("D"), Tool("E")}, 160);
    auto const enabled = [&bar](char const* button) { return bar.GetValue(button, "Enable").GetBool(); };
    EXPECT_TRUE(Shown().starts_with("A@0+50 B@50+50 @")) << Shown();
    EXPECT_TRUE(!enabled("LeftScroll") && enabled("RightScroll"));
    Click("RightScroll");
    EXPECT_TRUE(Shown().starts_with("B@0+50 C@50+50 @")) << Shown();
    EXPECT_TRUE(enabled("LeftScroll") && enabled("RightScroll"));
    source.values[{"bar", "SelectorName"}] = "asked only once";
    Utilities::ResolveComponent<GUI::MessageService>("MessageService")
        ->SendMessage("OnScrollToolbar", "LeftScroll");
    EXPECT_EQ(bar.GetFirstVisible(), 0U);
    bar.OnScrollTool("LeftScroll");
    EXPECT_EQ(bar.GetFirstVisible(), 0U);

    // Back from E: 50 + 48 is below 160, 100 + 48 too, 150 + 48 isn't, so D comes first.
    bar.GetCallback("E", "OnShowTool").Execute("E");
    EXPECT_EQ(bar.GetFirstVisible(), 3U);
    // The last one has no reserve.
    EXPECT_TRUE(Shown().starts_with("D@0+50 E@50+50 @")) << Shown();
    EXPECT_FALSE(enabled("RightScroll"));
    bar.OnScrollTool("RightScroll");
    bar.OnShowTool("A");
    bar.OnShowTool("nobody");
    EXPECT_EQ(bar.GetFirstVisible(), 3U);

    service.reset();
    auto& silent = Make<GUI::ToolBar>("ToolBar", {Tool("A"), Tool("B"), Tool("C"), Tool("D")}, 160);
    Click("RightScroll");
    EXPECT_EQ(silent.GetFirstVisible(), 0U) << "without a message service nothing scrolls";
}

TEST_F(Bars, AskTheHandlerForValuesAndHaveItExecuteClicks) {
    GUI::CustomControl handler;
    handler.SetValue("DoA", "ItemEnabled", false);
    handler.SetValue("DoB", "State", true);
    std::string calls;
    handler.SetCallback("DoB", "OnClick", Tests::MakeCallback([&](Anything const& argument) {
                            calls += argument.IsValid() ? "with " : "without ";
                            return 5L;
                        }));
    GUI::Application::Instance().RegisterComponent("Handler", &handler);
    auto& bar = Make<GUI::ToolBar>("ToolBar", {Tool("A"), Tool("B")}, 300);
    EXPECT_TRUE(!PaneOf("A").GetAccessible().isEnabled && PaneOf("B").GetAccessible().isPressed);
    Click("B");
    Click("A");
    EXPECT_EQ(calls, "without ");
    EXPECT_FALSE(bar.GetCallback("A", "OnOther").IsValid() ||
                 bar.GetCallback("LeftScroll", "OnShowTool").IsValid());
    GUI::Application::Instance().UnregisterComponent("Handler");
    EXPECT_FALSE(bar.GetValue("B", "State").IsValid() || bar.GetValue("nobody", "Enabled").IsValid());
    EXPECT_EQ(bar.OnClick("B"), 0);
}

// ------------------------------------------------------------------ tabs

namespace {

class Tabs : public Bars {
protected:
    GUI::TabbedPaneSelector& MakeStrip(std::initializer_list<SmartPointer<GUI::DescriptionTree>> tabs,
                                       unsigned long width = 400) {
        return Make<GUI::TabbedPaneSelector>("TabbedPaneSelector", tabs, width);
    }
    static void Select(GUI::TabbedPaneSelector& strip, char const* tab) {
        GUI::EventScope const event;
        Anything::MapOfAnythings chosen;
        chosen["ElementName"] = tab;
        strip.OnTabSelectedExecute(chosen);
    }
};

/// Answers a caption's questions; what isn't in `said` is false.
class OneTab : public testing::Test {
protected:
    RecordingDeviceContext::Rows Draw(std::initializer_list<char const*> said, char const* useBitmaps,
                                      char const* colour = "200,100,50") {
        source.values = {{{"tab", "Caption"}, "Lab"}};
        for (char const* const key : said) source.values[{"tab", key}] = true;
        auto const tab = host.Create(Node({{"GUIElementType", "TabCaption"},
                                           {"ElementName", "tab"},
                                           {"FontName", "Arial"},
                                           {"FontSize", "9"},
                                           {"FrameThickness", "1"},
                                           {"BaseColor", colour},
                                           {"UseBitmaps", useBitmaps}}),
                                     &source);
        tab->SetSize(60, 14);
        RecordingDeviceContext context;
        dynamic_cast<GUI::TabCaption&>(*tab).OnPaint(context);
        return context.GetRows();
    }
    /// The arguments of all such calls, without quotation marks.
    static std::string Only(RecordingDeviceContext::Rows const& rows, std::string const& operation) {
        std::string text;
        for (auto const& row : rows)
            if (row.starts_with(operation + " ")) text += row.substr(operation.size()) + ";";
        std::erase(text, '"');
        return text;
    }

    FakeWindowHost host;
    FakeDataSource source;
};

} // namespace

TEST_F(OneTab, HasBorderPicturesForItsPlaceInTheRow) {
    struct Row {
        std::initializer_list<char const*> said;
        char const* right;
        char const* left;
        int x;
    };
    // The border of a tab that is the last one is as wide for the line along the top.
    Row const rows[] = {{{"State", "IsLastTabBroken"}, "MostLeftBrokenSel", "Left Selected", 28},
                        {{"State", "IsLastTab"}, "MostRight Selected", "Left Selected", 44},
                        {{"State", "IsFirstTab"}, "Right Selected", "Left Selected", 57},
                        {{"State", "IsNeighbourActiveTab"}, "Right Selected", "Left Selected", 57},
                        {{"IsLastTabBroken"}, "MostRightBroken", "Left", 28},
                        {{"IsLastTab", "IsFirstTab"}, "MostRight", "MostLeft", 44},
                        {{"IsNeighbourActiveTab"}, "Right", "Left2", 57},
                        {{"IsFirstTab", "IsNeighbourActiveTab"}, "Right", "MostLeft", 57},
                        {{}, "Right", "Left", 57}};
    for (Row const& row : rows) {
        auto const drawn = Draw(row.said, "Yes");
        bool const selected = row.said.size() != 0 && std::string(*row.said.begin()) == "State";
        std::string const x = std::to_string(row.x);
        std::string const bottom = std::string(row.left) == "Left2" ? " 7 13 60 13;" : " 0 13 60 13;";
        SCOPED_TRACE(row.right);
        EXPECT_EQ(Only(drawn, "DrawImage"),
                  " " + x + " 0 TabBorder" + row.right + "; 0 0 TabBorder" + row.left + ";");
        EXPECT_EQ(Only(drawn, "DrawLine"),
                  " 3 0 " + std::string(row.x == 44 ? "44" : "57") + " 0;" + (selected ? "" : bottom));
        EXPECT_EQ(Only(drawn, "FillRectangle"), " 3 0 " + x + " 14; 0 0 60 0;");
        EXPECT_EQ(Only(drawn, "SetBrush"),
                  std::string(selected ? " 196,196,196;" : " 157,157,157;") + " 63,63,63;");
        EXPECT_EQ(Only(drawn, "DrawText"), " 8 2 Lab;");
    }
}

TEST_F(OneTab, IsDrawnWithLines) {
    auto const face = std::string(" 200,100,50;");
    auto drawn = Draw({"State"}, "No");
    EXPECT_EQ(Only(drawn, "FillRectangle"), " 0 0 60 14;");
    EXPECT_EQ(Only(drawn, "SetPen"), " 200,100,50 0 0; 255,255,255 1 0; 80,40,20 1 0; 140,70,35 1 0;");
    EXPECT_EQ(Only(drawn, "DrawLine"), " 0 2 0 14; 0 2 2 0; 2 0 58 0; 58 0 58 14; 59 2 59 14;");
    EXPECT_EQ(Only(drawn, "DrawText") + Only(drawn, "SetFont"), " 4 0 Lab; 9 0 0 Arial 1;");
    drawn = Draw({}, "No", "456,356,306");
    EXPECT_EQ(Only(drawn, "SetBrush"), face) << "cut to 8 bits";
    EXPECT_EQ(Only(drawn, "DrawLine"), " 0 13 60 13; 2 4 2 12; 2 4 4 2; 4 2 57 2; 58 2 58 12; 59 4 59 12;");
    EXPECT_EQ(Only(drawn, "DrawText") + Only(drawn, "SetFont"), " 6 0 Lab; 9 0 0 Arial 0;");
    drawn = Draw({"State", "IsLastTabBroken"}, "No");
    EXPECT_EQ(Only(drawn, "DrawLine"),
              " 0 2 0 14; 0 2 2 0; 2 0 57 0; 58 0 58 3; 59 3 59 6; 58 6 58 9; 57 9 57 12; 58 12 58 13;");
    drawn = Draw({"IsLastTabBroken"}, "No");
    EXPECT_EQ(Only(drawn, "DrawLine"), " 0 13 60 13; 2 4 2 12; 2 4 4 2; 4 2 56 2; 58 2 58 5; 59 5 59 8;"
                                       " 58 8 58 11; 57 11 57 13;");
}

TEST_F(Tabs, AreMeasuredByTheLongestCaptionAndTheirPlace) {
    source.values[{"bar", "MaxCaption B"}] = "longest";
    auto& strip = MakeStrip({Tab("A"), Tab("B"), Tab("C")});
    EXPECT_EQ(Shown(), "A@0+25 B@25+61 C@86+35 ") << "6 pixels a letter, 19 around it, 29 around the last";
    EXPECT_TRUE(strip.GetValue("A", "IsFirstTab").GetBool() && strip.GetValue("C", "IsLastTab").GetBool());
    EXPECT_FALSE(strip.GetValue("A", "IsLastTab").GetBool() ||
                 strip.GetValue("A", "IsLastTabBroken").GetBool());
    element->SetSize(115, 14);
    EXPECT_EQ(Shown(), "A@0+51 @51+32 LeftScroll@83+16 RightScroll@99+16 ") << "45 around one that is torn";
    EXPECT_TRUE(strip.GetValue("A", "IsLastTabBroken").GetBool());
    EXPECT_FALSE(strip.GetValue("C", "IsLastTabBroken").GetBool());
    // Asked, but not to be known.
    GUI::TabCaption alone;
    RecordingDeviceContext context;
    alone.OnGetDeviceContext(context);
    unsigned long width = 0, ignored = 0;
    alone.GetSizeInformation(width, ignored, ignored, ignored);
    EXPECT_EQ(width, 19U);
}

TEST_F(Tabs, AreSelectedThroughTheMessageService) {
    source.values[{"bar", "TabEnabled D"}] = false;
    auto& strip = MakeStrip({Tab("A"), Tab("B"), Tab("C"), Tab("D")});
    int changes = 0;
    source.SetCallback("bar", "OnTabChanged",
                       Tests::MakeCallback([&](Anything const&) { return ++changes, 0L; }));
    EXPECT_FALSE(PaneOf("A").GetAccessible().isSelected);
    Click("B");
    EXPECT_EQ(strip.GetCurrentTab().GetStdString(), "B");
    EXPECT_EQ(PaneOf("B").GetAccessible().role, GUI::Accessible::Role::Tab);
    EXPECT_TRUE(PaneOf("B").GetAccessible().isSelected);
    EXPECT_TRUE(strip.GetValue("C", "IsNeighbourActiveTab").GetBool());
    EXPECT_FALSE(strip.GetValue("A", "IsNeighbourActiveTab").GetBool() ||
                 strip.GetValue("B", "IsNeighbourActiveTab").GetBool());
    auto const paints = [this](char const* tab) { return host.GetPaintCount(PaneOf(tab)); };
    int const before[] = {paints("A"), paints("B"), paints("C")};
    Select(strip, "B");
    Select(strip, "D");
    EXPECT_EQ(before[1], paints("B")) << "chosen already, or disabled";
    EXPECT_FALSE(PaneOf("D").GetAccessible().isEnabled);
    Click("A");
    EXPECT_TRUE(paints("A") > before[0] && paints("B") > before[1] && paints("C") > before[2]);
    EXPECT_EQ(changes, 2);

    service.reset();
    Anything::MapOfAnythings chosen;
    chosen["ElementName"] = "C";
    source.Fire("bar", "OnTabSelected", chosen);
    EXPECT_EQ(strip.GetCurrentTab().GetStdString(), "A");
    chosen["UseMessageService"] = "No";
    source.Fire("bar", "OnTabSelected", chosen);
    EXPECT_EQ(strip.GetCurrentTab().GetStdString(), "C");
    source.values[{"bar", "CurrentTab"}] = "B";
    source.Fire("bar", "OnUpdate");
    EXPECT_EQ(strip.GetCurrentTab().GetStdString(), "B");
}

TEST_F(Tabs, AreReplacedByCaptions) {
    auto& strip = MakeStrip({Tab("A"), Tab("B"), Tab("C")});
    auto const set = [this](std::initializer_list<char const*> names) {
        Anything::VectorOfAnythings tabs(static_cast<std::uint32_t>(names.size()));
        std::uint32_t i = 0;
        for (char const* const name : names) {
            Anything::MapOfAnythings tab;
            tab["InternalName"] = name;
            tab["Caption"] = "long";
            tabs[i++] = tab;
        }
        source.Fire("bar", "OnSetTabCaptions", tabs);
    };
    set({"X", "Y"});
    EXPECT_EQ(Shown(), "X@0+43 Y@43+53 ");
    EXPECT_EQ(strip.GetTabNames().GetSize(), 2U);
    set({});
    EXPECT_EQ(Shown(), "");
    set({"Z"});
    EXPECT_EQ(Shown(), "Z@0+53 ") << "by the pattern of the first tab, which is kept";
}

TEST_F(Tabs, AreGoneThroughByKeys) {
    using Key = GUI::NavigationKey;
    source.values[{"bar", "TabEnabled B"}] = false;
    auto& strip = MakeStrip({Tab("A"), Tab("B"), Tab("C"), Tab("D"), Tab("E")}, 130);
    EXPECT_TRUE(strip.IsTabStop(PaneOf("A")) && !strip.IsTabStop(PaneOf("B")))
        << "one stop, before a choice too";
    auto const press = [&](Key key, char const* focused) {
        GUI::EventScope const event;
        strip.OnNavigationKey(key, PaneOf(focused));
        return strip.GetCurrentTab().GetStdString();
    };
    EXPECT_EQ(press(Key::Right, "A"), "C") << "past a disabled one";
    EXPECT_EQ(press(Key::End, "A"), "E");
    EXPECT_GT(strip.GetFirstVisible(), 0U);
    EXPECT_TRUE(strip.IsTabStop(PaneOf("E")));
    EXPECT_EQ(press(Key::Right, "E"), "E");
    EXPECT_EQ(press(Key::Home, "E"), "A");
    EXPECT_EQ(strip.GetFirstVisible(), 0U) << "scrolled back";
    EXPECT_EQ(press(Key::Left, "A"), "A");
    EXPECT_FALSE(strip.OnNavigationKey(Key::Up, PaneOf("A")));
}
