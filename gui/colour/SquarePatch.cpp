#include "gui/colour/SquarePatch.h"

#include "gui/colour/PatchAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

namespace {

constexpr Attribute attributeList[] = {PatchAttributes::updates, PatchAttributes::markOutside,
                                       PatchAttributes::surroundColor};
ElementRegistration<SquarePatch, Pane> const registration({"SquarePatch", "$Revision: 1.6 $", "GUI"},
                                                          attributeList);

/// Length of a corner's lines.
constexpr short cornerLength = 5;

/// Two lines from a corner into the pane; `toX` and `toY` are their directions.
void DrawCorner(PlatformIndependentDeviceContext& context, short x, short y, int toX, int toY) {
    auto const end = [](short from, int direction) {
        return static_cast<short>(from + direction * cornerLength);
    };
    // The upper left and lower left corners begin with the upright line, the others with the level one.
    if (toX > 0) context.DrawLine(x, y, x, end(y, toY));
    context.DrawLine(x, y, end(x, toX), y);
    if (toX < 0) context.DrawLine(x, y, x, end(y, toY));
}

} // namespace

void SquarePatch::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                             DialogDataSource* dataSource) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): contracted, a patch's own black background is left out
    Pane::Initialize(parent, description, dataSource);
    ReadSurround(description);
    if (AttributeReader(description).Flag(PatchAttributes::updates)) RegisterOnUpdate();
}

void SquarePatch::PaintCorners(PlatformIndependentDeviceContext& context, RGBVector const& mark) const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    auto const right = static_cast<short>(width - 1);
    auto const bottom = static_cast<short>(height - 1);
    context.SetPen(mark, 1, PlatformIndependentDeviceContext::solid);
    DrawCorner(context, 0, 0, 1, 1);
    DrawCorner(context, right, 0, -1, 1);
    DrawCorner(context, 0, bottom, 1, -1);
    DrawCorner(context, right, bottom, -1, -1);
}

void SquarePatch::OnPaint(PlatformIndependentDeviceContext& context) {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    bool const framed = GetFrame();
    if (MarksOutside()) {
        SetBackgroundColor(GetShownColor());
        PaintSurround(context);
        if (framed) PaintCorners(context, GetMarkColor(GetSurround()));
        PaintColorAndMark(context, GetBackgroundColor(), static_cast<short>(width),
                          static_cast<short>(height), IsSelected(), false);
        return;
    }
    SetFrame(false);
    try {
        Patch::OnPaint(context);
    } catch (...) {
        SetFrame(framed);
        throw;
    }
    SetFrame(framed);
    RGBVector const mark = GetMarkColor(GetBackgroundColor());
    if (framed) PaintCorners(context, mark);
    if (IsSelected()) {
        context.SetPen(mark, 1, PlatformIndependentDeviceContext::solid);
        context.DrawRectangle(2, 2, static_cast<short>(width - 2), static_cast<short>(height - 2));
    }
}

} // namespace GUI
