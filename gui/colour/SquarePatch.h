#pragma once

#include "gui/colour/Patch.h"

namespace GUI {

/// A patch that fills its pane. With a frame its corners are marked by lines instead; the mark of the
/// selected state is a rectangle inside. It keeps the background of its description.
///
/// Attributes: "Updates" (No; with Yes the event "OnUpdate" shows the new colour), "MarkOutside" (No; with
/// Yes the colour is smaller and the mark is around it in two tones), "SurroundColor" (222,251,255;
/// around the colour with "MarkOutside").
class SquarePatch : public Patch {
public:
    Diagnostics::String GetValueString() override { return "SquarePatch"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;

private:
    void PaintCorners(PlatformIndependentDeviceContext& context, RGBVector const& mark) const;
};

} // namespace GUI
