// The element "TreeView" in described windows: what it asks and tells its data source, real clicks, keys and
// drags, and what assistive technology sees.
#include "gui/tree/CNorvelianAccessibleTree.h"
#include "gui/tree/TreeView_PC.h"
#include "tests/gui/controls/ControlFixture.h"

#include <QDragMoveEvent>
#include <QLineEdit>
#include <QMimeData>

namespace {

using namespace Tests;
using GUI::CNorvelianTreeCtrl;
using GUI::TreeViewNode;

Anything Entry(std::initializer_list<std::pair<char const*, Anything>> keys) {
    Anything::MapOfAnythings map;
    for (auto const& [key, value] : keys) map[key] = value;
    return map;
}

Anything Entries(std::vector<Anything> const& values) {
    Anything::VectorOfAnythings vector(static_cast<std::uint32_t>(values.size()));
    std::copy(values.begin(), values.end(), vector.begin());
    return vector;
}

class TreeElement : public Controls {
protected:
    CNorvelianTreeCtrl& Open(Attributes attributes = {}) {
        source_.values[{"it", "Children"}] =
            Entries({"one", Entry({{"Key", "two"}, {"Text", "Two"}, {"HasChildren", true}}), "three"});
        source_.values[{"it", "Children two"}] =
            Entries({Entry({{"Key", "x"}, {"Check", false}, {"Columns", Entries({"1.5"})}}), "y"});
        return Show<CNorvelianTreeCtrl>("TreeView", attributes);
    }
    static std::string Rows(CNorvelianTreeCtrl const& tree) {
        std::string text;
        for (long row = 0; row < tree.GetRows().GetCount(); ++row)
            text += (row == 0 ? "" : " ") + tree.GetRows()[row].node->GetText().GetStdString();
        return text;
    }
    static QPoint TextOf(CNorvelianTreeCtrl const& tree, long row) {
        auto const box = tree.GetParts(row).text;
        return {static_cast<int>(box.left) + 8, static_cast<int>(box.top) + 8};
    }
    long Update(Anything const& message) { return source_.Fire("it", "OnUpdate", message); }
};

} // namespace

TEST_F(TreeElement, AsksForChildrenWhenTheyAreWanted) {
    auto& tree = Open();
    EXPECT_EQ(Rows(tree), "one Two three");
    EXPECT_EQ((source_.asked[{"it", "Children two"}]), 0);
    Listen("OnExpanded");
    Update(Entry({{"Command", "Expand"}, {"Path", "two"}}));
    EXPECT_EQ(Rows(tree), "one Two x y three");
    EXPECT_EQ(TakeTold(), "Expanded=two");
    EXPECT_EQ(calls, "OnExpanded(1) ");
    // All is asked again: what is open at once, what is closed when it is opened.
    source_.values[{"it", "Children two"}] = Entries({"y", "z"});
    Update("");
    EXPECT_EQ(Rows(tree), "one Two y z three");
    Update(Entry({{"Command", "Collapse"}, {"Path", "two"}}));
    source_.values[{"it", "Children two"}] = Entries({"later"});
    int const asked = source_.asked[{"it", "Children two"}];
    Update("");
    EXPECT_EQ((source_.asked[{"it", "Children two"}]), asked);
    Update(Entry({{"Command", "Expand"}, {"Path", "two"}}));
    EXPECT_EQ(Rows(tree), "one Two later three");
    source_.values[{"it", "Selected"}] = "two/later";
    source_.told.clear();
    Update("Selection");
    EXPECT_EQ(tree.GetCurrent()->GetPath(), "two/later");
    EXPECT_EQ(TakeTold(), "") << "who asks isn't told";
    EXPECT_EQ(Update(Entry({{"Command", "Find"}, {"Text", "THR"}})), 1);
    EXPECT_EQ(TakeTold(), "Selected=three");
    EXPECT_EQ(Update(Entry({{"Command", "Expand"}, {"Path", "nowhere"}})), 0);
    // Nodes that say that they are open are asked at once, however deep they claim to be.
    for (char const* path : {"Children", "Children a", "Children a/a"})
        source_.values[{"it", path}] =
            Entries({Entry({{"Key", "a"}, {"HasChildren", true}, {"Expanded", true}})});
    Update("");
    EXPECT_EQ(Rows(tree), "a a a");
}

TEST_F(TreeElement, ShowsATreeOfTheHostsOwn) {
    auto& tree = Open({{"Headings", "Name;Value"}, {"ColumnWidths", "100;50"}});
    auto& holder = dynamic_cast<GUI::TreeHolder&>(It());
    auto const root = Utilities::MakeSmart<TreeViewNode>("Sample");
    root->SetExpanded(true);
    root->Append("a").Append("b").SetUnreadChildren(true);
    holder.SetRoot(root);
    EXPECT_EQ(Rows(tree), "Sample a");
    source_.asked.clear();
    Update("");
    EXPECT_EQ((source_.asked[{"it", "Children"}]), 0) << "the tree is the host's";
    root->Append("c");
    holder.UpdateTree();
    holder.SelectNode(*root->FindPath("a/b"));
    EXPECT_EQ(Rows(tree), "Sample a b c");
    EXPECT_EQ(holder.GetCurrentNode()->GetPath(), "a/b");
    source_.values[{"it", "Children a/b"}] = Entries({"d"});
    QTest::keyClick(&tree, Qt::Key_Right);
    EXPECT_EQ(Rows(tree), "Sample a b d c");
    holder.SetRoot({});
    EXPECT_TRUE(holder.GetRoot().IsNull());
    Update("");
    EXPECT_EQ(Rows(tree), "one Two three");
}

