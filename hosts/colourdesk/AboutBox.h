#pragma once

#include "gui/elements/DialogHandler.h"
#include "gui/elements/application/Dialog.h"

namespace ColourDesk {

/// The dialog that says what the program is and, for support, on which machine it runs with what.
class AboutBox : public GUI::DialogHandler {
public:
    Diagnostics::String GetValueString() override { return "AboutBox"; }
    /// Shows it over the window, and returns when it is closed.
    void Show(GUI::PlatformIndependentWindowID const& parent);

    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& key) override;
    Utilities::Callback GetCallback(Utilities::String const& element,
                                    Utilities::String const& event) override;

    /// Program, system, and the modules that are loaded, in English.
    static std::string MakeSupportText();

private:
    long OnCopy(Utilities::Anything const& argument);
    long OnCloseButton(Utilities::Anything const& argument);

    std::string text_;
    Utilities::SmartPointer<GUI::Dialog> dialog_;
};

} // namespace ColourDesk
