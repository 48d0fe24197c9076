#include "gui/charts/XYColorChart.h"

#include "gui/charts/GraphAttributes.h"
#include "gui/charts/ScaleMap.h"
#include "gui/charts/ZeroAxes.h"
#include "gui/colour/OutsideMark.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace GUI {

using Utilities::Anything;

namespace {

constexpr Attribute spotSizeKey{"SpotSize", AttributeType::Number, "4", "Radius of a spot in pixels", false,
                                shortRange};
constexpr Attribute backgroundBitmapKey{"BackgroundBitmap", AttributeType::Text, "",
                                        "Stem of the background picture's name"};
constexpr Attribute isotropicKey{"Isotropic", AttributeType::Flag, "No",
                                 "One unit is as long on both axes; the longer side of the pane shows more"};
constexpr Attribute zeroAxesKey{"ZeroAxes", AttributeType::Flag, "No",
                                "Axes through zero with ticks and numbers"};
constexpr Attribute lineColorKey{"LineColor", AttributeType::Colour, "92,92,92 axis",
                                 "Colour of the axes and their numbers"};
constexpr Attribute gridColorKey{"GridColor", AttributeType::Colour, "",
                                 "Colour of lines at the numbers of the axes; none if absent"};
constexpr Attribute valueFormatKey{
    "ValueFormat", AttributeType::Text, "Lab",
    "How values in the read-out are written: a quantity of the number formats"};
constexpr Attribute xNameKey{"XName", AttributeType::Text, "a*",
                             "What the X value is called in the read-out"};
constexpr Attribute yNameKey{"YName", AttributeType::Text, "b*",
                             "What the Y value is called in the read-out"};
constexpr Attribute attributeList[] = {ExploredPlot::zoomAttribute,
                                       GraphAttributes::cursor,
                                       valueFormatKey,
                                       xNameKey,
                                       yNameKey,
                                       PlaneDecor::ringsAttribute,
                                       PlaneDecor::hueLinesAttribute,
                                       PlaneDecor::gamutEdgeAttribute,
                                       spotSizeKey,
                                       backgroundBitmapKey,
                                       isotropicKey,
                                       zeroAxesKey,
                                       lineColorKey,
                                       gridColorKey,
                                       PatchAttributes::markOutside,
                                       PatchAttributes::smooth};

ElementRegistration<XYColorChart, Pane> const registration({"XYColorChart", "$Revision: 1.9 $", "GUI"},
                                                           attributeList);

/// The source of commands to select a spot, whatever the chart's own name is.
constexpr char const* selectionElement = "ColorChart";
constexpr char const* selectionEvent = "SelectSample";
constexpr long tolerancePen = 2;
RGBVector const outline(50, 50, 50);

} // namespace

XYColorChart::~XYColorChart() { XYColorChart::OnDetach(); }

void XYColorChart::OnDetach() {
    onSelectSample_.Release(GetDataSource(), selectionElement, selectionEvent);
    Pane::OnDetach();
}

void XYColorChart::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                              DialogDataSource* dataSource) {
    Pane::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);
    spotSize_ = attributes.Text(spotSizeKey).GetUnsignedShort();
    isIsotropic_ = attributes.Flag(isotropicKey);
    hasZeroAxes_ = attributes.Flag(zeroAxesKey);
    marksOutside_ = attributes.Flag(PatchAttributes::markOutside);
    smooth_ = attributes.Flag(PatchAttributes::smooth);
    lineColor_ = attributes.Colour(lineColorKey);
    SetZoom(attributes.Flag(zoomAttribute));
    hasCursor_ = attributes.Flag(GraphAttributes::cursor);
    valueFormat_ = attributes.Text(valueFormatKey);
    xName_ = attributes.Text(xNameKey);
    yName_ = attributes.Text(yNameKey);
    decor_.ReadAttributes(description);
    if (attributes.HasColour(gridColorKey)) gridColor_ = attributes.Colour(gridColorKey);
    if (dataSource) dataSource->SetCallback(selectionElement, selectionEvent, onSelectSample_.Get());
    backgroundBitmap_ = attributes.Text(backgroundBitmapKey);
    RegisterOnUpdate();
}

long XYColorChart::OnSelectSample(Anything const& /*argument*/) {
    Repaint();
    return 0;
}

long XYColorChart::OnUpdate(Anything const& /*command*/) {
    CallScope const call(*this);
    Anything const extension = GetValue("BackgroundBitmapExtension");
    if (extension.IsValid()) SetBackgroundBitmap(backgroundBitmap_ + extension.GetString());
    Anything const count = GetValue("NrOfPatches");
    spots_ = ReadColorSpots(*this, count.IsValid() ? count.GetLong() : 0);
    auto const take = [this](char const* key, double& field) {
        Anything const value = GetValue(key);
        if (value.IsValid()) field = value.GetShort();
    };
    take("XValueBegin", xValueBegin_);
    take("XValueEnd", xValueEnd_);
    take("YValueBegin", yValueBegin_);
    take("YValueEnd", yValueEnd_);
    tolerance_ = ToleranceContour(GetValue("Tolerance"));
    if (decor_.HasGamutEdge()) decor_.TakeGamutLightness(GetValue(PlaneDecor::gamutLightnessKey));
    decor_.TakeTrace(GetValue(PlaneDecor::traceKey));
    pointed_ = -1;
    if (HasZoom()) TakeView(GetValue(viewKey));
    Repaint();
    return 0;
}

