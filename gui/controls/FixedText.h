#pragma once

#include "gui/elements/Attributes.h"
#include "gui/elements/GUIElement.h"

namespace GUI {

/// A line or block of static text.
///
/// Attributes: "Caption" (empty), "FontName" and "FontSize" (those of the window), "Bold", "Italic",
/// "Underline" (No), "FontColor", "BackgroundColor" (those of the window). Of the data source at each
/// update, under the element's name: "Caption", "Bold", "FontColor" or "TextColor", "BackgroundColor",
/// "Visible"; invalid answers change nothing.
class FixedText : public GUIElement {
public:
    static constexpr Attribute caption{"Caption", AttributeType::Text, "", "The text"};
    static constexpr Attribute fontName{"FontName", AttributeType::Text, "", "Typeface; the window's if absent"};
    static constexpr Attribute fontSize{"FontSize", AttributeType::Number, "0", "Height in points; 0: the window's"};
    static constexpr Attribute bold{"Bold", AttributeType::Flag, "No", "Bold weight"};
    static constexpr Attribute italic{"Italic", AttributeType::Flag, "No", "Slanted"};
    static constexpr Attribute underline{"Underline", AttributeType::Flag, "No", "Underlined"};
    static constexpr Attribute fontColor{"FontColor", AttributeType::Colour, "", "Text colour"};
    static constexpr Attribute backgroundColor{"BackgroundColor", AttributeType::Colour, "", "Background"};

    Diagnostics::String GetValueString() override { return "FixedText"; }
    /// Reads the common attributes and registers `OnUpdate` with the data source.
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;

protected:
    /// The data source's value under the element's own name.
    Utilities::Anything GetValue(char const* key);
};

} // namespace GUI
