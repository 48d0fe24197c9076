#include "gui/colour/SmallPatch.h"

#include "gui/colour/PatchAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

namespace {

constexpr Attribute attributeList[] = {PatchAttributes::updates, PatchAttributes::markOutside,
                                       PatchAttributes::surroundColor};
ElementRegistration<SmallPatch, Pane> const registration({"SmallPatch", "$Revision: 1.2 $", "GUI"},
                                                         attributeList);

} // namespace

void SmallPatch::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): contracted, a patch's own black background is left out
    Pane::Initialize(parent, description, dataSource);
    ReadSurround(description);
    // The rectangle is 2 pixels inside, and only a frame fills what is around it.
    SetLeavesPixels(!MarksOutside());
    if (AttributeReader(description).Flag(PatchAttributes::updates)) RegisterOnUpdate();
}

void SmallPatch::OnPaint(PlatformIndependentDeviceContext& context) {
    static RGBVector const white(255, 255, 255);
    unsigned long paneWidth = 0;
    unsigned long paneHeight = 0;
    GetSize(paneWidth, paneHeight);
    auto const width = static_cast<short>(paneWidth);
    auto const height = static_cast<short>(paneHeight);
    if (MarksOutside()) {
        PaintSurround(context);
        PaintColorAndMark(context, GetShownColor(), width, height, IsMarked(), false);
        return;
    }
    if (GetBackgroundBitmap().Length() != 0) context.DrawImage(0, 0, GetBackgroundBitmap());
    if (GetFrame()) {
        context.SetBrush(GetSurround());
        context.SetPen(GetSurround(), 3, PlatformIndependentDeviceContext::solid);
        context.DrawRectangle(0, 0, width, height);
    }
    RGBVector const color = GetShownColor();
    context.SetPen(color, 0, PlatformIndependentDeviceContext::solid);
    context.SetBrush(color);
    context.SetBackgroundColor(color);
    context.FillRectangle(2, 2, static_cast<short>(width - 2), static_cast<short>(height - 2));
    if (IsMarked()) {
        context.SetPen(white, 2, PlatformIndependentDeviceContext::solid);
        context.DrawRectangle(1, 1, width, height);
    }
}

} // namespace GUI
