// Drop-downs, list boxes and scroll bars in described windows.
#include "core/base/Exceptions.h"
#include "gui/controls/CNorvelianComboBox.h"
#include "gui/controls/CNorvelianListBox.h"
#include "gui/controls/CNorvelianScrollBar.h"
#include "tests/gui/controls/ControlFixture.h"

#include <QLineEdit>
#include <QPainter>

namespace {

using namespace Tests;
using GUI::CNorvelianComboBox;
using GUI::CNorvelianListBox;
using GUI::CNorvelianScrollBar;
using Norvelian::Utilities::Exceptions::OutOfRangeException;

Anything MapOf(std::vector<char const*> const& texts) {
    Anything::MapOfAnythings map;
    unsigned long index = 0;
    for (char const* const text : texts) map[String(index++)] = text;
    return map;
}

Anything VectorOf(unsigned long count) {
    Anything::VectorOfAnythings texts(static_cast<std::uint32_t>(count));
    for (unsigned long i = 0; i < count; ++i) texts[static_cast<std::uint32_t>(i)] = "entry " + String(i);
    return texts;
}

class Choices : public Controls {
protected:
    void Update() { source_.Fire("it", "OnUpdate"); }
    void Set(char const* key, Anything const& value) { source_.values[{"it", key}] = value; }
};

} // namespace

TEST_F(Choices, ADropDownShowsEntriesInOrderOrSorted) {
    Set("Entries", MapOf({"zwei", "eins", "Ärger", "eins"}));
    auto const texts = [](CNorvelianComboBox const& box) {
        QStringList all;
        for (int i = 0; i < box.count(); ++i) all << box.itemText(i);
        return all.join(' ');
    };
    EXPECT_EQ(texts(Show<CNorvelianComboBox>("DropDown", {{"ReadOnly", "Yes"}})), "zwei eins Ärger eins");
    EXPECT_EQ(Window().findChild<CNorvelianComboBox*>()->currentIndex(), -1) << "nothing is selected";
    // Where letters with marks are hangs on the language.
    QString const sorted = texts(Show<CNorvelianComboBox>("DropDown", {{"AlphaSort", "Yes"}}));
    EXPECT_TRUE(sorted.contains("eins eins zwei")) << sorted.toStdString();
    EXPECT_EQ(TakeTold(), "");
}

TEST_F(Choices, ADropDownReportsSelections) {
    Set("Entries", MapOf({"D50", "A", "D50"}));
    auto& box = Show<CNorvelianComboBox>("DropDown", {{"ReadOnly", "Yes"}});
    Listen("OnSelectionChanged");
    Set("SelectedEntry", "D50");
    Update();
    EXPECT_EQ(box.currentIndex(), 0) << "the first of that text";
    EXPECT_EQ(TakeTold(), "SelectedEntry=D50");
    EXPECT_EQ(calls, "OnSelectionChanged(1) ");
    Set("SelectedEntry", "F11");
    Update();
    EXPECT_EQ(box.currentIndex(), -1);
    EXPECT_EQ(TakeTold(), "SelectedEntry=F11") << "reported though there is no such entry";

    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(TakeTold(), "SelectedEntry=D50 SelectedEntry=A");
    // An update in the callback selects and ends there.
    source_.SetCallback("it", "OnSelectionChanged", MakeCallback([this](Anything const&) {
                            Update();
                            return 0L;
                        }));
    QTest::keyClick(&box, Qt::Key_D);
    EXPECT_EQ(TakeTold(), "SelectedEntry=D50");
    EXPECT_EQ(box.currentIndex(), 0) << "what was told is what the update selects";
}

TEST_F(Choices, AnEditableDropDownReportsWhatIsTyped) {
    Set("Entries", MapOf({"one", "two"}));
    auto& box = Show<CNorvelianComboBox>("DropDown");
    QTest::keyClicks(box.lineEdit(), "tw");
    EXPECT_EQ(TakeTold(), "SelectedEntry=t SelectedEntry=tw");
    QTest::keyClick(box.lineEdit(), Qt::Key_Return);
    EXPECT_EQ(box.count(), 2) << "what is typed is no entry";
    EXPECT_EQ(box.currentText(), "tw");
}

