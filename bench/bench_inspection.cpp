// What the property inspector, the clipboard and started programs cost, each against its peer or floor in the
// same run.

#include "bench/DescribedWindow.h"
#include "bench/Paints.h"
#include "gui/elements/PropertyContentHelper.h"
#include "gui/elements/application/ClipboardService.h"
#include "gui/tree/CNorvelianTreeCtrl.h"
#include "services/programs/ChildProcesses_PC.h"

#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QTreeWidget>
#include <cmath>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

using namespace Bench;

SmartPointer<GUI::PropertyContentHelper> MakeHelper() {
    return Utilities::ResolveComponent<GUI::PropertyContentHelper>("PropertyContentHelper");
}

/// As of a sample's spectrum: six entries, one of which has the values below it.
Anything MakeContent(long values) {
    auto const helper = MakeHelper();
    for (char const* const name : {"Lambda Min", "Lambda Max", "Resolution", "SpectrumType", "Filter"})
        helper->AddString(String("Spectrum/") + name, "value");
    for (long i = 0; i < values; ++i)
        helper->AddDouble(String("Spectrum/DataPoints/") + String(380 + i) + " nm", 0.25);
    return helper->GetContent();
}

void OpenAll(GUI::TreeViewNode& node) {
    node.SetExpanded(true);
    for (GUI::TreeViewNode& child : node) OpenAll(child);
}

void OurTree(benchmark::State& state) {
    Anything const content = MakeContent(34);
    auto const helper = MakeHelper();
    GUI::GUIElement element;
    GUI::CNorvelianTreeCtrl tree(nullptr);
    tree.SetElement(&element);
    tree.resize(300, 900);
    Paints const paints(*tree.viewport());
    tree.show();
    if (!paints.WaitFor(1)) state.SkipWithError("not shown");
    for (auto _ : state) {
        int const before = paints.count;
        auto const start = Clock::now();
        auto const root = helper->BuildTree(content);
        OpenAll(*root);
        tree.SetRoot(root);
        Flush(tree);
        state.SetIterationTime(Since(start));
        if (paints.count == before) state.SkipWithError("not painted");
    }
    tree.SetElement(nullptr);
}

void PeerTree(benchmark::State& state) {
    QTreeWidget tree;
    tree.setHeaderHidden(true);
    tree.resize(300, 900);
    Paints const paints(*tree.viewport());
    tree.show();
    if (!paints.WaitFor(1)) state.SkipWithError("not shown");
    for (auto _ : state) {
        int const before = paints.count;
        auto const start = Clock::now();
        tree.clear();
        auto* const root = new QTreeWidgetItem({QString("Spectrum")});
        for (char const* const name : {"Lambda Min", "Lambda Max", "Resolution", "SpectrumType", "Filter"})
            new QTreeWidgetItem(root, {QString(name) + ": value"});
        auto* const points = new QTreeWidgetItem(root, {QString("DataPoints")});
        for (int i = 0; i < 34; ++i)
            new QTreeWidgetItem(points, {QString("%1 nm: %2").arg(380 + i).arg(0.25, 0, 'f', 5)});
        tree.addTopLevelItem(root);
        tree.expandAll();
        Flush(tree);
        state.SetIterationTime(Since(start));
        if (paints.count == before) state.SkipWithError("not painted");
    }
}

/// An entry of one with so many.
void BuildEntry(benchmark::State& state, long entries) {
    Anything const content = MakeContent(entries);
    auto const helper = MakeHelper();
    for (auto _ : state) {
        auto const start = Clock::now();
        auto const root = helper->BuildTree(content);
        state.SetIterationTime(Since(start) / static_cast<double>(entries));
        if (root.IsNull()) state.SkipWithError("no tree");
    }
}

/// Curves of a chart that moves a little with each question.
Source& CurveSource() {
    static Source source;
    source.values = {{"XScaleBegin", 380.0}, {"XScaleEnd", 730.0},  {"YScaleBegin", 0.0},
                     {"YScaleEnd", 1.0},     {"ValueBegin", "380"}, {"ValueStep", "10"},
                     {"XValueBegin", "380"}, {"DeltaXValue", "10"}};
    for (int curve = 1; curve <= 30; ++curve) {
        Anything::VectorOfAnythings values(37);
        values[0] = String(std::to_string(curve));
        for (std::uint32_t i = 1; i < values.GetSize(); ++i)
            values[i] = String(0.5 + 0.4 * std::sin(i * 0.2 + curve), 6, '.');
        source.values[std::to_string(curve)] = Anything(values);
    }
    return source;
}

