#pragma once

#include "gui/controls/CNorvelianFixedText.h"
#include "gui/controls/FixedText.h"

#include <QPointer>

namespace GUI {

/// Draws the static text through a native label.
class FixedText_PC : public FixedText {
public:
    ~FixedText_PC() override;

    Diagnostics::String GetValueString() override { return "FixedText_PC"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void SetPosition(unsigned long x, unsigned long y) override;
    void SetSize(unsigned long width, unsigned long height) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;

private:
    void ShowText();
    void SetFont(DescriptionTree const& description);

    Utilities::String caption_;
    QPointer<CNorvelianFixedText> control_;
};

} // namespace GUI
