#pragma once

#include "gui/elements/CustomControl.h"

namespace ColourDesk {

/// What executes the tools of the tool bar, known to the application as "DeskTools": a tool is a function of
/// the window, under the name that it has in the menu too.
class DeskTools : public GUI::CustomControl {
public:
    static constexpr char const* componentName = "DeskTools";

    Diagnostics::String GetValueString() override { return "DeskTools"; }
    /// Null for none.
    void SetWindow(GUI::DialogDataSource* window) { window_ = window; }
    GUI::DialogDataSource* GetWindow() const { return window_; }

    Utilities::Anything GetValue(Utilities::String const& function, Utilities::String const& key) override;
    Utilities::Callback GetCallback(Utilities::String const& function,
                                    Utilities::String const& event) override;

private:
    using CustomControl::GetValue;

    GUI::DialogDataSource* window_ = nullptr;
};

} // namespace ColourDesk
