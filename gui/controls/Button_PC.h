#pragma once

#include "gui/controls/Button.h"
#include "gui/controls/CNorvelianBitmapButton.h"
#include "gui/controls/NativeElement_PC.h"

namespace GUI {

/// Shows the button as a native one. A picture button has the size of its normal picture and no other.
class Button_PC : public NativeElement<Button, CNorvelianButton> {
public:
    Diagnostics::String GetValueString() override { return "Button_PC"; }
    /// Throws `RuntimeException` "Button (Text): Couldn't create it !!!" or "Button (Bitmap): ...".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void SetSize(unsigned long width, unsigned long height) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;

private:
    void ShowCaption();
    void UpdateState();
    void OnClick();
    /// Null for a text button, and once the element is released.
    CNorvelianBitmapButton* GetPictureButton() const;

    Utilities::String caption_;
    /// Of the data source, which gives a text and not a key.
    bool isTranslated_ = false;
    bool mnemonics_ = false;
};

} // namespace GUI
