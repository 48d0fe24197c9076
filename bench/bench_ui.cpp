// Windows from descriptions, repaints and records, against the same job done directly (floor) or by a
// component that others use (peer), measured in the same run. Each checks its result.

#include "Utilities/NamingService.h"
#include "gui/elements/Pane.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QPainter>
#include <QVariant>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <malloc.h>
#include <string>
#include <unistd.h>

namespace {

using Utilities::Anything;
using Utilities::String;
using Clock = std::chrono::steady_clock;

constexpr int elements = 1000;
constexpr int arity = 10;
constexpr int windowWidth = 1920;
constexpr int windowHeight = 1080;

// ------------------------------------------------------------------ a tree of boxes of ten with pane leaves

bool IsBox(int i) { return arity * i + 1 < elements; }
int LastChild(int i) { return std::min(arity * i + arity, elements - 1); }
int Leaves() {
    int leaves = 0;
    for (int i = 0; i < elements; ++i) leaves += IsBox(i) ? 0 : 1;
    return leaves;
}

void DescribeNode(std::string& text, int i, int depth) {
    if (!IsBox(i)) {
        text += "<CountedPane ElementName=\"w" + std::to_string(i) +
                "\" BackgroundColor=\"40,80,120\" MinimalWidth=\"1\" MinimalHeight=\"1\"/>\n";
        return;
    }
    char const* const box = depth % 2 == 0 ? "HBox" : "VBox";
    text += std::string("<") + box + ">\n";
    for (int child = arity * i + 1; child <= LastChild(i); ++child) DescribeNode(text, child, depth + 1);
    text += std::string("</") + box + ">\n";
}

std::string Description() {
    std::string text = "<Window ElementName=\"Main\" Width=\"" + std::to_string(windowWidth) +
                       "\" Height=\"" + std::to_string(windowHeight) + "\">\n";
    DescribeNode(text, 0, 0);
    return text + "</Window>\n";
}

/// A pane that counts its paints.
class CountedPane : public GUI::Pane {
public:
    void OnPaint(GUI::PlatformIndependentDeviceContext& context) override {
        ++paints;
        Pane::OnPaint(context);
    }
    static inline int paints = 0;
};
GUI::ElementRegistration<CountedPane, GUI::Pane> const registration({"CountedPane", "$Revision: 1 $",
                                                                     "Benchmark"});

/// Counts the paints of all widgets that have nothing in them.
class PaintCounter : public QObject {
public:
    PaintCounter() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::Paint && receiver->isWidgetType() &&
            !static_cast<QWidget*>(receiver)->isWindow() && receiver->children().isEmpty())
            ++paints;
        return false;
    }
    int paints = 0;
};

class Leaf : public QWidget {
public:
    explicit Leaf(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setMinimumSize(1, 1);
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), QColor(40, 80, 120)); }
};

QWidget* MakeWidgets(int i, int depth, QWidget* parent) {
    if (!IsBox(i)) return new Leaf(parent);
    auto* const box = new QWidget(parent);
    auto* const layout =
        new QBoxLayout(depth % 2 == 0 ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, box);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    for (int child = arity * i + 1; child <= LastChild(i); ++child)
        layout->addWidget(MakeWidgets(child, depth + 1, box));
    return box;
}

template <class Make> void FirstPaint(benchmark::State& state, Make make, int leaves = Leaves()) {
    for (auto _ : state) {
        PaintCounter counter;
        CountedPane::paints = 0;
        auto const painted = [&counter] { return std::max(counter.paints, CountedPane::paints); };
        auto const start = Clock::now();
        {
            auto const window = make();
            for (int i = 0; i < 100 && painted() < leaves; ++i) QApplication::processEvents();
            state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
            if (painted() < leaves) state.SkipWithError("not every pane was painted");
        }
        QApplication::processEvents();
    }
}

void DescriptionOurs(benchmark::State& state) {
    std::string const text = Description();
    GUI::PlatformIndependentWindowID_PC const none;
    FirstPaint(state, [&] {
        struct Made {
            GUI::DescriptionTree description;
            Utilities::SmartPointer<GUI::GUIElement> window;
        };
        auto made = std::make_unique<Made>();
        made->description = GUI::GUIDescriptionReader::Parse(text, "bench");
        made->window = Utilities::ResolveComponent<GUI::GUIElement>("Window");
        made->window->Initialize(none, made->description, nullptr);
        return made;
    });
}

