#include "gui/colour/ColorGraph.h"

#include "gui/colour/DevicePixels.h"
#include "gui/colour/HostScreen.h"
#include "gui/colour/OutsideMark.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/elements/colour/ScreenRGB.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute planeKey{"Plane", AttributeType::Text, "ab",
                             "\"ab\": the colours of one lightness; \"LC\": the leaf of one hue"};
constexpr Attribute lightnessKey{"Lightness", AttributeType::Number, "50", "L* of a plane \"ab\"", false,
                                 {0, 100}};
constexpr Attribute hueKey{"Hue", AttributeType::Number, "0", "Hue of a leaf, in degrees"};
constexpr Attribute rangeKey{"Range", AttributeType::Number,
                             "100",   "How far a* and b* go on either side of zero, or C*",
                             false,   {1, 1000}};
constexpr Attribute outsideColorKey{"OutsideColor", AttributeType::Colour, "198,198,198",
                                    "Where the screen has no colour"};
constexpr Attribute edgeColorKey{"EdgeColor", AttributeType::Colour, "22,22,22",
                                 "Of the border of what the screen can show; an empty one draws none"};
constexpr Attribute spotSizeKey{"SpotSize", AttributeType::Number, "4", "Radius of a spot in pixels", false,
                                {1, 1000}};
constexpr Attribute attributeList[] = {planeKey,        lightnessKey, hueKey,      rangeKey,
                                       outsideColorKey, edgeColorKey, spotSizeKey, PatchAttributes::smooth};

ElementRegistration<ColorGraph, Pane> const registration({"ColorGraph", "$Revision: 1.2 $", "GUI"},
                                                         attributeList);

constexpr double highestLightness = 100;

std::uint32_t Packed(RGBVector const& color) {
    return static_cast<std::uint32_t>(color.GetRed()) << 16U |
           static_cast<std::uint32_t>(color.GetGreen()) << 8U | color.GetBlue();
}

} // namespace

void ColorGraph::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    ColorGUIElement::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);
    kind_ = attributes.Text(planeKey);
    lightness_ = attributes.Number(lightnessKey);
    hue_ = attributes.Number(hueKey);
    range_ = attributes.Number(rangeKey);
    outsideColor_ = attributes.Colour(outsideColorKey);
    if (attributes.Text(edgeColorKey).Length() != 0) edgeColor_ = attributes.Colour(edgeColorKey);
    spotSize_ = static_cast<int>(attributes.Long(spotSizeKey));
    smooth_ = attributes.Flag(PatchAttributes::smooth);
    RegisterOnUpdate();
}

// ------------------------------------------------------------------ data

long ColorGraph::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    long const result = ReadUpdate(command);
    if (Anything const plane = GetValue(planeKey.key); plane.IsOfTypeString()) kind_ = plane.GetString();
    auto const read = [this](Attribute const& attribute, double lowest, double& field) {
        Anything const answer = GetValue(attribute.key);
        if (!answer.IsValid()) return;
        double const value = answer.GetDouble();
        if (std::isfinite(value) && value >= lowest) field = value;
    };
    constexpr double any = -1e9;
    constexpr double leastRange = 1e-3;
    read(lightnessKey, any, lightness_);
    read(hueKey, any, hue_);
    read(rangeKey, leastRange, range_);
    Anything const count = GetValue("NrOfPatches");
    spots_ = ReadColorSpots(*this, count.IsValid() ? count.GetLong() : 0);
    if (IsAttached() && !HasNoRepaint(command)) Repaint();
    return result;
}

GamutPlane const& ColorGraph::GetPlane() {
    auto screen = FindHostScreen();
    if (screen_.IsNull() || (!screen.IsNull() && screen.Get() != screen_.Get())) {
        plane_ = nullptr;
        screen_ = screen.IsNull() ? Utilities::MakeSmart<Tintorium::ScreenRGB>() : screen;
        picture_ = {};
    }
    if (!plane_) plane_ = std::make_unique<GamutPlane>(screen_->GetTransform());
    return *plane_;
}

// ------------------------------------------------------------------ places

ColorGraph::Axes ColorGraph::GetAxes() const {
    unsigned long paneWidth = 0;
    unsigned long paneHeight = 0;
    GetSize(paneWidth, paneHeight);
    auto const width = static_cast<double>(std::max(paneWidth, 1UL));
    auto const height = static_cast<double>(std::max(paneHeight, 1UL));
    if (IsLeaf()) return {0, highestLightness, range_ / width, highestLightness / height};
    double const unit = 2 * range_ / std::min(width, height);
    return {-unit * width / 2, unit * height / 2, unit, unit};
}

GamutPlane::Lab ColorGraph::ToLab(double x, double y) const {
    if (!IsLeaf()) return {lightness_, x, y};
    double const angle = hue_ / 180 * std::acos(-1.0);
    return {y, x * std::cos(angle), x * std::sin(angle)};
}

GamutPlane::Place ColorGraph::GetPlace(Axes const& axes, double scale) const {
    double const xStep = axes.xPerPixel / scale;
    double const yStep = axes.yPerPixel / scale;
    auto const first = ToLab(axes.left + xStep / 2, axes.upper - yStep / 2);
    auto const right = ToLab(axes.left + xStep * 1.5, axes.upper - yStep / 2);
    auto const below = ToLab(axes.left + xStep / 2, axes.upper - yStep * 1.5);
    GamutPlane::Place place{first, {}, {}};
    for (std::size_t i = 0; i < first.size(); ++i) {
        place.perColumn[i] = right[i] - first[i];
        place.perRow[i] = below[i] - first[i];
    }
    return place;
}

