#include "hosts/colourdesk/DeskTools.h"

namespace ColourDesk {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

namespace {

/// A menu tells what was chosen with the click, a tool bar in the question for its callback.
class ToolCallback : public Utilities::CallbackImplementation {
public:
    ToolCallback(Callback const& click, String const& function) : click_(click), function_(function) {}
    Diagnostics::String GetValueString() override { return "ToolCallback"; }
    long Execute(Anything const& /*argument*/) override { return click_.Execute(function_); }
    bool IsValid() override { return click_.IsValid(); }

private:
    Callback click_;
    String function_;
};

} // namespace

Anything DeskTools::GetValue(String const& function, String const& key) {
    return window_ ? window_->GetValue(function, key) : Anything();
}

Callback DeskTools::GetCallback(String const& function, String const& event) {
    Callback const click = window_ ? window_->GetCallback(function, event) : Callback();
    return click.IsValid() ? Callback(Utilities::MakeSmart<ToolCallback>(click, function)) : Callback();
}

} // namespace ColourDesk
