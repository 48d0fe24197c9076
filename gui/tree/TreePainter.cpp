#include "gui/tree/TreePainter.h"

#include <algorithm>

namespace GUI {

namespace {

constexpr long barWidth = 4;

} // namespace

TreePainter::TreePainter(TreeWnd const& tree, PlatformIndependentDeviceContext& context, GridBox const& box)
    : tree_(tree), colors_(tree.GetColors()), drawing_(context, colors_, '.', tree.GetFonts()),
      box_(box.Meet(tree.GetWindowBox())), ink_(tree.IsEnabled() ? colors_.ink : colors_.disabled) {}

void TreePainter::Paint() {
    drawing_.Fill(GridBox{box_.left, std::max(box_.top, tree_.GetTop()), box_.right, box_.bottom},
                  colors_.background);
    long const height = tree_.GetRowHeight();
    long const from = std::max(box_.top - tree_.GetTop(), 0L) / height;
    long const to = (box_.bottom - tree_.GetTop() + height - 1) / height;
    long const end = std::min(tree_.GetFirstRow() + to, tree_.GetRows().GetCount());
    for (long row = tree_.GetFirstRow() + from; row < end; ++row) PaintRow(row);
    PaintDropMark();
    PaintHeadings();
}

void TreePainter::PaintRow(long row) {
    TreeViewNode const& node = *tree_.GetRows()[row].node;
    GridBox const box = tree_.GetRowBox(row);
    TreeWnd::Parts const parts = tree_.GetParts(row);
    if (node.IsSelected()) drawing_.Fill(box.Meet(tree_.GetWindowBox()), colors_.selection);
    if (!parts.opener.IsEmpty()) PaintOpener(parts.opener, node.IsExpanded());
    if (!parts.check.IsEmpty()) {
        using Check = TreeViewNode::Check;
        auto const mark = node.GetCheck() == Check::On        ? GridDrawing::Mark::Tick
                          : node.GetCheck() == Check::Partial ? GridDrawing::Mark::Bar
                                                              : GridDrawing::Mark::None;
        drawing_.CheckBox(parts.check, mark, ink_, false);
    }
    if (!parts.patch.IsEmpty()) {
        // A measured colour has grey around it, whatever the row is.
        GridBox const patch = parts.patch.Inset(1);
        constexpr long surround = 5;
        drawing_.Fill(patch, colors_.surround);
        drawing_.Fill(patch.Inset(std::min(surround, patch.GetHeight() / 4)), *node.GetColor());
    }
    if (!parts.picture.IsEmpty())
        drawing_.GetContext().DrawImage(static_cast<short>(parts.picture.left + 2),
                                        static_cast<short>((box.top + box.bottom - 20) / 2), node.GetImage());
    auto const& columns = tree_.GetColumns();
    for (std::size_t column = 0; column < columns.size(); ++column) {
        GridBox const cell = column == 0 ? parts.text : tree_.GetCellBox(row, column);
        if (cell.right <= box_.left || cell.left >= box_.right) continue;
        drawing_.Text(cell, tree_.GetStyle(), node.GetColumn(column), ink_,
                      columns[column].rightAligned ? GridAlignment::Right : GridAlignment::Left);
    }
    if (node.IsSelected())
        drawing_.Fill({box.left, box.top, box.left + barWidth, box.bottom}, colors_.accent);
    if (tree_.IsFocused() && &node == tree_.GetCurrent()) {
        GridBox const frame{std::max(box.left, 0L), box.top, std::min(box.right, tree_.GetWindowBox().right),
                            box.bottom};
        drawing_.Frame(frame, colors_.ink);
        drawing_.Frame(frame.Inset(1), colors_.ink);
    }
}

void TreePainter::PaintOpener(GridBox const& box, bool open) {
    constexpr long half = 4;
    if (box.GetWidth() < 3 * half) return;
    long const x = (box.left + box.right) / 2;
    long const y = (box.top + box.bottom) / 2;
    if (open) {
        drawing_.Line(x - half, y - 2, x, y + 2, ink_, 2);
        drawing_.Line(x, y + 2, x + half, y - 2, ink_, 2);
    } else {
        drawing_.Line(x - 2, y - half, x + 2, y, ink_, 2);
        drawing_.Line(x + 2, y, x - 2, y + half, ink_, 2);
    }
}

void TreePainter::PaintHeadings() {
    if (!tree_.HasHeadings() || box_.top >= tree_.GetTop()) return;
    auto const& columns = tree_.GetColumns();
    drawing_.Fill({box_.left, 0, box_.right, tree_.GetTop() - 1}, colors_.header);
    drawing_.Line(box_.left, tree_.GetTop() - 1, box_.right, tree_.GetTop() - 1, colors_.bar);
    for (std::size_t column = 0; column < columns.size(); ++column) {
        GridBox cell = tree_.GetCellBox(-1, column);
        --cell.bottom;
        if (column == 0) cell.left += barWidth;
        drawing_.Text(cell, tree_.GetStyle(), columns[column].heading, ink_,
                      columns[column].rightAligned ? GridAlignment::Right : GridAlignment::Left);
        if (column + 1 < columns.size())
            drawing_.Line(cell.right - 1, 0, cell.right - 1, tree_.GetTop() - 1, colors_.line);
    }
}

void TreePainter::PaintDropMark() {
    auto const& mark = tree_.GetDropMark();
    long const row = mark ? tree_.GetRows().Find(mark->node) : -1;
    if (row < 0) return;
    GridBox const box = tree_.GetRowBox(row).Meet(tree_.GetWindowBox());
    if (mark->side == TreeDropPlace::Side::On) {
        drawing_.Frame(box, colors_.accent);
        return drawing_.Frame(box.Inset(1), colors_.accent);
    }
    long const y = mark->side == TreeDropPlace::Side::Before ? box.top : box.bottom;
    drawing_.Fill({tree_.GetParts(row).text.left, y - 1, box.right, y + 1}, colors_.accent);
}

} // namespace GUI