std::optional<std::pair<short, short>> ColorGraph::PixelOf(Axes const& axes, Spot const& spot) const {
    constexpr double farthest = 16000;
    double const x = std::floor((spot.x - axes.left) / axes.xPerPixel);
    double const y = std::floor((axes.upper - spot.y) / axes.yPerPixel);
    if (!(std::abs(x) < farthest && std::abs(y) < farthest)) return std::nullopt;
    return std::pair(static_cast<short>(x), static_cast<short>(y));
}

// ------------------------------------------------------------------ painting

void ColorGraph::OnPaint(PlatformIndependentDeviceContext& context) {
    ColorGUIElement::OnPaint(context);
    Anything const answer = GetValue("SelectedSample");
    long const selected = answer.IsValid() ? answer.GetLong() : -1;
    Axes const axes = GetAxes();
    DrawPlane(context, axes);
    if (smooth_) context.SetSmooth(true);
    auto const isSpot = [this](long number) {
        return number >= 0 && static_cast<std::size_t>(number) < spots_.size();
    };
    for (std::size_t i = 0; i < spots_.size(); ++i)
        if (static_cast<long>(i) != selected) DrawSpot(context, axes, spots_[i], false);
    if (isSpot(selected)) DrawSpot(context, axes, spots_[static_cast<std::size_t>(selected)], true);
}

void ColorGraph::DrawPlane(PlatformIndependentDeviceContext& context, Axes const& axes) {
    DevicePixels const pixels = DevicePixels::Of(*this, context);
    if (pixels.IsEmpty()) return;
    Picture wanted;
    wanted.place = GetPlace(axes, pixels.scale);
    wanted.width = pixels.width;
    wanted.height = pixels.height;
    wanted.colours.outside = Packed(outsideColor_);
    if (edgeColor_) wanted.colours.edge = Packed(*edgeColor_);
    wanted.colours.edgeWidth = edgeColor_ ? static_cast<int>(std::max(std::lround(pixels.scale), 1L)) : 0;
    GamutPlane const& plane = GetPlane();
    bool const isKnown = picture_.place == wanted.place && picture_.colours == wanted.colours &&
                         picture_.width == wanted.width && picture_.height == wanted.height;
    if (!isKnown) {
        wanted.pixels = plane.Compute(wanted.place, wanted.width, wanted.height, wanted.colours);
        picture_ = std::move(wanted);
    }
    pixels.Draw(context, *this, picture_.pixels);
}

void ColorGraph::DrawSpot(PlatformIndependentDeviceContext& context, Axes const& axes, Spot const& spot,
                          bool isSelected) const {
    auto const place = PixelOf(axes, spot);
    if (!place) return;
    auto const box = [&place](int radius, auto draw) {
        draw(static_cast<short>(place->first - radius), static_cast<short>(place->second - radius),
             static_cast<short>(place->first + radius + 1), static_cast<short>(place->second + radius + 1));
    };
    // A ring in each tone: one of them can be seen on any ground.
    OutsideMark const mark;
    int const room = isSelected ? mark.Room() : 1;
    box(spotSize_ + room, [&](short left, short top, short right, short bottom) {
        context.SetPen(outsideColor_, 0, PlatformIndependentDeviceContext::noPen);
        context.SetBrush(isSelected ? outsideColor_ : RGBVector(255, 255, 255));
        context.FillEllipse(left, top, right, bottom);
        if (isSelected) mark.Draw(context, left, top, right, bottom, true);
    });
    box(spotSize_, [&](short left, short top, short right, short bottom) {
        context.SetPen(spot.color, 0, PlatformIndependentDeviceContext::noPen);
        context.SetBrush(spot.color);
        context.FillEllipse(left, top, right, bottom);
    });
}

// ------------------------------------------------------------------ input

bool ColorGraph::OnLeftButtonDown(KeyState keyState, long x, long y) {
    CallScope const call(*this);
    Axes const axes = GetAxes();
    double const atX = axes.left + (static_cast<double>(x) + 0.5) * axes.xPerPixel;
    double const atY = axes.upper - (static_cast<double>(y) + 0.5) * axes.yPerPixel;
    auto const lab = ToLab(atX, atY);
    Norvelian::ColorExchangeFormat::ScreenColour shown;
    GetPlane().GetTransform().Convert(lab, {&shown, 1});
    RGBVector color(shown.GetRed(), shown.GetGreen(), shown.GetBlue());
    color.SetInGamut(shown.IsInGamut());
    Anything::MapOfAnythings click;
    click["x"] = atX;
    click["y"] = atY;
    click["L"] = lab[0];
    click["a"] = lab[1];
    click["b"] = lab[2];
    click["Color"] = color.GetAnything();
    TellValue("Click", click);
    return IsAttached() && ColorGUIElement::OnLeftButtonDown(keyState, x, y);
}

String ColorGraph::GetToolTipText(unsigned short x, unsigned short y) {
    Axes const axes = GetAxes();
    for (std::size_t i = spots_.size(); i-- > 0;) {
        auto const place = PixelOf(axes, spots_[i]);
        if (!place || std::hypot(place->first - x, place->second - y) > spotSize_) continue;
        Anything const text = GetValue(String("ToolTipText ") + String(static_cast<unsigned long>(i)));
        return text.IsOfTypeString() ? text.GetString() : String();
    }
    return ColorGUIElement::GetToolTipText(x, y);
}

} // namespace GUI
