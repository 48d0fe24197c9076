// What is too much is refused before it costs: each case once took gigabytes or seconds.
#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "gui/layout/LoopBoxCalculator.h"
#include "tests/support/Bounded.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>
#include <sstream>
#include <string>

namespace {

using namespace TestSupport;
using GUI::DescriptionException;
using GUI::GUIDescriptionReader;
using GUI::GUIElement;
using testing::HasSubstr;
using Utilities::Limits;
using Utilities::MakeSmart;
using Utilities::SmartPointer;

/// Other limits for one test.
class WithLimits {
public:
    explicit WithLimits(Limits const& limits) { Limits::Set(limits); }
    WithLimits(WithLimits const&) = delete;
    WithLimits& operator=(WithLimits const&) = delete;
    ~WithLimits() { Limits::Set(Limits()); }
};

std::string Refusal(std::string const& text) {
    try {
        GUIDescriptionReader::Parse(text, "f.xml");
    } catch (DescriptionException const& failure) {
        return failure.what();
    }
    return "accepted";
}

bool Has(std::string const& text, char const* part) {
    if (text.find(part) != std::string::npos) return true;
    std::fprintf(stderr, "%s\n", text.substr(0, 400).c_str());
    return false;
}

/// What the sink hears while a window is made of a description; the error that came out comes after it.
std::string Open(std::string const& text, FakeDataSource* source = nullptr) {
    std::string told;
    auto const former = Diagnostics::SetSink([&told](auto const& where, auto const& what) {
        told += std::string(where.GetCharPointer()) + ": " + what.GetCharPointer() + "\n";
    });
    FakeWindowHost host;
    try {
        auto const tree = MakeSmart<GUI::DescriptionTree>(GUIDescriptionReader::Parse(text, "f.xml"));
        auto const root = host.Create(tree, source);
        told += std::to_string(root->GetChildrenList().GetSize()) + " children";
    } catch (Norvelian::Utilities::Exceptions::TraceableException const& failure) {
        told += std::string("out: ") + failure.what();
    }
    Diagnostics::SetSink(former);
    return told;
}

std::string Repeat(std::string const& text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

std::string Nested(char const* repetitions) {
    std::string const loop = std::string("<LoopBox Repetitions='") + repetitions + "'>";
    return "<VBox>\n" + loop + loop + loop + "<HBox/></LoopBox></LoopBox></LoopBox></VBox>";
}

} // namespace

TEST(Limits, OfADescriptionAreToldWithItsLine) {
    Limits limits;
    limits.elements = 4;
    limits.depth = 3;
    limits.attributesOfElement = 3;
    limits.attributes = 5;
    limits.textLength = 10;
    limits.descriptionBytes = 300;
    WithLimits const with(limits);
    std::pair<std::string, char const*> const rows[] = {
        {"<VBox>\n<HBox/><HBox/><HBox/></VBox>", "accepted"},
        {"<VBox>\n<HBox/><HBox/><HBox/>\n<HBox/></VBox>",
         "f.xml:3:1: more than 4 elements (the limit \"elements\""},
        {"<VBox><VBox>\n<VBox><VBox/></VBox></VBox></VBox>",
         "f.xml:2:8: more than 3 elements inside each other"},
        {"<Pane ElementName='p'><Properties>\n<A><B/></A></Properties></Pane>",
         "f.xml:2:5: more than 3 properties inside each other"},
        {"\n<VBox A='1' B='1' C='1' D='1'/>", "f.xml:2:2: more than 3 attributes of one element"},
        {"<VBox A='1' B='1' C='1'>\n<VBox A='1' B='1' C='1'/></VBox>", "f.xml:2:20: more than 5 attributes"},
        {"\n<VBox A='01234567890'/>", "f.xml:2:2: the attribute \"A\" has more than 10 bytes"},
        {"<VBox>" + std::string(300, ' ') + "</VBox>", "more than 300 bytes (the limit \"descriptionBytes\""},
    };
    for (auto const& [text, expected] : rows) EXPECT_THAT(Refusal(text), HasSubstr(expected)) << text;
}

TEST(Limits, AdmitAMillionElementsAndNoMore) {
    EXPECT_TRUE(Tests::EndsSoon([] {
        return Has(Refusal("<VBox>" + Repeat("<VBox/>", 1'000'000) + "</VBox>"), "the limit \"elements\"");
    }));
    EXPECT_EQ(Limits().elements, 1'000'000U);
    EXPECT_GE(Limits().samples, 100'000U);
}

TEST(Limits, RefuseALargeFileUnread) {
    Tests::TemporaryDirectory const directory;
    std::string const path = directory / "large.xml";
    Tests::WriteFile(path, "<VBox>");
    std::filesystem::resize_file(path, 66'000'000);
    EXPECT_TRUE(Tests::EndsSoon([&path] {
        try {
            GUIDescriptionReader::GetGUIDescriptionTree(path.c_str());
        } catch (DescriptionException const& failure) {
            return Has(failure.what(), "the limit \"descriptionBytes\"");
        }
        return false;
    }));
}

TEST(Limits, OfLoopsAreChargedBeforeTheFirstPass) {
    EXPECT_TRUE(Tests::EndsSoon(
        [] { return Has(Open(Nested("1000")), "f.xml:2: LoopBox \"\": its 1000 repetitions"); }));
    // A count that only the data source knows is charged when the loop asks for it.
    EXPECT_TRUE(Tests::EndsSoon([] {
        FakeDataSource source;
        source.values[{"l", "Repetitions"}] = 1'000'000'000L;
        return Has(Open("<VBox><LoopBox ElementName='l'><HBox/></LoopBox></VBox>", &source),
                   "its 1000000000 repetitions");
    }));
    EXPECT_THAT(Open(Nested("30")), HasSubstr("children"));
}

TEST(Limits, OfWhatLoopsWriteHoldForAllOfThem) {
    // A text that grows tenfold in each of several loops.
    std::string text = "<HBox ElementName='" + std::string(20'000, 'a') + "'/>";
    std::pair<char const*, char const*> const loops[] = {
        {"4", "1333333333"}, {"5", "1444444444"}, {"7", "1555555555"}, {"a", "1777777777"}};
    for (auto const& [variable, base] : loops)
        text = std::string("<LoopBox Base='") + base + "' CounterVariable='" + variable + "'>" + text +
               "</LoopBox>";
    EXPECT_TRUE(Tests::EndsSoon([&text] {
        return Has(Open("<VBox>" + text + "</VBox>"), "an attribute grows to more than 1000000 bytes");
    }));
    // A long text in many passes.
    std::string const many = "<VBox><LoopBox Repetitions='60000'><HBox ElementName='" +
                             std::string(20'000, 'a') + "'/></LoopBox></VBox>";
    EXPECT_TRUE(Tests::EndsSoon([&many] { return Has(Open(many), "bytes written by loops"); }));
    std::string const longVariable =
        "<VBox><LoopBox CounterVariable='" + std::string(300, 'a') + "'><HBox/></LoopBox></VBox>";
    EXPECT_THAT(Open(longVariable), HasSubstr("the limit \"counterVariable\""));
    // What a window took is free again when it is gone.
    Limits limits;
    limits.unrolledBytes = 100;
    WithLimits const with(limits);
    std::string const fits = "<VBox><LoopBox Repetitions='9'><HBox ElementName='abcd'/></LoopBox></VBox>";
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Open(fits), "10 children");
}

TEST(Limits, OfElementsHoldForAllWindows) {
    Limits limits;
    limits.elements = GUIElement::GetLivingCount() + 4;
    WithLimits const with(limits);
    FakeWindowHost host;
    auto const vbox = [] { return Node({{"GUIElementType", "VBox"}}, {Node({{"GUIElementType", "HBox"}})}); };
    auto const first = host.Create(vbox());
    auto failed = GUIElement::GetFailedCount();
    auto second = host.Create(vbox());
    EXPECT_EQ(second->GetChildrenList().GetSize(), 1U);
    EXPECT_EQ(GUIElement::GetFailedCount(), failed);
    auto const third = host.Create(vbox());
    EXPECT_EQ(third->GetChildrenList().GetSize(), 0U);
    EXPECT_EQ(GUIElement::GetFailedCount(), failed + 1);
}

TEST(Limits, OfAFormulaAreAnError) {
    std::string const formula = "LOOPBOX_CALC(0" + Repeat(",1,+", 20'000) + ")";
    Utilities::String value(formula);
    EXPECT_TRUE(GUI::EvaluateLoopBoxFormula(value));
    EXPECT_EQ(value.GetStdString(), "20000");
    EXPECT_THAT(Open("<VBox>\n<LoopBox><HBox ElementName='LOOPBOX_CALC(0" + Repeat(",1,+", 60'000) +
                     ")'/></LoopBox></VBox>"),
                HasSubstr("f.xml:2: LoopBox \"\": more than 100000 steps of one formula"));
}

TEST(Limits, WhatBoxesDropIsToldWithFileAndLineAndCounted) {
    std::string const loop = "<LoopBox CounterVariable='#' Base='2'>\n";
    std::pair<std::string, char const*> const rows[] = {
        {loop + "<HBox MinimalWidth='LOOPBOX_CALC(1,#,-)'/></LoopBox>", "<HBox> in f.xml:3: "},
        {loop + "<Pane ElementName='p#' MaximalHeight='nan'/></LoopBox>", "<Pane> \"p2\" in f.xml:3: "},
        {"<LoopBox ElementName='m' Repetitions='1000000000'>\n<HBox/></LoopBox>",
         "<LoopBox> \"m\" in f.xml:2: f.xml:2: LoopBox \"m\": its 1000000000 repetitions"},
    };
    for (auto const& [inside, expected] : rows) {
        auto const failed = GUIElement::GetFailedCount();
        EXPECT_THAT(Open("<VBox>\n" + inside + "</VBox>"), HasSubstr(expected));
        EXPECT_EQ(GUIElement::GetFailedCount(), failed + 1) << inside;
    }
}

TEST(Limits, OfRemarksKeepAFaultyDescriptionCheap) {
    EXPECT_TRUE(Tests::EndsSoon([] {
        std::string element = "<HBox";
        for (int i = 0; i < 500; ++i) element += " MinimalWidht" + std::to_string(i) + "='1'";
        std::string const told = Open("<VBox>" + Repeat(element + "/>", 200) + "</VBox>");
        return Has(told, "further remarks") && Has(told, "200 children");
    }));
}

TEST(Limits, StandInOneTableOfTheDocumentation) {
    std::istringstream header(Tests::ReadFile(SOURCES "/Utilities/Limits.h"));
    std::string const document = Tests::ReadFile(SOURCES "/docs/security.md");
    int count = 0;
    for (std::string line; std::getline(header, line);) {
        auto const begin = line.find("std::size_t ");
        auto const equals = line.find(" = ");
        if (begin == std::string::npos || equals == std::string::npos) continue;
        std::string const name = line.substr(begin + 12, equals - begin - 12);
        std::string number = line.substr(equals + 3, line.find(';') - equals - 3);
        std::replace(number.begin(), number.end(), '\'', ' ');
        EXPECT_NE(document.find("\n| `" + name + "` | " + number + " |"), std::string::npos)
            << name << ' ' << number;
        ++count;
    }
    EXPECT_GE(count, 20);
}
