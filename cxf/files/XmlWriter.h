#pragma once

#include "cxf/files/SampleFile.h"

namespace Norvelian::ColorExchangeFormat {

/// The XML form of sample sets (`docs/sample-exchange-format.md`) in UTF-8. `ReadXml` gives the same sets
/// again, foreign parts included.
std::string WriteXml(std::vector<SampleSetPointer> const& sets);

} // namespace Norvelian::ColorExchangeFormat
