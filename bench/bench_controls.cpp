// Controls from descriptions, against the platform's own by direct calls (peer), measured in the same run.
// Each checks its result.

#include "bench/DescribedWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringListModel>
#include <unistd.h>

namespace {

using namespace Bench;

/// Counts the paints of one widget, or of all children of one.
class Paints : public QObject {
public:
    explicit Paints(QWidget* only = nullptr) : only_(only) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::Paint && (only_ ? receiver == only_ : receiver->inherits("QPushButton")))
            ++count;
        return false;
    }
    /// False if there were fewer after many events.
    bool WaitFor(int wanted) const {
        for (int i = 0; i < 1000 && count < wanted; ++i) QApplication::processEvents();
        return count >= wanted;
    }
    int count = 0;

private:
    QWidget* only_;
};

// ------------------------------------------------------------------ 200 buttons

constexpr int buttonRows = 20;
constexpr int buttonColumns = 10;
constexpr QColor buttonColor(200, 210, 220);

std::string Buttons(char const* begin, char const* end) {
    std::string text = "<VBox>";
    for (int row = 0; row < buttonRows; ++row) {
        text += "<HBox>";
        for (int column = 0; column < buttonColumns; ++column) {
            std::string const number = std::to_string(row * buttonColumns + column);
            text += begin + number + end;
        }
        text += "</HBox>";
    }
    return text + "</VBox>";
}

void OurButtons(benchmark::State& state, std::string const& description, bool native) {
    Source source;
    for (auto _ : state) {
        auto const start = Clock::now();
        Paints const paints;
        auto const window = Open(Describe(description), source);
        QWidget* const widget = WidgetOf(*window);
        // All drawn ones are on the window's one surface.
        Paints const surface(widget->findChild<QWidget*>());
        bool const painted = native ? paints.WaitFor(buttonRows * buttonColumns) : surface.WaitFor(1);
        state.SetIterationTime(Since(start));
        if (!painted) state.SkipWithError("not painted");
        constexpr int inside = 5;
        if (!native && widget->grab().toImage().pixelColor(inside, inside) != buttonColor)
            state.SkipWithError("no picture");
    }
}

void PeerButtons(benchmark::State& state) {
    for (auto _ : state) {
        auto const start = Clock::now();
        Paints const paints;
        QWidget window;
        auto* const grid = new QGridLayout(&window);
        for (int i = 0; i < buttonRows * buttonColumns; ++i)
            grid->addWidget(new QPushButton(QString("Button %1").arg(i)), i / buttonColumns,
                            i % buttonColumns);
        window.resize(width, height);
        window.show();
        bool const painted = paints.WaitFor(buttonRows * buttonColumns);
        state.SetIterationTime(Since(start));
        if (!painted) state.SkipWithError("not painted");
    }
}

// ------------------------------------------------------------------ lists

std::string Name(int i) { return "Standard colour " + std::to_string(i); }

Anything Names(int count) {
    Anything::VectorOfAnythings texts(static_cast<std::uint32_t>(count));
    for (int i = 0; i < count; ++i) texts[static_cast<std::uint32_t>(i)] = String(Name(i));
    return texts;
}
Anything NameMap(int count) {
    Anything::MapOfAnythings texts;
    for (int i = 0; i < count; ++i) texts[String(static_cast<long>(i))] = String(Name(i));
    return texts;
}
QStringList PeerNames(int count) {
    QStringList names;
    for (int i = 0; i < count; ++i) names << QString::fromStdString(Name(i));
    return names;
}

constexpr int manyEntries = 10000;
constexpr int mostEntries = 100000;

void OurFill(benchmark::State& state, char const* control, char const* key, Anything const& entries,
             int count) {
    Source source;
    auto const window = Open(Describe(std::string("<") + control + " ElementName='it'/>"), source);
    QApplication::processEvents();
    GUI::GUIElement& it = window->FindElement("it");
    auto const* const view = WidgetOf(*window)->findChild<QAbstractItemView*>();
    auto const* const box = WidgetOf(*window)->findChild<QComboBox*>();
    for (auto _ : state) {
        source.values.clear();
        source.values["Entries"] = Anything(Anything::MapOfAnythings());
        it.OnUpdate({});
        source.values.clear();
        source.values[key] = entries;
        auto const start = Clock::now();
        it.OnUpdate({});
        state.SetIterationTime(Since(start));
        int const filled = box ? box->count() : view->model()->rowCount();
        if (filled != count) state.SkipWithError("not filled");
    }
}

void OurSelect(benchmark::State& state) {
    Source source;
    source.values["EntryTexts"] = Names(manyEntries);
    auto const window = Open(Describe("<DropDown ElementName='it' ReadOnly='Yes'/>"), source);
    source.values.clear();
    GUI::GUIElement& it = window->FindElement("it");
    int k = 0;
    for (auto _ : state) {
        k = (k + 4321) % manyEntries;
        source.values["SelectedEntry"] = String(Name(k));
        auto const start = Clock::now();
        it.OnUpdate({});
        state.SetIterationTime(Since(start));
        if (source.told != Name(k) || WidgetOf(*window)->findChild<QComboBox*>()->currentIndex() != k)
            state.SkipWithError("not selected");
    }
}

void PeerSelect(benchmark::State& state) {
    QComboBox box;
    box.addItems(PeerNames(manyEntries));
    int k = 0;
    for (auto _ : state) {
        k = (k + 4321) % manyEntries;
        QString const text = QString::fromStdString(Name(k));
        auto const start = Clock::now();
        box.setCurrentText(text);
        state.SetIterationTime(Since(start));
        if (box.currentIndex() != k) state.SkipWithError("not selected");
    }
}

