#include "gui/colour/HarmonyElement.h"

#include "gui/colour/PatchAttributes.h"

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr char const* selectEvent = "Select";

} // namespace

HarmonyElement::~HarmonyElement() { HarmonyElement::OnDetach(); }

void HarmonyElement::OnDetach() {
    onSelect_.Release(GetDataSource(), GetElementName(), selectEvent);
    ColorGUIElement::OnDetach();
}

void HarmonyElement::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                                DialogDataSource* dataSource) {
    ColorGUIElement::Initialize(parent, description, dataSource);
    smooth_ = AttributeReader(description).Flag(PatchAttributes::smooth);
    RegisterOnUpdate();
    if (GetDataSource()) GetDataSource()->SetCallback(GetElementName(), selectEvent, onSelect_.Get());
}

String HarmonyElement::GetRegion(unsigned long x, unsigned long y) {
    return SliceText(FindSlice(static_cast<long>(x), static_cast<long>(y)));
}

Anything HarmonyElement::GetPropertyInspectorData() {
    String const region = GetCurrentRegion();
    auto const selected = AskSelectedSlice();
    AttributeMap key;
    key["ElementName"] = GetElementName();
    key["CurrentRegion"] = region;
    key["SelectedSlice"] = selected ? SliceText(*selected) : region;
    return {key};
}

String HarmonyElement::SliceText(long number) { return String("Slice ") + String(number); }

RGBVector HarmonyElement::AskColor(long number, RGBVector const& otherwise) {
    Anything const color = GetValue(String("Color of ") + SliceText(number));
    return color.IsValid() ? RGBVector(color) : otherwise;
}

std::optional<std::int16_t> HarmonyElement::AskShort(char const* key) {
    Anything const answer = GetValue(key);
    if (!answer.IsValid()) return std::nullopt;
    return answer.GetShort();
}

Anything HarmonyElement::ClickRecord(long x, long y) {
    AttributeMap click;
    click["ElementName"] = GetElementName();
    click["XPosition"] = x;
    click["YPosition"] = y;
    return {click};
}

void HarmonyElement::BeginDrawing(PlatformIndependentDeviceContext& context) const {
    if (smooth_) context.SetSmooth(true);
}

std::int16_t HarmonyElement::SliceUnderDrag() {
    auto const [x, y] = GetDragMouseOverPosition();
    return FindSlice(x, y);
}

} // namespace GUI
