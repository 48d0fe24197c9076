#pragma once

#include "gui/elements/application/Application.h"
#include "gui/elements/application/MessageService.h"
#include "hosts/colourdesk/DeskFiles.h"
#include "hosts/colourdesk/DeskTools.h"
#include "hosts/colourdesk/Gallery.h"
#include "hosts/colourdesk/SampleWindow.h"

#include <memory>
#include <string>
#include <vector>

namespace ColourDesk {

/// What the command line asks for.
struct Options {
    /// File of measured samples; empty for the one that comes with the program.
    std::string file;
    /// Where the window's picture goes instead of the screen; empty for the screen.
    std::string screenshot;
    /// Where a PDF report on the samples goes instead of a window; empty for none.
    std::string report;
    /// Language of the texts; empty for that of the settings.
    std::string language;
    /// Empty for that of the settings.
    std::string theme;
    /// The view that is shown first; empty for the charts.
    std::string view;
    bool exitAfterFirstPaint = false;
    /// The components of the library in place of samples.
    bool gallery = false;
    /// Where the gallery's pictures go; empty for the screen.
    std::string galleryDirectory;
    bool help = false;
    bool version = false;

    /// Throws `InvalidArgumentException` that names the option.
    static Options Parse(std::vector<std::string> const& arguments);
    static char const* Usage();
};

/// The application: one window with the samples of one file.
class Application : public GUI::Application {
public:
    explicit Application(Options options);
    ~Application() override;

    /// Opens the file and shows it. Throws what reading throws, and `ResourceException` if an element of the
    /// window can't be built; the window before stays then.
    void Show(std::string const& file);
    /// Opens the window that the options ask for, in their language.
    void Start();
    /// The exit code. Shows the window and runs until it is closed, or writes its picture.
    int Execute();
    /// Drops the window.
    void Close();

    /// Asks the user before changes are lost.
    bool MayClose() override;
    /// Opens another file; the one before stays if it can't be read.
    long OpenFile(Utilities::String const& fileName) override;

private:
    class ToolsOf;

    void LoadLanguages();
    /// The screen by the profile that the desktop names, else sRGB.
    Tintorium::ScreenRGB GetScreen();
    /// Page Up, Page Down, Ctrl+Home and Ctrl+End go through the samples.
    long OnKey(Utilities::Anything const& key);
    long OnOpen(Utilities::Anything const& file);
    void OnMenuItem(Utilities::String const& name);
    void SaveFile(Utilities::String const& file);
    Utilities::String FindNextLanguage();
    /// And keeps it in the settings.
    void TakeLanguage(Utilities::String const& language);
    /// Theme and surround of the window, which are kept too.
    void TakeLook();
    void Keep(char const* section, char const* key, Utilities::String const& value);
    int ShowGallery();
    int WritePicture(GUI::GUIElement& window, std::string const& fileName);
    /// False, and the user is told, if it can't be written.
    bool WriteReport(std::string const& fileName);
    /// Writes one where the user keeps documents, and says where.
    void OfferReport();
    void QuitAfterFirstPaint();

    Options options_;
    Utilities::SmartPointer<GUI::MessageService> messages_;
    std::unique_ptr<SampleWindow> handler_;
    DeskTools tools_;
    /// The menu's handlers of the library, which enter themselves under their names.
    Utilities::SmartPointer<Utilities::Component> editMenu_;
    Utilities::SmartPointer<Utilities::Component> inspectorMenu_;
    DeskFiles files_;
    std::unique_ptr<Gallery> gallery_;
    Utilities::SmartPointer<GUI::PlatformIndependentWindowID> noParent_;
    Utilities::SmartPointer<GUI::DescriptionTree> description_;
    Utilities::SmartPointer<GUI::GUIElement> window_;
};

} // namespace ColourDesk
