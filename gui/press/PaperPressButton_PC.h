#pragma once

#include "gui/controls/NativeElement_PC.h"
#include "gui/press/CNorvelianPPressButton.h"
#include "gui/press/PaperPressButton.h"

namespace Ostrinda {

/// Shows the button as a native one of its picture's size.
class PaperPressButton_PC : public GUI::NativeElement<PaperPressButton, CNorvelianPPressButton> {
public:
    Diagnostics::String GetValueString() override { return "PaperPressButton_PC"; }
    /// Throws `RuntimeException` "Button (Bitmap): Couldn't create it !!!" without a window.
    void Initialize(GUI::PlatformIndependentWindowID const& parent, GUI::DescriptionTree const& description,
                    GUI::DialogDataSource* dataSource) override;
    void SetSize(unsigned long width, unsigned long height) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;
    long OnUpdate(Utilities::Anything const& command) override;

protected:
    void OnDetach() override;

private:
    bool isNamed_ = false;
};

} // namespace Ostrinda
