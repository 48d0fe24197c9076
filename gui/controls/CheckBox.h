#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/elements/description/Attributes.h"

namespace GUI {

/// A box that the user checks, with a text beside it.
///
/// Attributes: "Caption" ("No Caption"; a key of the language service), "TriState" (No), "BackgroundColor"
/// (that of the window). Of the data source at each update, under the element's name: "Caption" (string,
/// shown as it is), "State" (long: 0 unchecked, 1 checked, 2 neither), "Enabled" (bool), "ToolTipText"
/// (string), "Visible" (bool); invalid answers change nothing.
///
/// When the user has clicked it, the data source is told the new "State", and then the callback "OnClick"
/// runs with the element's name. What that lets escape is reported to the user by the application.
class CheckBox : public GUIElement {
public:
    static constexpr Attribute caption{"Caption", AttributeType::Text, "No Caption", "Text beside the box"};
    static constexpr Attribute triState{"TriState", AttributeType::Flag, "No",
                                        "Whether there is a state between unchecked and checked"};
    static constexpr Attribute backgroundColor{"BackgroundColor", AttributeType::Colour, "", "Background"};
    static constexpr Attribute attributes[] = {caption, triState, backgroundColor};

    Diagnostics::String GetValueString() override { return "CheckBox"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;

protected:
    /// To be called by the platform's class after a click.
    void OnClicked(long state);
};

} // namespace GUI
