// Windows and dialogs made from descriptions, on the offscreen platform.
#include "tests/gui/shell/WindowFixture.h"

using namespace Tests;

TEST_F(Windows, TakesItsAttributesAndItsContentsLimits) {
    auto& window = Make<GUI::Window_PC>(Top("Window", "Main", {}, {Content()}));
    QWidget& widget = WidgetOf(window);
    EXPECT_EQ(widget.windowTitle(), "No caption in the window description");
    EXPECT_EQ(widget.size(), QSize(300, 200));
    EXPECT_EQ(widget.minimumSize(), QSize(120, 50));
    EXPECT_TRUE(widget.isVisible());

    widget.resize(500, 60);
    QApplication::processEvents();
    unsigned long width = 0;
    unsigned long height = 0;
    window.FindElement("Content").GetSize(width, height);
    EXPECT_EQ(width, 500U);
    EXPECT_EQ(height, 60U);

    window.SetSize(60, 20);
    EXPECT_TRUE(window.FindElement("Content").IfSizeEqual(120, 50)) << "as small as the window gets";

    handler_.values = {{"Main.Visible", false}, {"Main.Caption", "caf\xE9"}};
    handler_.ExecuteCallback("Main", "OnUpdate", {});
    EXPECT_FALSE(widget.isVisible());
    EXPECT_EQ(widget.windowTitle(), QString::fromUtf8("caf\u00E9"));
}

TEST_F(Windows, AWindowOfFixedSizeIsResizedByItsElement) {
    auto& window = Make<GUI::Window_PC>(Top("Window", "Main", {{"Resizeable", "No"}}, {Content()}));
    window.SetSize(400, 90);
    EXPECT_EQ(WidgetOf(window).size(), QSize(400, 90));
    EXPECT_EQ(WidgetOf(window).minimumSize(), WidgetOf(window).maximumSize());
    EXPECT_TRUE(window.FindElement("Content").IfSizeEqual(400, 90));
}

TEST_F(Windows, RemembersItsPlace) {
    auto const node = Top("Window", "Place", {{"X", "70"}, {"Y", "60"}});
    struct Row {
        char const* saved;
        QPoint expected;
    };
    // "y,x"; what can't be read, and what no screen shows, leaves the description's place or the desktop's.
    for (Row const& row :
         {Row{"XXYY", {70, 60}}, Row{"33,44", {44, 33}}, Row{"three", {70, 60}}, Row{"3", {70, 60}}}) {
        Settings().SetValue("Windows", "Place", row.saved);
        EXPECT_EQ(WidgetOf(Make<GUI::Window_PC>(node)).pos(), row.expected) << row.saved;
    }
    auto& window = Make<GUI::Window_PC>(node);
    window.SetPosition(static_cast<unsigned long>(-5L), 120);
    EXPECT_EQ(Settings().GetValue("Windows", "Place", ""), "120,0");
    WidgetOf(window).move(81, 91);
    WidgetOf(window).close();
    EXPECT_EQ(Settings().GetValue("Windows", "Place", ""), "91,81")
        << "the place counts once the window is closed";
}

TEST_F(Windows, TheMainWindowAsksBeforeItCloses) {
    auto& app = *environment->app;
    for (char const* const type : {"Window", "Dialog"})
        for (char const* const closeable : {"No", "Yes"}) {
            auto& window = Make<GUI::GUIElement>(Top(type, "Main", {{"Closeable", closeable}}));
            app.SetMainWindow(&window);
            WidgetOf(window).show();
            for (bool const mayClose : {false, true}) {
                app.mayClose = mayClose;
                bool const closes = mayClose && *closeable == 'Y';
                EXPECT_EQ(WidgetOf(window).close(), closes) << type << ", " << closeable << mayClose;
                EXPECT_EQ(WidgetOf(window).isVisible(), !closes) << type << ", " << closeable << mayClose;
                EXPECT_EQ(app.GetMainWindow(), closes ? nullptr : &window) << type << closeable << mayClose;
            }
            app.SetMainWindow(nullptr);
        }
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed()) << "other windows may close";
}