TEST_F(TreeElement, TellsWhatMouseAndKeysDo) {
    auto& tree = Open({{"Editable", "Yes"}});
    tree.setFocus();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, TextOf(tree, 1));
    EXPECT_EQ(TakeTold(), "Selected=two");
    auto const opener = tree.GetParts(1).opener;
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                      QPoint(static_cast<int>(opener.left) + 8, static_cast<int>(opener.top) + 8));
    EXPECT_EQ(Rows(tree), "one Two x y three");
    QTest::keyClicks(&tree, "thr");
    EXPECT_EQ(TakeTold(), "Expanded=two Selected=three");
    QTest::keyClick(&tree, Qt::Key_F2);
    auto* const editor = tree.viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor && editor->isVisible());
    QTest::keyClicks(editor, "3");
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(Rows(tree), "one Two x y 3");
    EXPECT_FALSE(editor->isVisible());
    ASSERT_EQ(source_.told.size(), 1U);
    EXPECT_EQ(source_.told[0].value, Entries({"three", "3"}));
    // A click on the text of what is selected begins too, once no second one can come.
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, TextOf(tree, 4));
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor->isVisible(); }, 3000));
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(Rows(tree), "one Two x y 3");
    // A host that lets the window go in the middle of an event.
    source_.SetCallback("it", "OnActivated", MakeCallback([this](Anything const&) {
                            element_ = nullptr;
                            return 0L;
                        }));
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_TRUE(element_.IsNull());
}

TEST_F(TreeElement, TakesAndGivesDrags) {
    auto& tree = Open({{"Droppable", "Yes"}, {"Draggable", "Yes"}});
    Anything dropped;
    source_.SetCallback("it", "OnDropped", MakeCallback([&](Anything const& argument) {
                            dropped = argument;
                            return 1L;
                        }));
    QMimeData mime;
    mime.setText("words");
    mime.setUrls({QUrl::fromLocalFile("/tmp/a b.txt")});
    QPoint const place = TextOf(tree, 1);
    QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(tree.viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    ASSERT_TRUE(tree.GetDropMark());
    QDropEvent drop(place, Qt::CopyAction, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(tree.viewport(), &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_FALSE(tree.GetDropMark());
    EXPECT_EQ(
        dropped,
        Entry({{"Path", "two"}, {"Place", "On"}, {"Text", "words"}, {"Files", Entries({"/tmp/a b.txt"})}}));
    QDragMoveEvent beside(QPoint(5, tree.viewport()->height() - 5), Qt::CopyAction, &mime, Qt::LeftButton,
                          {});
    QApplication::sendEvent(tree.viewport(), &beside);
    EXPECT_FALSE(beside.isAccepted());

    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, TextOf(tree, 1));
    tree.GetCurrent()->SetColor(GUI::RGBVector(10, 20, 30));
    auto const mimeOf = GUI::MakeMimeData(tree.GetDragContent());
    EXPECT_EQ(mimeOf->text(), "Two");
    EXPECT_EQ(mimeOf->colorData().value<QColor>(), QColor(10, 20, 30));
}

TEST_F(TreeElement, IsSeenByAssistiveTechnology) {
    auto& tree = Open({{"Headings", "Name;Value"}, {"AccessibleName", "Sets"}});
    Update(Entry({{"Command", "Expand"}, {"Path", "two"}}));
    auto* const accessible = QAccessible::queryAccessibleInterface(&tree);
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::Tree);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Sets");
    ASSERT_EQ(accessible->childCount(), 5);
    auto* const two = accessible->child(1);
    EXPECT_EQ(two->role(), QAccessible::TreeItem);
    EXPECT_TRUE(two->state().expandable && two->state().expanded);
    auto* const x = accessible->child(2);
    EXPECT_EQ(x->text(QAccessible::Name), "x");
    EXPECT_EQ(x->text(QAccessible::Value), "Value 1.5");
    EXPECT_TRUE(x->state().checkable && !x->state().checked);
    x->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(x->state().checked && x->state().selected);
    EXPECT_EQ(accessible->childAt(x->rect().center().x(), x->rect().center().y()), x);
    EXPECT_EQ(accessible->focusChild(), x);
    two->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(accessible->childCount(), 3);
    EXPECT_EQ(accessible->indexOfChild(accessible->focusChild()), 1);
}
