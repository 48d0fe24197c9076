#pragma once

#include "gui/controls/CheckBox.h"
#include "gui/shell/NativeControl_PC.h"

class QCheckBox;

namespace GUI {

/// Shows the check box as a native one.
class CheckBox_PC : public CheckBox {
public:
    Diagnostics::String GetValueString() override { return "CheckBox_PC"; }
    /// Throws `RuntimeException` "CheckBox: Couldn't create it !!!".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void SetPosition(unsigned long x, unsigned long y) override;
    void SetSize(unsigned long width, unsigned long height) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;
    void Enable(bool enabled) override;

protected:
    void OnDetach() override;

private:
    void ShowCaption();

    NativeControl control_{*this};
    /// The control's widget.
    QCheckBox* box_ = nullptr;
    Utilities::String captionKey_;
    /// Of the data source, which gives a text and not a key.
    bool isTranslated_ = false;
};

} // namespace GUI
