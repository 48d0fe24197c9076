// Mouse and keys in an XYColorChart: clicks, the spot under the mouse, and what is shown.
#include "gui/charts/PlotCursor.h"
#include "gui/charts/ScaleMap.h"
#include "gui/charts/XYColorChart.h"
#include "gui/elements/Topics.h"
#include "gui/elements/drawing/NumberFormat.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

// ------------------------------------------------------------------ what is shown

PlotRange XYColorChart::GetWholeRange() const {
    // The pane shows more than the range along its longer side.
    Places const places = GetPlaces(GetRange());
    double const xUnit = places.width / places.xRange;
    double const yUnit = places.height / places.yRange;
    PlotRange const whole{-places.originX / xUnit, (places.paneWidth - places.originX) / xUnit,
                          (places.originY - places.paneHeight) / yUnit, places.originY / yUnit};
    bool const isUsable = std::isfinite(whole.xBegin) && std::isfinite(whole.xEnd) &&
                          std::isfinite(whole.yBegin) && std::isfinite(whole.yEnd);
    return isIsotropic_ && isUsable ? whole : GetRange();
}

PlotRange XYColorChart::Adapt(PlotRange const& range) const {
    if (!isIsotropic_) return range;
    PlotRange const whole = GetWholeRange();
    double const x = (range.xEnd - range.xBegin) / (whole.xEnd - whole.xBegin);
    double const y = (range.yEnd - range.yBegin) / (whole.yEnd - whole.yBegin);
    if (!(x > 0) || !(y > 0)) return range;
    // As much of both axes of the whole, around the middle.
    double const longer = std::max(x, y);
    auto const around = [longer](double share) {
        return std::pair(0.5 - longer / share / 2, 0.5 + longer / share / 2);
    };
    auto const [left, right] = around(x);
    auto const [low, high] = around(y);
    return range.Between(left, right, low, high);
}

ExploredPlot::PlotArea XYColorChart::GetPlotArea() const {
    Places const places = GetPlaces();
    return {0, 0, places.paneWidth, places.paneHeight};
}

void XYColorChart::OnViewChanged() {
    CallScope const call(*this);
    TellValue(viewKey, GetView());
    if (IsAttached()) Repaint();
}

// ------------------------------------------------------------------ spots

long XYColorChart::AskSelected() {
    Anything const selection = GetValue("SelectedSample");
    return selection.IsValid() ? selection.GetLong() : -1;
}

long XYColorChart::FindSpot(long x, long y) {
    Places const places = GetPlaces();
    double const radius = spotSize_;
    auto const isUnder = [&](std::size_t number) {
        Pixel const place = places.Of(spots_[number]);
        // A pixel is under the spot if its centre is.
        double const dx = static_cast<double>(x) + 0.5 - place.x;
        double const dy = static_cast<double>(y) + 0.5 - place.y;
        return dx * dx + dy * dy <= radius * radius;
    };
    std::size_t found = spots_.size();
    while (found > 0 && !isUnder(found - 1)) --found;
    if (marksOutside_) {
        // The selected spot is on top.
        long const selected = AskSelected();
        if (!IsAttached() || spots_.empty()) return true;
        if (selected >= 0 && static_cast<std::size_t>(selected) < spots_.size() &&
            isUnder(static_cast<std::size_t>(selected)))
            return selected;
    }
    return static_cast<long>(found) - 1;
}

String XYColorChart::GetToolTipText(unsigned short x, unsigned short y) {
    CallScope const call(*this);
    long const found = FindSpot(x, y);
    if (found < 0) return {};
    Anything const text = GetValue(String("ToolTipText ") + String(found));
    return text.IsOfTypeString() ? text.GetString() : String();
}

void XYColorChart::DrawReadOut(PlatformIndependentDeviceContext& context, Places const& places) {
    if (pointed_ >= static_cast<long>(spots_.size())) return;
    Spot const spot = spots_[static_cast<std::size_t>(pointed_)];
    Anything const text = GetValue(String("ToolTipText ") + String(pointed_));
    auto const format = NumberFormat::Find(valueFormat_).value_or(NumberFormat{});
    PlotReadOut readOut;
    if (text.IsOfTypeString()) readOut.heading = text.GetString().GetToken(0, '\n');
    readOut.rows = {{xName_, format.Write(spot.x)}, {yName_, format.Write(spot.y)}};
    Pixel const place = places.Of(spot);
    readOut.Draw(context, place.x, long{place.y} + spotSize_, std::lround(places.paneWidth),
                 std::lround(places.paneHeight));
}

// ------------------------------------------------------------------ input

bool XYColorChart::OnLeftButtonDown(KeyState keyState, long x, long y) {
    Places const places = GetPlaces();
    AttributeMap click;
    click["x"] = (static_cast<double>(x) - places.originX) * places.xRange / places.width;
    click["y"] = (places.originY - static_cast<double>(y)) * places.yRange / places.height;
    CallScope const call(*this);
    bool const pans = HasZoom() && keyState == KeyState::Control;
    if (!pans) TellValue("Click", click);
    // Whoever is told may rebuild the view, and this chart with it.
    if (IsAttached()) OnSelectionChanged(Topics::propertyInspector, true);
    if (!IsAttached() || !(HasZoom() || hasCursor_)) return false;
    SetFocus();
    if (IsAttached() && BeginDrag(pans, x, y)) SetMouseCapture(true);
    return true;
}

bool XYColorChart::OnMouseMove(long x, long y) {
    CallScope const call(*this);
    if (DragTo(x, y)) return true;
    if (!hasCursor_) return Pane::OnMouseMove(x, y);
    long const former = std::exchange(pointed_, FindSpot(x, y));
    if (pointed_ != former && IsAttached()) Repaint();
    return true;
}

bool XYColorChart::OnLeftButtonUp(long x, long y) {
    CallScope const call(*this);
    if (!IsDragging()) return Pane::OnLeftButtonUp(x, y);
    SetMouseCapture(false);
    EndDrag(x, y);
    return true;
}

bool XYColorChart::OnMouseLeave() {
    if (std::exchange(pointed_, -1) >= 0) Repaint();
    return Pane::OnMouseLeave();
}

bool XYColorChart::OnViewKey(ViewKey key) {
    CallScope const call(*this);
    long const step = key == ViewKey::Right || key == ViewKey::Down ? 1 : -1;
    bool const isArrow = key == ViewKey::Left || key == ViewKey::Up || step == 1;
    if (!hasCursor_ || !isArrow || spots_.empty()) return ExploredPlot::OnViewKey(key);
    long const selected = AskSelected();
    long const last = static_cast<long>(spots_.size()) - 1;
    Spot const& spot = spots_[static_cast<std::size_t>(std::clamp(selected + step, 0L, last))];
    AttributeMap click;
    click["x"] = spot.x;
    click["y"] = spot.y;
    if (IsAttached()) TellValue("Click", click);
    return true;
}

} // namespace GUI
