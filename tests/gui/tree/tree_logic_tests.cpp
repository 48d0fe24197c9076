// Trees without a window: nodes, rows against a plain walk of the tree, what a data source gives, and what
// mouse and keys do.
#include "gui/tree/TreeState.h"
#include "gui/tree/TreeWnd.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using namespace GUI;
using Check = TreeViewNode::Check;
using Utilities::Anything;
using Utilities::MakeSmart;
using Utilities::SmartPointer;
using Utilities::String;

/// `a(b c(d))`: nodes by their keys, those below in brackets; "+" is open, "!" selected, "~" invisible.
std::string Show(TreeViewNode const& node, bool marks = false) {
    std::string text;
    for (TreeViewNode const& child : node) {
        text += (text.empty() ? "" : " ") + child.GetKey().GetStdString();
        if (marks) text += std::string(child.IsExpanded() ? "+" : "") + (child.IsSelected() ? "!" : "");
        if (child.HasChildren()) text += "(" + Show(child, marks) + ")";
    }
    return text;
}

SmartPointer<TreeViewNode> Build(std::string const& text) {
    auto root = MakeSmart<TreeViewNode>("root");
    root->SetVisible(false);
    TreeViewNode* parent = root.Get();
    TreeViewNode* last = nullptr;
    for (char const c : text) {
        if (c == '(') {
            parent = last;
        } else if (c == ')') {
            parent = parent->GetParent();
        } else if (c == '+') {
            last->SetExpanded(true);
        } else if (c == '!') {
            last->SetSelected(true);
        } else if (c == '~') {
            last->SetVisible(false);
        } else if (c != ' ') {
            last = &parent->Append(String(std::string(1, c)));
        }
    }
    return root;
}

std::string Show(TreeRows const& rows) {
    std::string text;
    for (long row = 0; row < rows.GetCount(); ++row)
        text +=
            (row == 0 ? "" : " ") + rows[row].node->GetKey().GetStdString() + std::to_string(rows[row].level);
    return text;
}

/// The same by the shortest way.
std::string ShowPlainly(TreeViewNode const& node, unsigned level) {
    std::string text;
    for (TreeViewNode const& child : node) {
        if (!child.IsVisible()) continue;
        text += " " + child.GetKey().GetStdString() + std::to_string(level);
        if (child.IsExpanded()) text += ShowPlainly(child, level + 1);
    }
    return text;
}

Anything Vector(std::vector<Anything> const& values) {
    Anything::VectorOfAnythings vector(static_cast<std::uint32_t>(values.size()));
    std::copy(values.begin(), values.end(), vector.begin());
    return vector;
}

Anything Entry(std::initializer_list<std::pair<char const*, Anything>> keys) {
    Anything::MapOfAnythings map;
    for (auto const& [key, value] : keys) map[key] = value;
    return map;
}

/// A window of 300 by 100, with rows of 20, that writes down what is told.
class Window : public TreeWnd, public TreeObserver {
public:
    explicit Window(std::string const& text, bool several = false) {
        SetObserver(this);
        SetSelectsSeveral(several);
        SetRowHeight(20);
        SetEditable(true);
        SetDrags(true, false);
        SetRoot(Build(text));
        OnSize(300, 100);
        OnFocus(true);
    }
    std::string Rows() const { return ::Show(GetRows()); }
    std::string Tree() const { return ::Show(*GetRoot(), true); }
    TreeViewNode& At(char const* path) const { return *GetRoot()->FindPath(path); }
    long RowOf(char const* path) const { return GetRows().Find(&At(path)); }
    void Click(char const* path, GridModifiers modifiers = {}) {
        GridBox const box = GetParts(RowOf(path)).text;
        OnLeftButtonDown(box.left + 5, box.top + 5, modifiers);
        OnLeftButtonUp(box.left + 5, box.top + 5);
    }
    std::string Told() { return std::exchange(told, {}); }

    std::string told;
    std::string typed;
    bool refuses = false;
    std::function<void(TreeViewNode&)> onWanted;

