#pragma once

#include "gui/colour/ColorGUIElement.h"
#include "gui/colour/ColorSpots.h"
#include "gui/colour/GamutPlane.h"
#include "gui/elements/NumberTable.h"
#include "gui/elements/colour/ScreenRGB.h"

#include <memory>
#include <optional>
#include <vector>

namespace GUI {

/// A plane of CIE L*a*b* (D50, 2 degrees) in the colours of the screen, with the border of what the screen
/// can show and spots over it: all colours of one lightness ("ab"; a* to the right, b* upward, one unit as
/// long on both axes, the longer side of the pane shows more), or the leaf of one hue ("LC"; C* to the right
/// from 0, L* upward from 0 to 100).
///
/// Attributes: "Plane" (ab), "Lightness" (50), "Hue" (0, degrees), "Range" (100; of a* and b* on either side
/// of zero, or of C*), "OutsideColor" (198,198,198; where the screen has no colour), "EdgeColor" (22,22,22;
/// of the border; an empty one draws none), "SpotSize" (4, a spot's radius in pixels), "Smooth" (No).
///
/// Values asked of the data source under the element's name: at each update "Plane" (text), "Lightness",
/// "Hue", "Range" (numbers; a range that isn't positive is refused), "NrOfPatches"; at each paint
/// "SelectedSample" (the number of a spot, which is drawn last with two rings beside it); for a tool tip
/// "ToolTipText " with the number, counted from 0, of the topmost spot under the point. Under the element
/// name "Patch" with a spot's number: "Data", a map of "Color", "XValue" and "YValue" in the plane's
/// coordinates; a value that isn't finite leaves the spot out.
///
/// A click is told to the data source as "Click", a map of "x", "y" in the plane's coordinates, "L", "a", "b"
/// and "Color" (what the screen shows there, with the mark whether it can), and passed on.
///
/// Colours are those of the screen that the component "Model" gives under "ScreenRGB", or of sRGB. The plane
/// is computed for the screen's own pixels, and again only when it or the pane's size changes.
class ColorGraph : public ColorGUIElement, public SupportsNumberTable {
public:
    Diagnostics::String GetValueString() override { return "ColorGraph"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;
    Utilities::String GetToolTipText(unsigned short x, unsigned short y) override;
    Utilities::String GetNumberTable() override { return WriteColorSpots(spots_); }

private:
    using Spot = ColorSpot;
    /// A pixel's middle and the plane's coordinates: linear in both directions.
    struct Axes {
        double left = 0;
        double upper = 0;
        double xPerPixel = 1;
        double yPerPixel = 1;
    };

    bool IsLeaf() const { return kind_ == "LC"; }
    Axes GetAxes() const;
    GamutPlane::Lab ToLab(double x, double y) const;
    GamutPlane::Place GetPlace(Axes const& axes, double scale) const;
    /// For the host's screen.
    GamutPlane const& GetPlane();
    void DrawPlane(PlatformIndependentDeviceContext& context, Axes const& axes);
    void DrawSpot(PlatformIndependentDeviceContext& context, Axes const& axes, Spot const& spot,
                  bool isSelected) const;
    /// Where a spot's middle is; nothing for one that is too far outside for a pixel.
    std::optional<std::pair<short, short>> PixelOf(Axes const& axes, Spot const& spot) const;

    Utilities::String kind_;
    double lightness_ = 50;
    double hue_ = 0;
    double range_ = 100;
    RGBVector outsideColor_;
    std::optional<RGBVector> edgeColor_;
    int spotSize_ = 4;
    bool smooth_ = false;
    std::vector<Spot> spots_;

    /// The plane as it was computed last, and for what.
    struct Picture {
        GamutPlane::Place place;
        GamutPlane::Colours colours;
        std::size_t width = 0;
        std::size_t height = 0;
        std::vector<std::uint32_t> pixels;
    };
    Picture picture_;
    Utilities::SmartPointer<Tintorium::ScreenRGB> screen_;
    std::unique_ptr<GamutPlane> plane_;
};

} // namespace GUI
