#pragma once

#include "cxf/samples/ScreenTransform.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace GUI {

/// A plane through CIE L*a*b* (D50, 2 degrees), computed for the pixels of a picture: the colours that a
/// screen can show, and beside them a flat colour, with a line along the border.
///
/// Colours are converted at every eighth pixel and interpolated between: within one unit of 255 of the
/// conversion of each pixel, and an order of magnitude cheaper (bench/, charts.plane-512). Where the gamut
/// ends the points are twice as dense; the border is where the interpolated difference between the wanted
/// and the shown colour passes the tolerance.
class GamutPlane {
public:
    using Transform = Norvelian::ColorExchangeFormat::ScreenTransform;
    /// L*, a*, b*.
    using Lab = std::array<double, 3>;

    /// The colour in the middle of the pixel (0, 0), and how it changes from pixel to pixel.
    struct Place {
        Lab first = {};
        Lab perColumn = {};
        Lab perRow = {};

        Lab At(double column, double row) const;
        bool operator==(Place const&) const = default;
    };
    /// 0xRRGGBB.
    struct Colours {
        std::uint32_t outside = 0;
        std::uint32_t edge = 0;
        /// Of the line in pixels; 0 for none. It lies outside, not on the colours.
        int edgeWidth = 1;

        bool operator==(Colours const&) const = default;
    };

    /// By rows from the top.
    static std::vector<std::uint32_t> Compute(Transform const& transform, Place const& place,
                                              std::size_t width, std::size_t height, Colours const& colours);
};

} // namespace GUI
