#include "gui/grid/view/GridPainter.h"

#include <algorithm>

namespace GUI {

using Utilities::String;

GridPainter::GridPainter(CGXGridWnd const& grid, PlatformIndependentDeviceContext& context,
                         GridBox const& box)
    : grid_(grid), core_(grid.GetCore()), view_(grid.GetViewport()),
      drawing_(context, grid.GetColors(), grid.GetDecimalSign(), grid.GetFonts()),
      box_(box.Meet({0, 0, view_.columns.extent, view_.rows.extent})) {}

void GridPainter::Paint() {
    GridAxisView const& rows = view_.rows;
    GridAxisView const& columns = view_.columns;
    long const frozenRight = std::min(columns.GetFrozenEnd(), columns.extent);
    long const frozenBottom = std::min(rows.GetFrozenEnd(), rows.extent);
    long const right = std::min(
        core_.GetColumnCount() > columns.frozen ? columns.GetEnd(core_.GetColumnCount()) : frozenRight,
        columns.extent);
    long const bottom = std::min(
        core_.GetRowCount() > rows.frozen ? rows.GetEnd(core_.GetRowCount()) : frozenBottom, rows.extent);
    drawing_.Fill(GridBox{right, 0, columns.extent, rows.extent}.Meet(box_), drawing_.GetColors().outside);
    drawing_.Fill(GridBox{0, bottom, right, rows.extent}.Meet(box_), drawing_.GetColors().outside);

    // What is scrolled may reach behind what is frozen, which covers it.
    PaintPart({{rows.GetFirst(), columns.GetFirst(), rows.GetLast(), columns.GetLast()},
               {frozenRight, frozenBottom, right, bottom}});
    PaintPart(
        {{0, columns.GetFirst(), rows.frozen, columns.GetLast()}, {frozenRight, 0, right, frozenBottom}});
    PaintPart({{rows.GetFirst(), 0, rows.GetLast(), columns.frozen}, {0, frozenBottom, frozenRight, bottom}});
    PaintPart({{0, 0, rows.frozen, columns.frozen}, {0, 0, frozenRight, frozenBottom}});
}

GridPainter::Part GridPainter::Clip(Part part) const {
    part.box = part.box.Meet(box_);
    if (part.box.IsEmpty()) return {};
    GridRange& lines = part.lines;
    lines.top = std::max(lines.top, view_.rows.GetLineAt(part.box.top));
    lines.left = std::max(lines.left, view_.columns.GetLineAt(part.box.left));
    if (long const last = view_.rows.GetLineAt(part.box.bottom - 1); last >= 0)
        lines.bottom = std::min(lines.bottom, last);
    if (long const last = view_.columns.GetLineAt(part.box.right - 1); last >= 0)
        lines.right = std::min(lines.right, last);
    return part;
}

void GridPainter::PaintPart(Part const& whole) {
    Part const part = Clip(whole);
    if (part.box.IsEmpty() || part.lines.IsEmpty()) return;
    drawing_.Fill(part.box, drawing_.GetColors().background);
    merged_.clear();
    for (GridRange const& range : core_.GetArrangement().merged)
        if (!range.Meet(part.lines).IsEmpty()) merged_.push_back(range);
    for (long row = part.lines.top; row <= part.lines.bottom; ++row) {
        if (core_.GetHeights().GetSize(row) == 0) continue;
        GridBox box;
        box.top = view_.rows.GetPlace(row);
        box.bottom = view_.rows.GetEnd(row) - 1;
        for (long column = part.lines.left; column <= part.lines.right; ++column) {
            if (!merged_.empty() && IsCovered({row, column})) continue;
            box.left = view_.columns.GetPlace(column);
            box.right = view_.columns.GetEnd(column) - 1;
            if (box.right > box.left) PaintCell({row, column}, box);
        }
    }
    PaintLines(part);
    PaintMerged(part);
    PaintSelection(part);
}

bool GridPainter::IsCovered(GridPlace const& place) const {
    return std::ranges::any_of(merged_, [&place](GridRange const& range) { return range.Contains(place); });
}

void GridPainter::PaintCell(GridPlace const& place, GridBox const& box) {
    if (place.row == 0 || place.column == 0) return PaintHeader(place, box);
    if (!grid_.HasRow(core_.GetRowLine(place.row))) {
        static CGXStyle const plain;
        return drawing_.Text(box, plain, "\u2026", drawing_.GetColors().disabled, GridAlignment::Left);
    }
    GridCellView cell = grid_.GetCellView(place);
    cell.box = box;
    CGXControl const& control = CGXControl::Of(cell.style.GetControl());
    if (cell.style.interior)
        drawing_.Fill(box, *cell.style.interior);
    else if (!control.ShowsColor() && grid_.GetSelection().Contains(place))
        drawing_.Fill(box, drawing_.GetColors().selection);
    control.Draw(drawing_, cell);
    PaintSortMark(place, box);
}

void GridPainter::PaintHeader(GridPlace const& place, GridBox const& box) {
    CGXStyle const& style = core_.GetStyle(place);
    drawing_.Fill(box, style.interior.value_or(drawing_.GetColors().header));
    String const& text = core_.GetText(place);
    drawing_.Text(box, style, text.Length() == 0 ? GetHeaderText(place) : text,
                  style.textColor.value_or(drawing_.GetColors().ink), GridAlignment::Centre);
    PaintSortMark(place, box);
}

void GridPainter::PaintSortMark(GridPlace const& place, GridBox const& box) {
    // In the last of the lines that stay, above the rows that are sorted.
    if (place.row != view_.rows.frozen) return;
    for (GridSortKey const& key : grid_.GetSortKeys()) {
        constexpr long size = 4;
        if (key.column != place.column || box.GetWidth() < 6 * size) continue;
        long const x = box.right - 2 * size;
        long const y = (box.top + box.bottom - size) / 2;
        for (long i = 0; i < size; ++i) {
            long const half = key.descending ? size - 1 - i : i;
            drawing_.Line(x - half, y + i, x + half + 1, y + i, drawing_.GetColors().ink);
        }
    }
}

void GridPainter::PaintLines(Part const& part) {
    RGBVector const& color = drawing_.GetColors().line;
    for (long row = part.lines.top; row <= part.lines.bottom; ++row)
        if (long const y = view_.rows.GetEnd(row) - 1; core_.GetHeights().GetSize(row) != 0)
            drawing_.Line(part.box.left, y, part.box.right, y,
                          row == view_.rows.frozen ? drawing_.GetColors().bar : color);
    for (long column = part.lines.left; column <= part.lines.right; ++column)
        if (long const x = view_.columns.GetEnd(column) - 1; core_.GetWidths().GetSize(column) != 0)
            drawing_.Line(x, part.box.top, x, part.box.bottom,
                          column == view_.columns.frozen ? drawing_.GetColors().bar : color);
}

void GridPainter::PaintMerged(Part const& part) {
    for (GridRange const& range : merged_) {
        GridPlace const first = range.GetFirst();
        GridBox box = view_.GetBox(range);
        if (box.IsEmpty() || first.row == 0 || first.column == 0) continue;
        drawing_.Fill(box, drawing_.GetColors().background);
        --box.right;
        --box.bottom;
        drawing_.Line(box.left, box.bottom, box.right + 1, box.bottom, drawing_.GetColors().line);
        drawing_.Line(box.right, box.top, box.right, box.bottom + 1, drawing_.GetColors().line);
        if (!range.Meet(part.lines).IsEmpty()) PaintCell(first, box);
    }
}

void GridPainter::PaintSelection(Part const& part) {
    GridSelection const& selection = grid_.GetSelection();
    GridColors const& colors = drawing_.GetColors();
    for (GridRange const& range : selection.GetRanges()) {
        if (range.Meet(part.lines).IsEmpty()) continue;
        GridBox box = view_.GetBox(range);
        --box.right;
        --box.bottom;
        if (grid_.SelectsRows()) {
            constexpr long barWidth = 4;
            drawing_.Fill({box.left, box.top, std::min(box.left + barWidth, part.box.right), box.bottom},
                          colors.accent);
        } else if (range.GetRows() > 1 || range.GetColumns() > 1) {
            drawing_.Frame(box, colors.accent);
        }
    }
    GridRange const current = core_.GetMerged(selection.GetCurrent());
    if (selection.IsEmpty() || current.Meet(part.lines).IsEmpty()) return;
    GridBox box = view_.GetBox(current);
    --box.right;
    --box.bottom;
    if (!grid_.SelectsRows()) drawing_.Frame(box, colors.ink);
    if (grid_.IsFocused()) {
        drawing_.Frame(box, colors.ink);
        drawing_.Frame(box.Inset(1), colors.ink);
    }
}

String GridPainter::GetHeaderText(GridPlace const& place) {
    if (place.row == 0 && place.column == 0) return {};
    if (place.column == 0) return String(place.row);
    std::string letters;
    constexpr long alphabet = 26;
    for (long number = place.column; number > 0; number = (number - 1) / alphabet)
        letters.insert(letters.begin(), static_cast<char>('A' + (number - 1) % alphabet));
    return letters;
}

} // namespace GUI