TEST_F(Windows, AnExitBeforeTheMainLoopHoldsAlsoFromADialog) {
    auto& dialog = Make<GUI::Dialog_PC>(Top("Dialog", "Licence"));
    QTimer tooLate;
    QObject::connect(&tooLate, &QTimer::timeout, [] { QApplication::exit(1); });
    tooLate.start(5000);
    environment->app->beforeCommandLine = [&] {
        QTimer::singleShot(0, [] { environment->app->Quit(7); });
        dialog.RunModal();
    };
    EXPECT_EQ(environment->app->Run(), 7);
    environment->app->beforeCommandLine = nullptr;
    // The platform ends every dialog from now on, until a main loop has run.
    QTimer::singleShot(0, [] { QApplication::exit(); });
    QApplication::exec();
}

TEST_F(Windows, ADialogMayBeShownAgainAndDescribedAnew) {
    auto& dialog = Make<GUI::Dialog_PC>(
        Top("Dialog", "Twice", {{"X", "30"}, {"Y", "40"}, {"Resizeable", "Yes"}}, {Content()}));
    auto& platform = dynamic_cast<GUI::ApplicationImplementation_PC&>(environment->app->GetImplementation());
    QWidget& widget = WidgetOf(dialog);
    EXPECT_TRUE(widget.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    for (int const times : {1, 2}) {
        QTimer::singleShot(0, [&] {
            EXPECT_EQ(dialog.GetChildrenList().GetSize(), 1);
            EXPECT_EQ(handler_.GetRootElement().Get(), dialog.GetChildrenList().Begin().Current().Get());
            EXPECT_TRUE(dialog.IfPositionEqual(30, 40));
            widget.move(50, 60);
            EXPECT_TRUE(dialog.IfPositionEqual(50, 60));
            EXPECT_EQ(platform.OnShellCommand("[OPEN(\"x\")]"), 0) << "a modal dialog waits";

            auto const changed = Node({{"ElementName", "Twice"}, {"Caption", "Changed"}}, {Content()});
            dialog.SetGUIDescriptionTree(*changed);
            EXPECT_EQ(widget.windowTitle(), "Changed");
            EXPECT_TRUE(dialog.FindElement("Content").IfSizeEqual(300, 200));
            EXPECT_EQ(handler_.initialized, times) << "once for each time it is shown";
            dialog.Close(0);
        });
        dialog.RunModal();
    }
    element_ = nullptr;
    EXPECT_TRUE(handler_.GetRootElement().IsNull());
    EXPECT_EQ(handler_.ExecuteCallback("Twice", "OnClose", {}), 0);
}

std::vector<std::string> platformMessages;

TEST_F(Windows, TheDefaultSelectionMayRepaint) {
    auto& dialog = Make<GUI::Dialog_PC>(Top("Dialog", "Ask", {}, {Content()}));
    bool selected = false;
    handler_.defaultSelection = [&] {
        selected = true;
        dynamic_cast<GUI::Pane&>(dialog.FindElement("Content")).Repaint();
    };
    platformMessages.clear();
    auto const former = qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const& text) {
        platformMessages.push_back(text.toStdString());
    });
    QTimer::singleShot(0, [&] {
        QApplication::processEvents();
        dialog.Close(0);
    });
    dialog.RunModal();
    qInstallMessageHandler(former);
    EXPECT_TRUE(selected);
    EXPECT_EQ(platformMessages, std::vector<std::string>());
}

