#pragma once

#include "core/values/Anything.h"

#include <optional>

namespace GUI {

/// The values that a plot shows, from edge to edge. An axis may run backward.
struct PlotRange {
    double xBegin = 0;
    double xEnd = 1;
    double yBegin = 0;
    double yEnd = 1;

    bool operator==(PlotRange const&) const = default;

    /// The place at these shares of the range.
    double AtX(double share) const { return xBegin + share * (xEnd - xBegin); }
    double AtY(double share) const { return yBegin + share * (yEnd - yBegin); }

    /// The part between two points given in shares.
    PlotRange Between(double x1, double x2, double y1, double y2) const {
        return {AtX(x1), AtX(x2), AtY(y1), AtY(y2)};
    }
    /// `factor` times as long around a point given in shares, which stays where it is.
    PlotRange Scaled(double factor, double x, double y) const {
        return Between(x - x * factor, x + (1 - x) * factor, y - y * factor, y + (1 - y) * factor);
    }
    /// Inside the whole, at least a thousandth of it along each axis.
    PlotRange Within(PlotRange const& whole) const;

    /// "XBegin", "XEnd", "YBegin", "YEnd"; nothing for another value, or a range without an extent.
    static std::optional<PlotRange> Read(Utilities::Anything const& record);
    Utilities::Anything Write() const;
};

} // namespace GUI
