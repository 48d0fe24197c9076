#include "gui/controls/Edit_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/controls/ControlFont_PC.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/platform/TextConversion_PC.h"

#include <QLocale>

namespace GUI {

using Utilities::Anything;
using Utilities::LanguageServiceInterface;
using Utilities::String;

namespace {

ElementRegistration<Edit_PC, GUIElement> const registration({"Edit", "$Revision: 1.29 $", "GUI"},
                                                            Edit::attributes);

constexpr char const* failure = "Edit: Couldn't create it !!!";

} // namespace

void Edit_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    Edit::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    if (reader.Flag(multiLine))
        MakeLines(parent, reader);
    else
        MakeLine(parent, reader);
    control_.SetFont(ReadFont(reader, {fontName, fontSize, bold, italic, underline}, GetControl()->font()));
    if (reader.HasColour(ControlAttributes::fontColor))
        control_.SetTextColor(reader.Colour(ControlAttributes::fontColor));
    if (reader.HasColour(ControlAttributes::backgroundColor))
        control_.SetBackgroundColor(reader.Colour(ControlAttributes::backgroundColor));
    SetReadOnly(reader.Flag(readOnly));
    placeholderKey_ = reader.Text(placeholder);
    validationKey_ = reader.Text(validationText);
    if (String const side = reader.Text(validationPlace); side == "Right")
        messageSide_ = CNorvelianEdit::Side::Right;
    else if (side == "Below")
        messageSide_ = CNorvelianEdit::Side::Below;
    ReadTexts(reader);
    ShowPlaceholder();
    if (auto const shown = TakeText(reader.Text(text))) ShowText(*shown);
    control_.ConnectFocus([this](bool focused) { OnFocus(focused); });
    OnUpdate({});
}

void Edit_PC::MakeLine(PlatformIndependentWindowID const& parent, AttributeReader const& reader) {
    auto& line = control_.Make<CNorvelianEdit>(parent, failure);
    line.setFrame(reader.Flag(frame));
    if (reader.Flag(password)) line.setEchoMode(QLineEdit::Password);
    control_.Connect(line, &QLineEdit::textEdited,
                     [this](QString const& typed) { OnTyped(FromPlatformText(typed)); });
    if (!Commits()) return;
    control_.Connect(line, &QLineEdit::editingFinished, [this] { OnFinished(); });
    line.SetEscape([this] {
        auto const former = TakeBack();
        if (former) ShowText(*former);
        return former.has_value();
    });
}

void Edit_PC::MakeLines(PlatformIndependentWindowID const& parent, AttributeReader const& reader) {
    auto& lines = control_.Make<CNorvelianMultiLineEdit>(parent, failure);
    lines.setFrameShape(reader.Flag(frame) ? QFrame::StyledPanel : QFrame::NoFrame);
    String const bars = reader.Text(scrollBar);
    bool const horizontal = bars == "Horizontal" || bars == "Both";
    bool const vertical = bars == "Vertical" || bars == "Both";
    lines.setHorizontalScrollBarPolicy(horizontal ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    lines.setVerticalScrollBarPolicy(vertical ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    lines.setLineWrapMode(horizontal ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
    control_.Connect(lines, &QPlainTextEdit::textChanged, [this] {
        if (!showing_) OnTyped(FromPlatformText(GetLines()->toPlainText()));
    });
}

void Edit_PC::ShowText(String const& shown) {
    showing_ = true;
    if (CNorvelianEdit* const line = GetLine()) line->setText(ToPlatformText(shown));
    if (CNorvelianMultiLineEdit* const lines = GetLines()) lines->setPlainText(ToPlatformText(shown));
    showing_ = false;
}

void Edit_PC::SetReadOnly(bool fixed) {
    if (CNorvelianEdit* const line = GetLine()) line->setReadOnly(fixed);
    if (CNorvelianMultiLineEdit* const lines = GetLines()) lines->setReadOnly(fixed);
}

void Edit_PC::ShowPlaceholder() {
    QString const shown = ToPlatformText(LanguageServiceInterface::GetTranslation(placeholderKey_));
    if (CNorvelianEdit* const line = GetLine()) line->setPlaceholderText(shown);
    if (CNorvelianMultiLineEdit* const lines = GetLines()) lines->setPlaceholderText(shown);
}

void Edit_PC::ShowValid() {
    CNorvelianEdit* const line = GetLine();
    if (!line) return;
    line->ShowValid(IsValid());
    // The own tool tip comes back with a text that is right.
    QString const reason = ToPlatformText(LanguageServiceInterface::GetTranslation(validationKey_));
    line->setAccessibleDescription(IsValid() ? QString() : reason);
    line->ShowMessage(IsValid() ? QString() : reason, messageSide_);
    if (IsValid())
        ShowTexts();
    else if (!reason.isEmpty())
        line->setToolTip(AsPlainToolTip(reason));
}

std::string Edit_PC::GetDecimalSign() const {
    return GetControl() ? FromPlatformText(GetControl()->locale().decimalPoint()).GetStdString() : ".";
}

long Edit_PC::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (Anything const value = GetValue(bold.key); value.IsValid()) control_.SetBold(value.GetBool());
    if (Anything const value = GetValue(ControlAttributes::backgroundColor.key); value.IsValid())
        control_.SetBackgroundColor(RGBVector(value));
    if (Anything const value = GetValue(ControlAttributes::fontColor.key); value.IsValid())
        control_.SetTextColor(RGBVector(value));
    for (char const* const key : {text.key, Values::caption})
        if (Anything const value = GetValue(key); value.IsOfTypeString())
            if (auto const shown = TakeText(value.GetString())) ShowText(*shown);
    UpdateControl();
    if (Anything const value = GetValue("FirstVisibleLine"); value.IsValid() && GetLines())
        GetLines()->ShowLine(static_cast<int>(value.GetLong()));
    if (Anything const value = GetValue(readOnly.key); value.IsValid()) SetReadOnly(value.GetBool());
    return Edit::OnUpdate(command);
}

void Edit_PC::OnLanguageChanged() {
    NativeElement::OnLanguageChanged();
    ShowPlaceholder();
    if (!IsValid()) ShowValid();
}

} // namespace GUI
