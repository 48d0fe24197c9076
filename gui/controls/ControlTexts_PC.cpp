#include "gui/controls/ControlTexts_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/controls/ControlAttributes.h"
#include "gui/platform/TextConversion_PC.h"

namespace GUI {

using Utilities::LanguageServiceInterface;
using Utilities::String;

void ControlTexts::Read(AttributeReader const& reader) {
    toolTipKey_ = reader.Text(ControlAttributes::toolTipText);
    nameKey_ = reader.Text(ControlAttributes::accessibleName);
}

void ControlTexts::Show(NativeControl& control) const {
    control.SetToolTip(toolTip_ ? *toolTip_ : LanguageServiceInterface::GetTranslation(toolTipKey_));
    if (QWidget* const widget = control.GetWidget(); widget && nameKey_.Length() != 0)
        widget->setAccessibleName(ToPlatformText(LanguageServiceInterface::GetTranslation(nameKey_)));
}

void ControlTexts::SetToolTip(NativeControl& control, String const& text) {
    toolTip_ = text;
    control.SetToolTip(text);
}

void ControlTexts::SetName(NativeControl& control, String const& text) {
    nameKey_ = {};
    if (control.GetWidget()) control.GetWidget()->setAccessibleName(ToPlatformText(text));
}

QString ToCaption(String const& text, bool mnemonics) {
    QString caption = ToShownText(text);
    return mnemonics ? caption : caption.replace('&', "&&");
}

} // namespace GUI
