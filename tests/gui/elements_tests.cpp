#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "gui/elements/SelectionServiceInterface.h"
#include "gui/elements/description/Attributes.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "tests/support/ElementNames.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gmock/gmock.h>
#include <optional>

namespace {

using namespace TestSupport;
using GUI::Pane;
using GUI::RGBVector;
using testing::ElementsAre;
using testing::HasSubstr;
using Utilities::Anything;
using Utilities::String;

TEST(RGBVector, ReadsItsFormsAndNothingElse) {
    RGBVector color(Anything("1, 20,255"));
    EXPECT_EQ(color, RGBVector(1, 20, 255));
    EXPECT_TRUE(color.IsInGamut());
    color.SetInGamut(false);
    EXPECT_EQ(RGBVector(color.GetAnything()), color) << "the flag travels in the record";
    for (char const* text : {"", "1,2", "1,2,3,4", "1;2;3", "256,0,0", "-1,0,0", "a,b,c"})
        EXPECT_ANY_THROW(RGBVector(Anything(text))) << text;
    EXPECT_ANY_THROW(RGBVector(Anything(1L)));
    EXPECT_ANY_THROW(RGBVector{Anything{GUI::AttributeMap()}});
    struct {
        unsigned short percent;
        RGBVector expected;
    } const rows[] = {{0, {200, 100, 7}}, {30, {140, 70, 4}}, {100, {}}, {60000, {}}};
    for (auto const& row : rows) {
        RGBVector darker(200, 100, 7);
        darker.Darker(row.percent);
        EXPECT_EQ(darker, row.expected) << row.percent;
    }
}

TEST(DescriptionReader, TellsWhereAndWhy) {
    std::string deep;
    for (int i = 0; i < 300; ++i) deep = "<HBox>" + deep + "</HBox>";
    std::pair<std::string, char const*> const rows[] = {
        {"", "f.xml:1:1: "},
        {"<HBox>", "f.xml:1:"},
        {"<HBox>\n  <Nothing/>\n</HBox>", "f.xml:2:4: there is no component named \"Nothing\""},
        {"<HBox>\n <HBox>\n  <Pane/></HBox></HBox>", "f.xml:3:4: <Pane> lacks its attribute \"ElementName\""},
        {"<HBox MinimalWidth='wide'/>", "is \"wide\"; expected a number"},
        {"<HBox MinimalWidth='5px'/>", "is \"5px\"; expected a number from 0 to"},
        {"<HBox MinimalWidth='-5'/>", "expected a number from 0 to"},
        {"<XYColorChart ElementName='c' SpotSize='1000000'/>", "expected a number from 0 to 65535"},
        {"<HBux/>", "there is no component named \"HBux\"; did you mean \"HBox\"?"},
        {"<HBox Register='yes'/>", "expected \"Yes\" or \"No\""},
        {"<Pane ElementName='a' BackgroundColor='red'/>", "expected three numbers"},
        {"<HBox A='1' A='2'/>", "is given twice"},
        {"<HBox>text</HBox>", "there is text between elements"},
        {"<HBox/><HBox/>", "second root"},
        {deep, "more than 200 elements inside each other"},
    };
    for (auto const& [text, expected] : rows) {
        try {
            GUI::GUIDescriptionReader::Parse(text, "f.xml");
            ADD_FAILURE() << "accepted: " << text.substr(0, 60);
        } catch (GUI::DescriptionException const& failure) {
            EXPECT_THAT(failure.what(), HasSubstr(expected));
        }
    }
    std::string reported;
    auto const former = Diagnostics::SetSink(
        [&reported](auto const&, auto const& what) { reported += what.GetCharPointer(); });
    auto const tree = GUI::GUIDescriptionReader::Parse(
        "<HBox Mistyped='1' MinimalWith='2' MaximalWidth='9'><LoopBox><HBox MinimalWidth='#'/></LoopBox>\n"
        "<Pane ElementName='p'><Properties A='1'><B C='2'/></Properties></Pane>\n"
        "<Pane ElementName='p'/><Pane ElementName='p' Register='No'/></HBox>",
        "f.xml");
    Diagnostics::SetSink(former);
    EXPECT_THAT(reported, HasSubstr("f.xml:1: <HBox> has no attribute \"Mistyped\"f.xml:1: <HBox> has no "
                                    "attribute \"MinimalWith\"; did you mean \"MinimalWidth\"?"));
    EXPECT_THAT(reported, HasSubstr("f.xml:1: the attribute \"MaximalWidth\" of <HBox>: No effect"));
    EXPECT_THAT(reported, HasSubstr("f.xml:3: a second element is named \"p\"; the first one is in line 2"));
    EXPECT_EQ(reported.find("is in line 3"), std::string::npos) << "an unregistered one can't be mixed up";
    auto const& pane = *(++tree.GetChildren()).Current();
    GUI::AttributeMap const& attributes = pane;
    auto const& properties = attributes["Properties"].GetMapOfAnythings();
    EXPECT_EQ(properties["B"].GetMapOfAnythings()["C"].GetString().GetStdString(), "2");
    EXPECT_FALSE(pane.HasChildren());
}

// ------------------------------------------------------------------ panes

struct PaneTest : testing::Test {
    FakeWindowHost host;
    FakeDataSource source;

