#pragma once

#include "gui/elements/Pane.h"

namespace GUI {

/// A pane that shows one of several views: each child of its description is a view, known by its
/// "ElementName", and only the elements of the view that is shown exist. At first that is the first view.
///
/// Of the data source at each update: "CurrentView" (string), the name of the view to show; an answer that is
/// no string leaves the view. The callback "OnUpdate" is registered under the pane's name. An unknown name
/// leaves the pane empty; the view that is asked for next is made even if it is the one that was shown
/// before. After a change the elements of the dialog get an "OnUpdate", and the dialog lays itself out again.
///
/// The size range is that of the pane's attributes, whichever view is shown.
class GUIDSwitcher : public Pane {
public:
    Diagnostics::String GetValueString() override { return "GUIDSwitcher"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    /// 0 if the view stays, 1 if it changed.
    long OnUpdate(Utilities::Anything const& command) override;

    /// The view that was made last; empty if there was none.
    Utilities::String const& GetCurrentView() const { return currentView_; }

private:
    /// Makes the elements of a view in place of the former ones; false for an unknown name.
    bool MakeView(Utilities::String const& name);
    void UpdateDialog();
    void LayOutView();

    DescriptionTree viewDescriptions_;
    Utilities::String currentView_;
};

} // namespace GUI
