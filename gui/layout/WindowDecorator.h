#pragma once

#include "gui/elements/Pane.h"

namespace GUI {

/// Draws over a painted window: a frame around an element, guides through it, a badge at its corner. It has
/// no window of its own and lets the mouse through. It stands among the children of a box and takes no room
/// there.
///
/// Attributes: "ElementName" (empty), "Target" (empty: the box that the decorator is in; else the element
/// name of one in the same window), "Kind" ("Focus": two lines around it, in two tones that can be seen on
/// any colour; "Guides": lines along its edges through the whole window; "Badge": a disc with a text at its
/// upper right corner), "Color" (29,95,166), "TextColor" (255,255,255), "Text" (empty, of a badge; a key of
/// the language service), "Visible" (Yes).
///
/// Of the data source at each update, under the element's name: "Target" (string), "Text" (string), "Color"
/// (colour), "Visible" (bool); invalid answers change nothing. An update repaints the window, unless
/// "|NoRepaint" is in the command.
///
/// A target that isn't there, or has no size, isn't decorated. A frame lies outside of its target, so that it
/// covers no measured colour.
class WindowDecorator : public GUIElement {
public:
    Diagnostics::String GetValueString() override { return "WindowDecorator"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;
    /// `context` has the window's coordinates.
    void OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                 GUIElement const& element) const override;

private:
    struct Box {
        long left = 0;
        long top = 0;
        long right = 0;
        long bottom = 0;
    };

    GUIElement const& GetRoot() const;
    /// Null if there is none.
    GUIElement const* FindTarget() const;
    /// In the window.
    static Box GetBox(GUIElement const& element);
    void DrawFocus(PlatformIndependentDeviceContext& context, Box const& box) const;
    void DrawGuides(PlatformIndependentDeviceContext& context, Box const& box) const;
    void DrawBadge(PlatformIndependentDeviceContext& context, Box const& box) const;
    void RepaintWindow();

    Utilities::String target_;
    Utilities::String kind_;
    Utilities::String text_;
    /// Empty once the data source has given a text.
    Utilities::String textKey_;
    RGBVector color_;
    RGBVector textColor_;
    bool visible_ = true;
};

} // namespace GUI
