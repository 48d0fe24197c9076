#pragma once

#include "gui/elements/application/ApplicationImplementation.h"
#include "gui/elements/application/MessageService.h"
#include "gui/shell/Accelerators.h"

#include <QObject>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

class QApplication;
class QKeyEvent;

namespace GUI {

class ShellCommandListener;

/// Owns the process's one `QApplication`, or adopts the one that a host has made.
///
/// One event filter sees every event before it is dispatched: accelerators first, then messages posted
/// through the message service, then released keys, which go to the message service as "Key" with the
/// text "<key code>;<Shift>;<Ctrl>". Without a display, or if the application asks for it, everything is
/// drawn offscreen.
class ApplicationImplementation_PC : public ApplicationImplementation, private QObject {
public:
    ApplicationImplementation_PC();
    ~ApplicationImplementation_PC() override;

    bool PrepareForUnload() override { return true; }
    void SetMainWindow(GUIElement* window) override;
    Diagnostics::String GetValueString() override { return "ApplicationImplementation_PC"; }
    void BuildAccelerators(Menu& menu) override;
    bool ShowHelp(Utilities::String const& name, unsigned long topic, unsigned long command) override;
    void Beep() override;
    bool SetWaitCursor(bool on) override;
    void SetDragCursor(bool on) override;
    void EnableAccelerators(bool on) override { accelerators_.Enable(on); }
    bool CollectAccelerators(AcceleratorEntry* table, long& count, Menu::Items& items) override;
    int Run() override;
    void Quit(int exitCode) override;
    void ShowMessage(Utilities::String const& title, Utilities::String const& text) override;
    bool IsOffscreen() const override;
    std::string GetDisplayProfile() const override;
    bool SaveWindowPicture(GUIElement& window, Utilities::String const& fileName) override;
    std::string RenderElement(GUIElement& element, ElementRendering const& rendering) override;
    bool SaveElementPicture(GUIElement& element, Utilities::String const& fileName,
                            ElementRendering const& rendering) override;
    bool PrintElement(GUIElement& element, Utilities::String const& printer,
                      ElementRendering const& rendering) override;

    /// A text in the form `[OPEN("path")]` from the shell: each command goes to the message service
    /// under its verb, and a file to open to the application. Returns the application's answer;
    /// does nothing and gives 0 while a modal dialog waits for the user.
    long OnShellCommand(Utilities::String const& text);

private:
    /// Whether a nested event loop would run inside a paint, or inside the delivery of a message, or beside a
    /// message that is being shown.
    bool MustWaitWithMessages() const;
    void ShowQueuedMessages();
    bool eventFilter(QObject* receiver, QEvent* event) override;
    bool ExecuteAccelerator(long command);
    /// Whether the control that has the focus does itself what a menu's Edit items do elsewhere.
    static bool IsForTextField(QKeyEvent const& key);
    void OpenArguments();
    long OnLanguageChanged(Utilities::Anything const& language);

    std::unique_ptr<QApplication> owned_;
    AcceleratorTable accelerators_;
    bool waitCursor_ = false;
    bool dragCursor_ = false;
    bool delivering_ = false;
    bool showingMessages_ = false;
    /// What is to be told once that can be done, each text once.
    std::vector<QString> messages_;
    /// Whether the main loop runs.
    bool running_ = false;
    /// What was asked to end before there was a main loop to end.
    std::optional<int> earlyExit_;
    Utilities::SmartPointer<MessageService> messageService_;
    std::unique_ptr<ShellCommandListener> shellCommands_;
};

} // namespace GUI
