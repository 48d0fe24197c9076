#include "gui/controls/CheckBox_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Utilities::Anything;

namespace {

ElementRegistration<CheckBox_PC, GUIElement> const registration({"CheckBox", "$Revision: 1.21 $", "GUI"},
                                                                CheckBox::attributes);

constexpr long checkedState = 1;
constexpr long undecidedState = 2;

long ToState(Qt::CheckState state) {
    return state == Qt::Unchecked ? 0 : state == Qt::Checked ? checkedState : undecidedState;
}

Qt::CheckState FromState(long state) {
    return state == checkedState     ? Qt::Checked
           : state == undecidedState ? Qt::PartiallyChecked
                                     : Qt::Unchecked;
}

} // namespace

void CheckBox_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                             DialogDataSource* dataSource) {
    CheckBox::Initialize(parent, description, dataSource);
    QCheckBox& box = control_.Make<QCheckBox>(parent, "CheckBox: Couldn't create it !!!");
    AttributeReader const reader(description);
    box.setTristate(reader.Flag(triState));
    if (reader.HasColour(ControlAttributes::backgroundColor))
        control_.SetBackgroundColor(reader.Colour(ControlAttributes::backgroundColor));
    captionKey_ = reader.Text(caption);
    mnemonics_ = reader.Flag(ControlAttributes::mnemonics);
    ReadTexts(reader);
    ShowCaption();
    control_.Connect(box, &QCheckBox::clicked, [this] { OnClicked(ToState(GetControl()->checkState())); });
    OnUpdate({});
}

void CheckBox_PC::ShowCaption() {
    if (!GetControl()) return;
    auto const text =
        isTranslated_ ? captionKey_ : Utilities::LanguageServiceInterface::GetTranslation(captionKey_);
    GetControl()->setText(ToCaption(text, mnemonics_));
}

long CheckBox_PC::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (Anything const value = GetValue(Values::caption); value.IsOfTypeString()) {
        captionKey_ = value.GetString();
        isTranslated_ = true;
        ShowCaption();
    }
    if (Anything const value = GetValue(Values::state); value.IsValid() && GetControl())
        GetControl()->setCheckState(FromState(value.GetLong()));
    UpdateControl();
    return CheckBox::OnUpdate(command);
}

void CheckBox_PC::OnLanguageChanged() {
    NativeElement::OnLanguageChanged();
    if (Anything const value = GetValue(Values::caption); value.IsOfTypeString())
        captionKey_ = value.GetString();
    ShowCaption();
}

} // namespace GUI
