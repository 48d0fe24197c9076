#pragma once

#include "gui/colour/Patch.h"

namespace GUI {

/// A patch that shows its colour as a disc in the square of the pane's shorter side, at the top left. The
/// mark of the selected or active state is a circle around it.
///
/// Attributes: "BackgroundColor" (an empty one gives 100,100,100), "SurroundColor" (222,251,255; around the
/// disc), "MarkOutside" (No; with Yes the disc is smaller, and the mark is around it in two tones).
/// Values beyond `Patch`'s: at an update "BitmapOnly" (no disc, the background picture alone).
class CirclePatch : public Patch {
public:
    Diagnostics::String GetValueString() override { return "CirclePatch"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;

private:
    bool bitmapOnly_ = false;
};

} // namespace GUI
