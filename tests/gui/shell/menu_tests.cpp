// Menus made from descriptions and from trees, on the offscreen platform.
#include "gui/shell/CNorvelianSurface.h"
#include "gui/shell/Menu_PC.h"
#include "tests/gui/shell/WindowFixture.h"

#include <QMenu>
#include <QMenuBar>
#include <QTest>

using namespace Tests;

namespace {

class Menus : public Windows {
protected:
    using Names = std::vector<std::string>;

    static NodePointer Item(Attributes attributes, std::initializer_list<NodePointer> children = {}) {
        auto const node = Node({{"GUIElementType", "MenuItem"}}, children);
        for (auto const& [key, value] : attributes) (*node)[key] = value;
        return node;
    }
    static NodePointer Described() {
        return Node(
            {{"GUIElementType", "Menu"}, {"ElementName", "MainMenu"}},
            {Item({{"Caption", "&File"}},
                  {Item({{"Caption", "&Save"}, {"ElementName", "Save"}, {"HotKey", "CTRL+S"}}),
                   Node({{"GUIElementType", "Separator"}}),
                   Item({{"Caption", "More"}}, {Item({{"Caption", "Grid"}, {"ElementName", "Grid"}})})}),
             Item({{"Caption", "Edit"}},
                  {Item({{"Caption", "Cut"}, {"HotKey", "SHIFT+Del"}, {"Command", "9"}})})});
    }
    GUI::Window_PC& MakeWindow() {
        auto& window = Make<GUI::Window_PC>(Top("Window", "Main", {}, {Described(), Content()}));
        environment->app->SetMainWindow(&window);
        return window;
    }
    static QMenuBar& BarOf(GUI::GUIElement& window) { return *WidgetOf(window).findChild<QMenuBar*>(); }
    static Names Texts(QWidget const& menu) {
        Names texts;
        for (QAction const* const action : menu.actions())
            texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        return texts;
    }
    static QMenu& Open(QWidget& bar, int place) {
        QMenu& menu = *bar.actions()[place]->menu();
        menu.popup({0, 0});
        return menu;
    }
    static void Press(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        for (auto const type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers);
            QCoreApplication::sendEvent(window.windowHandle(), &event);
        }
        QApplication::processEvents();
    }
    /// Counts clicks on items.
    void Watch(char const* item) {
        handler_.SetCallback(item, "OnClick", Tests::MakeCallback([this](Anything const& name) {
                                 clicked.push_back(name.GetString());
                                 if (onClick) onClick();
                                 return 0L;
                             }));
    }

    Names clicked;
    std::function<void()> onClick;
};

} // namespace

TEST_F(Menus, ADescribedMenuIsTheWindowsBarBesideTheClientArea) {
    auto& window = MakeWindow();
    QMenuBar& bar = BarOf(window);
    EXPECT_EQ(Texts(bar), (Names{"&File", "Edit"}));
    EXPECT_TRUE(window.FindElement("Content").IfSizeEqual(300, 200)) << "the first child that is no menu";
    EXPECT_EQ(WidgetOf(window).height(), 200 + bar.height());
    EXPECT_GT(bar.height(), 0);
    EXPECT_EQ(Texts(Open(bar, 0)), (Names{"&Save\tCTRL+S", "-", "More"}));
    auto& menu = dynamic_cast<GUI::Menu&>(window.FindElement("MainMenu"));
    EXPECT_EQ(menu.GetMenuText(GUI::Menu_PC::firstFreeCommand), "&Save");
    EXPECT_EQ(menu.GetMenuText(GUI::Menu_PC::firstFreeCommand - 1), "Grid");
    EXPECT_EQ(menu.GetMenuText(9), "Cut");
    window.OnLanguageChanged();
    EXPECT_EQ(menu.GetMenuText(GUI::Menu_PC::firstFreeCommand), "&Save") << "commands are kept";
    EXPECT_EQ(Texts(BarOf(window)), (Names{"&File", "Edit"}));
}

