// Mouse and keys in an XYGraph: the cursor, and what is shown.
#include "gui/charts/XYGraph.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace GUI {

using Utilities::Anything;

ExploredPlot::PlotArea XYGraph::GetPlotArea() const {
    ScaleMap const map = GetScaleMap();
    return {map.left, map.top, map.width, map.height};
}

void XYGraph::OnViewChanged() {
    CallScope const call(*this);
    TellValue(viewKey, GetView());
    if (IsAttached()) Repaint();
}

void XYGraph::GetXDrawLines(double& begin, double& step) {
    Graph::GetXDrawLines(begin, step);
    // A chart writes its numbers from there on, inside what is shown.
    double const shown = GetShownRange().xBegin;
    if (ShowsPart() && step > 0) begin += std::max(std::ceil((shown - begin) / step), 0.0) * step;
}

std::uint32_t XYGraph::GetLength() const {
    std::uint32_t longest = 0;
    for (auto curve = data_->curves.Begin(); curve.IsValid(); ++curve)
        longest = std::max(longest, static_cast<std::uint32_t>(curve.Current().size()));
    return longest;
}

std::optional<std::uint32_t> XYGraph::ItemAt(double x) const {
    std::uint32_t const length = GetLength();
    double const item = std::round((x - GetXValueBegin()) / GetDeltaXValue());
    if (length == 0 || std::isnan(item)) return {};
    return static_cast<std::uint32_t>(std::clamp(item, 0.0, static_cast<double>(length - 1)));
}

void XYGraph::SetCursor(std::optional<std::uint32_t> item) {
    if (item == cursor_) return;
    CallScope const call(*this);
    cursor_ = item;
    TellValue("Cursor", item ? Anything(XOf(*item)) : Anything(""));
    if (!IsAttached()) return;
    Repaint();
    TellAccessibleChange();
}

void XYGraph::FollowMouse(long x, long y) {
    ScaleMap const map = GetScaleMap();
    double atX = 0;
    double atY = 0;
    map.ToValue(ScaleMap::ToShort(static_cast<double>(x)), ScaleMap::ToShort(static_cast<double>(y)), atX,
                atY);
    auto const item = ItemAt(atX);
    long nearest = -1;
    long least = std::numeric_limits<long>::max();
    long number = 0;
    for (auto curve = data_->curves.Begin(); item && curve.IsValid(); ++curve, ++number) {
        if (*item >= curve.Current().size() || std::isnan(curve.Current()[*item])) continue;
        long const distance = std::labs(map.AlongY(curve.Current()[*item]) - y);
        if (distance >= least) continue;
        least = distance;
        nearest = number;
    }
    bool const isOther = nearest != readCurve_ && item == cursor_;
    readCurve_ = nearest;
    SetCursor(item);
    if (isOther && IsAttached()) Repaint();
}

bool XYGraph::OnLeftButtonDown(KeyState keyState, long x, long y) {
    CallScope const call(*this);
    if (!HasZoom() && !hasCursor_) return Graph::OnLeftButtonDown(keyState, x, y);
    SetFocus();
    if (!IsAttached()) return true;
    if (BeginDrag(keyState == KeyState::Control, x, y)) SetMouseCapture(true);
    return true;
}

bool XYGraph::OnMouseMove(long x, long y) {
    CallScope const call(*this);
    if (DragTo(x, y)) return true;
    if (!hasCursor_) return Graph::OnMouseMove(x, y);
    FollowMouse(x, y);
    return true;
}

bool XYGraph::OnLeftButtonUp(long x, long y) {
    CallScope const call(*this);
    if (!IsDragging()) return Graph::OnLeftButtonUp(x, y);
    SetMouseCapture(false);
    EndDrag(x, y);
    return true;
}

bool XYGraph::OnMouseLeave() {
    CallScope const call(*this);
    if (hasCursor_) {
        readCurve_ = -1;
        SetCursor({});
    }
    return IsAttached() && Graph::OnMouseLeave();
}

bool XYGraph::OnViewKey(ViewKey key) {
    CallScope const call(*this);
    if (hasCursor_) {
        std::uint32_t const length = GetLength();
        auto const count = static_cast<long>(data_->curves.GetSize());
        switch (key) {
        case ViewKey::Left:
        case ViewKey::Right: {
            if (length == 0) return false;
            bool const isRight = key == ViewKey::Right;
            std::uint32_t const first = isRight ? 0 : length - 1;
            std::uint32_t const next = !cursor_  ? first
                                       : isRight ? *cursor_ + 1
                                                 : *cursor_ - std::min(*cursor_, 1U);
            SetCursor(std::min(next, length - 1));
            return true;
        }
        case ViewKey::Up:
        case ViewKey::Down:
            if (!cursor_ || count == 0) return false;
            readCurve_ = std::clamp(readCurve_ + (key == ViewKey::Down ? 1 : -1), 0L, count - 1);
            Repaint();
            return true;
        case ViewKey::Leave:
            if (!cursor_) return false;
            SetCursor({});
            return true;
        default:
            break;
        }
    }
    return ExploredPlot::OnViewKey(key);
}

} // namespace GUI
