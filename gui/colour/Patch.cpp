#include "gui/colour/Patch.h"

#include "Diagnostics/Sink.h"
#include "gui/colour/ColorTable.h"
#include "gui/colour/OutsideMark.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/elements/DataAccess.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

ElementRegistration<Patch, Pane> const registration({"Patch", "$Revision: 1.34 $", "GUI"});

constexpr char const* clickEvent = "OnLeftButtonDown";
constexpr int darkBelow = 300;

} // namespace

void Patch::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                       DialogDataSource* dataSource) {
    Pane::Initialize(parent, description, dataSource);
    SetBackgroundColor(RGBVector(0, 0, 0));
    OnUpdate({});
    RegisterOnUpdate();
}

void Patch::OnSelectionChanged(String const& elementName, bool selected) {
    if (selected) {
        bool selectable = true;
        try {
            Anything const value = GetValue("IsSelectable");
            if (value.IsValid()) selectable = value.GetBool();
        } catch (...) {
            Diagnostics::DropException("Patch::OnSelectionChanged: IsSelectable");
        }
        if (!selectable) return;
    }
    Pane::OnSelectionChanged(elementName, selected);
}

void Patch::OnPaint(PlatformIndependentDeviceContext& context) {
    SetBackgroundColor(GetShownColor());
    Pane::OnPaint(context);
}

bool Patch::OnLeftButtonDown(KeyState keyState, long x, long y) {
    if (GetDataSource()) {
        auto const callback = GetDataSource()->GetCallback(GetElementName(), clickEvent);
        if (callback.IsValid()) {
            callback.Execute(GetElementName());
            return true;
        }
    }
    return Pane::OnLeftButtonDown(keyState, x, y);
}

String Patch::GetPropertyInspectorName() {
    return dynamic_cast<CXFAccess*>(GetDataSource()) ? "PropertyInspectorSample" : "PropertyInspectorDefault";
}

DataAccess* Patch::GetPropertyInspectorHandler() { return dynamic_cast<DataAccess*>(GetDataSource()); }

Anything Patch::GetPropertyInspectorData() {
    AttributeMap key;
    key["ElementName"] = GetElementName();
    key["CurrentRegion"] = GetCurrentRegion();
    return {key};
}

RGBVector Patch::GetShownColor() {
    Anything const color = GetValue("ColorValue");
    return color.IsValid() ? RGBVector(color) : GetBackgroundColor();
}

bool Patch::IsMarked() {
    if (IsSelected()) return true;
    Anything const active = GetValue("IsActive");
    return active.IsValid() && active.GetBool();
}

void Patch::ReadSurround(AttributeMap const& description) {
    AttributeReader const attributes(description);
    marksOutside_ = attributes.Flag(PatchAttributes::markOutside);
    surround_ = attributes.Colour(PatchAttributes::surroundColor);
}

void Patch::PaintSurround(PlatformIndependentDeviceContext& context) {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    context.SetBrush(surround_);
    context.SetPen(surround_, 3, PlatformIndependentDeviceContext::solid);
    if (GetBackgroundBitmap().Length() == 0)
        context.FillRectangle(0, 0, static_cast<short>(width), static_cast<short>(height));
    else
        context.DrawImage(0, 0, GetBackgroundBitmap());
}

void Patch::PaintColorAndMark(PlatformIndependentDeviceContext& context, RGBVector const& color, short width,
                              short height, bool isMarked, bool isRound) {
    auto const mark = OutsideMark::Within(std::min(width, height));
    auto const room = static_cast<short>(mark.Room());
    auto const right = static_cast<short>(width - room);
    auto const bottom = static_cast<short>(height - room);
    context.SetPen(color, 0, PlatformIndependentDeviceContext::solid);
    context.SetBrush(color);
    context.SetBackgroundColor(color);
    if (isRound)
        context.FillEllipse(room, room, right, bottom);
    else
        context.FillRectangle(room, room, right, bottom);
    if (isMarked) mark.Draw(context, 0, 0, width, height, isRound);
}

Utilities::String Patch::GetNumberTable() {
    CallScope const call(*this);
    NumberTable table;
    AddChannelNames(table);
    AddColor(table, GetShownColor());
    return table.Take();
}

RGBVector Patch::GetMarkColor(RGBVector const& shown) {
    bool const isDark = shown.GetRed() + shown.GetGreen() + shown.GetBlue() < darkBelow;
    return isDark ? RGBVector(255, 255, 255) : RGBVector(0, 0, 0);
}

} // namespace GUI
