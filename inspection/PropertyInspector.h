#pragma once

#include "gui/elements/PropertyInspectorImpl.h"
#include "gui/elements/SelectionServiceInterface.h"
#include "gui/elements/application/Dialog.h"

namespace GUI {

/// The floating window that shows what is known of the selected element: the component "PropertyInspector".
///
/// It follows the topic "PropertyInspector" of the selection service while it is shown. The selected element
/// names the page (see `PropertyInspectorImpl`); without one it is "PropertyInspectorDefault". The window
/// stays when pages change. Closing it hides the inspector.
///
/// GUI thread only.
class PropertyInspector : public DialogHandler {
public:
    PropertyInspector();
    PropertyInspector(PropertyInspector const&) = delete;
    PropertyInspector& operator=(PropertyInspector const&) = delete;
    ~PropertyInspector() override;

    Diagnostics::String GetValueString() override { return "PropertyInspector"; }
    bool PrepareForUnload() override;

    /// Shows the inspector if it is hidden, and hides it if it is shown.
    virtual void Toggle();
    virtual long OnSelectionChanged(Utilities::Anything const& topic);
    virtual long OnClose(Utilities::Anything const& argument);

    bool IsVisible() const { return visible_; }

    void SetValue(Utilities::String const& element, Utilities::String const& name,
                  Utilities::Anything const& value) override;
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    void SetCallback(Utilities::String const& element, Utilities::String const& name,
                     Utilities::Callback const& callback) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;
    void RemoveAllCallbacks(Utilities::String const& element) override;

private:
    void Show();
    void Hide();
    void OpenWindow(Utilities::SmartPointer<PropertyInspectorImpl> const& page);
    bool HasWindow() const;

    Utilities::SmartPointer<Dialog> window_;
    Utilities::SmartPointer<SelectionServiceInterface> selectionService_;
    bool visible_ = false;
    Utilities::String cookie_;
    Utilities::SmartPointer<PropertyInspectorImpl> page_;
    /// Elements keep to the description that they were made from.
    DescriptionTree description_;
};

} // namespace GUI
