// The element "Grid" in described windows: its contracted rules, real clicks and keys, rows by range from
// data sources that are late, shrink or drop the window, and what assistive technology sees.
#include "gui/elements/CallScope.h"
#include "gui/grid/CNorvelianAccessibleGrid.h"
#include "gui/grid/CNorvelianGridCtrl.h"
#include "gui/grid/Grid_PC.h"
#include "tests/gui/controls/ControlFixture.h"

#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <stdexcept>

namespace {

using namespace Tests;
using GUI::CNorvelianGridCtrl;

Anything Cell(std::initializer_list<std::pair<char const*, Anything>> keys) {
    Anything::MapOfAnythings map;
    for (auto const& [key, value] : keys) map[key] = value;
    return map;
}

Anything Row(std::vector<Anything> const& cells) {
    Anything::VectorOfAnythings row(static_cast<std::uint32_t>(cells.size()));
    std::copy(cells.begin(), cells.end(), row.begin());
    return row;
}

class GridElement : public Controls {
protected:
    CNorvelianGridCtrl& Open(Attributes attributes) {
        auto const node = Node({{"GUIElementType", "Grid"}, {"ElementName", "it"}});
        for (auto const& [key, value] : attributes) (*node)[key] = value;
        return Show<CNorvelianGridCtrl>({node});
    }
    void Fill(long rows, long columns) {
        for (long row = 0; row < rows; ++row) {
            std::vector<Anything> cells;
            for (long column = 0; column < columns; ++column)
                cells.push_back(Cell({{"Value", String(row * 10 + column)}}));
            source_.values[{"it", std::to_string(row)}] = Row(cells);
        }
    }
    std::string Texts(CNorvelianGridCtrl const& grid) {
        std::string texts;
        for (long row = 1; row <= grid.GetRowCount(); ++row)
            for (long column = 1; column <= grid.GetColCount(); ++column)
                texts += grid.GetCore().GetText({row, column}).GetStdString() + " ";
        return texts;
    }
    void Update(char const* message) { source_.Fire("it", "OnUpdate", message); }
};

} // namespace

TEST_F(GridElement, ReadsTheCellsThatAMessageNames) {
    auto& grid = Open({{"NumberOfRows", "3"}, {"NumberOfColumns", "3"}});
    EXPECT_EQ(Texts(grid), std::string(9, ' ')) << "the description alone has no cells";
    Fill(3, 3);
    Update("2;3|NoRepaint");
    EXPECT_EQ(Texts(grid), "     12    ") << "row 2, column 3";
    Update("1;2-2;3");
    EXPECT_EQ(Texts(grid), "   10 11 12 20 21  ") << "columns 1 to 2 of rows 2 to 3";
    source_.asked.clear();
    Update("1;1-99999;99999");
    EXPECT_EQ(Texts(grid), "0 1 2 10 11 12 20 21 22 ");
    EXPECT_EQ((source_.asked[{"it", "3"}]), 0);
    source_.values[{"it", "1"}] =
        Row({Cell({}), Cell({{"Background", "255,255,255"}}), Cell({{"Value", 1.5}})});
    Update("whatever");
    EXPECT_EQ(Texts(grid), "0 1 2 10 11 1.5 20 21 22 ") << "a map without keys leaves the cell";
    EXPECT_EQ(grid.GetCore().GetStyle({2, 2}).textColor, GUI::RGBVector(0, 0, 0));
    Update("Properties");
    EXPECT_EQ(Texts(grid), std::string(9, ' '));
}

TEST_F(GridElement, SharesTheRoomOut) {
    auto const widths = [this](Attributes attributes) {
        Open(attributes);
        auto& grid = dynamic_cast<GUI::Grid&>(It());
        grid.SetSize(220, 100);
        return std::to_string(grid.GetColumnWidth(1)) + " " + std::to_string(grid.GetColumnWidth(2)) + " " +
               std::to_string(grid.GetRowHeight(1)) + " " + std::to_string(grid.GetRowHeight(2));
    };
    EXPECT_EQ(widths({{"NumberOfColumns", "10"}, {"ScrollBar", "Yes"}, {"NumberOfRows", "4"}}),
              "20 20 25 25");
    EXPECT_EQ(widths({{"NumberOfColumns", "5"},
                      {"NumberOfFixedColumns", "1"},
                      {"FixedColumnWidth", "100"},
                      {"NumberOfRows", "4"},
                      {"FixedRowHeight", "60"}}),
              "100 30 25 25")
        << "no fixed row takes a fixed height";
    EXPECT_EQ(widths({{"NumberOfColumns", "2"},
                      {"ColumnsWidth", "70"},
                      {"NumberOfRows", "2"},
                      {"NumberOfFixedRows", "2"},
                      {"FixedRowHeight", "30"}}),
              "70 70 30 30")
        << "all rows fixed: nothing to divide";
}

