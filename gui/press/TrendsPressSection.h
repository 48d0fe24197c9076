#pragma once

#include "gui/elements/Pane.h"
#include "gui/elements/drawing/VerdictSign.h"

#include <optional>

namespace Ostrinda {

/// Labels one printing unit of a press: its picture at the left over a bar at the foot, the unit's texts in
/// the picture, the name of its colour above.
///
/// Attributes: "FontName" (Arial), "FontSize" (10; points), "Bold" (No), "BarHeight" (10; pixels). Beyond
/// these: "Card" (No; in place of the picture a card with a patch of the colour, the texts beside it and the
/// verdict of the unit below).
///
/// Asked of the data source at each update, each used if it is valid: "ColorName", "TopLineText",
/// "PressSectionText" (texts), "TopLineColor", "BackgroundColor"; for a card also "Verdict" (Pass, Marginal,
/// Fail or NoData; any other text for none) and "IsActive" (bool: outlined). The top line is black or white,
/// whichever can be read on its colour; a name that is too long is shortened.
///
/// The picture is "TrendPressSection" of the image service; without it its place, of 57 by 75 pixels, stays
/// empty. The tool tip is the data source's "ToolTipText".
class TrendsPressSection : public GUI::Pane {
public:
    Diagnostics::String GetValueString() override { return "TrendsPressSection"; }
    void Initialize(GUI::PlatformIndependentWindowID const& parent, GUI::DescriptionTree const& description,
                    GUI::DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(GUI::PlatformIndependentDeviceContext& context) override;

private:
    void SetFont(GUI::PlatformIndependentDeviceContext& context) const;
    void PaintUnit(GUI::PlatformIndependentDeviceContext& context, long width, long height) const;
    void PaintCard(GUI::PlatformIndependentDeviceContext& context, long width, long height) const;

    Utilities::String colorName_;
    Utilities::String topLine_;
    Utilities::String unit_;
    GUI::RGBVector topLineColor_;
    std::optional<GUI::VerdictKind> verdict_;
    bool active_ = false;
    Utilities::String fontName_;
    short fontSize_ = 0;
    bool bold_ = false;
    long barHeight_ = 0;
    bool card_ = false;
};

} // namespace Ostrinda
