#include "gui/colour/CirclePatch.h"

#include "gui/colour/OutsideMark.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;

namespace {

constexpr Attribute attributeList[] = {PatchAttributes::markOutside, PatchAttributes::surroundColor};
ElementRegistration<CirclePatch, Pane> const registration({"CirclePatch", "$Revision: 1.16 $", "GUI"},
                                                          attributeList);

/// Of a pane that has no background.
RGBVector const noBackground(100, 100, 100);

} // namespace

void CirclePatch::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                             DialogDataSource* dataSource) {
    ReadSurround(description);
    Patch::Initialize(parent, description, dataSource);
    if (AttributeReader(description).Text(CommonAttributes::backgroundColor).Length() == 0)
        SetBackgroundColor(noBackground);
}

long CirclePatch::OnUpdate(Anything const& command) {
    Anything const bitmapOnly = GetValue("BitmapOnly");
    if (bitmapOnly.IsValid()) bitmapOnly_ = bitmapOnly.GetBool();
    return Patch::OnUpdate(command);
}

void CirclePatch::OnPaint(PlatformIndependentDeviceContext& context) {
    unsigned long paneWidth = 0;
    unsigned long paneHeight = 0;
    GetSize(paneWidth, paneHeight);
    auto const width = static_cast<short>(paneWidth);
    auto const height = static_cast<short>(paneHeight);
    short const size = std::min(width, height);
    RGBVector const color = bitmapOnly_ ? GetBackgroundColor() : GetShownColor();
    RGBVector const mark = GetMarkColor(color);

    if (DrawDragMouseOver()) {
        context.SetPen(mark, 2, PlatformIndependentDeviceContext::solid);
        context.DrawEllipse(0, 0, size, size);
        return;
    }
    PaintSurround(context);
    if (MarksOutside()) {
        if (!bitmapOnly_)
            PaintColorAndMark(context, color, size, size, IsMarked(), true);
        else if (IsMarked())
            OutsideMark::Within(size).Draw(context, 0, 0, size, size, true);
        return;
    }
    if (!bitmapOnly_) {
        context.SetPen(color, 0, PlatformIndependentDeviceContext::solid);
        context.SetBrush(color);
        context.SetBackgroundColor(color);
        context.FillEllipse(0, 0, size, size);
    }
    if (IsMarked()) {
        context.SetPen(mark, 2, PlatformIndependentDeviceContext::solid);
        context.DrawEllipse(0, 0, size, size);
    }
}

} // namespace GUI
