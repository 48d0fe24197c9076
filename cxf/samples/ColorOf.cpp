#include "cxf/samples/ColorOf.h"

#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/TristimException.h"

#include <string>

namespace Norvelian::ColorExchangeFormat {

using Tristim::TristimException;
using Tristim::TristimService;
using namespace Tristim::Vocabulary;

namespace {

bool IsDevice(ColorVector const& colour) {
    std::string const space = colour.GetConditions().GetAttribute(Key::ColorSpaceType, "");
    bool const viewed = !colour.GetConditions().GetAttribute(Key::Illumination, "").empty();
    return !viewed && (space == "RGB" || space == "CMYK");
}

} // namespace

Tristim::NVColorVector ColorOf(Sample const& sample, Tristim::NVMeasureConditions const& conditions) {
    std::string const named = "sample \"" + sample.GetName() + "\": ";
    auto const spectrum = sample.GetSampleAttribute(Format::Spectrum, {}, false);
    if (!spectrum.IsNull()) {
        try {
            return TristimService::GetVector(Extensions::Cxf2NV(*spectrum), conditions);
        } catch (TristimException const& failure) {
            throw TristimException(named + failure.what());
        }
    }
    std::string reason = "it has neither a spectrum nor a colour";
    for (auto const& attribute : sample.GetSampleAttributes()) {
        auto const* const colour = dynamic_cast<ColorVector const*>(attribute.Get());
        if (!colour || IsDevice(*colour)) continue;
        try {
            return TristimService::Convert(colour->GetVector(), conditions);
        } catch (TristimException const& failure) {
            reason = failure.what();
        }
    }
    throw TristimException(named + reason);
}

ColorVector const* DeviceColourOf(Sample const& sample) {
    for (auto const& attribute : sample.GetSampleAttributes()) {
        auto const* const colour = dynamic_cast<ColorVector const*>(attribute.Get());
        if (colour && IsDevice(*colour)) return colour;
    }
    return nullptr;
}

} // namespace Norvelian::ColorExchangeFormat
