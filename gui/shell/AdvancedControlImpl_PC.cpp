#include "gui/shell/AdvancedControlImpl_PC.h"

#include "core/creators/ComponentCreator.h"
#include "gui/elements/Attributes.h"
#include "gui/elements/Pane.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"

#include <QApplication>
#include <QPalette>

namespace GUI {

namespace {

Utilities::ComponentCreatorNormal<AdvancedControlImpl_PC> creator({"AdvancedControlImpl", "$Revision: 1.21 $",
                                                                   "GUI"});

} // namespace

AdvancedControlImpl_PC::~AdvancedControlImpl_PC() {
    if (!control_) return;
    control_->Detach();
    if (control_->IsHandlingEvent()) {
        // The platform still needs the window, for example after it has told of the focus.
        control_->hide();
        control_->deleteLater();
    } else {
        delete control_;
    }
}

void AdvancedControlImpl_PC::Initialize(PlatformIndependentWindowID const& parent,
                                        DescriptionTree const& description) {
    bool const tabStop = AttributeReader(description).Flag(CommonAttributes::selectable);
    auto control = std::make_unique<CNorvelianAdvancedControl>(
        *this, PlatformIndependentWindowID_PC::WindowOf(parent), tabStop);
    control_ = control.release();
    if (GetPane()) {
        Utilities::SmartPointer<PlatformIndependentWindowID_PC> const identity(GetPane()->GetWindowID());
        if (!identity.IsNull()) identity->SetWindow(control_);
    }
    // A child appears together with its parent; one that comes later has to be told.
    if (QWidget const* const parentWindow = control_->parentWidget();
        parentWindow && parentWindow->isVisible())
        control_->show();
}

void AdvancedControlImpl_PC::SetSize(long width, long height) {
    if (control_) control_->resize(static_cast<int>(width), static_cast<int>(height));
}

void AdvancedControlImpl_PC::SetPosition(long x, long y) {
    if (control_) control_->move(static_cast<int>(x), static_cast<int>(y));
}

void AdvancedControlImpl_PC::Repaint() {
    if (control_) control_->RepaintNow();
}

void AdvancedControlImpl_PC::SetFocus() {
    if (QPointer<CNorvelianAdvancedControl> const control = control_) {
        control->setFocus(Qt::MouseFocusReason);
        // Who hears of the focus may have let the pane go.
        if (!control) return;
    }
    OnSelectionChanged("PropertyInspector", true);
}

void AdvancedControlImpl_PC::SetID(unsigned short id) {
    if (control_) control_->setObjectName(QString::number(id));
}

void AdvancedControlImpl_PC::UpdateDeviceContext() {
    if (control_) control_->UpdateDeviceContext();
}

void AdvancedControlImpl_PC::SetMouseCapture(bool capture) {
    if (!control_) return;
    if (capture)
        control_->grabMouse();
    else
        control_->releaseMouse();
}

void AdvancedControlImpl_PC::SetPane(Pane* pane) {
    AdvancedControlImpl::SetPane(pane);
    if (!pane) return;
    QColor const face = QApplication::palette().color(QPalette::Window);
    pane->SetBackgroundColor(RGBVector(static_cast<unsigned char>(face.red()),
                                       static_cast<unsigned char>(face.green()),
                                       static_cast<unsigned char>(face.blue())));
}

void AdvancedControlImpl_PC::Show(bool visible) {
    if (control_) control_->setVisible(visible);
}

} // namespace GUI
