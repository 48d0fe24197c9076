#pragma once

#include <cstddef>

/// The inner loops of the batch operations, once for any processor and once for processors with AVX2 and
/// FMA. Both are the same source, compiled twice; sums may be ordered differently, so that results agree
/// within 2e-6 relative (float) and 1e-12 relative (double). `Batch.h` is what to call.
namespace Norvelian::Tristim::Kernels {

struct Table {
    /// n spectra of 36 floats times weights of 3 x 36 floats.
    void (*spectraToXYZ)(float const* spectra, float const* weights, float* xyz, std::size_t n);
    /// The same, then L*a*b* for the white point.
    void (*spectraToLab)(float const* spectra, float const* weights, float const* white, float* lab,
                         std::size_t n);
    /// CIEDE2000 of n pairs; `parameters` are kL, kC, kH.
    void (*deltaE2000)(double const* lab1, double const* lab2, double const* parameters, double* result,
                       std::size_t n);
};

Table const& Portable();
/// Null if this processor or this build doesn't have it.
Table const* Avx2();
/// The best for this processor, chosen once.
Table const& Best();

} // namespace Norvelian::Tristim::Kernels
