#include "gui/colour/ScreenModel.h"

#include <algorithm>
#include <cmath>

namespace GUI {

namespace {

/// Of the profile connection space.
constexpr std::array<double, 3> white{0.9642, 1.0, 0.8249};
/// CIE 15: where the cube root goes over into a line.
constexpr double bend = 6.0 / 29;
constexpr double slope = 3 * bend * bend;
constexpr double offset = 4.0 / 29;

} // namespace

ScreenModel::ScreenModel(Transform const& transform) {
    ReadCurves(transform);
    ReadMatrix(transform);
    valid_ = Agrees(transform);
}

std::array<double, 3> ScreenModel::Apply(Matrix const& matrix, std::array<double, 3> const& vector) {
    std::array<double, 3> result = {};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k) result[i] += matrix[i][k] * vector[k];
    return result;
}

ScreenModel::Matrix ScreenModel::Inverse(Matrix const& m) {
    auto const minor = [&m](std::size_t row, std::size_t column) {
        std::size_t const r1 = (row + 1) % 3;
        std::size_t const r2 = (row + 2) % 3;
        std::size_t const c1 = (column + 1) % 3;
        std::size_t const c2 = (column + 2) % 3;
        return m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
    };
    double const determinant = m[0][0] * minor(0, 0) + m[0][1] * minor(0, 1) + m[0][2] * minor(0, 2);
    Matrix result = {};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k) result[i][k] = minor(k, i) / determinant;
    return result;
}

std::array<double, 3> ScreenModel::ToXYZ(Lab const& lab) {
    double const fy = (lab[0] + 16) / 116;
    std::array<double, 3> xyz{fy + lab[1] / 500, fy, fy - lab[2] / 200};
    for (std::size_t i = 0; i < 3; ++i)
        xyz[i] = white[i] * (xyz[i] > bend ? xyz[i] * xyz[i] * xyz[i] : (xyz[i] - offset) * slope);
    return xyz;
}

ScreenModel::Lab ScreenModel::ToLab(std::array<double, 3> const& xyz) {
    std::array<double, 3> f = {};
    for (std::size_t i = 0; i < 3; ++i) {
        double const share = xyz[i] / white[i];
        f[i] = share > bend * bend * bend ? std::cbrt(share) : share / slope + offset;
    }
    return {116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2])};
}

void ScreenModel::ReadCurves(Transform const& transform) {
    // Of a grey each channel gives the same share of its light.
    std::vector<double> greys;
    for (std::size_t i = 0; i <= steps; ++i) {
        double const light = static_cast<double>(i) / steps;
        Lab const lab = ToLab({white[0] * light, white[1] * light, white[2] * light});
        greys.insert(greys.end(), lab.begin(), lab.end());
    }
    std::vector<Transform::Shown> shown(steps + 1);
    transform.Evaluate(greys, shown);
    for (std::size_t channel = 0; channel < 3; ++channel)
        for (auto const& grey : shown)
            curves_[channel].push_back(static_cast<float>(255 * std::clamp(grey.rgb[channel], 0.0, 1.0)));
}

void ScreenModel::ReadMatrix(Transform const& transform) {
    // Three colours that every screen can show, far apart.
    constexpr std::array<double, 9> labs{55, 45, 30, 60, -35, 35, 45, 5, -40};
    std::array<Transform::Shown, 3> shown;
    transform.Evaluate(labs, shown);
    Matrix light = {};
    Matrix xyz = {};
    for (std::size_t k = 0; k < 3; ++k) {
        auto const colour = ToXYZ({labs[3 * k], labs[3 * k + 1], labs[3 * k + 2]});
        for (std::size_t i = 0; i < 3; ++i) {
            light[i][k] = FromDevice(i, 255 * shown[k].rgb[i]);
            xyz[i][k] = colour[i];
        }
    }
    Matrix const inverse = Inverse(xyz);
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            for (std::size_t j = 0; j < 3; ++j) toLight_[i][k] += light[i][j] * inverse[j][k];
    Matrix const toXYZ = Inverse(toLight_);
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k) toShares_[i][k] = static_cast<float>(toXYZ[i][k] / white[i]);
}

