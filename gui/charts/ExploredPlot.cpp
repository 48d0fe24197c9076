#include "gui/charts/ExploredPlot.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace GUI {

namespace {

/// Of the range, for a notch of the wheel or a key.
constexpr double zoomStep = 0.8;
constexpr double panStep = 0.1;
/// A drag of fewer pixels is a click.
constexpr long leastDrag = 4;

} // namespace

double ExploredPlot::ShareX(long x) const {
    PlotArea const area = GetPlotArea();
    return area.width > 0 ? (static_cast<double>(x) - area.left) / area.width : 0;
}
double ExploredPlot::ShareY(long y) const {
    PlotArea const area = GetPlotArea();
    return area.height > 0 ? 1 - (static_cast<double>(y) - area.top) / area.height : 0;
}

void ExploredPlot::TakeView(Utilities::Anything const& value) {
    if (!zoom_ || !value.IsValid()) return;
    auto const range = PlotRange::Read(value);
    view_ = range ? std::optional(range->Within(GetWholeRange())) : std::nullopt;
    if (view_ == GetWholeRange()) view_.reset();
}

void ExploredPlot::Show(PlotRange const& range) {
    PlotRange const shown = Adapt(range).Within(GetWholeRange());
    if (shown == GetViewedRange()) return;
    view_ = shown;
    if (shown == GetWholeRange()) view_.reset();
    OnViewChanged();
}

void ExploredPlot::ShowWhole() { Show(GetWholeRange()); }

bool ExploredPlot::OnWheel(double steps, long x, long y) {
    if (!zoom_ || !std::isfinite(steps) || steps == 0) return false;
    // Nothing more to see: whoever scrolls past the chart goes on.
    if (steps < 0 && GetViewedRange() == GetWholeRange()) return false;
    double const atX = std::clamp(ShareX(x), 0.0, 1.0);
    double const atY = std::clamp(ShareY(y), 0.0, 1.0);
    Show(GetViewedRange().Scaled(std::pow(zoomStep, std::clamp(steps, -10.0, 10.0)), atX, atY));
    return true;
}

bool ExploredPlot::OnViewKey(ViewKey key) {
    if (!zoom_) return false;
    PlotRange const shown = GetViewedRange();
    constexpr double middle = 0.5;
    auto const pan = [&](double x, double y) { Show(shown.Between(x, 1 + x, y, 1 + y)); };
    switch (key) {
    case ViewKey::ZoomIn:
        Show(shown.Scaled(zoomStep, middle, middle));
        return true;
    case ViewKey::ZoomOut:
        Show(shown.Scaled(1 / zoomStep, middle, middle));
        return true;
    case ViewKey::PanLeft:
        pan(-panStep, 0);
        return true;
    case ViewKey::PanRight:
        pan(panStep, 0);
        return true;
    case ViewKey::PanUp:
        pan(0, panStep);
        return true;
    case ViewKey::PanDown:
        pan(0, -panStep);
        return true;
    case ViewKey::Whole:
        ShowWhole();
        return true;
    default:
        return false;
    }
}

bool ExploredPlot::BeginDrag(bool pans, long x, long y) {
    if (!zoom_) return false;
    drag_ = Drag{pans, x, y, x, y, GetViewedRange()};
    return true;
}

bool ExploredPlot::DragTo(long x, long y) {
    if (!drag_) return false;
    if (drag_->toX == x && drag_->toY == y) return true;
    drag_->toX = x;
    drag_->toY = y;
    if (!drag_->pans) {
        OnBandChanged();
        return true;
    }
    double const right = ShareX(drag_->x) - ShareX(x);
    double const up = ShareY(drag_->y) - ShareY(y);
    Show(drag_->shown.Between(right, 1 + right, up, 1 + up));
    return true;
}

bool ExploredPlot::EndDrag(long x, long y) {
    if (!drag_) return false;
    Drag const drag = *std::exchange(drag_, std::nullopt);
    bool const isClick = std::abs(x - drag.x) < leastDrag || std::abs(y - drag.y) < leastDrag;
    if (drag.pans || isClick) {
        OnBandChanged();
        return drag.pans;
    }
    auto const share = [](double at) { return std::clamp(at, 0.0, 1.0); };
    double const low = share(ShareY(std::max(y, drag.y)));
    double const high = share(ShareY(std::min(y, drag.y)));
    PlotRange const wanted =
        x < drag.x ? GetWholeRange()
                   : GetViewedRange().Between(share(ShareX(drag.x)), share(ShareX(x)), low, high);
    bool const isSame = Adapt(wanted).Within(GetWholeRange()) == GetViewedRange();
    Show(wanted);
    if (isSame) OnBandChanged();
    return true;
}

void ExploredPlot::DrawRubberBand(PlatformIndependentDeviceContext& context) const {
    if (!drag_ || drag_->pans) return;
    auto const place = [](long at) { return static_cast<short>(std::clamp(at, -32000L, 32000L)); };
    context.SetPen(RGBVector{ThemeRole::Accent, RGBVector(29, 95, 166)}, 1,
                   PlatformIndependentDeviceContext::solid);
    context.DrawRectangle(place(std::min(drag_->x, drag_->toX)), place(std::min(drag_->y, drag_->toY)),
                          place(std::max(drag_->x, drag_->toX) + 1),
                          place(std::max(drag_->y, drag_->toY) + 1));
}

} // namespace GUI
