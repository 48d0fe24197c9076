#pragma once

#include "cxf/conditions/NVMeasureConditions.h"

#include <optional>
#include <string>
#include <string_view>

namespace Norvelian::Tristim {

/// The conditions that make an illuminant, by a name as programs write it: A, B, C, E, D50, D55, D65, D75, D
/// of any other nominal temperature ("D60", "D6000", taken on the temperature scale of today: times 1.4388 /
/// 1.4380, as CIE 15 has it), F1 or FL1 to F12, FL3.1 to FL3.15, LED-B1 to LED-V2, ID50, ID65, HP1 to HP5,
/// and trade names of lamps that CIE 15 has a table of, such as TL84 for F11. Capitals, blanks, hyphens and
/// underscores don't count.
///
/// Nothing for an unknown name. Throws `TristimException` for a light that is known but of which no published
/// table is at hand.
std::optional<NVMeasureConditions> FindIlluminant(std::string_view name);

/// The conditions of an illuminant by its name and an observer of 2 or 10 degrees, both stated. Throws
/// `TristimException` for unknown ones.
NVMeasureConditions Under(std::string_view illuminant, int observerDegrees);

/// The known names, for messages.
std::string KnownIlluminants();

} // namespace Norvelian::Tristim
