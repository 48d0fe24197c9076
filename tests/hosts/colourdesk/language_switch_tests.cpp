// Colour Desk's open window: its language, switched as a user switches it, and what it says of failures.
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "Utilities/ProgramDirectory.h"
#include "gui/elements/Pane.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "hosts/colourdesk/ColourDesk.h"
#include "tests/support/TemporaryDirectory.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QWindow>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

namespace {

namespace fs = std::filesystem;

/// The lines of one of the program's own language files; the first is line 1.
std::vector<std::string> Lines(std::string const& file) {
    std::istringstream text(Tests::ReadFile(std::string(SOURCES) + "/Languages/" + file));
    std::vector<std::string> lines(1);
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
}

/// The program's directory, with the files that are there when it is installed.
class ProgramFiles {
public:
    ProgramFiles() {
        fs::remove_all(Utilities::GetProgramDirectory());
        fs::create_directories(Utilities::GetProgramDirectory());
        for (char const* const name : {"Languages", "descriptions", "data", "images"})
            fs::create_symlink(fs::path(SOURCES) / name, fs::path(Utilities::GetProgramDirectory()) / name);
    }
    ~ProgramFiles() { fs::remove_all(Utilities::GetProgramDirectory()); }
    ProgramFiles(ProgramFiles const&) = delete;
    ProgramFiles& operator=(ProgramFiles const&) = delete;
};

class Desk : public ColourDesk::Application {
public:
    using Application::Application;
    QWidget& Widget() const {
        return *GUI::PlatformIndependentWindowID_PC::WindowOf(*GetMainWindow()->GetWindowID());
    }
    GUI::Pane& FindPane(char const* name) const {
        return dynamic_cast<GUI::Pane&>(GetMainWindow()->FindElement(name));
    }
    void Press(int key) const {
        for (auto const type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(Widget().windowHandle(), &event);
        }
        QCoreApplication::processEvents();
    }
    void ReportError(Utilities::String const& text) override { told += text.GetStdString() + "\n"; }
    std::string told;
};

constexpr char const* samples = SOURCES "/data/samples/cie_named_34_36band.txt";

} // namespace

TEST(ColourDeskWindow, ShowsEveryTextInTheLanguageThatIsSwitchedTo) {
    Tests::TemporaryDirectory const settings;
    ::setenv("XDG_CONFIG_HOME", settings.GetPath().c_str(), 1);
    ProgramFiles const files;
    auto const preferences = Utilities::ResolveComponent<Utilities::Preferences>("Preferences");
    preferences->SetValue("LanguageService", "Language", "French");
    ColourDesk::Options options;
    options.file = samples;
    options.language = "German";
    Desk desk(options);
    desk.Start();
    EXPECT_EQ(preferences->GetValue("LanguageService", "Language", ""), "French")
        << "the option is for once only";
    QWidget& window = desk.Widget();
    // Another element's caption is put together from a text and a number; it needs a sample beyond the gamut.
    constexpr char const* outside = "Patch0_11";
    desk.FindPane(outside).OnLeftButtonDown(GUI::KeyState::None, 5, 5);

    std::vector<QImage> pictures;
    for (std::string const language : {"German", "Japanese", "English", "French", "German"}) {
        if (!pictures.empty()) {
            desk.Press(Qt::Key_F8);
            EXPECT_EQ(preferences->GetValue("LanguageService", "Language", ""), language.c_str());
        }
        auto const lines = Lines(language + ".lang");
        EXPECT_EQ(GUI::FromPlatformText(window.windowTitle()),
                  (lines[2] + " \u2013 cie_named_34_36band.txt").c_str());
        auto const keys = Lines("Languages.key");
        auto const row = std::find(keys.begin(), keys.end(), "Sample %1 of %2") - keys.begin();
        std::string position = lines[static_cast<std::size_t>(row)];
        position.replace(position.find("%1"), 2, "12").replace(position.find("%2"), 2, "34");
        std::string const sign = language == "German" || language == "French" ? "," : ".";
        std::vector<std::string> expected{lines[5],       lines[6],
                                          position,       "TCS12",
                                          "D50, 2\u00B0", "cie_named_34_36band.txt",
                                          "L*",           "29" + sign + "20",
                                          "a*",           "\u22125" + sign + "29",
                                          "b*",           "\u221249" + sign + "31",
                                          "C*ab",         "49" + sign + "60",
                                          "hab",          "263" + sign + "9\u00B0"};
        std::vector<std::string> shown;
        for (QLabel const* const label : window.findChildren<QLabel*>()) {
            if (label->isHidden()) continue;
            shown.push_back(GUI::FromPlatformText(label->text()));
            EXPECT_LE(label->sizeHint().width(), label->width()) << shown.back() << " is clipped";
            EXPECT_LE(label->sizeHint().height(), label->height()) << shown.back() << " is clipped";
        }
        std::sort(expected.begin(), expected.end());
        std::sort(shown.begin(), shown.end());
        EXPECT_EQ(shown, expected) << language;
        std::string const tip = desk.FindPane(outside).GetToolTipText(5, 5);
        EXPECT_TRUE(tip.ends_with("\n" + lines[5])) << tip;
        pictures.push_back(window.grab().toImage());
    }
    EXPECT_EQ(pictures.front(), pictures.back()) << "back where it began";
    for (std::size_t i = 1; i < pictures.size(); ++i) EXPECT_NE(pictures[i], pictures[i - 1]);
    desk.Press(Qt::Key_F6);
    EXPECT_EQ(window.grab().toImage(), pictures.back()) << "no other key does it";
    desk.Close();
    desk.ReleaseImplementation();
}

