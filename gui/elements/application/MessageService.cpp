#include "gui/elements/application/MessageService.h"

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

MessageService::~MessageService() = default;

void MessageService::SetCallback(String const& name, Callback const& callback) {
    callbacks_[name] = callback;
}

void MessageService::RemoveCallback(String const& name) {
    auto position = callbacks_.Find(name);
    if (position.IsValid()) callbacks_.Remove(position);
}

long MessageService::SendMessage(String const& name, Anything const& value) {
    // Names come from anywhere; one that nobody takes mustn't stay.
    auto const* const callback = callbacks_.FindValue(name);
    return callback ? Callback(*callback).Execute(value) : 0;
}

void MessageService::Suspend() { ++suspendCount_; }

void MessageService::Resume() {
    if (suspendCount_ != 0) --suspendCount_;
}

} // namespace GUI
