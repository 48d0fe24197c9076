#pragma once

#include "core/values/Callback.h"
#include "gui/elements/SupportsCopyPaste.h"

namespace GUI {

class GUIElement;

/// Values and callbacks by element name: where elements pull what they show, and report what happens.
class DialogDataSource : public SupportsCopyPaste {
public:
    void Invariant() const override {}
    virtual void SetValue(Utilities::String const& element, Utilities::String const& name,
                          Utilities::Anything const& value) = 0;
    /// An invalid value leaves what the element shows as it is.
    virtual Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) = 0;
    virtual void SetCallback(Utilities::String const& element, Utilities::String const& name,
                             Utilities::Callback const& callback) = 0;
    virtual Utilities::Callback GetCallback(Utilities::String const& element,
                                            Utilities::String const& name) = 0;
    virtual void RemoveAllCallbacks(Utilities::String const& /*element*/) {}
    virtual void SetDialogRootElement(GUIElement const* root) { root_ = root; }
    virtual GUIElement const* GetDialogRootElement() const { return root_; }
    /// Called when a dialog is painted for the first time.
    virtual void SetDefaultSelection() {}

private:
    GUIElement const* root_ = nullptr;
};

} // namespace GUI
