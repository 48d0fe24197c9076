#pragma once

#include "gui/controls/CheckBox.h"
#include "gui/controls/NativeElement_PC.h"

#include <QCheckBox>

namespace GUI {

/// Shows the check box as a native one.
class CheckBox_PC : public NativeElement<CheckBox, QCheckBox> {
public:
    Diagnostics::String GetValueString() override { return "CheckBox_PC"; }
    /// Throws `RuntimeException` "CheckBox: Couldn't create it !!!".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;

private:
    void ShowCaption();

    Utilities::String captionKey_;
    /// Of the data source, which gives a text and not a key.
    bool isTranslated_ = false;
    bool mnemonics_ = false;
};

} // namespace GUI
