#include "cxf/colorimetry/Adaptation.h"

namespace Norvelian::Tristim {

Matrix3 Matrix3::operator*(Matrix3 const& other) const {
    Matrix3 product{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            for (std::size_t k = 0; k < 3; ++k) product.m[row][column] += m[row][k] * other.m[k][column];
    return product;
}

Matrix3 Inverse(Matrix3 const& matrix) {
    auto const& m = matrix.m;
    auto const minor = [&m](std::size_t row, std::size_t column) {
        std::size_t const r1 = (row + 1) % 3, r2 = (row + 2) % 3;
        std::size_t const c1 = (column + 1) % 3, c2 = (column + 2) % 3;
        return m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
    };
    double const determinant = m[0][0] * minor(0, 0) + m[0][1] * minor(0, 1) + m[0][2] * minor(0, 2);
    Matrix3 inverse{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            inverse.m[row][column] = minor(column, row) / determinant;
    return inverse;
}

Matrix3 Bradford(XYZ const& from, XYZ const& to) {
    static Matrix3 const cone{
        {{{0.8951, 0.2664, -0.1614}, {-0.7502, 1.7135, 0.0367}, {0.0389, -0.0685, 1.0296}}}};
    static Matrix3 const back = Inverse(cone);
    XYZ const source = cone * from;
    XYZ const target = cone * to;
    Matrix3 const scale{
        {{{target.x / source.x, 0, 0}, {0, target.y / source.y, 0}, {0, 0, target.z / source.z}}}};
    return back * (scale * cone);
}

} // namespace Norvelian::Tristim
