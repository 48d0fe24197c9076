#pragma once

#include "gui/colour/ColorGUIElement.h"
#include "gui/elements/NumberTable.h"

namespace GUI {

/// One measured colour as a selectable pane of that colour. Derived classes paint other shapes and mark
/// the active state.
///
/// Values asked of the data source under the element's name: at each paint "ColorValue" (the colour to
/// show; without it the pane's background colour stays) and "IsActive" (no, by default); at a selection
/// "IsSelectable" (yes, by default; no refuses to be selected).
///
/// A click executes the data source's callback "OnLeftButtonDown" of the element, with the element's name
/// as the argument, and is then consumed; without such a callback it is passed on.
class Patch : public ColorGUIElement, public SupportsNumberTable {
public:
    Diagnostics::String GetValueString() override { return "Patch"; }
    /// A patch is black until it gets a colour.
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void OnSelectionChanged(Utilities::String const& elementName, bool selected) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;

    /// "PropertyInspectorSample" if the data source gives samples.
    Utilities::String GetPropertyInspectorName() override;
    DataAccess* GetPropertyInspectorHandler() override;
    /// A map of "ElementName" and "CurrentRegion".
    Utilities::Anything GetPropertyInspectorData() override;
    Utilities::String GetNumberTable() override;

protected:
    /// The "ColorValue", or else the pane's background colour.
    RGBVector GetShownColor();
    /// Selected, or active by the data source.
    bool IsMarked();
    /// White on dark colours, whose three channels come to less than 300; black on others.
    static RGBVector GetMarkColor(RGBVector const& shown);

    /// Of derived classes: reads "MarkOutside" and "SurroundColor".
    void ReadSurround(AttributeMap const& description);
    bool MarksOutside() const { return marksOutside_; }
    RGBVector const& GetSurround() const { return surround_; }
    /// Fills the pane with its background picture, or else with the surround's colour.
    void PaintSurround(PlatformIndependentDeviceContext& context);
    /// The colour as a rectangle or disc in a box, with room for the mark around it, and the mark if the
    /// patch is to be marked.
    void PaintColorAndMark(PlatformIndependentDeviceContext& context, RGBVector const& color, short width,
                           short height, bool isMarked, bool isRound);

private:
    bool marksOutside_ = false;
    RGBVector surround_;
};

} // namespace GUI
