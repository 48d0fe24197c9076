// The logic behind Colour Desk's window, without a window.
#include "cxf/samples/Sample.h"
#include "hosts/colourdesk/ColourDesk.h"
#include "hosts/colourdesk/SampleWindow.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/TemporaryDirectory.h"

#include <cmath>
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

TEST(SampleWindow, ManySamplesAreShownPageByPage) {
    constexpr long count = 3000;
    Tests::TemporaryDirectory const directory;
    std::string text = "CGATS.17\nNUMBER_OF_FIELDS 37\nBEGIN_DATA_FORMAT\nSAMPLE_NAME";
    for (int nm = 380; nm <= 730; nm += 10) text += " SPECTRAL_NM" + std::to_string(nm);
    text += "\nEND_DATA_FORMAT\nNUMBER_OF_SETS " + std::to_string(count) + "\nBEGIN_DATA\n";
    for (long i = 0; i < count; ++i) {
        text += "S" + std::to_string(i);
        for (int band = 0; band < 36; ++band) text += " 0." + std::to_string(1000 + i);
        text += '\n';
    }
    Tests::WriteFile(directory / "many.txt", text + "END_DATA\n");
    SampleWindow window(SampleDocument::Open(directory / "many.txt"));
    long updates = 0;
    std::string message;
    window.SetCallback("Patch0_0", "OnUpdate",
                       Tests::MakeCallback([&](Anything const&) { return ++updates; }));
    window.SetCallback("Spectra", "OnUpdate", Tests::MakeCallback([&](Anything const& command) {
                           if (command.GetString() == "Properties") return 0L;
                           message = command.GetString().GetStdString();
                           return 0L;
                       }));
    window.Start();
    auto const name = [&] { return window.GetValue("SampleName", "Caption").GetString().GetStdString(); };
    EXPECT_EQ(message, "1;1-36;2800");
    EXPECT_EQ(window.GetValue("SamplePage", "Caption").GetString(),
              "Samples 1 to 2800 of 3000. Page Up, Page Down");
    updates = 0;
    window.TurnPages(1);
    EXPECT_EQ(name(), "S2800");
    EXPECT_EQ(message, "1;1-36;200");
    EXPECT_EQ(updates, 1) << "the places show the next samples";
    EXPECT_EQ(window.GetValue("Patch0_0", "ColorValue"), window.GetValue("SelectedColour", "ColorValue"));
    EXPECT_EQ(window.GetValue("Patch0", "Data").GetMapOfAnythings()["Color"],
              window.GetValue("Patch0_0", "ColorValue"));
    EXPECT_EQ(window.GetValue("XYGraph", "1").GetVectorOfAnythings()[0].GetString(), "S2800");
    EXPECT_EQ(window.GetValue("XYGraph", "ActiveCurve").GetShort(), 0);
    EXPECT_EQ(window.GetValue("LabChart", "NrOfPatches").GetLong(), 200);
    window.GetCallback("Patch0_5", "OnLeftButtonDown").Execute("Patch0_5");
    EXPECT_EQ(name(), "S2805");
    window.TurnPages(1);
    EXPECT_EQ(name(), "S2999") << "not past the last one";
    window.TurnPages(-1);
    EXPECT_EQ(name(), "S199");
    EXPECT_EQ(message, "1;1-36;2800");
    window.SelectLast();
    window.SelectFirst();
    EXPECT_EQ(name(), "S0");
}

