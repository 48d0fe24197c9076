#include "cxf/samples/ColorOf.h"

#include "cxf/colorimetry/Resolved.h"
#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"

#include <string>

namespace Norvelian::ColorExchangeFormat {

using Tristim::TristimException;
using Tristim::TristimService;
using Tristim::XYZ;
using namespace Tristim::Vocabulary;

namespace {

bool IsDevice(ColorVector const& colour) {
    std::string const space = colour.GetConditions().GetAttribute(Key::ColorSpaceType, "");
    bool const viewed = !colour.GetConditions().GetAttribute(Key::Illumination, "").empty();
    return !viewed && (space == "RGB" || space == "CMYK");
}

Tristim::NVColorVector NativeColorOf(Spectrum const& spectrum, Tristim::NVMeasureConditions const& asked) {
    // The bands are made for their checks and conditions only.
    Tristim::NVMeasureConditions measured = Extensions::Cxf2NV(spectrum).GetMeasureConditions();
    bool const extended = spectrum.GetFirst() > Tristim::kBandFirst + 0.01 || spectrum.GetLast() < 729.99;
    measured.Forget(Key::Resampling);
    Tristim::Resolved const resolved = Tristim::Resolve(asked, measured);
    if (resolved.viewing.correctBandpass)
        throw TristimException(
            "the bandpass is corrected by 36 bands only, not at the wavelengths of the file");
    XYZ const absolute = Tristim::IntegrateNative(spectrum.GetValues(), spectrum.GetFirst(),
                                                  spectrum.GetStep(), resolved.viewing);
    XYZ const& white = resolved.weights->white;
    Tristim::NVMeasureConditions conditions = resolved.conditions;
    conditions.SetMeasureCondition(Key::ColorSpaceType, "CIEXYZ");
    conditions.SetMeasureCondition(
        Key::Method, "sum over 1 nm, values by " + Tristim::Numbers::Shortest(spectrum.GetStep()) +
                         " nm interpolated by Lagrange's cubic, CIE 1 nm and 5 nm tables (2019)");
    if (extended)
        conditions.SetMeasureCondition(
            Key::Resampling, "end values repeated below " + Tristim::Numbers::Shortest(spectrum.GetFirst()) +
                                 " nm and above " + Tristim::Numbers::Shortest(spectrum.GetLast()) + " nm");
    Tristim::NVColorVector const xyz({absolute.x * (white.x / resolved.paper->x),
                                      absolute.y * (white.y / resolved.paper->y),
                                      absolute.z * (white.z / resolved.paper->z)},
                                     conditions);
    Tristim::NVMeasureConditions space;
    if (std::string const name = asked.GetMeasureCondition(Key::ColorSpaceType); !name.empty())
        space.SetMeasureCondition(Key::ColorSpaceType, name);
    return TristimService::Convert(xyz, space);
}

} // namespace

Tristim::NVColorVector ColorOf(Sample const& sample, Tristim::NVMeasureConditions const& conditions) {
    std::string const named = "sample \"" + sample.GetName() + "\": ";
    auto const spectrum = sample.GetSampleAttribute(Format::Spectrum, {}, false);
    if (!spectrum.IsNull()) {
        try {
            if (conditions.GetChoice(Key::Integration, Value::Integration, 0) == 1)
                return NativeColorOf(dynamic_cast<Spectrum const&>(*spectrum), conditions);
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
