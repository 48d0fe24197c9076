#pragma once

#include "gui/elements/CustomControl.h"

#include <cstdint>

namespace GUI {

/// A row of tools. What doesn't fit is cut off at the right; with "Scrolling" a left and a right button
/// then appear at the end and move the row by one tool.
///
/// Attributes: "Scrolling" (empty: no scroll buttons; any text makes them), "ScrollButtonHeight" and
/// "ScrollButtonWidth" (16), "Top", "Left", "Right", "Bottom" (0: margins of the row), and those of `Pane`.
///
/// The children of the description are the tools, "Tool" or any component (which is then made in place of a
/// button), and "Separator", a gap of 10 pixels. Attributes of a tool: "ElementName", "InternalName" (the
/// handler's name of the function; also the tool's caption), "Handler" (a component that the application has
/// registered, see `Application::RegisterComponent`), "ID" (0), "ToolTipText", "Bitmap" (No: the caption is
/// a text; Yes: it names pictures), and the size range.
///
/// A tool has the bar as its data source, which asks the handler, as a `DialogDataSource`, under the internal
/// name: "Enabled" and "Enable" are its "ItemEnabled"; "Caption", "ToolTipText" and "State" go through. A
/// click runs "OnClick" of the internal name if the handler is a `CustomControl`.
///
/// Widths are those that the tools have when the row is built: a tool that has none before it is laid
/// out counts with its smallest. The row is built again at a change of language.
///
/// Scroll buttons go by the message "OnScrollTool" + element name + "SelectorName" of the data source, with
/// "LeftScroll" or "RightScroll" as its value, so that another part of a program can scroll too. Without
/// a message service nothing scrolls.
class ToolBar : public CustomControl {
public:
    static AttributesOf<ToolBar> const attributeTable;

    ~ToolBar() override { ReleaseChildren(); }

    Diagnostics::String GetValueString() override { return "ToolBar"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void SetSize(unsigned long width, unsigned long height) override;
    /// Cuts the row to the bar's width and updates the tools.
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;

    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;

    /// Makes the tools anew from the children of a description.
    virtual void BuildRow(DescriptionTree const& description);
    /// What the element of a tool is described with.
    virtual void FillToolDescription(DescriptionTree& tool, DescriptionTree const& entry);
    /// The arguments of these are names of elements; each gives 0.
    virtual long OnClick(Utilities::Anything const& tool);
    virtual long OnScrollTool(Utilities::Anything const& button);
    /// Scrolls to a tool that is beyond the right edge.
    virtual long OnShowTool(Utilities::Anything const& tool);
    virtual long OnScrollClick(Utilities::Anything const& button);

    /// The first tool that shows, and how many do; both count no separators and are 0 while the whole
    /// row fits.
    std::uint32_t GetFirstVisible() const { return firstVisible_; }
    std::uint32_t GetVisibleCount() const { return visibleCount_; }

protected:
    using CustomControl::GetValue;
    /// Enters a callback with the message service, if there is one, until the bar is released. Messages are
    /// named event + element name + "SelectorName" of the data source.
    void EnterMessage(char const* event, Utilities::Callback const& callback);
    /// Sends what was entered; 0 without a message service.
    long SendMessage(char const* event, Utilities::Anything const& value);
    void OnDetach() override;
    void SetFirstVisible(std::uint32_t tool) { firstVisible_ = tool; }
    /// What the row was built from last.
    DescriptionTree const& GetRowDescription() const { return description_; }
    static bool IsScrollButton(Utilities::String const& element);

private:
    using Row = Utilities::SmartPointer<DescriptionTree>;

    void CreateRow();
    void Show(DescriptionTree const& row, Utilities::SmartPointer<DescriptionTree> const& box);
    void Measure(DescriptionTree& row);
    void CutRow();
    Utilities::Anything AskHandler(Utilities::String const& element, Utilities::String const& key);

    DescriptionTree description_;
    /// Of each tool by its element name, the handler and the internal name.
    Utilities::Map<Utilities::String, DescriptionTree> tools_;
    Utilities::String scrolling_;
    Utilities::String messageSuffix_;
    Utilities::List<Utilities::String> messages_;
    std::uint32_t firstVisible_ = 0;
    std::uint32_t visibleCount_ = 0;
    /// An entry each for tool, separator, scroll button and margin, under its name, with its "Width".
    Row row_;
    /// Which entries the elements were made for, empty for all; they are only made anew when that changes.
    Utilities::String shown_;
    bool building_ = false;
    bool rebuildsAgain_ = false;
    bool updatesAgain_ = false;
    OwnedCallback<ToolBar> onClick_{this, &ToolBar::OnClick};
    OwnedCallback<ToolBar> onShowTool_{this, &ToolBar::OnShowTool};
    OwnedCallback<ToolBar> onScrollClick_{this, &ToolBar::OnScrollClick};
    OwnedCallback<ToolBar> onScrollTool_{this, &ToolBar::OnScrollTool};
};

} // namespace GUI
