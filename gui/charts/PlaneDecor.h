#pragma once

#include "gui/charts/ZeroAxes.h"
#include "gui/elements/GUIElement.h"

#include <array>
#include <utility>
#include <vector>

namespace GUI {

/// What helps to read a plane of a* and b*: rings of equal chroma, lines of equal hue, the border of what the
/// screen shows at one lightness, and the way that the last measurements took.
///
/// Attributes: "ChromaRings" (0; distance between rings in values, 0 for none), "HueLines" (0; degrees
/// between lines), "GamutEdge" (No). Of the data source: "GamutLightness" (50; L* of that border), "Trace"
/// (vector of points, from the oldest on, each a map of "XValue" and "YValue").
class PlaneDecor {
public:
    static constexpr Attribute ringsAttribute{"ChromaRings", AttributeType::Number, "0",
                                              "Distance between rings of equal chroma; 0 for none"};
    static constexpr Attribute hueLinesAttribute{"HueLines", AttributeType::Number, "0",
                                                 "Degrees between lines of equal hue; 0 for none"};
    static constexpr Attribute gamutEdgeAttribute{"GamutEdge", AttributeType::Flag, "No",
                                                  "The border of what the screen can show at one lightness"};
    static constexpr std::array<Attribute, 3> attributes{ringsAttribute, hueLinesAttribute,
                                                         gamutEdgeAttribute};
    static constexpr char const* gamutLightnessKey = "GamutLightness";
    static constexpr char const* traceKey = "Trace";

    void ReadAttributes(AttributeMap const& description);
    /// What the data source gives under the two keys.
    void TakeGamutLightness(Utilities::Anything const& value);
    void TakeTrace(Utilities::Anything const& value);
    bool HasGamutEdge() const { return hasGamutEdge_; }
    bool IsEmpty() const { return !(rings_ > 0) && !(hueLines_ > 0) && edge_.empty() && trace_.empty(); }

    /// Beneath the data.
    void Draw(PlatformIndependentDeviceContext& context, ValuePlane const& plane) const;

private:
    using Point = std::pair<double, double>;

    void DrawRings(PlatformIndependentDeviceContext& context, ValuePlane const& plane, double farthest) const;
    void DrawHueLines(PlatformIndependentDeviceContext& context, ValuePlane const& plane,
                      double farthest) const;
    void DrawTrace(PlatformIndependentDeviceContext& context, ValuePlane const& plane) const;
    void FindGamutEdge();

    double rings_ = 0;
    double hueLines_ = 0;
    bool hasGamutEdge_ = false;
    double gamutLightness_ = 50;
    /// Closed.
    std::vector<Point> edge_;
    std::vector<Point> trace_;
};

} // namespace GUI
