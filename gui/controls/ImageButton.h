#pragma once

#include "core/component/ComponentCreatorBase.h"
#include "gui/controls/ControlAttributes.h"
#include "gui/elements/Pane.h"

#include <utility>

namespace GUI {

/// A button that the system draws itself, with one image for each state: the image named after the caption
/// and the state, "Up", "Over", "Down" or "Disabled", at its own size from the top left corner. Of a name
/// with more than 30 characters only the last 30 count.
///
/// Attributes: "Caption" (empty: first part of the images' names), "ToolTipText" (none; a key of the language
/// service), "AccessibleName" (none; a key too), and those of `Pane`. With "BackgroundColor" the pane is
/// painted under the image. With "Selectable" Tab reaches it, and Space and Enter click it.
///
/// Of the data source at each update, under the element's name: "Enable" (bool; false disables), "State"
/// (bool; true holds it down), "Caption" (string), "ToolTipText" (string). Without a valid answer to the
/// first two it is up. A click runs the callback "OnClick" with the element's name.
class ImageButton : public Pane {
public:
    static constexpr Utilities::ComponentDescription componentDescription{"ImageButton",
                                                                          "$Revision: 1.12.4.1 $", "GUI"};
    static AttributesOf<ImageButton> const attributeTable;
    static constexpr Attribute caption{"Caption", AttributeType::Text, "", "First part of the images' names"};

    Diagnostics::String GetValueString() override { return "ImageButton"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    long OnUpdate(Utilities::Anything const& command) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;
    bool OnLeftButtonUp(long x, long y) override;
    bool OnMouseMove(long x, long y) override;
    bool OnMouseLeave() override;
    Utilities::String GetToolTipText(unsigned short x, unsigned short y) override;
    void OnLanguageChanged() override;
    /// A button, named by "AccessibleName", else the tool tip, else the caption.
    Accessible GetAccessible() override;

    /// Whether the mouse was last seen in the pane.
    virtual bool IsInside();
    virtual Utilities::String GetState();
    /// Whether a click is to run no callback.
    virtual bool SuppressClick();

protected:
    static constexpr char const* up = "Up";
    static constexpr char const* over = "Over";
    static constexpr char const* down = "Down";
    static constexpr char const* disabled = "Disabled";

private:
    bool IsDisabled() const { return state_ == disabled; }
    /// "Disabled", "Down" or "Up", as the data source says.
    void AskState();
    void ShowState();

    Utilities::String caption_;
    Utilities::String state_ = up;
    bool mouseDown_ = false;
    std::pair<long, long> mousePosition_{-1, -1};
    Utilities::String toolTip_;
    /// Empty once the data source has given a tip.
    Utilities::String toolTipKey_;
    Utilities::String nameKey_;
    bool hasBackground_ = false;
};

} // namespace GUI
