#include "gui/elements/AdvancedControlImpl.h"

#include "gui/elements/Pane.h"

namespace GUI {

using Utilities::String;

String AdvancedControlImpl::GetToolTipText(unsigned short x, unsigned short y) {
    return pane_ ? pane_->GetToolTipText(x, y) : String();
}

void AdvancedControlImpl::SetPane(Pane* pane) { pane_ = pane; }

void AdvancedControlImpl::OnPaint(PlatformIndependentDeviceContext& context) {
    if (pane_) pane_->OnPaint(context);
}

bool AdvancedControlImpl::LeavesPixels() const { return pane_ && pane_->LeavesPixels(); }

bool AdvancedControlImpl::OnLeftButtonDown(bool controlKey, long x, long y) {
    return pane_ && pane_->OnLeftButtonDown(controlKey ? KeyState::Control : KeyState::None, x, y);
}

bool AdvancedControlImpl::OnLeftButtonUp(long x, long y) { return pane_ && pane_->OnLeftButtonUp(x, y); }
bool AdvancedControlImpl::OnMouseMove(long x, long y) { return pane_ && pane_->OnMouseMove(x, y); }
bool AdvancedControlImpl::OnMouseLeave() { return pane_ && pane_->OnMouseLeave(); }

void AdvancedControlImpl::OnGetDeviceContext(PlatformIndependentDeviceContext& context) {
    if (pane_) pane_->OnGetDeviceContext(context);
}

void AdvancedControlImpl::OnSelectionChanged(String const& name, bool selected) {
    if (pane_) pane_->OnSelectionChanged(name, selected);
}

bool AdvancedControlImpl::IsDragable(std::pair<long, long> const& point) {
    return pane_ && pane_->IsDragable(point);
}

} // namespace GUI
