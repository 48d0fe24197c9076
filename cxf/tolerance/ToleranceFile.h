#pragma once

#include "cxf/tolerance/ToleranceSet.h"

#include <string>
#include <string_view>

namespace Norvelian::ColorExchangeFormat {

/// Tolerance sets as XML:
///
///     <ToleranceSet Version="1" Name="Coated" Formula="2000" Warning="0.8" Match="Name">
///       <Conditions><Condition Name="Colorimetric.Illumination" Value="D50"/></Conditions>
///       <Limit Component="dE" To="3"/>
///       <Limit Component="dL*" From="-1.5" To="1.5"/>
///     </ToleranceSet>
///
/// `Weights` are up to three numbers, `Match` is "Name", "Id" or "Device", then with `MatchDistance`. Reading
/// throws `FileException` with file, line and reason, also for a set that isn't valid; anything unknown is an
/// error, since a limit that is overlooked lets everything pass.
ToleranceSet ParseToleranceSet(std::string_view text, std::string const& name);
ToleranceSet ReadToleranceSet(std::string const& path);

std::string FormatToleranceSet(ToleranceSet const& tolerance);
/// Writes the file as a whole or not at all. Throws `FileException`.
void WriteToleranceSet(std::string const& path, ToleranceSet const& tolerance);

} // namespace Norvelian::ColorExchangeFormat
