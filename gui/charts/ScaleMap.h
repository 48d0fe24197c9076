#pragma once

#include <cstdint>
#include <limits>

namespace GUI {

/// Turns values of a two-axis scale into pixels of a plot and back.
///
/// Each coordinate is cut towards zero twice: once as scaled, and again after the margin is added. What
/// is beyond 16 bits gives the nearest 16-bit number, and what is no number (an empty scale divides by
/// zero) gives 0. Both coordinates are monotone in their value.
struct ScaleMap {
    double xBegin = 0;
    double xEnd = 1;
    double yBegin = 0;
    double yEnd = 1;
    /// Margins and extent of the plot in pixels.
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    /// The X scale runs from left to right; otherwise it runs from top to bottom, and the Y scale from
    /// left to right.
    bool xIsHorizontal = true;

    /// The pixel coordinate along the X scale's axis, and the one along the Y scale's.
    short AlongX(double x) const {
        return xIsHorizontal ? Cut(left, (x - xBegin) * width / (xEnd - xBegin))
                             : Cut(top, height - (xEnd - x) * height / (xEnd - xBegin));
    }
    short AlongY(double y) const {
        return xIsHorizontal ? Cut(top, height - (y - yBegin) * height / (yEnd - yBegin))
                             : Cut(left, (y - yBegin) * width / (yEnd - yBegin));
    }

    void ToPixel(double x, double y, short& px, short& py) const {
        px = xIsHorizontal ? AlongX(x) : AlongY(y);
        py = xIsHorizontal ? AlongY(y) : AlongX(x);
    }

    /// The inverse for a plot without margins: they are not subtracted.
    void ToValue(short px, short py, double& x, double& y) const {
        auto const wholeHeight = static_cast<double>(static_cast<std::int64_t>(height));
        if (xIsHorizontal) {
            x = (xEnd - xBegin) * px / width + xBegin;
            y = (yEnd - yBegin) * (wholeHeight - py) / height + yBegin;
        } else {
            x = xEnd - (xEnd - xBegin) * (wholeHeight - py) / height;
            y = (yEnd - yBegin) * px / width + yBegin;
        }
    }

    /// Cut towards zero; beyond 16 bits the nearest 16-bit number, 0 for no number.
    static short ToShort(double value) {
        constexpr double highest = std::numeric_limits<short>::max();
        constexpr double lowest = std::numeric_limits<short>::min();
        if (value >= highest) return std::numeric_limits<short>::max();
        if (value <= lowest) return std::numeric_limits<short>::min();
        return value == value ? static_cast<short>(value) : short{0};
    }

private:
    static short Cut(double margin, double scaled) {
        // Far beyond 16 bits the fraction plays no part, and a 32-bit integer holds the rest.
        constexpr double limit = 1e9;
        if (scaled > limit) return ToShort(scaled);
        if (scaled < -limit) return ToShort(scaled);
        if (scaled != scaled) return 0;
        return ToShort(margin + static_cast<double>(static_cast<std::int32_t>(scaled)));
    }
};

} // namespace GUI
