#pragma once

#include "gui/controls/ChoiceControl.h"

namespace GUI {

/// A list of texts, one of which can be selected.
///
/// Attributes: "AlphaSort" (No: the entries keep their order), "ToolTipText", "AccessibleName". Of the data
/// source beside what `ChoiceControl` asks: "Enabled", "ToolTipText", "Visible".
class ListBox : public ChoiceControl {
public:
    static constexpr Attribute attributes[] = {alphaSort, ControlAttributes::toolTipText,
                                               ControlAttributes::accessibleName};

    Diagnostics::String GetValueString() override { return "ListBox"; }

protected:
    bool TellsIndex() const override { return true; }
};

} // namespace GUI
