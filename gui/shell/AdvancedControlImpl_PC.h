#pragma once

#include "gui/elements/AdvancedControlImpl.h"
#include "gui/shell/CNorvelianAdvancedControl.h"

#include <memory>

namespace GUI {

/// Makes and drives the window of a pane.
///
/// Attributes: "Selectable" (No); "Yes" lets Tab reach the window. "ContextMenu" (none); see `Menu`.
class AdvancedControlImpl_PC : public AdvancedControlImpl {
public:
    ~AdvancedControlImpl_PC() override;

    bool PrepareForUnload() override { return true; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description) override;
    void SetSize(long width, long height) override;
    void SetPosition(long x, long y) override;
    void Repaint() override;
    void SetFocus() override;
    /// Only a window of the platform has a number to give.
    void SetID(unsigned short /*id*/) override {}
    void UpdateDeviceContext() override;
    void SetMouseCapture(bool capture) override;
    void SetPane(Pane* pane) override;
    void Show(bool visible) override;
    void TellAccessibleChange() override;
    using AdvancedControlImpl::GetPane;

private:
    /// Null for a pane without a parent window, which nobody can see.
    std::shared_ptr<CNorvelianAdvancedControl> control_;
};

} // namespace GUI