TEST_F(Windows, DialogClosesThroughItsDataSourceAndByTheEscElement) {
    auto& dialog = Make<GUI::Dialog_PC>(Top("Dialog", "Ask", {{"EscKeyElementName", "Cancel"}}, {Content()}));
    int cancelled = 0;
    handler_.SetCallback("Cancel", "OnClick", Tests::MakeCallback([&](Anything const& argument) {
                             EXPECT_EQ(argument.GetString(), "Cancel");
                             ++cancelled;
                             return 0L;
                         }));
    QTimer::singleShot(0, [&] {
        QWidget& widget = WidgetOf(dialog);
        EXPECT_EQ(widget.size(), QSize(300, 200));
        EXPECT_EQ(widget.minimumSize(), widget.maximumSize()) << "not resizeable unless it says so";
        for (auto const key : {Qt::Key_Escape, Qt::Key_Return}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QApplication::sendEvent(&widget, &press);
        }
        EXPECT_TRUE(widget.isVisible()) << "neither key closes it";
        widget.close();
    });
    EXPECT_EQ(dialog.RunModal(), 0);
    EXPECT_EQ(cancelled, 1);
    EXPECT_FALSE(WidgetOf(dialog).isVisible());
}

TEST_F(Windows, BackgroundPicturesLieUnderTheElementsAtTheirOwnSize) {
    auto const images = Utilities::ResolveComponent<GUI::ImageServiceInterface>("ImageService");
    auto const picture = [&](char const* name, GUI::RGBVector const& color) {
        auto const bitmap = Utilities::ResolveComponent<GUI::Bitmap>("Bitmap");
        bitmap->Create(60, 40);
        auto& context = bitmap->BeginDraw();
        context.SetPen(color, 1, GUI::PlatformIndependentDeviceContext::solid);
        context.SetBrush(color);
        context.FillRectangle(0, 0, 60, 40);
        bitmap->EndDraw();
        images->SetBitmap(name, bitmap);
    };
    picture("Red", {200, 0, 0});
    picture("Green", {0, 200, 0});
    // The first row of the contents lets the dialog show, the others paint themselves.
    auto const row = [](char const* type, char const* name) {
        return Top(type, name,
                   {{"BackgroundBitmap", "Green"},
                    {"BackgroundColor", "1,2,3"},
                    {"MinimalHeight", "50"},
                    {"MaximalHeight", "50"}});
    };
    auto const described = [&](char const* bitmap) {
        auto const contents =
            Node({{"GUIElementType", "VBox"}}, {row("GumBox", ""), row("Pane", "Plain"),
                                                row("CirclePatch", "Disc"), row("SmallPatch", "Small")});
        return Top("Dialog", "Picture",
                   {{"Width", "100"},
                    {"Height", "200"},
                    {"BackgroundColor", "10,20,30"},
                    {"BackgroundBitmap", bitmap}},
                   {contents});
    };
    handler_.values["Disc.BitmapOnly"] = true;
    auto& dialog = Make<GUI::Dialog_PC>(described("Red"));
    struct Expected {
        int x, y;
        QColor color;
    };
    auto const check = [&](char const* state, std::initializer_list<Expected> rows) {
        QImage const shown = WidgetOf(dialog).grab().toImage();
        for (Expected const& expected : rows)
            EXPECT_EQ(shown.pixelColor(expected.x, expected.y), expected.color)
                << state << " at " << expected.x << ", " << expected.y;
    };
    QColor const red(200, 0, 0), green(0, 200, 0), face(10, 20, 30), pane(1, 2, 3);
    QTimer::singleShot(0, [&] {
        check("as described", {{0, 0, red},
                               {59, 39, red},
                               {60, 39, face},
                               {59, 40, face},
                               {0, 50, green},
                               {59, 89, green},
                               {60, 89, pane},
                               {59, 90, pane},
                               {59, 139, green},
                               {60, 139, face},
                               {59, 140, face},
                               {0, 150, green},
                               {50, 175, pane},
                               {99, 150, face}});
        handler_.values["Plain.BackgroundBitmap"] = "Red";
        handler_.values["Disc.BackgroundBitmap"] = "";
        handler_.values["Small.BackgroundBitmap"] = "";
        for (char const* const name : {"Plain", "Disc", "Small"}) dialog.FindElement(name).OnUpdate({});
        check("told by the data source",
              {{0, 50, red}, {60, 89, pane}, {0, 100, QColor(222, 251, 255)}, {0, 150, face}});
        dialog.SetGUIDescriptionTree(*described("Green"));
        check("described again", {{0, 0, green}, {60, 39, face}});
        dialog.Close(0);
    });
    dialog.RunModal();
}

