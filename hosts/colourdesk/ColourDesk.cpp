#include "hosts/colourdesk/ColourDesk.h"

#include "hosts/colourdesk/AboutBox.h"
#include "hosts/colourdesk/DeskModel.h"

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "Utilities/ProgramDirectory.h"
#include "Utilities/TranslationService.h"
#include "core/base/Exceptions.h"
#include "cxf/conditions/TristimException.h"
#include "gui/elements/application/QuestionBox.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "hosts/colourdesk/SampleReport.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace ColourDesk {

using Norvelian::Utilities::Exceptions::InvalidArgumentException;
using Norvelian::Utilities::Exceptions::ResourceException;
using Norvelian::Utilities::Exceptions::TraceableException;
using Utilities::String;

namespace {

/// What the tools go through.
constexpr std::string_view surrounds[] = {"Theme", "N5", "White"};
constexpr std::string_view themes[] = {"Light", "Dark", "Line"};
constexpr char const* lookSection = "Look";
constexpr char const* bundledFile = "cie_named_34_36band.txt";

/// What the platform sends when a key is released: the key's code, Shift, Ctrl.
constexpr char const* keyMessage = "Key";
/// What the program posts to itself: the file replaces the window that it was dropped on.
constexpr char const* openMessage = "OpenFile";
constexpr char const* pageUpKey = "33;0;0";
constexpr char const* pageDownKey = "34;0;0";
constexpr char const* firstKey = "36;0;1"; // Ctrl+Home
constexpr char const* lastKey = "35;0;1";  // Ctrl+End

std::string BundledFile() { return Utilities::GetProgramDirectory() + "/data/samples/" + bundledFile; }

} // namespace

Options Options::Parse(std::vector<std::string> const& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string const& argument = arguments[i];
        auto const value = [&](char const* what) {
            if (i + 1 == arguments.size()) throw InvalidArgumentException(argument + " needs " + what);
            return arguments[++i];
        };
        if (argument == "--help" || argument == "-h") {
            options.help = true;
        } else if (argument == "--version") {
            options.version = true;
        } else if (argument == "--screenshot") {
            options.screenshot = value("the name of a picture");
        } else if (argument == "--report") {
            options.report = value("the name of a PDF");
        } else if (argument == "--language") {
            options.language = value("a language");
        } else if (argument == "--theme") {
            options.theme = value("a theme");
            if (!GUI::Theme::Find(options.theme))
                throw InvalidArgumentException("there is no theme " + options.theme);
        } else if (argument == "--view") {
            options.view = value("a view");
            if (!SampleWindow::IsView(options.view))
                throw InvalidArgumentException("there is no view " + options.view);
        } else if (argument == "--gallery") {
            options.gallery = true;
            if (i + 1 < arguments.size() && !arguments[i + 1].starts_with("-"))
                options.galleryDirectory = arguments[++i];
        } else if (argument == "--exit-after-first-paint") {
            options.exitAfterFirstPaint = true;
        } else if (argument.starts_with("-")) {
            throw InvalidArgumentException("there is no option " + argument);
        } else if (!options.file.empty()) {
            throw InvalidArgumentException("one file at a time; " + argument + " is the second");
        } else {
            options.file = argument;
        }
    }
    return options;
}

char const* Options::Usage() {
    return "usage: colourdesk [--screenshot PICTURE] [--language LANGUAGE] [FILE]\n"
           "       colourdesk --report PDF [--language LANGUAGE] [FILE]\n"
           "       colourdesk --gallery [DIRECTORY] [--language LANGUAGE]\n"
           "\n"
           "Shows the measured samples of FILE: CGATS text, or the XML form, with spectra of at least 400 to "
           "700 nm.\n"
           "Without FILE, the samples that come with the program.\n"
           "\n"
           "  --screenshot PICTURE       draws the window without a screen and writes it to PICTURE\n"
           "  --report PDF               writes a report on the samples to PDF\n"
           "  --language LANGUAGE        English, French, German or Japanese; F8 in the window takes the\n"
           "                             next one and keeps it\n"
           "  --theme THEME              Light, Dark, Line or Report\n"
           "  --view VIEW                what is shown first: Charts or Table\n"
           "  --gallery [DIRECTORY]      shows the components of the library in their states, or writes one\n"
           "                             picture of each into DIRECTORY\n"
           "  --exit-after-first-paint   ends when the window has been painted\n"
           "  --version                  the program's version\n"
           "  --help                     this text\n";
}

