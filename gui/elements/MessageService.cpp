#include "gui/elements/MessageService.h"

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
    return callbacks_[name].Execute(value);
}

void MessageService::Suspend() { ++suspendCount_; }

void MessageService::Resume() {
    if (suspendCount_ != 0) --suspendCount_;
}

} // namespace GUI
