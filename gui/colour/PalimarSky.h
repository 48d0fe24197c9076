#pragma once

#include "gui/colour/HarmonyElement.h"
#include "gui/elements/PaintedPart.h"

#include <array>
#include <cstddef>

namespace GUI {

/// A colour scheme as one round picture of eighteen fields: a ring of twelve slices (numbers 100 to 111,
/// counter-clockwise, the first one around the x axis), inside it a disc of three triangles (10 to 12), and
/// in the middle three kites (0 to 2). A field whose colour the screen can't show carries a warning sign. A
/// drag stresses the kite under the mouse. An update that changes one field paints its part alone.
///
/// Attributes: "OuterRadius", "InnerRadius" (0, in pixels: of the ring; the disc has the inner one; the
/// picture needs both), "Smooth" (No).
///
/// Values asked of the data source under the element's name: at an update "Color of Slice " and each number
/// (white for kites and 241,241,241 for other fields without an answer); at a paint of a selected element
/// "SelectedSlice" (short; its field is outlined); for the current region "CurrentSlice" (short).
///
/// A click tells the data source "Selected Slice" (the text "Slice " and the number, -1 for none), runs the
/// callback "OnLeftButtonDown" with a map of "ElementName", "XPosition" and "YPosition", and is consumed. A
/// notice of a selection other than the focus waits for the click, which may choose another field first;
/// only what `Select` asks for doesn't wait. Points on the edge of a circle belong to no field.
class PalimarSky : public HarmonyElement {
public:
    Diagnostics::String GetValueString() override { return "PalimarSky"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    long Select(Utilities::Anything const& argument) override;
    void OnSelectionChanged(Utilities::String const& elementName, bool selected) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;
    bool IsDragable(std::pair<long, long> const& point) override;
    DropEffect OnDragOver(DropDataObject const& data, KeyState keyState, long x, long y) override;
    /// The number of each field and its colour.
    Utilities::String GetNumberTable() override;
    Utilities::String GetCurrentRegion() override;

protected:
    std::int16_t FindSlice(long x, long y) override;

private:
    static constexpr int kites = 3;
    static constexpr int triangles = 3;
    static constexpr int ringSlices = 12;
    static constexpr int firstTriangle = 10;
    static constexpr int firstRingSlice = 100;
    static constexpr std::size_t fields = kites + triangles + ringSlices;

    /// Of the fields in the order in which they are asked for.
    static int NumberOf(std::size_t index);
    static bool IsKite(int number) { return number >= 0 && number < kites; }
    RGBVector const& ColorOf(int number) const;
    /// Around a field, with its outline and sign.
    PaneBox BoxOf(int number) const;

    std::array<RGBVector, fields> colors_;
    std::int16_t currentSlice_ = 0;
    std::int16_t outerRadius_ = 0;
    std::int16_t innerRadius_ = 0;
    bool selectRequested_ = false;
    /// A notice that waits for a click.
    Utilities::String selectionName_;
    bool selectionFlag_ = false;
};

} // namespace GUI
