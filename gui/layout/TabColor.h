#pragma once

#include "gui/elements/description/Attributes.h"

namespace GUI::TabColor {

inline constexpr Attribute baseColor{"BaseColor", AttributeType::Colour, "214,211,206",
                                     "Face of tabs that are drawn with lines"};

/// The colour in a description: numbers above 255 lose their higher bits. `otherwise` if there is none.
inline RGBVector Read(AttributeMap const& description, RGBVector const& otherwise) {
    auto const* const value = description.FindValue(baseColor.key);
    if (!value) return otherwise;
    Utilities::String const& text = value->GetString();
    auto const channel = [&text](long index) {
        return static_cast<unsigned char>(text.GetToken(index, ',').GetUnsignedShort());
    };
    return {channel(0), channel(1), channel(2)};
}

} // namespace GUI::TabColor
