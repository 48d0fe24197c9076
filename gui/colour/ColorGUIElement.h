#pragma once

#include "gui/elements/Pane.h"

namespace GUI {

/// Base of the elements that show measured colours: a pane that can say whether its content comes from
/// a colour exchange file. Colours arrive ready for the screen; no element converts a measured one.
class ColorGUIElement : public Pane {
public:
    Diagnostics::String GetValueString() override { return "ColorGUIElement"; }
    /// What the data source gives under "InCXF".
    virtual Utilities::Anything GetInCXF() { return GetValue("InCXF"); }
};

} // namespace GUI
