#pragma once

#include "gui/elements/KeyboardGroup.h"
#include "gui/layout/ToolBar.h"

namespace GUI {

/// A strip of tabs, one of which is selected. It keeps which one that is and answers the tabs' questions
/// about their place; what belongs to a tab is shown elsewhere.
///
/// Attributes: those of `ToolBar`, "UseBitmaps" (No; Yes leaves out the white line along the bottom edge) and
/// "BaseColor" (214,211,206). The children are the tabs, "TabCaption", whose "Caption" is mandatory here;
/// each gets its own "UseBitmaps". Tab reaches the selected tab, or else the first that shows, unless a tab's
/// "Selectable" is No; arrows, Home and End then select another one that is enabled.
///
/// Of the data source under the strip's name: "Caption ELEMENT", "MaxCaption ELEMENT" and "TabEnabled
/// ELEMENT" for a tab (see `TabCaption`), "SelectorName" once (a text that tells strips of the same name
/// apart), and at each update "CurrentTab" (a string: the selected tab; any other answer leaves it).
///
/// A click on a tab sends the message "OnTabSelectedExecute" + element name + "SelectorName"; its value is a
/// map with the tab's name as "ElementName". Without a message service a click does nothing. The data
/// source's callbacks "OnTabSelected" (the same map; "UseMessageService", anything but Yes, selects at once)
/// and "OnSetTabCaptions" (a vector of maps with "InternalName" and "Caption": replaces all tabs, by the
/// pattern of the first one) are registered under the strip's name. When the selection has changed, the
/// data source is told "CurrentTab", and its callback "OnTabChanged" runs with the tab's name.
class TabbedPaneSelector : public ToolBar, public KeyboardGroup {
public:
    ~TabbedPaneSelector() override { ReleaseChildren(); }

    Diagnostics::String GetValueString() override { return "TabbedPaneSelector"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;
    void BuildRow(DescriptionTree const& description) override;
    void FillToolDescription(DescriptionTree& tool, DescriptionTree const& entry) override;

    /// Each gives 0.
    virtual long OnTabSelected(Utilities::Anything const& tab);
    virtual long OnSetTabCaptions(Utilities::Anything const& captions);
    virtual long OnTabSelectedExecute(Utilities::Anything const& tab);

    bool OnNavigationKey(NavigationKey key, Pane& focused) override;
    bool IsTabStop(Pane& pane) override;

    /// Empty until one is selected.
    Utilities::String const& GetCurrentTab() const { return currentTab_; }
    Utilities::List<Utilities::String> const& GetTabNames() const { return tabNames_; }

protected:
    using ToolBar::GetValue;
    void OnDetach() override;

private:
    /// Counted from 0; the number of tabs for an unknown name.
    std::uint32_t GetPlace(Utilities::String const& tab) const;
    Utilities::String GetTab(std::uint32_t place) const;
    bool Shows(std::uint32_t place) const;
    bool IsBroken(Utilities::String const& tab) const;
    bool IsBehindCurrent(Utilities::String const& tab) const;
    bool IsTabEnabled(Utilities::String const& tab);
    void SelectByKey(std::uint32_t place);
    /// The tab and the one behind it, whose left border depends on it.
    void RepaintTab(Utilities::String const& tab);

    Utilities::String currentTab_;
    Utilities::List<Utilities::String> tabNames_;
    /// What new tabs are made after.
    DescriptionTree pattern_;
    bool useBitmaps_ = false;
    bool flat_ = false;
    RGBVector baseColor_{214, 211, 206};
    OwnedCallback<TabbedPaneSelector> onTabSelected_{this, &TabbedPaneSelector::OnTabSelected};
    OwnedCallback<TabbedPaneSelector> onSetTabCaptions_{this, &TabbedPaneSelector::OnSetTabCaptions};
    OwnedCallback<TabbedPaneSelector> onTabSelectedExecute_{this, &TabbedPaneSelector::OnTabSelectedExecute};
};

} // namespace GUI
