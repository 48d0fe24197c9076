#include "gui/colour/PalimarSky.h"

#include "gui/colour/ColorTable.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/colour/SkyDrawing.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"

#include <cmath>
#include <optional>
#include <utility>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr AttributeRange radii{0, 32767};
constexpr Attribute outerRadiusKey{
    "OuterRadius", AttributeType::Number, "0", "Radius of the ring's outer edge in pixels", false, radii};
constexpr Attribute innerRadiusKey{"InnerRadius", AttributeType::Number,
                                   "0",           "Radius of the ring's inner edge and of the disc",
                                   false,         radii};
constexpr Attribute attributeList[] = {outerRadiusKey, innerRadiusKey, PatchAttributes::smooth};

ElementRegistration<PalimarSky, Pane> const registration({"PalimarSky", "$Revision: 1.7 $", "GUI"},
                                                         attributeList);

RGBVector const noKiteColor(255, 255, 255);
RGBVector const noFieldColor(241, 241, 241);

} // namespace

void PalimarSky::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    HarmonyElement::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);
    outerRadius_ = static_cast<std::int16_t>(attributes.Long(outerRadiusKey));
    innerRadius_ = static_cast<std::int16_t>(attributes.Long(innerRadiusKey));
    for (std::size_t i = 0; i < fields; ++i) colors_[i] = IsKite(NumberOf(i)) ? noKiteColor : noFieldColor;
}

// ------------------------------------------------------------------ data

int PalimarSky::NumberOf(std::size_t index) {
    int const place = static_cast<int>(index);
    if (place < kites) return place;
    if (place < kites + triangles) return firstTriangle + place - kites;
    return firstRingSlice + place - kites - triangles;
}

RGBVector const& PalimarSky::ColorOf(int number) const {
    int index = number;
    if (number >= firstRingSlice)
        index = number - firstRingSlice + kites + triangles;
    else if (number >= firstTriangle)
        index = number - firstTriangle + kites;
    return colors_[static_cast<std::size_t>(index)];
}

String PalimarSky::GetNumberTable() {
    NumberTable table;
    table.Add("");
    AddChannelNames(table);
    for (std::size_t i = 0; i < fields; ++i) {
        table.Add(static_cast<double>(NumberOf(i)));
        AddColor(table, colors_[i]);
    }
    return table.Take();
}

long PalimarSky::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    long const result = ReadUpdate(command);
    // Of one field that has changed only its part is painted, on top of what is there.
    std::optional<PaneBox> changed;
    std::size_t changes = 0;
    for (std::size_t i = 0; i < fields && IsAttached(); ++i) {
        RGBVector const color = AskColor(NumberOf(i), IsKite(NumberOf(i)) ? noKiteColor : noFieldColor);
        if (color == std::exchange(colors_[i], color)) continue;
        PaneBox const box = BoxOf(NumberOf(i));
        changed = changed ? changed->Around(box) : box;
        ++changes;
    }
    if (!IsAttached()) return result;
    if (changes == 1 && !DrawDragMouseOver())
        RepaintPart(*this, *changed);
    else
        Repaint();
    return result;
}

PaneBox PalimarSky::BoxOf(int number) const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    unsigned long const halfWidth = width / 2;
    unsigned long const halfHeight = height / 2;
    SkyPoint const middle{static_cast<double>(halfWidth), static_cast<double>(halfHeight)};
    // For pens and rounded edges; and from the middle of a warning sign, which may be larger than its field.
    constexpr long pen = 3;
    constexpr long sign = 14;
    PaneBox box{32767, 32767, -32768, -32768};
    auto const take = [&](double radius, int degrees, long room) {
        SkyPoint const at = middle + SkyPoint::Polar(radius, degrees);
        auto const x = static_cast<long>(at.x);
        auto const y = static_cast<long>(at.y);
        box = box.Around({x - room, y - room, x + room, y + room});
    };
    if (number >= firstRingSlice) {
        constexpr int step = 5;
        int const middleAngle = (number - firstRingSlice) * 30;
        for (int degrees = middleAngle - 15; degrees <= middleAngle + 15; degrees += step) {
            take(outerRadius_, degrees, pen);
            take(innerRadius_, degrees, pen);
        }
        take((outerRadius_ + innerRadius_) / 2.0, middleAngle, sign);
    } else if (number >= firstTriangle) {
        for (int const corner : {-30, 30, 90})
            take(innerRadius_, (number - firstTriangle) * 120 + corner, pen);
        take(innerRadius_ * 2 / 3.0, (number - firstTriangle) * 120 + 30, sign);
    } else {
        take(0, 0, pen);
        take(innerRadius_, number * 120 + 90, pen);
        auto const half = innerRadius_ / 2;
        for (int const corner : {30, 150}) take(half, number * 120 + corner, pen);
        take(innerRadius_ / 2.0, number * 120 + 90, sign);
    }
    return box;
}

String PalimarSky::GetCurrentRegion() {
    if (auto const current = AskShort("CurrentSlice")) currentSlice_ = *current;
    return SliceText(currentSlice_);
}

// ------------------------------------------------------------------ painting

