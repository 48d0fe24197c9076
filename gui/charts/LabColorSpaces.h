#pragma once

#include "Utilities/Tools/Map.h"
#include "core/base/String.h"

namespace GUI::LabColorSpaces {

/// What a `LabChart` shows of each colour space and of the differences in it: by the space's name, and then
/// by the names of the settings.
///
/// "XScaleBegin", "XScaleEnd", "YScaleBegin", "YScaleEnd" (the plane), "ZScaleBegin", "ZScaleEnd" (the bar),
/// "XCaption", "YCaption", "ZCaption", "XYGraphType", "ZGraphType" (the colour bars of a plot, see
/// `CrossGraph`), "Zoom" (in percent: scale values are divided by it), "XYGraduation", "ZGraduation". Spaces
/// without plots have empty texts.
using Settings = Utilities::Map<Utilities::String, Utilities::String>;
using Table = Utilities::Map<Utilities::String, Settings>;

Table MakeTable();

/// Whether a row of values in that space is lightness, chroma and hue.
bool IsPolar(Utilities::String const& space);
/// Whether the plane shows the first two values of a row, and the bar the third.
bool IsPlaneFirst(Utilities::String const& space);

} // namespace GUI::LabColorSpaces