TEST_F(GridElement, TellsWhatTheUserDoes) {
    auto& grid =
        Open({{"NumberOfRows", "4"}, {"NumberOfColumns", "4"}, {"RowHeight", "20"}, {"ColumnsWidth", "50"}});
    Fill(4, 4);
    source_.values[{"it", "2"}] =
        Row({Cell({{"Value", "No"}, {"Control", "Check"}}), Cell({{"Control", "Button"}}),
             Cell({{"Value", "a"}, {"Control", "Choice"}, {"Choices", Row({"a", "b&c"})}})});
    Update("");
    Listen("OnTextChanged");
    Listen("OnCellClicked");
    auto const click = [&grid](int x, int y) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(x, y));
    };
    click(60, 10);
    QTest::keyClicks(&grid, "n");
    auto* const editor = grid.viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, "ew");
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(grid.GetCore().GetText({1, 2}), "new");
    ASSERT_EQ(source_.told[1].name, "Value");
    EXPECT_EQ(source_.told[1].value, Row({"new", 1L, 2L}));
    EXPECT_EQ(grid.GetSelection().GetCurrent().row, 2);
    click(25, 50);
    EXPECT_EQ(grid.GetCore().GetText({3, 1}), "Yes");
    click(75, 50);
    EXPECT_NE(calls.find("OnCellClicked"), std::string::npos);
    click(140, 50);
    auto* const menu = grid.findChild<QMenu*>();
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions()[1]->text(), "b&&c");
    menu->actions()[1]->trigger();
    menu->close();
    EXPECT_EQ(grid.GetCore().GetText({3, 3}), "b&c");
    QTest::keySequence(&grid, QKeySequence::Undo);
    QTest::keySequence(&grid, QKeySequence::Undo);
    QTest::keySequence(&grid, QKeySequence::Undo);
    EXPECT_EQ(Texts(grid).substr(0, 8), "0 1 2 3 ");
    // What is typed isn't lost when the focus goes, and Escape gives it up.
    click(10, 10);
    QTest::keyClicks(&grid, "x");
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(grid.GetCore().GetText({1, 1}), "0");
    QTest::keyClicks(&grid, "y");
    click(60, 30);
    EXPECT_EQ(grid.GetCore().GetText({1, 1}), "y");
    // The window may go while an edit is told.
    QPointer<CNorvelianGridCtrl> const gone(&grid);
    source_.SetCallback("it", "OnTextChanged", MakeCallback([this](Anything const&) {
                            element_ = nullptr;
                            return 0L;
                        }));
    QTest::keyClicks(&grid, "z");
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
}

namespace {

/// Rows of "row:column" by range.
class RangeSource : public TestSupport::FakeDataSource {
public:
    long count = 1000000;
    bool late = false;
    std::function<void()> strike;
    std::vector<std::string> ranges;

    Anything GetValue(String const& element, String const& name) override {
        if (name == "RowCount") return count;
        if (name.FindSubstring("Rows ", 0) != 0) return FakeDataSource::GetValue(element, name);
        ranges.push_back(name.GetStdString());
        if (strike) std::exchange(strike, nullptr)();
        if (late) return {};
        String const range = name.Mid(5, name.Length());
        long const first = range.GetToken(0, '-').GetLong();
        long const last = std::min(range.GetToken(1, '-').GetLong(), count - 1);
        std::vector<Anything> rows;
        for (long row = first; row <= last; ++row) rows.push_back(Row({String(row), String(-row)}));
        return Row(rows);
    }
};

class VirtualGrid : public Windows {
protected:
    ~VirtualGrid() override { element_ = nullptr; }
    CNorvelianGridCtrl& Open() {
        auto const tree = Top("Window", "top", {},
                              {Node({{"GUIElementType", "VBox"}}, {Node({{"GUIElementType", "Grid"},
                                                                         {"ElementName", "it"},
                                                                         {"Virtual", "Yes"},
                                                                         {"NumberOfColumns", "2"},
                                                                         {"ColumnsWidth", "90"},
                                                                         {"RowHeight", "20"}})})});
        element_ = Utilities::ResolveComponent<GUI::GUIElement>("Window");
        element_->Initialize(none_, *tree, &source_);
        QApplication::processEvents();
        return *WidgetOf(*element_).window()->findChild<CNorvelianGridCtrl*>();
    }
    RangeSource source_;
};

} // namespace

TEST_F(VirtualGrid, AsksForWhatIsSeen) {
    auto& grid = Open();
    EXPECT_EQ(grid.GetRowCount(), 1000000);
    EXPECT_EQ(source_.ranges, std::vector<std::string>{"Rows 0-63"});
    EXPECT_EQ(grid.GetCore().GetText({5, 2}), "-4");
    grid.verticalScrollBar()->setValue(999990);
    EXPECT_EQ(grid.GetCore().GetText({1000000, 1}), "999999");
    EXPECT_EQ(grid.GetViewport().rows.GetLast(), 1000000);
    for (int page = 0; page < 500; ++page) QTest::keyClick(&grid, Qt::Key_PageUp);
    std::size_t blocks = 0;
    for (unsigned block = 0; block < 1000000 / 64; ++block)
        blocks += grid.GetCore().GetRows().HasBlock(block);
    EXPECT_LE(blocks, GUI::GridPages::mostBlocks + 1);
    // Answers that come later.
    source_.late = true;
    grid.verticalScrollBar()->setValue(500000);
    EXPECT_FALSE(grid.HasRow(500001));
    source_.late = false;
    source_.Fire("it", "OnUpdate", "1;500001-2;500010");
    EXPECT_EQ(grid.GetCore().GetText({500001, 1}), "500000");
    // It shrinks while a page is asked for.
    source_.count = 100;
    grid.verticalScrollBar()->setValue(700000);
    EXPECT_EQ(grid.GetRowCount(), 100);
    source_.Fire("it", "OnUpdate");
    EXPECT_EQ(grid.GetCore().GetText({100, 1}), "99");
}

