#pragma once

#include "Utilities/Tools/List.h"
#include "Utilities/Tools/Map.h"
#include "gui/elements/application/ApplicationImplementation.h"
#include "gui/elements/drawing/PlatformIndependentWindowID.h"

#include <exception>
#include <string>
#include <vector>

namespace GUI {

/// The process's one application, through which everything asks for cursors, dialogs and registered
/// components. A host derives from it, makes one object of its class and calls `Run`.
///
/// The object must live until the plug-in is unloaded. GUI thread only.
class Application {
public:
    /// `name` is the program's, as it appears in titles and messages. Settings go to the executable's file
    /// unless the host names another one by `Utilities::Preferences::SetApplicationName`.
    explicit Application(Utilities::String const& name, std::vector<std::string> arguments = {});
    Application(Application const&) = delete;
    Application& operator=(Application const&) = delete;
    virtual ~Application();

    /// The host's application, or a plain one if it made none.
    static Application& Instance();

    /// Resolves "ApplicationImplementation" and runs its message loop; returns the exit code.
    int Run();
    void Quit(int exitCode = 0);

    /// @name Hooks for the host, in the order in which they are called
    /// @{
    /// The application's own start test; false ends the start.
    virtual bool OnStart() { return true; }
    /// Just before the command line is read: the windows are opened here. False ends the start.
    virtual bool OnBeforeCommandLine() { return true; }
    /// A document is to be opened: each argument that is no option, or what the shell asks for.
    virtual long OpenFile(Utilities::String const& fileName);
    /// Opens a help file that was looked up; does nothing unless a host or viewer is there to show it.
    virtual void OpenHelpFile(Utilities::String const& fileName, unsigned long topic, unsigned long command);
    /// The program was brought to the front, or another one was.
    virtual void OnActivate(bool active);
    /// The main window is asked to close; false refuses.
    virtual bool MayClose() { return true; }
    /// After the message loop; returns the exit code.
    virtual int OnExit(int exitCode) { return exitCode; }
    /// What an event handler let escape. The default reports it on standard error, shows it to the user
    /// where there is a display, and lets the process go on. Must not throw.
    virtual void OnException(std::exception_ptr failure) noexcept;
    /// The words of a message for the user.
    virtual void ReportError(Utilities::String const& text);
    /// @}

    Utilities::String const& GetName() const { return name_; }
    std::vector<std::string> const& GetArguments() const { return arguments_; }
    /// No splash screen unless a host has one.
    virtual GUIElement* GetSplashScreen() { return nullptr; }
    /// To be said before the implementation is made: draw offscreen even if there is a display.
    void SetOffscreen(bool offscreen) { offscreen_ = offscreen; }
    bool IsOffscreen() const { return offscreen_; }

    /// The window whose closing ends the program. Not owned.
    void SetMainWindow(GUIElement* window);
    GUIElement* GetMainWindow() const { return mainWindow_; }

    /// Enters a window in the list of dialogs; the first is the main one. It takes itself out again.
    void SetDialogToList(GUIElement& dialog);
    void RemoveDialogFromList(GUIElement const& dialog);
    GUIElement* GetFirstDialog() const { return dialogs_.empty() ? nullptr : dialogs_.front(); }
    GUIElement* GetLastDialog() const { return dialogs_.empty() ? nullptr : dialogs_.back(); }

    /// Enters a window that isn't in the list of dialogs, a modeless dialog, among the open ones. It takes
    /// itself out by `RemoveDialogFromList`.
    void EnterWindow(GUIElement& window);

    /// Has pictures that depend on the language found again, tells every open window that translations have
    /// changed, and lays it out again.
    void OnLanguageChanged();

    /// Components that others ask for by name; not owned, null if unknown.
    void RegisterComponent(Utilities::String const& name, Utilities::Component* component);
    void UnregisterComponent(Utilities::String const& name);
    Utilities::Component* GetRegisteredComponent(Utilities::String const& name) const;

    /// @name Passed on to the platform; nothing happens before there is an implementation
    /// @{
    void SetDragCursor(bool on);
    bool SetWaitCursor(bool on);
    void Beep();
    bool ShowHelp(Utilities::String const& name, unsigned long topic, unsigned long command);
    /// @}

    /// Null before the first use of `GetImplementation` of a host.
    ApplicationImplementation* FindImplementation() const { return implementation_.Get(); }
    /// Makes the implementation on first use.
    ApplicationImplementation& GetImplementation();
    /// Releases the implementation, and with it of the platform, before the plug-in is unloaded.
    void ReleaseImplementation();

private:
    Utilities::String name_;
    std::vector<std::string> arguments_;
    Utilities::SmartPointer<ApplicationImplementation> implementation_;
    Utilities::Map<Utilities::String, Utilities::Component*> components_;
    std::vector<GUIElement*> dialogs_;
    /// All open windows, those of the list included.
    std::vector<GUIElement*> windows_;
    GUIElement* mainWindow_ = nullptr;
    bool offscreen_ = false;
};

} // namespace GUI
