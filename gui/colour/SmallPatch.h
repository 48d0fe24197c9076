#pragma once

#include "gui/colour/Patch.h"

namespace GUI {

/// A patch that shows its colour as a rectangle two pixels inside the pane; the mark of the selected or
/// active state is a rectangle around it. It keeps the background of its description.
///
/// Attributes: "Updates" (No; with Yes the event "OnUpdate" shows the new colour), "SurroundColor"
/// (222,251,255; the frame's colour), "MarkOutside" (No; with Yes the rectangle is smaller, the surround
/// fills what is around it, and the mark is there in two tones).
class SmallPatch : public Patch {
public:
    Diagnostics::String GetValueString() override { return "SmallPatch"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
};

} // namespace GUI