TEST_F(Menus, AsksWhenAMenuOpensAndRunsWhatIsChosenAfterwards) {
    Watch("Save");
    auto& window = MakeWindow();
    handler_.values["Save.ItemEnabled"] = false;
    handler_.values["Save.State"] = true;
    handler_.values["Save.Caption"] = "Save x";
    QMenu& menu = Open(BarOf(window), 0);
    QAction& save = *menu.actions()[0];
    EXPECT_FALSE(save.isEnabled());
    EXPECT_TRUE(save.isCheckable() && save.isChecked());
    EXPECT_EQ(save.text(), "Save x\tCTRL+S");
    handler_.values["Save.ItemEnabled"] = true;
    handler_.values["Save.State"] = false;
    menu.hide();
    menu.popup({0, 0});
    EXPECT_TRUE(save.isEnabled() && !save.isChecked());
    save.trigger();
    EXPECT_EQ(clicked, Names()) << "not within the menu's own event";
    QApplication::processEvents();
    EXPECT_EQ(clicked, Names{"Save"});
}

TEST_F(Menus, HotKeysOfTheMainWindowObeyTheSameAnswers) {
    Watch("Save");
    auto& window = MakeWindow();
    Press(WidgetOf(window), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(clicked, Names{"Save"});
    handler_.values["Save.ItemEnabled"] = false;
    Press(WidgetOf(window), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(clicked, Names{"Save"});
}

TEST_F(Menus, AnItemWithAHandlerAsksThatInPlaceOfTheDataSource) {
    auto& window = Make<GUI::Window_PC>(
        Top("Window", "Main", {},
            {Node({{"GUIElementType", "Menu"}},
                  {Item({{"Caption", "Edit"}},
                        {Item({{"Caption", "Copy"}, {"ElementName", "Copy"}, {"Handler", "TestHandler"}})})}),
             Content()}));
    auto const isEnabled = [&window] { return Open(BarOf(window), 0).actions()[0]->isEnabled(); };
    handler_.values["Copy.ItemEnabled"] = true;
    Watch("Copy");
    EXPECT_FALSE(isEnabled()) << "nobody of that name";
    Handler other;
    environment->app->RegisterComponent("TestHandler", &other);
    Names asked;
    other.SetCallback("Copy", "OnClick", Tests::MakeCallback([&asked](Anything const& name) {
                          asked.push_back(name.GetString());
                          return 0L;
                      }));
    EXPECT_TRUE(isEnabled());
    other.values["Copy.ItemEnabled"] = false;
    EXPECT_FALSE(isEnabled());
    other.values["Copy.ItemEnabled"] = true;
    BarOf(window).actions()[0]->menu()->hide();
    Open(BarOf(window), 0).actions()[0]->trigger();
    QApplication::processEvents();
    EXPECT_EQ(asked, Names{"Copy"});
    EXPECT_EQ(clicked, Names());
    environment->app->UnregisterComponent("TestHandler");
}

TEST_F(Menus, LettersAndArrowsChooseInAnOpenMenu) {
    Watch("Save");
    Watch("Grid");
    auto& window = MakeWindow();
    QWidget& widget = WidgetOf(window);
    widget.activateWindow();
    QApplication::processEvents();
    auto const press = [](int key, char const* text) {
        QWidget* const target = QApplication::activePopupWidget();
        ASSERT_NE(target, nullptr);
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(target, &event);
        QApplication::processEvents();
    };
    QMenuBar& bar = BarOf(window);
    bar.setFocus();
    bar.setActiveAction(bar.actions()[0]);
    ASSERT_EQ(QApplication::activePopupWidget(), bar.actions()[0]->menu());
    press(Qt::Key_S, "s");
    EXPECT_EQ(clicked, Names{"Save"});
    bar.setActiveAction(bar.actions()[0]);
    // Past the line, into the menu beside it.
    for (int const key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return}) press(key, "");
    EXPECT_EQ(clicked, (Names{"Save", "Grid"}));
}

TEST_F(Menus, AnItemMayDropOrRebuildTheWindowAndAnAnswerToo) {
    Watch("Save");
    onClick = [this] { element_ = nullptr; };
    Open(BarOf(MakeWindow()), 0).actions()[0]->trigger();
    QApplication::processEvents();
    EXPECT_EQ(clicked, Names{"Save"});
    EXPECT_TRUE(element_.IsNull());

    onClick = [this] { element_->OnLanguageChanged(); };
    QPointer<QWidget> widget = &WidgetOf(MakeWindow());
    Press(*widget, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(clicked.size(), 2U);
    EXPECT_EQ(Texts(BarOf(*element_)).size(), 2U);
    element_ = nullptr;

    struct Hostile : DialogHandler {
        std::function<void()> strike;
        Anything GetValue(String const& element, String const& name) override {
            if (element == "Save" && name == "ItemEnabled" && strike) std::exchange(strike, nullptr)();
            return {};
        }
    } hostile;
    for (int const kind : {0, 1, 2}) {
        element_ = Utilities::ResolveComponent<GUI::GUIElement>("Window");
        element_->Initialize(none_, *Top("Window", "Main", {}, {Described(), Content()}), &hostile);
        QPointer<QMenu> const menu = BarOf(*element_).actions()[0]->menu();
        hostile.strike = [&, kind] {
            if (kind == 0) element_ = nullptr;
            if (kind == 1) element_->OnLanguageChanged();
            if (kind == 2) throw std::runtime_error("nothing is selected");
        };
        menu->popup({0, 0});
        if (kind == 2 && menu) {
            EXPECT_FALSE(menu->actions()[0]->isEnabled());
        }
        if (menu) menu->hide();
        QApplication::processEvents();
        element_ = nullptr;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(GUI::ReleasedElements::GetCount(), 0U);
}

TEST_F(Menus, ATreeOfAProgramBecomesABarOrAPopup) {
    auto const add = [](GUI::Menu::Items& level, GUI::MenuItem const& item) -> GUI::Menu::Items& {
        auto const node = Utilities::MakeSmart<GUI::Menu::Items>();
        static_cast<GUI::MenuItem&>(*node) = item;
        level.AddChild(node);
        return *node;
    };
    int executed = 0;
    auto const action = Tests::MakeCallback([&](Anything const&) { return ++executed, 0L; });
    auto const items = Utilities::MakeSmart<GUI::Menu::Items>();
    add(add(*items, {"-", "", 5}), {"inside", "", 0});
    add(*items, {"off", "F5", 0, action, false});
    add(*items, {"on", "CTRL+Home", 7, action});
    add(*items, {"-", "", 6});

    auto& window = Make<GUI::Window_PC>(Top("Window", "Main", {}, {Content()}));
    auto const element = Utilities::ResolveComponent<GUI::GUIElement>("Menu");
    auto& menu = dynamic_cast<GUI::Menu_PC&>(*element);
    EXPECT_THROW(menu.Popup(0, 0), std::exception);
    element->Initialize(*window.GetWindowID(), *Node({{"ElementName", "Popup"}}), &handler_);
    menu.SetMenuTree(items);
    QList<QAction*> const actions = menu.GetPlatformMenu()->actions();
    EXPECT_EQ(Texts(*menu.GetPlatformMenu()), (Names{"-", "off\tF5", "on\tCTRL+", "-"}));
    EXPECT_TRUE(actions[0]->menu()) << "with children it is a menu of that name";
    EXPECT_TRUE(!actions[1]->isEnabled() && actions[2]->isEnabled() && actions[3]->isSeparator());
    auto const first = static_cast<unsigned short>(GUI::Menu_PC::firstFreeCommand);
    EXPECT_TRUE(menu.ExecuteCommand(static_cast<unsigned short>(first - 1)))
        << "a disabled item has its number";
    EXPECT_TRUE(menu.ExecuteCommand(7));
    EXPECT_FALSE(menu.ExecuteCommand(8));
    EXPECT_EQ(executed, 2);
    menu.Popup(10, 20);
    QWidget* const popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->pos(), QPoint(10, 20));
    popup->actions()[2]->trigger();
    popup->close();
    QApplication::processEvents();
    EXPECT_EQ(executed, 3);
}

TEST_F(Menus, AContextMenuOpensByTheMouseAndByKeys) {
    auto const popup =
        Node({{"GUIElementType", "Menu"}, {"ElementName", "PatchMenu"}, {"Popup", "Yes"}},
             {Item({{"Caption", "Copy"}, {"ElementName", "Copy"}}),
              Item({{"Caption", "More"}}, {Item({{"Caption", "Grid"}, {"ElementName", "Grid"}})})});
    auto const pane = [](char const* name, Attributes more, std::initializer_list<NodePointer> inside = {}) {
        auto const node = Node({{"GUIElementType", "Pane"}, {"ElementName", name}}, inside);
        for (auto const& [key, value] : more) (*node)[key] = value;
        return node;
    };
    class Told : public Handler {
    public:
        void SetValue(String const& element, String const& name, Anything const& value) override {
            if (name == "ContextElement") told += element + "." + value.GetString() + " ";
        }
        String told;
    } told;
    description_ = Top(
        "Window", "Main", {},
        {popup, Node({{"GUIElementType", "HBox"}},
                     {pane("Outer", {{"ContextMenu", "PatchMenu"}}, {pane("Inner", {{"Selectable", "Yes"}})}),
                      pane("Other", {{"ContextMenu", "NoSuchMenu"}})})});
    element_ = Utilities::ResolveComponent<GUI::GUIElement>("Window");
    element_->Initialize(none_, *description_, &told);
    QApplication::setActiveWindow(WidgetOf(*element_).window());
    QApplication::processEvents();
    EXPECT_EQ(WidgetOf(*element_).findChild<QMenuBar*>(), nullptr) << "a popup is no bar";
    QWidget& window = *WidgetOf(*element_).window();
    auto const shown = [] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu ? menu->pos() : QPoint(-1, -1);
    };
    QPoint const place(20, 30);
    QTest::mouseClick(window.windowHandle(), Qt::RightButton, {}, place);
    EXPECT_EQ(shown(), window.mapToGlobal(place)) << "of the pane around";
    EXPECT_EQ(told.told, "PatchMenu.Outer ");
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    EXPECT_EQ(Texts(*menu), (Names{"Copy", "More"}));
    told.SetCallback("Copy", "OnClick", Tests::MakeCallback([&](Anything const& name) {
                         clicked.push_back(name.GetString());
                         // The window may go.
                         element_ = nullptr;
                         return 0L;
                     }));
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_EQ(shown(), QPoint(-1, -1));

    // Neither a pane without a menu nor one whose menu isn't there opens any.
    QTest::mouseClick(window.windowHandle(), Qt::RightButton, {}, QPoint(280, 30));
    EXPECT_EQ(shown(), QPoint(-1, -1));
    dynamic_cast<GUI::Pane&>(element_->FindElement("Inner")).SetFocus();
    auto* const surface = window.findChild<GUI::CNorvelianSurface*>();
    for (auto const& [key, modifiers] :
         {std::pair{Qt::Key_F10, Qt::ShiftModifier}, {Qt::Key_Menu, Qt::NoModifier}}) {
        QTest::keyClick(surface, key, modifiers);
        EXPECT_EQ(shown(), window.mapToGlobal(QPoint(0, 200))) << "below the pane that has the focus";
        if (key == Qt::Key_F10) QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    }
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(clicked, Names{"Copy"});
    EXPECT_TRUE(element_.IsNull());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}