void PalimarSky::OnPaint(PlatformIndependentDeviceContext& context) {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    bool const isDrag = DrawDragMouseOver();
    int const selected = IsSelected() ? AskSelectedSlice().value_or(noSlice) : noSlice;
    BeginDrawing(context);
    auto const isPainted = [&](int number) { return IsPainted(context, BoxOf(number)); };
    // A slice is drawn from the middle on.
    auto const isSlicePainted = [&](int slice) {
        auto const x = static_cast<long>(width / 2);
        auto const y = static_cast<long>(height / 2);
        return IsPainted(context, BoxOf(firstRingSlice + slice).Around({x, y, x, y}));
    };
    SkyDrawing const sky(context, static_cast<short>(width >> 1U), static_cast<short>(height >> 1U),
                         outerRadius_, innerRadius_);
    if (!isDrag) {
        HarmonyElement::OnPaint(context);
        for (int i = 0; i < ringSlices; ++i)
            if (isSlicePainted(i)) sky.RingSlice(i, ColorOf(firstRingSlice + i));
        if (selected >= firstRingSlice && selected < firstRingSlice + ringSlices)
            sky.RingOutline(selected - firstRingSlice, ColorOf(selected));
        for (int i = 0; i < ringSlices; ++i) sky.RingWarning(i, ColorOf(firstRingSlice + i));
        sky.Disc();
        for (int i = 0; i < triangles; ++i)
            if (isPainted(firstTriangle + i))
                sky.Triangle(i, ColorOf(firstTriangle + i), selected == firstTriangle + i);
        for (int i = 0; i < kites; ++i)
            if (isPainted(i)) sky.Kite(i, ColorOf(i));
    }
    int const stressed = isDrag ? SliceUnderDrag() : selected;
    if (IsKite(stressed)) sky.KiteOutline(stressed, ColorOf(stressed));
}

// ------------------------------------------------------------------ input

std::int16_t PalimarSky::FindSlice(long x, long y) {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    auto const dx = static_cast<double>(x - static_cast<long>(width / 2));
    auto const dy = static_cast<double>(static_cast<long>(height / 2) - y);
    double const distance = std::sqrt(dx * dx + dy * dy);
    if (innerRadius_ < distance && distance < outerRadius_) {
        double angle = std::atan2(dy, dx) / 2 / std::acos(-1.0) * 360;
        if (angle < 0) angle += 360;
        // The first slice is on both sides of the x axis: its range goes on behind 360 degrees.
        if (angle < 15) angle += 360;
        for (int i = 0; i < ringSlices; ++i) {
            int const shift = i == 0 ? 360 : 0;
            if (i * 30 - 15 + shift <= angle && angle < i * 30 + 15 + shift)
                return static_cast<std::int16_t>(firstRingSlice + i);
        }
    }
    if (distance >= innerRadius_) return noSlice;
    for (int i = 0; i < triangles; ++i) {
        int const turn = i * 120;
        SkyPoint const at{dx, dy};
        auto const corner = [turn](double radius, int degrees) {
            return SkyPoint::Polar(radius, turn + degrees).Mirrored();
        };
        SkyPoint const tip = corner(innerRadius_, 90);
        if (at.IsInTriangle(tip, corner(innerRadius_, 30), corner(innerRadius_, -30)))
            return static_cast<std::int16_t>(firstTriangle + i);
        int const half = innerRadius_ / 2;
        if (at.IsInTriangle(tip, corner(half, 30), {}) || at.IsInTriangle(tip, corner(half, 150), {}))
            return static_cast<std::int16_t>(i);
    }
    return noSlice;
}

bool PalimarSky::IsDragable(std::pair<long, long> const& point) {
    return FindSlice(point.first, point.second) >= 0;
}

bool PalimarSky::OnLeftButtonDown(KeyState /*keyState*/, long x, long y) {
    CallScope const call(*this);
    TellValue("Selected Slice", SliceText(FindSlice(x, y)));
    if (IsAttached()) HarmonyElement::OnSelectionChanged(selectionName_, selectionFlag_);
    if (IsAttached()) Fire(clickEvent, ClickRecord(x, y));
    return true;
}

long PalimarSky::Select(Anything const& /*argument*/) {
    selectRequested_ = true;
    return HarmonyElement::Select({});
}

void PalimarSky::OnSelectionChanged(String const& elementName, bool selected) {
    bool const isFocus = elementName == Topics::focus;
    if (!isFocus && !std::exchange(selectRequested_, false)) {
        selectionName_ = elementName;
        selectionFlag_ = selected;
        return;
    }
    HarmonyElement::OnSelectionChanged(elementName, selected);
}

DropEffect PalimarSky::OnDragOver(DropDataObject const& data, KeyState keyState, long x, long y) {
    CallScope const call(*this);
    // During a drag only the stress is drawn: the whole picture takes a former one away.
    if (DrawDragMouseOver() && SliceUnderDrag() != FindSlice(x, y)) OnDragLeave();
    return IsAttached() ? HarmonyElement::OnDragOver(data, keyState, x, y) : DropEffect::None;
}

} // namespace GUI
