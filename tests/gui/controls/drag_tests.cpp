// What is dropped on native controls, and what is dragged out of panes, on the offscreen platform; real drags
// between programs are in the display test.
#include "gui/elements/DialogHandler.h"
#include "gui/elements/DropDataObject.h"
#include "gui/shell/DropHandlerImpl_PC.h"
#include "tests/gui/controls/ControlFixture.h"

#include <QComboBox>
#include <QDragMoveEvent>
#include <QMimeData>

namespace {

using namespace Tests;

/// Takes colours dropped on "it" and tells where; whatever else is dropped anywhere counts too.
struct Handler : GUI::DialogHandler, GUI::DropHandlerBase {
    Handler() { RegisterDropHandler("it", *this); }
    GUI::DropEffect OnDragOver(GUI::DropDataObject const& data, GUI::KeyState const& keyState, long,
                               long) override {
        if (!data.HasFormat("application/x-color")) return GUI::DropEffect::None;
        return keyState == GUI::KeyState::Control ? GUI::DropEffect::Move : GUI::DropEffect::Copy;
    }
    bool OnDrop(GUI::DropDataObject const& data, GUI::DropEffect, long x, long y) override {
        place = QPoint(static_cast<int>(x), static_cast<int>(y));
        color = GUI::RGBVector(data.GetData("application/x-color"));
        return true;
    }
    using DialogHandler::OnDragOver;
    using DialogHandler::OnDrop;

    QPoint place;
    GUI::RGBVector color;
};

class Drags : public Controls {
protected:
    ~Drags() override { window_ = nullptr; }
    GUI::CNorvelianSurface& Open(std::initializer_list<NodePointer> nodes) {
        auto const tree = Top("Window", "top", {}, {Node({{"GUIElementType", "VBox"}}, nodes)});
        window_ = Utilities::ResolveComponent<GUI::GUIElement>("Window");
        window_->Initialize(none_, *tree, &handler_);
        QApplication::processEvents();
        return GUI::CNorvelianSurface::Of(*WidgetOf(*window_).window());
    }
    template <class Event>
    bool Send(QWidget& widget, QPoint place, QMimeData const& data, Qt::KeyboardModifiers keys = {}) {
        Event event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, keys);
        QApplication::sendEvent(&widget, &event);
        return event.isAccepted() && event.dropAction() == (keys ? Qt::MoveAction : Qt::CopyAction);
    }

    Handler handler_;
    SmartPointer<GUI::GUIElement> window_;
};

} // namespace

TEST_F(Drags, AreDroppedOnNativeControlsWithThePlaceShown) {
    auto& surface = Open({Node({{"GUIElementType", "DropDown"},
                                {"ElementName", "it"},
                                {"MinimalHeight", "40"},
                                {"MaximalHeight", "40"}}),
                          Node({{"GUIElementType", "Pane"}, {"ElementName", "other"}})});
    auto& box = *surface.findChild<QComboBox*>();
    QPoint const place = box.geometry().topLeft() + QPoint(10, 20);
    auto const before = surface.grab().toImage();
    QMimeData data;
    data.setText("words");
    Send<QDragEnterEvent>(surface, place, data);
    EXPECT_FALSE(Send<QDragMoveEvent>(surface, place, data));
    data.setColorData(QColor(1, 2, 3));
    EXPECT_TRUE(Send<QDragMoveEvent>(surface, place, data));
    EXPECT_TRUE(Send<QDragMoveEvent>(surface, place, data, Qt::ControlModifier));
    EXPECT_NE(surface.grab().toImage(), before) << "the place is marked";
    EXPECT_FALSE(Send<QDragMoveEvent>(surface, {10, surface.height() - 5}, data))
        << "the pane has no handler";
    EXPECT_EQ(surface.grab().toImage(), before);
    Send<QDragMoveEvent>(surface, place, data);
    EXPECT_TRUE(Send<QDropEvent>(surface, place, data));
    EXPECT_EQ(handler_.place, QPoint(10, 20));
    EXPECT_EQ(handler_.color, GUI::RGBVector(1, 2, 3));
    EXPECT_EQ(surface.grab().toImage(), before);
}

TEST_F(Drags, OfferWhatTheDataSourceGives) {
    Open({Node({{"GUIElementType", "Pane"}, {"ElementName", "other"}, {"BackgroundColor", "9,8,7"}})});
    auto& pane = window_->FindElement("other");
    Anything::MapOfAnythings map;
    map["Text"] = "name";
    map["Color"] = "no colour";
    map["Picture"] = true;
    auto const content = GUI::DropHandlerImpl_PC::Read(pane, map);
    EXPECT_EQ(content.text, "name");
    EXPECT_FALSE(content.color) << "what is wrong is left out";
    ASSERT_FALSE(content.picture.isNull());
    EXPECT_EQ(content.picture.pixelColor(5, 5), QColor(9, 8, 7));
    EXPECT_TRUE(GUI::DropHandlerImpl_PC::Read(pane, {}).IsEmpty());
    EXPECT_EQ(Utilities::ResolveComponent<GUI::DropHandlerImpl>("DropHandlerImpl")->Drag(pane, {}),
              GUI::DropEffect::None);
}
