#pragma once

#include "gui/controls/ClickControl.h"
#include "gui/controls/ControlAttributes.h"

namespace GUI {

/// A box that the user checks, with a text beside it.
///
/// Attributes: "Caption" ("No Caption"; a key of the language service), "TriState" (No), "BackgroundColor"
/// (that of the window), "ToolTipText" (none; a key too), "Mnemonics" (No), "AccessibleName" (none). Of the
/// data source at each update, under the element's name: "Caption" (string, shown as it is), "State" (long: 0
/// unchecked, 1 checked, 2 neither), "Enabled" (bool), "ToolTipText" (string), "Visible" (bool); invalid
/// answers change nothing.
///
/// When the user has clicked it, the data source is told the new "State", and then the callback "OnClick"
/// runs with the element's name. What that lets escape is reported to the user by the application.
class CheckBox : public ClickControl {
public:
    static constexpr Attribute caption{"Caption", AttributeType::Text, "No Caption", "Text beside the box"};
    static constexpr Attribute triState{"TriState", AttributeType::Flag, "No",
                                        "Whether there is a state between unchecked and checked"};
    static constexpr Attribute attributes[] = {caption,
                                               triState,
                                               ControlAttributes::backgroundColor,
                                               ControlAttributes::toolTipText,
                                               ControlAttributes::mnemonics,
                                               ControlAttributes::accessibleName};

    Diagnostics::String GetValueString() override { return "CheckBox"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
};

} // namespace GUI
