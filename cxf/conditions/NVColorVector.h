#pragma once

#include "cxf/conditions/NVMeasureConditions.h"

#include <string>
#include <vector>

namespace Norvelian::Tristim {

/// A colour in one colour space, or a difference of two, together with the conditions it holds under:
/// illuminant, observer, white base, spectrum type, filter, colour space and method of computation.
/// Elements are handed out as float; the exact numbers are kept beside, so that conversions between
/// spaces lose nothing.
class NVColorVector {
public:
    /// Throws `TristimException` if the number of values isn't that of the conditions' colour space or a
    /// value isn't finite.
    NVColorVector(std::vector<double> values, NVMeasureConditions conditions);

    short GetSize() const { return static_cast<short>(values_.size()); }
    /// Throw `TristimException` for an index outside of the vector.
    float GetElement(short index) const { return static_cast<float>(GetExact(index)); }
    double GetExact(short index) const;
    std::string GetElementName(short index) const { return conditions_.GetElementName(index); }

    std::vector<float> GetValues() const { return {values_.begin(), values_.end()}; }
    std::vector<double> const& GetExactValues() const { return values_; }
    NVMeasureConditions const& GetMeasureConditions() const { return conditions_; }

private:
    std::vector<double> values_;
    NVMeasureConditions conditions_;
};

} // namespace Norvelian::Tristim
