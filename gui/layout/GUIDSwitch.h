#pragma once

#include "gui/elements/GUIElement.h"

namespace GUI {

/// Creates its children in its parent's window, under a window identity of its own, and gives each of them
/// its whole place. A child that can't be created goes to the diagnostics sink, and so do those behind it.
class GUIDSwitch : public GUIElement {
public:
    Diagnostics::String GetValueString() override { return "GUIDSwitch"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void SetPosition(unsigned long x, unsigned long y) override;
    void SetSize(unsigned long width, unsigned long height) override;
    void OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                 GUIElement const& element) const override;
};

} // namespace GUI
