#include "gui/colour/CirclePatch.h"

#include "core/creators/ComponentCreator.h"
#include "gui/elements/Attributes.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;

namespace {

Utilities::ComponentCreatorNormal<CirclePatch> const creator({"CirclePatch", "$Revision: 1.16 $", "GUI"});
AttributeTable const table("CirclePatch", "Pane", {});

/// Of a pane that has no background.
RGBVector const noBackground(100, 100, 100);
/// Around the disc.
RGBVector const surround(222, 251, 255);

} // namespace

void CirclePatch::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                             DialogDataSource* dataSource) {
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
    context.SetBrush(surround);
    context.SetPen(surround, 3, PlatformIndependentDeviceContext::solid);
    if (GetBackgroundBitmap().Length() == 0)
        context.FillRectangle(0, 0, width, height);
    else
        context.DrawImage(0, 0, GetBackgroundBitmap());
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
