#pragma once

#include "gui/controls/CNorvelianEdit.h"
#include "gui/controls/Edit.h"
#include "gui/controls/NativeElement_PC.h"

namespace GUI {

/// Shows the field as a native one: `CNorvelianEdit`, with several lines `CNorvelianMultiLineEdit`.
class Edit_PC : public NativeElement<Edit, QWidget> {
public:
    Diagnostics::String GetValueString() override { return "Edit_PC"; }
    /// Throws `RuntimeException` "Edit: Couldn't create it !!!".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;

protected:
    void ShowValid() override;
    std::string GetDecimalSign() const override;

private:
    void MakeLine(PlatformIndependentWindowID const& parent, AttributeReader const& reader);
    void MakeLines(PlatformIndependentWindowID const& parent, AttributeReader const& reader);
    /// Null for the other kind of field, and once the element is released.
    CNorvelianEdit* GetLine() const { return dynamic_cast<CNorvelianEdit*>(GetControl()); }
    CNorvelianMultiLineEdit* GetLines() const { return dynamic_cast<CNorvelianMultiLineEdit*>(GetControl()); }
    void ShowText(Utilities::String const& text);
    void SetReadOnly(bool readOnly);
    void ShowPlaceholder();

    Utilities::String placeholderKey_;
    Utilities::String validationKey_;
    CNorvelianEdit::Side messageSide_ = CNorvelianEdit::Side::None;
    /// A change by the program, of which the platform tells as of one by the user.
    bool showing_ = false;
};

} // namespace GUI
