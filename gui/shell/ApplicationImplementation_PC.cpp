#include "gui/shell/ApplicationImplementation_PC.h"

#include "Diagnostics/Sink.h"
#include "Utilities/AtomicFile.h"
#include "Utilities/TranslationService.h"
#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/application/Application.h"
#include "gui/platform/DisplayProfile_PC.h"
#include "gui/platform/KeyCodes_PC.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/ShapedTexts_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/ElementPicture_PC.h"
#include "gui/shell/EventGuard_PC.h"
#include "gui/shell/HelpFile.h"
#include "gui/shell/Menu_PC.h"
#include "gui/shell/MessageService_PC.h"
#include "gui/shell/PaintScope_PC.h"
#include "gui/shell/ShellCommand.h"
#include "gui/shell/ShellCommandListener_PC.h"
#include "gui/shell/TopLevel_PC.h"
#include "gui/shell/Window_PC.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QBuffer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QThread>
#include <QTimer>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>

namespace GUI {

using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<ApplicationImplementation_PC> creator({"ApplicationImplementation",
                                                                         "$Revision: 1.42.2.1 $", "GUI"});

/// The platform chooses by its own rules; where nothing tells it of a display it would give up.
void ChoosePlatform(bool offscreen) {
    constexpr char const* variable = "QT_QPA_PLATFORM";
    bool const display = qEnvironmentVariableIsSet(variable) ||
                         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
                         !qEnvironmentVariableIsEmpty("DISPLAY");
    if (offscreen || !display) qputenv(variable, "offscreen");
}

/// The element "MainMenu", else the window's menu bar; null for a window without one.
Menu* FindMainMenu(GUIElement const& window) {
    try {
        return dynamic_cast<Menu*>(&window.FindElement("MainMenu"));
    } catch (Norvelian::Utilities::Exceptions::OutOfRangeException const&) {
        return TopLevel::FindMenu(window);
    }
}

/// Whether a modal dialog keeps the user from a window.
bool IsBlockedByDialog(GUIElement const& window) {
    QWidget const* const modal = QApplication::activeModalWidget();
    auto const identity = window.GetWindowID();
    return modal && (identity.IsNull() || PlatformIndependentWindowID_PC::WindowOf(*identity) != modal);
}

/// The platform keeps references to both.
struct CommandLine {
    std::string name = Application::Instance().GetName();
    std::array<char*, 2> values{name.data(), nullptr};
    int count = 1;
};

} // namespace

ApplicationImplementation_PC::ApplicationImplementation_PC() {
    if (!QCoreApplication::instance()) {
        static CommandLine commandLine;
        ChoosePlatform(Application::Instance().IsOffscreen());
        owned_ = std::make_unique<QApplication>(commandLine.count, commandLine.values.data());
        // Only the main window's closing ends the program, which `Quit` does.
        QApplication::setQuitOnLastWindowClosed(false);
        QApplication::setApplicationDisplayName(ToPlatformText(Application::Instance().GetName()));
    }
    if (Utilities::NamingService::Instance()->IsRegistered("MessageService"))
        messageService_ = Utilities::ResolveComponent<MessageService>("MessageService");
    if (!messageService_.IsNull())
        messageService_->SetCallback(
            Utilities::TranslationService::changedMessage,
            Utilities::MakeCallback(this, &ApplicationImplementation_PC::OnLanguageChanged));
    qApp->installEventFilter(this);
    if (auto* const service = dynamic_cast<MessageService_PC*>(messageService_.Get()))
        service->ScheduleDelivery();
}

ApplicationImplementation_PC::~ApplicationImplementation_PC() {
    if (!messageService_.IsNull())
        messageService_->RemoveCallback(Utilities::TranslationService::changedMessage);
    ForgetShapedTexts();
    if (qApp) qApp->removeEventFilter(this);
}

long ApplicationImplementation_PC::OnLanguageChanged(Utilities::Anything const& /*language*/) {
    // A tool tip that is open now would stay in the former language until the mouse moves.
    QToolTip::hideText();
    Application::Instance().OnLanguageChanged();
    return 0;
}

void ApplicationImplementation_PC::SetMainWindow(GUIElement* window) {
    if (Menu* const menu = window ? FindMainMenu(*window) : nullptr) BuildAccelerators(*menu);
}

void ApplicationImplementation_PC::BuildAccelerators(Menu& menu) {
    if (menu.GetItems().IsNull()) return;
    // Gives the items their commands, so it comes first.
    if (auto* const bar = dynamic_cast<Menu_PC*>(&menu))
        if (auto* const window = dynamic_cast<Window_PC*>(Application::Instance().GetMainWindow()))
            window->GetTopLevel().SetMenu(*bar);
    std::array<AcceleratorEntry, maximalAccelerators> table;
    long count = 0;
    CollectAccelerators(table.data(), count, *menu.GetItems());
    // The windowing system makes no empty table, and the former one stays.
    if (count > 0) accelerators_.Set({table.begin(), table.begin() + count});
}

