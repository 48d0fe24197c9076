#include "gui/controls/DropDown_PC.h"

#include "gui/elements/description/ElementRegistration.h"
#include "gui/platform/Color_PC.h"

#include <QCompleter>
#include <QLineEdit>
#include <QSignalBlocker>

namespace GUI {

using Utilities::Anything;

namespace {

ElementRegistration<DropDown_PC, GUIElement> const registration({"DropDown", "$Revision: 1.24 $", "GUI"},
                                                                DropDown::attributes);

} // namespace

void DropDown_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                             DialogDataSource* dataSource) {
    DropDown::Initialize(parent, description, dataSource);
    auto& box = control_.Make<CNorvelianComboBox>(parent, "DropDown: Couldn't create it !!!");
    AttributeReader const reader(description);
    auto const font = ReadColor(reader, ControlAttributes::fontColor, 0);
    auto const background = ReadColor(reader, ControlAttributes::backgroundColor, 255);
    if (font || background)
        box.SetColors({ToColor(font.value_or(RGBVector(0, 0, 0))),
                       ToColor(background.value_or(RGBVector(255, 255, 255)))});
    box.setModel(&model_);
    if (!reader.Flag(readOnly)) {
        box.setEditable(true);
        // What the user types is as it was typed.
        box.setCompleter(nullptr);
        control_.Connect(*box.lineEdit(), &QLineEdit::textEdited,
                         [this](QString const& text) { ReportSelection(FromPlatformText(text), -1); });
    }
    control_.Connect(box, &QComboBox::activated,
                     [this](int index) { ReportSelection(GetEntries()[index], index); });
    ReadTexts(reader);
    OnUpdate({});
}

void DropDown_PC::OnDetach() {
    // The widget may live on for the rest of this event.
    model_.SetEntries(nullptr);
    NativeElement::OnDetach();
}

void DropDown_PC::ShowEntries() {
    if (!GetControl()) return;
    QSignalBlocker const quiet(GetControl());
    model_.SetEntries(&GetEntries());
    Select(-1);
}

void DropDown_PC::Select(long index) {
    if (!GetControl()) return;
    GetControl()->setCurrentIndex(static_cast<int>(index));
    if (index < 0 && GetControl()->isEditable()) GetControl()->clearEditText();
}

long DropDown_PC::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    UpdateControl();
    UpdateEntries();
    return DropDown::OnUpdate(command);
}

} // namespace GUI