double ScreenModel::FromDevice(std::size_t channel, double device) const {
    auto const& curve = curves_[channel];
    auto const above = std::upper_bound(curve.begin(), curve.end(), static_cast<float>(device));
    if (above == curve.begin()) return 0;
    if (above == curve.end()) return 1;
    auto const below = above - 1;
    double const rise = static_cast<double>(*above) - static_cast<double>(*below);
    double const part = rise > 0 ? (device - static_cast<double>(*below)) / rise : 0;
    return (static_cast<double>(below - curve.begin()) + part) / steps;
}

bool ScreenModel::Agrees(Transform const& transform) const {
    constexpr double farthest = 1;
    std::vector<double> labs;
    for (int l = 5; l <= 95; l += 15)
        for (int a = -100; a <= 100; a += 20)
            for (int b = -100; b <= 100; b += 20)
                for (int const value : {l, a, b}) labs.push_back(value);
    std::vector<Transform::Shown> shown(labs.size() / 3);
    transform.Evaluate(labs, shown);
    for (std::size_t k = 0; k < shown.size(); ++k) {
        if (shown[k].difference > 0.5) continue;
        auto const light = Apply(toLight_, ToXYZ({labs[3 * k], labs[3 * k + 1], labs[3 * k + 2]}));
        for (std::size_t i = 0; i < 3; ++i) {
            double const device = static_cast<double>(ToDevice(i, static_cast<float>(light[i])));
            // Written so that what is no number doesn't agree.
            if (!(std::abs(device - 255 * std::clamp(shown[k].rgb[i], 0.0, 1.0)) <= farthest)) return false;
        }
    }
    return true;
}

void ScreenModel::ToLight(Row& row) const {
    std::array<std::array<float, 3>, 3> m = {};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k) m[i][k] = static_cast<float>(toLight_[i][k] * white[k]);
    auto const inverse = [](float f) {
        constexpr auto at = static_cast<float>(bend);
        float const cube = f * f * f;
        float const line = (f - static_cast<float>(offset)) * static_cast<float>(slope);
        return f > at ? cube : line;
    };
    std::size_t const count = row.beyond.size();
    float const* const lightness = row.lab[0].data();
    float const* const a = row.lab[1].data();
    float const* const b = row.lab[2].data();
    float* const red = row.light[0].data();
    float* const green = row.light[1].data();
    float* const blue = row.light[2].data();
    float* const beyond = row.beyond.data();
    for (std::size_t i = 0; i < count; ++i) {
        float const fy = (lightness[i] + 16) * (1.0F / 116);
        float const x = inverse(fy + a[i] * (1.0F / 500));
        float const y = inverse(fy);
        float const z = inverse(fy - b[i] * (1.0F / 200));
        float const r = m[0][0] * x + m[0][1] * y + m[0][2] * z;
        float const g = m[1][0] * x + m[1][1] * y + m[1][2] * z;
        float const v = m[2][0] * x + m[2][1] * y + m[2][2] * z;
        red[i] = r;
        green[i] = g;
        blue[i] = v;
        float const least = r < g ? r : g;
        float const most = r < g ? g : r;
        float const below = -(v < least ? v : least);
        float const above = (v < most ? most : v) - 1;
        beyond[i] = below < above ? above : below;
    }
}

bool ScreenModel::IsWithinTolerance(std::array<float, 3> const& lab, Light const& light) const {
    std::array<float, 3> f = {};
    for (std::size_t i = 0; i < 3; ++i) {
        float share = 0;
        for (std::size_t k = 0; k < 3; ++k) share += toShares_[i][k] * std::clamp(light[k], 0.0F, 1.0F);
        f[i] = share > static_cast<float>(bend * bend * bend)
                   ? std::cbrt(share)
                   : share / static_cast<float>(slope) + static_cast<float>(offset);
    }
    float const dl = lab[0] - (116 * f[1] - 16);
    float const da = lab[1] - 500 * (f[0] - f[1]);
    float const db = lab[2] - 200 * (f[1] - f[2]);
    constexpr auto most = static_cast<float>(Transform::gamutTolerance * Transform::gamutTolerance);
    return dl * dl + da * da + db * db <= most;
}

} // namespace GUI
