#include "gui/press/PaperPressButton_PC.h"

#include "gui/elements/description/ElementRegistration.h"
#include "gui/platform/TextConversion_PC.h"

namespace Ostrinda {

using Utilities::Anything;

namespace {

GUI::ElementRegistration<PaperPressButton_PC, GUI::GUIElement> const
    registration({"PaperPressButton", "$Revision: 1.7 $", "GUI"}, PaperPressButton::attributes);

} // namespace

void PaperPressButton_PC::Initialize(GUI::PlatformIndependentWindowID const& parent,
                                     GUI::DescriptionTree const& description,
                                     GUI::DialogDataSource* dataSource) {
    PaperPressButton::Initialize(parent, description, dataSource);
    GUI::AttributeReader const reader(description);
    auto& button = control_.Make<CNorvelianPPressButton>(parent, "Button (Bitmap): Couldn't create it !!!");
    button.SetOwner(*this);
    button.setText(pictureName);
    isNamed_ = reader.Has(GUI::ControlAttributes::accessibleName);
    ReadTexts(reader);
    if (LoadPictures()) control_.SetSize(GetPictureWidth(), GetPictureHeight());
    control_.Connect(button, &QPushButton::clicked, [this] {
        if (GetControl()) OnClicked(GetControl()->isChecked() ? 1L : 0L);
    });
    RegisterOnUpdate();
    OnUpdate({});
}

void PaperPressButton_PC::OnDetach() {
    if (GetControl()) GetControl()->ClearOwner();
    NativeElement::OnDetach();
}

void PaperPressButton_PC::SetSize(unsigned long width, unsigned long height) {
    // The picture keeps its own size.
    if (HasPictures())
        PaperPressButton::SetSize(width, height); // NOLINT(bugprone-parent-virtual-call)
    else
        NativeElement::SetSize(width, height);
}

void PaperPressButton_PC::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                             unsigned long& minimalHeight, unsigned long& maximalHeight) {
    if (!HasPictures())
        return PaperPressButton::GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    minimalWidth = maximalWidth = GetPictureWidth();
    minimalHeight = maximalHeight = GetPictureHeight();
}

long PaperPressButton_PC::OnUpdate(Anything const& command) {
    GUI::CallScope const call(*this);
    if (Anything const value = GetValue(GUI::Values::state); value.IsValid() && GetControl()) {
        GetControl()->setCheckable(true);
        GetControl()->setChecked(value.GetBool());
    }
    ReadFace();
    if (Anything const value = GetValue("Show"); value.IsValid()) control_.Show(value.GetBool());
    if (GetControl() && !isNamed_) GetControl()->setAccessibleName(GUI::ToPlatformText(GetTexts()));
    UpdateControl(GUI::Values::enable);
    if (GetControl()) GetControl()->update();
    return PaperPressButton::OnUpdate(command);
}

} // namespace Ostrinda
