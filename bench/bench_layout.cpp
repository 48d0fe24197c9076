// A box tree of 1000 elements resized, against the same tree as plain structs that are laid out by one
// recursive function: what the sharing costs where nothing is virtual, nothing is asked and nothing is
// clamped. Both check that the last leaf is in the far corner.

#include "core/creators/ComponentCreator.h"
#include "gui/elements/GUIElement.h"
#include "tests/support/FakeWindowHost.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

using GUI::GUIElement;
using TestSupport::Node;

constexpr int arity = 10;
constexpr int elements = 1000;

Utilities::ComponentCreatorNormal<GUIElement> const leafCreator({"Leaf", "$Revision: 0 $", "Bench"});

/// Each round another size, so that nothing is the same as before.
int WidthOf(int round) { return 1200 + round % 700; }
int HeightOf(int round) { return 700 + round * 7 % 380; }

// ------------------------------------------------------------------ ours

/// Nodes are numbered level by level; the children of a node are 10 i + 1 to 10 i + 10.
Utilities::SmartPointer<GUI::DescriptionTree> Describe(int i, bool horizontal) {
    if (arity * i + 1 >= elements)
        return Node({{"GUIElementType", "Leaf"}, {"MinimalWidth", "1"}, {"MinimalHeight", "1"}});
    auto box = Node({{"GUIElementType", horizontal ? "HBox" : "VBox"}});
    for (int child = arity * i + 1; child <= arity * i + arity && child < elements; ++child)
        box->AddChild(Describe(child, !horizontal));
    return box;
}

GUIElement& LastLeaf(GUIElement& element) {
    auto const last = element.GetChildrenList().Last();
    return last.IsValid() ? LastLeaf(*last.Current()) : element;
}

void ResizeOurs(benchmark::State& state) {
    TestSupport::FakeWindowHost host;
    auto const root = host.Create(Describe(0, true));
    GUIElement& last = LastLeaf(*root);
    int round = 0;
    for (auto _ : state) {
        ++round;
        root->SetPosition(0, 0);
        root->SetSize(static_cast<unsigned long>(WidthOf(round)),
                      static_cast<unsigned long>(HeightOf(round)));
    }
    unsigned long x = 0, y = 0, width = 0, height = 0;
    last.GetPosition(x, y);
    last.GetSize(width, height);
    if (std::abs(static_cast<long>(x + width) - WidthOf(round)) > 3 ||
        std::abs(static_cast<long>(y + height) - HeightOf(round)) > 3)
        state.SkipWithError("the last leaf isn't in the corner");
}

// ------------------------------------------------------------------ floor

struct PlainNode {
    bool horizontal = false;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int minimalWidth = 1;
    int minimalHeight = 1;
    int weight = 1;
    std::string name;
    std::string text;
    std::vector<PlainNode> children;
};

PlainNode Plain(int i, bool horizontal) {
    PlainNode node;
    node.horizontal = horizontal;
    node.name = "w" + std::to_string(i);
    for (int child = arity * i + 1; child <= arity * i + arity && child < elements; ++child)
        node.children.push_back(Plain(child, !horizontal));
    return node;
}

void Share(PlainNode& box) {
    int total = 0;
    for (PlainNode const& child : box.children) total += child.weight;
    int const space = box.horizontal ? box.width : box.height;
    int const origin = box.horizontal ? box.x : box.y;
    int weight = 0;
    int used = 0;
    for (PlainNode& child : box.children) {
        weight += child.weight;
        int const end = static_cast<int>(static_cast<std::int64_t>(space) * weight / total);
        (box.horizontal ? child.x : child.y) = origin + used;
        (box.horizontal ? child.y : child.x) = box.horizontal ? box.y : box.x;
        (box.horizontal ? child.width : child.height) =
            std::max(end - used, box.horizontal ? child.minimalWidth : child.minimalHeight);
        (box.horizontal ? child.height : child.width) = box.horizontal
                                                            ? std::max(box.height, child.minimalHeight)
                                                            : std::max(box.width, child.minimalWidth);
        used = end;
        if (!child.children.empty()) Share(child);
    }
}

void ResizePlain(benchmark::State& state) {
    PlainNode root = Plain(0, true);
    PlainNode const* last = &root;
    while (!last->children.empty()) last = &last->children.back();
    int round = 0;
    for (auto _ : state) {
        ++round;
        root.width = WidthOf(round);
        root.height = HeightOf(round);
        Share(root);
        benchmark::ClobberMemory();
    }
    if (last->x + last->width != WidthOf(round) || last->y + last->height != HeightOf(round))
        state.SkipWithError("the last leaf isn't in the corner");
}

BENCHMARK(ResizeOurs)->Name("layout.resize-1000/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(ResizePlain)->Name("layout.resize-1000/floor:struct-recursion")->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
