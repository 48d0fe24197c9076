#pragma once

#include "gui/controls/ControlAttributes.h"
#include "gui/controls/NumberRule.h"
#include "gui/elements/GUIElement.h"

#include <optional>

namespace GUI {

/// A field for text, of one line or more.
///
/// Attributes: "Text" ("No Text": first content), "MultiLine", "ReadOnly", "Frame", "PasswordStyle" (No
/// each), "ScrollBar" (none; "Horizontal", "Vertical" or "Both", of a field with several lines, which wraps
/// its lines unless it scrolls horizontally), "FontName" (that of the window), "FontSize" (-12: pixels),
/// "Bold" (Yes), "Italic", "Underline" (No), "FontColor", "BackgroundColor" (the system's), "Placeholder"
/// (none; a key of the language service, shown while the field is empty), "ToolTipText", "AccessibleName".
///
/// With "Validator" "Number" the field takes numbers from "Minimum" to "Maximum" with at most "Decimals"
/// decimals. The user sees and types them with the decimal sign of his language; the data source gives and is
/// told them with ".". What isn't such a number stays in the field, marked, with "ValidationText" (none; a
/// key) as its tool tip, and isn't told; the data source is told "Valid" (bool) whenever that changes. With
/// "ValidationPlace" (none), "Right" or "Below", that text stands beside the field too, over whatever the
/// description has there.
///
/// Of the data source at each update: "Bold" (bool), "BackgroundColor", "FontColor" (colours), "Text" or
/// "Caption" (string), "Enabled" (bool), "FirstVisibleLine" (long), "ReadOnly" (bool), "ToolTipText",
/// "Visible"; invalid answers change nothing. A text that is the one last told or shown changes nothing
/// either.
///
/// When the user has changed the text, the data source is told "Text", and then "OnTextChanged" runs. With
/// "Commit" (No) that waits, in a field of one line, for Enter or until the field loses the focus, and Esc
/// brings back what was there.
/// "OnSetFocus" and "OnKillFocus" run when the field gets and loses the keyboard focus. Callbacks get the
/// element's name.
class Edit : public GUIElement {
public:
    static constexpr Attribute text{"Text", AttributeType::Text, "No Text", "First content"};
    static constexpr Attribute multiLine{"MultiLine", AttributeType::Flag, "No", "Several lines"};
    static constexpr Attribute readOnly{"ReadOnly", AttributeType::Flag, "No", "No input"};
    static constexpr Attribute frame{"Frame", AttributeType::Flag, "No", "A border"};
    static constexpr Attribute password{"PasswordStyle", AttributeType::Flag, "No",
                                        "Hides the characters of a field of one line"};
    static constexpr Attribute scrollBar{"ScrollBar", AttributeType::Text, "",
                                         "Horizontal, Vertical or Both, of a field with several lines"};
    static constexpr Attribute fontName{"FontName", AttributeType::Text, "",
                                        "Typeface; the window's if absent"};
    static constexpr Attribute fontSize{"FontSize", AttributeType::Number, "-12",
                                        "Height in points, in pixels if negative"};
    static constexpr Attribute bold{"Bold", AttributeType::Flag, "Yes", "Bold weight"};
    static constexpr Attribute italic{"Italic", AttributeType::Flag, "No", "Slanted"};
    static constexpr Attribute underline{"Underline", AttributeType::Flag, "No", "Underlined"};
    static constexpr Attribute placeholder{"Placeholder", AttributeType::Text, "",
                                           "Shown while the field is empty; a key of the language service"};
    static constexpr Attribute validator{"Validator", AttributeType::Text, "", "Number: takes numbers only"};
    static constexpr Attribute minimum{"Minimum", AttributeType::Number, "-1000000", "Smallest number"};
    static constexpr Attribute maximum{"Maximum", AttributeType::Number, "1000000", "Largest number"};
    static constexpr Attribute decimals{"Decimals", AttributeType::Number, "6", "Most decimals of a number"};
    static constexpr Attribute validationText{"ValidationText", AttributeType::Text, "",
                                              "What a number must be; a key of the language service"};
    static constexpr Attribute validationPlace{"ValidationPlace", AttributeType::Text, "",
                                               "Right or Below: where that text stands beside the field"};
    static constexpr Attribute commit{"Commit", AttributeType::Flag, "No",
                                      "Tells what was typed when it is finished, in a field of one line"};
    static constexpr Attribute attributes[] = {text,
                                               commit,
                                               multiLine,
                                               readOnly,
                                               frame,
                                               password,
                                               scrollBar,
                                               fontName,
                                               fontSize,
                                               italic,
                                               underline,
                                               bold,
                                               ControlAttributes::fontColor,
                                               ControlAttributes::backgroundColor,
                                               placeholder,
                                               validator,
                                               minimum,
                                               maximum,
                                               decimals,
                                               validationText,
                                               validationPlace,
                                               ControlAttributes::toolTipText,
                                               ControlAttributes::accessibleName};

    Diagnostics::String GetValueString() override { return "Edit"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;

protected:
    /// What is to be shown for a text of the data source or the description; nothing if it is there already.
    std::optional<Utilities::String> TakeText(Utilities::String const& given);
    /// The user has changed the text to this.
    void OnTyped(Utilities::String const& typed);
    /// What was typed is finished.
    void OnFinished();
    /// What was typed is taken back: the text that is to be shown again; nothing if there is nothing to take
    /// back.
    std::optional<Utilities::String> TakeBack();
    bool Commits() const { return commits_; }
    void OnFocus(bool focused);
    bool IsValid() const { return isValid_; }

    /// Shows whether the text is what the field takes.
    virtual void ShowValid() = 0;
    /// Of the user's language.
    virtual std::string GetDecimalSign() const = 0;

private:
    void Tell(Utilities::String const& typed);

    std::optional<NumberRule> rule_;
    bool commits_ = false;
    /// Typed and not told yet.
    std::optional<Utilities::String> pending_;
    /// The text as the data source knows it.
    std::optional<Utilities::String> known_;
    bool isValid_ = true;
};

} // namespace GUI