bool ApplicationImplementation_PC::CollectAccelerators(AcceleratorEntry* table, long& count,
                                                       Menu::Items& items) {
    CollectMenuAccelerators(table, count, items);
    return true;
}

bool ApplicationImplementation_PC::ExecuteAccelerator(long command) {
    GUIElement* const window = Application::Instance().GetMainWindow();
    if (!window) return false;
    if (IsBlockedByDialog(*window)) return false;
    Menu* const menu = FindMainMenu(*window);
    if (!menu) return false;
    CallScope const call(*menu);
    if (!menu->IsMenuItemEnabled(command)) return false;
    // What is being typed is finished; a menu that is opened takes the focus too.
    if (auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget())) {
        emit field->editingFinished();
        if (!call.IsAttached()) return true;
    }
    return menu->ExecuteCommand(static_cast<unsigned short>(command));
}

bool ApplicationImplementation_PC::IsForTextField(QKeyEvent const& key) {
    auto const* const field = QApplication::focusWidget();
    if (!field) return false;
    // What is typed into has an input method; tables, trees and lists copy what is selected in them.
    bool const isTypedInto = field->testAttribute(Qt::WA_InputMethodEnabled);
    if (!isTypedInto && qobject_cast<QAbstractScrollArea const*>(field))
        return key.matches(QKeySequence::Copy) || key.matches(QKeySequence::SelectAll);
    if (!isTypedInto) return false;
    constexpr QKeySequence::StandardKey editKeys[] = {QKeySequence::Undo,  QKeySequence::Redo,
                                                      QKeySequence::Cut,   QKeySequence::Copy,
                                                      QKeySequence::Paste, QKeySequence::SelectAll};
    return std::any_of(std::begin(editKeys), std::end(editKeys),
                       [&key](QKeySequence::StandardKey known) { return key.matches(known); });
}

bool ApplicationImplementation_PC::eventFilter(QObject* receiver, QEvent* event) {
    // Keys come to the window first and then travel from widget to widget: they count once.
    bool const isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey && receiver->isWindowType()) {
        EventScope const scope(QThread::currentThread()->loopLevel());
        auto const& key = *static_cast<QKeyEvent const*>(event);
        if (event->type() == QEvent::KeyPress) {
            long const command = accelerators_.FindCommand(KeyCodeOf(key), ModifiersOf(key));
            if (command != 0 && !IsForTextField(key) &&
                RunGuarded([&] { return ExecuteAccelerator(command); }))
                return true;
        } else if (!messageService_.IsNull() && !key.isAutoRepeat()) {
            auto const state = [&key](Qt::KeyboardModifier modifier) {
                return key.modifiers().testFlag(modifier) ? "1" : "0";
            };
            String const text = String(static_cast<long>(KeyCodeOf(key))) + ";" + state(Qt::ShiftModifier) +
                                ";" + state(Qt::ControlModifier);
            RunGuarded([&] { return messageService_->SendMessage("Key", text) != 0; });
        }
        return false;
    }
    if (auto* const service = dynamic_cast<MessageService_PC*>(messageService_.Get());
        service && receiver == qApp && service->IsWakeUp(event)) {
        bool const outer = std::exchange(delivering_, true);
        RunEvent([service] {
            RunGuarded([service] {
                service->DeliverPosted();
                return true;
            });
        });
        delivering_ = outer;
        if (!delivering_ && !messages_.empty()) QTimer::singleShot(0, this, [this] { ShowQueuedMessages(); });
        return true;
    }
    if (event->type() == QEvent::ApplicationActivate || event->type() == QEvent::ApplicationDeactivate)
        RunGuarded([event] {
            Application::Instance().OnActivate(event->type() == QEvent::ApplicationActivate);
            return true;
        });
    return false;
}

bool ApplicationImplementation_PC::ShowHelp(String const& name, unsigned long topic, unsigned long command) {
    auto const language = Utilities::ResolveComponent<Utilities::TranslationService>("LanguageService");
    String const file = FindHelpFile(name, language->GetLanguage());
    Application::Instance().OpenHelpFile(file, topic, command);
    return true;
}

void ApplicationImplementation_PC::Beep() { QApplication::beep(); }

bool ApplicationImplementation_PC::SetWaitCursor(bool on) {
    if (on && !waitCursor_) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (!on && waitCursor_) QApplication::restoreOverrideCursor();
    return std::exchange(waitCursor_, on);
}

void ApplicationImplementation_PC::SetDragCursor(bool on) {
    if (on && !dragCursor_) QApplication::setOverrideCursor(Qt::OpenHandCursor);
    if (!on && dragCursor_) QApplication::restoreOverrideCursor();
    dragCursor_ = on;
}

