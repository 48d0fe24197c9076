#pragma once

#include "gui/elements/CallbackTable.h"
#include "gui/elements/Pane.h"

namespace GUI {

/// A row or column of tools, one for each view, and the choice among the views: the tool of the view that is
/// shown is pressed, and a pane elsewhere in the program shows the view.
///
/// Attributes: "Justification" (mandatory; "Horizontal" makes a row, anything else a column),
/// "PaneLinkElementName" (mandatory; the name under which the application knows the pane that shows the view,
/// see `Application::RegisterComponent`). The children of the description are the tools; a tool's element
/// name is the name of its view. A size range of 0 to 0 in width means 83 pixels.
///
/// The tools have the selector as their data source: it answers "State" (bool, whether the view is shown),
/// "Enabled" and "Enable" (the data source's "ItemEnabled" for the tool) and "ToolTipText" (the data
/// source's).
///
/// A click on a tool runs the data source's callback "OnClick" of the selector. If the view is another one,
/// "OnHide" of the former view follows, the pane gets the new view, and "SetUpdateHandler" of the new view
/// runs with the selector's element name; then "OnAfterClick" of the selector, with the view's name as
/// "OnClick".
///
/// What a view consists of says the data source's value "ViewDescription" of the view, the name of a
/// description (see `GUIDescriptionReader`). Without it the pane stays, and the host may call
/// `SetGUIDescriptionTree` in one of its callbacks.
class ViewSelector : public GUIElement, public DialogDataSource {
public:
    /// Tools know the selector as their data source and must not outlive this part of it.
    ~ViewSelector() override { ReleaseChildren(); }

    Diagnostics::String GetValueString() override { return "ViewSelector"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void SetPosition(unsigned long x, unsigned long y) override;
    void SetSize(unsigned long width, unsigned long height) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;
    /// Updates the tools.
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                 GUIElement const& element) const override;

    /// Told by a tool, and passed on to the data source.
    void SetValue(Utilities::String const& element, Utilities::String const& name,
                  Utilities::Anything const& value) override;
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    void SetCallback(Utilities::String const& element, Utilities::String const& name,
                     Utilities::Callback const& callback) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;
    void RemoveAllCallbacks(Utilities::String const& element) override { callbacks_.Remove(element); }

    /// Shows a view in the linked pane. Its element name is the current view from then on.
    virtual void SetGUIDescriptionTree(DescriptionTree const& view);
    /// The argument names a view; always 0.
    virtual long OnClick(Utilities::Anything const& view);

    Utilities::String const& GetCurrentView() const { return currentView_; }

protected:
    using GUIElement::GetValue;
    void OnDetach() override;

private:
    /// Null while the application knows no pane of that name.
    Pane* FindLinkedPane() const;
    void ShowView(Utilities::String const& view);
    void FireForView(Utilities::String const& view, char const* event, Utilities::Anything const& argument);
    void UpdateTools();

    Utilities::String paneLinkElementName_;
    Utilities::String currentView_;
    Utilities::SmartPointer<Pane> pane_;
    CallbackTable callbacks_;
    OwnedCallback<ViewSelector> onClick_{this, &ViewSelector::OnClick};
};

} // namespace GUI
