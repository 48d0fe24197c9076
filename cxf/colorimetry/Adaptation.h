#pragma once

#include "cxf/conditions/Viewing.h"

#include <array>

namespace Norvelian::Tristim {

struct Matrix3 {
    std::array<std::array<double, 3>, 3> m;

    XYZ operator*(XYZ const& v) const {
        return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z, m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z,
                m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z};
    }
    Matrix3 operator*(Matrix3 const& other) const;
};

/// The inverse; the matrix must have one.
Matrix3 Inverse(Matrix3 const& matrix);

/// Linear Bradford adaptation from one white to another (ICC.1, annex E): the corresponding colour.
Matrix3 Bradford(XYZ const& from, XYZ const& to);

/// The profile connection space's white, D50 as ICC.1 rounds it, Y = 100.
inline constexpr XYZ kIccWhite{96.42, 100, 82.49};

} // namespace Norvelian::Tristim
