// Text fields in described windows, typed into.
#include "gui/controls/CNorvelianEdit.h"
#include "gui/controls/NumberRule.h"
#include "tests/gui/controls/ControlFixture.h"

#include <QLocale>
#include <QScrollBar>

namespace {

using namespace Tests;
using GUI::CNorvelianEdit;
using GUI::CNorvelianMultiLineEdit;

class EditTest : public Controls {
protected:
    void Set(char const* key, Anything const& value) {
        source_.values[{"it", key}] = value;
        source_.Fire("it", "OnUpdate");
    }
};

} // namespace

TEST(NumberRule, ReadsNumbersAsTheyAreTyped) {
    GUI::NumberRule const rule{-5, 20, 2};
    struct {
        char const* typed;
        char const* number;
    } const rows[] = {{"1,25", "1.25"},
                      {"1.25", "1.25"},
                      {" 7 ", "7"},
                      {"+3", "3"},
                      {"-,5", "-0.5"},
                      {"5,", "5"},
                      {"20", "20"},
                      {"20,01", nullptr},
                      {"-6", nullptr},
                      {"1,234", nullptr},
                      {"1,2x", nullptr},
                      {"1e1", nullptr},
                      {"", nullptr},
                      {",", nullptr},
                      {"1.000,5", nullptr},
                      {"--1", nullptr},
                      {"\xE2\x88\x92"
                       "2",
                       "-2"},
                      {"nan", nullptr}};
    for (auto const& [typed, number] : rows)
        EXPECT_EQ(rule.Read(typed, ","), number ? std::optional<std::string>(number) : std::nullopt) << typed;
}

TEST_F(EditTest, TellsWhatIsTyped) {
    auto& field = Show<CNorvelianEdit>("Edit", {{"Placeholder", "type here"}});
    EXPECT_EQ(field.text(), "No Text");
    EXPECT_EQ(field.font().pixelSize(), 12);
    EXPECT_TRUE(field.font().bold());
    EXPECT_EQ(field.placeholderText(), "type here");
    for (char const* const event : {"OnSetFocus", "OnKillFocus", "OnTextChanged"}) Listen(event);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, "ab");
    EXPECT_EQ(TakeTold(), "Text=a Text=ab");
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.text(), "No Text") << "undone";
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(TakeTold(), "Text=No Text Text=ab");
    field.clearFocus();
    EXPECT_EQ(calls, "OnSetFocus(0) OnTextChanged(1) OnTextChanged(2) OnTextChanged(1) OnTextChanged(2) "
                     "OnKillFocus(0) ");
}

TEST_F(EditTest, CommitsWhenTypingIsFinished) {
    auto& field = Show<CNorvelianEdit>("Edit", {{"Commit", "Yes"}, {"Text", "old"}});
    auto const told = [this] {
        return source_.values.count({"it", "Text"}) ? source_.values[{"it", "Text"}].GetString() : String();
    };
    field.setFocus();
    QTest::keyClicks(&field, "er");
    EXPECT_EQ(told(), "");
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(field.text(), "old");
    QTest::keyClicks(&field, "est");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(told(), "oldest");
    QTest::keyClick(&field, Qt::Key_Backspace);
    field.clearFocus();
    EXPECT_EQ(told(), "oldes");
    QTest::keyClick(&field, Qt::Key_Backspace);
    Set("Text", "new");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(told(), "new") << "replaced while it was typed";
}

TEST_F(EditTest, ShowsWhatItsDataSourceSays) {
    auto& field = Show<CNorvelianEdit>("Edit", {{"PasswordStyle", "Yes"}, {"Bold", "No"}, {"Frame", "Yes"}});
    EXPECT_EQ(field.echoMode(), QLineEdit::Password);
    EXPECT_FALSE(field.font().bold());
    EXPECT_TRUE(field.hasFrame());
    Set("Text", "given");
    EXPECT_EQ(field.text(), "given");
    Set("Caption", "too");
    EXPECT_EQ(field.text(), "too");
    Set("ReadOnly", true);
    QTest::keyClicks(&field, "x");
    EXPECT_EQ(TakeTold(), "") << "nothing is told that the user didn't type";
    Set("FontColor", "1,2,3");
    EXPECT_EQ(field.palette().color(QPalette::Text), QColor(1, 2, 3));
    Set("Enabled", false);
    EXPECT_FALSE(field.isEnabled());
}

TEST_F(EditTest, HoldsManyLines) {
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "line " + std::to_string(i) + " of a text that is one megabyte long\n";
    auto& field = Show<CNorvelianMultiLineEdit>("Edit", {{"MultiLine", "Yes"}, {"ScrollBar", "Both"}});
    EXPECT_EQ(field.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    EXPECT_EQ(field.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    Set("Text", text.c_str());
    EXPECT_EQ(field.document()->blockCount(), 20001);
    EXPECT_EQ(TakeTold(), "");
    Set("FirstVisibleLine", 500L);
    EXPECT_EQ(field.verticalScrollBar()->value(), 500);
    Set("Text", "a");
    field.selectAll();
    QTest::keyClicks(&field, "b");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(TakeTold(), "Text=b Text=b\n");
}

TEST_F(EditTest, TakesNumbersInTheUsersLanguage) {
    QLocale::setDefault(QLocale(QLocale::German));
    auto& field = Show<CNorvelianEdit>("Edit", {{"Text", "1.5"},
                                                {"Validator", "Number"},
                                                {"Minimum", "0"},
                                                {"Maximum", "20"},
                                                {"Decimals", "2"},
                                                {"ToolTipText", "Limit"},
                                                {"ValidationText", "0 to 20"}});
    EXPECT_EQ(field.text(), "1,5");
    field.selectAll();
    QTest::keyClicks(&field, "2,25");
    EXPECT_EQ(TakeTold(), "Text=2 Text=2 Text=2.2 Text=2.25");
    source_.Fire("it", "OnUpdate");
    EXPECT_EQ(field.text(), "2,25") << "an update with what was told leaves the text";
    QTest::keyClicks(&field, "x");
    EXPECT_EQ(TakeTold(), "Valid=0") << "what is no number isn't told";
    EXPECT_TRUE(field.toolTip().contains("0 to 20"));
    source_.Fire("it", "OnUpdate");
    EXPECT_EQ(field.text(), "2,25x") << "nor lost";
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(TakeTold(), "Valid=1 Text=2.25");
    EXPECT_TRUE(field.toolTip().contains("Limit"));
    Set("Text", "-30");
    EXPECT_TRUE(field.toolTip().contains("0 to 20")) << "a wrong number of the data source is shown as one";
    QLocale::setDefault(QLocale::c());
}
