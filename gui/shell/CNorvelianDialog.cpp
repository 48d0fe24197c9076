#include "gui/shell/CNorvelianDialog.h"

#include "gui/shell/Dialog_PC.h"
#include "gui/shell/EventGuard_PC.h"
#include "gui/shell/TopLevel_PC.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <optional>
#include <utility>

namespace GUI {

CNorvelianDialog::CNorvelianDialog(Dialog_PC& element, QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags), element_(&element) {}

bool CNorvelianDialog::event(QEvent* event) {
    bool handled = false;
    RunEvent([&] {
        // Whatever the element is told may release it.
        std::optional<CallScope> call;
        if (element_) call.emplace(*element_);
        handled = QDialog::event(event);
    });
    return handled;
}

void CNorvelianDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // Before the first paint and outside of it: what is selected may open a dialog of its own.
    if (!std::exchange(firstShow_, false)) return;
    RunGuarded([this] {
        if (element_ && element_->GetDataSource()) element_->GetDataSource()->SetDefaultSelection();
        return true;
    });
}

void CNorvelianDialog::reject() {
    RunGuarded([this] {
        if (element_) element_->OnEscape();
        return true;
    });
}

void CNorvelianDialog::moveEvent(QMoveEvent* event) {
    QDialog::moveEvent(event);
    RunGuarded([this] {
        if (element_) element_->OnMoved(pos().x(), pos().y());
        return true;
    });
}

void CNorvelianDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    RunGuarded([this] {
        if (element_) element_->OnResized();
        return true;
    });
}

void CNorvelianDialog::closeEvent(QCloseEvent* event) {
    // The element closes the window if its data source lets it.
    event->ignore();
    RunGuarded([this, event] {
        if (!element_)
            event->accept();
        else if (!element_->IsCloseable())
            event->ignore();
        else if (Application::Instance().GetMainWindow() == element_)
            event->setAccepted(TopLevel::CloseMainWindow());
        else
            element_->OnCloseRequest();
        return true;
    });
}

void CNorvelianDialog::keyPressEvent(QKeyEvent* event) {
    if (!element_) return QDialog::keyPressEvent(event);
    RunGuarded([&] {
        if (element_->GetTopLevel().TakeKey(*event)) return true;
        bool const isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (isEnter && element_->OnEnter()) return true;
        QDialog::keyPressEvent(event);
        return true;
    });
}

} // namespace GUI
