#include "gui/grid/view/GridViewport.h"

#include <algorithm>

namespace GUI {

long GridAxisView::GetLineAt(long pixel) const {
    if (pixel < 0 || pixel >= extent) return -1;
    return axis_.GetLineAt(pixel < GetFrozenEnd() ? pixel : pixel + offset);
}

long GridAxisView::GetFirst() const {
    long const line = axis_.GetLineAt(GetFrozenEnd() + offset);
    return line < 0 ? axis_.GetCount() + 1 : line;
}

long GridAxisView::GetLast() const {
    if (extent <= GetFrozenEnd()) return GetFirst() - 1;
    long const line = axis_.GetLineAt(extent - 1 + offset);
    return line < 0 ? axis_.GetCount() : line;
}

long GridAxisView::GetPage() const {
    long last = GetLast();
    if (last >= GetFirst() && GetEnd(last) > extent) --last;
    return std::max(last - GetFirst() + 1, 1L);
}

long GridAxisView::GetGreatestOffset() const {
    return std::max(axis_.GetStart(axis_.GetCount() + 1) - std::max(extent, GetFrozenEnd() + 1), 0L);
}

long GridAxisView::GetLastFirst() const {
    long const from = GetFrozenEnd() + GetGreatestOffset();
    long line = axis_.GetLineAt(from);
    if (line >= 0 && axis_.GetStart(line) < from) ++line;
    return line < 0 ? frozen + 1 : std::max(std::min(line, axis_.GetCount()), frozen + 1);
}

long GridAxisView::GetOffsetFor(long line) const {
    if (line <= frozen) return offset;
    long const begin = GetPlace(line) - GetFrozenEnd();
    long const behind = GetEnd(line) - extent;
    if (begin < 0) return offset + begin;
    // One that is larger than the window is seen from its beginning.
    return behind > 0 ? offset + std::min(behind, begin) : offset;
}

long GridAxisView::GetOffsetToBegin(long line) const {
    return axis_.GetStart(std::max(line, frozen + 1)) - GetFrozenEnd();
}

GridBox GridViewport::GetBox(GridRange const& range) const {
    return {columns.GetPlace(range.left), rows.GetPlace(range.top), columns.GetEnd(range.right),
            rows.GetEnd(range.bottom)};
}

GridPlace GridViewport::GetPlaceAt(long x, long y) const {
    GridPlace const place{rows.GetLineAt(y), columns.GetLineAt(x)};
    if (place.row < 0 || place.column < 0) return {-1, -1};
    return core_.GetMerged(place).GetFirst();
}

long GridViewport::FindEdge(GridAxisView const& view, GridAxis const& axis, long pixel) {
    constexpr long reach = 3;
    for (long const at : {pixel - reach, pixel + reach}) {
        long const line = view.GetLineAt(std::max(at, 0L));
        if (line < 0) continue;
        long const end = view.GetEnd(line);
        if (std::abs(end - pixel) > reach) continue;
        // The hidden one next to the edge is pulled out from behind it.
        if (pixel > end && axis.IsHidden(line + 1) && line < axis.GetCount()) {
            long const shown = axis.GetShown(line + 1, 1);
            return shown < 0 ? axis.GetCount() : shown - 1;
        }
        return line;
    }
    return -1;
}

} // namespace GUI
