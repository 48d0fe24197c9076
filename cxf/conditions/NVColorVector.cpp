#include "cxf/conditions/NVColorVector.h"

#include "cxf/conditions/TristimException.h"

#include <cmath>
#include <utility>

namespace Norvelian::Tristim {

using namespace Vocabulary;

NVColorVector::NVColorVector(std::vector<double> values, NVMeasureConditions conditions)
    : values_(std::move(values)), conditions_(std::move(conditions)) {
    std::size_t const space = conditions_.GetChoice(Key::ColorSpaceType, Value::ColorSpaceType, 0);
    std::size_t const expected = ElementNames[space].absolute[3] ? 4 : 3;
    if (values_.size() != expected)
        throw TristimException("a vector of " + std::string(Value::ColorSpaceType[space]) + " has " +
                               std::to_string(expected) + " elements; got " + std::to_string(values_.size()));
    for (double const value : values_)
        if (!std::isfinite(value))
            throw TristimException("an element of a colour vector is not a finite number");
}

double NVColorVector::GetExact(short index) const {
    if (index < 0 || index >= GetSize())
        throw TristimException("a colour vector of " + std::to_string(GetSize()) +
                               " elements has no element " + std::to_string(index));
    return values_[static_cast<std::size_t>(index)];
}

} // namespace Norvelian::Tristim
