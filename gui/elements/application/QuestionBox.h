#pragma once

#include "gui/elements/description/Attributes.h"
#include "gui/elements/drawing/PlatformIndependentWindowID.h"

namespace GUI {

/// A question to the user, in a modal dialog with a button for each answer.
///
/// A description of it, from a file or made in memory:
///
///     <QuestionBox Text="Discard the changes?" EscKeyElementName="Keep">
///       <Button ElementName="Discard" Caption="Discard"/>
///       <Button ElementName="Keep" Caption="Keep editing" Default="Yes"/>
///     </QuestionBox>
///
/// Attributes: "Text" (mandatory, a key of the language service), "Caption" (the program's name; a key),
/// "Width" (360) and "Height" (120) of the inside, "EscKeyElementName" (none: Esc does nothing),
/// "EnterKeyElementName" (none). The buttons keep their attributes, and are 96 by 32 pixels unless they say
/// otherwise.
class QuestionBox {
public:
    explicit QuestionBox(DescriptionTree const& description) : description_(description) {}

    /// Asks, and waits for the answer: the element name of the button, or an empty text if the window was
    /// closed. The caller's elements may be gone when it returns. `parent` may be an empty identity.
    Utilities::String Ask(PlatformIndependentWindowID const& parent) const;

    /// The question whether what was entered may be lost; true if it may.
    static bool MayDiscard(PlatformIndependentWindowID const& parent);

private:
    DescriptionTree description_;
};

} // namespace GUI
