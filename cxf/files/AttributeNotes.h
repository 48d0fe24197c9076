#pragma once

#include "cxf/files/ReadReport.h"
#include "cxf/samples/SampleAttribute.h"

#include <string>
#include <utility>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// What a report says of a spectrum or colour that was read with its conditions: under what it holds, what
/// was assumed, how it is resampled, which conditions nobody here knows, and parameters of another illuminant
/// than the stated one. Nothing for other attributes. With `extended` the range of a spectrum was extended by
/// the caller's leave and not by the file's.
std::vector<std::pair<ReadNote::Kind, std::string>> NotesOf(SampleAttribute const& attribute, bool extended);

} // namespace Norvelian::ColorExchangeFormat
