#include "gui/shell/CNorvelianDialog.h"

#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/shell/Dialog_PC.h"
#include "gui/shell/EventGuard_PC.h"
#include "gui/shell/PaintScope_PC.h"
#include "gui/shell/TopLevel_PC.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace GUI {

CNorvelianDialog::CNorvelianDialog(Dialog_PC& element, QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags), element_(&element) {}

void CNorvelianDialog::RepaintNow() {
    if (PaintScope::IsPainting(*this))
        update();
    else
        repaint();
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

void CNorvelianDialog::paintEvent(QPaintEvent* event) {
    PaintScope const scope(*this);
    if (std::exchange(firstPaint_, false))
        RunGuarded([this] {
            if (element_ && element_->GetDataSource()) element_->GetDataSource()->SetDefaultSelection();
            return true;
        });
    QDialog::paintEvent(event);
    RunGuarded([this] {
        if (!element_) return true;
        {
            PlatformIndependentDeviceContext_PC context(*this);
            element_->PaintBackground(context);
        }
        TopLevel::PaintDecorators(*this, *element_);
        return true;
    });
}

void CNorvelianDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1)
        RunGuarded([event] {
            TopLevel::ShowHelp(event->modifiers().testFlag(Qt::ShiftModifier));
            return true;
        });
    else
        QDialog::keyPressEvent(event);
}

} // namespace GUI
