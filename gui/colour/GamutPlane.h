#pragma once

#include "gui/colour/ScreenModel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace GUI {

/// A plane through CIE L*a*b* (D50, 2 degrees), computed for the pixels of a picture: the colours that a
/// screen can show, and beside them a flat colour, with a line along the border.
///
/// For screens with three curves behind a matrix the colours are within one unit of 255 of the conversion of
/// each pixel, and the border is exact to the pixel except where the gamut juts out by less than twelve; see
/// `ScreenModel`. Of other screens each pixel is converted, which takes some ten times as long.
class GamutPlane {
public:
    using Transform = ScreenModel::Transform;
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

    /// The transform must live as long as this; what it gives must not change.
    explicit GamutPlane(Transform const& transform) : transform_(&transform), model_(transform) {}

    /// By rows from the top.
    std::vector<std::uint32_t> Compute(Place const& place, std::size_t width, std::size_t height,
                                       Colours const& colours) const;
    Transform const& GetTransform() const { return *transform_; }

private:
    Transform const* transform_;
    ScreenModel model_;
};

} // namespace GUI
