#pragma once

#include "tests/gui/shell/WindowFixture.h"
#include "tests/support/FakeDataSource.h"

#include <QTest>

/// Controls in described windows, on the offscreen platform.
namespace Tests {

using Utilities::SmartPointer;

class Controls : public Windows {
protected:
    Controls() { environment->app->errors.clear(); }
    ~Controls() override { element_ = nullptr; }

    /// The control named "it", alone in a window of 300 by 200.
    template <class Widget>
    Widget& Show(char const* type, Attributes attributes = {}, char const* top = "Window") {
        auto const node = Node({{"GUIElementType", type}, {"ElementName", "it"}});
        for (auto const& [key, value] : attributes) (*node)[key] = value;
        return Show<Widget>({node}, top);
    }
    template <class Widget>
    Widget& Show(std::initializer_list<NodePointer> nodes, char const* top = "Window") {
        element_ = nullptr;
        auto const tree = Top(top, "top", {}, {Node({{"GUIElementType", "VBox"}}, nodes)});
        element_ = Utilities::ResolveComponent<GUI::GUIElement>(top);
        if (SmartPointer<GUI::Dialog> const dialog(element_); !dialog.IsNull())
            dialog->Initialize(none_, *tree, &source_, true);
        else
            element_->Initialize(none_, *tree, &source_);
        QApplication::setActiveWindow(&Window());
        QApplication::processEvents();
        return *Window().findChild<Widget*>();
    }
    QWidget& Window() { return *WidgetOf(*element_).window(); }
    GUI::GUIElement& It() { return element_->FindElement("it"); }
    /// What the control has told so far, as "name=value" with blanks between, and forgets it.
    std::string TakeTold() {
        std::string text;
        for (auto const& [element, name, value] : source_.told)
            text +=
                (text.empty() ? "" : " ") + name + "=" +
                (value.IsOfTypeString() ? value.GetString().GetStdString() : std::to_string(value.GetLong()));
        source_.told.clear();
        return text;
    }
    /// Notes each call of the callback in `calls`.
    void Listen(char const* event) {
        source_.SetCallback("it", event, MakeCallback([this, event](Anything const&) {
                                calls +=
                                    std::string(event) + "(" + std::to_string(source_.told.size()) + ") ";
                                return 0L;
                            }));
    }

    TestSupport::FakeDataSource source_;
    std::string calls;
};

} // namespace Tests