void OurListPaint(benchmark::State& state) {
    Source source;
    source.values["EntryTexts"] = Names(mostEntries);
    auto const description = Describe("<ListBox ElementName='it'/>");
    for (auto _ : state) {
        auto const start = Clock::now();
        auto const window = Open(description, source);
        Paints const paints(WidgetOf(*window)->findChild<QListView*>()->viewport());
        bool const painted = paints.WaitFor(1);
        state.SetIterationTime(Since(start));
        if (!painted) state.SkipWithError("not painted");
    }
}

void PeerListPaint(benchmark::State& state) {
    QStringListModel model(PeerNames(mostEntries));
    for (auto _ : state) {
        auto const start = Clock::now();
        QListView view;
        view.setUniformItemSizes(true);
        view.setModel(&model);
        view.resize(width, height);
        Paints const paints(view.viewport());
        view.show();
        bool const painted = paints.WaitFor(1);
        state.SetIterationTime(Since(start));
        if (!painted) state.SkipWithError("not painted");
    }
}

// ------------------------------------------------------------------ text

std::string Megabyte(char first) {
    std::string text;
    while (text.size() < (1U << 20U)) text += std::string(59, first) + "\n";
    return text;
}

void OurText(benchmark::State& state) {
    Source source;
    auto const window = Open(Describe("<Edit ElementName='it' MultiLine='Yes' ScrollBar='Both'/>"), source);
    QApplication::processEvents();
    auto* const field = WidgetOf(*window)->findChild<QPlainTextEdit*>();
    GUI::GUIElement& it = window->FindElement("it");
    String const texts[] = {Megabyte('a'), Megabyte('b')};
    int turn = 0;
    for (auto _ : state) {
        source.values["Text"] = texts[++turn % 2];
        auto const start = Clock::now();
        it.OnUpdate({});
        Paints const paints(field->viewport());
        field->viewport()->repaint();
        state.SetIterationTime(Since(start));
        if (paints.count == 0 || field->blockCount() < 1000) state.SkipWithError("not shown");
    }
}

void PeerText(benchmark::State& state) {
    QPlainTextEdit field;
    field.setLineWrapMode(QPlainTextEdit::NoWrap);
    // The same letters are laid out.
    QFont font = field.font();
    font.setPixelSize(12);
    font.setBold(true);
    field.setFont(font);
    field.resize(width, height);
    field.show();
    QApplication::processEvents();
    QString const texts[] = {QString::fromStdString(Megabyte('a')), QString::fromStdString(Megabyte('b'))};
    int turn = 0;
    for (auto _ : state) {
        auto const start = Clock::now();
        field.setPlainText(texts[++turn % 2]);
        Paints const paints(field.viewport());
        field.viewport()->repaint();
        state.SetIterationTime(Since(start));
        if (paints.count == 0 || field.blockCount() < 1000) state.SkipWithError("not shown");
    }
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    // Programs must not depend on what the user's settings say.
    setenv("XDG_CONFIG_HOME", "/nonexistent", 1);
    Application application;
    application.GetImplementation();
    MakePicture("ButtonUp", width / buttonColumns, height / buttonRows);
    std::string const native = Buttons("<Button ElementName='b", "' Caption='Button'/>");
    std::string const drawn = Buttons("<TextImageButton ElementName='b",
                                      "' Caption='Button'><General Text='Button'/></TextImageButton>");
    Register("controls.buttons-200/ours", [&](auto& state) { OurButtons(state, native, true); });
    Register("controls.buttons-200/peer:QPushButton-QGridLayout", PeerButtons);
    Register("controls.drawn-buttons-200/ours", [&](auto& state) { OurButtons(state, drawn, false); });
    Register("controls.drawn-buttons-200/peer:QPushButton-QGridLayout", PeerButtons);

    Anything const names = Names(manyEntries);
    Anything const map = NameMap(manyEntries);
    Anything const allNames = Names(mostEntries);
    auto const peerFill = [](auto& state) {
        QStringList const texts = PeerNames(manyEntries);
        for (auto _ : state) {
            QComboBox box;
            auto const start = Clock::now();
            box.addItems(texts);
            state.SetIterationTime(Since(start));
            if (box.count() != manyEntries) state.SkipWithError("not filled");
        }
    };
    Register("controls.dropdown-fill-10000/ours",
             [&](auto& state) { OurFill(state, "DropDown", "EntryTexts", names, manyEntries); });
    Register("controls.dropdown-fill-10000/peer:QComboBox.addItems", peerFill);
    Register("controls.dropdown-map-10000/ours",
             [&](auto& state) { OurFill(state, "DropDown", "Entries", map, manyEntries); });
    Register("controls.dropdown-map-10000/peer:QComboBox.addItems", peerFill);
    Register("controls.dropdown-select-10000/ours", OurSelect);
    Register("controls.dropdown-select-10000/peer:QComboBox.setCurrentText", PeerSelect);
    Register("controls.list-fill-100000/ours",
             [&](auto& state) { OurFill(state, "ListBox", "EntryTexts", allNames, mostEntries); });
    Register("controls.list-fill-100000/peer:QListWidget.addItems", [](auto& state) {
        QStringList const texts = PeerNames(mostEntries);
        for (auto _ : state) {
            QListWidget list;
            auto const start = Clock::now();
            list.addItems(texts);
            state.SetIterationTime(Since(start));
            if (list.count() != mostEntries) state.SkipWithError("not filled");
        }
    });
    Register("controls.list-paint-100000/ours", OurListPaint);
    Register("controls.list-paint-100000/peer:QListView-uniform", PeerListPaint);
    Register("controls.edit-1MB/ours", OurText);
    Register("controls.edit-1MB/peer:QPlainTextEdit", PeerText);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
