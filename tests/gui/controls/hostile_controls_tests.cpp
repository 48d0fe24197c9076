// Native controls, menus and tabs whose data source drops the window, shows another view or throws at each of
// its calls in turn, during an update, a change of language and the user's keys. The address sanitizer sees
// what is used after it is gone.
#include "Diagnostics/Sink.h"
#include "gui/elements/CallScope.h"
#include "gui/shell/CNorvelianSurface.h"
#include "tests/gui/controls/ControlFixture.h"

#include <QMenu>
#include <QMenuBar>
#include <stdexcept>

namespace {

using namespace Tests;

class HostileSource : public TestSupport::FakeDataSource {
public:
    int calls = 0;
    int strikeAt = -1;
    std::function<void()> strike;

    void SetValue(String const& element, String const& name, Anything const& value) override {
        Called();
        FakeDataSource::SetValue(element, name, value);
    }
    Anything GetValue(String const& element, String const& name) override {
        Called();
        return FakeDataSource::GetValue(element, name);
    }
    Utilities::Callback GetCallback(String const& element, String const& name) override {
        if (name == "OnUpdate") return FakeDataSource::GetCallback(element, name);
        return MakeCallback([this](Anything const&) { return Called(), 0L; });
    }

private:
    void Called() {
        if (calls++ == strikeAt) strike();
    }
};

class HostileControl : public Windows, public testing::WithParamInterface<char const*> {
protected:
    ~HostileControl() override { element_ = nullptr; }
    void Open() {
        auto const tree = Top("Window", "top", {}, {});
        auto const it = Node({{"GUIElementType", GetParam()}, {"ElementName", "it"}});
        auto const content = Node({{"GUIElementType", "VBox"}});
        if (std::string(GetParam()) == "Menu") {
            auto const item = [](char const* name, std::initializer_list<NodePointer> inside = {}) {
                return Node({{"GUIElementType", "MenuItem"}, {"ElementName", name}, {"Caption", name}},
                            inside);
            };
            it->AddChild(item("File", {item("Open"), item("Save")}));
            tree->AddChild(it);
            tree->AddChild(Node({{"GUIElementType", "Menu"}, {"ElementName", "context"}, {"Popup", "Yes"}},
                                {item("Copy"), item("More", {item("Paste")})}));
            content->AddChild(Node({{"GUIElementType", "Pane"},
                                    {"ElementName", "pane"},
                                    {"Selectable", "Yes"},
                                    {"ContextMenu", "context"}}));
        } else {
            for (char const* const tab : {"A", "B"})
                if (std::string(GetParam()) == "TabbedPaneSelector")
                    it->AddChild(
                        Node({{"GUIElementType", "TabCaption"}, {"ElementName", tab}, {"Caption", tab}}));
            content->AddChild(it);
        }
        tree->AddChild(content);
        element_ = Utilities::ResolveComponent<GUI::GUIElement>("Window");
        element_->Initialize(none_, *tree, &source_);
        QApplication::processEvents();
    }
    /// False if there were fewer calls.
    bool StrikeAt(int call, std::function<void()> const& strike, std::function<void()> const& run) {
        source_.strikeAt = -1;
        Open();
        source_.calls = 0;
        source_.strikeAt = call;
        source_.strike = strike;
        {
            GUI::EventScope const event;
            try {
                run();
            } catch (std::exception const&) {
                // What the contracts let escape reaches whoever called.
            }
        }
        source_.strikeAt = -1;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
        EXPECT_EQ(GUI::ReleasedElements::GetCount(), 0U);
        return source_.calls > call;
    }

    /// Chooses the first item of a menu that is open, or of the first one in it.
    static void Choose(QPointer<QMenu> menu) {
        if (!menu || menu->actions().isEmpty()) return;
        if (QMenu* const inside = menu->actions().back()->menu()) {
            inside->popup({0, 0});
            QApplication::processEvents();
        }
        if (menu && !menu->actions().isEmpty()) menu->actions().front()->trigger();
        QApplication::processEvents();
    }
    /// What the user does with the bar and with a context menu.
    void UseMenus() {
        if (auto* const bar = element_.IsNull() ? nullptr : WidgetOf(*element_).findChild<QMenuBar*>()) {
            QPointer<QMenu> const menu = bar->actions().isEmpty() ? nullptr : bar->actions()[0]->menu();
            if (menu) menu->popup({0, 0});
            Choose(menu);
        }
        if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
        if (element_.IsNull()) return;
        QTest::keyClick(WidgetOf(*element_).findChild<GUI::CNorvelianSurface*>(), Qt::Key_Tab);
        if (element_.IsNull()) return;
        QTest::keyClick(WidgetOf(*element_).findChild<GUI::CNorvelianSurface*>(), Qt::Key_Menu);
        Choose(qobject_cast<QMenu*>(QApplication::activePopupWidget()));
        if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
    }

    HostileSource source_;
};

} // namespace

TEST_P(HostileControl, MayVanishInAnyCall) {
    auto const former = Diagnostics::SetSink([](auto const&, auto const&) {});
    auto const texts = [](char const* first) {
        Anything::VectorOfAnythings vector(2);
        vector[0] = first;
        vector[1] = "b";
        return Anything(vector);
    };
    source_.values = {{{"it", "EntryTexts"}, texts("a")},
                      {{"it", "SelectedEntry"}, Anything("a")},
                      {{"it", "NumberOfValues"}, Anything(9L)},
                      {{"it", "Text"}, Anything("text")},
                      {{"it", "NumberOfRows"}, Anything(2L)},
                      {{"it", "NumberOfColumns"}, Anything(2L)},
                      {{"it", "0"}, texts("cell")}};
    std::function<void()> const strikes[] = {[this] { element_ = nullptr; }, [this] { Open(); },
                                             [] { throw std::runtime_error("from a data source"); },
                                             [this] { element_->OnLanguageChanged(); }};
    std::function<void()> const operations[] = {
        [this] { element_->FindElement("it").OnUpdate({}); }, [this] { element_->OnLanguageChanged(); },
        [this] {
            if (std::string(GetParam()) == "Menu") return UseMenus();
            for (auto const key :
                 {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Down, Qt::Key_B, Qt::Key_Right, Qt::Key_Tab}) {
                if (element_.IsNull()) return;
                QWidget* const window = WidgetOf(*element_).window();
                QWidget* const focus = window->focusWidget();
                QTest::keyClick(focus ? focus : window, key);
            }
        }};
    for (auto const& operation : operations)
        for (auto const& strike : strikes)
            for (int call = 0; call < 60 && StrikeAt(call, strike, operation);) ++call;
    Diagnostics::SetSink(former);
}

INSTANTIATE_TEST_SUITE_P(Components, HostileControl,
                         testing::Values("Button", "CheckBox", "DropDown", "Edit", "Grid", "ListBox", "Menu",
                                         "PaperPressButton", "ScrollBar", "TabbedPaneSelector"),
                         [](auto const& row) { return std::string(row.param); });
