#pragma once

#include "gui/controls/ChoiceControl.h"

#include <optional>

namespace GUI {

/// A list that drops down from a field, which can be edited unless "ReadOnly" is set. What the user types is
/// reported as a selection is.
///
/// Attributes: "AlphaSort" (No), "ReadOnly" (No), "FontColor" and "BackgroundColor" (the system's; with one
/// of them the entries are drawn in these colours, by default black on white), "ToolTipText",
/// "AccessibleName". A colour's part that can't be read stays 0 in the font's and 255 in the background's
/// colour. Of the data source beside what `ChoiceControl` asks: "Enabled", "ToolTipText", "Visible".
class DropDown : public ChoiceControl {
public:
    static constexpr Attribute readOnly{"ReadOnly", AttributeType::Flag, "No",
                                        "Whether the text can't be edited"};
    static constexpr Attribute attributes[] = {alphaSort,
                                               readOnly,
                                               ControlAttributes::fontColor,
                                               ControlAttributes::backgroundColor,
                                               ControlAttributes::toolTipText,
                                               ControlAttributes::accessibleName};

    Diagnostics::String GetValueString() override { return "DropDown"; }

protected:
    /// A colour of the description whose parts are read one by one; nothing without the attribute.
    static std::optional<RGBVector> ReadColor(AttributeReader const& reader, Attribute const& attribute,
                                              unsigned char missing);
};

} // namespace GUI
