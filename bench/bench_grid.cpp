// The table against the platform's own (peer), measured in the same run. Each case checks its result.

#include "Utilities/NamingService.h"
#include "bench/Paints.h"
#include "gui/elements/CallbackTable.h"
#include "gui/elements/DialogDataSource.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "gui/grid/Grid_PC.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>
#include <QUndoStack>
#include <benchmark/benchmark.h>
#include <charconv>
#include <chrono>
#include <malloc.h>
#include <unistd.h>

namespace {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;
using Clock = std::chrono::steady_clock;

constexpr int width = 1000;
constexpr int height = 700;
constexpr long millionRows = 1000000;
constexpr int columns = 20;
constexpr int rowHeight = 30;

double Since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

double NumberOf(long row, long column) {
    return static_cast<double>(static_cast<std::uint32_t>(row * columns + column) * 2654435761U >> 12U) /
           100.0;
}

std::string TextOf(double number) {
    std::array<char, 32> text{};
    auto const end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 2).ptr;
    return {text.data(), end};
}

class Application : public GUI::Application {
public:
    Application() : GUI::Application("bench_grid") {}
    void ReportError(String const& text) override { std::fprintf(stderr, "%s\n", text.GetCharPointer()); }
};

/// Rows by range.
class Source : public GUI::DialogDataSource {
public:
    void SetValue(String const&, String const&, Anything const&) override {}
    Anything GetValue(String const&, String const& name) override {
        if (name == "RowCount") return millionRows;
        if (name.FindSubstring("Rows ", 0) != 0) return {};
        String const range = name.Mid(5, name.Length());
        long const first = range.GetToken(0, '-').GetLong();
        long const last = range.GetToken(1, '-').GetLong();
        Anything::VectorOfAnythings rows(static_cast<std::uint32_t>(last - first + 1));
        for (long row = first; row <= last; ++row) {
            Anything::VectorOfAnythings cells(columns);
            for (int column = 0; column < columns; ++column)
                cells[static_cast<std::uint32_t>(column)] = String(TextOf(NumberOf(row, column)));
            rows[static_cast<std::uint32_t>(row - first)] = Anything(cells);
        }
        return {rows};
    }
    void SetCallback(String const& element, String const& name,
                     Utilities::Callback const& callback) override {
        callbacks_.Set(element, name, callback);
    }
    Utilities::Callback GetCallback(String const& element, String const& name) override {
        return callbacks_.Find(element, name);
    }
    void RemoveAllCallbacks(String const& element) override { callbacks_.Remove(element); }

private:
    GUI::CallbackTable callbacks_;
};

using Bench::Flush;
using Bench::Paints;

/// A described window with one table.
class Table {
public:
    explicit Table(std::string const& attributes) {
        auto const description = GUI::GUIDescriptionReader::Parse(
            "<Window ElementName='Main' Width='" + std::to_string(width) + "' Height='" +
                std::to_string(height) + "'><Grid ElementName='it' NumberOfColumns='" +
                std::to_string(columns) + "' ColumnsWidth='100' RowHeight='" + std::to_string(rowHeight) +
                "' " + attributes + "/></Window>",
            "bench");
        window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
        window->Initialize(GUI::PlatformIndependentWindowID_PC(), description, &source);
        element = dynamic_cast<GUI::Grid_PC*>(&window->FindElement("it"));
        grid = element->GetGrid();
        paints = std::make_unique<Paints>(*grid->viewport());
        paints->WaitFor(1);
    }
    ~Table() { window = nullptr; }
    Table(Table const&) = delete;
    Table& operator=(Table const&) = delete;

    Source source;
    SmartPointer<GUI::GUIElement> window;
    GUI::Grid_PC* element = nullptr;
    GUI::CNorvelianGridCtrl* grid = nullptr;
    std::unique_ptr<Paints> paints;
};

class LazyModel : public QAbstractTableModel {
public:
    int rowCount(QModelIndex const& parent = {}) const override { return parent.isValid() ? 0 : millionRows; }
    int columnCount(QModelIndex const& parent = {}) const override { return parent.isValid() ? 0 : columns; }
    QVariant data(QModelIndex const& index, int role) const override {
        if (role != Qt::DisplayRole) return {};
        return QString::number(NumberOf(index.row(), index.column()) + added_, 'f', 2);
    }
    void Touch(int row, int column) {
        added_ += 1;
        QModelIndex const at = index(row, column);
        emit dataChanged(at, at, {Qt::DisplayRole});
    }

private:
    double added_ = 0;
};

