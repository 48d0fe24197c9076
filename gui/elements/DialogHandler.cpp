#include "gui/elements/DialogHandler.h"

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

namespace {

template <class T> void RemoveEntry(Utilities::Map<String, T*>& handlers, String const& element) {
    if (handlers.Find(element).IsValid()) handlers.Remove(element);
}

template <class T> T* FindEntry(Utilities::Map<String, T*> const& handlers, String const& element) {
    auto const found = handlers.Find(element);
    return found.IsValid() ? found.GetValue() : nullptr;
}

} // namespace

long DialogHandler::ExecuteCallback(String const& element, String const& name, Anything const& argument) {
    return GetCallback(element, name).Execute(argument);
}

long DialogHandler::OnHelp(Anything const& /*argument*/) { return 0; }

void DialogHandler::RegisterDropHandler(String const& element, DropHandlerBase& handler) {
    dropHandlers_[element] = &handler;
}
void DialogHandler::UnregisterDropHandler(String const& element) { RemoveEntry(dropHandlers_, element); }
DropHandlerBase* DialogHandler::GetDropHandler(String const& element) {
    return FindEntry(dropHandlers_, element);
}

void DialogHandler::RegisterCopyPasteHandler(String const& element, SupportsCopyPaste& handler) {
    copyPasteHandlers_[element] = &handler;
}
void DialogHandler::UnregisterCopyPasteHandler(String const& element) {
    RemoveEntry(copyPasteHandlers_, element);
}

void DialogHandler::SetValue(String const& /*element*/, String const& /*name*/, Anything const& /*value*/) {}
Anything DialogHandler::GetValue(String const& /*element*/, String const& /*name*/) { return {}; }

void DialogHandler::SetCallback(String const& element, String const& name, Callback const& callback) {
    callbacks_.Set(element, name, callback);
}
Callback DialogHandler::GetCallback(String const& element, String const& name) {
    return callbacks_.Find(element, name);
}
void DialogHandler::RemoveAllCallbacks(String const& element) { callbacks_.Remove(element); }

SupportsCopyPaste& DialogHandler::GetCopyPasteHandler(String const& element) {
    SupportsCopyPaste* const handler = FindEntry(copyPasteHandlers_, element);
    return handler ? *handler : *this;
}

bool DialogHandler::OnDrop(PlatformIndependentWindowID const& /*window*/, DropDataObject const& /*data*/,
                           DropEffect /*effect*/, long /*x*/, long /*y*/) {
    return false;
}

DropEffect DialogHandler::OnDragOver(PlatformIndependentWindowID const& /*window*/,
                                     DropDataObject const& /*data*/, KeyState const& /*keyState*/, long /*x*/,
                                     long /*y*/) {
    return DropEffect::None;
}

} // namespace GUI
