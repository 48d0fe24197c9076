#pragma once

#include "cxf/conditions/NVSpectrum.h"
#include "cxf/files/SampleFile.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace CxfTest {

namespace Cxf = Norvelian::ColorExchangeFormat;
namespace Tristim = Norvelian::Tristim;
namespace Key = Tristim::Vocabulary::Key;

using KeyValues = std::initializer_list<std::pair<char const*, char const*>>;

inline Tristim::NVMeasureConditions With(KeyValues values) {
    Tristim::NVMeasureConditions conditions;
    for (auto const& [key, value] : values) conditions.SetMeasureCondition(key, value);
    return conditions;
}

inline Tristim::NVSpectrum Flat(float value, KeyValues values = {}) {
    return Tristim::NVSpectrum(std::vector<float>(Tristim::kBands, value), With(values));
}

/// A smooth reddish reflectance.
inline Tristim::NVSpectrum Reddish(KeyValues values = {}) {
    std::vector<float> bands;
    for (std::size_t i = 0; i < Tristim::kBands; ++i)
        bands.push_back(i < 20 ? 0.08F : 0.08F + 0.04F * static_cast<float>(i - 20));
    return Tristim::NVSpectrum(bands, With(values));
}

/// The message of the exception that `action` throws; a failure if it throws none.
template <class Exception, class Action> std::string MessageOf(Action const& action) {
    try {
        action();
    } catch (Exception const& failure) {
        return failure.what();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

inline Tristim::NVSpectrum SpectrumOf(Cxf::Sample const& sample) {
    return Cxf::Extensions::Cxf2NV(*sample.GetSampleAttribute("CXFSpectrum", {}, false));
}

} // namespace CxfTest
