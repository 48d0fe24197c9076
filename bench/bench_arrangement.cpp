// Tabs and menus from descriptions, against the platform's own by direct calls (peer), measured in the same
// run. Each checks its result.

#include "bench/DescribedWindow.h"
#include "core/values/Callback.h"
#include "gui/layout/TabbedPaneSelector.h"
#include "gui/shell/Menu_PC.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QWindow>

/// What the platform's own tests send keys with: a shortcut is looked for.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* receiver, ulong timestamp, int key,
                                               Qt::KeyboardModifiers modifiers,
                                               QString const& text = QString(), bool repeated = false,
                                               ushort count = 1);

namespace {

using namespace Bench;

/// Paints that reached one widget.
class Paints : public QObject {
public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

// ------------------------------------------------------------------ tabs

constexpr int tabCount = 30;
constexpr int stripWidth = 1600;

std::string Tab(int i) { return "T" + std::to_string(i); }

void OurTabs(benchmark::State& state, char const* useBitmaps) {
    Source source;
    std::string tabs;
    for (int i = 0; i < tabCount; ++i)
        tabs += "<TabCaption ElementName='" + Tab(i) + "' Caption='" + Tab(i) + "' UseBitmaps='" +
                useBitmaps + "' FontName='Arial' FontSize='8'/>";
    std::string const strip = "<TabbedPaneSelector ElementName='it' UseBitmaps='" + std::string(useBitmaps) +
                              "' MinimalHeight='22' MaximalHeight='22'>" + tabs + "</TabbedPaneSelector>";
    auto const window = Open(
        GUI::GUIDescriptionReader::Parse("<Window ElementName='Main' Width='" + std::to_string(stripWidth) +
                                             "' Height='" + std::to_string(height) + "'><VBox>" + strip +
                                             "<GumBox MaximalHeight='10000'/></VBox></Window>",
                                         "bench"),
        source);
    QApplication::processEvents();
    auto& it = dynamic_cast<GUI::TabbedPaneSelector&>(window->FindElement("it"));
    QWidget* const surface = WidgetOf(*window)->findChild<QWidget*>();
    Paints const paints(*surface);
    if (it.GetVisibleCount() != 0) state.SkipWithError("some tabs are cut off");
    int turn = 0;
    for (auto _ : state) {
        int const before = paints.count;
        turn = (turn + 1) % tabCount;
        Anything::MapOfAnythings chosen;
        chosen["ElementName"] = String(Tab(turn));
        auto const start = Clock::now();
        it.OnTabSelectedExecute(chosen);
        state.SetIterationTime(Since(start));
        if (paints.count == before || !(it.GetCurrentTab() == Tab(turn).c_str()))
            state.SkipWithError("not painted");
    }
}

void PeerTabs(benchmark::State& state) {
    QTabBar bar;
    for (int i = 0; i < tabCount; ++i) bar.addTab(QString::fromStdString(Tab(i)));
    bar.setUsesScrollButtons(false);
    bar.resize(stripWidth, 40);
    bar.show();
    QApplication::processEvents();
    Paints const paints(bar);
    for (auto _ : state) {
        int const before = paints.count;
        auto const start = Clock::now();
        bar.setCurrentIndex((bar.currentIndex() + 1) % tabCount);
        // Its own repaint, without the wait of the timer that gathers updates.
        QEvent update(QEvent::UpdateRequest);
        QApplication::sendEvent(bar.window(), &update);
        state.SetIterationTime(Since(start));
        if (paints.count == before) state.SkipWithError("not painted");
    }
}

// ------------------------------------------------------------------ menus

constexpr int menuCount = 5;
constexpr int itemsAMenu = 100;
/// As many as the table of accelerators holds.
constexpr int keyCount = 100;

struct Chord {
    int key;
    Qt::KeyboardModifiers modifiers;
    std::string text;
};

/// Letters and function keys with one or two modifiers, each once.
Chord ChordOf(int i) {
    constexpr Qt::KeyboardModifiers modifiers[] = {Qt::ControlModifier, Qt::ShiftModifier | Qt::AltModifier,
                                                   Qt::ControlModifier | Qt::ShiftModifier,
                                                   Qt::ControlModifier | Qt::AltModifier};
    constexpr char const* texts[] = {"CTRL+", "SHIFT+ALT+", "CTRL+SHIFT+", "CTRL+ALT+"};
    constexpr int letters = 26;
    int const set = i / letters % 4;
    char const letter = static_cast<char>('A' + i % letters);
    return {letter, modifiers[set], texts[set] + std::string(1, letter)};
}

std::string DescribeMenu() {
    std::string menu = "<Menu ElementName='MainMenu'>";
    for (int m = 0; m < menuCount; ++m) {
        menu += "<MenuItem Caption='&amp;" + std::string(1, static_cast<char>('A' + m)) + " menu'>";
        for (int i = 0; i < itemsAMenu; ++i) {
            int const number = m * itemsAMenu + i;
            menu += "<MenuItem ElementName='i" + std::to_string(number) + "' Caption='Menu item number " +
                    std::to_string(number) + "'";
            if (number < keyCount) menu += " HotKey='" + ChordOf(number).text + "'";
            menu += "/>";
        }
        menu += "</MenuItem>";
    }
    return menu + "</Menu>";
}

void OurMenu(benchmark::State& state) {
    Source source;
    auto const window = Open(Describe(""), source);
    GUI::DescriptionTree const description = GUI::GUIDescriptionReader::Parse(DescribeMenu(), "bench");
    for (auto _ : state) {
        auto const start = Clock::now();
        auto const menu = Utilities::ResolveComponent<GUI::GUIElement>("Menu");
        menu->Initialize(*window->GetWindowID(), description, &source);
        auto& bar = dynamic_cast<GUI::Menu_PC&>(*menu);
        bar.MakeBar();
        state.SetIterationTime(Since(start));
        if (bar.GetPlatformMenu()->actions().size() != menuCount) state.SkipWithError("not built");
    }
}

void FillPeer(QMainWindow& window, int* hits) {
    for (int m = 0; m < menuCount; ++m) {
        QMenu* const menu = window.menuBar()->addMenu(QString("&%1 menu").arg(QChar('A' + m)));
        for (int i = 0; i < itemsAMenu; ++i) {
            int const number = m * itemsAMenu + i;
            QAction* const action = menu->addAction(QString("Menu item number %1").arg(number));
            if (number < keyCount) {
                Chord const chord = ChordOf(number);
                action->setShortcut(QKeyCombination(chord.modifiers, static_cast<Qt::Key>(chord.key)));
            }
            if (hits) QObject::connect(action, &QAction::triggered, [hits] { ++*hits; });
        }
    }
}

void PeerMenu(benchmark::State& state) {
    for (auto _ : state) {
        QMainWindow window;
        auto const start = Clock::now();
        FillPeer(window, nullptr);
        state.SetIterationTime(Since(start));
        if (window.menuBar()->actions().size() != menuCount) state.SkipWithError("not built");
    }
}

void OurShortcut(benchmark::State& state) {
    static int hits = 0;
    class Count : public Utilities::CallbackImplementation {
    public:
        Diagnostics::String GetValueString() override { return "Count"; }
        long Execute(Anything const&) override { return ++hits; }
        bool IsValid() override { return true; }
    };
    Source source;
    source.callback = Utilities::Callback(Utilities::MakeSmart<Count>());
    auto const window = Open(Describe(DescribeMenu()), source);
    QApplication::processEvents();
    GUI::Application::Instance().SetMainWindow(window.Get());
    QWindow* const platform = WidgetOf(*window)->window()->windowHandle();
    QApplication::setActiveWindow(WidgetOf(*window)->window());
    int turn = 0;
    for (auto _ : state) {
        turn = (turn + 7) % keyCount;
        Chord const chord = ChordOf(turn);
        int const before = hits;
        QKeyEvent event(QEvent::KeyPress, chord.key, chord.modifiers);
        auto const start = Clock::now();
        QApplication::sendEvent(platform, &event);
        state.SetIterationTime(Since(start));
        if (hits != before + 1) state.SkipWithError("not found");
    }
    GUI::Application::Instance().SetMainWindow(nullptr);
}

void PeerShortcut(benchmark::State& state) {
    int hits = 0;
    QMainWindow window;
    FillPeer(window, &hits);
    window.show();
    QApplication::processEvents();
    QApplication::setActiveWindow(&window);
    int turn = 0;
    for (auto _ : state) {
        turn = (turn + 7) % keyCount;
        Chord const chord = ChordOf(turn);
        int const before = hits;
        auto const start = Clock::now();
        bool const found = qt_sendShortcutOverrideEvent(window.windowHandle(), 0, chord.key, chord.modifiers);
        state.SetIterationTime(Since(start));
        if (!found || hits != before + 1) state.SkipWithError("not found");
    }
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    // Programs must not depend on what the user's settings say.
    setenv("XDG_CONFIG_HOME", "/nonexistent", 1);
    Application application;
    application.GetImplementation();
    for (char const* const name :
         {"TabBorderLeft", "TabBorderLeft2", "TabBorderMostLeft", "TabBorderLeft Selected", "TabBorderRight",
          "TabBorderRight Selected", "TabBorderMostRight", "TabBorderMostRight Selected"})
        MakePicture(name, 3, 14);
    Register("controls.tab-30/ours", [](auto& state) { OurTabs(state, "No"); });
    Register("controls.tab-30/peer:QTabBar", PeerTabs);
    Register("controls.tab-pictures-30/ours", [](auto& state) { OurTabs(state, "Yes"); });
    Register("controls.tab-pictures-30/peer:QTabBar", PeerTabs);
    Register("controls.menu-500/ours", OurMenu);
    Register("controls.menu-500/peer:QMenuBar-QAction", PeerMenu);
    Register("controls.shortcut-of-500/ours", OurShortcut);
    Register("controls.shortcut-of-500/peer:QAction", PeerShortcut);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
