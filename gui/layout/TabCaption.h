#pragma once

#include "gui/elements/Pane.h"

#include <cstdint>

namespace GUI {

/// One tab of a strip. It draws itself from what its data source, a `TabbedPaneSelector`, says of its place.
///
/// Attributes: "Caption" (empty; a key of the language service), "FrameThickness" (1: pen width of the lines
/// between border pictures), "FontName" (empty), "FontSize" (8 points), "UseBitmaps" (Yes: border pictures,
/// on a strip of dark grey, for a height of 14 pixels; anything else: lines, for any height), "BaseColor"
/// (214,211,206: the face between lines), "Flat" (No; Yes: neither pictures nor lines, in the colours of the
/// window's theme, with the text in the middle), "ToolTipText" (none; a key too). "ID", "InternalName",
/// "Handler", "Bitmap", "Rise", "Increase" and "TabHeightUnselected" are for the strip. The width is that of
/// the text and its borders: 19 pixels more than the text in bold, 29 for the last tab, 45 for one that is
/// cut off.
///
/// Of the data source under the element's name: "Caption" (string; shown as it is), "MaxCaption" (string:
/// the longest caption, by which the width goes), "State" (bool: selected), "TabEnabled" (bool),
/// "IsFirstTab", "IsLastTab", "IsLastTabBroken" (cut off at the strip's end), "IsNeighbourActiveTab" (the one
/// in front of it is selected).
///
/// A click runs the callback "OnLeftButtonDown" with a map that has the element's name as "ElementName".
class TabCaption : public Pane {
public:
    Diagnostics::String GetValueString() override { return "TabCaption"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;
    /// Measures the caption.
    void OnGetDeviceContext(PlatformIndependentDeviceContext& context) override;
    Utilities::String GetToolTipText(unsigned short x, unsigned short y) override;
    void OnLanguageChanged() override;
    Accessible GetAccessible() override;

    virtual void DrawFrame(PlatformIndependentDeviceContext& context);
    /// The four sides between border pictures.
    virtual void DrawRightBorder(PlatformIndependentDeviceContext& context);
    virtual void DrawLeftBorder(PlatformIndependentDeviceContext& context);
    virtual void DrawTopLine(PlatformIndependentDeviceContext& context);
    virtual void DrawBottomLine(PlatformIndependentDeviceContext& context);

private:
    /// In pixels, of what is drawn in 16 bits.
    struct Size {
        short width = 0;
        short height = 0;
    };

    void ReadAttributes(DescriptionTree const& description);
    void AskCaption();
    /// True only for a valid answer that is true.
    bool Is(char const* key);
    bool IsTabEnabled();
    Size GetShortSize() const;
    /// Where the body of a tab with border pictures begins.
    short GetBodyTop() const;
    void DrawLines(PlatformIndependentDeviceContext& context);
    void DrawCaption(PlatformIndependentDeviceContext& context);

    void DrawFlat(PlatformIndependentDeviceContext& context);

    bool useBitmaps_ = true;
    bool flat_ = false;
    Utilities::String fontName_;
    short fontSize_ = 8;
    long frameThickness_ = 1;
    Utilities::String caption_;
    /// Empty once the data source has given a caption.
    Utilities::String captionKey_;
    Utilities::String toolTipKey_;
    RGBVector baseColor_{214, 211, 206};
};

} // namespace GUI
