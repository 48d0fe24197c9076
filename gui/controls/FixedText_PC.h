#pragma once

#include "gui/controls/CNorvelianFixedText.h"
#include "gui/controls/FixedText.h"
#include "gui/shell/NativeControl_PC.h"

namespace GUI {

/// Draws the static text through a native label.
class FixedText_PC : public FixedText {
public:
    Diagnostics::String GetValueString() override { return "FixedText_PC"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void SetPosition(unsigned long x, unsigned long y) override;
    void SetSize(unsigned long width, unsigned long height) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;

protected:
    void OnDetach() override;

private:
    void ShowText();

    NativeControl control_{*this};
    CNorvelianFixedText* label_ = nullptr;
    Utilities::String caption_;
    bool hasOwnWidth_ = false;
};

} // namespace GUI