struct View {
    LazyModel model;
    QTableView view;
    std::unique_ptr<Paints> paints;
    View() {
        view.resize(width, height);
        view.setModel(&model);
        paints = std::make_unique<Paints>(*view.viewport());
        view.show();
        paints->WaitFor(1);
    }
};

// ------------------------------------------------------------------ painting

void OurFirstPaint(benchmark::State& state) {
    for (auto _ : state) {
        auto const start = Clock::now();
        Table const table("Virtual='Yes'");
        state.SetIterationTime(Since(start));
        if (table.paints->count == 0 || table.grid->GetCore().GetText({5, 5}).Length() == 0)
            state.SkipWithError("not painted");
    }
}

void PeerFirstPaint(benchmark::State& state) {
    for (auto _ : state) {
        auto const start = Clock::now();
        View const view;
        state.SetIterationTime(Since(start));
        if (view.paints->count == 0) state.SkipWithError("not painted");
    }
}

template <class Page>
void Scroll(benchmark::State& state, QAbstractScrollArea& area, Paints const& paints, Page page) {
    QScrollBar& bar = *area.verticalScrollBar();
    int at = 0;
    for (auto _ : state) {
        int const step = page(bar);
        at = at + step > 900000 ? 0 : at + step;
        int const before = paints.count;
        bar.setValue(at);
        Flush(area);
        if (paints.count == before) state.SkipWithError("not painted");
    }
}

int WholePage(QScrollBar const& bar) { return bar.pageStep(); }
int OneRow(QScrollBar const& /*bar*/) { return 1; }

template <class Page> void OurScroll(benchmark::State& state, Page page) {
    Table const table("Virtual='Yes'");
    Flush(*table.grid);
    Scroll(state, *table.grid, *table.paints, page);
}

template <class Page> void PeerScroll(benchmark::State& state, Page page) {
    View view;
    Flush(view.view);
    Scroll(state, view.view, *view.paints, page);
}

void OurSetCell(benchmark::State& state) {
    Table const table("NumberOfRows='1000'");
    Flush(*table.grid);
    long count = 0;
    for (auto _ : state) {
        int const before = table.paints->count;
        GUI::AttributeMap cell;
        cell["Value"] = String(TextOf(NumberOf(5, 3) + static_cast<double>(++count)));
        table.element->SetCell(6, 4, cell);
        Flush(*table.grid);
        if (table.paints->count != before + 1) state.SkipWithError("not painted once");
    }
}

void PeerSetCell(benchmark::State& state) {
    View view;
    Flush(view.view);
    for (auto _ : state) {
        int const before = view.paints->count;
        view.model.Touch(5, 3);
        Flush(view.view);
        if (view.paints->count != before + 1) state.SkipWithError("not painted once");
    }
}

// ------------------------------------------------------------------ data

constexpr long fillRows = 1000;
constexpr long sortRows = 100000;
constexpr int edits = 10000;

void Fill(GUI::CGXGridCore& core, long rows, int count) {
    core.SetRowCount(rows);
    core.SetColumnCount(count);
    for (long row = 1; row <= rows; ++row)
        for (int column = 1; column <= count; ++column)
            core.SetText({row, column}, String(TextOf(NumberOf(row - 1, column - 1))));
}

void OurFill(benchmark::State& state) {
    double bytes = 0;
    for (auto _ : state) {
        auto const before = mallinfo2().uordblks;
        auto const start = Clock::now();
        auto const core = std::make_unique<GUI::CGXGridCore>();
        Fill(*core, fillRows, columns);
        state.SetIterationTime(Since(start));
        bytes = static_cast<double>(mallinfo2().uordblks - before) / static_cast<double>(fillRows * columns);
        if (core->GetText({fillRows, columns}).Length() == 0) state.SkipWithError("not filled");
        if (bytes > 64) state.SkipWithError("more than 64 bytes a cell");
    }
    state.counters["bytes"] = bytes;
}