/// The tools are those of a window that is being made; of the one before again if it fails.
class Application::ToolsOf {
public:
    ToolsOf(DeskTools& tools, SampleWindow& window) : tools_(tools), former_(tools.GetWindow()) {
        tools_.SetWindow(&window);
    }
    ToolsOf(ToolsOf const&) = delete;
    ToolsOf& operator=(ToolsOf const&) = delete;
    ~ToolsOf() {
        if (!kept_) tools_.SetWindow(former_);
    }
    void Keep() { kept_ = true; }

private:
    DeskTools& tools_;
    GUI::DialogDataSource* former_;
    bool kept_ = false;
};

Application::Application(Options options) : GUI::Application("colourdesk"), options_(std::move(options)) {
    SetOffscreen(!options_.screenshot.empty() || !options_.report.empty() ||
                 !options_.galleryDirectory.empty());
}

Application::~Application() {
    if (!messages_.IsNull())
        for (char const* const message : {keyMessage, openMessage}) messages_->RemoveCallback(message);
    Close();
}

void Application::Close() {
    files_.Close();
    window_ = nullptr;
    handler_.reset();
    gallery_.reset();
}

Tintorium::ScreenRGB Application::GetScreen() {
    std::string const profile = GetImplementation().GetDisplayProfile();
    if (profile.empty()) return {};
    try {
        return Tintorium::ScreenRGB(profile);
    } catch (Norvelian::Tristim::TristimException const& failure) {
        std::fprintf(stderr, "The display's colour profile can't be used, sRGB is used instead: %s\n",
                     failure.what());
        return {};
    }
}

void Application::Show(std::string const& file) {
    // All that can fail comes before anything that is shown goes.
    Tintorium::ScreenRGB const screen = GetScreen();
    auto handler = std::make_unique<SampleWindow>(SampleDocument::Open(file, screen));
    DeskModel::SetScreen(screen);
    auto const preferences = Utilities::ResolveComponent<Utilities::Preferences>("Preferences");
    String const theme = preferences->GetValue(lookSection, "Theme", handler->GetTheme());
    handler->SetTheme(options_.theme.empty() ? theme : String(options_.theme));
    handler->SetSurround(preferences->GetValue(lookSection, "Surround", handler->GetSurround()));
    auto const description = Utilities::MakeSmart<GUI::DescriptionTree>(
        GUI::GUIDescriptionReader::GetGUIDescriptionTree("ColourDesk"));
    if (noParent_.IsNull())
        noParent_ =
            Utilities::ResolveComponent<GUI::PlatformIndependentWindowID>("PlatformIndependentWindowID");
    auto const window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
    // The window's tools ask while they are made.
    ToolsOf tools(tools_, *handler);
    auto const failed = GUI::GUIElement::GetFailedCount();
    window->Initialize(*noParent_, *description, handler.get());
    // Boxes leave out what can't be built. A window that lacks a part of what it should show is worse than
    // none.
    if (auto const missing = GUI::GUIElement::GetFailedCount() - failed; missing != 0)
        throw ResourceException(file + ": the window can't be shown, " + std::to_string(missing) +
                                " of its elements can't be built; standard error says which");
    tools.Keep();
    Close();
    handler_ = std::move(handler);
    handler_->SetDropHandler([this](String const& dropped) {
        if (!messages_.IsNull()) messages_->PostMessage(openMessage, dropped);
    });
    handler_->SetCommandHandler([this](String const& item) { OnMenuItem(item); });
    description_ = description;
    window_ = window;
    SetMainWindow(window_.Get());
    window_->OnUpdate({});
    handler_->Start();
    if (!options_.view.empty()) handler_->ShowNamedView(options_.view);
}