SmartPointer<GUI::GUIElement> OpenChart() {
    auto const description =
        GUI::GUIDescriptionReader::Parse("<Window ElementName='Main' Width='800' Height='600'><XYChart "
                                         "ElementName='Chart' XScaleDrawLines='50' "
                                         "YScaleDrawLines='0.2'/></Window>",
                                         "bench");
    auto window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
    window->Initialize(GUI::PlatformIndependentWindowID_PC(), description, &CurveSource());
    QApplication::processEvents();
    window->FindElement("Chart").OnUpdate("1;1-36;30");
    QApplication::processEvents();
    return window;
}

QByteArray Encode(QImage const& image, char const* format) {
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    image.save(&file, format);
    return bytes;
}

void OurCopy(benchmark::State& state) {
    auto const window = OpenChart();
    auto& chart = window->FindElement("Chart");
    for (auto _ : state) {
        auto const start = Clock::now();
        auto const source = Utilities::ResolveComponent<GUI::DataSource>("DataSource");
        bool const added = source->AddElement(chart);
        source->SetClipboard();
        state.SetIterationTime(Since(start));
        if (!added) state.SkipWithError("nothing copied");
    }
    QGuiApplication::clipboard()->clear();
}

/// The same picture, in its three renderings at once.
void EncodeAtOnce(benchmark::State& state) {
    auto const window = OpenChart();
    QImage const picture = WidgetOf(*window)->grab().toImage();
    for (auto _ : state) {
        auto const start = Clock::now();
        QByteArray const png = Encode(picture, "png");
        QByteArray const drawing = "<svg>" + png.toBase64() + "</svg>";
        auto const size = png.size() + drawing.size() + Encode(picture, "bmp").size();
        state.SetIterationTime(Since(start));
        if (size < 1000) state.SkipWithError("nothing encoded");
    }
}

void WaitForAll() {
    while (::waitpid(-1, nullptr, 0) > 0) continue;
}

void OurStart(benchmark::State& state) {
    for (auto _ : state) {
        auto const start = Clock::now();
        int const failure = GUI::ChildProcesses::Start({"/bin/true"}, "/bin", false);
        state.SetIterationTime(Since(start));
        if (failure != 0) state.SkipWithError("not started");
        WaitForAll();
    }
}

void BareStart(benchmark::State& state) {
    char program[] = "/bin/true";
    char* const arguments[] = {program, nullptr};
    for (auto _ : state) {
        pid_t process = 0;
        auto const start = Clock::now();
        int const failure = ::posix_spawn(&process, program, nullptr, nullptr, arguments, environ);
        state.SetIterationTime(Since(start));
        if (failure != 0) state.SkipWithError("not started");
        WaitForAll();
    }
}

} // namespace

int main(int argc, char** argv) {
    setenv("XDG_CONFIG_HOME", ("/tmp/bench-inspection-" + std::to_string(getpid())).c_str(), 1);
    benchmark::Initialize(&argc, argv);
    Application application;
    application.GetImplementation();
    Register("inspector.tree-40/ours", OurTree);
    Register("inspector.tree-40/peer:QTreeWidget", PeerTree);
    for (auto const& [name, entries] : {std::pair{"inspector.entry-of-10000/ours", 10'000L},
                                        {"inspector.entry-of-10000/floor:of-1000", 1000L}})
        benchmark::RegisterBenchmark(name, BuildEntry, entries)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond)
            ->Iterations(entries == 1000 ? 200 : 20);
    Register("clipboard.chart/ours", OurCopy);
    Register("clipboard.chart/floor:encoding", EncodeAtOnce);
    Register("programs.start/ours", OurStart);
    Register("programs.start/floor:posix_spawn", BareStart);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    application.ReleaseImplementation();
    return 0;
}