TEST(SampleWindow, ShowsAllSamplesInATable) {
    SampleWindow window = MakeWindow();
    window.Select(4);
    window.GetCallback("ShowTable", "OnClick").Execute("ShowTable");
    EXPECT_EQ(window.GetValue("Views", "CurrentView").GetString(), "TableView");
    EXPECT_EQ(window.GetValue("SampleGrid", "RowCount").GetLong(), 35);
    auto const cell = [&window](long row, std::uint32_t column) {
        auto const rows = window.GetValue("SampleGrid", "Rows " + Utilities::String(row) + "-99");
        return rows.GetVectorOfAnythings()[0].GetVectorOfAnythings()[column].GetString().GetStdString();
    };
    EXPECT_EQ(cell(0, 0), "Name");
    auto const& lab = window.GetDocument().GetSamples()[4].lab;
    EXPECT_EQ(cell(5, 0), window.GetDocument().GetSamples()[4].name);
    EXPECT_EQ(cell(5, 2), Utilities::String(lab[0], 2, '.').GetStdString());
    EXPECT_EQ(cell(5, 5), Utilities::String(std::hypot(lab[1], lab[2]), 2, '.').GetStdString());
    EXPECT_EQ(cell(5, 7), "0.00") << "the difference to itself";
    EXPECT_NE(cell(6, 7), "0.00");
    // Sorted, the largest difference first; what is clicked is the sample of that row.
    window.SetValue("SampleGrid", "SortOrder", "-8");
    EXPECT_EQ(cell(34, 7), "0.00");
    Anything::VectorOfAnythings place(2);
    place[0] = 2L;
    place[1] = 1L;
    std::string const first = cell(1, 0);
    window.SetValue("SampleGrid", "CurrentCell", Anything(place));
    EXPECT_EQ(window.GetValue("SampleName", "Caption").GetString(), first.c_str());
    // The tree has the same one, and gives another.
    auto const names = window.GetValue("SampleTree", "Children file").GetVectorOfAnythings();
    long const sample = window.GetSelected();
    EXPECT_EQ(names[static_cast<std::uint32_t>(sample)].GetMapOfAnythings()["Text"].GetString(),
              first.c_str());
    EXPECT_EQ(window.GetValue("SampleTree", "Selected").GetString(), "file/" + Utilities::String(sample));
    window.SetValue("SampleTree", "Selected", "file/7");
    window.SetValue("SampleTree", "Selected", "file");
    EXPECT_EQ(window.GetSelected(), 7);
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
    auto const number = [&](char const* name) {
        return std::stod(window.GetValue(name, "Caption").GetString().GetStdString());
    };
    EXPECT_NEAR(number("SampleChroma"), std::hypot(number("SampleA"), number("SampleB")), 1e-4);
    EXPECT_NEAR(number("SampleHue"), std::atan2(number("SampleB"), number("SampleA")) * 180 / 3.14159265,
                1e-3)
        << "of a colour in the first quarter";
    std::string const text =
        SampleDocument::FormatLab({number("SampleLightness"), number("SampleA"), number("SampleB")});
    std::string const tip = window.GetValue("Patch0_1", "ToolTipText").GetString();
    EXPECT_NE(tip.find("TCS02"), std::string::npos);
    EXPECT_NE(tip.find(text), std::string::npos) << "the tip says the same numbers";
    EXPECT_NE(tip.find("D50"), std::string::npos) << "and their condition";
}

TEST(SampleWindow, ChangedSamplesAreSavedAndUndone) {
    Tests::TemporaryDirectory const directory;
    SampleWindow window = MakeWindow();
    Anything::MapOfAnythings first;
    first["ElementName"] = "Patch0_0";
    auto const sample = window.GetSample(Anything(first));
    EXPECT_EQ(sample->RenameSample("TCS02"), "TCS02 (2)") << "its set keeps names apart";
    EXPECT_EQ(sample->RenameSample("Mine"), "Mine");
    // The inspector's element may stand for another sample by now.
    Anything::MapOfAnythings other;
    other["ElementName"] = "Patch0_1";
    window.DataChanged(Anything(other), "Name");
    EXPECT_TRUE(window.HasUnsavedChanges() && window.CanUndo("any"));
    EXPECT_EQ(window.GetDocument().GetSamples()[0].name, "Mine");
    window.GetDocument().SaveAs(directory / "saved.txt");
    window.OnSaved();
    EXPECT_FALSE(window.HasUnsavedChanges());
    auto const saved = SampleDocument::Open(directory / "saved.txt");
    EXPECT_EQ(saved.GetSamples()[0].name, "Mine");
    EXPECT_EQ(saved.GetSamples().size(), 34U);
    EXPECT_EQ(saved.GetSamples()[33].spectrum, window.GetDocument().GetSamples()[33].spectrum);
    window.Undo("any");
    EXPECT_EQ(sample->GetName(), "TCS01");
    EXPECT_TRUE(window.HasUnsavedChanges()) << "the file has the other name";
    EXPECT_FALSE(window.CanUndo("any"));
}

TEST(Options, SayWhatIsWrong) {
    EXPECT_EQ(Options::Parse({"--screenshot", "a.png", "b.txt"}).file, "b.txt");
    EXPECT_TRUE(Options::Parse({}).file.empty());
    for (auto const& arguments :
         std::vector<std::vector<std::string>>{{"--screenshot"}, {"--nonsense"}, {"a", "b"}})
        EXPECT_THROW(Options::Parse(arguments), Norvelian::Utilities::Exceptions::InvalidArgumentException);
}
