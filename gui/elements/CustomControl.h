#pragma once

#include "gui/elements/CallbackTable.h"
#include "gui/elements/Pane.h"

namespace GUI {

/// A composite: a pane whose child elements see the control itself as their data source. Values and
/// callbacks of the children are kept in the control's own tables.
class CustomControl : public DialogDataSource, public Pane {
public:
    /// Children know the control as their data source and must not outlive this part of it.
    ~CustomControl() override { ReleaseChildren(); }

    void Invariant() const override {}
    Diagnostics::String GetValueString() override { return "CustomControl"; }

    /// The callback's result; 0 if there is none.
    virtual long ExecuteCallback(Utilities::String const& element, Utilities::String const& name,
                                 Utilities::Anything const& argument);
    /// Sends every child that registered one an "OnUpdate" without a command.
    virtual void UpdateElements();
    virtual void SetGUIDescriptionTree(DescriptionTree const& description);
    using Pane::SetGUIDescriptionTree;

    void SetValue(Utilities::String const& element, Utilities::String const& name,
                  Utilities::Anything const& value) override;
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    void SetCallback(Utilities::String const& element, Utilities::String const& name,
                     Utilities::Callback const& callback) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;
    void RemoveAllCallbacks(Utilities::String const& element) override;

protected:
    /// Children see the control itself as their data source.
    void CreateDescribedChildren(DescriptionTree const& description) override {
        CreateChildren(*GetWindowID(), description, this);
    }
    using Pane::GetValue;

private:
    CallbackTable callbacks_;
    Utilities::Map<Utilities::String, AttributeMap> values_;
};

} // namespace GUI
