#pragma once

#include "gui/controls/CNorvelianScrollBar.h"
#include "gui/controls/NativeElement_PC.h"
#include "gui/controls/ScrollBar.h"

namespace GUI {

/// Shows the scroll bar as a native one.
class ScrollBar_PC : public NativeElement<ScrollBar, CNorvelianScrollBar> {
public:
    Diagnostics::String GetValueString() override { return "ScrollBar_PC"; }
    /// Throws `RuntimeException` "ScrollBar: Couldn't create it !!!".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void Enable(bool enabled) override;
    long OnUpdate(Utilities::Anything const& command) override;

private:
    void ShowEnabled();

    bool enabled_ = true;
    /// There is something to scroll.
    bool canMove_ = false;
};

} // namespace GUI