TEST(ColourDeskWindow, SaysThatALanguageCouldNotBeKept) {
    Tests::TemporaryDirectory const settings;
    Tests::WriteFile(settings / "file", "no folder");
    ::setenv("XDG_CONFIG_HOME", (settings / "file").c_str(), 1);
    ProgramFiles const files;
    ColourDesk::Options options;
    options.file = samples;
    options.language = "German";
    Desk desk(options);
    desk.Start();
    desk.Press(Qt::Key_F8);
    EXPECT_NE(desk.told.find("The choice can't be kept for the next start. " + (settings / "file")),
              std::string::npos)
        << desk.told;
    desk.Close();
    desk.ReleaseImplementation();
}

TEST(ColourDeskWindow, StaysWhereTheNextOneLacksAnElement) {
    Tests::TemporaryDirectory const settings;
    ::setenv("XDG_CONFIG_HOME", settings.GetPath().c_str(), 1);
    ProgramFiles const files;
    ColourDesk::Options options;
    options.file = samples;
    Desk desk(options);
    desk.Start();
    auto const* const window = desk.GetMainWindow();
    std::string description = Tests::ReadFile(SOURCES "/descriptions/ColourDesk.xml");
    std::string const box = "<VBox>";
    description.insert(description.find(box) + box.size(),
                       "<LoopBox CounterVariable='#' Base='1'><HBox MinimalWidth='-#'/></LoopBox>");
    Tests::WriteFile(settings / "descriptions/ColourDesk.xml", description);
    GUI::GUIDescriptionReader::SetDirectory((settings / "descriptions").c_str());
    EXPECT_EQ(desk.OpenFile(samples), 0);
    EXPECT_NE(desk.told.find("1 of its elements can't be built"), std::string::npos) << desk.told;
    EXPECT_EQ(desk.GetMainWindow(), window);
    EXPECT_TRUE(window->IsAttached());
    GUI::GUIDescriptionReader::SetDirectory("");
    EXPECT_EQ(desk.OpenFile(samples), 1) << desk.told;
    EXPECT_NE(desk.GetMainWindow(), nullptr);
    desk.Close();
    desk.ReleaseImplementation();
}
