#include "gui/controls/Button_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Utilities::Anything;

namespace {

ElementRegistration<Button_PC, GUIElement> const registration({"Button", "$Revision: 1.42 $", "GUI"},
                                                              Button::attributes);

constexpr char const* focusKey = "Focus";

} // namespace

void Button_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                           DialogDataSource* dataSource) {
    Button::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    caption_ = reader.Text(caption);
    mnemonics_ = reader.Flag(ControlAttributes::mnemonics);
    if (reader.Flag(bitmapButton)) {
        auto& button =
            control_.Make<CNorvelianBitmapButton>(parent, "Button (Bitmap): Couldn't create it !!!");
        button.SetLook(reader.Flag(flat), reader.Flag(drawBorder));
    } else {
        control_.Make<CNorvelianButton>(parent, "Button (Text): Couldn't create it !!!");
    }
    GetControl()->setDefault(reader.Flag(isDefault));
    GetControl()->setCheckable(reader.Flag(toggle));
    ReadTexts(reader);
    ShowCaption();
    control_.Connect(*GetControl(), &QPushButton::clicked, [this] { OnClick(); });
    RegisterOnUpdate();
    OnUpdate({});
}

CNorvelianBitmapButton* Button_PC::GetPictureButton() const {
    return dynamic_cast<CNorvelianBitmapButton*>(GetControl());
}

void Button_PC::ShowCaption() {
    if (!GetControl()) return;
    CNorvelianBitmapButton* const button = GetPictureButton();
    auto const text =
        isTranslated_ || button ? caption_ : Utilities::LanguageServiceInterface::GetTranslation(caption_);
    GetControl()->setText(ToCaption(text, mnemonics_));
    if (!button) return;
    QSize const before = button->GetPictureSize();
    button->SetPictures(caption_);
    QSize const size = button->GetPictureSize();
    if (size == before) return;
    control_.SetSize(static_cast<unsigned long>(size.width()), static_cast<unsigned long>(size.height()));
    RecalculateSize();
}

void Button_PC::SetSize(unsigned long width, unsigned long height) {
    // A picture keeps its own size.
    if (GetPictureButton())
        Button::SetSize(width, height); // NOLINT(bugprone-parent-virtual-call)
    else
        NativeElement::SetSize(width, height);
}

void Button_PC::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                   unsigned long& minimalHeight, unsigned long& maximalHeight) {
    CNorvelianBitmapButton const* const button = GetPictureButton();
    if (!button) return Button::GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    QSize const size = button->GetPictureSize();
    minimalWidth = maximalWidth = static_cast<unsigned long>(size.width());
    minimalHeight = maximalHeight = static_cast<unsigned long>(size.height());
}

void Button_PC::OnClick() {
    CallScope const call(*this);
    OnClicked(GetControl()->isCheckable() ? std::optional<long>(GetControl()->isChecked()) : std::nullopt);
    UpdateState();
}

void Button_PC::UpdateState() {
    Anything const value = GetValue(Values::state);
    if (!value.IsValid() || !GetControl()) return;
    GetControl()->setCheckable(true);
    GetControl()->setChecked(value.GetBool());
}

long Button_PC::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    UpdateState();
    if (Anything const value = GetValue(focusKey); value.IsValid() && value.GetBool()) control_.SetFocus();
    if (Anything const value = GetValue(Values::caption);
        value.IsOfTypeString() && !(isTranslated_ && value.GetString() == caption_)) {
        caption_ = value.GetString();
        isTranslated_ = true;
        ShowCaption();
    }
    UpdateControl(Values::enable);
    return Button::OnUpdate(command);
}

void Button_PC::OnLanguageChanged() {
    NativeElement::OnLanguageChanged();
    if (Anything const value = GetValue(Values::caption); value.IsOfTypeString())
        caption_ = value.GetString();
    ShowCaption();
}

} // namespace GUI