bool Application::MayClose() {
    if (!handler_ || !handler_->HasUnsavedChanges() || IsOffscreen()) return true;
    return GUI::QuestionBox::MayDiscard(*window_->GetWindowID());
}

long Application::OpenFile(String const& fileName) {
    if (!MayClose()) return 0;
    try {
        Show(fileName);
        return 1;
    } catch (ResourceException const& failure) {
        ReportError(failure.what());
        return 0;
    }
}

void Application::Start() {
    GetImplementation();
    LoadLanguages();
    messages_ = Utilities::ResolveComponent<GUI::MessageService>("MessageService");
    RegisterComponent(DeskTools::componentName, &tools_);
    editMenu_ = Utilities::ResolveComponent<Utilities::Component>("CopyPasteHandler");
    inspectorMenu_ = Utilities::ResolveComponent<Utilities::Component>("PropertyInspectorMenuHandler");
    messages_->SetCallback(keyMessage, Utilities::MakeCallback(this, &Application::OnKey));
    messages_->SetCallback(openMessage, Utilities::MakeCallback(this, &Application::OnOpen));
    if (options_.gallery) {
        gallery_ = std::make_unique<Gallery>();
        gallery_->SetTheme(options_.theme);
    } else
        Show(options_.file.empty() ? BundledFile() : options_.file);
}

int Application::Execute() {
    GUI::ApplicationImplementation const& platform = GetImplementation();
    Start();
    if (gallery_) return ShowGallery();
    if (options_.exitAfterFirstPaint) {
        QuitAfterFirstPaint();
        return Run();
    }
    if (!options_.screenshot.empty()) return WritePicture(*window_, options_.screenshot);
    if (!options_.report.empty()) return WriteReport(options_.report) ? 0 : 1;
    if (platform.IsOffscreen()) {
        std::string const picture = std::filesystem::absolute("colourdesk.png").string();
        int const result = WritePicture(*window_, picture);
        if (result == 0) std::printf("There is no display; the window's picture is in %s\n", picture.c_str());
        return result;
    }
    return Run();
}

int Application::ShowGallery() {
    if (!options_.galleryDirectory.empty()) {
        gallery_->WritePictures(options_.galleryDirectory, GetImplementation());
        return 0;
    }
    GUI::GUIElement& window = gallery_->Show();
    SetMainWindow(&window);
    return options_.screenshot.empty() ? Run() : WritePicture(window, options_.screenshot);
}

void Application::LoadLanguages() {
    auto const languages = Utilities::ResolveComponent<Utilities::TranslationService>("LanguageService");
    try {
        languages->Load();
    } catch (ResourceException const& failure) {
        // The texts are there all the same, in English.
        ReportError(failure.what());
    }
    if (!options_.language.empty()) languages->SetLanguage(options_.language);
}

long Application::OnKey(Utilities::Anything const& key) {
    String const& pressed = key.GetString();
    if (!handler_) return 0;
    if (pressed == pageUpKey)
        handler_->TurnPages(-1);
    else if (pressed == pageDownKey)
        handler_->TurnPages(1);
    else if (pressed == firstKey)
        handler_->SelectFirst();
    else if (pressed == lastKey)
        handler_->SelectLast();
    else
        return 0;
    return 1;
}

long Application::OnOpen(Utilities::Anything const& file) { return OpenFile(file.GetString()); }

