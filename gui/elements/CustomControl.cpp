#include "gui/elements/CustomControl.h"

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

namespace {

void UpdateAll(GUIElement::Children const& children, CallbackTable const& callbacks) {
    for (auto it = children.Begin(); it.IsValid(); ++it) {
        callbacks.Find(it.Current()->GetElementName(), "OnUpdate").Execute({});
        UpdateAll(it.Current()->GetChildrenList(), callbacks);
    }
}

} // namespace

long CustomControl::ExecuteCallback(String const& element, String const& name, Anything const& argument) {
    return callbacks_.Find(element, name).Execute(argument);
}

void CustomControl::UpdateElements() { UpdateAll(GetChildrenList(), callbacks_); }

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
