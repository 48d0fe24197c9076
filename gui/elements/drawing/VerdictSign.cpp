#include "gui/elements/drawing/VerdictSign.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <string_view>

namespace GUI {

using Utilities::String;

namespace {

using Context = PlatformIndependentDeviceContext;

constexpr std::string_view names[] = {"NoData", "Pass", "Marginal", "Fail"};

struct Point {
    double x;
    double y;
};

/// Draws in a square of size 1.
class UnitSquare {
public:
    UnitSquare(Context& context, short left, short top, short size)
        : context_(context), left_(left), top_(top), size_(size) {}

    short X(double x) const { return static_cast<short>(std::lround(left_ + x * size_)); }
    short Y(double y) const { return static_cast<short>(std::lround(top_ + y * size_)); }

    void Fill(std::span<Point const> outline) const {
        Context::Points points(static_cast<std::uint32_t>(outline.size()));
        for (std::uint32_t i = 0; i < points.GetSize(); ++i) points[i] = {X(outline[i].x), Y(outline[i].y)};
        context_.FillPolygon(points);
    }
    void Disc(Point middle, double radius) const {
        context_.FillEllipse(X(middle.x - radius), Y(middle.y - radius), X(middle.x + radius),
                             Y(middle.y + radius));
    }
    /// With round ends.
    void Stroke(Point from, Point to, double width) const {
        double const length = std::hypot(to.x - from.x, to.y - from.y);
        double const dx = (to.y - from.y) / length * width / 2;
        double const dy = (from.x - to.x) / length * width / 2;
        std::array<Point, 4> const quad{{{from.x + dx, from.y + dy},
                                         {to.x + dx, to.y + dy},
                                         {to.x - dx, to.y - dy},
                                         {from.x - dx, from.y - dy}}};
        Fill(quad);
        Disc(from, width / 2);
        Disc(to, width / 2);
    }

private:
    Context& context_;
    double left_;
    double top_;
    double size_;
};

void UseFill(Context& context, RGBVector const& color) {
    context.SetBrush(color);
    context.SetPen(color, 1, Context::noPen);
}

void DrawRing(Context& context, RGBVector const& color, UnitSquare const& square, short size) {
    constexpr int dashes = 10;
    constexpr float step = 360.0F / dashes;
    long const width = std::max(1L, std::lround(size * 0.07));
    context.SetPen(color, width, Context::solid);
    auto const radius = static_cast<short>(std::lround(size * 0.45));
    for (int i = 0; i < dashes; ++i)
        context.DrawArc(square.X(0.5), square.Y(0.5), radius, static_cast<float>(i) * step, step * 0.62F);
    UseFill(context, color);
    square.Stroke({0.34, 0.5}, {0.66, 0.5}, 0.09);
}

} // namespace

char const* WordOf(VerdictKind kind) {
    switch (kind) {
    case VerdictKind::Pass:
        return "PASS";
    case VerdictKind::Marginal:
        return "MARGINAL";
    case VerdictKind::Fail:
        return "FAIL";
    default:
        return "NO DATA";
    }
}

std::optional<VerdictKind> FindVerdict(String const& name) {
    auto const* const found =
        std::find(std::begin(names), std::end(names), std::string_view(name.GetStdString()));
    if (found == std::end(names)) return {};
    return static_cast<VerdictKind>(found - std::begin(names));
}

VerdictTones VerdictTones::Of(VerdictKind kind) {
    switch (kind) {
    case VerdictKind::Pass:
        return {Themed(ThemeRole::Pass), Themed(ThemeRole::PassInk), {}};
    case VerdictKind::Marginal:
        return {Themed(ThemeRole::Warn), Themed(ThemeRole::WarnInk), Themed(ThemeRole::WarnInk)};
    case VerdictKind::Fail:
        return {Themed(ThemeRole::Fail), Themed(ThemeRole::FailInk), {}};
    default:
        return {Themed(ThemeRole::Nodata), Themed(ThemeRole::Ink), {}};
    }
}

VerdictTones VerdictTones::InInk(RGBVector const& ground) { return {Themed(ThemeRole::Ink), ground, {}}; }

VerdictTones VerdictTones::Reversed(VerdictKind kind) {
    VerdictTones const own = Of(kind);
    return {own.glyph, own.body, {}};
}

void DrawVerdictSign(Context& context, VerdictKind kind, VerdictTones const& tones, short left, short top,
                     short size) {
    UnitSquare const square(context, left, top, size);
    context.SetSmooth(true);
    UseFill(context, tones.body);
    switch (kind) {
    case VerdictKind::Pass:
        square.Disc({0.5, 0.5}, 0.5);
        UseFill(context, tones.glyph);
        square.Stroke({0.27, 0.53}, {0.44, 0.69}, 0.11);
        square.Stroke({0.44, 0.69}, {0.74, 0.33}, 0.11);
        break;
    case VerdictKind::Marginal: {
        if (tones.outline) context.SetPen(*tones.outline, 1, Context::solid);
        constexpr Point triangle[] = {{0.5, 0.06}, {0.98, 0.92}, {0.02, 0.92}};
        square.Fill(triangle);
        UseFill(context, tones.glyph);
        square.Stroke({0.5, 0.4}, {0.5, 0.62}, 0.09);
        square.Disc({0.5, 0.79}, 0.06);
        break;
    }
    case VerdictKind::Fail:
        context.FillRectangle(square.X(0.03), square.Y(0.03), square.X(0.97), square.Y(0.97));
        UseFill(context, tones.glyph);
        square.Stroke({0.29, 0.29}, {0.71, 0.71}, 0.11);
        square.Stroke({0.71, 0.29}, {0.29, 0.71}, 0.11);
        break;
    default:
        DrawRing(context, tones.body, square, size);
    }
    context.SetSmooth(false);
}

} // namespace GUI
