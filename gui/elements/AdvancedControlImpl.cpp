#include "gui/elements/AdvancedControlImpl.h"

#include "gui/elements/Pane.h"

namespace GUI {

using Utilities::String;

namespace {

/// Every call from the platform into a pane keeps the pane alive while it runs.
template <class Call> auto Enter(Pane* pane, Call call) -> decltype(call(*pane)) {
    using Result = decltype(call(*pane));
    if (!pane) return Result();
    CallScope const scope(*pane);
    return call(*pane);
}

} // namespace

Accessible AdvancedControlImpl::GetAccessible() {
    return Enter(pane_, [](Pane& pane) { return pane.GetAccessible(); });
}

String AdvancedControlImpl::GetToolTipText(unsigned short x, unsigned short y) {
    return Enter(pane_, [=](Pane& pane) { return pane.GetToolTipText(x, y); });
}

void AdvancedControlImpl::SetPane(Pane* pane) { pane_ = pane; }

void AdvancedControlImpl::OnPaint(PlatformIndependentDeviceContext& context) {
    Enter(pane_, [&context](Pane& pane) { pane.OnPaint(context); });
}

bool AdvancedControlImpl::LeavesPixels() const { return pane_ && pane_->LeavesPixels(); }

bool AdvancedControlImpl::OnLeftButtonDown(bool controlKey, long x, long y) {
    return Enter(pane_, [=](Pane& pane) {
        return pane.OnLeftButtonDown(controlKey ? KeyState::Control : KeyState::None, x, y);
    });
}

bool AdvancedControlImpl::OnLeftButtonUp(long x, long y) {
    return Enter(pane_, [=](Pane& pane) { return pane.OnLeftButtonUp(x, y); });
}
bool AdvancedControlImpl::OnMouseMove(long x, long y) {
    return Enter(pane_, [=](Pane& pane) { return pane.OnMouseMove(x, y); });
}
bool AdvancedControlImpl::OnMouseLeave() {
    return Enter(pane_, [](Pane& pane) { return pane.OnMouseLeave(); });
}

void AdvancedControlImpl::OnGetDeviceContext(PlatformIndependentDeviceContext& context) {
    Enter(pane_, [&context](Pane& pane) { pane.OnGetDeviceContext(context); });
}

void AdvancedControlImpl::OnSelectionChanged(String const& name, bool selected) {
    Enter(pane_, [&](Pane& pane) { pane.OnSelectionChanged(name, selected); });
}

bool AdvancedControlImpl::IsDragable(std::pair<long, long> const& point) {
    return Enter(pane_, [&point](Pane& pane) { return pane.IsDragable(point); });
}

DropEffect AdvancedControlImpl::OnDragOver(DropDataObject const& data, bool controlKey, long x, long y) {
    return Enter(pane_, [&](Pane& pane) {
        return pane.OnDragOver(data, controlKey ? KeyState::Control : KeyState::None, x, y);
    });
}

void AdvancedControlImpl::OnDragLeave() {
    Enter(pane_, [](Pane& pane) { pane.OnDragLeave(); });
}

bool AdvancedControlImpl::OnDrop(DropDataObject const& data, DropEffect effect, long x, long y) {
    return Enter(pane_, [&](Pane& pane) { return pane.OnDrop(data, effect, x, y); });
}

} // namespace GUI
