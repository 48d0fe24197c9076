#include "gui/grid/printing/GridPrintLayout.h"

#include "gui/grid/controls/CGXControl.h"

#include <algorithm>
#include <cmath>

namespace GUI {

using Utilities::String;

namespace {

constexpr long titleHeight = 28;
constexpr long footerHeight = 24;

long HeightOf(String const& text, long height) { return text.Length() == 0 ? 0 : height; }

} // namespace

GridPrintLayout::GridPrintLayout(CGXGridCore const& core, long frozenRows, long frozenColumns, long width,
                                 long height, GridPrintOptions const& options)
    : core_(core), options_(options), frozenRows_(std::min(frozenRows, core.GetRowCount())),
      frozenColumns_(std::min(frozenColumns, core.GetColumnCount())) {
    GridAxis const& widths = core.GetWidths();
    GridAxis const& heights = core.GetHeights();
    // The line at the right of the last column needs a pixel, too.
    long const whole = widths.GetStart(core.GetColumnCount() + 1) + 1;
    if (options.fitWidth && whole > width) scale_ = static_cast<double>(width) / static_cast<double>(whole);
    width_ = std::lround(static_cast<double>(width) / scale_);
    height_ = static_cast<long>(static_cast<double>(height) / scale_);
    long const room = height_ - HeightOf(options.title, titleHeight) - HeightOf(options.footer, footerHeight);
    for (auto const& [left, right] : Divide(widths, frozenColumns_, width_))
        for (auto const& [top, bottom] : Divide(heights, frozenRows_, room))
            pages_.push_back({{top, left, bottom, right}});
}

std::vector<std::pair<long, long>> GridPrintLayout::Divide(GridAxis const& axis, long frozen, long room) {
    std::vector<std::pair<long, long>> parts;
    // Frozen lines that leave no room are on no page but the first: at least one line is on each.
    long const own = room - axis.GetStart(frozen + 1);
    long first = frozen + 1;
    while (first <= axis.GetCount()) {
        long const end = axis.GetLineAt(axis.GetStart(first) + std::max(own, 1L));
        long const last = end < 0 ? axis.GetCount() : std::max(end - 1, first);
        parts.emplace_back(first, last);
        first = last + 1;
    }
    if (parts.empty()) parts.emplace_back(first, first - 1);
    return parts;
}

std::vector<std::pair<long, long>> GridPrintLayout::Place(GridAxis const& axis, long frozen, long first,
                                                          long last) {
    std::vector<std::pair<long, long>> lines;
    long at = 0;
    auto const add = [&](long line) {
        if (axis.GetSize(line) == 0) return;
        lines.emplace_back(line, at);
        at += axis.GetSize(line);
    };
    for (long line = 0; line <= frozen; ++line) add(line);
    for (long line = first; line <= last; ++line) add(line);
    lines.emplace_back(-1, at);
    return lines;
}

void GridPrintLayout::Paint(GridDrawing& drawing, std::size_t page) const {
    GridRange const& cells = pages_[page].cells;
    auto const rows = Place(core_.GetHeights(), frozenRows_, cells.top, cells.bottom);
    auto const columns = Place(core_.GetWidths(), frozenColumns_, cells.left, cells.right);
    long const top = HeightOf(options_.title, titleHeight);
    CGXStyle plain = core_.GetTableStyle();
    plain.bold = true;
    drawing.Text({-GridDrawing::margin, 0, width_, top}, plain, options_.title, drawing.GetColors().ink,
                 GridAlignment::Left);
    for (std::size_t row = 0; row + 1 < rows.size(); ++row)
        for (std::size_t column = 0; column + 1 < columns.size(); ++column)
            PaintCell(drawing, {rows[row].first, columns[column].first},
                      {columns[column].second, top + rows[row].second, columns[column + 1].second,
                       top + rows[row + 1].second});
    long const right = columns.back().second;
    long const bottom = top + rows.back().second;
    for (auto const& [line, place] : rows)
        drawing.Line(0, top + place, right + 1, top + place, drawing.GetColors().line);
    for (auto const& [line, place] : columns)
        drawing.Line(place, top, place, bottom + 1, drawing.GetColors().line);
    String footer = options_.footer;
    footer.Replace("%1", String(static_cast<unsigned long>(page + 1)));
    footer.Replace("%2", String(static_cast<unsigned long>(pages_.size())));
    plain.bold = false;
    drawing.Text({0, height_ - HeightOf(footer, footerHeight), width_, height_}, plain, footer,
                 drawing.GetColors().ink, GridAlignment::Centre);
}

void GridPrintLayout::PaintCell(GridDrawing& drawing, GridPlace const& place, GridBox const& box) const {
    GridRange const merged = core_.GetMerged(place);
    if (merged.GetFirst() != place) return;
    GridBox whole{box.left + 1, box.top + 1, box.right, box.bottom};
    // A merged cell goes on as far as its lines are on this page.
    for (long row = place.row + 1; row <= merged.bottom; ++row)
        whole.bottom += core_.GetHeights().GetSize(row);
    for (long column = place.column + 1; column <= merged.right; ++column)
        whole.right += core_.GetWidths().GetSize(column);
    CGXStyle const& style = core_.GetStyle(place);
    if (style.interior) drawing.Fill(whole, *style.interior);
    CGXControl::Of(style.GetControl()).Draw(drawing, {whole, style, core_.GetText(place)});
}

} // namespace GUI
