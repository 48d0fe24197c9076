#pragma once

#include "Utilities/Tools/Map.h"
#include "core/values/Callback.h"

namespace GUI {

/// Callbacks by element name, then event name.
class CallbackTable {
public:
    /// Replaces what was there.
    void Set(Utilities::String const& element, Utilities::String const& event,
             Utilities::Callback const& callback) {
        callbacks_[element][event] = callback;
    }
    /// Throws `OutOfRangeException` for an unknown element or event.
    Utilities::Callback const& At(Utilities::String const& element, Utilities::String const& event) const {
        return callbacks_[element][event];
    }
    /// Invalid for an unknown element or event.
    Utilities::Callback Find(Utilities::String const& element, Utilities::String const& event) const {
        auto const events = callbacks_.Find(element);
        if (!events.IsValid()) return {};
        auto const found = events.GetValue().Find(event);
        return found.IsValid() ? found.GetValue() : Utilities::Callback();
    }
    void Remove(Utilities::String const& element) {
        if (callbacks_.Find(element).IsValid()) callbacks_.Remove(element);
    }
    void Clear() { callbacks_ = {}; }

private:
    Utilities::Map<Utilities::String, Utilities::Map<Utilities::String, Utilities::Callback>> callbacks_;
};

} // namespace GUI
