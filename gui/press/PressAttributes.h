#pragma once

#include "gui/elements/description/Attributes.h"

namespace Ostrinda {

/// Attributes that the sections of a press read.
namespace PressAttributes {

inline constexpr GUI::Attribute fontName{"FontName", GUI::AttributeType::Text, "Arial", "Font of the texts"};
inline constexpr GUI::Attribute fontSize{"FontSize", GUI::AttributeType::Number,
                                         "10",       "Their size: points, or pixels below 0",
                                         false,      {-32768, 32767}};
inline constexpr GUI::Attribute bold{"Bold", GUI::AttributeType::Flag, "No", "The texts are bold"};

} // namespace PressAttributes

} // namespace Ostrinda
