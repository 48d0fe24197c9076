#pragma once

#include "gui/elements/Pane.h"

namespace Ostrinda {

/// The caption bar of an area of ink zones, with a line at its foot.
///
/// Attributes: "FontName" (Arial), "FontSize" (10; points), "Bold" (No). Asked of the data source at each
/// update, each used if it is valid: "Caption" (text; shortened where it is wider than the pane) and
/// "BackgroundColor". The text is black or white, whichever can be read on the background.
class ZonesPressSection : public GUI::Pane {
public:
    Diagnostics::String GetValueString() override { return "ZonesPressSection"; }
    void Initialize(GUI::PlatformIndependentWindowID const& parent, GUI::DescriptionTree const& description,
                    GUI::DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(GUI::PlatformIndependentDeviceContext& context) override;

private:
    Utilities::String caption_;
    Utilities::String fontName_;
    short fontSize_ = 0;
    bool bold_ = false;
};

} // namespace Ostrinda