void DescriptionFloor(benchmark::State& state) {
    FirstPaint(state, [] {
        std::unique_ptr<QWidget> window(MakeWidgets(0, 0, nullptr));
        window->resize(windowWidth, windowHeight);
        window->show();
        return window;
    });
}

// ------------------------------------------------------------------ many panes

constexpr int manyColumns = 200;
constexpr int manyPanes = manyColumns * manyColumns;

std::string GridDescription(int columns) {
    return "<Window ElementName=\"Many\" Width=\"1600\" Height=\"1000\"><VBox>"
           "<LoopBox CounterVariable=\"ROW\" Repetitions=\"" +
           std::to_string(columns) + "\"><HBox><LoopBox CounterVariable=\"COL\" Repetitions=\"" +
           std::to_string(columns) +
           "\"><CountedPane ElementName=\"pROW_COL\" BackgroundColor=\"40,80,120\"/></LoopBox></HBox>"
           "</LoopBox></VBox></Window>";
}

struct OpenWindow {
    explicit OpenWindow(std::string const& text)
        : description(GUI::GUIDescriptionReader::Parse(text, "bench")),
          window(Utilities::ResolveComponent<GUI::GUIElement>("Window")) {
        window->Initialize(GUI::PlatformIndependentWindowID_PC(), description, nullptr);
    }
    GUI::DescriptionTree description;
    Utilities::SmartPointer<GUI::GUIElement> window;
};

/// What an open window of so many panes has allocated, in 10^6 bytes.
double MegabytesOf(std::string const& description) {
    auto const allocated = [] {
        auto const info = ::mallinfo2();
        return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
    };
    double const before = allocated();
    OpenWindow const open(description);
    QApplication::processEvents();
    return allocated() - before;
}

/// At most 60 MB more than a window of one pane.
void ManyPanes(benchmark::State& state) {
    constexpr double mostMegabytes = 60;
    std::string const text = GridDescription(manyColumns);
    FirstPaint(
        state, [&text] { return std::make_unique<OpenWindow>(text); }, manyPanes);
    double const megabytes = MegabytesOf(text) - MegabytesOf(GridDescription(1));
    state.counters["MB"] = megabytes;
    if (megabytes > mostMegabytes)
        state.SkipWithError(("it took " + std::to_string(megabytes) + " MB").c_str());
}

/// The same pane alone in a window and among 10 000.
void RepaintAmong(benchmark::State& state, int columns) {
    OpenWindow const open(GridDescription(columns));
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    auto& pane = dynamic_cast<GUI::Pane&>(open.window->FindElement("p0_0"));
    // Both paint as many pixels.
    pane.SetSize(16, 10);
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    CountedPane::paints = 0;
    for (auto _ : state) pane.Repaint();
    if (CountedPane::paints < static_cast<int>(state.iterations()))
        state.SkipWithError("repaint was not synchronous");
}

// ------------------------------------------------------------------ repaint

class DrawnPane : public GUI::Pane {
public:
    void OnPaint(GUI::PlatformIndependentDeviceContext& context) override {
        context.SetPen(GUI::RGBVector(250, 250, 250), 1, GUI::PlatformIndependentDeviceContext::noPen);
        context.SetBrush(GUI::RGBVector(250, 250, 250));
        context.FillRectangle(0, 0, 200, 200);
        context.SetPen(GUI::RGBVector(0, 0, 0), 1, GUI::PlatformIndependentDeviceContext::solid);
        context.SetBrush(GUI::RGBVector(200, 60, 60));
        context.FillEllipse(20, 20, 180, 180);
        ++paints;
    }
    int paints = 0;
};

class DrawnWidget : public QWidget {
public:
    using QWidget::QWidget;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(QRect(0, 0, 200, 200), QColor(250, 250, 250));
        painter.setPen(Qt::black);
        painter.setBrush(QColor(200, 60, 60));
        painter.drawEllipse(20, 20, 159, 159);
        ++paints;
    }
};

void RepaintOurs(benchmark::State& state) {
    QWidget window;
    window.resize(200, 200);
    GUI::PlatformIndependentWindowID_PC identity;
    identity.SetWindow(&window);
    GUI::DescriptionTree description;
    description["ElementName"] = "Drawn";
    DrawnPane pane;
    pane.Initialize(identity, description, nullptr);
    pane.SetSize(200, 200);
    window.show();
    QApplication::processEvents();
    pane.paints = 0;
    for (auto _ : state) pane.Repaint();
    if (pane.paints < static_cast<int>(state.iterations()))
        state.SkipWithError("repaint was not synchronous");
}

