#include "gui/shell/AdvancedControlImpl_PC.h"

#include "core/creators/ComponentCreator.h"
#include "gui/elements/ContextMenu.h"
#include "gui/elements/Pane.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/Attributes.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"

#include <QApplication>
#include <QPalette>

namespace GUI {

namespace {

Utilities::ComponentCreatorNormal<AdvancedControlImpl_PC> creator({"AdvancedControlImpl", "$Revision: 1.21 $",
                                                                   "GUI"});

} // namespace

AdvancedControlImpl_PC::~AdvancedControlImpl_PC() {
    if (control_) control_->Detach();
}

void AdvancedControlImpl_PC::Initialize(PlatformIndependentWindowID const& parent,
                                        DescriptionTree const& description) {
    auto const* const identity = dynamic_cast<PlatformIndependentWindowID_PC const*>(&parent);
    QWidget* const window = identity ? identity->GetWindow() : nullptr;
    if (!window) return;
    CNorvelianSurface& surface = CNorvelianSurface::Of(*window);
    auto const outer = identity->GetLightWindow();
    AttributeReader const reader(description);
    bool const tabStop = reader.Flag(CommonAttributes::selectable);
    control_ = std::make_shared<CNorvelianAdvancedControl>(*this, surface,
                                                           outer ? *outer : surface.GetTree().GetRoot(),
                                                           tabStop, reader.Text(contextMenuAttribute));
    if (!GetPane()) return;
    Utilities::SmartPointer<PlatformIndependentWindowID_PC> const own(GetPane()->GetWindowID());
    if (!own.IsNull()) own->SetWindow(&surface, control_->GetSharedWindow());
}

void AdvancedControlImpl_PC::SetSize(long width, long height) {
    if (!control_) return;
    control_->GetWindow().SetSize(static_cast<int>(width), static_cast<int>(height));
    control_->Moved();
}

void AdvancedControlImpl_PC::SetPosition(long x, long y) {
    if (!control_) return;
    control_->GetWindow().SetPosition(static_cast<int>(x), static_cast<int>(y));
    control_->Moved();
}

void AdvancedControlImpl_PC::Repaint() {
    if (auto const control = control_) control->RepaintNow();
}

void AdvancedControlImpl_PC::SetFocus() {
    if (!GetPane()) return;
    // Who hears of the focus may let the pane go.
    CallScope const call(*GetPane());
    if (auto const control = control_) control->SetFocus();
    OnSelectionChanged(Topics::propertyInspector, true);
}

void AdvancedControlImpl_PC::UpdateDeviceContext() {
    if (auto const control = control_) control->UpdateDeviceContext();
}

void AdvancedControlImpl_PC::SetMouseCapture(bool capture) {
    if (auto const control = control_) control->SetMouseCapture(capture);
}

void AdvancedControlImpl_PC::SetPane(Pane* pane) {
    AdvancedControlImpl::SetPane(pane);
    if (!pane) {
        if (control_) control_->Detach();
        return;
    }
    QColor const face = QApplication::palette().color(QPalette::Window);
    pane->SetBackgroundColor({ThemeRole::Window, RGBVector(static_cast<unsigned char>(face.red()),
                                                           static_cast<unsigned char>(face.green()),
                                                           static_cast<unsigned char>(face.blue()))});
}

void AdvancedControlImpl_PC::Show(bool visible) {
    if (auto const control = control_) control->Show(visible);
}

void AdvancedControlImpl_PC::TellAccessibleChange() {
    if (auto const control = control_) control->TellAccessibleChange();
}

} // namespace GUI
