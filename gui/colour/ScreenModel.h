#pragma once

#include "cxf/samples/ScreenTransform.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace GUI {

/// A screen as most are: three curves behind a matrix. It is worked out from conversions of a few colours,
/// and converts many a good deal faster than a colour management system can, which doesn't know of their
/// order. Whether the screen is such a one is tested at colours all over the space.
class ScreenModel {
public:
    using Transform = Norvelian::ColorExchangeFormat::ScreenTransform;
    using Lab = std::array<double, 3>;
    /// Shares of the light of the three channels; beyond 0 to 1 the screen has no such colour.
    using Light = std::array<float, 3>;

    explicit ScreenModel(Transform const& transform);

    /// False if the screen is something else: nothing else may be asked then.
    bool IsValid() const { return valid_; }
    /// Rows of numbers: L*, a*, b* under D50, and what they come to.
    struct Row {
        std::array<std::vector<float>, 3> lab;
        std::array<std::vector<float>, 3> light;
        /// How far the worst channel is beyond what the screen has; 0 or less for none.
        std::vector<float> beyond;
    };
    /// From `lab`; all rows of numbers have one length.
    void ToLight(Row& row) const;
    /// From 0 to 255.
    float ToDevice(std::size_t channel, float light) const {
        float const place = std::clamp(light, 0.0F, 1.0F) * static_cast<float>(steps);
        auto const step = std::min(static_cast<int>(place), static_cast<int>(steps) - 1);
        float const* const curve = curves_[channel].data() + step;
        return curve[0] + (curve[1] - curve[0]) * (place - static_cast<float>(step));
    }
    /// So much beyond, the difference passes the tolerance everywhere.
    static constexpr float certainlyBeyond = 0.1F;
    /// Whether the screen can show a colour, as `Transform` says it, when that isn't certain.
    bool IsWithinTolerance(std::array<float, 3> const& lab, Light const& light) const;

private:
    using Matrix = std::array<std::array<double, 3>, 3>;
    static constexpr std::size_t steps = 4096;

    static std::array<double, 3> Apply(Matrix const& matrix, std::array<double, 3> const& vector);
    static Matrix Inverse(Matrix const& matrix);
    static std::array<double, 3> ToXYZ(Lab const& lab);
    static Lab ToLab(std::array<double, 3> const& xyz);
    double FromDevice(std::size_t channel, double device) const;
    void ReadCurves(Transform const& transform);
    void ReadMatrix(Transform const& transform);
    bool Agrees(Transform const& transform) const;

    std::array<std::vector<float>, 3> curves_;
    Matrix toLight_ = {};
    /// Of light to shares of the white's tristimulus values.
    std::array<std::array<float, 3>, 3> toShares_ = {};
    bool valid_ = false;
};

} // namespace GUI