TEST_F(Choices, EntriesWithAGapAreRefused) {
    auto& box = Show<CNorvelianComboBox>("DropDown");
    Anything::MapOfAnythings gap = MapOf({"a", "b", "c"}).GetMapOfAnythings();
    gap.Remove("1");
    Set("Entries", gap);
    EXPECT_THROW(Update(), OutOfRangeException);
    EXPECT_EQ(box.count(), 1) << "those before the gap";
    Set("Entries", {});
    Anything::VectorOfAnythings mixed(2);
    mixed[0] = "text";
    mixed[1] = 3L;
    Set("EntryTexts", mixed);
    EXPECT_THROW(Update(), std::exception);
    EXPECT_EQ(box.count(), 1) << "nothing changes";
}

TEST_F(Choices, ADropDownDrawsItsOwnColors) {
    Set("Entries", MapOf({"one"}));
    Set("SelectedEntry", "one");
    auto& box = Show<CNorvelianComboBox>(
        "DropDown", {{"ReadOnly", "Yes"}, {"FontColor", "255,x,0"}, {"BackgroundColor", "0,0,y"}});
    QImage item(60, 24, QImage::Format_RGB32);
    auto const draw = [&](QStyle::State state) {
        QPainter painter(&item);
        box.DrawItem(painter, item.rect(), "MMM", state);
        return item.pixelColor(59, 20);
    };
    auto const count = [&item](QColor const& color) {
        int pixels = 0;
        for (int y = 0; y < item.height(); ++y)
            for (int x = 0; x < item.width(); ++x) pixels += item.pixelColor(x, y) == color ? 1 : 0;
        return pixels;
    };
    EXPECT_EQ(draw(QStyle::State_None), QColor(0, 0, 255)) << "a part that can't be read";
    EXPECT_GT(count({255, 0, 0}), 3);
    EXPECT_EQ(draw(QStyle::State_Selected), box.palette().color(QPalette::Highlight));
    EXPECT_GT(count({0, 0, 255}), 3) << "the text has the background's colour";
    box.setEnabled(false);
    draw(QStyle::State_Selected);
    EXPECT_GT(count({0x80, 0x80, 0x80}), 3);
}

TEST_F(Choices, AListBoxTellsTheIndexToo) {
    Set("EntryTexts", VectorOf(10000));
    auto& list = Show<CNorvelianListBox>("ListBox");
    EXPECT_EQ(list.model()->rowCount(), 10000);
    Listen("OnSelectionChanged");
    Set("SelectedEntry", "entry 9999");
    Update();
    EXPECT_EQ(TakeTold(), "SelectedEntry=entry 9999 SelectedEntryIndex=9999");
    EXPECT_EQ(calls, "OnSelectionChanged(2) ");
    QTest::keyClick(&list, Qt::Key_Up);
    EXPECT_EQ(TakeTold(), "SelectedEntry=entry 9998 SelectedEntryIndex=9998");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                      list.visualRect(list.model()->index(9990, 0)).center());
    EXPECT_EQ(TakeTold(), "SelectedEntry=entry 9990 SelectedEntryIndex=9990");
    Set("SelectedEntry", "none");
    Update();
    EXPECT_EQ(TakeTold(), "SelectedEntry=none SelectedEntryIndex=-1");
    EXPECT_FALSE(list.currentIndex().isValid());
    // The list may go while it tells.
    QPointer<CNorvelianListBox> const gone(&list);
    source_.SetCallback("it", "OnSelectionChanged", MakeCallback([this](Anything const&) {
                            element_ = nullptr;
                            return 0L;
                        }));
    QTest::keyClick(&list, Qt::Key_Down);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
}

TEST_F(Choices, AScrollBarTellsItsPosition) {
    Set("NumberOfValues", 100L);
    Set("NumberOfShowValues", 10L);
    Set("Position", 500L);
    auto& bar = Show<CNorvelianScrollBar>("ScrollBar", {{"JustificationOnX", "No"}});
    EXPECT_EQ(bar.orientation(), Qt::Vertical);
    EXPECT_EQ(bar.value(), 90) << "clamped";
    Set("Position", 50L);
    Update();
    Listen("OnChange");
    EXPECT_EQ(TakeTold(), "") << "only the user's moves are told";
    for (auto const key :
         {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End})
        QTest::keyClick(&bar, key);
    EXPECT_EQ(TakeTold(), "Position=49 Position=50 Position=40 Position=50 Position=0 Position=90");
    EXPECT_TRUE(calls.starts_with("OnChange(1) OnChange(2) "));
    Set("NumberOfValues", 0L);
    Update();
    EXPECT_EQ(bar.maximum(), 0);
    EXPECT_FALSE(bar.isEnabled());
    Set("NumberOfValues", 20L);
    Update();
    EXPECT_TRUE(bar.isEnabled());
    Set("Enabled", false);
    Update();
    EXPECT_FALSE(bar.isEnabled());
}
