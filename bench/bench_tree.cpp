// The tree view against the platform's own (peer), measured in the same run: 10 nodes with 100 each, with 99
// each. Each case checks its result. The peer builds items; it opens and paints a model that makes rows on
// demand, the faster of its two ways.

#include "bench/DescribedWindow.h"
#include "bench/Paints.h"
#include "gui/tree/CNorvelianTreeCtrl.h"

#include <QAbstractItemModel>
#include <QTreeView>
#include <QTreeWidget>
#include <malloc.h>
#include <unistd.h>

namespace {

using namespace Bench;
using GUI::TreeViewNode;

constexpr int tops = 10;
constexpr int middles = 100;
constexpr int leaves = 99;
constexpr int all = tops + tops * middles + tops * middles * leaves;

String Name(int number) { return String("Node " + std::to_string(number)); }

SmartPointer<TreeViewNode> BuildNodes() {
    auto root = Utilities::MakeSmart<TreeViewNode>();
    root->SetVisible(false);
    int middle = 0;
    int leaf = 0;
    for (int a = 0; a < tops; ++a) {
        TreeViewNode& top = root->Append(Name(a));
        for (int b = 0; b < middles; ++b) {
            TreeViewNode& below = top.Append(Name(middle++));
            for (int c = 0; c < leaves; ++c) below.Append(Name(leaf++));
        }
    }
    return root;
}

void BuildItems(QTreeWidget& tree) {
    QList<QTreeWidgetItem*> items;
    int middle = 0;
    int leaf = 0;
    for (int a = 0; a < tops; ++a) {
        auto* const top = new QTreeWidgetItem({QString("Node %1").arg(a)});
        for (int b = 0; b < middles; ++b) {
            auto* const below = new QTreeWidgetItem(top, {QString("Node %1").arg(middle++)});
            for (int c = 0; c < leaves; ++c) new QTreeWidgetItem(below, {QString("Node %1").arg(leaf++)});
        }
        items << top;
    }
    tree.addTopLevelItems(items);
}

/// An index is told by its level and number; numbers stride, since the view's hash takes badly to dense ones.
class Model : public QAbstractItemModel {
public:
    QModelIndex index(int row, int column, QModelIndex const& parent) const override {
        if (!parent.isValid()) return createIndex(row, column, Id(0, row));
        int const level = LevelOf(parent);
        return createIndex(row, column, Id(level + 1, NumberOf(parent) * (level ? leaves : middles) + row));
    }
    QModelIndex parent(QModelIndex const& index) const override {
        int const level = LevelOf(index);
        if (level == 0) return {};
        int const number = NumberOf(index) / (level == 1 ? middles : leaves);
        return createIndex(level == 1 ? number : number % middles, 0, Id(level - 1, number));
    }
    int rowCount(QModelIndex const& parent) const override {
        if (!parent.isValid()) return tops;
        int const level = LevelOf(parent);
        return level == 0 ? middles : level == 1 ? leaves : 0;
    }
    int columnCount(QModelIndex const&) const override { return 1; }
    QVariant data(QModelIndex const& index, int role) const override {
        return role == Qt::DisplayRole ? QVariant(QString("Node %1").arg(NumberOf(index))) : QVariant();
    }

private:
    static quintptr Id(int level, int number) {
        return (static_cast<quintptr>(level) << 28U | static_cast<quintptr>(number)) << 5U;
    }
    static int LevelOf(QModelIndex const& index) { return static_cast<int>(index.internalId() >> 33U); }
    static int NumberOf(QModelIndex const& index) {
        return static_cast<int>(index.internalId() >> 5U & 0xfffffffU);
    }
};

/// A window of ours that stands by itself, as an element's.
struct OurTree {
    OurTree() {
        tree.SetElement(&element);
        tree.resize(width, height);
    }
    ~OurTree() { tree.SetElement(nullptr); }
    OurTree(OurTree const&) = delete;
    OurTree& operator=(OurTree const&) = delete;

