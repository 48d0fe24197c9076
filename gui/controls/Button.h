#pragma once

#include "gui/controls/ClickControl.h"
#include "gui/controls/ControlAttributes.h"

namespace GUI {

/// A push button with a text, or with a picture for each of its states.
///
/// Attributes: "Caption" ("NoText!!!"; a key of the language service, for a picture button the name of its
/// pictures, see `ButtonPictures`), "BitmapButton" (No: a text), "Default" (No: Enter in its dialog clicks
/// it), "ToolTipText" (none; a key too), "Flat" (No: a picture button's border is a line, not an edge),
/// "DrawBorder" (No: a picture button has no border), "Toggle" (No: a click turns its check state over),
/// "Mnemonics" (No), "AccessibleName" (none).
///
/// Of the data source at each update, under the element's name: "State" (bool: pressed for good), "Enable"
/// (bool), "Focus" (bool: true takes the keyboard focus), "Caption" (string, shown as it is; new pictures),
/// "ToolTipText" (string), "Visible" (bool); invalid answers change nothing. A button whose data source gives
/// a "State" has a check state, as one with "Toggle".
///
/// When it has been clicked, by mouse or with Space or Enter, the data source is told "State" (long: 0 or 1)
/// if there is a check state, then "OnClick" runs with the element's name, and then a "State" of the data
/// source is asked for again: it has the last word.
class Button : public ClickControl {
public:
    static constexpr Attribute caption{"Caption", AttributeType::Text, "NoText!!!",
                                       "Text, or the name of the pictures"};
    static constexpr Attribute bitmapButton{"BitmapButton", AttributeType::Flag, "No",
                                            "Pictures in place of a text"};
    static constexpr Attribute isDefault{"Default", AttributeType::Flag, "No",
                                         "Enter in its dialog clicks it"};
    static constexpr Attribute flat{"Flat", AttributeType::Flag, "No",
                                    "The border of a picture button is a plain line"};
    static constexpr Attribute drawBorder{"DrawBorder", AttributeType::Flag, "No",
                                          "A picture button draws a border"};
    static constexpr Attribute toggle{"Toggle", AttributeType::Flag, "No",
                                      "Each click turns the check state over"};
    static constexpr Attribute attributes[] = {caption,
                                               bitmapButton,
                                               isDefault,
                                               ControlAttributes::toolTipText,
                                               flat,
                                               drawBorder,
                                               toggle,
                                               ControlAttributes::mnemonics,
                                               ControlAttributes::accessibleName};

    Diagnostics::String GetValueString() override { return "Button"; }
};

} // namespace GUI
