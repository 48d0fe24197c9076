#pragma once

#include "cxf/samples/SampleSet.h"

#include <optional>
#include <string>

namespace Norvelian::ColorExchangeFormat {

/// Set property under which a table's identifier ("CGATS.17", "CTI3", ...) is kept.
inline constexpr char const* kCgatsIdentifier = "CGATS_IDENTIFIER";
/// Set property that says on which scale the spectra stood.
inline constexpr char const* kSpectralScale = "SPECTRAL_SCALE";

/// What the keywords of a header say of spectra: filter and type. Understood are this library's own keywords
/// ("CXF_Physical.Filter" and so on), ISO 13655's M0 to M3, FILTER, POLARIZATION, MEASUREMENT_SOURCE and the
/// device class of display measurements.
Conditions CgatsSpectrumConditions(SampleSet const& header);
/// The same with illuminant and observer added, for colours; D50 and 2 degrees where nothing is said, as
/// CGATS.17 has it.
Conditions CgatsColourConditions(SampleSet const& header, std::string const& space);

/// Prefix of this library's own keywords.
inline constexpr char const* kConditionKeyword = "CXF_";

} // namespace Norvelian::ColorExchangeFormat
