#include "gui/colour/SkyDrawing.h"

#include "gui/colour/WarningSign.h"

#include <algorithm>
#include <cmath>

namespace GUI {

namespace {

double const pi = 2 * std::acos(0.0);
/// From a field's edge to its outline.
constexpr double inset = 3;
constexpr int ringStep = 30;

double Radians(double degrees) { return degrees * pi / 180; }

/// How far a corner of an outline moves inward, where its two edges enclose twice that angle.
double CornerShift(double distance, double halfAngle) {
    return distance / std::sin(Radians(halfAngle)) + 0.5;
}

/// In radians. A vector without a direction gives no number, which compares as false with every angle.
double AngleBetween(SkyPoint const& a, SkyPoint const& b) {
    double const cosine =
        (a.x * b.x + a.y * b.y) / (std::sqrt(a.x * a.x + a.y * a.y) * std::sqrt(b.x * b.x + b.y * b.y));
    return std::acos(std::isnan(cosine) ? cosine : std::clamp(cosine, -1.0, 1.0));
}

} // namespace

SkyPoint SkyPoint::Polar(double radius, double degrees) {
    return {std::cos(Radians(degrees)) * radius, -std::sin(Radians(degrees)) * radius};
}

bool SkyPoint::IsInTriangle(SkyPoint const& a, SkyPoint const& b, SkyPoint const& c) const {
    auto const isSeen = [this](SkyPoint const& from, SkyPoint const& one, SkyPoint const& other) {
        double const opening = AngleBetween(one - from, other - from);
        return AngleBetween(*this - from, one - from) <= opening &&
               AngleBetween(*this - from, other - from) <= opening;
    };
    return isSeen(a, b, c) && isSeen(b, a, c);
}

RGBVector SkyDrawing::Contrast(RGBVector const& color) {
    constexpr int darkBelow = 500;
    int const sum = color.GetRed() + color.GetGreen() + color.GetBlue();
    return sum < darkBelow ? RGBVector(255, 255, 255) : RGBVector(0, 0, 0);
}

void SkyDrawing::SelectColor(RGBVector const& color, long penWidth) const {
    context_->SetPen(color, penWidth, PlatformIndependentDeviceContext::solid);
    context_->SetBrush(color);
}

void SkyDrawing::SelectContrast(RGBVector const& color) const {
    context_->SetPen(Contrast(color), 1, PlatformIndependentDeviceContext::solid);
}

void SkyDrawing::Line(SkyPoint const& from, SkyPoint const& to) const {
    context_->DrawLine(static_cast<short>(centerX_ + static_cast<int>(from.x)),
                       static_cast<short>(centerY_ + static_cast<int>(from.y)),
                       static_cast<short>(centerX_ + static_cast<int>(to.x)),
                       static_cast<short>(centerY_ + static_cast<int>(to.y)));
}

SkyDrawing::Points SkyDrawing::Polygon(std::initializer_list<SkyPoint> corners) const {
    Points points(static_cast<std::uint32_t>(corners.size()) + 1);
    std::uint32_t next = 0;
    auto const put = [&](SkyPoint const& corner) {
        points[next++] = {centerX_ + static_cast<long>(corner.x), centerY_ + static_cast<long>(corner.y)};
    };
    for (SkyPoint const& corner : corners) put(corner);
    put(*corners.begin());
    return points;
}

void SkyDrawing::Warning(double radius, double angle, RGBVector const& color) const {
    auto const x = static_cast<short>(std::cos(angle) * radius + centerX_ - WarningSign::left);
    auto const y = static_cast<short>(-std::sin(angle) * radius + centerY_ - WarningSign::above);
    WarningSign::Draw(*context_, x, y, color);
}

void SkyDrawing::RingSlice(int index, RGBVector const& color) const {
    SelectColor(color, 1);
    int const start = index * ringStep - ringStep / 2;
    context_->FillPie(centerX_, centerY_, outer_, static_cast<float>(start), ringStep);
}

void SkyDrawing::RingOutline(int index, RGBVector const& color) const {
    if (outer_ <= 0 || inner_ <= 0) return;
    int const start = index * ringStep - ringStep / 2;
    int const end = start + ringStep;
    double const corner = inset / std::sin(Radians(45));
    auto const shortened = [](short radius) { return static_cast<float>(inset / radius / pi * 180); };
    auto const arc = [&](int radius, float less) {
        context_->DrawArc(centerX_, centerY_, static_cast<short>(radius), static_cast<float>(start) + less,
                          ringStep - 2 * less);
    };
    auto const side = [&](int angle, int sign) {
        Line(SkyPoint::Polar(outer_, angle) + SkyPoint::Polar(corner, angle + sign * 135),
             SkyPoint::Polar(inner_, angle) + SkyPoint::Polar(corner, angle + sign * 45));
    };
    SelectContrast(color);
    arc(outer_ - static_cast<int>(inset), shortened(outer_));
    side(start, 1);
    arc(inner_ + static_cast<int>(inset), shortened(inner_));
    side(end, -1);
}

void SkyDrawing::RingWarning(int index, RGBVector const& color) const {
    int const degrees = ((2 * index + 1) * 360) / 24 - 15;
    int const middle = (outer_ + inner_) / 2;
    Warning(middle, degrees * 4 * std::acos(0.0) / 360, color);
}

void SkyDrawing::Disc() const {
    SelectColor(RGBVector(160, 160, 160), 1);
    context_->FillEllipse(static_cast<short>(centerX_ - inner_), static_cast<short>(centerY_ - inner_),
                          static_cast<short>(centerX_ + inner_), static_cast<short>(centerY_ + inner_));
}

void SkyDrawing::Triangle(int index, RGBVector const& color, bool isSelected) const {
    int const turn = index * 120;
    SkyPoint const corners[] = {SkyPoint::Polar(inner_, turn - 30), SkyPoint::Polar(inner_, turn + 30),
                                SkyPoint::Polar(inner_, turn + 90)};
    SelectColor(color, 2);
    context_->FillPolygon(Polygon({corners[0], corners[1], corners[2]}));
    if (isSelected) {
        double const sharp = CornerShift(inset, 15);
        SelectContrast(color);
        context_->DrawPolygon(Polygon({corners[0] + SkyPoint::Polar(sharp, turn + 105),
                                       corners[1] + SkyPoint::Polar(CornerShift(inset, 60), turn + 210),
                                       corners[2] + SkyPoint::Polar(sharp, turn - 45)}));
    }
    int const middle = inner_ - inner_ / 3;
    Warning(middle, Radians(turn + 30), color);
}

void SkyDrawing::Kite(int index, RGBVector const& color) const {
    int const turn = index * 120;
    // In whole pixels, as all radii are.
    int const half = inner_ / 2;
    SkyPoint const tip = SkyPoint::Polar(inner_, turn + 90);
    SkyPoint const before = SkyPoint::Polar(half, turn + 30);
    SkyPoint const behind = SkyPoint::Polar(half, turn + 150);
    SelectColor(color, 1);
    context_->FillPolygon(Polygon({{}, before, tip, behind}));
    SelectContrast(color);
    // An arrowhead in each outer corner: from a point on its bisector to one along each side.
    auto const mark = [&](SkyPoint const& corner, int bisector, int side, int otherSide) {
        SkyPoint const point = corner + SkyPoint::Polar(4, turn + bisector);
        Line(point, corner + SkyPoint::Polar(6, turn + side));
        Line(point, corner + SkyPoint::Polar(6, turn + otherSide));
    };
    mark(tip, -90, -60, 240);
    mark(before, 165, 210, 120);
    mark(behind, 15, 60, -30);
    Warning(half, Radians(turn + 90), color);
}

void SkyDrawing::KiteOutline(int index, RGBVector const& color) const {
    int const turn = index * 120;
    int const half = inner_ / 2;
    double const shift = CornerShift(0, 45);
    SelectContrast(color);
    context_->DrawPolygon(Polygon({SkyPoint::Polar(shift, turn + 90),
                                   SkyPoint::Polar(half, turn + 30) + SkyPoint::Polar(shift, turn + 165),
                                   SkyPoint::Polar(inner_, turn + 90) + SkyPoint::Polar(shift, turn - 90),
                                   SkyPoint::Polar(half, turn + 150) + SkyPoint::Polar(shift, turn + 15)}));
}

} // namespace GUI
