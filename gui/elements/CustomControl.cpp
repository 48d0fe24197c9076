#include "gui/elements/CustomControl.h"

#include "gui/elements/Topics.h"

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

namespace {

void UpdateAll(GUIElement::Children const& children, CallbackTable const& callbacks) {
    for (auto it = children.Begin(); it.IsValid(); ++it) {
        // The iterator keeps the child while the list may lose it.
        GUIElement const& child = *it.Current();
        callbacks.Find(it.Current()->GetElementName(), Events::update).Execute({});
        UpdateAll(child.GetChildrenList(), callbacks);
        // Whom it told may have had all children made anew.
        if (!it.IsValid()) return;
    }
}

} // namespace

long CustomControl::ExecuteCallback(String const& element, String const& name, Anything const& argument) {
    CallScope const call(*this);
    return callbacks_.Find(element, name).Execute(argument);
}

void CustomControl::UpdateElements() {
    CallScope const call(*this);
    UpdateAll(GetChildrenList(), callbacks_);
}

void CustomControl::SetGUIDescriptionTree(DescriptionTree const& description) {
    Pane::SetGUIDescriptionTree(description, this);
}

void CustomControl::SetValue(String const& element, String const& name, Anything const& value) {
    values_[element][name] = value;
}

Anything CustomControl::GetValue(String const& element, String const& name) {
    auto const names = values_.Find(element);
    if (!names.IsValid()) return {};
    auto const found = names.GetValue().Find(name);
    return found.IsValid() ? found.GetValue() : Anything();
}

void CustomControl::SetCallback(String const& element, String const& name, Callback const& callback) {
    callbacks_.Set(element, name, callback);
}

Callback CustomControl::GetCallback(String const& element, String const& name) {
    return callbacks_.Find(element, name);
}

void CustomControl::RemoveAllCallbacks(String const& element) { callbacks_.Remove(element); }

} // namespace GUI
