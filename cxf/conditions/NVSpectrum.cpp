#include "cxf/conditions/NVSpectrum.h"

#include "cxf/conditions/TristimException.h"

#include <cmath>
#include <string>
#include <utility>

namespace Norvelian::Tristim {

NVSpectrum::NVSpectrum(std::vector<float> values, NVMeasureConditions conditions)
    : values_(std::move(values)), conditions_(std::move(conditions)) {
    using namespace Vocabulary;
    if (values_.size() != kBands)
        throw TristimException("a spectrum has 36 values; got " + std::to_string(values_.size()));
    for (std::size_t band = 0; band < kBands; ++band)
        if (!std::isfinite(values_[band]))
            throw TristimException("the spectrum's value at " +
                                   std::to_string(kBandFirst + kBandStep * band) +
                                   " nm is not a finite number");
    auto const complete = [this](Text key, Text value) {
        if (conditions_.GetMeasureCondition(key).empty()) conditions_.SetMeasureCondition(key, value);
    };
    complete(Key::NumberOfDataPointsSpectrum, Value::NumberOfDataPointsSpectrum[0]);
    complete(Key::WavelengthSpectrumMin, Value::WavelengthSpectrumMin[0]);
    complete(Key::WavelengthSpectrumMax, Value::WavelengthSpectrumMax[0]);
    if (conditions_.GetMeasureCondition(Key::SpectrumType).empty())
        conditions_.Assume(Key::SpectrumType, Value::SpectrumType[0], kLibraryDefault);
}

} // namespace Norvelian::Tristim
