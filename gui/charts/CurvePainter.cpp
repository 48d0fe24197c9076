#include "gui/charts/CurvePainter.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace GUI {

namespace {

/// Fewer values a column than this aren't worth looking at the columns.
constexpr std::size_t densestPlain = 3;

/// The extreme values of a run; invalid if one of them is no number.
struct Extremes {
    double lowest;
    double highest;
    bool valid;
};

Extremes FindExtremes(std::span<double const> values) {
    // Several running extremes, so that one doesn't wait for the other.
    constexpr std::size_t lanes = 4;
    std::array<double, lanes> lowest;
    std::array<double, lanes> highest;
    lowest.fill(values[0]);
    highest.fill(values[0]);
    bool valid = true;
    auto const take = [&](double value, std::size_t lane) {
        lowest[lane] = value < lowest[lane] ? value : lowest[lane];
        highest[lane] = value > highest[lane] ? value : highest[lane];
        valid &= value == value;
    };
    std::size_t i = 0;
    for (; i + lanes <= values.size(); i += lanes)
        for (std::size_t lane = 0; lane < lanes; ++lane) take(values[i + lane], lane);
    for (; i < values.size(); ++i) take(values[i], 0);
    return {*std::min_element(lowest.begin(), lowest.end()),
            *std::max_element(highest.begin(), highest.end()), valid};
}

class CurvePainter {
public:
    CurvePainter(PlatformIndependentDeviceContext& context, ScaleMap const& map, double xBegin, double xStep,
                 std::span<double const> values, std::size_t first)
        : context_(context), map_(map), xBegin_(xBegin), xStep_(xStep), values_(values), first_(first) {}

    void DrawAll() {
        for (std::size_t k = 0; k < values_.size(); ++k) Go(Column(k), map_.AlongY(values_[k]));
    }

    bool IsDense() const {
        if (values_.empty()) return false;
        auto const columns = static_cast<std::size_t>(std::abs(Column(values_.size() - 1) - Column(0))) + 1;
        return values_.size() / columns > densestPlain;
    }

    void DrawThinned() {
        std::size_t length = values_.size() / 1024 + 1;
        for (std::size_t begin = 0; begin < values_.size();) {
            short const column = Column(begin);
            std::size_t const end = FindEnd(begin, column, length);
            length = end - begin;
            DrawColumn(column, values_.subspan(begin, length), end == values_.size());
            begin = end;
        }
    }

private:
    short Column(std::size_t k) const {
        return map_.AlongX(static_cast<double>(first_ + k) * xStep_ + xBegin_);
    }

    /// The first value behind `begin` that is on another column. Columns are monotone in the number,
    /// so a search does; `guess` is the length of the column before.
    std::size_t FindEnd(std::size_t begin, short column, std::size_t guess) const {
        std::size_t inside = begin;
        std::size_t outside = begin + guess;
        for (std::size_t step = guess; outside < values_.size() && Column(outside) == column; step *= 2) {
            inside = outside;
            outside += step;
        }
        outside = std::min(outside, values_.size());
        // As a rule the end is within one or two of the guess.
        if (outside - inside > 4 && Column(outside - 3) == column) inside = outside - 3;
        while (outside - inside > 1) {
            std::size_t const middle = inside + (outside - inside) / 2;
            (Column(middle) == column ? inside : outside) = middle;
        }
        return outside;
    }

    void DrawColumn(short column, std::span<double const> run, bool isLast) {
        if (!isLast && run.size() > densestPlain) {
            Extremes const extremes = FindExtremes(run);
            if (extremes.valid) {
                Go(column, map_.AlongY(run.front()));
                GoOn(column, map_.AlongY(extremes.lowest));
                GoOn(column, map_.AlongY(extremes.highest));
                GoOn(column, map_.AlongY(run.back()));
                return;
            }
        }
        for (double const value : run) GoOn(column, map_.AlongY(value));
    }

    /// A line without length draws nothing and is left out.
    void GoOn(short alongX, short alongY) {
        if (!started_ || std::pair(alongX, alongY) != last_) Go(alongX, alongY);
    }
    void Go(short alongX, short alongY) {
        short const x = map_.xIsHorizontal ? alongX : alongY;
        short const y = map_.xIsHorizontal ? alongY : alongX;
        if (started_)
            context_.LineTo(x, y);
        else
            context_.MoveTo(x, y);
        started_ = true;
        last_ = {alongX, alongY};
    }

    PlatformIndependentDeviceContext& context_;
    ScaleMap const& map_;
    double xBegin_;
    double xStep_;
    std::span<double const> values_;
    std::size_t first_;
    bool started_ = false;
    std::pair<short, short> last_;
};

} // namespace

void DrawCurve(PlatformIndependentDeviceContext& context, ScaleMap const& map, double xBegin, double xStep,
               std::span<double const> values, std::size_t first) {
    CurvePainter painter(context, map, xBegin, xStep, values, first);
    if (painter.IsDense())
        painter.DrawThinned();
    else
        painter.DrawAll();
}

} // namespace GUI
