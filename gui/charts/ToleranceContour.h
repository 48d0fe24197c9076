#pragma once

#include "core/values/Anything.h"
#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <cmath>
#include <utility>
#include <vector>

namespace GUI {

/// The colours of a standard's lightness whose difference from it is exactly the limit, as a closed line in
/// the plane of a* and b*. It is found along 120 directions by the colour library's formula, so it is an
/// ellipse only where the formula says so.
///
/// A data source tells it as a record: "L", "a", "b" (of the standard, CIE L*a*b*), "Limit" (a difference),
/// "Formula" ("CIELab", "CMC", "94" or "2000", the default, as the colour library calls them), "First",
/// "Second", "Third" (the formula's weights, its own by default). A limit that isn't positive, or a formula
/// that needs more than L*a*b*, gives no line; an unknown formula throws `TristimException`.
class ToleranceContour {
public:
    /// Of a*b*.
    using Point = std::pair<double, double>;

    ToleranceContour() = default;
    explicit ToleranceContour(Utilities::Anything const& record);

    bool IsEmpty() const { return points_.empty(); }
    std::vector<Point> const& GetPoints() const { return points_; }
    Point const& GetStandard() const { return standard_; }

    /// With the selected pen; the standard as a small upright cross. `toPixel` gives the place of a point as
    /// a pair of shorts.
    template <class ToPixel> void Draw(PlatformIndependentDeviceContext& context, ToPixel toPixel) const {
        if (points_.empty()) return;
        auto const [lastX, lastY] = toPixel(points_.back());
        context.MoveTo(lastX, lastY);
        for (Point const& point : points_) {
            auto const [x, y] = toPixel(point);
            context.LineTo(x, y);
        }
        constexpr int arm = 4;
        auto const [x, y] = toPixel(standard_);
        context.DrawLine(static_cast<short>(x - arm), y, static_cast<short>(x + arm + 1), y);
        context.DrawLine(x, static_cast<short>(y - arm), x, static_cast<short>(y + arm + 1));
    }

private:
    Point standard_;
    std::vector<Point> points_;
};

} // namespace GUI
