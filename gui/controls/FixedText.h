#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/elements/description/Attributes.h"
#include "gui/elements/drawing/NumberFormat.h"
#include "services/TextAdapter.h"

namespace GUI {

/// A line or block of static text.
///
/// The caption is a key of the language service. A text that doesn't fit its width is shortened by a text
/// adapter, if one is named and the language isn't Japanese, and else ends in an ellipsis.
///
/// With "NumberFormat" a caption that is a number, with "." as its decimal sign, is shown as `NumberFormat`
/// writes it, an empty one as a missing value; other texts are shown as they are.
///
/// Attributes: "NumberFormat" (none), "Alignment" ("Left"), "Caption" (empty), "AdaptText" (none; component
/// of a text adapter), "FontName" and "FontSize" (those of the window), "Bold", "Italic", "Underline" (No),
/// "FontColor", "BackgroundColor" (those of the window). Without "MinimalWidth", and where no adapter
/// shortens it, the text is at least as wide as it needs to be. Of the data source at each update, under the
/// element's name: "Caption", "Bold", "FontColor" or "TextColor", "BackgroundColor", "Visible"; invalid
/// answers change nothing.
class FixedText : public GUIElement {
public:
    static constexpr Attribute caption{"Caption", AttributeType::Text, "", "The text"};
    static constexpr Attribute adaptText{"AdaptText", AttributeType::Text, "", "Component of a text adapter"};
    static constexpr Attribute fontName{"FontName", AttributeType::Text, "",
                                        "Typeface; the window's if absent"};
    static constexpr Attribute fontSize{"FontSize", AttributeType::Number, "0",
                                        "Height in points, in pixels if negative; 0: the window's"};
    static constexpr Attribute bold{"Bold", AttributeType::Flag, "No", "Bold weight"};
    static constexpr Attribute italic{"Italic", AttributeType::Flag, "No", "Slanted"};
    static constexpr Attribute underline{"Underline", AttributeType::Flag, "No", "Underlined"};
    static constexpr Attribute fontColor{"FontColor", AttributeType::Colour, "", "Text colour"};
    static constexpr Attribute backgroundColor{"BackgroundColor", AttributeType::Colour, "", "Background"};
    static constexpr Attribute numberFormat{"NumberFormat", AttributeType::Text, "",
                                            "What number the caption is: \"Lab\", \"DeltaE\", \"Density\", "
                                            "\"Difference\", \"Hue\", \"Reflectance\" or "
                                            "\"Wavelength\"; it is written accordingly"};
    static constexpr Attribute alignment{"Alignment", AttributeType::Text, "Left", "\"Left\" or \"Right\""};
    static constexpr Attribute attributes[] = {caption,  adaptText, fontName,  fontSize,        bold,
                                               italic,   underline, fontColor, backgroundColor, numberFormat,
                                               alignment};

    Diagnostics::String GetValueString() override { return "FixedText"; }
    /// Chooses the text adapter again; Japanese has none.
    void OnLanguageChanged() override;
    /// Reads the common attributes and registers `OnUpdate` with the data source.
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;

protected:
    /// What is shown for a caption: its translation, or the number in it.
    Utilities::String GetShownText(Utilities::String const& text) const;
    /// Null where texts aren't adapted.
    Utilities::SmartPointer<Utilities::TextAdapter> const& GetTextAdapter() const { return adapter_; }

private:
    Utilities::String adapterName_;
    std::optional<NumberFormat> format_;
    Utilities::SmartPointer<Utilities::TextAdapter> adapter_;
};

} // namespace GUI
