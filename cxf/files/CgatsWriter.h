#pragma once

#include "cxf/files/SampleFile.h"

namespace Norvelian::ColorExchangeFormat {

/// CGATS.17 text of sample sets, one table for each, in the shape in which `ReadCgats` gives the same sets
/// again: numbers in the shortest form that reads back as the same number, spectra as fractions, conditions
/// as keywords of this library ("CXF_Physical.Filter").
///
/// Throws `TristimException` for what a table can't hold, since writing must lose nothing: samples that
/// don't all have the same attributes under the same conditions, recipes, foreign XML parts, colour spaces
/// without CGATS fields, and texts with line breaks or other control characters. The XML form holds all of
/// these.
std::string WriteCgats(std::vector<SampleSetPointer> const& sets);

} // namespace Norvelian::ColorExchangeFormat
