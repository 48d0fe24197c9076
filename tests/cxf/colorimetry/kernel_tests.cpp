#include "cxf/colorimetry/Batch.h"
#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/colorimetry/Kernels.h"
#include "cxf/conditions/TristimException.h"
#include "tests/cxf/support.h"

#include <cmath>
#include <limits>
#include <random>

using namespace CxfTest;
namespace Kernels = Tristim::Kernels;

namespace {

std::vector<float> RandomSpectra(std::size_t n) {
    std::mt19937 generator(3);
    std::uniform_real_distribution<float> value(-0.1F, 1.2F);
    std::vector<float> spectra(n * Tristim::kBands);
    for (float& v : spectra) v = value(generator);
    return spectra;
}

} // namespace

TEST(Batch, EveryLengthAgreesWithTheExactSums) {
    auto const weights = Tristim::WeightsFor({});
    for (std::size_t const n : {0, 1, 2, 127, 128, 129, 300}) {
        auto const spectra = RandomSpectra(n);
        std::vector<float> xyz(3 * n);
        std::vector<float> lab(3 * n);
        std::vector<double> exact(3 * n);
        std::vector<double> exactLab(3 * n);
        Tristim::Batch::SpectraToXYZ(spectra, *weights, std::span<float>(xyz));
        Tristim::Batch::SpectraToLab(spectra, *weights, lab);
        Tristim::Batch::SpectraToXYZ(spectra, *weights, std::span<double>(exact));
        Tristim::Batch::XYZToLab(exact, weights->white, exactLab);
        for (std::size_t i = 0; i < 3 * n; ++i) {
            ASSERT_NEAR(static_cast<double>(xyz[i]), exact[i], 1e-4);
            ASSERT_NEAR(static_cast<double>(lab[i]), exactLab[i], 2e-4);
        }
    }
}

TEST(Batch, LabKeepsItsAccuracyFromBlackToBeyondWhite) {
    auto const weights = Tristim::WeightsFor({});
    for (double value = -0.1; value < 3; value = value < 0.02 ? value + 0.0005 : value * 1.1) {
        std::vector<float> const spectrum(Tristim::kBands, static_cast<float>(value));
        std::vector<float> lab(3);
        Tristim::Batch::SpectraToLab(spectrum, *weights, lab);
        EXPECT_NEAR(static_cast<double>(lab[0]), Tristim::Lightness(static_cast<double>(spectrum[0])), 1e-4)
            << value;
        EXPECT_NEAR(static_cast<double>(lab[1]), 0, 2e-4) << value;
    }
}

TEST(Batch, WrongLengthsAreRefused) {
    auto const weights = Tristim::WeightsFor({});
    std::vector<float> const spectra(73);
    std::vector<float> xyz(6);
    EXPECT_THROW(Tristim::Batch::SpectraToXYZ(spectra, *weights, std::span<float>(xyz)),
                 Tristim::TristimException);
    std::vector<double> const lab(6);
    std::vector<double> difference(3);
    EXPECT_THROW(Tristim::Batch::DeltaE2000(lab, lab, difference), Tristim::TristimException);
}

TEST(Batch, ANumberThatIsNoneStaysNone) {
    auto const weights = Tristim::WeightsFor({});
    std::vector<float> spectrum(Tristim::kBands, 0.5F);
    spectrum[20] = std::numeric_limits<float>::quiet_NaN();
    std::vector<float> lab(3);
    Tristim::Batch::SpectraToLab(spectrum, *weights, lab);
    EXPECT_TRUE(std::isnan(lab[0]));
    for (std::size_t place = 0; place < 3; ++place) {
        std::vector<double> const one{50, 10, 10};
        std::vector<double> other = one;
        other[place] = std::numeric_limits<double>::quiet_NaN();
        double difference = 0;
        Tristim::Batch::DeltaE2000(one, other, {&difference, 1});
        EXPECT_TRUE(std::isnan(difference)) << place;
    }
}

TEST(Kernels, VectorPathEqualsThePortableOne) {
    Kernels::Table const* const fast = Kernels::Avx2();
    if (!fast) GTEST_SKIP() << "this processor has no AVX2";
    Kernels::Table const& plain = Kernels::Portable();
    constexpr std::size_t n = 1000;
    auto const weights = Tristim::WeightsFor({});
    auto const spectra = RandomSpectra(n);
    std::vector<float> a(3 * n);
    std::vector<float> b(3 * n);
    plain.spectraToXYZ(spectra.data(), weights->fast.data(), a.data(), n);
    fast->spectraToXYZ(spectra.data(), weights->fast.data(), b.data(), n);
    for (std::size_t i = 0; i < 3 * n; ++i) ASSERT_NEAR(a[i], b[i], 2e-6F * 100);
    float const white[3] = {96.42F, 100, 82.51F};
    plain.spectraToLab(spectra.data(), weights->fast.data(), white, a.data(), n);
    fast->spectraToLab(spectra.data(), weights->fast.data(), white, b.data(), n);
    for (std::size_t i = 0; i < 3 * n; ++i) ASSERT_NEAR(a[i], b[i], 2e-4F);

    std::mt19937 generator(7);
    std::uniform_real_distribution<double> value(-100, 100);
    std::vector<double> one(3 * n);
    std::vector<double> other(3 * n);
    for (double& v : one) v = value(generator);
    for (double& v : other) v = value(generator);
    // Opposite hues go another way through the kernel.
    for (std::size_t i = 0; i < n; i += 7) {
        other[3 * i + 1] = -one[3 * i + 1];
        other[3 * i + 2] = -one[3 * i + 2];
    }
    double const parameters[3] = {1, 2, 0.5};
    std::vector<double> x(n);
    std::vector<double> y(n);
    plain.deltaE2000(one.data(), other.data(), parameters, x.data(), n);
    fast->deltaE2000(one.data(), other.data(), parameters, y.data(), n);
    for (std::size_t i = 0; i < n; ++i) ASSERT_NEAR(x[i], y[i], 1e-12 * (1 + x[i]));
}
