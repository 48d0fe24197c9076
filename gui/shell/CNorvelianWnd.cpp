#include "gui/shell/CNorvelianWnd.h"

#include "gui/shell/EventGuard_PC.h"
#include "gui/shell/TopLevel_PC.h"
#include "gui/shell/Window_PC.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTimerEvent>
#include <optional>

namespace GUI {

namespace {

constexpr int restMilliseconds = 250;

} // namespace

CNorvelianWnd::CNorvelianWnd(Window_PC& element, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), element_(&element) {}

bool CNorvelianWnd::event(QEvent* event) {
    bool handled = false;
    RunEvent([&] {
        // Whatever the element is told may release it.
        std::optional<CallScope> call;
        if (element_) call.emplace(*element_);
        handled = QWidget::event(event);
    });
    return handled;
}

void CNorvelianWnd::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (isVisible()) moveTimer_.start(restMilliseconds, this);
}

void CNorvelianWnd::timerEvent(QTimerEvent* event) {
    if (event->timerId() == moveTimer_.timerId())
        TellPosition();
    else
        QWidget::timerEvent(event);
}

void CNorvelianWnd::TellPosition() {
    if (!moveTimer_.isActive()) return;
    moveTimer_.stop();
    RunGuarded([this] {
        QPoint const corner = pos();
        if (element_) element_->OnMoved(corner.x(), corner.y());
        return true;
    });
}

void CNorvelianWnd::hideEvent(QHideEvent* event) {
    TellPosition();
    QWidget::hideEvent(event);
}

void CNorvelianWnd::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    RunGuarded([this] {
        if (element_) element_->OnResized();
        return true;
    });
}

void CNorvelianWnd::closeEvent(QCloseEvent* event) {
    TellPosition();
    bool accepted = false;
    RunGuarded([&] {
        if (!element_)
            accepted = true;
        else if (Application::Instance().GetMainWindow() == element_)
            accepted = element_->IsCloseable() && TopLevel::CloseMainWindow();
        else
            accepted = element_->IsCloseable();
        return true;
    });
    event->setAccepted(accepted);
}

void CNorvelianWnd::keyPressEvent(QKeyEvent* event) {
    if (!element_) return QWidget::keyPressEvent(event);
    RunGuarded([&] {
        if (element_->GetTopLevel().TakeKey(*event)) return true;
        QWidget::keyPressEvent(event);
        return true;
    });
}

} // namespace GUI
