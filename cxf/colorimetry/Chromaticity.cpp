#include "cxf/colorimetry/Chromaticity.h"

#include "cxf/colorimetry/Illuminants.h"
#include "cxf/conditions/TristimException.h"

#include <cmath>
#include <string>

namespace Norvelian::Tristim {

namespace {

struct Point {
    double x;
    double y;
};

Point ChromaticityOf(XYZ const& v) {
    double const sum = v.x + v.y + v.z;
    if (!(sum > 0)) throw TristimException("a colour without light has no chromaticity");
    return {v.x / sum, v.y / sum};
}
Point Uv1960Of(XYZ const& v) {
    double const sum = v.x + 15 * v.y + 3 * v.z;
    if (!(sum > 0)) throw TristimException("a colour without light has no chromaticity");
    return {4 * v.x / sum, 6 * v.y / sum};
}

/// Where along `from + t direction` and along the stretch `a` to `b` the two meet.
struct Meeting {
    double ray;
    double stretch;
};
Meeting Meet(Point from, Point direction, Point a, Point b) {
    Point const side{b.x - a.x, b.y - a.y};
    double const cross = direction.x * side.y - direction.y * side.x;
    Point const way{a.x - from.x, a.y - from.y};
    return {(way.x * side.y - way.y * side.x) / cross, (way.x * direction.y - way.y * direction.x) / cross};
}

/// The ends of the visible spectrum; beyond them the chromaticity hardly moves and runs back in the tables.
constexpr int kLocusFirst = 380;
constexpr int kLocusLast = 699;

Point LocusAt(int nm, Observer observer) {
    auto const& matching = ColourMatching(observer);
    auto const place = static_cast<std::size_t>(nm - kGridFirst);
    return ChromaticityOf({matching[0][place], matching[1][place], matching[2][place]});
}

/// The wavelength at which a ray leaves the spectrum's locus, and how far that is; 0 nm if it doesn't.
struct Exit {
    double wavelength = 0;
    double distance = 0;
};
Exit LeaveLocus(Point from, Point direction, Observer observer) {
    Point before = LocusAt(kLocusFirst, observer);
    Exit exit;
    for (int nm = kLocusFirst + 1; nm <= kLocusLast; ++nm) {
        Point const here = LocusAt(nm, observer);
        Meeting const meeting = Meet(from, direction, before, here);
        if (meeting.ray > exit.distance && meeting.stretch >= 0 && meeting.stretch <= 1)
            exit = {nm - 1 + meeting.stretch, meeting.ray};
        before = here;
    }
    return exit;
}

Point PlanckAt(double kelvin) {
    // c2 of the temperature scale of 1990, in nm K.
    constexpr double c2 = 1.4388e7;
    auto const& matching = ColourMatching(Observer::TwoDegree);
    XYZ sum;
    for (std::size_t i = 0; i < kGridSize; ++i) {
        double const nm = kGridFirst + static_cast<double>(i);
        double const power =
            std::pow(560 / nm, 5) * std::expm1(c2 / (560 * kelvin)) / std::expm1(c2 / (nm * kelvin));
        sum.x += power * matching[0][i];
        sum.y += power * matching[1][i];
        sum.z += power * matching[2][i];
    }
    return Uv1960Of(sum);
}

} // namespace

DominantWavelength DominantWavelengthOf(XYZ const& colour, XYZ const& white, Observer observer) {
    Point const from = ChromaticityOf(white);
    Point const to = ChromaticityOf(colour);
    Point const direction{to.x - from.x, to.y - from.y};
    if (std::hypot(direction.x, direction.y) < 1e-9)
        throw TristimException("the white's own chromaticity has no dominant wavelength");
    Exit const ahead = LeaveLocus(from, direction, observer);
    if (ahead.wavelength > 0) return {ahead.wavelength, false, 1 / ahead.distance};
    Exit const behind = LeaveLocus(from, {-direction.x, -direction.y}, observer);
    Meeting const purple =
        Meet(from, direction, LocusAt(kLocusFirst, observer), LocusAt(kLocusLast, observer));
    return {behind.wavelength, true, 1 / purple.ray};
}

ColourTemperature ColourTemperatureOf(XYZ const& light) {
    Point const wanted = Uv1960Of(light);
    auto const distance = [&wanted](double logarithm) {
        Point const black = PlanckAt(std::exp(logarithm));
        return std::hypot(black.x - wanted.x, black.y - wanted.y);
    };
    // One minimum is along the locus near it; a coarse walk finds where, a golden section how exactly.
    double const first = std::log(1000);
    double const last = std::log(100000);
    constexpr int steps = 200;
    int best = 0;
    for (int step = 1; step <= steps; ++step)
        if (distance(first + (last - first) * step / steps) < distance(first + (last - first) * best / steps))
            best = step;
    double low = first + (last - first) * (best - 1) / steps;
    double high = first + (last - first) * (best + 1) / steps;
    double const golden = (std::sqrt(5) - 1) / 2;
    for (int step = 0; step < 60; ++step) {
        double const one = high - golden * (high - low);
        double const other = low + golden * (high - low);
        if (distance(one) < distance(other))
            high = other;
        else
            low = one;
    }
    double const kelvin = std::exp((low + high) / 2);
    Point const black = PlanckAt(kelvin);
    double const away = std::hypot(wanted.x - black.x, wanted.y - black.y);
    if (away > 0.05)
        throw TristimException("the colour is " + std::to_string(away) +
                               " away from the black body in u, v; beyond 0.05 it has no colour temperature");
    return {kelvin, std::copysign(away, wanted.y - black.y)};
}

} // namespace Norvelian::Tristim
