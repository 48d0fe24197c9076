#pragma once

#include "core/base/String.h"
#include "gui/elements/description/Attributes.h"
#include "gui/shell/NativeControl_PC.h"

#include <optional>

namespace GUI {

/// Tool tip and accessible name of a control, translated.
class ControlTexts {
public:
    void Read(AttributeReader const& reader);
    /// Translates again.
    void Show(NativeControl& control) const;
    /// Texts of the data source, which are shown as they are from then on.
    void SetName(NativeControl& control, Utilities::String const& text);
    void SetToolTip(NativeControl& control, Utilities::String const& text);

private:
    Utilities::String toolTipKey_;
    /// What the data source said in its place.
    std::optional<Utilities::String> toolTip_;
    Utilities::String nameKey_;
};

/// A caption as a native control takes it. Without mnemonics an ampersand is one.
QString ToCaption(Utilities::String const& text, bool mnemonics);

} // namespace GUI