std::unique_ptr<QTableWidget> PeerTable(int rows, int count) {
    auto table = std::make_unique<QTableWidget>(rows, count);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < count; ++column) {
            auto* const item = new QTableWidgetItem;
            item->setData(Qt::DisplayRole, QString::number(NumberOf(row, column), 'f', 2));
            table->setItem(row, column, item);
        }
    return table;
}

void PeerFill(benchmark::State& state) {
    for (auto _ : state) {
        auto const start = Clock::now();
        auto const table = PeerTable(fillRows, columns);
        state.SetIterationTime(Since(start));
        if (!table->item(fillRows - 1, columns - 1)) state.SkipWithError("not filled");
    }
}

void OurSort(benchmark::State& state) {
    for (auto _ : state) {
        GUI::CGXGridCore core;
        Fill(core, sortRows, 1);
        GUI::GridSortKey const keys[] = {{1, false}};
        auto const start = Clock::now();
        core.SortRows(GUI::SortGridRows(core, 1, keys), 1, {keys[0]});
        state.SetIterationTime(Since(start));
        if (core.GetText({1, 1}).GetDouble() > core.GetText({sortRows, 1}).GetDouble())
            state.SkipWithError("not sorted");
    }
}

void PeerSort(benchmark::State& state) {
    for (auto _ : state) {
        QTableWidget table(sortRows, 1);
        for (int row = 0; row < sortRows; ++row) {
            auto* const item = new QTableWidgetItem;
            item->setData(Qt::DisplayRole, NumberOf(row, 0));
            table.setItem(row, 0, item);
        }
        auto const start = Clock::now();
        table.sortItems(0);
        state.SetIterationTime(Since(start));
        if (table.item(0, 0)->data(Qt::DisplayRole).toDouble() >
            table.item(sortRows - 1, 0)->data(Qt::DisplayRole).toDouble())
            state.SkipWithError("not sorted");
    }
}

struct PeerEdit : QUndoCommand {
    PeerEdit(std::vector<std::string>& cells, std::size_t at, std::string text)
        : cells_(cells), at_(at), text_(std::move(text)) {}
    void redo() override { cells_[at_].swap(text_); }
    void undo() override { cells_[at_].swap(text_); }

private:
    std::vector<std::string>& cells_;
    std::size_t at_;
    std::string text_;
};

void OurEdits(benchmark::State& state, bool measuresUndo) {
    GUI::CGXGridCore core;
    Fill(core, 500, columns);
    for (auto _ : state) {
        GUI::GridHistory history(core);
        auto start = Clock::now();
        for (int i = 0; i < edits; ++i)
            history.SetText({i % 500 + 1, i / 500 + 1}, String("edit " + std::to_string(i)));
        if (measuresUndo) {
            start = Clock::now();
            while (history.CanUndo()) history.Undo();
        }
        state.SetIterationTime(Since(start));
        bool const edited = core.GetText({1, 1}) == "edit 0";
        if (edited == measuresUndo) state.SkipWithError("wrong text");
        while (history.CanUndo()) history.Undo();
    }
}

void PeerEdits(benchmark::State& state, bool measuresUndo) {
    std::vector<std::string> cells(edits, "12345.67");
    for (auto _ : state) {
        QUndoStack stack;
        auto start = Clock::now();
        for (int i = 0; i < edits; ++i)
            stack.push(new PeerEdit(cells, static_cast<std::size_t>(i), "edit " + std::to_string(i)));
        if (measuresUndo) {
            start = Clock::now();
            while (stack.canUndo()) stack.undo();
        }
        state.SetIterationTime(Since(start));
        if ((cells[0] == "edit 0") == measuresUndo) state.SkipWithError("wrong text");
        while (stack.canUndo()) stack.undo();
    }
}

void OurClipboard(benchmark::State& state, bool pastes) {
    constexpr long rows = 5000;
    Table const table("NumberOfRows='5000'");
    for (long row = 1; row <= rows; ++row)
        for (long column = 1; column <= columns; ++column) {
            GUI::CGXStyle cell;
            cell.value = String(TextOf(NumberOf(row, column)));
            table.grid->SetStyleRange(GUI::GridRange::Of({row, column}), cell);
        }
    table.grid->Select({1, 1}, {1, 1, rows, columns});
    table.grid->Copy();
    for (auto _ : state) {
        auto const start = Clock::now();
        if (pastes)
            table.grid->Paste();
        else
            table.grid->Copy();
        state.SetIterationTime(Since(start));
        if (QApplication::clipboard()->text().count('\n') != rows ||
            (pastes && table.grid->GetHistory().GetCount() == 0))
            state.SkipWithError("not all");
        table.grid->GetHistory().Clear();
    }
}

