#pragma once

#include "cxf/conditions/NVMeasureConditions.h"

#include <vector>

namespace Norvelian::Tristim {

/// A spectrum: 36 values, value i at 380 + 10 i nm, and how it was measured. Reflectances and
/// transmittances are fractions (1 is the perfect diffuser); negative values and values above 1 are
/// kept as measured.
class NVSpectrum {
public:
    /// Throws `TristimException` unless there are exactly 36 finite values. Number of points and range are
    /// set if the conditions don't say them, and a missing type is assumed to be "Remission". A filter that
    /// nobody stated stays unknown.
    explicit NVSpectrum(std::vector<float> values, NVMeasureConditions conditions = {});

    std::vector<float> const& GetValues() const { return values_; }
    NVMeasureConditions const& GetMeasureConditions() const { return conditions_; }

private:
    std::vector<float> values_;
    NVMeasureConditions conditions_;
};

} // namespace Norvelian::Tristim
