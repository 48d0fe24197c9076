#include "gui/colour/ColorWheel.h"

#include "gui/colour/ColorTable.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/colour/WarningSign.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute baseAngleKey{"BaseAngle", AttributeType::Number, "0",
                                 "Where slice 0 begins, in degrees counter-clockwise from the x axis"};
constexpr Attribute borderWidthKey{
    "BorderWidth", AttributeType::Number, "16", "Width of the ring in pixels", false, {0, 32767}};
constexpr Attribute centerRadiusKey{
    "CenterRadius", AttributeType::Number, "20", "Radius of the disc in the middle", false, {0, 32767}};
constexpr Attribute attributeList[] = {baseAngleKey, borderWidthKey, centerRadiusKey,
                                       PatchAttributes::smooth};

ElementRegistration<ColorWheel, Pane> const registration({"ColorWheel", "$Revision: 1.26 $", "GUI"},
                                                         attributeList);

RGBVector const noColor(100, 100, 100);
RGBVector const noBorderColor(20, 150, 120);
RGBVector const white(255, 255, 255);
constexpr long slicePen = 2;
constexpr long markPen = 3;
constexpr short leastRadiusOutsideRing = 50;
constexpr short leastRadiusWithRing = 10;
/// Where a warning sign is, as a share of the radius.
constexpr double signPlace = 0.8;

short Short(long value) { return static_cast<short>(value); }

} // namespace

void ColorWheel::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    HarmonyElement::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);
    baseAngle_ = static_cast<float>(attributes.Number(baseAngleKey));
    borderWidth_ = static_cast<std::int32_t>(attributes.Long(borderWidthKey));
    centerRadius_ = static_cast<std::int16_t>(attributes.Long(centerRadiusKey));
    sliceColors_.assign(1, noColor);
    borderColor_ = noBorderColor;
    selectionName_ = Topics::focus;
}

void ColorWheel::SetSize(unsigned long width, unsigned long height) {
    dragSlice_ = noSlice;
    HarmonyElement::SetSize(width, height);
}

// ------------------------------------------------------------------ data

long ColorWheel::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    long const result = ReadUpdate(command);
    // What is on the screen is out of date, also under a drag.
    dragSlice_ = noSlice;
    std::size_t count = sliceColors_.size();
    if (auto const asked = AskShort("NumberOfSlices"); asked && *asked >= 1)
        count = static_cast<std::size_t>(*asked);
    if (auto const current = AskShort("CurrentSlice")) currentSlice_ = *current;
    if (Anything const angle = GetValue(baseAngleKey.key); angle.IsValid())
        baseAngle_ = static_cast<float>(angle.GetDouble());
    std::vector<RGBVector> colors;
    for (std::size_t i = 0; i < count && IsAttached(); ++i)
        colors.push_back(AskColor(static_cast<long>(i), noColor));
    if (!IsAttached()) return result;
    sliceColors_ = std::move(colors);
    Anything const border = GetValue("BorderColor");
    borderColor_ = border.IsValid() ? RGBVector(border) : noBorderColor;
    Repaint();
    return result;
}

String ColorWheel::GetNumberTable() {
    NumberTable table;
    table.Add("");
    AddChannelNames(table);
    for (std::size_t i = 0; i < sliceColors_.size(); ++i) {
        table.Add(static_cast<double>(i));
        AddColor(table, sliceColors_[i]);
    }
    return table.Take();
}

// ------------------------------------------------------------------ painting

ColorWheel::Geometry ColorWheel::GetGeometry() const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    Geometry wheel = {};
    wheel.centerX = Short(static_cast<long>(width / 2));
    wheel.centerY = Short(static_cast<long>(height / 2));
    wheel.radius = Short(static_cast<long>(std::min(width, height) / 2));
    if (wheel.radius > leastRadiusOutsideRing) wheel.radius = Short(wheel.radius - borderWidth_);
    wheel.sliceAngle = 360.0F / static_cast<float>(sliceColors_.size());
    return wheel;
}

void ColorWheel::OnPaint(PlatformIndependentDeviceContext& context) {
    HarmonyElement::OnPaint(context);
    Geometry const wheel = GetGeometry();
    bool const isDrag = DrawDragMouseOver();
    std::int16_t const dragged = isDrag ? SliceUnderDrag() : noSlice;
    if (isDrag) {
        if (dragged == dragSlice_ && dragged != noSlice) return;
        dragSlice_ = dragged;
    }
    BeginDrawing(context);
    DrawRing(context, wheel);
    DrawSlices(context, wheel);
    if (IsSelected()) DrawSelection(context, wheel);
    DrawWarnings(context, wheel);
    if (isDrag && dragged != noSlice) DrawDrag(context, wheel, dragged);
}

void ColorWheel::DrawRing(PlatformIndependentDeviceContext& context, Geometry const& wheel) const {
    if (wheel.radius <= leastRadiusWithRing) return;
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    long const half = borderWidth_ / 2;
    context.SetPen(borderColor_, borderWidth_, PlatformIndependentDeviceContext::solid);
    context.DrawEllipse(Short(half), Short(half), Short(static_cast<long>(width) - half),
                        Short(static_cast<long>(height) - half));
}

