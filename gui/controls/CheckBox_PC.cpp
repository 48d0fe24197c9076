#include "gui/controls/CheckBox_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/platform/TextConversion_PC.h"

#include <QCheckBox>

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
    box_ = &control_.Make<QCheckBox>(parent, "CheckBox: Couldn't create it !!!");
    AttributeReader const reader(description);
    box_->setTristate(reader.Flag(triState));
    if (reader.HasColour(backgroundColor)) control_.SetBackgroundColor(reader.Colour(backgroundColor));
    captionKey_ = reader.Text(caption);
    ShowCaption();
    control_.Connect(*box_, &QCheckBox::clicked, [this] { OnClicked(ToState(box_->checkState())); });
    OnUpdate({});
}

void CheckBox_PC::OnDetach() {
    box_ = nullptr;
    control_.Release();
    CheckBox::OnDetach();
}

void CheckBox_PC::ShowCaption() {
    if (!control_.GetWidget()) return;
    auto const text =
        isTranslated_ ? captionKey_ : Utilities::LanguageServiceInterface::GetTranslation(captionKey_);
    // An ampersand would underline the letter behind it.
    box_->setText(ToShownText(text).replace('&', "&&"));
}

void CheckBox_PC::SetPosition(unsigned long x, unsigned long y) {
    if (IfPositionEqual(x, y)) return;
    CheckBox::SetPosition(x, y);
    control_.SetPosition(x, y);
}

void CheckBox_PC::SetSize(unsigned long width, unsigned long height) {
    if (IfSizeEqual(width, height)) return;
    CheckBox::SetSize(width, height);
    control_.SetSize(width, height);
}

void CheckBox_PC::Enable(bool enabled) { control_.Enable(enabled); }

long CheckBox_PC::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (Anything const value = GetValue(Values::caption); value.IsOfTypeString()) {
        captionKey_ = value.GetString();
        isTranslated_ = true;
        ShowCaption();
    }
    if (Anything const value = GetValue("State"); value.IsValid() && control_.GetWidget())
        box_->setCheckState(FromState(value.GetLong()));
    if (Anything const value = GetValue(Values::enabled); value.IsValid()) control_.Enable(value.GetBool());
    if (Anything const value = GetValue(Values::toolTipText); value.IsOfTypeString())
        control_.SetToolTip(value.GetString());
    if (Anything const value = GetValue(Values::visible); value.IsValid()) control_.Show(value.GetBool());
    return CheckBox::OnUpdate(command);
}

void CheckBox_PC::OnLanguageChanged() {
    CheckBox::OnLanguageChanged();
    if (Anything const value = GetValue(Values::caption); value.IsOfTypeString())
        captionKey_ = value.GetString();
    ShowCaption();
}

} // namespace GUI