TEST_F(Windows, WhatAHandlerLetsEscapeGoesToTheApplication) {
    auto& dialog = Make<GUI::Dialog_PC>(Top("Dialog", "Ask"));
    handler_.SetCallback("Ask", "OnClose", Tests::MakeCallback([&](Anything const&) -> long {
                             dialog.Close(7);
                             throw std::runtime_error("from a callback");
                         }));
    QTimer::singleShot(0, [&] { WidgetOf(dialog).close(); });
    environment->app->errors.clear();
    EXPECT_EQ(dialog.RunModal(), 7);
    EXPECT_EQ(environment->app->errors, std::vector<std::string>{"from a callback"});
}

TEST_F(Windows, AModelessDialogHearsOfAnotherLanguageToo) {
    auto& parent = Make<GUI::Window_PC>(Top("Window", "Main"));
    auto const tools = Top("Dialog", "Tools", {{"Caption", "Tools"}});
    GUI::Dialog_PC dialog;
    dialog.Initialize(*parent.GetWindowID(), *tools, &handler_, true);
    EXPECT_EQ(environment->app->GetLastDialog(), &parent) << "only modal ones and main windows are listed";
    auto const languages = Utilities::ResolveComponent<Utilities::TranslationService>("LanguageService");
    for (bool const mark : {true, false}) {
        languages->SetMarkTexts(mark);
        EXPECT_EQ(WidgetOf(dialog).windowTitle(), mark ? "*Tools*" : "Tools");
    }
}

TEST_F(Windows, KeysGoToAcceleratorsThenToTheMessageService) {
    auto& platform = dynamic_cast<GUI::ApplicationImplementation_PC&>(environment->app->GetImplementation());
    auto& window = Make<GUI::Window_PC>(Top("Window", "Keys"));
    auto const service = Utilities::ResolveComponent<GUI::MessageService>("MessageService");
    std::vector<std::string> keys;
    service->SetCallback("Key", Tests::MakeCallback([&](Anything const& value) {
                             keys.push_back(value.GetString().GetStdString());
                             return 0L;
                         }));
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_A, Qt::ShiftModifier, "A");
    QCoreApplication::sendEvent(WidgetOf(window).windowHandle(), &release);
    QKeyEvent shiftedDigit(QEvent::KeyRelease, Qt::Key_Exclam, Qt::ShiftModifier, 10, 0, 0, "!");
    QCoreApplication::sendEvent(WidgetOf(window).windowHandle(), &shiftedDigit);
    // The key of the letter S on a Cyrillic layout.
    QKeyEvent cyrillic(QEvent::KeyRelease, 0x42B, Qt::NoModifier, 39, 0, 0, QString(QChar(0x44B)));
    QCoreApplication::sendEvent(WidgetOf(window).windowHandle(), &cyrillic);
    EXPECT_EQ(keys, (std::vector<std::string>{"65;1;0", "49;1;0", "83;0;0"}));
    service->RemoveCallback("Key");

    EXPECT_EQ(platform.OnShellCommand("[OPEN(\"/tmp/a (1).txt\")]"), 1);
    EXPECT_EQ(environment->app->opened.back(), "/tmp/a (1).txt");
    EXPECT_EQ(platform.OnShellCommand("[PRINT(\"x\")]"), 0);

    auto const items = Utilities::MakeSmart<GUI::Menu::Items>();
    auto const item = Utilities::MakeSmart<GUI::Menu::Items>();
    static_cast<GUI::MenuItem&>(*item) = GUI::MenuItem("Refresh", "F5", 7);
    items->AddChild(item);
    GUI::Menu menu;
    menu.BuildMenu(items);
    platform.BuildAccelerators(menu);
    environment->app->SetMainWindow(&window);
    environment->app->errors.clear();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
    QCoreApplication::sendEvent(WidgetOf(window).windowHandle(), &press);
    EXPECT_EQ(environment->app->errors, std::vector<std::string>()) << "a window without a menu";
}
