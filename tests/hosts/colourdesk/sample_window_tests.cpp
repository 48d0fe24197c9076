// The logic behind Colour Desk's window, without a window.
#include "hosts/colourdesk/ColourDesk.h"
#include "hosts/colourdesk/SampleWindow.h"
#include "tests/support/FunctionCallback.h"

#include <gtest/gtest.h>

namespace {

using ColourDesk::Options;
using ColourDesk::SampleDocument;
using ColourDesk::SampleWindow;
using Utilities::Anything;

SampleWindow MakeWindow() { return SampleWindow(SampleDocument::Open(BUNDLED_FILE)); }

} // namespace

TEST(SampleWindow, AnswersEveryElementWithTheSameSample) {
    SampleWindow window = MakeWindow();
    ASSERT_EQ(window.GetDocument().GetSamples().size(), 34U);
    EXPECT_EQ(window.GetValue("PatchRows", "Repetitions").GetLong(), 2);
    EXPECT_EQ(window.GetValue("PatchRow1", "Repetitions").GetLong(), 17);

    window.Select(18);
    EXPECT_EQ(window.GetValue("SampleName", "Caption").GetString(), "VS4 5Y 8/12");
    EXPECT_TRUE(window.GetValue("Patch1_1", "IsActive").GetBool());
    EXPECT_FALSE(window.GetValue("Patch1_0", "IsActive").GetBool());
    EXPECT_EQ(window.GetValue("XYGraph", "ActiveCurve").GetShort(), 18);
    EXPECT_EQ(window.GetValue("LabChart", "SelectedSample").GetLong(), 18);
    EXPECT_EQ(window.GetValue("Patch1_1", "ColorValue"), window.GetValue("SelectedColour", "ColorValue"));
    EXPECT_EQ(window.GetValue("Patch18", "Data").GetMapOfAnythings()["Color"],
              window.GetValue("Patch1_1", "ColorValue"));
    auto const column = window.GetValue("XYGraph", "19").GetVectorOfAnythings();
    ASSERT_EQ(column.GetSize(), 37U);
    EXPECT_EQ(column[0].GetString(), "VS4 5Y 8/12");
    EXPECT_DOUBLE_EQ(column[1].GetDouble(), 0.0449);
    Anything::MapOfAnythings key;
    key["ElementName"] = "Patch1_1";
    EXPECT_EQ(window.GetSample(Anything(key))->GetName(), "VS4 5Y 8/12");
}

TEST(SampleWindow, ClicksSelectAndTellWhatChanged) {
    SampleWindow window = MakeWindow();
    std::vector<std::string> updated;
    for (char const* const element : {"Patch0_0", "Patch0_3", "SampleName", "Spectra"})
        window.SetCallback(element, "OnUpdate", Tests::MakeCallback([&updated, element](Anything const&) {
                               updated.emplace_back(element);
                               return 0L;
                           }));
    window.Select(0);
    updated.clear();
    window.GetCallback("Patch0_3", "OnLeftButtonDown").Execute("Patch0_3");
    EXPECT_EQ(window.GetSelected(), 3);
    EXPECT_EQ(updated, (std::vector<std::string>{"Patch0_0", "Patch0_3", "SampleName", "Spectra"}));

    auto const click = [&window](double a, double b) {
        Anything::MapOfAnythings place;
        place["x"] = a;
        place["y"] = b;
        window.SetValue("LabChart", "Click", Anything(place));
        return window.GetSelected();
    };
    auto const& lab = window.GetDocument().GetSamples()[9].lab;
    EXPECT_EQ(click(lab[1] + 0.3, lab[2] - 0.3), 9);
    EXPECT_EQ(click(500, 500), 9) << "a click far from every spot changes nothing";
}

TEST(SampleWindow, PlacesBehindTheLastSampleAreEmpty) {
    SampleWindow window = MakeWindow();
    for (char const* const place : {"Patch2_0", "Patch0_17", "Patch9_9", "Patchx_y", "Patch"}) {
        EXPECT_FALSE(window.GetValue(place, "IsSelectable").GetBool()) << place;
        EXPECT_TRUE(window.GetValue(place, "BitmapOnly").GetBool()) << place;
        EXPECT_FALSE(window.GetValue(place, "ColorValue").IsValid()) << place;
        EXPECT_FALSE(window.GetCallback(place, "OnLeftButtonDown").IsValid()) << place;
    }
}

TEST(SampleWindow, AnExtendedSpectrumSaysSoBesideItsNumbers) {
    SampleWindow window(SampleDocument::Open(FOREIGN_FILES "narrow.txt"));
    window.Select(0);
    EXPECT_EQ(window.GetValue("SampleCondition", "Caption").GetString(),
              "D50, 2\u00B0; end values repeated below 400 nm and above 700 nm");
    std::string const report = window.GetValue("SampleCondition", "ToolTipText").GetString().GetStdString();
    EXPECT_NE(report.find("3: assumed: spectra in fractions"), std::string::npos) << report;
}

TEST(SampleWindow, NumbersStandWithTheirCondition) {
    SampleWindow window = MakeWindow();
    window.Select(1);
    std::string const text = window.GetValue("SampleLab", "Caption").GetString();
    EXPECT_EQ(text.substr(0, 3), "L* ");
    std::string const tip = window.GetValue("Patch0_1", "ToolTipText").GetString();
    EXPECT_NE(tip.find("TCS02"), std::string::npos);
    EXPECT_NE(tip.find(text), std::string::npos) << "the tip says the same numbers";
    EXPECT_NE(tip.find("D50"), std::string::npos) << "and their condition";
}

TEST(Options, SayWhatIsWrong) {
    EXPECT_EQ(Options::Parse({"--screenshot", "a.png", "b.txt"}).file, "b.txt");
    EXPECT_TRUE(Options::Parse({}).file.empty());
    for (auto const& arguments :
         std::vector<std::vector<std::string>>{{"--screenshot"}, {"--nonsense"}, {"a", "b"}})
        EXPECT_THROW(Options::Parse(arguments), Norvelian::Utilities::Exceptions::InvalidArgumentException);
}