int ApplicationImplementation_PC::Run() {
    Application& application = Application::Instance();
    if (!application.OnStart()) return 0;
    // A host that has one shows it when it is asked for it.
    application.GetSplashScreen();
    if (!application.OnBeforeCommandLine()) return 0;
    OpenArguments();
    // Not needed for the first picture, and so not done before it.
    QTimer::singleShot(0, this, [this] {
        shellCommands_ = std::make_unique<ShellCommandListener>(
            Application::Instance().GetName(), [this](String const& text) { return OnShellCommand(text); });
    });
    if (earlyExit_) return *std::exchange(earlyExit_, std::nullopt);
    running_ = true;
    int const exitCode = QApplication::exec();
    running_ = false;
    return exitCode;
}

void ApplicationImplementation_PC::OpenArguments() {
    for (std::string const& argument : Application::Instance().GetArguments())
        if (!argument.empty() && argument.front() != '-') Application::Instance().OpenFile(argument);
}

void ApplicationImplementation_PC::Quit(int exitCode) {
    if (!running_) earlyExit_ = exitCode;
    // Without any loop the platform would remember it, and end the first one that a dialog runs.
    if (QThread::currentThread()->loopLevel() != 0) QApplication::exit(exitCode);
}

bool ApplicationImplementation_PC::MustWaitWithMessages() const {
    return delivering_ || showingMessages_ || PaintScope::IsPainting();
}

void ApplicationImplementation_PC::ShowMessage(String const& /*title*/, String const& text) {
    if (IsOffscreen()) return;
    QString const shown = ToShownText(text);
    if (std::find(messages_.begin(), messages_.end(), shown) == messages_.end()) messages_.push_back(shown);
    if (MustWaitWithMessages())
        QTimer::singleShot(0, this, [this] { ShowQueuedMessages(); });
    else
        ShowQueuedMessages();
}

void ApplicationImplementation_PC::ShowQueuedMessages() {
    if (MustWaitWithMessages() || messages_.empty()) return;
    constexpr std::size_t most = 10;
    QString text;
    for (std::size_t i = 0; i < std::min(messages_.size(), most); ++i)
        text += (i == 0 ? "" : "\n") + messages_[i];
    if (messages_.size() > most) text += "\n\u2026";
    showingMessages_ = true;
    QMessageBox box(QMessageBox::Warning, QApplication::applicationDisplayName(), text, QMessageBox::Ok,
                    QApplication::activeWindow());
    // What comes from files is shown as it is, and never as markup.
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    std::size_t const told = messages_.size();
    box.exec();
    showingMessages_ = false;
    // What went wrong while this was read comes next, in one message again.
    messages_.erase(messages_.begin(), messages_.begin() + static_cast<std::ptrdiff_t>(told));
    if (!messages_.empty()) QTimer::singleShot(0, this, [this] { ShowQueuedMessages(); });
}

bool ApplicationImplementation_PC::IsOffscreen() const {
    QString const platform = QGuiApplication::platformName();
    return platform == "offscreen" || platform == "minimal";
}

std::string ApplicationImplementation_PC::GetDisplayProfile() const { return ReadDisplayProfile(); }

std::string ApplicationImplementation_PC::RenderElement(GUIElement& element,
                                                        ElementRendering const& rendering) {
    return ElementPicture_PC::Render(element, rendering);
}

bool ApplicationImplementation_PC::SaveElementPicture(GUIElement& element, String const& fileName,
                                                      ElementRendering const& rendering) {
    return ElementPicture_PC::Save(element, fileName.GetStdString(), rendering);
}

bool ApplicationImplementation_PC::PrintElement(GUIElement& element, String const& printer,
                                                ElementRendering const& rendering) {
    return ElementPicture_PC::Print(element, printer.GetStdString(), rendering.theme);
}

bool ApplicationImplementation_PC::SaveWindowPicture(GUIElement& window, String const& fileName) {
    auto const identity = window.GetWindowID();
    QWidget* const widget = identity.IsNull() ? nullptr : PlatformIndependentWindowID_PC::WindowOf(*identity);
    if (!widget) return false;
    QApplication::processEvents();
    // The format is the one of the name. A picture that can't be written whole leaves no part of it behind.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    std::string const& path = fileName.GetStdString();
    std::string const extension = std::filesystem::path(path).extension().string();
    if (extension.empty() || !widget->grab().save(&buffer, extension.c_str() + 1)) return false;
    try {
        Utilities::WriteFileAtomically(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    } catch (Norvelian::Utilities::Exceptions::ResourceException const&) {
        Diagnostics::DropException("ApplicationImplementation::SaveWindowPicture");
        return false;
    }
    return true;
}

long ApplicationImplementation_PC::OnShellCommand(String const& text) {
    if (QApplication::activeModalWidget()) return 0;
    if (!messageService_.IsNull())
        for (ShellCommand const& command : ParseShellCommands(text))
            messageService_->SendMessage(command.verb, command.argument);
    auto const file = FileToOpen(text);
    return file ? Application::Instance().OpenFile(*file) : 0;
}

} // namespace GUI
