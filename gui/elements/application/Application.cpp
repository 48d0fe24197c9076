#include "gui/elements/application/Application.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "gui/elements/drawing/ImageServiceInterface.h"

#include <algorithm>
#include <cstdio>

namespace GUI {

using Utilities::String;

namespace {

Application* instance = nullptr;

} // namespace

Application::Application(String const& name, std::vector<std::string> arguments)
    : name_(name), arguments_(std::move(arguments)) {
    instance = this;
}

Application::~Application() {
    if (instance == this) instance = nullptr;
}

Application& Application::Instance() {
    if (!instance) {
        static Application plain("application");
        instance = &plain;
    }
    return *instance;
}

ApplicationImplementation& Application::GetImplementation() {
    if (implementation_.IsNull())
        implementation_ = Utilities::ResolveComponent<ApplicationImplementation>("ApplicationImplementation");
    return *implementation_;
}

void Application::ReleaseImplementation() {
    ReleasedElements::DestroyIdle();
    implementation_ = nullptr;
}

int Application::Run() { return OnExit(GetImplementation().Run()); }

void Application::Quit(int exitCode) { GetImplementation().Quit(exitCode); }

long Application::OpenFile(String const& /*fileName*/) { return 0; }
void Application::OpenHelpFile(String const& /*fileName*/, unsigned long /*topic*/,
                               unsigned long /*command*/) {}
void Application::OnActivate(bool /*active*/) {}

void Application::OnException(std::exception_ptr failure) noexcept {
    try {
        try {
            std::rethrow_exception(failure);
        } catch (std::exception const& caught) {
            ReportError(caught.what());
        } catch (...) {
            ReportError("unknown failure");
        }
    } catch (...) {
        Diagnostics::DropException("Application::OnException");
    }
}

void Application::ReportError(String const& text) {
    std::fprintf(stderr, "%s: %s\n", name_.GetCharPointer(), text.GetCharPointer());
    if (!implementation_.IsNull()) implementation_->ShowMessage(name_, text);
}

void Application::SetMainWindow(GUIElement* window) {
    mainWindow_ = window;
    if (!implementation_.IsNull()) implementation_->SetMainWindow(window);
}

void Application::SetDialogToList(GUIElement& dialog) {
    std::erase(dialogs_, &dialog);
    dialogs_.push_back(&dialog);
    EnterWindow(dialog);
}

void Application::EnterWindow(GUIElement& window) {
    std::erase(windows_, &window);
    windows_.push_back(&window);
}

void Application::RemoveDialogFromList(GUIElement const& dialog) {
    std::erase(dialogs_, &dialog);
    std::erase(windows_, &dialog);
    if (mainWindow_ == &dialog) mainWindow_ = nullptr;
}

void Application::OnLanguageChanged() {
    constexpr char const* images = "ImageService";
    if (Utilities::NamingService::Instance()->IsRegistered(images))
        Utilities::ResolveComponent<ImageServiceInterface>(images)->OnLanguageChanged();
    for (GUIElement* const window : std::vector<GUIElement*>(windows_)) {
        // What one window does may close another.
        if (std::find(windows_.begin(), windows_.end(), window) == windows_.end()) continue;
        CallScope const call(*window);
        window->OnLanguageChanged();
        if (call.IsAttached()) window->RecalculateSize();
    }
}

void Application::RegisterComponent(String const& name, Utilities::Component* component) {
    components_[name] = component;
}

void Application::UnregisterComponent(String const& name) {
    if (components_.Find(name).IsValid()) components_.Remove(name);
}

Utilities::Component* Application::GetRegisteredComponent(String const& name) const {
    auto const found = components_.Find(name);
    return found.IsValid() ? found.GetValue() : nullptr;
}

void Application::SetDragCursor(bool on) {
    if (!implementation_.IsNull()) implementation_->SetDragCursor(on);
}
bool Application::SetWaitCursor(bool on) {
    return !implementation_.IsNull() && implementation_->SetWaitCursor(on);
}
void Application::Beep() {
    if (!implementation_.IsNull()) implementation_->Beep();
}
bool Application::ShowHelp(String const& name, unsigned long topic, unsigned long command) {
    return !implementation_.IsNull() && implementation_->ShowHelp(name, topic, command);
}

} // namespace GUI
