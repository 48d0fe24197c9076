#pragma once

#include "gui/elements/description/Attributes.h"

/// Attributes that several colour elements read.
namespace GUI::PatchAttributes {

inline constexpr Attribute updates{"Updates", AttributeType::Flag, "No",
                                   "Whether the event \"OnUpdate\" shows the new colour"};
inline constexpr Attribute markOutside{"MarkOutside", AttributeType::Flag, "No",
                                       "The mark is beside the colour in two tones, not on it"};
inline constexpr Attribute surroundColor{"SurroundColor", AttributeType::Colour, "222,251,255 surround",
                                         "Around the colour"};
inline constexpr Attribute smooth{
    "Smooth", AttributeType::Flag, "No",
    "Curves and slanted edges are drawn with antialiasing; lines along an axis stay as they are"};

} // namespace GUI::PatchAttributes
