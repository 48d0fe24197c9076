#pragma once

#include <algorithm>
#include <cstdint>

namespace GUI {

/// Where the pixels of drawing code are on a device whose own pixels may be finer.
///
/// Each edge goes to the nearest edge between two pixels of the device, so that boxes which share an
/// edge neither overlap nor leave a gap, at any scale. A pen is as many pixels of the device wide as its
/// width comes to, at least one, and has the same width everywhere in a picture.
struct DeviceGrid {
    /// Pixels of the device a pixel.
    double scale = 1;
    /// The place of (0, 0) in pixels of the device.
    double originX = 0;
    double originY = 0;

    int X(long x) const { return Nearest(originX + scale * static_cast<double>(x)); }
    int Y(long y) const { return Nearest(originY + scale * static_cast<double>(y)); }
    int Thickness(long width) const { return std::max(Nearest(scale * static_cast<double>(width)), 1); }

    static int Nearest(double place) {
        // Halves go up on both sides of zero. A conversion cuts towards zero, and the bias keeps it from
        // seeing negative numbers, which is faster than std::floor.
        constexpr std::int64_t bias = std::int64_t{1} << 32;
        return static_cast<int>(static_cast<std::int64_t>(place + 0.5 + static_cast<double>(bias)) - bias);
    }
};

} // namespace GUI