    void OnSelectionMoved() override {
        told += "selected";
        for (TreeViewNode const* node : GetSelected()) told += " " + node->GetPath().GetStdString();
        told += ";";
    }
    void OnOpened(TreeViewNode& node, bool open) override {
        told += (open ? "opened " : "closed ") + node.GetPath().GetStdString() + ";";
    }
    void OnChildrenWanted(TreeViewNode& node) override {
        if (onWanted) onWanted(node);
    }
    void OnChecked(TreeViewNode& node) override { told += "checked " + node.GetPath().GetStdString() + ";"; }
    void OnActivated(TreeViewNode& node) override {
        told += "activated " + node.GetPath().GetStdString() + ";";
    }
    bool OnRenamed(TreeViewNode& node, String const& text) override {
        told += "renamed " + node.GetPath().GetStdString() + " " + text.GetStdString() + ";";
        return !refuses;
    }
    bool OnMoved(TreeViewNode& node, TreeViewNode& parent, TreeViewNode*) override {
        told += "moved " + node.GetPath().GetStdString() + " to " + parent.GetPath().GetStdString() + ";";
        return !refuses;
    }

protected:
    void RepaintBox(GridBox const&) override {}
    void ScrollPixels(GridBox const&, long, long) override {}
    void SetScrollBars(long, long, long, long, long, long) override {}
    void ShowEditor(GridBox const&, String const& text) override { typed = text; }
    String GetEditorText() const override { return String(typed); }
    void MoveEditor(GridBox const&) override {}
    void HideEditor() override {}
    void SetCursor(GridCursor) override {}
    void SetClipboard(String const& text) override { told += "copied " + text.GetStdString() + ";"; }
    long MeasureText(String const& text) const override { return 7 * text.Length(); }
    void StartDrag() override { told += "drag;"; }
};

} // namespace

TEST(TreeNodes, KeepTheirPlacesThroughRandomChanges) {
    // Against rows that are built by walking the whole tree.
    std::mt19937 random(7);
    auto const pick = [&](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    };
    auto const root = MakeSmart<TreeViewNode>("root");
    root->SetVisible(false);
    TreeRows rows;
    rows.SetRoot(root.Get());
    std::vector<TreeViewNode*> nodes;
    auto const collect = [&](auto const& self, TreeViewNode& node) -> void {
        nodes.push_back(&node);
        for (TreeViewNode& child : node) self(self, child);
    };
    for (int step = 0; step < 4000; ++step) {
        nodes.clear();
        collect(collect, *root);
        TreeViewNode& node = *nodes[pick(nodes.size())];
        TreeViewNode& other = *nodes[pick(nodes.size())];
        switch (pick(9)) {
        case 0:
        case 1:
        case 2:
            if (nodes.size() < 60) node.Append(String(static_cast<long>(step)));
            break;
        case 3:
            node.Insert(node.GetFirstChild(), String(static_cast<long>(step)), "first");
            break;
        case 4:
            if (node.GetParent() && pick(4) == 0) node.GetParent()->Remove(node);
            break;
        case 5: {
            bool const possible = node.GetParent() && !other.IsWithin(node);
            EXPECT_EQ(node.MoveTo(other, other.GetFirstChild() == &node ? nullptr : other.GetFirstChild()),
                      possible);
            break;
        }
        case 6:
            node.SetVisible(&node != root.Get() && pick(3) != 0);
            break;
        default:
            // By the rows themselves, which then know what they show.
            rows.Refresh();
            if (rows.GetCount() == 0) break;
            long const row = static_cast<long>(pick(static_cast<std::size_t>(rows.GetCount())));
            std::uint64_t const whole = pick(8);
            if (whole == 0)
                rows.OpenAll(row);
            else if (rows[row].node->IsExpanded())
                rows.Close(row);
            else
                rows.Open(row);
        }
        if (step % 2 == 0) rows.Refresh();
        if (step % 2 == 1) continue;
        ASSERT_EQ(" " + Show(rows), rows.GetCount() == 0 ? " " : ShowPlainly(*root, 0)) << step;
    }
    rows.OpenAll(-1);
    EXPECT_EQ(" " + Show(rows), ShowPlainly(*root, 0));
    rows.CloseAll();
    EXPECT_EQ(" " + Show(rows), ShowPlainly(*root, 0));
}