void RepaintFloor(benchmark::State& state) {
    QWidget window;
    window.resize(200, 200);
    DrawnWidget widget(&window);
    widget.setAttribute(Qt::WA_OpaquePaintEvent);
    widget.resize(200, 200);
    window.show();
    QApplication::processEvents();
    widget.paints = 0;
    for (auto _ : state) widget.repaint();
    if (widget.paints < static_cast<int>(state.iterations()))
        state.SkipWithError("repaint was not synchronous");
}

// ------------------------------------------------------------------ records

std::string Key(int i) { return "measure.option" + std::to_string(100 + i); }

void LookUpOurs(benchmark::State& state) {
    Anything::MapOfAnythings map;
    std::vector<String> keys;
    for (int i = 0; i < 12; ++i) {
        map[Key(i)] = static_cast<long>(i);
        keys.emplace_back(Key(i));
    }
    auto const& fixed = map;
    std::size_t i = 0;
    long sum = 0;
    for (auto _ : state) {
        sum += fixed[keys[i]].GetLong();
        i = (i + 5) % 12;
    }
    if (sum == 0 && state.iterations() > 12) state.SkipWithError("nothing found");
    benchmark::DoNotOptimize(sum);
}

void LookUpPeer(benchmark::State& state) {
    QVariantMap map;
    std::vector<QString> keys;
    for (int i = 0; i < 12; ++i) {
        keys.push_back(QString::fromStdString(Key(i)));
        map[keys.back()] = i;
    }
    auto const& fixed = map;
    std::size_t i = 0;
    long sum = 0;
    for (auto _ : state) {
        sum += fixed.constFind(keys[i])->toInt();
        i = (i + 5) % 12;
    }
    if (sum == 0 && state.iterations() > 12) state.SkipWithError("nothing found");
    benchmark::DoNotOptimize(sum);
}

void CopyOurs(benchmark::State& state) {
    Anything::MapOfAnythings inner;
    for (int i = 0; i < 999; ++i) inner[Key(i)] = static_cast<double>(i);
    Anything::MapOfAnythings outer;
    outer["nested"] = Anything(inner);
    Anything const record(outer);
    for (auto _ : state) {
        Anything copy(record);
        benchmark::DoNotOptimize(copy);
    }
    Anything const copy(record);
    if (copy.GetMapOfAnythings()["nested"].GetMapOfAnythings().GetSize() != 999)
        state.SkipWithError("not a copy");
}

void CopyPeer(benchmark::State& state) {
    QVariantMap inner;
    for (int i = 0; i < 999; ++i) inner[QString::fromStdString(Key(i))] = static_cast<double>(i);
    QVariantMap outer;
    outer["nested"] = inner;
    for (auto _ : state) {
        QVariantMap copy(outer);
        benchmark::DoNotOptimize(copy);
    }
}

} // namespace

int main(int argc, char** argv) {
    GUI::Application application("bench");
    application.SetOffscreen(true);
    application.GetImplementation();
    benchmark::Initialize(&argc, argv);
    using benchmark::RegisterBenchmark;
    auto const ms = benchmark::kMillisecond;
    RegisterBenchmark("description.first-paint-1000/ours", DescriptionOurs)->UseManualTime()->Unit(ms);
    RegisterBenchmark("description.first-paint-1000/floor:direct-widgets", DescriptionFloor)
        ->UseManualTime()
        ->Unit(ms);
    RegisterBenchmark("panes.first-paint-40000/ours", ManyPanes)->UseManualTime()->Unit(ms);
    RegisterBenchmark("repaint.one-of-10000/ours", RepaintAmong, 100)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("repaint.one-of-10000/floor:alone", RepaintAmong, 1)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("repaint.200x200/ours", RepaintOurs)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("repaint.200x200/floor:QWidget.repaint", RepaintFloor)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("map.lookup-12/ours", LookUpOurs);
    RegisterBenchmark("map.lookup-12/peer:QVariantMap", LookUpPeer);
    RegisterBenchmark("anything.copy-1000/ours", CopyOurs);
    RegisterBenchmark("anything.copy-1000/peer:QVariantMap", CopyPeer);
    benchmark::RunSpecifiedBenchmarks();
}
