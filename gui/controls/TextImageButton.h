#pragma once

#include "gui/controls/ImageButton.h"

#include <map>
#include <string>

namespace GUI {

/// An image button with a text in its middle.
///
/// The description's children are styles, not elements: "General", "Over", "Down" and "Disabled". The general
/// style holds in every state for which there is none. Attributes of a style: "Text" (empty; a key of the
/// language service), "Color" (255,255,255), "FontStyle" ("Normal"; "Bold", "Italic", "Underline"),
/// "FontName"
/// ("SystemFont"), "FontSize" (10), "XOffset" and "YOffset" (0: shift from the middle in pixels).
class TextImageButton : public ImageButton {
public:
    Diagnostics::String GetValueString() override { return "TextImageButton"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    void OnLanguageChanged() override;
    /// Named by its text, unless "AccessibleName" says otherwise.
    Accessible GetAccessible() override;

private:
    struct Style {
        Utilities::String key;
        /// Translated.
        Utilities::String text;
        RGBVector color{255, 255, 255};
        short fontStyle = 0;
        Utilities::String fontName;
        short fontSize = 0;
        short xOffset = 0;
        short yOffset = 0;
    };
    /// Of the present state; null for none.
    Style const* GetStyle();
    static Style ReadStyle(DescriptionTree const& description);

    /// By state, and "General".
    std::map<std::string, Style> styles_;
    bool hasName_ = false;
};

} // namespace GUI
