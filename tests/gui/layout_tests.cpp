#include "core/creators/ComponentCreator.h"
#include "gui/layout/GUILayoutElementBox.h"
#include "gui/layout/LoopBoxCalculator.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/RecordingDeviceContext.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>
#include <sstream>

namespace {

using namespace TestSupport;
using GUI::GUIElement;
using Utilities::String;
using Utilities::Vector;

/// A leaf with the size range of its attributes, which counts how often it is asked for it.
class Leaf : public GUIElement {
public:
    void GetSizeInformation(unsigned long& a, unsigned long& b, unsigned long& c, unsigned long& d) override {
        ++asked;
        GUIElement::GetSizeInformation(a, b, c, d);
    }
    void OnPaintWindowDecorators(GUI::PlatformIndependentDeviceContext& context,
                                 GUIElement const& element) const override {
        auto const text = const_cast<GUIElement&>(element).GetValueString();
        context.DrawText(0, 0, text.GetCharPointer());
    }
    using GUIElement::SetSizeInformation;
    int asked = 0;
};
Utilities::ComponentCreatorNormal<Leaf> const leafCreator({"Leaf", "$Revision: 0 $", "Test"});

/// The sharing of space written down word by word, with its copies and its recursion.
Vector<float> Transcribed(float available, Vector<float> const& minima, Vector<float> const& maxima) {
    std::uint32_t const n = minima.GetSize();
    Vector<float> result(n);
    float weightSum = 0;
    for (std::uint32_t i = 0; i < n; ++i) weightSum += maxima[i] <= 1000000.0F ? maxima[i] : 1000000.0F;
    bool clamped = false;
    for (std::uint32_t i = 0; i < n; ++i) {
        std::uint32_t share = 0;
        if (std::fabs(double{weightSum}) > 0.9998999834060669) {
            double const product = double{maxima[i]} / double{weightSum} * double{available};
            share = static_cast<std::uint32_t>(static_cast<long long>(product));
        }
        auto const offered = static_cast<float>(share);
        if (offered < minima[i]) {
            result[i] = minima[i];
            clamped = true;
        }
        if (offered > maxima[i]) {
            result[i] = maxima[i];
            clamped = true;
        }
        if (clamped) {
            Vector<float> restMinima(n - 1);
            Vector<float> restMaxima(n - 1);
            for (std::uint32_t j = 0; j + 1 < n; ++j) {
                restMinima[j] = minima[j < i ? j : j + 1];
                restMaxima[j] = maxima[j < i ? j : j + 1];
            }
            auto const rest = Transcribed(available - result[i], restMinima, restMaxima);
            for (std::uint32_t j = 0; j + 1 < n; ++j) result[j < i ? j : j + 1] = rest[j];
            break;
        }
    }
    if (!clamped)
        for (std::uint32_t i = 0; i < n; ++i)
            if (std::fabs(double{weightSum}) > 0.9998999834060669)
                result[i] = static_cast<float>(double{maxima[i]} / double{weightSum} * double{available});
    return result;
}

struct BoxProbe : GUI::GUILayoutElementBox {
    using GUILayoutElementBox::DistributeSizes;
};

TEST(SpaceSharing, EqualsItsTranscriptionForAnyInput) {
    std::mt19937 random(1);
    float const nasty[] = {
        0,      0.4F, 1,       2,    79.5F,       80,          9999,          10000,
        999999, 1e6F, 1000001, 4e6F, 16777216.0F, 16777217.0F, 4294967040.0F, 4294967295.0F,
        0x1p32F};
    auto const pick = [&]() -> float {
        switch (random() % 4) {
        case 0:
            return nasty[random() % std::size(nasty)];
        case 1:
            return static_cast<float>(random() % 200);
        case 2:
            return 10000;
        default:
            return static_cast<float>(random() % 20000) / 16;
        }
    };
    int evenRounds = 0;
    for (int round = 0; round < 60000; ++round) {
        auto const n = static_cast<std::uint32_t>(random() % (round % 50 == 0 ? 60 : 9));
        Vector<float> minima(n);
        Vector<float> maxima(n);
        for (float& minimum : minima) minimum = random() % 3 == 0 ? 0 : pick();
        float const common = pick();
        for (float& maximum : maxima) maximum = round % 3 == 0 ? common : pick();
        float const available = random() % 8 == 0 ? -pick() : random() % 4 == 0 ? pick() : random() % 3000;
        auto const expected = Transcribed(available, minima, maxima);
        auto const actual = BoxProbe::DistributeSizes(available, minima, maxima);
        ASSERT_EQ(actual, expected) << "round " << round << ", available " << available;
        std::vector<GUI::ChildLimits> limits;
        for (std::uint32_t i = 0; i < n; ++i) limits.push_back({minima[i], maxima[i]});
        float even = 0;
        if (!GUI::ShareEvenly(available, GUI::Summarise(limits, GUI::SumOfWeights(limits)), even)) continue;
        ++evenRounds;
        for (float const size : expected) ASSERT_EQ(size, even) << "round " << round;
    }
    EXPECT_GT(evenRounds, 1000);
    EXPECT_THROW(BoxProbe::DistributeSizes(1, Vector<float>(2), Vector<float>(1)),
                 Norvelian::Utilities::Exceptions::OutOfRangeException);
    // What no integer holds is defined: it offers nothing.
    EXPECT_EQ(GUI::TruncateToPixels(std::nan("")) + GUI::TruncateToPixels(1e300), 0U);
}

/// "minimum..maximum" for each child along the axis; across it 0..7.
struct LayoutRow {
    char const* children;
    unsigned long space;
    /// "position+size" for each child, from an origin of 5.
    char const* expected;
    char const* seamless = "No";
};

class BoxLayout : public testing::TestWithParam<LayoutRow> {};

void ExpectLayout(LayoutRow const& row, bool horizontal) {
    FakeWindowHost host;
    auto const box = Node({{"GUIElementType", horizontal ? "HBox" : "VBox"}, {"Seamless", row.seamless}});
    std::istringstream children(row.children);
    for (std::string range; children >> range;) {
        auto const dots = range.find("..");
        std::string const minimum = range.substr(0, dots);
        std::string const maximum = range.substr(dots + 2);
        box->AddChild(Node({{"GUIElementType", "Leaf"},
                            {horizontal ? "MinimalWidth" : "MinimalHeight", minimum.c_str()},
                            {horizontal ? "MaximalWidth" : "MaximalHeight", maximum.c_str()},
                            {horizontal ? "MaximalHeight" : "MaximalWidth", "7"}}));
    }
    auto const element = host.Create(box);
    element->SetPosition(horizontal ? 5 : 3, horizontal ? 3 : 5);
    element->SetSize(horizontal ? row.space : 99, horizontal ? 99 : row.space);
    std::string actual;
    for (auto it = element->GetChildrenList().Begin(); it.IsValid(); ++it) {
        unsigned long x = 0, y = 0, width = 0, height = 0;
        it.Current()->GetPosition(x, y);
        it.Current()->GetSize(width, height);
        if (!horizontal) std::swap(x, y), std::swap(width, height);
        EXPECT_EQ(y, 3U);
        EXPECT_EQ(height, 99U) << "limits across the axis play no part";
        actual += (actual.empty() ? "" : " ") + std::to_string(x) + "+" + std::to_string(width);
    }
    EXPECT_EQ(actual, row.expected) << (horizontal ? "HBox" : "VBox");
}

TEST_P(BoxLayout, PlacesItsChildren) {
    ExpectLayout(GetParam(), true);
    ExpectLayout(GetParam(), false);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BoxLayout,
    testing::Values(LayoutRow{"", 100, ""}, LayoutRow{"80..80 0..10000 80..80", 400, "5+80 85+240 325+80"},
                    LayoutRow{"0..100 0..100 0..10000", 300, "5+2 7+2 10+294"},
                    LayoutRow{"0..0 0..0", 50, "5+0 5+0"}, LayoutRow{"10..0", 50, "5+10"},
                    // Over-full: the elastic child gets its full maximum.
                    LayoutRow{"80..80 80..80 0..10000", 100, "5+80 85+80 165+10000"},
                    LayoutRow{"80..80 80..80", 100, "5+80 85+80"},
                    // A maximum above a million counts as one, but its own share is of its true maximum.
                    LayoutRow{"0..4000000 0..1000000", 100, "5+200 205+50"},
                    LayoutRow{"0..50 0..50", 100, "5+50 55+50"},
                    LayoutRow{"60..40 0..1000", 200, "5+60 65+140"}, LayoutRow{"60..40", 200, "5+40"},
                    LayoutRow{"0..3000 0..1000", 200, "5+150 155+50"},
                    LayoutRow{"0..9 0..9 0..9 0..9", 30, "5+7 12+7 20+7 27+7"},
                    LayoutRow{"0..9 0..9 0..9 0..9", 30, "5+7 12+8 20+7 27+8", "Yes"}));

TEST(BoxLayout, AddsUpSizeRanges) {
    FakeWindowHost host;
    auto const make = [](char const* type) {
        return Node({{"GUIElementType", type}},
                    {Node({{"GUIElementType", "Leaf"},
                           {"MinimalWidth", "10"},
                           {"MaximalWidth", "20"},
                           {"MinimalHeight", "1"},
                           {"MaximalHeight", "4294967295"}}),
                     Node({{"GUIElementType", "Leaf"},
                           {"MinimalWidth", "5"},
                           {"MaximalWidth", "50"},
                           {"MinimalHeight", "3"},
                           {"MaximalHeight", "2"}}),
                     Node({{"GUIElementType", "FrameBox"}, {"Top", "1"}, {"Left", "2"}, {"Bottom", "x"}})});
    };
    auto const ranges = [&host](auto const& node) {
        unsigned long a = 9, b = 9, c = 9, d = 9;
        host.Create(node)->GetSizeInformation(a, b, c, d);
        return std::vector<unsigned long>{a, b, c, d};
    };
    using testing::ElementsAre;
    EXPECT_THAT(ranges(make("HBox")), ElementsAre(17, 72, 3, 4294967295));
    EXPECT_THAT(ranges(make("VBox")), ElementsAre(10, 50, 5, 2)) << "sums wrap at 32 bits";
    EXPECT_THAT(ranges(Node({{"GUIElementType", "HBox"}})), ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(ranges(Node({{"GUIElementType", "LoopBox"}})), ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(ranges(Node({{"GUIElementType", "GumBox"}, {"MinimalWidth", "5"}, {"MaximalWidth", "80"}})),
                ElementsAre(0, 80, 0, 0));
    EXPECT_THAT(ranges(Node({{"GUIElementType", "GumBox"}, {"MaximalWidth", "80"}, {"MaximalHeight", "x"}})),
                ElementsAre(0, 80, 0, 0));
}

TEST(BoxLayout, AsksEachElementOncePerPassAndNeverKeepsAnAnswer) {
    FakeWindowHost host;
    auto const leaf = [] { return Node({{"GUIElementType", "Leaf"}, {"MaximalWidth", "100"}}); };
    auto const root = host.Create(
        Node({{"GUIElementType", "HBox"}},
             {Node({{"GUIElementType", "VBox"}}, {Node({{"GUIElementType", "HBox"}}, {leaf(), leaf()})}),
              leaf()}));
    auto const child = [](GUIElement& parent, int index) -> GUIElement& {
        auto it = parent.GetChildrenList().Begin();
        while (index-- > 0) ++it;
        return *it.Current();
    };
    GUIElement& inner = child(child(*root, 0), 0);
    auto& first = dynamic_cast<Leaf&>(child(inner, 0));
    root->SetSize(150, 10);
    EXPECT_EQ(first.asked, 1);
    unsigned long width = 0, height = 0;
    first.GetSize(width, height);
    EXPECT_EQ(width, 50U);

    first.SetSizeInformation(80, 80, 0, 10);
    root->SetSize(150, 10);
    EXPECT_EQ(first.asked, 2);
    first.GetSize(width, height);
    EXPECT_EQ(width, 80U);
}

TEST(FrameBox, KeepsItsMargins) {
    FakeWindowHost host;
    auto const frame = host.Create(
        Node({{"GUIElementType", "FrameBox"}, {"Top", "1"}, {"Left", "2"}, {"Right", "4"}, {"Bottom", "8"}},
             {Node({{"GUIElementType", "Leaf"}}), Node({{"GUIElementType", "Leaf"}})}));
    GUIElement& child = *frame->GetChildrenList().Begin().Current();
    frame->SetPosition(10, 20);
    unsigned long a = 0, b = 0;
    child.GetPosition(a, b);
    EXPECT_EQ(std::pair(a, b), std::pair(12UL, 21UL));
    frame->SetSize(100, 5);
    child.GetSize(a, b);
    EXPECT_EQ(std::pair(a, b), std::pair(94UL, 4294967292UL));

    RecordingDeviceContext context;
    frame->OnPaintWindowDecorators(context, *frame);
    EXPECT_THAT(context.GetRows(),
                testing::ElementsAre("DrawText 0 0 \"FrameBox\"", "DrawText 0 0 \"FrameBox\""));
}

TEST(BoxLayout, StandsWithTheChildrenMadeSoFar) {
    FakeWindowHost host;
    auto const box = host.Create(Node({{"GUIElementType", "VBox"}}, {Node({{"GUIElementType", "Leaf"}}),
                                                                     Node({{"GUIElementType", "Nothing"}}),
                                                                     Node({{"GUIElementType", "Leaf"}})}));
    EXPECT_EQ(box->GetChildrenList().GetSize(), 1U);
}

TEST(LoopBoxCalculator, WorksOutTheFirstFormula) {
    std::pair<char const*, char const*> const rows[] = {
        {"LOOPBOX_CALC(3,4,+)", "7"},
        {"X2Y_LOOPBOX_CALC(2,10,*)Z", "X2Y_20Z"},
        {"LOOPBOX_CALC(7,2,/)", "3"},
        {"LOOPBOX_CALC(0,7,-,2,/)", "-3"},
        {"LOOPBOX_CALC[3,4,+) LOOPBOX_CALC(1,1,+)", "7 LOOPBOX_CALC(1,1,+)"},
        {"LOOPBOX_CALC(1,2,+) LOOPBOX_CALC(1,2,+)", "3 3"},
        {"no formula (1,2,+)", "no formula (1,2,+)"},
        {"LOOPBOX_CALC(1,2)", "LOOPBOX_CALC(1,2)"},
        {"LOOPBOX_CALC(1,2,3,+)", "LOOPBOX_CALC(1,2,3,+)"},
        {"LOOPBOX_CALC(+,1,2)", "LOOPBOX_CALC(+,1,2)"},
        {"LOOPBOX_CALC(1,a,+)", "LOOPBOX_CALC(1,a,+)"},
        {"LOOPBOX_CALC(1,2,+", "LOOPBOX_CALC(1,2,+"},
        {"LOOPBOX_CALC)", "LOOPBOX_CALC)"},
        {"LOOPBOX_CALC(1,0,/)", "LOOPBOX_CALC(1,0,/)"},
        {"LOOPBOX_CALC(-2147483648,-1,/)", "LOOPBOX_CALC(-2147483648,-1,/)"},
        {"LOOPBOX_CALC(2147483647,1,+)", "LOOPBOX_CALC(2147483647,1,+)"},
        {"LOOPBOX_CALC(-2147483648,1,/)", "-2147483648"},
    };
    for (auto const& [formula, expected] : rows) {
        String value(formula);
        GUI::EvaluateLoopBoxFormula(value);
        EXPECT_EQ(value.GetStdString(), expected) << formula;
    }
    for (int const count : {99, 100}) {
        std::string text = "LOOPBOX_CALC(0";
        for (int i = 0; i < count; ++i) text += ",1";
        for (int i = 0; i < count; ++i) text += ",+";
        String value(text + ")");
        GUI::EvaluateLoopBoxFormula(value);
        EXPECT_EQ(value == "99", count == 99) << "100 values fit on the stack";
    }
}

/// The names of the leaves that a loop with these attributes gives, and of the one behind it.
std::string Unroll(std::initializer_list<std::pair<char const*, char const*>> attributes,
                   FakeDataSource* source = nullptr) {
    FakeWindowHost host;
    auto const loop = Node(attributes);
    (*loop)["GUIElementType"] = "LoopBox";
    loop->AddChild(Node({{"GUIElementType", "Leaf"}, {"ElementName", "a#LOOPBOX_CALC(#,10,*)"}}));
    loop->AddChild(Node({{"GUIElementType", "HBox"}, {"ElementName", "b#"}},
                        {Node({{"GUIElementType", "Leaf"}, {"ElementName", "c#"}})}));
    auto const box = host.Create(Node({{"GUIElementType", "HBox"}},
                                      {loop, Node({{"GUIElementType", "Leaf"}, {"ElementName", "end"}})}),
                                 source);
    std::string names;
    for (auto it = box->GetChildrenList().Begin(); it.IsValid(); ++it) {
        names += it.Current()->GetElementName().GetStdString() + " ";
        auto const inner = it.Current()->GetChildrenList().Begin();
        if (inner.IsValid()) names += inner.Current()->GetElementName().GetStdString() + " ";
    }
    return names;
}

TEST(LoopBox, UnrollsItselfIntoItsParent) {
    EXPECT_EQ(Unroll({{"ElementName", "L"}, {"CounterVariable", "#"}, {"Repetitions", "2"}, {"Base", "5"}}),
              "L a550 b5 c5 a660 b6 c6 end ");
    EXPECT_EQ(Unroll({{"CounterVariable", "#"}, {"Repetitions", "0"}}), " a00 b0 c0 end ");
    EXPECT_EQ(Unroll({}), " a#LOOPBOX_CALC(#,10,*) b# c# end ");
    // The reading ends at the first fault; what was read is.
    EXPECT_EQ(Unroll({{"Repetitions", "x"}, {"CounterVariable", "#"}}), " a#LOOPBOX_CALC(#,10,*) b# c# end ");
    EXPECT_EQ(Unroll({{"Repetitions", "-1"}}), "") << "the box ends its construction";

    FakeDataSource source;
    source.values[{"L", "Repetitions"}] = 2L;
    EXPECT_EQ(Unroll({{"ElementName", "L"}, {"CounterVariable", "#"}, {"Repetitions", "9"}}, &source),
              "L a00 b0 c0 a110 b1 c1 end ");
    ASSERT_EQ(source.told.size(), 2U);
    EXPECT_EQ(source.told[0].name + source.told[1].name, "RepetitionsBase");
    EXPECT_EQ(source.told[0].value.GetLong(), 2);
}

} // namespace