TEST(TreeNodes, AreFoundByPathAndNeverTakenForAnother) {
    auto const root = MakeSmart<TreeViewNode>("Sample", "Muster");
    TreeViewNode& node = root->Append("a/b");
    TreeViewNode& deep = node.Append("c", "text");
    EXPECT_EQ(deep.GetPath(), "a/b/c");
    EXPECT_EQ(root->FindPath("a/b/c"), &deep);
    EXPECT_EQ(root->FindPath("a/c"), nullptr);
    EXPECT_EQ(root->FindPath(""), root.Get());
    EXPECT_EQ(node.GetText(), "a/b") << "the key without a text";
    deep.SetColumn(2, "2");
    EXPECT_EQ(deep.GetColumn(1), "");
    EXPECT_EQ(deep.GetColumn(0) + deep.GetColumn(2), "text2");
    auto const id = node.GetId();
    root->Remove(node);
    EXPECT_FALSE(root->HasChildren());
    EXPECT_NE(root->Append("a/b").GetId(), id) << "the place may be used again, the number isn't";
    // Trees as deep as a host likes are taken down without recursion.
    TreeViewNode* last = root->GetFirstChild();
    for (int i = 0; i < 200000; ++i) last = &last->Append("x");
    TreeRows rows;
    rows.SetRoot(root.Get());
    rows.OpenAll(-1);
    EXPECT_EQ(rows.GetCount(), 200002);
    EXPECT_EQ(rows.GetDeepestLevel(), 200001U);
    root->RemoveChildren();
    EXPECT_TRUE(rows.Refresh());
    EXPECT_EQ(rows.GetCount(), 1) << "a visible root is a row";
}

TEST(TreeNodes, ComeFromADataSourceAndStayTheSameWhereTheyAreStillThere) {
    auto const root = Build("a+(b c!) d");
    TreeViewNode const* const a = root->FindPath("a");
    ReadTreeEntries(
        *root,
        Vector({"d", 5L, Entry({{"Key", "e"}, {"Text", "E"}, {"HasChildren", true}, {"Check", "Partial"}}),
                Entry({{"Key", "a"}, {"Columns", Vector({"1", "2"})}, {"Color", "wrong"}})}));
    EXPECT_EQ(Show(*root, true), "d e a+(b c!)") << "in the new order, with what was below";
    EXPECT_EQ(root->FindPath("a"), a);
    EXPECT_EQ(a->GetColumn(2), "2");
    EXPECT_FALSE(a->GetColor());
    EXPECT_TRUE(root->FindPath("e")->HasUnreadChildren());
    EXPECT_EQ(root->FindPath("e")->GetCheck(), Check::Partial);
    ReadTreeEntries(*root, Vector({Entry({{"Key", "a"}, {"Children", Vector({"c", "c"})}})}));
    EXPECT_EQ(Show(*root, true), "a+(c! c)");
    ReadTreeEntries(*root, "no vector");
    EXPECT_EQ(Show(*root), "a(c c)");
    ReadTreeEntries(*root, Vector({}));
    EXPECT_EQ(Show(*root), "");
}

TEST(TreeWindow, GoesByKeys) {
    Window tree("a(b(c) d) e f g h i");
    auto const press = [&](GridKey key) { tree.OnKey(key, {}); };
    press(GridKey::Right);
    EXPECT_EQ(tree.Rows(), "a0 b1 d1 e0 f0 g0 h0 i0");
    press(GridKey::Right);
    press(GridKey::Right);
    press(GridKey::Right);
    EXPECT_EQ(tree.Told(), "opened a;selected a/b;opened a/b;selected a/b/c;");
    press(GridKey::Left);
    press(GridKey::Left);
    press(GridKey::Left);
    EXPECT_EQ(tree.Told(), "selected a/b;closed a/b;selected a;");
    press(GridKey::End);
    EXPECT_EQ(tree.GetFirstRow(), 3) << "five rows are seen of eight";
    press(GridKey::PageUp);
    EXPECT_EQ(tree.Told(), "selected i;selected a/d;");
    press(GridKey::Enter);
    EXPECT_EQ(tree.Told(), "activated a/d;");
    // What is selected in a node that closes is the node then.
    tree.ShowSelected(tree.At("a/b/c"));
    EXPECT_EQ(tree.Told(), "") << "whoever asks for it isn't told";
    tree.SetOpen(tree.At("a"), false);
    EXPECT_EQ(tree.Told(), "selected a;closed a;");
    tree.OnTyped("*", 0);
    EXPECT_EQ(tree.Rows(), "a0 b1 c2 d1 e0 f0 g0 h0 i0");
    tree.At("a/b").SetText("Fa");
    tree.OnTyped("F", 5000);
    EXPECT_EQ(tree.Told(), "selected a/b;");
    tree.OnTyped("f", 5100);
    EXPECT_EQ(tree.Told(), "selected f;") << "the same letter goes on";
    tree.OnTyped("f", 6500);
    tree.OnTyped("A", 6600);
    EXPECT_EQ(tree.Told(), "selected a/b;") << "both letters together stay where they fit";
    EXPECT_TRUE(tree.Find("C"));
    EXPECT_EQ(tree.Told(), "selected a/b/c;");
    tree.CloseAll();
    EXPECT_TRUE(tree.Find("d") && tree.Rows() == "a0 b1 d1 e0 f0 g0 h0 i0") << tree.Rows();
}

