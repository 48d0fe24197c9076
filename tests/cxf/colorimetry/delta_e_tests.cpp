#include "cxf/colorimetry/Batch.h"
#include "cxf/colorimetry/DeltaE.h"
#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/TristimException.h"
#include "tests/cxf/support.h"

#include <cmath>
#include <lcms2.h>
#include <random>

using namespace CxfTest;
using Tristim::Lab;
using Tristim::TristimException;

namespace {

double Ours(Lab const& one, Lab const& other) {
    std::array<double, 3> const a{one.l, one.a, one.b};
    std::array<double, 3> const b{other.l, other.a, other.b};
    double result = 0;
    Tristim::Batch::DeltaE2000(a, b, {&result, 1});
    return result;
}
double Theirs(Lab const& one, Lab const& other) {
    cmsCIELab const a{one.l, one.a, one.b};
    cmsCIELab const b{other.l, other.a, other.b};
    return cmsCIE2000DeltaE(&a, &b, 1, 1, 1);
}

} // namespace

TEST(Ciede2000, AgreesWithLittleCms) {
    std::mt19937 generator(11);
    std::uniform_real_distribution<double> lightness(0, 100);
    std::uniform_real_distribution<double> wide(-120, 120);
    std::normal_distribution<double> narrow(0, 2);
    for (int i = 0; i < 20000; ++i) {
        Lab const one{lightness(generator), wide(generator), wide(generator)};
        Lab other{lightness(generator), wide(generator), wide(generator)};
        if (i % 2) other = {one.l + narrow(generator), one.a + narrow(generator), one.b + narrow(generator)};
        ASSERT_NEAR(Ours(one, other), Theirs(one, other), 1e-9)
            << one.l << ' ' << one.a << ' ' << one.b << " - " << other.l << ' ' << other.a << ' ' << other.b;
    }
}

TEST(Ciede2000, HuesAtTheirJumps) {
    // Opposite hues, axes and colours without hue are where the formula branches.
    std::array<double, 9> const steps{-60, -2.5, -0.001, -1e-7, 0, 1e-7, 0.001, 2.5, 60};
    for (double const a1 : steps)
        for (double const b1 : steps)
            for (double const a2 : steps)
                for (double const b2 : steps) {
                    Lab const one{50, a1, b1};
                    Lab const other{55, a2, b2};
                    bool const opposite = a1 * b2 == a2 * b1 && a1 * a2 + b1 * b2 < 0;
                    if (opposite) {
                        // The formula jumps exactly here, and which side Little CMS takes depends on
                        // rounding: the result must be one of its two sides.
                        double const turn = 1e-6 * std::hypot(a2, b2);
                        double const length = std::hypot(a2, b2);
                        Lab const left{55, a2 - turn * b2 / length, b2 + turn * a2 / length};
                        Lab const right{55, a2 + turn * b2 / length, b2 - turn * a2 / length};
                        double const off = std::min(std::abs(Ours(one, other) - Theirs(one, left)),
                                                    std::abs(Ours(one, other) - Theirs(one, right)));
                        ASSERT_LT(off, 1e-4) << a1 << ' ' << b1 << " - " << a2 << ' ' << b2;
                        continue;
                    }
                    ASSERT_NEAR(Ours(one, other), Theirs(one, other), 1e-9)
                        << a1 << ' ' << b1 << " - " << a2 << ' ' << b2;
                }
}

TEST(DeltaE, FormulasThroughTheService) {
    auto const reference = Flat(0.5F);
    auto const sample = Reddish();
    for (std::string const& formula : Tristim::TristimService::GetSupportedValues(Key::DeltaEFormula)) {
        Tristim::NVMeasureConditions conditions;
        conditions.SetMeasureCondition(Key::DeltaEFormula, formula);
        auto const differ = [&](float w1, float w2, float w3) {
            return Tristim::TristimService::GetDeltaE(reference, sample, conditions, w1, w2, w3);
        };
        float const plain = differ(0, 0, 0);
        EXPECT_GT(plain, 1) << formula;
        EXPECT_FLOAT_EQ(Tristim::TristimService::GetDeltaE(sample, sample, conditions, 0, 0, 0), 0)
            << formula;
        bool const weighted = formula == "CMC" || formula == "94" || formula == "2000";
        if (weighted) {
            EXPECT_FLOAT_EQ(plain, differ(formula == "CMC" ? 2 : 1, 1, 1))
                << formula << ": zero is the default";
            EXPECT_LT(differ(9, 0, 0), plain) << formula;
            EXPECT_LT(differ(0, 9, 0), plain) << formula;
        } else {
            EXPECT_FLOAT_EQ(plain, differ(9, 9, 9)) << formula << " has no weights";
        }
        EXPECT_THROW(differ(-1, 0, 0), TristimException);
        EXPECT_THROW(differ(0, NAN, 0), TristimException);
        // Nothing that a measurement can give makes a difference that isn't a number.
        for (float const odd : {-0.2F, 0.0F, 1.7F})
            EXPECT_TRUE(
                std::isfinite(Tristim::TristimService::GetDeltaE(Flat(odd), Reddish(), conditions, 0, 0, 0)))
                << formula;
    }
}
