#include "cxf/colorimetry/Batch.h"

#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/colorimetry/Kernels.h"
#include "cxf/conditions/TristimException.h"

#include <string>

namespace Norvelian::Tristim::Batch {

namespace {

/// The number of colours, if both arrays hold the same number.
std::size_t Count(std::size_t input, std::size_t inputEach, std::size_t output, std::size_t outputEach) {
    if (input % inputEach == 0 && output % outputEach == 0 && input / inputEach == output / outputEach)
        return input / inputEach;
    throw TristimException("arrays don't fit: " + std::to_string(input) + " values in groups of " +
                           std::to_string(inputEach) + ", room for " + std::to_string(output) +
                           " in groups of " + std::to_string(outputEach));
}

} // namespace

void SpectraToXYZ(std::span<float const> spectra, WeightSet const& weights, std::span<float> xyz) {
    std::size_t const n = Count(spectra.size(), kBands, xyz.size(), 3);
    Kernels::Best().spectraToXYZ(spectra.data(), weights.fast.data(), xyz.data(), n);
}

void SpectraToXYZ(std::span<float const> spectra, WeightSet const& weights, std::span<double> xyz) {
    std::size_t const n = Count(spectra.size(), kBands, xyz.size(), 3);
    for (std::size_t i = 0; i < n; ++i) {
        double x = 0;
        double y = 0;
        double z = 0;
        for (std::size_t band = 0; band < kBands; ++band) {
            double const value = static_cast<double>(spectra[i * kBands + band]);
            x += value * weights.x[band];
            y += value * weights.y[band];
            z += value * weights.z[band];
        }
        xyz[3 * i] = x;
        xyz[3 * i + 1] = y;
        xyz[3 * i + 2] = z;
    }
}

void SpectraToLab(std::span<float const> spectra, WeightSet const& weights, std::span<float> lab) {
    std::size_t const n = Count(spectra.size(), kBands, lab.size(), 3);
    float const white[3] = {static_cast<float>(weights.white.x), static_cast<float>(weights.white.y),
                            static_cast<float>(weights.white.z)};
    Kernels::Best().spectraToLab(spectra.data(), weights.fast.data(), white, lab.data(), n);
}

void XYZToLab(std::span<double const> xyz, XYZ const& white, std::span<double> lab) {
    std::size_t const n = Count(xyz.size(), 3, lab.size(), 3);
    for (std::size_t i = 0; i < n; ++i) {
        Lab const one = LabOf({xyz[3 * i], xyz[3 * i + 1], xyz[3 * i + 2]}, white);
        lab[3 * i] = one.l;
        lab[3 * i + 1] = one.a;
        lab[3 * i + 2] = one.b;
    }
}

void DeltaE2000(std::span<double const> lab1, std::span<double const> lab2, std::span<double> result,
                double kL, double kC, double kH) {
    std::size_t const n = Count(lab1.size(), 3, result.size(), 1);
    Count(lab2.size(), 3, result.size(), 1);
    double const parameters[3] = {kL, kC, kH};
    Kernels::Best().deltaE2000(lab1.data(), lab2.data(), parameters, result.data(), n);
}

} // namespace Norvelian::Tristim::Batch
