#pragma once

#include "gui/elements/Attributes.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/OwnedCallback.h"
#include "services/TextAdapter.h"

namespace GUI {

/// A line or block of static text.
///
/// The caption is a key of the language service. A text that doesn't fit its width is shortened by a text
/// adapter, if one is named and the language isn't Japanese.
///
/// Attributes: "Caption" (empty), "AdaptText" (none; component of a text adapter), "FontName" and "FontSize"
/// (those of the window), "Bold", "Italic", "Underline" (No), "FontColor", "BackgroundColor" (those of the
/// window). Of the data source at each update, under the element's name: "Caption", "Bold", "FontColor" or
/// "TextColor", "BackgroundColor", "Visible"; invalid answers change nothing.
class FixedText : public GUIElement {
public:
    ~FixedText() override;
    static constexpr Attribute caption{"Caption", AttributeType::Text, "", "The text"};
    static constexpr Attribute adaptText{"AdaptText", AttributeType::Text, "", "Component of a text adapter"};
    static constexpr Attribute fontName{"FontName", AttributeType::Text, "",
                                        "Typeface; the window's if absent"};
    static constexpr Attribute fontSize{"FontSize", AttributeType::Number, "0",
                                        "Height in points; 0: the window's"};
    static constexpr Attribute bold{"Bold", AttributeType::Flag, "No", "Bold weight"};
    static constexpr Attribute italic{"Italic", AttributeType::Flag, "No", "Slanted"};
    static constexpr Attribute underline{"Underline", AttributeType::Flag, "No", "Underlined"};
    static constexpr Attribute fontColor{"FontColor", AttributeType::Colour, "", "Text colour"};
    static constexpr Attribute backgroundColor{"BackgroundColor", AttributeType::Colour, "", "Background"};

    Diagnostics::String GetValueString() override { return "FixedText"; }
    /// Whether texts are adapted hangs on the language.
    void OnLanguageChanged() override;
    /// Reads the common attributes and registers `OnUpdate` with the data source.
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;

protected:
    /// Null where no adaption is wanted.
    Utilities::SmartPointer<Utilities::TextAdapter> const& GetTextAdapter() const { return adapter_; }
    /// The data source's value under the element's own name.
    Utilities::Anything GetValue(char const* key);

private:
    OwnedCallback<FixedText> onUpdate_{this, &FixedText::OnUpdate};
    Utilities::String adapterName_;
    Utilities::SmartPointer<Utilities::TextAdapter> adapter_;
};

} // namespace GUI
