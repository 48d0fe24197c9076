#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <initializer_list>

namespace GUI {

/// A point or a distance from the middle of the picture, y downward.
struct SkyPoint {
    double x = 0;
    double y = 0;

    /// Degrees counter-clockwise from the x axis.
    static SkyPoint Polar(double radius, double degrees);
    SkyPoint operator+(SkyPoint const& other) const { return {x + other.x, y + other.y}; }
    SkyPoint operator-(SkyPoint const& other) const { return {x - other.x, y - other.y}; }
    /// With y upward.
    SkyPoint Mirrored() const { return {x, -y}; }
    /// By the angles at the first two corners; the third isn't looked at, and a point on one of them is
    /// outside.
    bool IsInTriangle(SkyPoint const& a, SkyPoint const& b, SkyPoint const& c) const;
};

/// Draws the fields of a `PalimarSky` around a middle. Angles that are called turn are 0, 120 and 240
/// degrees.
class SkyDrawing {
public:
    SkyDrawing(PlatformIndependentDeviceContext& context, short centerX, short centerY, short outerRadius,
               short innerRadius)
        : context_(&context), centerX_(centerX), centerY_(centerY), outer_(outerRadius), inner_(innerRadius) {
    }

    void RingSlice(int index, RGBVector const& color) const;
    /// 3 pixels inside the slice.
    void RingOutline(int index, RGBVector const& color) const;
    void RingWarning(int index, RGBVector const& color) const;
    /// Beneath triangles and kites.
    void Disc() const;
    /// With its warning sign, and with an outline inside it.
    void Triangle(int index, RGBVector const& color, bool isSelected) const;
    /// With marks in its outer corners and its warning sign.
    void Kite(int index, RGBVector const& color) const;
    void KiteOutline(int index, RGBVector const& color) const;

private:
    using Points = PlatformIndependentDeviceContext::Points;

    /// White on darker colours, whose three channels come to less than 500; black on others.
    static RGBVector Contrast(RGBVector const& color);
    void SelectColor(RGBVector const& color, long penWidth) const;
    void SelectContrast(RGBVector const& color) const;
    void Line(SkyPoint const& from, SkyPoint const& to) const;
    /// Cut to whole pixels, and closed.
    Points Polygon(std::initializer_list<SkyPoint> corners) const;
    void Warning(double radius, double angle, RGBVector const& color) const;

    PlatformIndependentDeviceContext* context_;
    short centerX_;
    short centerY_;
    short outer_;
    short inner_;
};

} // namespace GUI
