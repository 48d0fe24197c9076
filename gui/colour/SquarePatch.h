#pragma once

#include "gui/colour/Patch.h"

namespace GUI {

/// A patch that fills its pane. With a frame its corners are marked by lines instead; the mark of the
/// selected state is a rectangle inside. It keeps the background of its description and
/// registers no callback.
class SquarePatch : public Patch {
public:
    Diagnostics::String GetValueString() override { return "SquarePatch"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
};

} // namespace GUI
