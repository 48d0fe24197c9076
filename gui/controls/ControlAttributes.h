#pragma once

#include "gui/elements/description/Attributes.h"

namespace GUI {

/// Attributes that several controls read.
namespace ControlAttributes {

inline constexpr Attribute toolTipText{"ToolTipText", AttributeType::Text, "",
                                       "Tool tip; a key of the language service"};
inline constexpr Attribute accessibleName{"AccessibleName", AttributeType::Text, "",
                                          "What a screen reader calls it; a key of the language service"};
inline constexpr Attribute mnemonics{"Mnemonics", AttributeType::Flag, "No",
                                     "Whether Alt with the letter behind a '&' of the caption works it"};
inline constexpr Attribute fontColor{"FontColor", AttributeType::Colour, "", "Text colour"};
inline constexpr Attribute backgroundColor{"BackgroundColor", AttributeType::Colour, "", "Background"};

} // namespace ControlAttributes

} // namespace GUI