XYColorChart::Places XYColorChart::GetPlaces(PlotRange const& range) const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    Places places;
    places.paneWidth = places.width = static_cast<double>(width);
    places.paneHeight = places.height = static_cast<double>(height);
    places.xRange = range.xEnd - range.xBegin;
    places.yRange = range.yEnd - range.yBegin;
    if (isIsotropic_ && places.xRange != 0 && places.yRange != 0) {
        double const xLength = std::abs(places.xRange);
        double const yLength = std::abs(places.yRange);
        double const unit = std::min(places.width / xLength, places.height / yLength);
        places.width = unit * xLength;
        places.height = unit * yLength;
    }
    places.originX = (places.paneWidth - places.width) / 2 + (-range.xBegin / places.xRange) * places.width;
    places.originY = (places.paneHeight - places.height) / 2 + (range.yEnd / places.yRange) * places.height;
    return places;
}

XYColorChart::Pixel XYColorChart::Places::Of(Spot const& spot) const {
    return {ScaleMap::ToShort(originX + spot.x * width / xRange),
            ScaleMap::ToShort(originY - spot.y * height / yRange)};
}

void XYColorChart::FindVisible(Places const& places, long selected) {
    auto const width = static_cast<std::size_t>(std::clamp(places.paneWidth, 0.0, 32767.0));
    auto const height = static_cast<std::size_t>(std::clamp(places.paneHeight, 0.0, 32767.0));
    std::size_t const wordsInRow = width / 64 + 1;
    taken_.assign(wordsInRow * height, 0);
    visible_.clear();
    // From the last one, which is on top. The selected one has another pen and covers more than
    // another one there would.
    for (std::size_t i = spots_.size(); i-- > 0;) {
        Pixel const place = places.Of(spots_[i]);
        bool const isSelected = static_cast<long>(i) == selected;
        auto const x = static_cast<std::size_t>(place.x);
        auto const y = static_cast<std::size_t>(place.y);
        if (place.x >= 0 && place.y >= 0 && x < width && y < height) {
            std::uint64_t& word = taken_[y * wordsInRow + x / 64];
            std::uint64_t const bit = std::uint64_t{1} << (x % 64);
            if ((word & bit) != 0 && !isSelected) continue;
            word |= bit;
        }
        visible_.push_back({static_cast<std::uint32_t>(i), place});
    }
}

void XYColorChart::OnPaint(PlatformIndependentDeviceContext& context) {
    static RGBVector const mark(255, 255, 255);
    CallScope const call(*this);
    Pane::OnPaint(context);
    long const selected = AskSelected();
    Places const places = GetPlaces();
    ValuePlane const plane{static_cast<long>(places.paneWidth),
                           static_cast<long>(places.paneHeight),
                           places.originX,
                           places.originY,
                           places.width / places.xRange,
                           places.height / places.yRange};
    if (!decor_.IsEmpty()) {
        context.SetSmooth(smooth_);
        decor_.Draw(context, plane);
        context.SetSmooth(false);
    }
    if (hasZeroAxes_) DrawZeroAxes(context, plane, lineColor_, gridColor_);
    FindVisible(places, selected);
    if (smooth_) context.SetSmooth(true);
    if (!tolerance_.IsEmpty()) {
        context.SetPen(lineColor_, tolerancePen, PlatformIndependentDeviceContext::solid);
        tolerance_.Draw(context, [&places](ToleranceContour::Point const& point) {
            Pixel const place = places.Of({{}, point.first, point.second});
            return std::pair(place.x, place.y);
        });
    }
    bool isPlainPen = false;
    // NOLINTNEXTLINE(modernize-loop-convert): reversed views of both compilers don't agree yet
    for (auto it = visible_.rbegin(); it != visible_.rend(); ++it) {
        VisibleSpot const& spot = *it;
        bool const isSelected = static_cast<long>(spot.number) == selected;
        if (isSelected && marksOutside_) continue;
        if (isSelected) {
            context.SetPen(mark, 3, PlatformIndependentDeviceContext::solid);
            isPlainPen = false;
        } else if (!isPlainPen) {
            context.SetPen(outline, 1, PlatformIndependentDeviceContext::solid);
            isPlainPen = true;
        }
        DrawSpot(context, spots_[spot.number], spot.place);
    }
    if (marksOutside_ && selected >= 0 && selected < static_cast<long>(spots_.size()))
        DrawMarked(context, places, selected);
    if (!hasCursor_ && !IsDragging()) return;
    context.SetSmooth(false);
    if (hasCursor_ && pointed_ >= 0) DrawReadOut(context, places);
    DrawRubberBand(context);
}

void XYColorChart::DrawMarked(PlatformIndependentDeviceContext& context, Places const& places,
                              long selected) const {
    // What is marked beside it is on top, or its mark would be covered.
    Spot const& spot = spots_[static_cast<std::size_t>(selected)];
    Pixel const place = places.Of(spot);
    context.SetPen(outline, 1, PlatformIndependentDeviceContext::solid);
    DrawSpot(context, spot, place);
    OutsideMark const ring;
    int const outer = spotSize_ + ring.Room();
    ring.Draw(context, ScaleMap::ToShort(place.x - outer), ScaleMap::ToShort(place.y - outer),
              ScaleMap::ToShort(place.x + outer), ScaleMap::ToShort(place.y + outer), true);
}

void XYColorChart::DrawSpot(PlatformIndependentDeviceContext& context, Spot const& spot, Pixel place) const {
    int const radius = spotSize_;
    context.SetBrush(spot.color);
    context.FillEllipse(ScaleMap::ToShort(place.x - radius), ScaleMap::ToShort(place.y - radius),
                        ScaleMap::ToShort(place.x + radius), ScaleMap::ToShort(place.y + radius));
}

Anything XYColorChart::GetPropertyInspectorData() {
    AttributeMap key;
    key["ElementName"] = GetElementName();
    key["CurrentRegion"] = GetCurrentRegion();
    return {key};
}

} // namespace GUI
