#include "gui/shell/Accelerators.h"

#include <gtest/gtest.h>

using GUI::AcceleratorEntry;
using GUI::AcceleratorTable;
using GUI::Menu;
using GUI::MenuItem;

TEST(Accelerators, HotKeyTexts) {
    struct Row {
        char const* hotKey;
        int flags;
        int key;
    };
    for (Row const& row :
         {Row{"F10", 1, 121}, Row{"Del", 1, 46}, Row{"CTRL+SHIFT+S", 13, 'S'}, Row{"ALT+F4", 17, 115},
          Row{"CTRL+Home", 9, 0}, Row{"Foo", 1, 0}, Row{"F99", 1, 0}}) {
        AcceleratorEntry const entry = GUI::ParseHotKey(row.hotKey, 5);
        EXPECT_EQ(entry.flags, row.flags) << row.hotKey;
        EXPECT_EQ(entry.key, row.key) << row.hotKey;
        EXPECT_EQ(entry.command, 5) << row.hotKey;
    }
}

TEST(Accelerators, CollectsTheTreeAndStopsWhereTheTableEnds) {
    Menu::Items items;
    auto const file = Utilities::MakeSmart<Menu::Items>();
    items.AddChild(file);
    auto const open = Utilities::MakeSmart<Menu::Items>();
    static_cast<MenuItem&>(*open) = MenuItem("Open", "CTRL+O", 7);
    file->AddChild(open);
    for (int i = 0; i < 150; ++i) {
        auto const item = Utilities::MakeSmart<Menu::Items>();
        static_cast<MenuItem&>(*item) = MenuItem("x", i % 2 == 0 ? "F1" : "CTRL+Home", 100 + i);
        items.AddChild(item);
    }
    std::vector<AcceleratorEntry> table(GUI::ApplicationImplementation::maximalAccelerators + 1);
    long count = 0;
    GUI::CollectMenuAccelerators(table.data(), count, items);
    EXPECT_EQ(count, 76);
    EXPECT_EQ(table[0].command, 7);
    GUI::CollectMenuAccelerators(table.data(), count, items);
    EXPECT_EQ(count, GUI::ApplicationImplementation::maximalAccelerators);
    EXPECT_EQ(table.back().key, 0);
}

TEST(Accelerators, SwitchingOffKeepsTheEntriesAside) {
    AcceleratorTable table;
    table.Set({GUI::ParseHotKey("CTRL+S", 3)});
    table.Enable(true);
    EXPECT_EQ(table.FindCommand('S', AcceleratorEntry::control), 3);
    EXPECT_EQ(table.FindCommand('S', 0), 0);
    table.Enable(false);
    table.Enable(false);
    EXPECT_EQ(table.FindCommand('S', AcceleratorEntry::control), 0);
    table.Enable(true);
    EXPECT_EQ(table.FindCommand('S', AcceleratorEntry::control), 3);
}
