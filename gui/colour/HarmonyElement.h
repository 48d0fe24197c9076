#pragma once

#include "gui/colour/ColorGUIElement.h"
#include "gui/elements/NumberTable.h"

#include <cstdint>
#include <optional>

namespace GUI {

/// What the round pictures of several colours have in common: numbered fields, called slices, one of which is
/// selected by a click. The event "Select" of the data source selects the element.
///
/// Values asked of the data source under the element's name: "Color of Slice " and the field's number (colour
/// record), "SelectedSlice" (short).
class HarmonyElement : public ColorGUIElement, public SupportsNumberTable {
public:
    ~HarmonyElement() override;
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    /// "Slice " and the number of the field under a point; -1 stands for none.
    Utilities::String GetRegion(unsigned long x, unsigned long y) override;
    /// A map of "ElementName", "CurrentRegion", and "SelectedSlice" as a region's text. Without an answer
    /// to "SelectedSlice" the last one is the current region.
    Utilities::Anything GetPropertyInspectorData() override;

protected:
    static constexpr std::int16_t noSlice = -1;
    static constexpr char const* clickEvent = "OnLeftButtonDown";

    /// The number of the field under a point, `noSlice` for none.
    virtual std::int16_t FindSlice(long x, long y) = 0;
    void OnDetach() override;

    static Utilities::String SliceText(long number);
    RGBVector AskColor(long number, RGBVector const& otherwise);
    std::optional<std::int16_t> AskShort(char const* key);
    std::optional<std::int16_t> AskSelectedSlice() { return AskShort("SelectedSlice"); }
    /// A map of "ElementName", "XPosition" and "YPosition".
    Utilities::Anything ClickRecord(long x, long y);
    /// To be asked at the beginning of a paint.
    void BeginDrawing(PlatformIndependentDeviceContext& context) const;
    std::int16_t SliceUnderDrag();

private:
    long OnSelect(Utilities::Anything const& argument) { return Select(argument); }

    OwnedCallback<HarmonyElement> onSelect_{this, &HarmonyElement::OnSelect};
    bool smooth_ = false;
};

} // namespace GUI
