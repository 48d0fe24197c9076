#pragma once

#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "Utilities/TranslationService.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/DialogHandler.h"
#include "gui/elements/Pane.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/drawing/ImageServiceInterface.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/shell/ApplicationImplementation_PC.h"
#include "gui/shell/Dialog_PC.h"
#include "gui/shell/Window_PC.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/TemporaryDirectory.h"
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <gtest/gtest.h>

/// Windows and dialogs made from descriptions, on the offscreen platform.
namespace Tests {

using GUI::DialogHandler;
using TestSupport::Node;
using Utilities::Anything;
using Utilities::String;

/// The test program's application, which notes what it is told.
class TestApplication : public GUI::Application {
public:
    TestApplication() : Application("window-tests") {}
    long OpenFile(String const& fileName) override {
        opened.push_back(fileName.GetStdString());
        return 1;
    }
    bool OnBeforeCommandLine() override {
        if (beforeCommandLine) beforeCommandLine();
        return true;
    }
    bool MayClose() override { return mayClose; }
    void ReportError(String const& text) override { errors.push_back(text.GetStdString()); }

    bool mayClose = true;
    std::function<void()> beforeCommandLine;
    std::vector<std::string> opened;
    std::vector<std::string> errors;
};

class Environment : public testing::Environment {
public:
    void SetUp() override {
        setenv("XDG_CONFIG_HOME", directory.GetPath().c_str(), 1);
        app = std::make_unique<TestApplication>();
        app->GetImplementation();
    }
    void TearDown() override { app.reset(); }

    TemporaryDirectory directory;
    std::unique_ptr<TestApplication> app;
};
inline auto* const environment = new Environment;
inline testing::Environment* const registered = testing::AddGlobalTestEnvironment(environment);

class Handler : public DialogHandler {
public:
    Anything GetValue(String const& element, String const& name) override {
        auto const found = values.find(element.GetStdString() + "." + name.GetStdString());
        return found == values.end() ? Anything() : found->second;
    }
    void Initialize() override { ++initialized; }
    void SetDefaultSelection() override {
        if (defaultSelection) defaultSelection();
    }

    std::map<std::string, Anything> values;
    int initialized = 0;
    std::function<void()> defaultSelection;
};

class Windows : public testing::Test {
protected:
    using NodePointer = Utilities::SmartPointer<GUI::DescriptionTree>;
    using Attributes = std::initializer_list<std::pair<char const*, char const*>>;

    /// A "Window" or "Dialog" of 300 by 200, unless `more` says otherwise.
    static NodePointer Top(char const* type, char const* name, Attributes more = {},
                           std::initializer_list<NodePointer> children = {}) {
        auto const node = Node(
            {{"GUIElementType", type}, {"ElementName", name}, {"Width", "300"}, {"Height", "200"}}, children);
        for (auto const& [key, value] : more) (*node)[key] = value;
        return node;
    }
    template <class T> T& Make(NodePointer const& node) {
        description_ = node;
        element_ = Utilities::ResolveComponent<GUI::GUIElement>((*node)["GUIElementType"].GetString());
        element_->Initialize(none_, *node, &handler_);
        QApplication::processEvents();
        return dynamic_cast<T&>(*element_);
    }
    static QWidget& WidgetOf(GUI::GUIElement& element) {
        return *GUI::PlatformIndependentWindowID_PC::WindowOf(*element.GetWindowID());
    }
    static NodePointer Content() {
        return Node({{"GUIElementType", "VBox"}},
                    {Top("Pane", "Content",
                         {{"MinimalWidth", "120"}, {"MinimalHeight", "50"}, {"MaximalHeight", "5000"}})});
    }

    Handler handler_;
    GUI::PlatformIndependentWindowID_PC none_;
    NodePointer description_;
    Utilities::SmartPointer<GUI::GUIElement> element_;
};

inline Utilities::Preferences& Settings() {
    return *Utilities::ResolveComponent<Utilities::Preferences>("Preferences");
}

} // namespace Tests