void ColorWheel::DrawSlices(PlatformIndependentDeviceContext& context, Geometry const& wheel) const {
    float slice = 0;
    for (RGBVector const& color : sliceColors_) {
        context.SetPen(color, slicePen, PlatformIndependentDeviceContext::solid);
        context.SetBrush(color);
        context.FillPie(wheel.centerX, wheel.centerY, wheel.radius, StartOf(wheel, slice), wheel.sliceAngle);
        slice += 1;
    }
    // A current slice that isn't there leaves the middle to the slices.
    if (currentSlice_ < 0 || static_cast<std::size_t>(currentSlice_) >= sliceColors_.size()) return;
    RGBVector const& color = sliceColors_[static_cast<std::size_t>(currentSlice_)];
    context.SetPen(color, slicePen, PlatformIndependentDeviceContext::solid);
    context.SetBrush(color);
    context.FillEllipse(Short(wheel.centerX - centerRadius_), Short(wheel.centerY - centerRadius_),
                        Short(wheel.centerX + centerRadius_), Short(wheel.centerY + centerRadius_));
}

void ColorWheel::DrawSelection(PlatformIndependentDeviceContext& context, Geometry const& wheel) {
    auto const selected = AskSelectedSlice();
    if (!selected) return;
    context.SetPen(white, markPen, PlatformIndependentDeviceContext::solid);
    context.DrawArc(wheel.centerX, wheel.centerY, wheel.radius, StartOf(wheel, *selected), wheel.sliceAngle);
}

void ColorWheel::DrawWarnings(PlatformIndependentDeviceContext& context, Geometry const& wheel) const {
    constexpr double fullCircle = 6.2831853072;
    long const count = static_cast<long>(sliceColors_.size());
    for (long i = 0; i < count; ++i) {
        RGBVector const& color = sliceColors_[static_cast<std::size_t>(i)];
        if (color.IsInGamut()) continue;
        // Whole degrees, as slices are found.
        long const middle = ((2 * i + 1) * 360) / (2 * count);
        double const degrees = static_cast<double>(middle) + static_cast<double>(baseAngle_);
        double const angle = degrees * fullCircle / 360;
        double const distance = wheel.radius * signPlace;
        auto const x = static_cast<short>(wheel.centerX - WarningSign::left + std::cos(angle) * distance);
        auto const y =
            static_cast<short>(wheel.centerY - WarningSign::above + std::sin(angle) * -1 * distance);
        WarningSign::Draw(context, x, y, color);
    }
}

void ColorWheel::DrawDrag(PlatformIndependentDeviceContext& context, Geometry const& wheel,
                          std::int16_t slice) {
    constexpr double pi = 3.14159;
    auto stressed = static_cast<float>(slice);
    bool const inserts = GetValue("MaxNumberOfSlices").IsValid();
    context.SetPen(white, markPen, PlatformIndependentDeviceContext::solid);
    if (inserts) {
        if (sliceColors_.size() > 1) {
            double const angle = static_cast<double>(StartOf(wheel, stressed)) / 360 * 2 * pi;
            context.DrawLine(wheel.centerX, wheel.centerY,
                             Short(wheel.centerX + static_cast<long>(std::cos(angle) * wheel.radius)),
                             Short(wheel.centerY - static_cast<long>(std::sin(angle) * wheel.radius)));
        }
        // The arc's middle is on that border.
        stressed -= 0.5F;
    }
    context.DrawArc(wheel.centerX, wheel.centerY, wheel.radius, StartOf(wheel, stressed), wheel.sliceAngle);
}

// ------------------------------------------------------------------ input

std::int16_t ColorWheel::FindSlice(long x, long y) {
    // Kept as short as it is: slices are found as they always were.
    constexpr double pi = 3.14159;
    auto const count = static_cast<int>(sliceColors_.size());
    if (count <= 1) return 0;
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    auto const dx = static_cast<double>(x - static_cast<long>(width / 2));
    auto const dy = static_cast<double>(static_cast<long>(height / 2) - y);
    double angle = std::atan2(dy, dx) / 2 / pi * 360;
    if (angle < 0) angle += 360;
    int const step = 360 / count;
    auto const within = [](double degrees) { return degrees > 360 ? degrees - 360 : degrees; };
    for (int i = 0; i < count; ++i) {
        double const start = within(step * i + static_cast<double>(baseAngle_));
        double const end = within(step * (i + 1) + static_cast<double>(baseAngle_));
        bool const isFound = start <= end ? start <= angle && angle < end : start <= angle || angle < end;
        if (isFound) return static_cast<std::int16_t>(i);
    }
    return noSlice;
}

bool ColorWheel::OnLeftButtonDown(KeyState /*keyState*/, long x, long y) {
    CallScope const call(*this);
    TellValue("Selected Slice", SliceText(FindSlice(x, y)));
    if (IsAttached()) OnSelectionChanged(selectionName_, selectionFlag_);
    if (IsAttached()) TellValue(clickEvent, ClickRecord(x, y));
    return true;
}

void ColorWheel::OnSelectionChanged(String const& elementName, bool selected) {
    if (!(elementName == Topics::focus)) {
        selectionName_ = elementName;
        selectionFlag_ = selected;
    }
    HarmonyElement::OnSelectionChanged(elementName, selected);
}

DropEffect ColorWheel::OnDragOver(DropDataObject const& data, KeyState keyState, long x, long y) {
    // The handler may have changed what is shown.
    dragSlice_ = noSlice;
    return HarmonyElement::OnDragOver(data, keyState, x, y);
}

} // namespace GUI
