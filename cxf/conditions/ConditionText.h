#pragma once

#include "cxf/conditions/NVMeasureConditions.h"

#include <string>

namespace Norvelian::Tristim {

/// Illuminant and observer in words: "D50, 2\u00B0", or "D50 (assumed), observer unknown".
std::string ViewingText(NVMeasureConditions const& conditions);

/// Everything a colour depends on: illuminant, observer, a white base other than the perfect diffuser,
/// filter as M0 to M3 of ISO 13655, geometry, backing, and how the spectrum was resampled. What nobody
/// stated is said to be unknown, what was taken from a default "(assumed)":
/// "D50 (assumed), 2\u00B0, M1, geometry unknown, white backing; end values repeated".
std::string ConditionText(NVMeasureConditions const& conditions);

/// The part of it that the instrument decides: filter, geometry, backing.
std::string MeasurementText(NVMeasureConditions const& conditions);

/// The name of the illuminant with its parameter: "D65", "6003 K", "F11", "LED-B1"; empty if it is unknown.
std::string IlluminantText(NVMeasureConditions const& conditions);

} // namespace Norvelian::Tristim