void OurPrint(benchmark::State& state) {
    Table const table("NumberOfRows='1000'");
    for (long row = 1; row <= fillRows; ++row)
        for (long column = 1; column <= columns; ++column)
            table.element->SetCell(static_cast<unsigned short>(row), static_cast<unsigned short>(column),
                                   [&] {
                                       GUI::AttributeMap cell;
                                       cell["Value"] = String(TextOf(NumberOf(row, column)));
                                       return cell;
                                   }());
    std::string const file = "/tmp/bench-grid-" + std::to_string(getpid()) + ".pdf";
    Anything::MapOfAnythings command;
    command["Command"] = "Print";
    command["File"] = String(file);
    for (auto _ : state) {
        auto const start = Clock::now();
        long const done = table.element->OnUpdate(command);
        state.SetIterationTime(Since(start));
        if (done != 1) state.SkipWithError("not printed");
    }
    std::remove(file.c_str());
}

constexpr auto us = benchmark::kMicrosecond;

BENCHMARK(OurFirstPaint)->Name("grid.first-paint-1m/ours")->UseManualTime()->Unit(us);
BENCHMARK(PeerFirstPaint)->Name("grid.first-paint-1m/peer:QTableView")->UseManualTime()->Unit(us);
BENCHMARK_CAPTURE(OurScroll, page, WholePage)->Name("grid.scroll-page/ours")->UseRealTime()->Unit(us);
BENCHMARK_CAPTURE(PeerScroll, page, WholePage)
    ->Name("grid.scroll-page/peer:QTableView")
    ->UseRealTime()
    ->Unit(us);
BENCHMARK_CAPTURE(OurScroll, row, OneRow)->Name("grid.scroll-row/ours")->UseRealTime()->Unit(us);
BENCHMARK_CAPTURE(PeerScroll, row, OneRow)->Name("grid.scroll-row/peer:QTableView")->UseRealTime()->Unit(us);
BENCHMARK(OurSetCell)->Name("grid.set-cell/ours")->UseRealTime()->Unit(us);
BENCHMARK(PeerSetCell)->Name("grid.set-cell/peer:QTableView")->UseRealTime()->Unit(us);
BENCHMARK(OurFill)->Name("grid.fill-1000x20/ours")->UseManualTime()->Unit(us);
BENCHMARK(PeerFill)->Name("grid.fill-1000x20/peer:QTableWidget")->UseManualTime()->Unit(us);
BENCHMARK(OurSort)->Name("grid.sort-100000/ours")->UseManualTime()->Unit(us)->Iterations(5);
BENCHMARK(PeerSort)->Name("grid.sort-100000/peer:QTableWidget")->UseManualTime()->Unit(us)->Iterations(5);
BENCHMARK_CAPTURE(OurEdits, pushed, false)->Name("grid.edits-10000/ours")->UseManualTime()->Unit(us);
BENCHMARK_CAPTURE(PeerEdits, pushed, false)
    ->Name("grid.edits-10000/peer:QUndoStack")
    ->UseManualTime()
    ->Unit(us);
BENCHMARK_CAPTURE(OurEdits, undone, true)->Name("grid.undo-10000/ours")->UseManualTime()->Unit(us);
BENCHMARK_CAPTURE(PeerEdits, undone, true)
    ->Name("grid.undo-10000/peer:QUndoStack")
    ->UseManualTime()
    ->Unit(us);
BENCHMARK_CAPTURE(OurClipboard, copied, false)->Name("grid.copy-100000/ours")->UseManualTime()->Unit(us);
BENCHMARK_CAPTURE(OurClipboard, pasted, true)->Name("grid.paste-100000/ours")->UseManualTime()->Unit(us);

BENCHMARK(OurPrint)->Name("grid.print-1000/ours")->UseManualTime()->Unit(us);

} // namespace

int main(int argc, char** argv) {
    setenv("XDG_CONFIG_HOME", ("/tmp/bench-grid-" + std::to_string(getpid())).c_str(), 1);
    benchmark::Initialize(&argc, argv);
    Application application;
    application.GetImplementation();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
