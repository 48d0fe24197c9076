#include "gui/tree/TreeWnd.h"

#include "gui/tree/TreePainter.h"
#include "gui/tree/TreeState.h"

#include <algorithm>
#include <utility>

namespace GUI {

using Utilities::SmartPointer;
using Utilities::String;

// ------------------------------------------------------------------ the tree

void TreeWnd::SetRoot(SmartPointer<TreeViewNode> const& root) {
    EndRename(false);
    SmartPointer<TreeViewNode> const former = std::exchange(root_, root);
    TreeViewNode* const current = GetCurrent();
    String const path = current ? current->GetPath() : String();
    if (!former.IsNull() && !root_.IsNull() && former.Get() != root_.Get())
        CopyTreeState(*former, *root_, several_);
    TreeViewNode* found = nullptr;
    if (current && !root_.IsNull()) found = root_->FindPath(path);
    current_ = anchor_ = To(found);
    pressed_ = renamed_ = {};
    dropMark_.reset();
    press_ = Press::None;
    rows_.SetRoot(root_.Get());
    AdoptSelection();
    OnRowsChanged();
}

void TreeWnd::UpdateTree() {
    rows_.Refresh();
    if (!renamed_.Get()) EndRename(false);
    if (dropMark_ && rows_.Find(dropMark_->node) < 0) dropMark_.reset();
    AdoptSelection();
    OnRowsChanged();
}

void TreeWnd::AdoptSelection() {
    selected_.clear();
    for (long row = 0; row < rows_.GetCount(); ++row) {
        TreeViewNode& node = *rows_[row].node;
        if (!node.IsSelected()) continue;
        // Of several only the first stays where one can be selected.
        if (!several_ && !selected_.empty())
            node.SetSelected(false);
        else
            selected_.push_back(To(&node));
    }
    if (!current_.Get() && !selected_.empty()) current_ = anchor_ = selected_.front();
}

TreeViewNode* TreeWnd::GetCurrent() const { return current_.Get(); }

std::vector<TreeViewNode*> TreeWnd::GetSelected() const {
    std::vector<TreeViewNode*> nodes;
    if (selected_.size() == 1) {
        if (TreeViewNode* const node = selected_.front().Get()) nodes.push_back(node);
        return nodes;
    }
    for (long row = 0; row < rows_.GetCount() && !selected_.empty(); ++row)
        if (rows_[row].node->IsSelected()) nodes.push_back(rows_[row].node);
    return nodes;
}

void TreeWnd::ClearSelection() {
    for (Reference const& each : selected_) {
        TreeViewNode* const node = each.Get();
        if (!node) continue;
        node->SetSelected(false);
        if (selected_.size() == 1) RepaintRow(rows_.Find(node));
    }
    if (selected_.size() > 1) RepaintLater(GetWindowBox());
    selected_.clear();
}

void TreeWnd::ShowSelected(TreeViewNode& node) {
    if (root_.IsNull() || !node.IsWithin(*root_)) return;
    ShowSelected(std::vector<TreeViewNode*>{&node});
}

void TreeWnd::ShowSelected(std::vector<TreeViewNode*> const& nodes) {
    ClearSelection();
    std::uint64_t const former = root_.IsNull() ? 0 : root_->GetRevision();
    rows_.Refresh();
    for (TreeViewNode* const node : nodes) {
        if (!rows_.Reveal(*node)) continue;
        node->SetSelected(true);
        selected_.push_back(To(node));
        if (!several_) break;
    }
    if (!selected_.empty()) current_ = anchor_ = selected_.front();
    if (!root_.IsNull() && former != root_->GetRevision()) OnRowsChanged();
    for (Reference const& each : selected_) RepaintRow(rows_.Find(each.node));
    if (!selected_.empty()) {
        MakeVisible(GetCurrentRow());
        TellCurrentRow(GetCurrentRow());
    }
}

void TreeWnd::SetOpen(TreeViewNode& node, bool open) {
    // A name that is finished may change the tree.
    SmartPointer<TreeViewNode> const keep = root_;
    Reference const kept = To(&node);
    EndRename(true);
    if (root_.Get() != keep.Get() || !kept.Get()) return;
    rows_.Refresh();
    if (open && node.GetParent()) rows_.Reveal(node);
    if (long const row = rows_.Find(&node); row >= 0) SetRowOpen(row, open);
}

void TreeWnd::SetRowOpen(long row, bool open) {
    TreeViewNode& node = *rows_[row].node;
    if (node.IsExpanded() == open || (open && !TreeRows::CanOpen(node))) return;
    EndRename(true);
    SmartPointer<TreeViewNode> const keep = root_;
    Reference const kept = To(&node);
    bool const asks = open && node.HasUnreadChildren();
    if (open) {
        rows_.Open(row);
    } else {
        rows_.Close(row);
        // What was selected inside isn't seen any more; the node stands for it.
        if (TreeViewNode* const current = GetCurrent();
            current && current != &node && current->IsWithin(node)) {
            current_ = anchor_ = kept;
            if (!several_ && !selected_.empty()) {
                ClearSelection();
                node.SetSelected(true);
                selected_.push_back(kept);
                if (observer_) observer_->OnSelectionMoved();
            }
        }
    }
    if (asks && observer_) observer_->OnChildrenWanted(node);
    if (root_.Get() != keep.Get()) return;
    rows_.Refresh();
    OnRowsChanged();
    TellRowChange(rows_.Find(&node));
    if (observer_ && kept.Get()) observer_->OnOpened(node, open);
}

void TreeWnd::OpenAll() {
    EndRename(true);
    rows_.OpenAll(-1);
    OnRowsChanged();
}

void TreeWnd::CloseAll() {
    EndRename(true);
    rows_.CloseAll();
    if (GetCurrentRow() < 0) current_ = anchor_ = {};
    OnRowsChanged();
}

bool TreeWnd::Copy() {
    std::string text;
    for (TreeViewNode const* const node : GetSelected()) {
        for (std::size_t column = 0; column < columns_.size(); ++column)
            text += (column == 0 ? "" : "\t") + node->GetColumn(column).GetStdString();
        text += '\n';
    }
    if (text.empty()) return false;
    text.pop_back();
    SetClipboard(String(std::move(text)));
    return true;
}

// ------------------------------------------------------------------ the window

void TreeWnd::SetColumns(std::vector<TreeColumn> columns, bool headings) {
    columns_ = std::move(columns);
    if (columns_.empty()) columns_.resize(1);
    headings_ = headings;
    OnRowsChanged();
}

void TreeWnd::Paint(PlatformIndependentDeviceContext& context, GridBox const& box) {
    // What was changed and not told yet must not be painted half.
    if (rows_.Refresh()) UpdateScrollBars();
    TreePainter(*this, context, box).Paint();
}

void TreeWnd::OnSize(long width, long height) {
    width_ = width;
    height_ = height;
    OnRowsChanged();
}

void TreeWnd::OnFocus(bool focused) {
    focused_ = focused;
    if (focused && !GetCurrent() && rows_.GetCount() > 0) current_ = anchor_ = To(rows_[0].node);
    RepaintRow(GetCurrentRow());
    if (focused) TellCurrentRow(GetCurrentRow());
}

void TreeWnd::OnRowsChanged() {
    first_ = std::clamp(first_, 0L, GetLastFirst());
    x_ = std::clamp(x_, 0L, std::max(GetContentWidth() - width_, 0L));
    UpdateScrollBars();
    RepaintLater(GetWindowBox());
    if (renamed_.Get()) MoveEditor(GetParts(rows_.Find(renamed_.node)).text);
    TellRowsChanged();
}

void TreeWnd::UpdateScrollBars() {
    if (width_ == 0) return;
    first_ = std::clamp(first_, 0L, GetLastFirst());
    SetScrollBars(first_, GetLastFirst(), GetPage(), x_, std::max(GetContentWidth() - width_, 0L), width_);
}

long TreeWnd::GetPage() const { return std::max((height_ - GetTop()) / rowHeight_, 1L); }

long TreeWnd::GetContentWidth() const {
    long given = 0;
    for (std::size_t i = 0; i + 1 < columns_.size(); ++i) given += columns_[i].width;
    // Deep nodes keep room for some of their text.
    constexpr long readable = 120;
    long const deepest = indentation_ * static_cast<long>(rows_.GetDeepestLevel()) + readable;
    constexpr long smallestColumn = 40;
    return columns_.size() == 1 ? std::max(width_, deepest) : std::max(width_, given + smallestColumn);
}

long TreeWnd::GetRowAt(long y) const {
    if (y < GetTop()) return -1;
    long const row = first_ + (y - GetTop()) / rowHeight_;
    return row < rows_.GetCount() ? row : -1;
}

GridBox TreeWnd::GetRowBox(long row) const {
    long const top = GetTop() + (row - first_) * rowHeight_;
    return {-x_, top, GetContentWidth() - x_, top + rowHeight_};
}

GridBox TreeWnd::GetCellBox(long row, std::size_t column) const {
    GridBox box = row < 0 ? GridBox{-x_, 0, GetContentWidth() - x_, GetTop()} : GetRowBox(row);
    long const end = box.right;
    for (std::size_t i = 0; i <= column && i < columns_.size(); ++i) {
        if (i != 0) box.left = box.right;
        box.right = i + 1 == columns_.size() ? end : box.left + columns_[i].width;
    }
    return box;
}

TreeWnd::Parts TreeWnd::GetParts(long row) const {
    constexpr long bar = 4;
    constexpr long openerWidth = 20;
    constexpr long pictureWidth = 24;
    Parts parts;
    if (row < 0) return parts;
    GridBox const cell = GetCellBox(row, 0);
    TreeViewNode const& node = *rows_[row].node;
    long x = cell.left + bar + static_cast<long>(rows_[row].level) * indentation_;
    auto const take = [&](long width) {
        GridBox const box{x, cell.top, x + width, cell.bottom};
        x += width;
        return box;
    };
    // Trees without any level leave no room for what none of their nodes has.
    GridBox const opener = take(openerWidth);
    if (TreeRows::CanOpen(node)) parts.opener = opener.Meet(cell);
    if (node.GetCheck() != TreeViewNode::Check::None) {
        constexpr long side = GridDrawing::checkBoxSide;
        GridBox const room = take(side + bar);
        long const top = (cell.top + cell.bottom - side) / 2;
        if (room.right <= cell.right) parts.check = {room.left, top, room.left + side, top + side};
    }
    if (node.GetColor()) parts.patch = take(rowHeight_).Meet(cell);
    if (node.GetImage().Length() != 0) parts.picture = take(pictureWidth).Meet(cell);
    parts.text = GridBox{x, cell.top, cell.right, cell.bottom};
    return parts;
}

void TreeWnd::RepaintRow(long row) {
    if (row < 0) return;
    GridBox box = GetRowBox(row);
    // The mark of a place between rows reaches into the neighbours.
    --box.top;
    ++box.bottom;
    box.top = std::max(box.top, GetTop());
    RepaintLater(box);
}

void TreeWnd::ScrollTo(long x, long row) {
    x = std::clamp(x, 0L, std::max(GetContentWidth() - width_, 0L));
    row = std::clamp(row, 0L, GetLastFirst());
    long const dx = x_ - x;
    long const dy = (first_ - row) * rowHeight_;
    if (dx == 0 && dy == 0) return;
    x_ = x;
    first_ = row;
    GridBox area = GetWindowBox();
    if (dx == 0) area.top = GetTop();
    bool const moves =
        (dx == 0 || dy == 0) && std::abs(dx) < area.GetWidth() && std::abs(dy) < area.GetHeight();
    // A field in which a text is changed would leave its picture behind.
    if (moves && !renamed_.Get())
        ScrollPixels(area, dx, dy);
    else
        RepaintLater(GetWindowBox());
    if (renamed_.Get()) MoveEditor(GetParts(rows_.Find(renamed_.node)).text);
    UpdateScrollBars();
}

void TreeWnd::MakeVisible(long row) {
    if (row < 0 || height_ == 0) return;
    ScrollTo(x_, std::clamp(first_, row - GetPage() + 1, row));
}

} // namespace GUI