    Utilities::SmartPointer<GUI::GUIElement> Make(char const* name) {
        return host.Create(Node({{"GUIElementType", "Pane"}, {"ElementName", name}}), &source);
    }
};

TEST_F(PaneTest, HoldsTheSelectionUntilAnotherTakesItOrItDies) {
    auto service = Utilities::ResolveComponent<GUI::SelectionServiceInterface>("SelectionService");
    auto first = Make("a"), second = Make("b");
    auto& a = dynamic_cast<Pane&>(*first);
    auto& b = dynamic_cast<Pane&>(*second);
    int const paints = host.GetPaintCount(a);
    host.Click(a, 1, 1);
    EXPECT_TRUE(a.IsSelected());
    EXPECT_EQ(service->GetSelection("PropertyInspector"), &a);
    host.Click(b, 1, 1);
    EXPECT_FALSE(a.IsSelected());
    EXPECT_EQ(host.GetPaintCount(a) - paints, 2) << "once with the mark, once without";
    a.OnSelectionChanged("PropertyInspector", false);
    EXPECT_EQ(service->GetSelection("PropertyInspector"), &b) << "only the holder gives it up";
    b.OnSelectionChanged("Focus", true);
    second = nullptr;
    EXPECT_EQ(service->GetSelection("PropertyInspector"), nullptr);
    EXPECT_EQ(service->GetSelection("Focus"), nullptr);
}

TEST_F(PaneTest, RepaintsAtOnceOrAtTheEndOfARunningPaint) {
    auto const root = host.Create(Node({{"GUIElementType", "Pane"}, {"ElementName", "outer"}},
                                       {Node({{"GUIElementType", "Pane"}, {"ElementName", "inner"}})}));
    auto& outer = dynamic_cast<Pane&>(*root);
    auto& inner = dynamic_cast<Pane&>(root->FindElement("inner"));
    outer.Repaint();
    EXPECT_EQ(std::pair(host.GetPaintCount(outer), host.GetPaintCount(inner)), std::pair(1, 1));

    struct Nested : RecordingDeviceContext {
        Pane* target = nullptr;
        void SetBrush(RGBVector const& color) override {
            RecordingDeviceContext::SetBrush(color);
            if (target) target->Repaint();
        }
    } context;
    context.target = &inner;
    host.Paint(outer, context);
    EXPECT_EQ(host.GetPaintCount(outer), 2);
    EXPECT_LE(host.GetPaintCount(inner), 3) << "not for ever";
    EXPECT_GE(host.GetPaintCount(inner), 2) << "not lost";
}

TEST_F(PaneTest, TakesBackItsOwnCallbackAloneWhenItDies) {
    auto pane = host.Create(Node({{"GUIElementType", "Patch"}, {"ElementName", "p"}}), &source);
    source.SetCallback("p", "OnClick", Tests::MakeCallback([](Anything const&) { return 5L; }));
    source.Fire("p", "OnUpdate");
    auto const asked = source.asked;
    EXPECT_FALSE(asked.empty());
    pane = nullptr;
    source.Fire("p", "OnUpdate");
    EXPECT_EQ(source.asked, asked);
    EXPECT_EQ(source.Fire("p", "OnClick"), 5) << "what the host entered is the host's";
    EXPECT_EQ(host.GetWindowCount(), 0);
}

TEST_F(PaneTest, LaysItsInsideOutInAnUnchangedSizeToo) {
    auto const node = Node({{"GUIElementType", "Pane"}, {"ElementName", "outer"}},
                           {Node({{"GUIElementType", "Pane"}, {"ElementName", "inner"}})});
    (*node)["BackgroundColor"] = RGBVector(1, 2, 3).GetAnything();
    auto const outer = host.Create(node, &source);
    EXPECT_EQ(dynamic_cast<Pane&>(*outer).GetBackgroundColor(), RGBVector(1, 2, 3)) << "given as a record";
    GUI::GUIElement& inner = outer->FindElement("inner");
    outer->SetSize(200, 50);
    inner.SetSize(10, 10);
    outer->SetSize(200, 50);
    EXPECT_TRUE(inner.IfSizeEqual(200, 50));
}

// ------------------------------------------------------------------ every component

class EveryElement : public testing::TestWithParam<std::string> {};

TEST_P(EveryElement, LivesOnAnAlmostEmptyDescription) {
    std::string const& type = GetParam();
    SCOPED_TRACE(type);
    FakeWindowHost host;
    FakeDataSource source;
    auto const* const table = GUI::AttributeTable::Find(type);
    ASSERT_NE(table, nullptr) << "its attributes can't be listed";
    for (GUI::DialogDataSource* dataSource :
         {static_cast<GUI::DialogDataSource*>(nullptr), static_cast<GUI::DialogDataSource*>(&source)}) {
        // What is mandatory, and the defaults written out, give the same as the defaults left out.
        for (bool const written : {false, true}) {
            auto const node = Node({{"GUIElementType", type.c_str()}, {"ElementName", "e"}});
            for (auto const& attribute : GUI::AttributeTable::Collect(type))
                if (attribute.type != GUI::AttributeType::Map && !node->FindValue(attribute.key) &&
                    (written || attribute.mandatory))
                    (*node)[attribute.key] = attribute.defaultValue;
            // A loop needs a parent.
            GUI::DescriptionTree parent;
            parent.AddChild(node);
            auto element = host.Create(node, dataSource);
            unsigned long a = 1, b = 0, c = 1, d = 0;
            element->GetSizeInformation(a, b, c, d);
            EXPECT_LE(a, b);
            EXPECT_LE(c, d);
            element->SetPosition(3, 4);
            for (unsigned long const size : {100UL, 0UL, 1UL, 40000UL}) element->SetSize(size, size / 2);
            element->GetSize(a, b);
            EXPECT_EQ(std::pair(a, b), std::pair(40000UL, 20000UL));
            for (Anything const& command : {Anything(), Anything("Properties"), Anything("x|NoRepaint")})
                element->OnUpdate(command);
            element->Enable(false);
            EXPECT_EQ(element->GetValueString(), Diagnostics::String(type.c_str()));
            RecordingDeviceContext context;
            element->OnPaintWindowDecorators(context, *element);
            if (auto* const pane = dynamic_cast<Pane*>(element.Get())) {
                host.Paint(*pane, context);
                bool const consumes = type.ends_with("ImageButton") || type == "TabCaption" ||
                                      type == "ColorWheel" || type == "PalimarSky";
                EXPECT_EQ(host.Click(*pane, 5, 5), consumes);
                host.Move(*pane, 70000, -70000);
                EXPECT_EQ(host.GetToolTip(*pane, 65535, 65535).Length(), 0);
                pane->GetProperties();
            }
            element = nullptr;
            EXPECT_EQ(host.GetWindowCount(), 0);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Components, EveryElement, testing::ValuesIn(ElementNames()),
                         [](auto const& row) { return row.param; });

} // namespace
