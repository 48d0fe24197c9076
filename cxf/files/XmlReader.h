#pragma once

#include "cxf/files/SampleFile.h"

namespace Norvelian::ColorExchangeFormat {

/// Reads the XML form of sample sets, described in `docs/sample-exchange-format.md`, and checks it against
/// that schema. Elements and attributes that the schema doesn't have are kept. Throws `FileException` with
/// the place of the element and what was expected there.
std::vector<SampleSetPointer> ReadXml(std::string_view text, std::string const& name,
                                      ReadOptions const& options);

} // namespace Norvelian::ColorExchangeFormat
