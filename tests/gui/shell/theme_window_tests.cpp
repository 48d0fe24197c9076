// Themes of windows: what is drawn, native controls, dialogs, keys.
#include "tests/gui/shell/WindowFixture.h"

#include <QDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Tests;

namespace {

constexpr QRgb lightPanel = qRgb(0xF7, 0xF7, 0xF7);
constexpr QRgb darkPanel = qRgb(0x2B, 0x2B, 0x2B);
constexpr QRgb darkSurround = qRgb(0x46, 0x46, 0x46);

class Themes : public Windows {
protected:
    static NodePointer Described(char const* type, Attributes more) {
        return Top(type, "Main", more,
                   {Node({{"GUIElementType", "VBox"}},
                         {Top("Pane", "Panel", {{"BackgroundColor", "panel"}}),
                          Top("Pane", "Around", {{"BackgroundColor", "surround"}}),
                          Top("FixedText", "Text", {{"FontColor", "fail"}, {"Caption", "text"}}),
                          Top("Edit", "Field"), Top("Button", "Go", {{"Caption", "Go"}})})});
    }
    static QRgb PixelOf(GUI::GUIElement& window, char const* element) {
        QApplication::processEvents();
        unsigned long x = 0;
        unsigned long y = 0;
        window.FindElement(element).GetPosition(x, y);
        QImage const picture = WidgetOf(window).grab().toImage().convertToFormat(QImage::Format_RGB32);
        return picture.pixel(static_cast<int>(x) + 3, static_cast<int>(y) + 3);
    }
    template <class T> static T& Native(GUI::GUIElement& window) { return *WidgetOf(window).findChild<T*>(); }
};

} // namespace

TEST_F(Themes, ChangeWhileTheWindowIsOpen) {
    auto& window = Make<GUI::Window_PC>(Described("Window", {{"Theme", "Light"}}));
    EXPECT_EQ(PixelOf(window, "Panel"), lightPanel);
    auto const textColour = [&] {
        return Native<QLabel>(window).palette().color(QPalette::WindowText).rgb();
    };
    EXPECT_EQ(textColour(), qRgb(0xB3, 0x26, 0x1E));

    handler_.values["Main.Theme"] = "Dark";
    handler_.ExecuteCallback("Main", "OnUpdate", {});
    EXPECT_EQ(PixelOf(window, "Panel"), darkPanel);
    EXPECT_EQ(textColour(), qRgb(0xFF, 0x7B, 0x6E));
    EXPECT_EQ(Native<QLineEdit>(window).palette().color(QPalette::Base).rgb(), qRgb(0x18, 0x18, 0x18));
    QString const style = Native<QPushButton>(window).style()->metaObject()->className();

    handler_.values["Main.Theme"] = "No such theme";
    handler_.ExecuteCallback("Main", "OnUpdate", {});
    EXPECT_EQ(PixelOf(window, "Panel"), darkPanel) << "what isn't known changes nothing";

    handler_.values["Main.Theme"] = "";
    handler_.ExecuteCallback("Main", "OnUpdate", {});
    EXPECT_EQ(PixelOf(window, "Panel"), lightPanel) << "a colour's own value";
    EXPECT_EQ(Native<QPushButton>(window).style(), QApplication::style()) << "the platform's look is back";
    EXPECT_EQ(Native<QLineEdit>(window).palette().color(QPalette::Base),
              QApplication::palette().color(QPalette::Base));
}

TEST_F(Themes, F7TakesTheNextSurround) {
    struct Host : Handler {
        void SetValue(String const& element, String const& key, Anything const& value) override {
            told.push_back((element + "." + key + "=" + value.GetString()).GetStdString());
        }
        std::vector<std::string> told;
    } host;
    auto const node = Described("Window", {{"Theme", "Dark"}});
    Utilities::SmartPointer<GUI::GUIElement> const window(
        Utilities::ResolveComponent<GUI::GUIElement>("Window"));
    window->Initialize(none_, *node, &host);
    EXPECT_EQ(PixelOf(*window, "Around"), darkSurround);
    auto const press = [&] {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
        QApplication::sendEvent(&WidgetOf(*window), &key);
    };
    press();
    EXPECT_EQ(PixelOf(*window, "Around"), qRgb(0x77, 0x77, 0x77));
    press();
    EXPECT_EQ(PixelOf(*window, "Around"), qRgb(255, 255, 255));
    EXPECT_EQ(PixelOf(*window, "Panel"), darkPanel) << "nothing else";
    press();
    EXPECT_EQ(PixelOf(*window, "Around"), darkSurround);
    EXPECT_EQ(host.told,
              (std::vector<std::string>{"Main.Surround=N5", "Main.Surround=White", "Main.Surround=Theme"}));
}

TEST_F(Themes, ADialogHasThatOfItsWindowUnlessItHasItsOwn) {
    auto& window = Make<GUI::Window_PC>(Described("Window", {{"Theme", "Dark"}}));
    for (auto const& [own, expected] : {std::pair("", darkPanel), std::pair("Light", lightPanel)}) {
        auto const dialog = Utilities::MakeSmart<GUI::Dialog_PC>();
        dialog->Initialize(*window.GetWindowID(), *Described("Dialog", {{"Theme", own}}), &handler_, true);
        EXPECT_EQ(PixelOf(*dialog, "Panel"), expected) << own;
    }
    auto const follower = Utilities::MakeSmart<GUI::Dialog_PC>();
    follower->Initialize(*window.GetWindowID(), *Described("Dialog", {}), &handler_, true);
    handler_.values["Main.Theme"] = "Light";
    window.OnUpdate({});
    EXPECT_EQ(PixelOf(*follower, "Panel"), lightPanel);
}

TEST_F(Themes, AnUnknownOneIsAnError) {
    EXPECT_THROW(Make<GUI::Window_PC>(Described("Window", {{"Theme", "Blue"}})),
                 Norvelian::Utilities::Exceptions::OutOfRangeException);
    EXPECT_THROW(Make<GUI::Window_PC>(Described("Window", {{"Surround", "Blue"}})),
                 Norvelian::Utilities::Exceptions::OutOfRangeException);
}

TEST_F(Themes, APanelHasItsTitleBehindItsChild) {
    auto& window = Make<GUI::Window_PC>(Top("Window", "Main", {{"Theme", "Dark"}},
                                            {Node({{"GUIElementType", "FrameBox"},
                                                   {"Title", "Title"},
                                                   {"ElementName", "Frame"},
                                                   {"Top", "40"},
                                                   {"Left", "40"}},
                                                  {Top("Pane", "Inside", {{"BackgroundColor", "1,2,3"}})})}));
    EXPECT_EQ(PixelOf(window, "Inside"), qRgb(1, 2, 3));
    QImage const picture = WidgetOf(window).grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(picture.pixel(20, 100), darkPanel);
    EXPECT_EQ(picture.pixel(0, 0), qRgb(0x20, 0x20, 0x20)) << "a corner is the window's";
    auto const hasInk = [&](QImage const& shown) {
        for (int x = 0; x < 100; ++x)
            for (int y = 4; y < 36; ++y)
                if (qRed(shown.pixel(x, y)) > 0xC0) return true;
        return false;
    };
    EXPECT_TRUE(hasInk(picture));
    handler_.values["Frame.Title"] = "";
    handler_.ExecuteCallback("Frame", "OnUpdate", {});
    EXPECT_FALSE(hasInk(WidgetOf(window).grab().toImage().convertToFormat(QImage::Format_RGB32)));
}
