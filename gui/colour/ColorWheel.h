#pragma once

#include "gui/colour/HarmonyElement.h"

#include <vector>

namespace GUI {

/// A colour harmony as a wheel of equal slices around a disc in the colour of the current slice, with a ring
/// around all. A slice whose colour the screen can't show carries a warning sign. A drag over the wheel
/// stresses the slice under the mouse, or the border between two if a drop there inserts a slice.
///
/// Attributes: "BaseAngle" (0; where slice 0 begins, in degrees counter-clockwise from the x axis),
/// "BorderWidth" (16; of the ring, in pixels), "CenterRadius" (20; of the disc, in pixels), "Smooth" (No).
/// The wheel takes the smaller side of the pane; the ring takes its room only of a radius beyond 50, and
/// isn't drawn for one up to 10.
///
/// Values asked of the data source under the element's name: at an update "NumberOfSlices" (short; one below
/// 1 is refused), "CurrentSlice" (short, counted from 0), "BaseAngle" (double), "Color of Slice " and each
/// number (100,100,100 without an answer), "BorderColor" (20,150,120 without an answer); at a paint
/// "SelectedSlice" (short; its slice is outlined if the element is selected), and while a drag is over
/// "MaxNumberOfSlices" (any answer: a drop inserts). Until the first update there is one slice.
///
/// A click tells the data source "Selected Slice" (the text "Slice " and the number, -1 for none) and
/// "OnLeftButtonDown" (a map of "ElementName", "XPosition" and "YPosition"), and is consumed. The centre and
/// the ring answer as slices too. Slices are found by whole degrees: of a number that doesn't divide 360 the
/// last degrees belong to no slice.
class ColorWheel : public HarmonyElement {
public:
    Diagnostics::String GetValueString() override { return "ColorWheel"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void SetSize(unsigned long width, unsigned long height) override;
    void OnSelectionChanged(Utilities::String const& elementName, bool selected) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;
    DropEffect OnDragOver(DropDataObject const& data, KeyState keyState, long x, long y) override;
    /// The number of each field and its colour.
    Utilities::String GetNumberTable() override;
    Utilities::String GetCurrentRegion() override { return SliceText(currentSlice_); }

protected:
    std::int16_t FindSlice(long x, long y) override;

private:
    struct Geometry {
        short centerX;
        short centerY;
        short radius;
        float sliceAngle;
    };

    Geometry GetGeometry() const;
    float StartOf(Geometry const& wheel, float slice) const { return slice * wheel.sliceAngle + baseAngle_; }
    void DrawRing(PlatformIndependentDeviceContext& context, Geometry const& wheel) const;
    void DrawSlices(PlatformIndependentDeviceContext& context, Geometry const& wheel) const;
    void DrawSelection(PlatformIndependentDeviceContext& context, Geometry const& wheel);
    void DrawWarnings(PlatformIndependentDeviceContext& context, Geometry const& wheel) const;
    void DrawDrag(PlatformIndependentDeviceContext& context, Geometry const& wheel, std::int16_t slice);

    std::int16_t currentSlice_ = 0;
    std::vector<RGBVector> sliceColors_;
    float baseAngle_ = 0;
    std::int32_t borderWidth_ = 16;
    RGBVector borderColor_;
    std::int16_t centerRadius_ = 20;
    /// What the last paint during a drag has stressed.
    std::int16_t dragSlice_ = noSlice;
    /// The last notice of a selection. A click repeats it, so that observers of the selection learn of the
    /// slice that was told meanwhile.
    Utilities::String selectionName_;
    bool selectionFlag_ = true;
};

} // namespace GUI
