// What a described dialog does with Enter, Esc and closing, and the questions that it asks.
#include "gui/controls/CNorvelianButton.h"
#include "gui/controls/CNorvelianEdit.h"
#include "gui/elements/application/QuestionBox.h"
#include "tests/gui/controls/ControlFixture.h"

#include <QLabel>

namespace {

using namespace Tests;

class Dialogs : public Controls {
protected:
    GUI::CNorvelianEdit& Open(Attributes more) {
        element_ = nullptr;
        auto const tree =
            Top("Dialog", "top", more,
                {Node({{"GUIElementType", "VBox"}},
                      {Node({{"GUIElementType", "Edit"}, {"ElementName", "field"}, {"Text", "1"}}),
                       Node({{"GUIElementType", "Button"}, {"ElementName", "Standard"}, {"Default", "Yes"}}),
                       Node({{"GUIElementType", "Button"}, {"ElementName", "Other"}})})});
        element_ = Utilities::ResolveComponent<GUI::GUIElement>("Dialog");
        SmartPointer<GUI::Dialog>(element_)->Initialize(none_, *tree, &source_, true);
        QApplication::setActiveWindow(&Window());
        QApplication::processEvents();
        for (char const* const button : {"Standard", "Other"})
            source_.SetCallback(button, "OnClick", MakeCallback([this](Anything const& name) {
                                    calls += name.GetString().GetStdString() + " ";
                                    return 0L;
                                }));
        source_.SetCallback("top", "OnClose",
                            MakeCallback([this](Anything const&) { return calls += "closed ", 0L; }));
        auto& field = *Window().findChild<GUI::CNorvelianEdit*>();
        field.setFocus();
        return field;
    }
    /// Answers the next question when it is open; its text.
    void Answer(int button) {
        QTimer::singleShot(0, [this, button] {
            auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!box) return;
            asked += box->findChild<QLabel*>() ? "?" : "";
            auto const buttons = box->findChildren<QPushButton*>();
            if (button < 0)
                QTest::keyClick(box, Qt::Key_Escape);
            else
                buttons[button]->click();
        });
    }
    std::string Take() { return std::exchange(calls, {}); }

    std::string asked;
};

} // namespace

TEST_F(Dialogs, EnterClicksTheNamedElementOrTheDefaultButton) {
    auto* field = &Open({});
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(Take(), "Standard ");
    field = &Open({{"EnterKeyElementName", "Other"}});
    for (auto const key : {Qt::Key_Return, Qt::Key_Enter}) QTest::keyClick(field, key);
    EXPECT_EQ(Take(), "Other Other ");
    QTest::keyClick(Window().findChild<GUI::CNorvelianButton*>(), Qt::Key_Return);
    EXPECT_EQ(Take(), "Standard ") << "the button that has the focus comes first";
}

TEST_F(Dialogs, WhatWasEnteredIsOnlyLostWhenTheUserSaysSo) {
    Attributes const careful = {{"ConfirmDiscard", "Yes"}, {"EscKeyElementName", "Other"}};
    auto* field = &Open(careful);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(Take(), "Other ") << "nothing was entered";
    QTest::keyClicks(field, "2");
    Answer(1);
    QTest::keyClick(field, Qt::Key_Escape);
    Answer(-1);
    Window().close();
    EXPECT_EQ(Take() + asked, "??") << "kept, by the button and by Esc";
    EXPECT_TRUE(Window().isVisible());
    Answer(0);
    Window().close();
    Answer(0);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(Take(), "closed Other ");
    source_.values[{"top", "HasChanges"}] = false;
    Window().close();
    EXPECT_EQ(Take() + asked, "closed ????") << "the data source knows better";

    field = &Open({{"EscKeyElementName", "Other"}});
    QTest::keyClicks(field, "2");
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(Take(), "Other ");
    // The dialog goes while it asks.
    source_.values.clear();
    field = &Open(careful);
    QTest::keyClicks(field, "2");
    QTimer::singleShot(0, [this] { element_ = nullptr; });
    QTimer::singleShot(1, [] {
        if (auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            box->findChildren<QPushButton*>()[0]->click();
    });
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(Take(), "");
    EXPECT_TRUE(element_.IsNull());
}

TEST_F(Dialogs, AQuestionHasTheButtonsThatItDescribes) {
    auto const question =
        Node({{"GUIElementType", "QuestionBox"}, {"Text", "Really?"}, {"EnterKeyElementName", "No"}},
             {Node({{"GUIElementType", "Button"}, {"ElementName", "Yes"}, {"Caption", "Yes"}}),
              Node({{"GUIElementType", "Button"}, {"ElementName", "No"}, {"Caption", "No"}})});
    GUI::QuestionBox const box(*question);
    Answer(0);
    EXPECT_EQ(box.Ask(none_).GetStdString(), "Yes");
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
    EXPECT_EQ(box.Ask(none_).GetStdString(), "No");
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    EXPECT_EQ(box.Ask(none_).GetStdString(), "");
}

TEST_F(Dialogs, AFieldSaysBesideItWhatItMustBe) {
    for (bool const below : {false, true}) {
        auto& field = Show<GUI::CNorvelianEdit>("Edit", {{"Text", "1"},
                                                         {"Validator", "Number"},
                                                         {"ValidationText", "A number"},
                                                         {"MaximalWidth", "80"},
                                                         {"MaximalHeight", "24"},
                                                         {"ValidationPlace", below ? "Below" : "Right"}});
        auto const message = [&]() -> QLabel* {
            for (auto* const label : Window().findChildren<QLabel*>())
                if (label->text() == "A number") return label;
            return nullptr;
        };
        EXPECT_EQ(message(), nullptr);
        QTest::keyClicks(&field, "x");
        ASSERT_NE(message(), nullptr);
        EXPECT_TRUE(message()->isVisible());
        EXPECT_TRUE(below ? message()->y() >= field.geometry().bottom()
                          : message()->x() > field.geometry().right());
        field.hide();
        EXPECT_FALSE(message()->isVisible());
        field.show();
        QTest::keyClick(&field, Qt::Key_Backspace);
        EXPECT_EQ(message(), nullptr);
    }
}