    GUI::GUIElement element;
    GUI::CNorvelianTreeCtrl tree{nullptr};
};

void OurBuild(benchmark::State& state) {
    double bytes = 0;
    for (auto _ : state) {
        OurTree our;
        auto const before = mallinfo2().uordblks;
        auto const start = Clock::now();
        our.tree.SetRoot(BuildNodes());
        state.SetIterationTime(Since(start));
        bytes = static_cast<double>(mallinfo2().uordblks - before) / all;
        if (our.tree.GetRows().GetCount() != tops) state.SkipWithError("not built");
    }
    state.counters["bytes"] = bytes;
}

void PeerBuild(benchmark::State& state) {
    for (auto _ : state) {
        QTreeWidget tree;
        tree.resize(width, height);
        auto const start = Clock::now();
        BuildItems(tree);
        state.SetIterationTime(Since(start));
        if (tree.topLevelItemCount() != tops) state.SkipWithError("not built");
    }
}

void OurExpand(benchmark::State& state) {
    for (auto _ : state) {
        OurTree our;
        our.tree.SetRoot(BuildNodes());
        auto const start = Clock::now();
        our.tree.OpenAll();
        state.SetIterationTime(Since(start));
        if (our.tree.GetRows().GetCount() != all) state.SkipWithError("not open");
    }
}

void PeerExpand(benchmark::State& state) {
    for (auto _ : state) {
        Model model;
        QTreeView tree;
        tree.resize(width, height);
        tree.setUniformRowHeights(true);
        tree.setModel(&model);
        auto const start = Clock::now();
        tree.expandAll();
        state.SetIterationTime(Since(start));
        if (!tree.isExpanded(model.index(tops - 1, 0, {}))) state.SkipWithError("not open");
    }
}

void OurFirstPaint(benchmark::State& state) {
    for (auto _ : state) {
        OurTree our;
        our.tree.SetRoot(BuildNodes());
        our.tree.OpenAll();
        Paints const paints(*our.tree.viewport());
        auto const start = Clock::now();
        our.tree.show();
        bool const painted = paints.WaitFor(1);
        state.SetIterationTime(Since(start));
        if (!painted || our.tree.GetPage() < 10) state.SkipWithError("not painted");
    }
}

void PeerFirstPaint(benchmark::State& state) {
    for (auto _ : state) {
        Model model;
        QTreeView tree;
        tree.resize(width, height);
        tree.setUniformRowHeights(true);
        tree.setModel(&model);
        tree.expandAll();
        Paints const paints(*tree.viewport());
        auto const start = Clock::now();
        tree.show();
        bool const painted = paints.WaitFor(1);
        state.SetIterationTime(Since(start));
        if (!painted) state.SkipWithError("not painted");
    }
}

constexpr auto us = benchmark::kMicrosecond;
constexpr int times = 10;

BENCHMARK(OurBuild)->Name("tree.build-100000/ours")->UseManualTime()->Unit(us)->Iterations(times);
BENCHMARK(PeerBuild)
    ->Name("tree.build-100000/peer:QTreeWidget")
    ->UseManualTime()
    ->Unit(us)
    ->Iterations(times);
BENCHMARK(OurExpand)->Name("tree.expand-100000/ours")->UseManualTime()->Unit(us)->Iterations(times);
BENCHMARK(PeerExpand)
    ->Name("tree.expand-100000/peer:QTreeView")
    ->UseManualTime()
    ->Unit(us)
    ->Iterations(times);
BENCHMARK(OurFirstPaint)->Name("tree.first-paint-100000/ours")->UseManualTime()->Unit(us)->Iterations(times);
BENCHMARK(PeerFirstPaint)
    ->Name("tree.first-paint-100000/peer:QTreeView")
    ->UseManualTime()
    ->Unit(us)
    ->Iterations(times);

} // namespace

int main(int argc, char** argv) {
    setenv("XDG_CONFIG_HOME", ("/tmp/bench-tree-" + std::to_string(getpid())).c_str(), 1);
    benchmark::Initialize(&argc, argv);
    Application application;
    application.GetImplementation();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