TEST_F(VirtualGrid, OutlivesWhatTheSourceDoes) {
    auto* grid = &Open();
    source_.strike = [] { throw std::runtime_error("no connection"); };
    grid->verticalScrollBar()->setValue(5000);
    EXPECT_EQ(environment->app->errors.size(), 1U);
    environment->app->errors.clear();
    source_.Fire("it", "OnUpdate");
    EXPECT_EQ(grid->GetCore().GetText({5001, 1}), "5000") << "asked again";
    source_.strike = [this] {
        source_.count = 10;
        source_.Fire("it", "OnUpdate");
    };
    grid->verticalScrollBar()->setValue(9000);
    EXPECT_EQ(grid->GetRowCount(), 10);
    source_.count = 1000000;
    source_.Fire("it", "OnUpdate");
    // Inside an event of the platform, and in calls of the host outside of any.
    std::function<void(CNorvelianGridCtrl&)> const calls[] = {
        [](CNorvelianGridCtrl& open) { open.verticalScrollBar()->setValue(5000); },
        [this](CNorvelianGridCtrl& /*open*/) { source_.Fire("it", "OnUpdate", "Properties"); },
        [this](CNorvelianGridCtrl& /*open*/) {
            element_->FindElement("it").SetSize(300, 2500);
            QApplication::processEvents();
        }};
    for (auto const& call : calls) {
        QPointer<CNorvelianGridCtrl> const gone(&Open());
        source_.strike = [this] { element_ = nullptr; };
        call(*gone);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(gone.isNull());
        EXPECT_EQ(GUI::ReleasedElements::GetCount(), 0U);
    }
}

TEST_F(VirtualGrid, ShowsCellsToAssistiveTechnologyOnDemand) {
    auto& grid = Open();
    QAccessibleInterface* const table = QAccessible::queryAccessibleInterface(&grid);
    ASSERT_TRUE(table);
    EXPECT_EQ(table->role(), QAccessible::Table);
    ASSERT_TRUE(table->tableInterface());
    EXPECT_EQ(table->tableInterface()->rowCount(), 1000000);
    EXPECT_EQ(table->childCount(), 2000000);
    QAccessibleInterface* const cell = table->tableInterface()->cellAt(3, 1);
    EXPECT_EQ(cell->text(QAccessible::Name), "-3");
    EXPECT_EQ(table->child(table->indexOfChild(cell)), cell) << "always the same";
    QPoint const middle = cell->rect().center();
    EXPECT_EQ(table->childAt(middle.x(), middle.y()), cell);
    cell->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(grid.GetSelection().GetCurrent(), (GUI::GridPlace{4, 2}));
    EXPECT_TRUE(cell->state().selected);
    QAccessible::Id const first = QAccessible::uniqueId(cell);
    for (int row = 0; row < 5000; ++row) table->tableInterface()->cellAt(row, 0);
    EXPECT_EQ(QAccessible::accessibleInterface(first), nullptr) << "not all are kept";
}

TEST_F(GridElement, ScrollsToThePictureThatAWholePaintGives) {
    auto& grid = Open({{"NumberOfRows", "300"},
                       {"NumberOfColumns", "9"},
                       {"NumberOfFixedRows", "1"},
                       {"NumberOfFixedColumns", "1"},
                       {"RowHeight", "20"},
                       {"ColumnsWidth", "80"}});
    Fill(300, 9);
    Update("");
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(100, 50));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::ShiftModifier, QPoint(200, 110));
    auto const onScreen = [this] {
        QApplication::processEvents();
        return Window()
            .screen()
            ->grabWindow(Window().winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    };
    int row = 0;
    int x = 0;
    for (auto const& [rows, pixels] :
         {std::pair(1, 0), {3, 0}, {0, 17}, {-2, 0}, {1, 40}, {0, -30}, {90, 0}, {-1, 0}}) {
        grid.verticalScrollBar()->setValue(row += rows);
        grid.horizontalScrollBar()->setValue(x += pixels);
        QImage const moved = onScreen();
        grid.viewport()->update();
        ASSERT_EQ(moved, onScreen()) << row << " " << x;
    }
    ASSERT_FALSE(onScreen().isNull());
    EXPECT_EQ(grid.GetViewport().rows.GetFirst(), 2 + row);
}