TEST(TreeWindow, SelectsOneOrSeveral) {
    Window one("a b c d");
    one.Click("b");
    one.Click("d", {.shift = true, .control = false});
    EXPECT_EQ(one.Told(), "selected b;selected d;");
    Window several("a b(x y) c d", true);
    several.Click("b");
    several.Click("d", {.shift = true, .control = false});
    several.Click("c", {.shift = false, .control = true});
    EXPECT_EQ(several.Told(), "selected b;selected b c d;selected b d;");
    several.OnKey(GridKey::Up, {.shift = false, .control = true});
    several.OnKey(GridKey::Space, {.shift = false, .control = true});
    EXPECT_EQ(several.Told(), "selected d;") << "with Ctrl the place moves alone";
    several.OnKey(GridKey::SelectAll, {});
    several.OnKey(GridKey::Copy, {});
    EXPECT_EQ(several.Told(), "selected a b c d;copied a\nb\nc\nd;");
    // Nodes that go while they are selected.
    several.GetRoot()->Remove(several.At("b"));
    several.UpdateTree();
    several.OnKey(GridKey::Copy, {});
    EXPECT_EQ(several.Told(), "copied a\nc\nd;");
    // Another tree is open and selected as this one was.
    several.SetRoot(Build("c b(z) a(q) e"));
    EXPECT_EQ(several.Tree(), "c! b(z) a!(q) e");
    several.SetRoot({});
    EXPECT_EQ(several.Rows(), "");
    EXPECT_FALSE(several.OnKey(GridKey::Down, {}));
}

TEST(TreeWindow, ChecksRenamesAndAsksForChildren) {
    Window tree("a+(b c+(d e)) f");
    for (char const* path : {"a", "a/b", "a/c", "a/c/d", "a/c/e"}) tree.At(path).SetCheck(Check::Off);
    tree.SetLinkedChecks(true);
    GridBox const box = tree.GetParts(tree.RowOf("a/c/d")).check;
    tree.OnLeftButtonDown(box.left, box.top, {});
    tree.OnLeftButtonUp(box.left, box.top);
    auto const checks = [&] {
        std::string text;
        for (char const* path : {"a", "a/b", "a/c", "a/c/d", "a/c/e"})
            text += " -x~"[static_cast<int>(tree.At(path).GetCheck())];
        return text;
    };
    EXPECT_EQ(checks(), "~-~x-");
    EXPECT_EQ(tree.Told(), "checked a/c/d;");
    tree.ShowSelected(tree.At("a"));
    tree.OnKey(GridKey::Space, {});
    EXPECT_EQ(checks(), "xxxxx");
    EXPECT_EQ(tree.Told(), "checked a;");

    EXPECT_TRUE(tree.OnKey(GridKey::Edit, {}));
    tree.typed = "new";
    tree.EndRename(true);
    EXPECT_EQ(tree.At("a").GetText(), "new");
    tree.StartRename(tree.At("f"));
    tree.typed = "other";
    tree.EndRename(false);
    tree.refuses = true;
    tree.StartRename(tree.At("f"));
    tree.typed = "other";
    tree.EndRename(true);
    EXPECT_EQ(tree.Told(), "renamed a new;renamed f other;");
    EXPECT_EQ(tree.At("f").GetText(), "f");
    tree.StartRename(tree.At("f"));
    tree.GetRoot()->Remove(tree.At("f"));
    tree.UpdateTree();
    tree.EndRename(true);
    EXPECT_EQ(tree.Told(), "") << "the node went while its name was typed";

    tree.At("a/b").SetUnreadChildren(true);
    tree.onWanted = [&](TreeViewNode& node) { ReadTreeEntries(node, Vector({"x", "y"})); };
    tree.SetOpen(tree.At("a/b"), true);
    EXPECT_EQ(tree.Rows(), "a0 b1 x2 y2 c1 d2 e2");
    // Whoever is asked may put another tree in place.
    tree.At("a/c/e").SetUnreadChildren(true);
    tree.onWanted = [&](TreeViewNode&) { tree.SetRoot(Build("z")); };
    tree.SetOpen(tree.At("a/c/e"), true);
    EXPECT_EQ(tree.Rows(), "z0");
}

