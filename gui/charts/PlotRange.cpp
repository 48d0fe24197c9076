#include "gui/charts/PlotRange.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace GUI {

using Utilities::Anything;

namespace {

constexpr double smallestShare = 1e-3;

/// One axis, in shares of the whole.
std::pair<double, double> Fit(double begin, double end, double wholeBegin, double wholeEnd) {
    double const whole = wholeEnd - wholeBegin;
    double const length = std::clamp((end - begin) / whole, smallestShare, 1.0);
    double const middle = ((begin - wholeBegin) + (end - wholeBegin)) / whole / 2;
    // Written so that what is no number gives the whole.
    if (!(length < 1) || !std::isfinite(middle)) return {wholeBegin, wholeEnd};
    double const first = std::clamp(middle - length / 2, 0.0, 1 - length);
    return {wholeBegin + first * whole, wholeBegin + (first + length) * whole};
}

} // namespace

PlotRange PlotRange::Within(PlotRange const& whole) const {
    auto const [left, right] = Fit(xBegin, xEnd, whole.xBegin, whole.xEnd);
    auto const [low, high] = Fit(yBegin, yEnd, whole.yBegin, whole.yEnd);
    return {left, right, low, high};
}

std::optional<PlotRange> PlotRange::Read(Anything const& record) {
    if (!record.IsOfTypeMap()) return {};
    auto const& entries = record.GetMapOfAnythings();
    PlotRange range;
    for (auto const& [key, field] : {std::pair("XBegin", &range.xBegin), std::pair("XEnd", &range.xEnd),
                                     std::pair("YBegin", &range.yBegin), std::pair("YEnd", &range.yEnd)}) {
        auto const found = entries.Find(key);
        if (!found.IsValid()) return {};
        *field = found.GetValue().GetDouble();
        if (!std::isfinite(*field)) return {};
    }
    if (range.xBegin == range.xEnd || range.yBegin == range.yEnd) return {};
    return range;
}

Anything PlotRange::Write() const {
    Anything::MapOfAnythings record;
    record["XBegin"] = xBegin;
    record["XEnd"] = xEnd;
    record["YBegin"] = yBegin;
    record["YEnd"] = yEnd;
    return {record};
}

} // namespace GUI