void Application::OnMenuItem(String const& name) {
    String const prefix = SampleWindow::languageItem;
    auto const next = [](auto const& all, String const& present) {
        auto const* const found =
            std::find(std::begin(all), std::end(all), std::string_view(present.GetStdString()));
        bool const isLast = found == std::end(all) || found + 1 == std::end(all);
        return String(std::string(isLast ? *std::begin(all) : *(found + 1)));
    };
    if (name == SampleWindow::surroundTool) {
        handler_->SetSurround(next(surrounds, handler_->GetSurround()));
        TakeLook();
    } else if (name == SampleWindow::themeTool) {
        handler_->SetTheme(next(themes, handler_->GetTheme()));
        TakeLook();
    } else if (name == SampleWindow::openItem) {
        // The window that the dialog is over goes when the file is shown.
        files_.Open(*window_->GetWindowID(),
                    [this](String const& file) { messages_->PostMessage(openMessage, file); });
    } else if (name == SampleWindow::saveItem) {
        files_.SaveAs(*window_->GetWindowID(), handler_->GetDocument().GetFileName(),
                      [this](String const& file) { SaveFile(file); });
    } else if (name == SampleWindow::aboutItem) {
        AboutBox().Show(*window_->GetWindowID());
    } else if (name == SampleWindow::quitItem) {
        if (MayClose()) Quit(0);
    } else if (name == SampleWindow::reportItem) {
        OfferReport();
    } else if (name == SampleWindow::nextLanguageItem) {
        TakeLanguage(FindNextLanguage());
    } else if (String const theme = SampleWindow::themeItem; name.FindSubstring(theme, 0) == 0) {
        handler_->SetTheme(name.Mid(theme.Length(), name.Length()));
        TakeLook();
    } else if (String const surround = SampleWindow::surroundItem; name.FindSubstring(surround, 0) == 0) {
        handler_->SetSurround(name.Mid(surround.Length(), name.Length()));
        TakeLook();
    } else if (name.FindSubstring(prefix, 0) == 0) {
        TakeLanguage(name.Mid(prefix.Length(), name.Length()));
    }
}

void Application::SaveFile(String const& file) {
    try {
        handler_->GetDocument().SaveAs(file.GetStdString());
        handler_->OnSaved();
    } catch (TraceableException const& failure) {
        ReportError(failure.what());
    }
}

String Application::FindNextLanguage() {
    auto const service = Utilities::ResolveComponent<Utilities::TranslationService>("LanguageService");
    auto const languages = service->GetLanguages();
    if (languages.GetSize() == 0) return service->GetLanguage();
    auto const current = std::find(languages.begin(), languages.end(), service->GetLanguage());
    bool const isLast = current == languages.end() || current + 1 == languages.end();
    return isLast ? *languages.begin() : *(current + 1);
}

void Application::TakeLanguage(String const& language) {
    Utilities::ResolveComponent<Utilities::TranslationService>("LanguageService")->SetLanguage(language);
    // Its tree is of texts that were translated when it was made.
    SampleWindow::UpdateInspector();
    Keep("LanguageService", "Language", language);
}

void Application::TakeLook() {
    window_->OnUpdate({});
    Keep(lookSection, "Theme", handler_->GetTheme());
    Keep(lookSection, "Surround", handler_->GetSurround());
}

void Application::Keep(char const* section, char const* key, String const& value) {
    try {
        Utilities::ResolveComponent<Utilities::Preferences>("Preferences")->StoreValue(section, key, value);
    } catch (TraceableException const& failure) {
        // What was chosen holds all the same; the next start will have what was before.
        ReportError(std::string("The choice can't be kept for the next start. ") + failure.what());
    }
}

int Application::WritePicture(GUI::GUIElement& window, std::string const& fileName) {
    if (GetImplementation().SaveWindowPicture(window, fileName)) return 0;
    ReportError(fileName + ": the picture can't be written");
    return 1;
}

bool Application::WriteReport(std::string const& fileName) {
    bool const written = SampleReport(*handler_).Save(fileName);
    if (!written) ReportError(fileName + ": the report can't be written");
    return written;
}

void Application::OfferReport() {
    std::string const file = SampleReport::ProposeFile(handler_->GetDocument().GetPath());
    if (!WriteReport(file)) return;
    String text = Utilities::LanguageServiceInterface::GetTranslation("The report is in %1.");
    text.Replace("%1", file);
    GetImplementation().ShowMessage(Utilities::LanguageServiceInterface::GetTranslation("Colour report"),
                                    text);
}

void Application::QuitAfterFirstPaint() {
    handler_->SetFirstPaintHandler([this] {
        std::fputs("painted\n", stdout);
        std::fflush(stdout);
        Quit(0);
    });
}

} // namespace ColourDesk
