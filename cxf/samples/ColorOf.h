#pragma once

#include "cxf/conditions/NVColorVector.h"
#include "cxf/samples/Sample.h"

namespace Norvelian::ColorExchangeFormat {

/// The sample's colour under the conditions, in the colour space that they name (default CIELab).
///
/// It is computed from the sample's spectrum. A sample without one gives its first colour that isn't a device
/// colour and holds under the conditions; colours can't be carried from one illuminant to another. What the
/// conditions leave open is assumed, or is what the colour was measured for; the result says which.
///
/// With the condition `Key::Integration` "Native" the spectrum is summed at the wavelengths of its file and
/// not by 36 bands, as fits data by 5 or 1 nm.
///
///     auto const lab = ColorOf(sample, Tristim::Under("D65", 10));
///
/// Throws `TristimException` that names the sample if it has neither, or none that holds under the
/// conditions.
Tristim::NVColorVector ColorOf(Sample const& sample, Tristim::NVMeasureConditions const& conditions = {});

/// The sample's first device colour, CMYK or RGB amounts; null if it has none.
ColorVector const* DeviceColourOf(Sample const& sample);

} // namespace Norvelian::ColorExchangeFormat