TEST(TreeWindow, MovesNodesWhereTheyAreDropped) {
    Window tree("a+(b c) d e", true);
    tree.Click("a/b");
    tree.Click("d", {.shift = false, .control = true});
    tree.Told();
    auto const over = [&](char const* path, long inside) {
        auto const place = tree.OnDragOver(50, tree.GetRowBox(tree.RowOf(path)).top + inside, true);
        return place && tree.CanMoveTo(*place) ? place : std::nullopt;
    };
    EXPECT_FALSE(over("d", 10)) << "not into itself";
    auto const behind = over("e", 18);
    ASSERT_TRUE(behind && behind->side == TreeDropPlace::Side::After);
    EXPECT_EQ(tree.GetDropMark(), behind);
    EXPECT_TRUE(tree.MoveSelected(*behind));
    EXPECT_EQ(tree.Tree(), "a+(c) e b! d!");
    EXPECT_EQ(tree.Told(), "moved a/b to ;moved d to ;");
    auto const open = over("a", 18);
    ASSERT_TRUE(open && open->side == TreeDropPlace::Side::On) << "behind an open node is in it";
    tree.refuses = true;
    EXPECT_FALSE(tree.MoveSelected(*open));
    tree.refuses = false;
    EXPECT_TRUE(tree.MoveSelected(*over("a/c", 1)));
    EXPECT_EQ(tree.Tree(), "a+(b! d! c) e");
    // A press on one of several selected drags them all; without moving it selects that one.
    tree.Told();
    GridBox const box = tree.GetParts(tree.RowOf("a/d")).text;
    tree.OnLeftButtonDown(box.left + 5, box.top + 5, {});
    tree.OnMouseMove(box.left + 25, box.top + 5, true);
    EXPECT_EQ(tree.Told(), "drag;");
    tree.Click("a/d");
    EXPECT_EQ(tree.Told(), "selected a/d;");
}

TEST(TreeWindow, PaintsOnlyRowsThatAreSeen) {
    Window tree("a+(b c) d e f g h");
    tree.At("a/b").SetColor(RGBVector(1, 2, 3));
    tree.SetColumns({{"Name", 100, false}, {"Value", 50, true}}, true);
    tree.At("a/c").SetColumn(1, "1.5");
    TestSupport::RecordingDeviceContext context;
    tree.Paint(context, tree.GetWindowBox());
    std::string texts;
    for (std::string const& row : context.GetRows("DrawText")) texts += row.substr(row.rfind(' ')) + " ";
    EXPECT_EQ(texts.find("\"e\""), std::string::npos) << texts;
    EXPECT_NE(texts.find("\"1.5\""), std::string::npos) << texts;
    EXPECT_NE(texts.find("\"Value\""), std::string::npos) << texts;
    // A heading's edge is dragged, and fits its column by two clicks.
    tree.OnLeftButtonDown(100, 5, {});
    tree.OnMouseMove(140, 5, true);
    tree.OnLeftButtonUp(140, 5);
    EXPECT_EQ(tree.GetColumns()[0].width, 140);
    tree.OnDoubleClick(140, 5);
    EXPECT_LT(tree.GetColumns()[0].width, 100);
}
