#pragma once

#include "gui/charts/PlotRange.h"
#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <cstdint>
#include <vector>

namespace GUI {

/// Scales along the left and lower edge of a plot: a line with ticks and numbers outside of it, and a solid
/// grid inside. Steps are 1, 2 or 5 times a power of ten, so that there are at most eight on an axis.
class EdgeAxes {
public:
    /// Room outside the plot: beside the left edge, and below the lower one.
    static constexpr long leftRoom = 44;
    static constexpr long belowRoom = 24;
    static constexpr long titleRoom = 20;
    /// Of a strip between the axis and its ticks.
    static constexpr long stripRoom = 8;

    /// The plot in pixels of what it is in.
    struct Box {
        long left = 0;
        long top = 0;
        long width = 0;
        long height = 0;
    };

    /// The values that have a tick; none on an axis without a length.
    static std::vector<double> Ticks(double begin, double end, long pixels, bool isX);

    /// Into the plot itself, whose corner is the origin; the line of zero stands out.
    static void DrawGrid(PlatformIndependentDeviceContext& context, PlotRange const& range, long width,
                         long height);
    /// Lines, ticks and numbers in the room around the plot. A number that has no room beside its neighbour
    /// is left out. `strip` is what the X axis leaves free below its line.
    static void DrawScales(PlatformIndependentDeviceContext& context, Box const& plot, PlotRange const& range,
                           long strip);
    /// The left one alone.
    static void DrawLeftScale(PlatformIndependentDeviceContext& context, Box const& plot,
                              PlotRange const& range);
    /// The title of the Y scale above its upper end, from the left edge on, and that of the X scale below the
    /// numbers; each is cut off where it has no room.
    static void DrawTitles(PlatformIndependentDeviceContext& context, Box const& plot, long paneWidth,
                           Utilities::String const& xTitle, Utilities::String const& yTitle, long strip);
};

/// The colours of the visible spectrum, as far as sRGB has them, from one wavelength in nm to another; grey
/// where there is none. Of the analytic approximation of the CIE 1931 2 degree colour matching functions by
/// Wyman, Sloan and Shirley (2013), drawn towards grey until no channel is negative.
std::vector<std::uint32_t> SpectrumStrip(double begin, double end, std::size_t count);

} // namespace GUI
